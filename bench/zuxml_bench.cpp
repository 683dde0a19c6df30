// ZuXml against raw Xerces-C++, in one process and one run.
//
// Every path is measured twice under one name, "<path>/<document>/zuxml" and
// "<path>/<document>/raw": the raw side drives Xerces exactly as ZuXml
// configures it and does the work a caller of Xerces would do to get the
// same strings. Repetitions are interleaved at random, and after the run a
// summary gives ZuXml / raw for each pair from the medians of that run.
//
//   zuxml_bench [google benchmark flags]
//
// The documents are read from ZUXML_BENCH_CORPUS (a directory) or, without
// it, from where the build wrote them. A path whose document is missing is
// skipped with a message.
#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "zuxml.h"

XERCES_CPP_NAMESPACE_USE

namespace {

// The caller buffer of the getters: ZuXml fills it with zeros to its end on
// every call, as its contract says, so its size is part of what is measured.
// A name or a short text fits; longer text takes a second call with a buffer
// of the size the first one reported, on both sides.
constexpr int32_t kBufferUnits = 256;

const char *const kDocuments[] = {"record", "text", "small"};

// ---------------------------------------------------------------------------
// Documents

struct Document {
    std::string path;
    std::string bytes;
    std::u16string widePath;
    bool present = false;
};

std::string CorpusDir() {
    if (const char *dir = std::getenv("ZUXML_BENCH_CORPUS"))
        return dir;
    return ZUXML_BENCH_CORPUS_DIR;
}

const Document &GetDocument(const std::string &name) {
    static std::map<std::string, Document> documents;
    auto found = documents.find(name);
    if (found != documents.end())
        return found->second;
    Document &document = documents[name];
    document.path = CorpusDir() + "/" + name + ".xml";
    std::ifstream in(document.path, std::ios::binary);
    if (in) {
        document.bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        document.present = !document.bytes.empty();
    }
    document.widePath.assign(document.path.begin(), document.path.end());
    return document;
}

// The document of a run, or NULL after telling the run why it is skipped.
const Document *Require(benchmark::State &state, const std::string &name) {
    const Document &document = GetDocument(name);
    if (!document.present) {
        state.SkipWithError(("no document " + document.path + " (build target zuxml_bench_corpus)").c_str());
        return nullptr;
    }
    return &document;
}

// What a caller does with a string it is handed: reads it to its end.
template <class Char> inline uint64_t Touch(const Char *text) {
    uint64_t length = 0;
    while (text[length])
        ++length;
    return length * 31 + static_cast<uint64_t>(static_cast<std::make_unsigned_t<Char>>(text[0]));
}

inline uint64_t Touch(const XMLCh *text, XMLSize_t length) {
    return length * 31 + (length ? text[0] : 0);
}

// ---------------------------------------------------------------------------
// SAX2

struct SaxTally {
    uint64_t sum = 0;
    uint64_t events = 0;
};

// The callbacks of either table: every string read, AttributesDone counted.
struct ZuEvents {
    static SaxTally &T(void *context) { return *static_cast<SaxTally *>(context); }
    static void StartDocument(ZuXmlSax2Parser, void *c) { ++T(c).events; }
    static void EndDocument(ZuXmlSax2Parser, void *c) { ++T(c).events; }
    static void AttributesDone(ZuXmlSax2Parser, void *c, int32_t depth) { T(c).sum += depth; }
    static void NarrowAttribute(ZuXmlSax2Parser, void *, int32_t, int32_t, const char *, const char *, const char *,
                                const char *, const char *) {}
};

template <class Char> struct ZuText : ZuEvents {
    static void StartElement(ZuXmlSax2Parser, void *c, int32_t depth, int32_t count, const Char *uri,
                             const Char *local, const Char *qname) {
        T(c).sum += Touch(uri) + Touch(local) + Touch(qname) + static_cast<uint64_t>(depth + count);
        ++T(c).events;
    }
    static void Attribute(ZuXmlSax2Parser, void *c, int32_t, int32_t index, const Char *uri, const Char *local,
                          const Char *qname, const Char *type, const Char *value) {
        T(c).sum += Touch(uri) + Touch(local) + Touch(qname) + Touch(type) + Touch(value) + index;
        ++T(c).events;
    }
    static void EndElement(ZuXmlSax2Parser, void *c, int32_t depth, const Char *uri, const Char *local,
                           const Char *qname, const Char *text) {
        T(c).sum += Touch(uri) + Touch(local) + Touch(qname) + Touch(text) + depth;
        ++T(c).events;
    }
    static void Comment(ZuXmlSax2Parser, void *c, int32_t depth, const Char *text) {
        T(c).sum += Touch(text) + depth;
        ++T(c).events;
    }
    static void Diagnostic(ZuXmlSax2Parser, void *c, int32_t code, const Char *message) {
        T(c).sum += Touch(message) + code;
    }
};
using ZuWide = ZuText<ZuXmlWChar>;
using ZuNarrow = ZuText<char>;

// One streaming load through ZuXml. Not inlined, so that a profile can
// collect exactly the loads (valgrind --toggle-collect).
__attribute__((noinline)) void ZuXmlSaxLoad(const Document &document, bool wide, SaxTally &tally) {
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&tally);
    if (wide) {
        ZuXmlSetSax2ParserCallbacksW(parser, ZuEvents::StartDocument, ZuEvents::EndDocument, ZuWide::StartElement,
                                     ZuWide::Attribute, ZuEvents::AttributesDone, ZuWide::EndElement, ZuWide::Comment,
                                     ZuWide::Diagnostic);
        // The narrow Attribute entry is what brings AttributesDone.
        ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, ZuEvents::NarrowAttribute, nullptr, nullptr,
                                     nullptr, nullptr);
    } else {
        ZuXmlSetSax2ParserCallbacksA(parser, ZuEvents::StartDocument, ZuEvents::EndDocument, ZuNarrow::StartElement,
                                     ZuNarrow::Attribute, ZuEvents::AttributesDone, ZuNarrow::EndElement,
                                     ZuNarrow::Comment, ZuNarrow::Diagnostic);
    }
    ZuXmlSax2LoadFromFileW(parser, document.widePath.c_str(), 0);
    ZuXmlReleaseSax2Parser(parser);
}

// The raw caller: the same strings read, each element's text gathered per
// depth and read at its end tag; the narrow one transcodes every string
// with Xerces' local code page transcoder before reading it.
template <bool Narrow> class RawHandler final : public DefaultHandler {
public:
    explicit RawHandler(SaxTally &tally) : m_Tally(tally) {}

    void startDocument() override { ++m_Tally.events; }
    void endDocument() override { ++m_Tally.events; }
    void startElement(const XMLCh *uri, const XMLCh *local, const XMLCh *qname, const Attributes &attrs) override {
        const XMLSize_t count = attrs.getLength();
        m_Tally.sum += Read(uri) + Read(local) + Read(qname) + static_cast<uint64_t>(m_nDepth) + count;
        ++m_Tally.events;
        for (XMLSize_t i = 0; i < count; ++i) {
            m_Tally.sum += Read(attrs.getURI(i)) + Read(attrs.getLocalName(i)) + Read(attrs.getQName(i)) +
                           Read(attrs.getType(i)) + Read(attrs.getValue(i)) + i;
            ++m_Tally.events;
        }
        m_Tally.sum += static_cast<uint64_t>(m_nDepth); // what AttributesDone adds on the other side
        if (static_cast<size_t>(m_nDepth) >= m_Text.size())
            m_Text.resize(static_cast<size_t>(m_nDepth) + 1);
        m_Text[static_cast<size_t>(m_nDepth)].clear();
        ++m_nDepth;
    }
    void endElement(const XMLCh *uri, const XMLCh *local, const XMLCh *qname) override {
        --m_nDepth;
        const std::u16string &text = m_Text[static_cast<size_t>(m_nDepth)];
        m_Tally.sum += Read(uri) + Read(local) + Read(qname) + Read(text.c_str()) + static_cast<uint64_t>(m_nDepth);
        ++m_Tally.events;
    }
    void characters(const XMLCh *chars, const XMLSize_t length) override {
        if (m_nDepth > 0)
            m_Text[static_cast<size_t>(m_nDepth) - 1].append(chars, length);
    }
    void comment(const XMLCh *chars, const XMLSize_t) override {
        m_Tally.sum += Read(chars) + static_cast<uint64_t>(m_nDepth);
        ++m_Tally.events;
    }

private:
    static uint64_t Read(const XMLCh *text) {
        if (!text)
            text = u"";
        if (!Narrow)
            return Touch(text);
        char *narrow = XMLString::transcode(text, XMLPlatformUtils::fgMemoryManager);
        const uint64_t value = Touch(narrow ? narrow : "");
        XMLString::release(&narrow, XMLPlatformUtils::fgMemoryManager);
        return value;
    }

    SaxTally &m_Tally;
    int32_t m_nDepth = 0;
    std::vector<std::u16string> m_Text;
};

template <bool Narrow> __attribute__((noinline)) void RawSaxLoad(const Document &document, SaxTally &tally) {
    SAX2XMLReader *reader = XMLReaderFactory::createXMLReader(XMLPlatformUtils::fgMemoryManager);
    reader->setFeature(XMLUni::fgXercesSchema, false);
    reader->setFeature(XMLUni::fgSAX2CoreValidation, false);
    reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    RawHandler<Narrow> handler(tally);
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    reader->setLexicalHandler(&handler);
    reader->parse(document.path.c_str());
    delete reader;
}

void SetEventCounters(benchmark::State &state, const Document &document, const SaxTally &tally) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(document.bytes.size()));
    const double events = static_cast<double>(tally.events) / static_cast<double>(std::max<int64_t>(1, state.iterations()));
    state.counters["per_event"] =
        benchmark::Counter(events, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    // The same on both sides of a pair when both read the same strings.
    state.counters["check"] = static_cast<double>(tally.sum / static_cast<uint64_t>(std::max<int64_t>(1, state.iterations())));
}

void SaxZuXml(benchmark::State &state, const std::string &name, bool wide) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    SaxTally tally;
    for (auto _ : state)
        ZuXmlSaxLoad(*document, wide, tally);
    SetEventCounters(state, *document, tally);
}

template <bool Narrow> void SaxRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    SaxTally tally;
    for (auto _ : state)
        RawSaxLoad<Narrow>(*document, tally);
    SetEventCounters(state, *document, tally);
}

// ---------------------------------------------------------------------------
// DOM: loading

// The DOM parser as ZuXml makes it: synchronous, namespaces on, the rest
// left at Xerces' defaults; reused, its documents released before each load.
DOMLSParser *NewRawParser() {
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSParser *parser = implementation->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr,
                                                         XMLPlatformUtils::fgMemoryManager, nullptr);
    parser->getDomConfig()->setParameter(XMLUni::fgDOMNamespaces, true);
    return parser;
}

__attribute__((noinline)) DOMDocument *RawDomLoad(DOMLSParser *parser, const Document &document) {
    parser->resetDocumentPool();
    MemBufInputSource source(reinterpret_cast<const XMLByte *>(document.bytes.data()), document.bytes.size(),
                             "XMLBuffer", false, XMLPlatformUtils::fgMemoryManager);
    Wrapper4InputSource input(&source, false, XMLPlatformUtils::fgMemoryManager);
    return parser->parse(&input);
}

__attribute__((noinline)) int32_t ZuXmlDomLoad(ZuXmlDocument handle, const Document &document) {
    return ZuXmlLoadFromBufA(handle, document.bytes.data(), static_cast<uint32_t>(document.bytes.size()));
}

void SetBytes(benchmark::State &state, const Document &document) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(document.bytes.size()));
}

// Loaded documents for the paths that read them, kept from one repetition
// to the next: loading the large ones takes longer than reading them.
struct LoadedDocuments {
    ZuXmlDocument zuxml = nullptr;
    DOMLSParser *parser = nullptr;
    DOMDocument *raw = nullptr;
    // Bytes read since the last load, for the walks (see below).
    uint64_t zuxmlRead = 0;
    uint64_t rawRead = 0;
};

std::map<std::string, LoadedDocuments> &AllLoaded() {
    static std::map<std::string, LoadedDocuments> loaded;
    return loaded;
}

LoadedDocuments &Loaded(const Document &document) {
    LoadedDocuments &loaded = AllLoaded()[document.path];
    if (!loaded.zuxml) {
        loaded.zuxml = ZuXmlCreateDocument();
        ZuXmlDomLoad(loaded.zuxml, document);
        loaded.parser = NewRawParser();
        loaded.raw = RawDomLoad(loaded.parser, document);
    }
    return loaded;
}

void ReleaseLoaded() {
    for (auto &[path, loaded] : AllLoaded()) {
        ZuXmlReleaseDocument(loaded.zuxml);
        loaded.parser->release();
    }
    AllLoaded().clear();
}

void LoadZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument handle = ZuXmlCreateDocument();
    for (auto _ : state)
        if (ZuXmlDomLoad(handle, *document) != 1)
            state.SkipWithError("load failed");
    SetBytes(state, *document);
    ZuXmlReleaseDocument(handle);
}

void LoadRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    DOMLSParser *parser = NewRawParser();
    for (auto _ : state)
        benchmark::DoNotOptimize(RawDomLoad(parser, *document));
    SetBytes(state, *document);
    parser->release();
}

// ---------------------------------------------------------------------------
// DOM: walking every node, names and text of elements into a caller buffer

// Xerces makes an element's text content in the document's own memory on
// every read and frees it only with the document, so a document is loaded
// afresh (untimed) once its walks have read about this much.
constexpr uint64_t kWalkBytesPerLoad = 256u << 20;

struct WalkTally {
    uint64_t sum = 0;
    uint64_t nodes = 0;
};

// A getter through the buffer protocol: the small buffer first, and when the
// text did not fit, once more with a buffer of the reported size.
template <class Getter>
inline uint64_t ReadInto(Getter getter, ZuXmlDocument doc, ZuXmlNode node, ZuXmlWChar *buffer,
                         std::vector<ZuXmlWChar> &large) {
    int32_t length = kBufferUnits;
    if (getter(doc, node, buffer, &length) == 1)
        return buffer[0];
    if (length <= kBufferUnits)
        return 0;
    large.resize(static_cast<size_t>(length));
    getter(doc, node, large.data(), &length);
    return large[0];
}

__attribute__((noinline)) void ZuXmlWalk(ZuXmlDocument doc, WalkTally &tally) {
    ZuXmlWChar buffer[kBufferUnits];
    std::vector<ZuXmlWChar> large;
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    ZuXmlNode node = root;
    while (node) {
        ++tally.nodes;
        if (ZuXmlGetNodeType(doc, node) == 1) {
            tally.sum += ReadInto(ZuXmlGetNodeNameW, doc, node, buffer, large);
            tally.sum += ReadInto(ZuXmlGetNodeTextContentW, doc, node, buffer, large);
        }
        ZuXmlNode next = ZuXmlGetFirstChild(doc, node);
        while (!next && node && node != root) {
            next = ZuXmlGetNextSibling(doc, node);
            if (!next)
                node = ZuXmlGetParentNode(doc, node);
        }
        node = next;
    }
}

inline uint64_t CopyInto(const XMLCh *text, XMLCh *buffer, std::vector<XMLCh> &large) {
    const XMLSize_t length = XMLString::stringLen(text);
    XMLCh *target = buffer;
    if (length >= static_cast<XMLSize_t>(kBufferUnits)) {
        large.resize(length + 1);
        target = large.data();
    }
    std::memcpy(target, text, (length + 1) * sizeof(XMLCh));
    return target[0];
}

__attribute__((noinline)) void RawWalk(DOMDocument *doc, WalkTally &tally) {
    XMLCh buffer[kBufferUnits];
    std::vector<XMLCh> large;
    DOMNode *root = doc->getDocumentElement();
    DOMNode *node = root;
    while (node) {
        ++tally.nodes;
        if (node->getNodeType() == DOMNode::ELEMENT_NODE) {
            tally.sum += CopyInto(node->getNodeName(), buffer, large);
            tally.sum += CopyInto(node->getTextContent(), buffer, large);
        }
        DOMNode *next = node->getFirstChild();
        while (!next && node && node != root) {
            next = node->getNextSibling();
            if (!next)
                node = node->getParentNode();
        }
        node = next;
    }
}

void SetWalkCounters(benchmark::State &state, const WalkTally &tally) {
    const double nodes = static_cast<double>(tally.nodes) / static_cast<double>(std::max<int64_t>(1, state.iterations()));
    state.counters["per_node"] =
        benchmark::Counter(nodes, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["check"] = static_cast<double>(tally.sum / static_cast<uint64_t>(std::max<int64_t>(1, state.iterations())));
}

void WalkZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    LoadedDocuments &loaded = Loaded(*document);
    WalkTally tally;
    for (auto _ : state) {
        if (loaded.zuxmlRead > kWalkBytesPerLoad) {
            state.PauseTiming();
            ZuXmlDomLoad(loaded.zuxml, *document);
            loaded.zuxmlRead = 0;
            state.ResumeTiming();
        }
        ZuXmlWalk(loaded.zuxml, tally);
        loaded.zuxmlRead += document->bytes.size() * 4;
    }
    SetBytes(state, *document);
    SetWalkCounters(state, tally);
}

void WalkRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    LoadedDocuments &loaded = Loaded(*document);
    WalkTally tally;
    for (auto _ : state) {
        if (loaded.rawRead > kWalkBytesPerLoad) {
            state.PauseTiming();
            loaded.raw = RawDomLoad(loaded.parser, *document);
            loaded.rawRead = 0;
            state.ResumeTiming();
        }
        RawWalk(loaded.raw, tally);
        loaded.rawRead += document->bytes.size() * 4;
    }
    SetBytes(state, *document);
    SetWalkCounters(state, tally);
}

// ---------------------------------------------------------------------------
// One getter call on a short name: the first child element of the root

ZuXmlNode FirstElement(ZuXmlDocument doc) {
    for (ZuXmlNode node = ZuXmlGetFirstChild(doc, nullptr); node; node = ZuXmlGetNextSibling(doc, node))
        if (ZuXmlGetNodeType(doc, node) == 1)
            return node;
    return nullptr;
}

template <class Char, int32_t (*Getter)(ZuXmlDocument, ZuXmlNode, Char *, int32_t *)>
__attribute__((noinline)) int32_t ZuXmlGetName(ZuXmlDocument doc, ZuXmlNode node, Char *buffer) {
    int32_t length = kBufferUnits;
    return Getter(doc, node, buffer, &length);
}

template <class Char, int32_t (*Getter)(ZuXmlDocument, ZuXmlNode, Char *, int32_t *)>
void GetterZuXml(benchmark::State &state) {
    const Document *document = Require(state, "small");
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    ZuXmlNode node = FirstElement(doc);
    Char buffer[kBufferUnits];
    for (auto _ : state) {
        benchmark::DoNotOptimize(ZuXmlGetName<Char, Getter>(doc, node, buffer));
        benchmark::ClobberMemory();
    }
}

DOMNode *RawFirstElement(DOMDocument *doc) {
    for (DOMNode *node = doc->getDocumentElement()->getFirstChild(); node; node = node->getNextSibling())
        if (node->getNodeType() == DOMNode::ELEMENT_NODE)
            return node;
    return nullptr;
}

// The raw counterparts: the name copied into the buffer, or (narrow)
// converted into it by the C runtime, as ZuXml's narrow getters convert.
__attribute__((noinline)) void RawGetName(const DOMNode *node, XMLCh *buffer) {
    const XMLCh *name = node->getNodeName();
    const XMLSize_t length = XMLString::stringLen(name);
    if (length < static_cast<XMLSize_t>(kBufferUnits))
        std::memcpy(buffer, name, (length + 1) * sizeof(XMLCh));
}

__attribute__((noinline)) void RawGetName(const DOMNode *node, char *buffer) {
    const XMLCh *name = node->getNodeName();
    const XMLSize_t length = XMLString::stringLen(name);
    if (length < static_cast<XMLSize_t>(kBufferUnits)) {
        wchar_t units[kBufferUnits];
        std::copy(name, name + length + 1, units);
        std::wcstombs(buffer, units, kBufferUnits);
    }
}

template <class Char> void GetterRaw(benchmark::State &state) {
    const Document *document = Require(state, "small");
    if (!document)
        return;
    DOMNode *node = RawFirstElement(Loaded(*document).raw);
    Char buffer[kBufferUnits] = {};
    for (auto _ : state) {
        RawGetName(node, buffer);
        benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(buffer[0]);
}

// ---------------------------------------------------------------------------
// Writing the whole document into a string

__attribute__((noinline)) int32_t ZuXmlWrite(ZuXmlDocument doc, std::vector<ZuXmlWChar> &buffer) {
    int32_t length = static_cast<int32_t>(buffer.size());
    return ZuXmlWriteToStringW(doc, buffer.data(), &length);
}

__attribute__((noinline)) size_t RawWrite(DOMDocument *doc) {
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSSerializer *serializer = implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager);
    XMLCh *text = serializer->writeToString(doc);
    const size_t length = XMLString::stringLen(text);
    XMLString::release(&text, XMLPlatformUtils::fgMemoryManager);
    serializer->release();
    return length;
}

void WriteZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    // The caller's buffer has the size a first call reported.
    int32_t length = 0;
    ZuXmlWriteToStringW(doc, nullptr, &length);
    std::vector<ZuXmlWChar> buffer(static_cast<size_t>(length));
    for (auto _ : state)
        if (ZuXmlWrite(doc, buffer) != 1)
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

void WriteRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    DOMDocument *doc = Loaded(*document).raw;
    for (auto _ : state)
        benchmark::DoNotOptimize(RawWrite(doc));
    SetBytes(state, *document);
}

// ---------------------------------------------------------------------------
// Writing the whole document to a file: ZuXml first makes sure the
// serializer can finish (one walk over the nodes it writes), then writes as
// Xerces does. The output goes to the null device, so the serializer's own
// work is measured, not the disk's.

constexpr char16_t kNullDevice[] = u"/dev/null";

__attribute__((noinline)) bool RawWriteFile(DOMDocument *doc) {
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSSerializer *serializer = implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager);
    DOMLSOutput *output = implementation->createLSOutput(XMLPlatformUtils::fgMemoryManager);
    bool written;
    {
        LocalFileFormatTarget target(kNullDevice, XMLPlatformUtils::fgMemoryManager);
        output->setByteStream(&target);
        written = serializer->write(doc, output);
    }
    output->release();
    serializer->release();
    return written;
}

void WriteFileZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    for (auto _ : state)
        if (ZuXmlWriteNoPrettyW(doc, kNullDevice) != 1)
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

void WriteFileRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    DOMDocument *doc = Loaded(*document).raw;
    for (auto _ : state)
        if (!RawWriteFile(doc))
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

// ---------------------------------------------------------------------------
// Registration and the summary of ratios

// A fixed number of iterations when ZUXML_BENCH_ITERATIONS says so (for
// instruction counts under valgrind), else as many as the timing needs.
void FixIterations(benchmark::internal::Benchmark *bench) {
    if (const char *count = std::getenv("ZUXML_BENCH_ITERATIONS"))
        bench->Iterations(std::atoll(count));
}

void RegisterPair(const std::string &path, const std::string &document, void (*zuxml)(benchmark::State &, const std::string &),
                  void (*raw)(benchmark::State &, const std::string &)) {
    const bool large = document != "small";
    auto *a = benchmark::RegisterBenchmark((path + "/" + document + "/zuxml").c_str(), zuxml, document);
    auto *b = benchmark::RegisterBenchmark((path + "/" + document + "/raw").c_str(), raw, document);
    for (auto *bench : {a, b}) {
        bench->Unit(large ? benchmark::kMillisecond : benchmark::kMicrosecond);
        bench->MeasureProcessCPUTime();
        // Every operation on a large document takes longer than this: one
        // iteration per repetition.
        if (std::getenv("ZUXML_BENCH_ITERATIONS"))
            FixIterations(bench);
        else if (large)
            bench->MinTime(0.05);
    }
}

void RegisterAll() {
    for (const char *document : kDocuments) {
        RegisterPair("sax_wide", document, [](benchmark::State &s, const std::string &d) { SaxZuXml(s, d, true); },
                     SaxRaw<false>);
        RegisterPair("sax_narrow", document, [](benchmark::State &s, const std::string &d) { SaxZuXml(s, d, false); },
                     SaxRaw<true>);
        RegisterPair("dom_load", document, LoadZuXml, LoadRaw);
        RegisterPair("dom_walk", document, WalkZuXml, WalkRaw);
        RegisterPair("write_string", document, WriteZuXml, WriteRaw);
        RegisterPair("write_file", document, WriteFileZuXml, WriteFileRaw);
    }
    for (auto *bench : {benchmark::RegisterBenchmark("getter_name_w/small/zuxml", GetterZuXml<ZuXmlWChar, ZuXmlGetNodeNameW>),
                        benchmark::RegisterBenchmark("getter_name_w/small/raw", GetterRaw<XMLCh>),
                        benchmark::RegisterBenchmark("getter_name_a/small/zuxml", GetterZuXml<char, ZuXmlGetNodeNameA>),
                        benchmark::RegisterBenchmark("getter_name_a/small/raw", GetterRaw<char>)})
    {
        bench->Unit(benchmark::kNanosecond);
        bench->MeasureProcessCPUTime();
        FixIterations(bench);
    }
}

// The console output as usual, and at the end ZuXml / raw for every pair:
// the medians when the runs were repeated, else the single runs.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.error_occurred)
                continue;
            const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
            if (run.run_type == Run::RT_Aggregate && !median)
                continue;
            std::string name = run.run_name.function_name;
            const double seconds = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            Sample &sample = m_Samples[name];
            if (median) {
                sample.median = seconds;
            } else {
                sample.runs.push_back(seconds);
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-28s %14s %14s %8s\n", "ZuXml / raw, CPU time", "zuxml", "raw", "ratio");
        for (const auto &[name, sample] : m_Samples) {
            const size_t slash = name.rfind('/');
            if (slash == std::string::npos || name.substr(slash + 1) != "zuxml")
                continue;
            const auto raw = m_Samples.find(name.substr(0, slash) + "/raw");
            if (raw == m_Samples.end())
                continue;
            const double zu = sample.Median();
            const double rw = raw->second.Median();
            std::printf("%-28s %14s %14s %8.3f\n", name.substr(0, slash).c_str(), Format(zu).c_str(),
                        Format(rw).c_str(), rw > 0 ? zu / rw : 0.0);
        }
        std::fflush(stdout);
    }

private:
    static std::string Format(double seconds) {
        char text[32];
        if (seconds < 1e-6)
            std::snprintf(text, sizeof text, "%.1f ns", seconds * 1e9);
        else if (seconds < 1e-3)
            std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
        else
            std::snprintf(text, sizeof text, "%.1f ms", seconds * 1e3);
        return text;
    }

    struct Sample {
        std::vector<double> runs;
        double median = -1;
        double Median() const {
            if (median >= 0)
                return median;
            if (runs.empty())
                return 0;
            std::vector<double> sorted = runs;
            std::sort(sorted.begin(), sorted.end());
            return sorted[sorted.size() / 2];
        }
    };
    std::map<std::string, Sample> m_Samples;
};

} // namespace

int main(int argc, char **argv) {
    // Narrow text is in the C runtime's locale: a caller sets one.
    std::setlocale(LC_ALL, "C.UTF-8");
    ZuXmlInit();
    RegisterAll();

    // Unless told otherwise: repeated, interleaved at random, medians only.
    std::vector<char *> args(argv, argv + argc);
    std::vector<std::string> defaults = {"--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true",
                                         "--benchmark_report_aggregates_only=true"};
    for (const std::string &option : defaults) {
        const std::string key = option.substr(0, option.find('='));
        bool given = false;
        for (int i = 1; i < argc; ++i)
            given = given || std::strncmp(argv[i], key.c_str(), key.size()) == 0;
        if (!given)
            args.push_back(const_cast<char *>(option.c_str()));
    }
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    ReleaseLoaded();
    ZuXmlCleanup();
    return 0;
}
