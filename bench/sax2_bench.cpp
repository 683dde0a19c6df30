// SPDX-License-Identifier: Apache-2.0
// SAX2: one streaming load of a document, every string of every event read,
// through ZuXml's wide or narrow callback table and through a raw Xerces
// handler that reads the same strings.
#include <algorithm>
#include <string>
#include <type_traits>
#include <vector>

#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "bench.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_bench {

namespace {

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

} // namespace

void SaxWideZuXml(benchmark::State &state, const std::string &document) { SaxZuXml(state, document, true); }
void SaxWideRaw(benchmark::State &state, const std::string &document) { SaxRaw<false>(state, document); }
void SaxNarrowZuXml(benchmark::State &state, const std::string &document) { SaxZuXml(state, document, false); }
void SaxNarrowRaw(benchmark::State &state, const std::string &document) { SaxRaw<true>(state, document); }

} // namespace zuxml_bench
