#include "sax2/CZUXMLSax2Handler.h"

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

const XMLCh kNoText[] = {0};

// The units of text before its terminator. Xerces' length is only a hint
// where to look: XML text holds no zero unit, so the terminator normally
// stands right there, and the units up to it are checked eight (SSE2) or
// four at a time, never reading past the length Xerces gave.
size_t TextLength(const XMLCh *text, size_t length) {
    static_assert(sizeof(XMLCh) == 2, "four units to a 64-bit word");
    size_t units = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    for (; units + 8 <= length; units += 8) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(text + units));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(block, zero)))
            break;
    }
#endif
    constexpr uint64_t kLow = 0x0001000100010001u;
    constexpr uint64_t kHigh = 0x8000800080008000u;
    for (; units + 4 <= length; units += 4) {
        uint64_t word;
        std::memcpy(&word, text + units, sizeof word);
        if ((word - kLow) & ~word & kHigh)
            break;
    }
    while (text[units])
        ++units;
    return units;
}

} // namespace

// Wide callbacks take Xerces' own text: a callback's strings need only live
// until it returns, so Xerces' strings are handed over as they are.
struct CZUXMLSax2Handler::WideForm {
    using Table = Sax2CallbackTableW;

    class Text {
    public:
        Text(CZUXMLSax2Handler &, const XMLCh *text) : m_pText(text ? text : kNoText) {}
        const ZuXmlWChar *get() const { return reinterpret_cast<const ZuXmlWChar *>(m_pText); }

    private:
        const XMLCh *m_pText;
    };
    using Name = Text;

    static CZUXMLTextStack<std::basic_string<XMLCh>> &Stack(CZUXMLSax2Handler &handler) { return handler.m_TextW; }
    static void Append(std::basic_string<XMLCh> &slot, const XMLCh *chars, XMLSize_t length) {
        slot.append(chars, TextLength(chars, length));
    }
    static const ZuXmlWChar *View(const std::basic_string<XMLCh> &slot) {
        return reinterpret_cast<const ZuXmlWChar *>(slot.c_str());
    }
};

// Narrow callbacks take Xerces' text in its local code page, the bytes
// XMLString::transcode gives (Xerces' own transcoder, not the C runtime's
// locale), made by CZUXMLLocalCodePage. Names recur and are converted once
// per load.
struct CZUXMLSax2Handler::NarrowForm {
    using Table = Sax2CallbackTableA;

    // Values, comments, messages: converted into the handler's scratch
    // text, good until the next one; each callback receives at most one.
    class Text {
    public:
        Text(CZUXMLSax2Handler &handler, const XMLCh *text) {
            CZUXMLNarrowText &scratch = handler.m_NarrowText;
            scratch.clear();
            if (text)
                handler.m_LocalCodePage.Append(text, XMLString::stringLen(text), scratch);
            m_pText = scratch.c_str();
        }
        const char *get() const { return m_pText; }

    private:
        const char *m_pText;
    };

    // Names, URIs and types: each converted once per load.
    class Name {
    public:
        Name(CZUXMLSax2Handler &handler, const XMLCh *name) : m_pName(handler.m_NarrowNames.Get(name)) {}
        const char *get() const { return m_pName; }

    private:
        const char *m_pName;
    };

    static CZUXMLTextStack<CZUXMLNarrowText> &Stack(CZUXMLSax2Handler &handler) { return handler.m_TextA; }
    static void Append(CZUXMLSax2Handler &handler, CZUXMLNarrowText &slot, const XMLCh *chars, XMLSize_t length) {
        handler.m_LocalCodePage.Append(chars, TextLength(chars, length), slot);
    }
    static const char *View(const CZUXMLNarrowText &slot) { return slot.c_str(); }
};

CZUXMLSax2Handler::CZUXMLSax2Handler(void *hParser, void *pContext, const Sax2CallbackTableW &callbacksW,
                                     const Sax2CallbackTableA &callbacksA)
    : m_pParser(hParser), m_pContext(pContext), m_eTextForm(callbacksW.pEndElement   ? TextForm::Wide
                                                            : callbacksA.pEndElement ? TextForm::Narrow
                                                                                     : TextForm::None),
      m_CallbacksW(callbacksW), m_CallbacksA(callbacksA) {}

int32_t CZUXMLSax2Handler::Location(uint64_t *pnLine, uint64_t *pnColumn) const {
    if (!m_pLocator)
        return 0;
    if (!m_bScanEnded) {
        if (pnLine)
            *pnLine = m_pLocator->getLineNumber();
        if (pnColumn)
            *pnColumn = m_pLocator->getColumnNumber();
    } else {
        if (pnLine)
            *pnLine = m_nLine;
        if (pnColumn)
            *pnColumn = m_nColumn;
    }
    return 1;
}

void CZUXMLSax2Handler::RecordLocation() {
    if (m_pLocator && !m_bScanEnded) {
        m_nLine = m_pLocator->getLineNumber();
        m_nColumn = m_pLocator->getColumnNumber();
    }
}

// An exception on its way out of the parse takes the position with it while
// the locator can still be read: once the exception has left Xerces, the
// scan is over. On the way through, this costs nothing.
template <class Event> void CZUXMLSax2Handler::Guarded(Event event) {
    try {
        event();
    } catch (...) {
        RecordLocation();
        throw;
    }
}

void CZUXMLSax2Handler::setDocumentLocator(const Locator *locator) { m_pLocator = locator; }

void CZUXMLSax2Handler::startDocument() { DocumentEvent(m_CallbacksW.pStartDocument, m_CallbacksA.pStartDocument); }

void CZUXMLSax2Handler::endDocument() { DocumentEvent(m_CallbacksW.pEndDocument, m_CallbacksA.pEndDocument); }

// Start and end of the document carry no text, so both tables share their
// entry types and the chosen one is called as it is.
void CZUXMLSax2Handler::DocumentEvent(DocumentCallback wide, DocumentCallback narrow) {
    Guarded([&] {
        RecordLocation();
        if (wide)
            wide(m_pParser, m_pContext);
        else if (narrow)
            narrow(m_pParser, m_pContext);
    });
}

void CZUXMLSax2Handler::startElement(const XMLCh *uri, const XMLCh *localname, const XMLCh *qname,
                                     const Attributes &attrs) {
    Guarded([&] {
        if (m_CallbacksW.pStartElement)
            OnStartElement<WideForm>(m_CallbacksW, uri, localname, qname, attrs);
        else if (m_CallbacksA.pStartElement)
            OnStartElement<NarrowForm>(m_CallbacksA, uri, localname, qname, attrs);
        // Only the form that end tags deliver is ever gathered during a
        // load, so only its slot can hold text from an earlier element.
        if (m_eTextForm == TextForm::Wide)
            m_TextW.At(m_nDepth).clear();
        else if (m_eTextForm == TextForm::Narrow)
            m_TextA.At(m_nDepth).clear();
        // The depth rises even when nobody hears of the start tag, so that
        // the depths of end tags and comments stay right.
        ++m_nDepth;
    });
}

template <class Form>
void CZUXMLSax2Handler::OnStartElement(const typename Form::Table &table, const XMLCh *uri, const XMLCh *localname,
                                       const XMLCh *qname, const Attributes &attrs) {
    using Name = typename Form::Name;
    using Text = typename Form::Text;
    const Name szUri(*this, uri);
    const Name szLocalName(*this, localname);
    const Name szQName(*this, qname);
    const XMLSize_t count = attrs.getLength();
    if (table.pStartElement)
        table.pStartElement(m_pParser, m_pContext, m_nDepth, static_cast<int32_t>(count), szUri.get(),
                            szLocalName.get(), szQName.get());
    // Attributes are read only for a caller who hears of them.
    for (XMLSize_t index = 0; table.pAttribute && index < count; ++index) {
        const Name szAttrUri(*this, attrs.getURI(index));
        const Name szAttrLocalName(*this, attrs.getLocalName(index));
        const Name szAttrQName(*this, attrs.getQName(index));
        const Name szType(*this, attrs.getType(index));
        const Text szValue(*this, attrs.getValue(index));
        table.pAttribute(m_pParser, m_pContext, m_nDepth, static_cast<int32_t>(index), szAttrUri.get(),
                         szAttrLocalName.get(), szAttrQName.get(), szType.get(), szValue.get());
    }
    // AttributesDone follows the NARROW Attribute entry whichever table
    // serves the start tag, and the serving table's AttributesDone is then
    // called unchecked. Callers rely on this coupling as it always was: one
    // who sets the narrow Attribute entry sets AttributesDone in the table
    // that serves StartElement, and one who sets only wide entries never
    // gets AttributesDone.
    if (m_CallbacksA.pAttribute)
        table.pAttributesDone(m_pParser, m_pContext, m_nDepth);
}

void CZUXMLSax2Handler::endElement(const XMLCh *uri, const XMLCh *localname, const XMLCh *qname) {
    Guarded([&] {
        --m_nDepth;
        if (m_CallbacksW.pEndElement)
            OnEndElement<WideForm>(m_CallbacksW, uri, localname, qname);
        else if (m_CallbacksA.pEndElement)
            OnEndElement<NarrowForm>(m_CallbacksA, uri, localname, qname);
    });
}

// The slot is left as it is: the next start tag at this depth clears it.
template <class Form>
void CZUXMLSax2Handler::OnEndElement(const typename Form::Table &table, const XMLCh *uri, const XMLCh *localname,
                                     const XMLCh *qname) {
    using Name = typename Form::Name;
    const Name szUri(*this, uri);
    const Name szLocalName(*this, localname);
    const Name szQName(*this, qname);
    table.pEndElement(m_pParser, m_pContext, m_nDepth, szUri.get(), szLocalName.get(), szQName.get(),
                      Form::View(Form::Stack(*this).At(m_nDepth)));
}

// Text is gathered only in the form that its end tag will deliver, and only
// for an open element: character data at depth 0 belongs to nobody. Text
// runs to its terminator; Xerces' length only says where to look for it.
// No caller code runs here, so nothing needs guarding.
void CZUXMLSax2Handler::characters(const XMLCh *chars, XMLSize_t length) {
    if (m_nDepth <= 0)
        return;
    if (m_eTextForm == TextForm::Wide)
        WideForm::Append(m_TextW.At(m_nDepth - 1), chars, length);
    else if (m_eTextForm == TextForm::Narrow)
        NarrowForm::Append(*this, m_TextA.At(m_nDepth - 1), chars, length);
}

void CZUXMLSax2Handler::comment(const XMLCh *chars, XMLSize_t) {
    Guarded([&] {
        if (m_CallbacksW.pComment)
            OnComment<WideForm>(m_CallbacksW, chars);
        else if (m_CallbacksA.pComment)
            OnComment<NarrowForm>(m_CallbacksA, chars);
    });
}

template <class Form> void CZUXMLSax2Handler::OnComment(const typename Form::Table &table, const XMLCh *chars) {
    const typename Form::Text szText(*this, chars);
    table.pComment(m_pParser, m_pContext, m_nDepth, szText.get());
}

void CZUXMLSax2Handler::warning(const SAXParseException &exc) { Diagnostic(SAX2_WARNING, exc); }

void CZUXMLSax2Handler::error(const SAXParseException &exc) { Diagnostic(SAX2_ERROR, exc); }

void CZUXMLSax2Handler::fatalError(const SAXParseException &exc) { Diagnostic(SAX2_FATAL_ERROR, exc); }

void CZUXMLSax2Handler::Diagnostic(int32_t nCode, const SAXParseException &exc) {
    Guarded([&] {
        RecordLocation();
        if (m_CallbacksW.pDiagnostic)
            OnDiagnostic<WideForm>(m_CallbacksW, nCode, exc);
        else if (m_CallbacksA.pDiagnostic)
            OnDiagnostic<NarrowForm>(m_CallbacksA, nCode, exc);
    });
}

template <class Form>
void CZUXMLSax2Handler::OnDiagnostic(const typename Form::Table &table, int32_t nCode, const SAXParseException &exc) {
    const typename Form::Text szMessage(*this, exc.getMessage());
    table.pDiagnostic(m_pParser, m_pContext, nCode, szMessage.get());
}

} // namespace zuxml
