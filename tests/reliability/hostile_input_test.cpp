// SPDX-License-Identifier: Apache-2.0
// Hostile input, each case bounded in size, with the work each does
// checked by what it produced (characters, elements, diagnostics):
// malformed documents, entity expansion, external references to a closed
// loopback port, local external entities, deep nesting, many attributes,
// invalid encodings, the narrow forms under the "C" locale and Xerces'
// XERCES_DISABLE_DTD switch.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "hostile_support.h"
#include "support/text.h"
#include "zuxml.h"

using namespace zuxml_reliability;
using zuxml_test::ScopedLocale;

namespace {

// Measured on Debian 12 with its Xerces 3.2.4 (curl net accessor): an
// unreachable external DTD or entity is a fatal error, so the DOM load
// answers 0 and the stream ends (1) with a fatal diagnostic and, for the
// DTD, before the first element.
constexpr int kDeepSafeDepth = 10000;
constexpr int kManyAttributes = 10000;

struct Malformed {
    const char *name;
    std::string bytes;
    // What a progressive load answers (measured): 0 when Xerces meets the
    // error in its first step, which reads the prolog and decodes the first
    // block of input (encoding errors included); 1 when a later step does.
    int32_t progressive;
};

std::vector<Malformed> MalformedInputs() {
    return {
        {"empty", "", 0},
        {"whitespace only", "  \n ", 0},
        {"truncated start tag", "<r", 1},
        {"unclosed element", "<r><a></a>", 1},
        {"mismatched end tag", "<r><a></b></r>", 1},
        {"end tag without start", "</r>", 1},
        {"two document elements", "<r/><s/>", 1},
        {"text after the document element", "<r/>text", 1},
        {"text before the document element", "text<r/>", 0},
        {"unquoted attribute", "<r a=1/>", 1},
        {"attribute without value", "<r a/>", 1},
        {"duplicate attribute", "<r a='1' a='2'/>", 1},
        {"less-than in an attribute", "<r a='<'/>", 1},
        {"undefined entity", "<r>&undefined;</r>", 1},
        {"bare ampersand", "<r>a & b</r>", 1},
        {"character reference to NUL", "<r>&#0;</r>", 1},
        {"character reference past Unicode", "<r>&#x110000;</r>", 1},
        {"raw NUL byte", std::string("<r>a\0b</r>", 10), 1},
        {"control character", "<r>\x01</r>", 1},
        {"unterminated comment", "<r><!-- c </r>", 1},
        {"double hyphen in a comment", "<r><!-- a -- b --></r>", 1},
        {"unterminated CDATA", "<r><![CDATA[x</r>", 1},
        {"CDATA end in text", "<r>]]></r>", 1},
        {"name starting with a digit", "<1r/>", 1},
        {"processing instruction named xml", "<r><?xml version='1.0'?></r>", 1},
        {"declaration not first", " <?xml version='1.0'?><r/>", 0},
        {"unknown version", "<?xml version='2.0'?><r/>", 0},
        {"unknown encoding", "<?xml version='1.0' encoding='no-such-encoding'?><r/>", 0},
        {"undeclared prefix", "<p:r/>", 1},
        {"undeclared attribute prefix", "<r p:a='1'/>", 1},
        {"rebinding xmlns", "<r xmlns:xmlns='urn:x'/>", 1},
        {"duplicate namespaced attribute", "<r xmlns:a='urn:x' xmlns:b='urn:x' a:z='1' b:z='2'/>", 1},
        {"doctype after the element", "<r/><!DOCTYPE r>", 1},
        {"unterminated doctype", "<!DOCTYPE r [<!ELEMENT r ANY>", 0},
        {"recursive entity", "<!DOCTYPE r [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><r>&a;</r>", 1},
        {"entity with markup that does not nest", "<!DOCTYPE r [<!ENTITY e '<a>'>]><r>&e;</a></r>", 1},
        {"invalid UTF-8 lead byte", "<r>\xff</r>", 1},
        {"truncated UTF-8 sequence", "<r>\xc3</r>", 0},
        {"overlong UTF-8", "<r>\xc0\xaf</r>", 0},
        {"UTF-8 surrogate", "<r>\xed\xa0\x80</r>", 0},
        {"UTF-16 BOM with odd length", "\xff\xfe<\0r\0/\0>\0x", 0},
        {"lone UTF-16 surrogate", std::string("\xff\xfe<\0r\0>\0\x00\xd8<\0/\0r\0>\0", 18), 1},
    };
}

// A TCP port on 127.0.0.1 that nothing listens on: bound by the system,
// then closed.
int ClosedLoopbackPort() {
    const int s = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t size = sizeof address;
    if (s < 0 || bind(s, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0 ||
        getsockname(s, reinterpret_cast<sockaddr *>(&address), &size) != 0) {
        if (s >= 0)
            close(s);
        return -1;
    }
    close(s);
    return ntohs(address.sin_port);
}

bool LoadsAndWalks(ZuXmlDocument doc, const char *xml) {
    if (ZuXmlLoadFromBufA(doc, xml, static_cast<uint32_t>(std::string(xml).size())) != 1)
        return false;
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    char name[32];
    int32_t length = sizeof name;
    return root != nullptr && ZuXmlGetNodeNameA(doc, root, name, &length) == 1 && std::string(name) == "ok";
}

// The billion laughs document with `levels` levels of ten references.
std::string Laughs(int levels) {
    std::string xml = "<!DOCTYPE r [<!ENTITY l0 'lol'>";
    for (int i = 1; i <= levels; ++i) {
        xml += "<!ENTITY l" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j)
            xml += "&l" + std::to_string(i - 1) + ";";
        xml += "'>";
    }
    return xml + "]><r>&l" + std::to_string(levels) + ";</r>";
}

} // namespace

TEST(Malformed, EveryKindAnswersZeroAndLeavesTheDocumentUsable) {
    ZuXmlDocument doc = ZuXmlCreateDocument();
    for (const Malformed &input : MalformedInputs()) {
        SCOPED_TRACE(input.name);
        EXPECT_EQ(ZuXmlLoadFromBufA(doc, input.bytes.data(), static_cast<uint32_t>(input.bytes.size())), 0);
        EXPECT_EQ(ZuXmlGetRootNode(doc), nullptr);
        EXPECT_TRUE(LoadsAndWalks(doc, "<ok a='1'/>"));
    }
    ZuXmlReleaseDocument(doc);
}

TEST(Malformed, EveryKindIsAFatalDiagnosticOfTheStreamAndTheParserGoesOn) {
    Scratch scratch;
    const std::string good = scratch.Write("good.xml", "<r><a/></r>");
    for (const Malformed &input : MalformedInputs()) {
        SCOPED_TRACE(input.name);
        const std::string path = scratch.Write("bad.xml", input.bytes);
        for (int32_t mode : {0, 1}) {
            StreamRecord record;
            ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&record);
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, RecordStart, nullptr, nullptr, RecordEnd,
                                         nullptr, RecordDiagnostic);
            record.result = ZuXmlSax2LoadFromFileA(parser, path.c_str(), mode);
            // One shot, every kind ends the parse (1).
            EXPECT_EQ(record.result, mode == 1 ? input.progressive : 1) << "mode " << mode;
            EXPECT_GE(record.fatal, 1) << "mode " << mode;
            record = StreamRecord{};
            EXPECT_EQ(ZuXmlSax2LoadFromFileA(parser, good.c_str(), mode), 1);
            EXPECT_EQ(record.elements, 2);
            EXPECT_EQ(record.fatal, 0);
            ZuXmlReleaseSax2Parser(parser);
        }
    }
}

TEST(Malformed, InvalidUtf16TextAnswersZero) {
    ZuXmlDocument doc = ZuXmlCreateDocument();
    const char16_t lone[] = u"<r>\xd800</r>";
    const char16_t reversed[] = u"<r>\xdc00\xd800</r>";
    EXPECT_EQ(ZuXmlLoadFromBufW(doc, reinterpret_cast<const ZuXmlWChar *>(lone), 8), 0);
    EXPECT_EQ(ZuXmlLoadFromBufW(doc, reinterpret_cast<const ZuXmlWChar *>(reversed), 9), 0);
    EXPECT_TRUE(LoadsAndWalks(doc, "<ok/>"));
    ZuXmlReleaseDocument(doc);
}

// Xerces has no limit on entity expansion (the library sets no security
// manager): every level multiplies the text by ten, and the time and memory
// with it. Level 4 gives 30,000 characters, each of them counted here.
TEST(EntityExpansion, BillionLaughsAtFourLevelsCompletesWithTheWholeExpansion) {
    const std::string xml = Laughs(4);
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())), 1);
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    int32_t length = 0;
    ASSERT_EQ(ZuXmlGetNodeTextContentA(doc, root, nullptr, &length), 0);
    EXPECT_EQ(length, 3 * 10000 + 1) << "three letters times ten to the fourth, and the terminator";
    ZuXmlReleaseDocument(doc);

    Scratch scratch;
    const StreamRecord record = Stream(scratch.Write("laughs.xml", xml));
    EXPECT_EQ(record.result, 1);
    EXPECT_EQ(record.fatal, 0);
    EXPECT_EQ(record.elements, 1);
    EXPECT_EQ(record.text.size(), 30000u);
}

TEST(EntityExpansion, XercesDisableDtdRejectsEveryDocumentType) {
    ASSERT_EQ(setenv("XERCES_DISABLE_DTD", "1", 1), 0);
    const std::string xml = Laughs(9);
    ZuXmlDocument doc = ZuXmlCreateDocument();
    EXPECT_EQ(ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())), 0);
    EXPECT_EQ(ZuXmlLoadFromBufA(doc, "<!DOCTYPE ok><ok/>", 18), 0);
    EXPECT_TRUE(LoadsAndWalks(doc, "<ok/>")) << "a document without a type still loads";
    Scratch scratch;
    const StreamRecord record = Stream(scratch.Write("laughs.xml", xml));
    EXPECT_EQ(record.result, 1);
    EXPECT_GE(record.fatal, 1);
    EXPECT_EQ(record.elements, 0) << "nine levels are refused before the document element, not expanded";
    EXPECT_EQ(record.text, "");
    ASSERT_EQ(unsetenv("XERCES_DISABLE_DTD"), 0);
    EXPECT_TRUE(LoadsAndWalks(doc, "<!DOCTYPE ok><ok/>")) << "read for every document";
    ZuXmlReleaseDocument(doc);
}

// The document, with PORT replaced by a closed loopback port, fails both
// ways: the DOM load answers 0 and leaves the handle usable, the stream
// ends (1) with a fatal diagnostic. Answers the elements streamed.
int ExpectUnreachableFails(const std::string &pattern) {
    const int port = ClosedLoopbackPort();
    EXPECT_GT(port, 0);
    std::string xml = pattern;
    xml.replace(xml.find("PORT"), 4, std::to_string(port));
    ZuXmlDocument doc = ZuXmlCreateDocument();
    EXPECT_EQ(ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())), 0);
    EXPECT_TRUE(LoadsAndWalks(doc, "<ok/>"));
    ZuXmlReleaseDocument(doc);

    Scratch scratch;
    const StreamRecord record = Stream(scratch.Write("external.xml", xml));
    EXPECT_EQ(record.result, 1);
    EXPECT_GE(record.fatal, 1);
    return record.elements;
}

TEST(ExternalReferences, ADtdOnAClosedLoopbackPortIsAFatalError) {
    EXPECT_EQ(ExpectUnreachableFails("<!DOCTYPE r SYSTEM 'http://127.0.0.1:PORT/r.dtd'><r>text</r>"), 0)
        << "the stream ends before the first element";
}

TEST(ExternalReferences, AnEntityOnAClosedLoopbackPortIsAFatalError) {
    EXPECT_EQ(ExpectUnreachableFails("<!DOCTYPE r [<!ENTITY e SYSTEM 'http://127.0.0.1:PORT/e.txt'>]><r>&e;</r>"),
              1);
}

// Xerces' defaults: the external subset and external general entities of a
// file are read, relative to the document's own location.
TEST(ExternalReferences, LocalExternalEntitiesAreRead) {
    Scratch scratch;
    scratch.Write("entity.txt", "from a file");
    scratch.Write("subset.dtd", "<!ENTITY fromSubset 'declared outside'>");
    const std::string path = scratch.Write(
        "doc.xml", "<!DOCTYPE r SYSTEM 'subset.dtd' [<!ENTITY e SYSTEM 'entity.txt'>]><r>&e;|&fromSubset;</r>");
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromFileA(doc, path.c_str()), 1);
    char text[128];
    int32_t length = sizeof text;
    ASSERT_EQ(ZuXmlGetNodeTextContentA(doc, ZuXmlGetRootNode(doc), text, &length), 1);
    EXPECT_STREQ(text, "from a file|declared outside");
    ZuXmlReleaseDocument(doc);

    const StreamRecord record = Stream(path);
    EXPECT_EQ(record.result, 1);
    EXPECT_EQ(record.fatal, 0);
    EXPECT_EQ(record.text, "from a file|declared outside");

    // A missing local entity is a fatal error of the load.
    const std::string missing = scratch.Write("missing.xml", "<!DOCTYPE r [<!ENTITY e SYSTEM 'nowhere.txt'>]><r>&e;</r>");
    doc = ZuXmlCreateDocument();
    EXPECT_EQ(ZuXmlLoadFromFileA(doc, missing.c_str()), 0);
    ZuXmlReleaseDocument(doc);
    const StreamRecord missingRecord = Stream(missing);
    EXPECT_EQ(missingRecord.result, 1);
    EXPECT_GE(missingRecord.fatal, 1);
}

std::string Nested(int depth) {
    std::string xml;
    xml.reserve(static_cast<size_t>(depth) * 7);
    for (int i = 0; i < depth; ++i)
        xml += "<a>";
    xml += "x";
    for (int i = 0; i < depth; ++i)
        xml += "</a>";
    return xml;
}

// Loading and streaming keep no recursion of their own; serialising and
// reading the text of the whole tree recurse in Xerces, one frame per
// level: on an 8 MB stack they are safe to kDeepSafeDepth levels.
TEST(Limits, DeepNestingLoadsWalksSerialisesAndStreams) {
    const std::string xml = Nested(kDeepSafeDepth);
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())), 1);
    int depth = 0;
    for (ZuXmlNode node = ZuXmlGetRootNode(doc); node != nullptr; node = ZuXmlGetFirstChild(doc, node))
        ++depth;
    EXPECT_EQ(depth, kDeepSafeDepth + 1) << "the elements and the innermost text";
    const auto text = Serialised(doc);
    ASSERT_TRUE(text.has_value());
    EXPECT_NE(text->find(xml), std::string::npos);
    char content[8];
    int32_t length = sizeof content;
    EXPECT_EQ(ZuXmlGetNodeTextContentA(doc, ZuXmlGetRootNode(doc), content, &length), 1);
    EXPECT_STREQ(content, "x");
    ZuXmlReleaseDocument(doc);

    Scratch scratch;
    const StreamRecord record = Stream(scratch.Write("deep.xml", xml), 1);
    EXPECT_EQ(record.result, 1);
    EXPECT_EQ(record.maxDepth, kDeepSafeDepth - 1);
    EXPECT_EQ(record.fatal, 0);
    EXPECT_EQ(record.elements, kDeepSafeDepth);
}

TEST(Limits, ManyAttributesLoadAndStream) {
    std::string xml = "<r";
    for (int i = 0; i < kManyAttributes; ++i)
        xml += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
    xml += "/>";
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())), 1);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(doc, ZuXmlGetRootNode(doc)), kManyAttributes);
    char value[16];
    int32_t length = sizeof value;
    EXPECT_EQ(ZuXmlGetNodeAttributeValueNameA(doc, ZuXmlGetRootNode(doc), "a4321", value, &length), 1);
    EXPECT_STREQ(value, "4321");
    ZuXmlReleaseDocument(doc);

    Scratch scratch;
    const StreamRecord record = Stream(scratch.Write("attributes.xml", xml));
    EXPECT_EQ(record.result, 1);
    EXPECT_EQ(record.fatal, 0);
    EXPECT_EQ(record.elements, 1);
}

// Under the "C" locale the narrow forms carry ASCII only. The narrow
// getters do not look at the conversion's result: for text with a
// character outside ASCII they answer 1 with the part before it in the
// buffer and no terminator after it. A C program that reads non-ASCII text
// through the narrow forms calls setlocale first.
TEST(Locale, NarrowFormsUnderTheCLocale) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    ZuXmlDocument doc = ZuXmlCreateDocument();
    const char16_t xml[] = u"<r\u00e9 a='\u00e9'>caf\u00e9</r\u00e9>";
    ASSERT_EQ(ZuXmlLoadFromBufW(doc, reinterpret_cast<const ZuXmlWChar *>(xml),
                                static_cast<uint32_t>(std::char_traits<char16_t>::length(xml))),
              1);
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    std::vector<char> buffer(64, '~');
    int32_t length = 64;
    EXPECT_EQ(ZuXmlGetNodeNameA(doc, root, buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data(), 2), "r~") << "no terminator";
    buffer.assign(64, '~');
    length = 64;
    EXPECT_EQ(ZuXmlGetNodeTextContentA(doc, root, buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data(), 4), "caf~");
    ZuXmlWChar wide[16];
    length = 16;
    ASSERT_EQ(ZuXmlGetNodeTextContentW(doc, root, wide, &length), 1);
    EXPECT_EQ(wide[3], static_cast<ZuXmlWChar>(0xe9));
    // A narrow load of UTF-8 bytes does not depend on the locale.
    const char utf8Bytes[] = "<r>caf\xc3\xa9</r>";
    EXPECT_EQ(ZuXmlLoadFromBufA(doc, utf8Bytes, sizeof utf8Bytes - 1), 1);
    length = 16;
    ASSERT_EQ(ZuXmlGetNodeTextContentW(doc, ZuXmlGetRootNode(doc), wide, &length), 1);
    EXPECT_EQ(wide[3], static_cast<ZuXmlWChar>(0xe9));
    // A narrow name the locale cannot convert is refused by the narrow
    // writers.
    EXPECT_EQ(ZuXmlAddNodeAttributeA(doc, ZuXmlGetRootNode(doc), "caf\xc3\xa9", "v"), 0);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(doc, ZuXmlGetRootNode(doc)), 0);
    // Under a UTF-8 locale the same text reads whole.
    ScopedLocale utf8("C.UTF-8");
    ASSERT_TRUE(utf8.ok());
    buffer.assign(64, '~');
    length = 64;
    EXPECT_EQ(ZuXmlGetNodeTextContentA(doc, ZuXmlGetRootNode(doc), buffer.data(), &length), 1);
    EXPECT_STREQ(buffer.data(), "caf\xc3\xa9");
    ZuXmlReleaseDocument(doc);
}
