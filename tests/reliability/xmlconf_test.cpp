// SPDX-License-Identifier: Apache-2.0
// The W3C XML conformance suite through both halves of the library, each
// result compared with raw Xerces' under the same settings, computed here:
//   DOM:  load result and serialised text against a DOMLSParser with only
//         namespaces on (error count checked as the library does) and a
//         default DOMLSSerializer; every element's text content against
//         Xerces' getTextContent of the same node;
//   SAX2: load result, event trace and fatal errors seen against a
//         SAX2XMLReader with schema and validation off and namespaces on.
// The suite's directory is ZUXML_XMLCONF_DIR; without it the tests skip
// and say where they looked, or fail under ZUXML_REQUIRE_XMLCONF.
// A serializer that gives no text (Xerces refuses some XML 1.1 documents)
// counts as "(no text)" on both sides.
// Test documents that name a network address in a SYSTEM or PUBLIC literal
// are left out, and any other fetch is sent to a closed loopback proxy.
#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "dom/dom_support.h"
#include "zuxml.h"

XERCES_CPP_NAMESPACE_USE

namespace {

namespace fs = std::filesystem;

struct Case {
    std::string id;
    std::string path;
};

// UTF-16 text (Xerces' or the interface's wide type) as UTF-8.
template <class Unit> std::string Utf8(const Unit *text) {
    static_assert(sizeof(Unit) == 2, "16-bit units");
    if (text == nullptr)
        return "(null)";
    const auto *units = reinterpret_cast<const ZuXmlWChar *>(text);
    return zuxml_dom_test::Utf8(zuxml_test::WString(units));
}

std::u16string Wide(const std::string &ascii) { return std::u16string(ascii.begin(), ascii.end()); }

std::string Attribute(const DOMElement *element, const char16_t *name) {
    return Utf8(element->getAttribute(name));
}

// Every TEST of the catalog, its URI resolved against the xml:base of its
// ancestors and the directory of the catalog.
std::vector<Case> Catalog(const fs::path &dir) {
    std::vector<Case> cases;
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"LS"));
    DOMLSParser *parser = implementation->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr);
    const std::u16string catalog = Wide((dir / "xmlconf.xml").string());
    DOMDocument *doc = nullptr;
    try {
        doc = parser->parseURI(catalog.c_str());
    } catch (...) {
        doc = nullptr;
    }
    if (doc != nullptr) {
        DOMNodeList *tests = doc->getElementsByTagName(u"TEST");
        for (XMLSize_t i = 0; i < tests->getLength(); ++i) {
            const auto *test = static_cast<const DOMElement *>(tests->item(i));
            std::vector<std::string> bases;
            // Entity reference nodes stand between an included catalog's
            // tests and the TESTCASES that include it.
            for (const DOMNode *node = test->getParentNode(); node != nullptr; node = node->getParentNode()) {
                if (node->getNodeType() != DOMNode::ELEMENT_NODE)
                    continue;
                const std::string base = Attribute(static_cast<const DOMElement *>(node), u"xml:base");
                if (!base.empty())
                    bases.push_back(base);
            }
            fs::path path = dir;
            for (auto it = bases.rbegin(); it != bases.rend(); ++it)
                path /= *it;
            path /= Attribute(test, u"URI");
            cases.push_back({Attribute(test, u"ID"), path.lexically_normal().string()});
        }
    }
    parser->release();
    return cases;
}

bool NamesTheNetwork(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    static const std::regex network("(SYSTEM|PUBLIC)[^>]*['\"](https?|ftp):", std::regex::optimize);
    return std::regex_search(bytes, network);
}

// ---- DOM ----

struct DomResult {
    int32_t result = 0;
    std::string text;
};

DomResult RawDom(const std::string &path) {
    DomResult out;
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSParser *parser = implementation->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr);
    parser->getDomConfig()->setParameter(XMLUni::fgDOMNamespaces, true);
    const std::u16string uri = Wide(path);
    DOMDocument *doc = nullptr;
    try {
        doc = parser->parseURI(uri.c_str());
        if (doc != nullptr && static_cast<DOMLSParserImpl *>(parser)->getErrorCount() > 0)
            doc = nullptr;
    } catch (...) {
        doc = nullptr;
    }
    if (doc != nullptr) {
        out.result = 1;
        DOMLSSerializer *serializer = implementation->createLSSerializer();
        try {
            XMLCh *text = serializer->writeToString(doc);
            out.text = text != nullptr ? Utf8(text) : "(no text)";
            XMLString::release(&text);
        } catch (...) {
            out.text = "(no text)";
        }
        serializer->release();
    }
    parser->release();
    return out;
}

DomResult LibraryDom(const std::string &path) {
    DomResult out;
    ZuXmlDocument doc = ZuXmlCreateDocument();
    out.result = ZuXmlLoadFromFileA(doc, path.c_str());
    if (out.result == 1) {
        int32_t length = 0;
        if (ZuXmlWriteToStringW(doc, nullptr, &length) == 0 && length > 0) {
            std::vector<ZuXmlWChar> text(static_cast<size_t>(length));
            if (ZuXmlWriteToStringW(doc, text.data(), &length) == 1)
                out.text = Utf8(text.data());
        } else {
            out.text = "(no text)";
        }
    }
    ZuXmlReleaseDocument(doc);
    return out;
}

// ---- SAX2 ----
// One line per event, as the library's callbacks see them: element text is
// the element's own character data, comments and diagnostics carry depth
// and severity.

struct Trace {
    int32_t result = -2;
    bool fatal = false;
    std::vector<std::string> events;
};

// The narrow events' form of a text: what Xerces' own transcoder gives.
std::string Transcoded(const XMLCh *text) {
    char *bytes = XMLString::transcode(text, XMLPlatformUtils::fgMemoryManager);
    std::string narrow = bytes ? bytes : "";
    XMLString::release(&bytes, XMLPlatformUtils::fgMemoryManager);
    return narrow;
}

using TextForm = std::string (*)(const XMLCh *);

// Raw Xerces' events, each text in the given form: UTF-8 for the wide
// events, Xerces' transcoder for the narrow ones (character data piece by
// piece, as Xerces delivers it).
class RawHandler : public DefaultHandler {
public:
    RawHandler(Trace &trace, TextForm form) : m_Trace(trace), m_Form(form) {}
    void startDocument() override { m_Trace.events.push_back("startDocument"); }
    void endDocument() override { m_Trace.events.push_back("endDocument"); }
    void startElement(const XMLCh *uri, const XMLCh *local, const XMLCh *qname, const Attributes &attrs) override {
        std::string line = "start " + std::to_string(m_Depth) + " " + std::to_string(attrs.getLength()) + " {" +
                           m_Form(uri) + "}" + m_Form(local) + " " + m_Form(qname);
        for (XMLSize_t i = 0; i < attrs.getLength(); ++i)
            line += " [{" + m_Form(attrs.getURI(i)) + "}" + m_Form(attrs.getLocalName(i)) + " " +
                    m_Form(attrs.getQName(i)) + " " + m_Form(attrs.getType(i)) + "=" + m_Form(attrs.getValue(i)) + "]";
        m_Trace.events.push_back(line);
        if (m_Text.size() <= static_cast<size_t>(m_Depth))
            m_Text.resize(static_cast<size_t>(m_Depth) + 1);
        m_Text[static_cast<size_t>(m_Depth)].clear();
        ++m_Depth;
    }
    void endElement(const XMLCh *uri, const XMLCh *local, const XMLCh *qname) override {
        --m_Depth;
        m_Trace.events.push_back("end " + std::to_string(m_Depth) + " {" + m_Form(uri) + "}" + m_Form(local) + " " +
                                 m_Form(qname) + " text=" + m_Text[static_cast<size_t>(m_Depth)]);
    }
    void characters(const XMLCh *chars, const XMLSize_t) override {
        if (m_Depth > 0)
            m_Text[static_cast<size_t>(m_Depth) - 1] += m_Form(chars);
    }
    void comment(const XMLCh *chars, const XMLSize_t) override {
        m_Trace.events.push_back("comment " + std::to_string(m_Depth) + " " + m_Form(chars));
    }
    void warning(const SAXParseException &) override { m_Trace.events.push_back("diagnostic 22"); }
    void error(const SAXParseException &) override { m_Trace.events.push_back("diagnostic 20"); }
    void fatalError(const SAXParseException &) override {
        m_Trace.fatal = true;
        m_Trace.events.push_back("diagnostic 21");
    }

private:
    Trace &m_Trace;
    const TextForm m_Form;
    int m_Depth = 0;
    std::vector<std::string> m_Text;
};

Trace RawSax(const std::string &path, TextForm form = Utf8<XMLCh>) {
    Trace trace;
    SAX2XMLReader *reader = XMLReaderFactory::createXMLReader();
    reader->setFeature(XMLUni::fgXercesSchema, false);
    reader->setFeature(XMLUni::fgSAX2CoreValidation, false);
    reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    RawHandler handler(trace, form);
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    reader->setLexicalHandler(&handler);
    const std::u16string uri = Wide(path);
    try {
        reader->parse(uri.c_str());
        trace.result = 1;
    } catch (const SAXParseException &) {
        trace.result = -1;
    } catch (...) {
        trace.result = 0;
    }
    delete reader;
    return trace;
}

void LibStartDocument(ZuXmlSax2Parser, void *c) { static_cast<Trace *>(c)->events.push_back("startDocument"); }
void LibEndDocument(ZuXmlSax2Parser, void *c) { static_cast<Trace *>(c)->events.push_back("endDocument"); }
void LibStart(ZuXmlSax2Parser, void *c, int32_t depth, int32_t count, const ZuXmlWChar *uri,
              const ZuXmlWChar *local, const ZuXmlWChar *qname) {
    static_cast<Trace *>(c)->events.push_back("start " + std::to_string(depth) + " " + std::to_string(count) +
                                              " {" + Utf8(uri) + "}" + Utf8(local) + " " + Utf8(qname));
}
void LibAttribute(ZuXmlSax2Parser, void *c, int32_t, int32_t, const ZuXmlWChar *uri, const ZuXmlWChar *local,
                  const ZuXmlWChar *qname, const ZuXmlWChar *type, const ZuXmlWChar *value) {
    static_cast<Trace *>(c)->events.back() +=
        " [{" + Utf8(uri) + "}" + Utf8(local) + " " + Utf8(qname) + " " + Utf8(type) + "=" + Utf8(value) + "]";
}
void LibEnd(ZuXmlSax2Parser, void *c, int32_t depth, const ZuXmlWChar *uri, const ZuXmlWChar *local,
            const ZuXmlWChar *qname, const ZuXmlWChar *text) {
    static_cast<Trace *>(c)->events.push_back("end " + std::to_string(depth) + " {" + Utf8(uri) + "}" +
                                              Utf8(local) + " " + Utf8(qname) + " text=" + Utf8(text));
}
void LibComment(ZuXmlSax2Parser, void *c, int32_t depth, const ZuXmlWChar *text) {
    static_cast<Trace *>(c)->events.push_back("comment " + std::to_string(depth) + " " + Utf8(text));
}
void LibDiagnostic(ZuXmlSax2Parser, void *c, int32_t code, const ZuXmlWChar *) {
    auto &trace = *static_cast<Trace *>(c);
    trace.fatal = trace.fatal || code == SAX2_FATAL_ERROR;
    trace.events.push_back("diagnostic " + std::to_string(code));
}

// The narrow events, their bytes as they came.
void LibStartA(ZuXmlSax2Parser, void *c, int32_t depth, int32_t count, const char *uri, const char *local,
               const char *qname) {
    static_cast<Trace *>(c)->events.push_back("start " + std::to_string(depth) + " " + std::to_string(count) +
                                              " {" + uri + "}" + local + " " + qname);
}
void LibAttributeA(ZuXmlSax2Parser, void *c, int32_t, int32_t, const char *uri, const char *local, const char *qname,
                   const char *type, const char *value) {
    static_cast<Trace *>(c)->events.back() +=
        std::string(" [{") + uri + "}" + local + " " + qname + " " + type + "=" + value + "]";
}
void LibAttributesDoneA(ZuXmlSax2Parser, void *, int32_t) {}
void LibEndA(ZuXmlSax2Parser, void *c, int32_t depth, const char *uri, const char *local, const char *qname,
             const char *text) {
    static_cast<Trace *>(c)->events.push_back("end " + std::to_string(depth) + " {" + uri + "}" + local + " " +
                                              qname + " text=" + text);
}
void LibCommentA(ZuXmlSax2Parser, void *c, int32_t depth, const char *text) {
    static_cast<Trace *>(c)->events.push_back("comment " + std::to_string(depth) + " " + text);
}
void LibDiagnosticA(ZuXmlSax2Parser, void *c, int32_t code, const char *) {
    LibDiagnostic(nullptr, c, code, nullptr);
}

Trace LibrarySax(const std::string &path, bool narrow = false) {
    Trace trace;
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&trace);
    if (narrow)
        ZuXmlSetSax2ParserCallbacksA(parser, LibStartDocument, LibEndDocument, LibStartA, LibAttributeA,
                                     LibAttributesDoneA, LibEndA, LibCommentA, LibDiagnosticA);
    else
        ZuXmlSetSax2ParserCallbacksW(parser, LibStartDocument, LibEndDocument, LibStart, LibAttribute, nullptr,
                                     LibEnd, LibComment, LibDiagnostic);
    trace.result = ZuXmlSax2LoadFromFileA(parser, path.c_str(), 0);
    ZuXmlReleaseSax2Parser(parser);
    return trace;
}

class Conformance : public ::testing::Test {
protected:
    void SetUp() override {
        m_Dir = ZUXML_XMLCONF_DIR;
        if (!fs::exists(m_Dir / "xmlconf.xml")) {
            const std::string where = "no W3C XML conformance suite: " + (m_Dir / "xmlconf.xml").string() +
                                      " is missing; the CMake cache variable ZUXML_XMLCONF_DIR names the "
                                      "suite's directory";
            if (ZUXML_REQUIRE_XMLCONF)
                FAIL() << where << ", and ZUXML_REQUIRE_XMLCONF is on";
            GTEST_SKIP() << where;
        }
        // Nothing may leave the machine: curl honours these.
        setenv("http_proxy", "http://127.0.0.1:9", 1);
        setenv("https_proxy", "http://127.0.0.1:9", 1);
        setenv("ALL_PROXY", "http://127.0.0.1:9", 1);
        unsetenv("no_proxy");
        unsetenv("NO_PROXY");
        m_Cases = Catalog(m_Dir);
        ASSERT_GT(m_Cases.size(), 2000u) << "the catalogs were read";
    }
    template <class Compare> void ForEachCase(const char *what, Compare compare) const {
        int compared = 0, skipped = 0;
        for (const Case &c : m_Cases) {
            if (!fs::exists(c.path) || NamesTheNetwork(c.path)) {
                ++skipped;
                continue;
            }
            compare(c);
            ++compared;
        }
        std::printf("%s: %d documents compared, %d left out\n", what, compared, skipped);
    }

    fs::path m_Dir;
    std::vector<Case> m_Cases;
};

} // namespace

TEST_F(Conformance, EveryDocumentLoadsAsRawXercesLoadsIt) {
    int loaded = 0;
    ForEachCase("DOM", [&](const Case &c) {
        const DomResult raw = RawDom(c.path);
        const DomResult ours = LibraryDom(c.path);
        EXPECT_EQ(ours.result, raw.result) << c.id << " " << c.path;
        EXPECT_EQ(ours.text, raw.text) << c.id << " " << c.path;
        loaded += raw.result == 1;
    });
    std::printf("DOM: %d documents loaded\n", loaded);
}

// The text content of every element, asked for with length 0 and then
// read with a buffer of the reported length, against what Xerces' own
// getTextContent gives for the same node: entity references, CDATA
// sections, comments and processing instructions of every kind the suite
// has.
TEST_F(Conformance, EveryElementsTextReadsAsXercesReadsIt) {
    int elements = 0;
    ForEachCase("text content", [&](const Case &c) {
        ZuXmlDocument doc = ZuXmlCreateDocument();
        if (ZuXmlLoadFromFileA(doc, c.path.c_str()) == 1) {
            for (ZuXmlNode node : zuxml_dom_test::EveryNode(doc)) {
                if (ZuXmlGetNodeType(doc, node) == DOMNode::ELEMENT_NODE) {
                    EXPECT_EQ(zuxml_dom_test::TextContent(doc, node), zuxml_dom_test::XercesTextContent(node))
                        << c.id << " " << c.path;
                    ++elements;
                }
            }
        }
        ZuXmlReleaseDocument(doc);
    });
    std::printf("text content: %d elements compared\n", elements);
    EXPECT_GT(elements, 5000);
}

TEST_F(Conformance, EveryDocumentStreamsAsRawXercesStreamsIt) {
    int fatal = 0;
    ForEachCase("SAX2", [&](const Case &c) {
        const Trace raw = RawSax(c.path);
        const Trace ours = LibrarySax(c.path);
        EXPECT_EQ(ours.result, raw.result) << c.id << " " << c.path;
        EXPECT_EQ(ours.fatal, raw.fatal) << c.id << " " << c.path;
        EXPECT_EQ(ours.events, raw.events) << c.id << " " << c.path;
        fatal += raw.fatal;
    });
    std::printf("SAX2: %d documents with a fatal error\n", fatal);
}

// The narrow events carry the bytes of Xerces' own transcoder for every
// name, value, comment and piece of text, whatever route the library takes
// to them (the suite runs again under two more locales).
TEST_F(Conformance, EveryDocumentStreamsNarrowAsXercesTranscodesIt) {
    ForEachCase("SAX2 narrow", [&](const Case &c) {
        const Trace raw = RawSax(c.path, Transcoded);
        const Trace ours = LibrarySax(c.path, true);
        EXPECT_EQ(ours.result, raw.result) << c.id << " " << c.path;
        EXPECT_EQ(ours.events, raw.events) << c.id << " " << c.path;
    });
}
