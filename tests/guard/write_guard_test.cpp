// SPDX-License-Identifier: Apache-2.0
// A file write never hangs. Xerces' serializer loops for ever when a run of
// text it hands to the UTF-8 or UCS-4 transcoder ends in a lead surrogate;
// the runs written unchecked come from namespace URIs, the document type's
// identifiers and CDATA sections. Each such document is written in a child
// process with a time limit, so that a hang fails the test instead of
// stopping the run. Documents Xerces writes today come out byte for byte as
// Xerces' own serializer writes them.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "dom/write_guard.h"
#include "support/text.h"
#include "zuxml.h"

XERCES_CPP_NAMESPACE_USE
using zuxml_test::WString;

namespace {

constexpr char16_t kLead = 0xD800;
constexpr char16_t kLastLead = 0xDBFF;
constexpr char16_t kTrail = 0xDC00;

// Long enough for a write under valgrind, far shorter than a hang.
constexpr unsigned kChildSeconds = 60;

const ZuXmlWChar *Z(const WString &text) { return text.c_str(); }

std::string ScratchPath(const char *name) {
    return (std::filesystem::temp_directory_path() /
            ("zuxml_guard_" + std::to_string(getpid()) + "_" + name))
        .string();
}

WString WidePath(const std::string &path) { return WString(path.begin(), path.end()); }

// Runs body in a child process that is killed when it outlives the limit.
// Answers the child's exit status, or -signal when it did not exit.
int InChild(const std::function<int()> &body) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        alarm(kChildSeconds);
        _exit(body());
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return -1000;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

ZuXmlDocument Created(const WString &root, const ZuXmlWChar *nameSpace, const ZuXmlWChar *systemId) {
    return ZuXmlCreateWriteDocumentW(Z(root), nameSpace, systemId);
}

ZuXmlDocument LoadedBytes(const std::string &bytes) {
    ZuXmlDocument doc = ZuXmlCreateDocument();
    if (ZuXmlLoadFromBufA(doc, bytes.data(), static_cast<uint32_t>(bytes.size())) != 1) {
        ZuXmlReleaseDocument(doc);
        return nullptr;
    }
    return doc;
}

// The document's first CDATA section under the root, given new text.
ZuXmlDocument WithCdataText(ZuXmlDocument doc, const WString &text) {
    ZuXmlNode cdata = doc ? ZuXmlGetFirstChild(doc, ZuXmlGetRootNode(doc)) : nullptr;
    if (!cdata || ZuXmlGetNodeType(doc, cdata) != DOMNode::CDATA_SECTION_NODE ||
        ZuXmlSetNodeTextContentW(doc, cdata, Z(text)) != 1) {
        ZuXmlReleaseDocument(doc);
        return nullptr;
    }
    return doc;
}

ZuXmlDocument Utf8Cdata(const WString &text) { return WithCdataText(LoadedBytes("<r><![CDATA[x]]></r>"), text); }

// A document read from UCS-4 is written back in UCS-4, whose transcoder
// keeps a lead surrogate back as UTF-8's does.
ZuXmlDocument Ucs4Cdata(const WString &text) {
    std::string bytes;
    for (char c : std::string("<?xml version='1.0' encoding='UCS-4'?><r><![CDATA[x]]></r>"))
        bytes += std::string(3, '\0') + c;
    return WithCdataText(LoadedBytes(bytes), text);
}

// A loaded document's CDATA section given new text through a call on
// another handle, which holds a document of its own.
ZuXmlDocument CdataSetThroughAnotherHandle(const WString &text) {
    ZuXmlDocument doc = LoadedBytes("<r><![CDATA[x]]></r>");
    ZuXmlDocument other = Created(u"o", nullptr, nullptr);
    ZuXmlNode cdata = doc ? ZuXmlGetFirstChild(doc, ZuXmlGetRootNode(doc)) : nullptr;
    const bool set = cdata && other && ZuXmlSetNodeTextContentW(other, cdata, Z(text)) == 1;
    ZuXmlReleaseDocument(other);
    if (!set) {
        ZuXmlReleaseDocument(doc);
        return nullptr;
    }
    return doc;
}

// A UTF-8 document whose external DTD, in UCS-4, declares a namespace by
// an attribute default: the namespace URI of element (the root r, or a p:c
// under it) reaches the UTF-8 serializer as the DTD has it.
ZuXmlDocument WithDtdDefaultNamespace(const WString &nameSpace, const char *attribute, const char *body) {
    const std::string dtdPath = ScratchPath("default.dtd");
    const std::string xmlPath = ScratchPath("default.xml");
    std::string dtd;
    for (char16_t c : WString(u"<?xml version='1.0' encoding='UCS-4'?><!ATTLIST r ") +
                          WString(attribute, attribute + std::strlen(attribute)) + u" CDATA #FIXED '" + nameSpace +
                          u"'>")
        dtd += std::string{'\0', '\0', static_cast<char>(c >> 8), static_cast<char>(c & 0xFF)};
    std::ofstream(dtdPath, std::ios::binary) << dtd;
    std::ofstream(xmlPath, std::ios::binary) << "<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE r SYSTEM '"
                                             << dtdPath << "'>" << body;
    ZuXmlDocument doc = ZuXmlCreateDocument();
    const int32_t loaded = ZuXmlLoadFromFileA(doc, xmlPath.c_str());
    std::filesystem::remove(dtdPath);
    std::filesystem::remove(xmlPath);
    if (loaded != 1) {
        ZuXmlReleaseDocument(doc);
        return nullptr;
    }
    return doc;
}

ZuXmlDocument WithAddedElementNamespace(const WString &nameSpace) {
    ZuXmlDocument doc = Created(u"r", nullptr, nullptr);
    if (doc && !ZuXmlAddNodeW(doc, nullptr, u"c", 1, nullptr, Z(nameSpace))) {
        ZuXmlReleaseDocument(doc);
        return nullptr;
    }
    return doc;
}

ZuXmlDocument WithImportedCdata(const WString &text) {
    ZuXmlDocument source = Utf8Cdata(text);
    ZuXmlDocument doc = Created(u"t", nullptr, nullptr);
    if (!source || !doc ||
        !ZuXmlAddNodeExisting(doc, nullptr, ZuXmlGetFirstChild(source, ZuXmlGetRootNode(source)), 1)) {
        ZuXmlReleaseDocument(doc);
        doc = nullptr;
    }
    ZuXmlReleaseDocument(source);
    return doc;
}

struct Case {
    std::string name;
    std::function<ZuXmlDocument()> make;
};

WString Lead(const char16_t *before, const char16_t *after, char16_t lead = kLead) {
    return zuxml_test::W(before) + lead + zuxml_test::W(after);
}

std::vector<Case> Triggers() {
    std::vector<Case> cases = {
        {"namespace URI ending in a lead surrogate", [] { return Created(u"r", Z(Lead(u"urn:a", u"")), nullptr); }},
        {"namespace URI ending in U+DBFF", [] { return Created(u"r", Z(Lead(u"urn:a", u"", kLastLead)), nullptr); }},
        {"namespace URI that is a lead surrogate", [] { return Created(u"r", Z(Lead(u"", u"")), nullptr); }},
        {"namespace URI ending in a trail then a lead",
         [] { return Created(u"r", Z(Lead(u"urn:a", u"") .insert(5, 1, kTrail)), nullptr); }},
        {"namespace URI of an added element", [] { return WithAddedElementNamespace(Lead(u"urn:c", u"")); }},
        {"system identifier ending in a lead surrogate", [] { return Created(u"r", nullptr, Z(Lead(u"r.dtd", u""))); }},
        {"system identifier that is a lead surrogate", [] { return Created(u"r", nullptr, Z(Lead(u"", u""))); }},
        {"CDATA ending in a lead surrogate", [] { return Utf8Cdata(Lead(u"x", u"")); }},
        {"CDATA that is a lead surrogate", [] { return Utf8Cdata(Lead(u"", u"")); }},
        {"CDATA with a lead surrogate before ]]>", [] { return Utf8Cdata(Lead(u"x", u"]]>y")); }},
        {"CDATA ending in a trail then a lead", [] { return Utf8Cdata(WString(u"x") + kTrail + kLead); }},
        {"imported CDATA ending in a lead surrogate", [] { return WithImportedCdata(Lead(u"x", u"")); }},
        {"CDATA set through another handle", [] { return CdataSetThroughAnotherHandle(Lead(u"x", u"")); }},
        {"default namespace declared by an external DTD",
         [] { return WithDtdDefaultNamespace(Lead(u"urn:a", u""), "xmlns", "<r/>"); }},
        {"prefixed namespace declared by an external DTD",
         [] { return WithDtdDefaultNamespace(Lead(u"urn:a", u""), "xmlns:p", "<r><p:c/></r>"); }},
        {"UCS-4 document with CDATA ending in a lead surrogate", [] { return Ucs4Cdata(Lead(u"x", u"")); }},
    };
    // In a namespace URI the serializer escapes these, each ending a run.
    static const char16_t *const kEscaped[] = {u"&", u"<", u"\"", u"\n", u"\r", u"\t"};
    for (const char16_t *escaped : kEscaped)
        cases.push_back({"namespace URI with a lead surrogate before character " + std::to_string(int(*escaped)),
                         [escaped] { return Created(u"r", Z(Lead(u"urn:a", escaped) + u"b"), nullptr); }});
    return cases;
}

class WriteGuard : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(ZuXmlInit(), 1); }
    void TearDown() override { ZuXmlCleanup(); }
};

TEST_F(WriteGuard, EveryFileWriteOfATriggerAnswersZeroInTimeAndCreatesNoFile) {
    const std::string path = ScratchPath("trigger.xml");
    for (const Case &c : Triggers()) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove(path);
        // Exit status: 64, plus one bit for each of the four writes that answered 1.
        const int status = InChild([&] {
            ZuXmlDocument doc = c.make();
            if (!doc)
                return 1;
            int bits = 64;
            bits |= ZuXmlWriteW(doc, Z(WidePath(path))) << 0;
            bits |= ZuXmlWriteNoPrettyW(doc, Z(WidePath(path))) << 1;
            bits |= ZuXmlWriteA(doc, path.c_str()) << 2;
            bits |= ZuXmlWriteNoPrettyA(doc, path.c_str()) << 3;
            ZuXmlReleaseDocument(doc);
            return bits;
        });
        EXPECT_EQ(status, 64) << (status == -SIGALRM ? "the write did not return" : "");
        EXPECT_FALSE(std::filesystem::exists(path));
    }
}

TEST_F(WriteGuard, ATriggerStillWritesToAString) {
    for (const Case &c : Triggers()) {
        SCOPED_TRACE(c.name);
        ZuXmlDocument doc = c.make();
        ASSERT_NE(doc, nullptr);
        int32_t length = 0;
        EXPECT_EQ(ZuXmlWriteToStringW(doc, nullptr, &length), 0);
        std::vector<ZuXmlWChar> text(static_cast<size_t>(length));
        EXPECT_EQ(ZuXmlWriteToStringW(doc, text.data(), &length), 1);
        ZuXmlReleaseDocument(doc);
    }
}

std::string FileBytes(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The document as Xerces' own serializer writes it to a file, with nothing
// set but the indentation.
std::string XercesFileBytes(ZuXmlDocument doc, bool pretty, const std::string &path) {
    const DOMDocument *document = static_cast<DOMNode *>(ZuXmlGetRootNode(doc))->getOwnerDocument();
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSSerializer *serializer = implementation->createLSSerializer();
    if (pretty)
        serializer->getDomConfig()->setParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true);
    DOMLSOutput *output = implementation->createLSOutput();
    bool written;
    {
        LocalFileFormatTarget target(path.c_str());
        output->setByteStream(&target);
        written = serializer->write(document, output);
    }
    output->release();
    serializer->release();
    return written ? FileBytes(path) : std::string();
}

// Lead surrogates where no run ends, lone trail surrogates, whole pairs, and
// encodings whose transcoders do not keep a lead surrogate back: Xerces
// writes all of these today.
std::vector<Case> NearMisses() {
    return {
        {"namespace URI with a lead surrogate before >", [] { return Created(u"r", Z(Lead(u"urn:a", u">b")), nullptr); }},
        {"namespace URI with a lead surrogate before '", [] { return Created(u"r", Z(Lead(u"urn:a", u"'b")), nullptr); }},
        {"namespace URI with a lead surrogate before a letter",
         [] { return Created(u"r", Z(Lead(u"urn:a", u"b")), nullptr); }},
        {"namespace URI ending in a trail surrogate",
         [] { return Created(u"r", Z(WString(u"urn:a") + kTrail), nullptr); }},
        {"namespace URI ending in a pair", [] { return Created(u"r", Z(Lead(u"urn:a", u"\xDC00")), nullptr); }},
        {"system identifier with a lead surrogate inside",
         [] { return Created(u"r", nullptr, Z(Lead(u"r", u".dtd"))); }},
        {"system identifier ending in a pair", [] { return Created(u"r", nullptr, Z(Lead(u"r.dtd", u"\xDC00"))); }},
        {"CDATA with a lead surrogate inside", [] { return Utf8Cdata(Lead(u"x", u"y")); }},
        {"CDATA with a lead surrogate before ]]", [] { return Utf8Cdata(Lead(u"x", u"]]y")); }},
        {"CDATA with a pair before ]]>", [] { return Utf8Cdata(Lead(u"x", u"\xDC00]]>y")); }},
        {"CDATA ending in a trail surrogate", [] { return Utf8Cdata(WString(u"x") + kTrail); }},
        {"CDATA ending in a pair", [] { return Utf8Cdata(Lead(u"x", u"\xDC00")); }},
        {"UTF-16 document with CDATA ending in a lead surrogate", [] {
             ZuXmlDocument doc = ZuXmlCreateDocument();
             const WString text = u"<r><![CDATA[x]]></r>";
             ZuXmlLoadFromBufW(doc, Z(text), static_cast<uint32_t>(text.size()));
             return WithCdataText(doc, Lead(u"x", u""));
         }},
        {"Latin-1 document with CDATA ending in a lead surrogate", [] {
             return WithCdataText(LoadedBytes("<?xml version='1.0' encoding='ISO-8859-1'?><r><![CDATA[x]]></r>"),
                                  Lead(u"x", u""));
         }},
    };
}

TEST_F(WriteGuard, DocumentsXercesWritesAreWrittenByteForByteAsXercesWritesThem) {
    const std::string ours = ScratchPath("ours.xml");
    const std::string theirs = ScratchPath("theirs.xml");
    for (const Case &c : NearMisses()) {
        SCOPED_TRACE(c.name);
        ZuXmlDocument doc = c.make();
        ASSERT_NE(doc, nullptr);
        for (bool pretty : {true, false}) {
            const int32_t result = pretty ? ZuXmlWriteW(doc, Z(WidePath(ours))) : ZuXmlWriteNoPrettyW(doc, Z(WidePath(ours)));
            EXPECT_EQ(result, 1);
            const std::string expected = XercesFileBytes(doc, pretty, theirs);
            EXPECT_FALSE(expected.empty());
            EXPECT_EQ(FileBytes(ours), expected);
        }
        ZuXmlReleaseDocument(doc);
    }
    std::filesystem::remove(ours);
    std::filesystem::remove(theirs);
}

// A file write looks for such runs only in a document that took text from
// the caller (built, added to, imported into, or a CDATA section set) or
// that has a document type: the parser refuses a lone surrogate everywhere
// in the document itself, from UTF-16 text, from surrogates encoded in
// UTF-8 and from UCS-4, but not in a DTD's attribute defaults, whose
// namespace declarations then name the elements. Paired, the same text
// loads.
TEST_F(WriteGuard, LoadsRefuseALoneSurrogateOutsideTheDtd) {
    const WString lone(1, kLead), pair = WString(1, kLead) + kTrail;
    const char16_t *const kPlaces[][2] = {
        {u"<r xmlns='urn:", u"'/>"},
        {u"<r xmlns='urn:", u"&amp;'/>"},
        {u"<r xmlns:p='urn:", u"' p:a='1'/>"},
        {u"<r><![CDATA[x", u"]]></r>"},
        {u"<r><![CDATA[x", u"]]]></r>"},
        {u"<r a='x", u"'/>"},
        {u"<r>x", u"</r>"},
    };
    auto loads = [](const WString &text) {
        ZuXmlDocument doc = ZuXmlCreateDocument();
        const int32_t result = ZuXmlLoadFromBufW(doc, Z(text), static_cast<uint32_t>(text.size()));
        ZuXmlReleaseDocument(doc);
        return result;
    };
    for (const auto &place : kPlaces) {
        EXPECT_EQ(loads(WString(place[0]) + lone + place[1]), 0) << "place " << (&place - kPlaces);
        EXPECT_EQ(loads(WString(place[0]) + pair + place[1]), 1) << "place " << (&place - kPlaces) << ", paired";
    }
    // U+D800 as UTF-8 would encode it, and as a UCS-4 character.
    EXPECT_EQ(LoadedBytes("<r xmlns='urn:\xED\xA0\x80'/>"), nullptr);
    EXPECT_EQ(LoadedBytes("<r><![CDATA[\xED\xA0\x80]]></r>"), nullptr);
    std::string ucs4;
    for (char c : std::string("<?xml version='1.0' encoding='UCS-4'?><r><![CDATA[x"))
        ucs4 += std::string(3, '\0') + c;
    ucs4 += std::string("\0\0\xD8\0", 4);
    for (char c : std::string("]]></r>"))
        ucs4 += std::string(3, '\0') + c;
    EXPECT_EQ(LoadedBytes(ucs4), nullptr);
    // In a DTD's attribute default it passes, and declares the namespace.
    EXPECT_EQ(loads(WString(u"<!DOCTYPE r [<!ATTLIST r xmlns CDATA #FIXED 'urn:") + lone + u"'>]><r/>"), 1);
}

// Xerces writes the last block of output when the file is closed, after the
// serializer has answered, and does not report an error there: a small
// document written to a full disk answers 1; a larger one fails while the
// serializer still runs and answers 0.
TEST_F(WriteGuard, AFullDiskIsSeenOnlyPastTheLastBlock) {
    for (const size_t size : {size_t(1000), size_t(64000)}) {
        const std::string xml = "<a>" + std::string(size, 'x') + "</a>";
        ZuXmlDocument doc = LoadedBytes(xml);
        ASSERT_NE(doc, nullptr);
        EXPECT_EQ(ZuXmlWriteA(doc, "/dev/full"), size < 4096 ? 1 : 0) << size << " characters";
        ZuXmlReleaseDocument(doc);
    }
}

// The public identifier and the namespace URI of a prefixed attribute reach
// the serializer unchecked too, but only from a parsed document, whose text
// is well formed: the guard is shown them on documents built with Xerces.
TEST_F(WriteGuard, GuardSeesPublicIdentifiersAndAttributeNamespaces) {
    DOMImplementation *implementation = DOMImplementationRegistry::getDOMImplementation(u"Core");
    const WString bad = Lead(u"urn:a", u"");
    auto check = [&](const std::function<void(DOMDocument *)> &build) {
        DOMDocument *document = implementation->createDocument();
        build(document);
        const bool answer = zuxml::WriteWouldNotReturn(document);
        document->release();
        return answer;
    };
    EXPECT_TRUE(check([&](DOMDocument *d) {
        d->appendChild(d->createDocumentType(u"r", Z(bad), u"r.dtd"));
        d->appendChild(d->createElement(u"r"));
    }));
    EXPECT_TRUE(check([&](DOMDocument *d) {
        d->appendChild(d->createElement(u"r"))->getAttributes();
        d->getDocumentElement()->setAttributeNS(Z(bad), u"p:a", u"1");
    }));
    // An unprefixed attribute's namespace is never declared by the serializer.
    EXPECT_FALSE(check([&](DOMDocument *d) {
        d->appendChild(d->createElement(u"r"));
        d->getDocumentElement()->setAttributeNS(Z(bad), u"a", u"1");
    }));
    EXPECT_FALSE(check([&](DOMDocument *d) {
        d->appendChild(d->createDocumentType(u"r", Z(Lead(u"a", u"b")), u"r.dtd"));
        d->appendChild(d->createElement(u"r"));
    }));
}

} // namespace
