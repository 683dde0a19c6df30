// SPDX-License-Identifier: Apache-2.0
#include "sax2/CZUXMLSax2Handler.h"

#include <type_traits>

#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>

#include "sax2/text_forms.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

CZUXMLSax2Handler::CZUXMLSax2Handler(void *hParser, void *pContext, const Sax2CallbackTableW &callbacksW,
                                     const Sax2CallbackTableA &callbacksA)
    : m_pParser(hParser), m_pContext(pContext), m_eTextForm(callbacksW.pEndElement   ? TextForm::Wide
                                                            : callbacksA.pEndElement ? TextForm::Narrow
                                                                                     : TextForm::None),
      m_pNarrow(NeedsNarrowText(callbacksW, callbacksA) ? std::make_unique<CZUXMLNarrowCache>() : nullptr),
      m_CallbacksW(callbacksW), m_CallbacksA(callbacksA) {}

// Each text-bearing event goes to the narrow table only where the wide
// table has no entry for it; the start and end of the document carry no
// text.
bool CZUXMLSax2Handler::NeedsNarrowText(const Sax2CallbackTableW &callbacksW, const Sax2CallbackTableA &callbacksA) {
    return (!callbacksW.pStartElement && callbacksA.pStartElement) ||
           (!callbacksW.pEndElement && callbacksA.pEndElement) || (!callbacksW.pComment && callbacksA.pComment) ||
           (!callbacksW.pDiagnostic && callbacksA.pDiagnostic);
}

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
template <class Event> void CZUXMLSax2Handler::RecordLocationOnThrow(Event event) {
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
    RecordLocationOnThrow([&] {
        RecordLocation();
        if (wide)
            wide(m_pParser, m_pContext);
        else if (narrow)
            narrow(m_pParser, m_pContext);
    });
}

void CZUXMLSax2Handler::startElement(const XMLCh *uri, const XMLCh *localname, const XMLCh *qname,
                                     const Attributes &attrs) {
    RecordLocationOnThrow([&] {
        if (m_CallbacksW.pStartElement)
            OnStartElement<WideForm>(m_CallbacksW, uri, localname, qname, attrs);
        else if (m_CallbacksA.pStartElement)
            OnStartElement<NarrowForm>(m_CallbacksA, uri, localname, qname, attrs);
        // Only the form that end tags deliver is ever gathered during a
        // load, so only its slot can hold text from an earlier element.
        if (m_eTextForm == TextForm::Wide)
            Gathered<WideForm>().At(m_nDepth).clear();
        else if (m_eTextForm == TextForm::Narrow)
            Gathered<NarrowForm>().At(m_nDepth).clear();
        // The depth rises even when nobody hears of the start tag, so that
        // the depths of end tags and comments stay right.
        ++m_nDepth;
    });
}

// Xerces hands an unprefixed name over as one text for both the local and
// the qualified name. Between the two readings no caller code runs and
// Xerces' const accessors change no text, so the same address holds the
// same text, whose form was just made.
template <class Form>
typename Form::Text CZUXMLSax2Handler::SameOrStable(const XMLCh *text, const XMLCh *converted,
                                                   typename Form::Text form) {
    return text == converted ? form : Form::Stable(m_pNarrow.get(), text);
}

template <class Form>
void CZUXMLSax2Handler::OnStartElement(const typename Form::Table &table, const XMLCh *uri, const XMLCh *localname,
                                       const XMLCh *qname, const Attributes &attrs) {
    const auto szUri = Form::Stable(m_pNarrow.get(), uri);
    const auto szLocalName = Form::Stable(m_pNarrow.get(), localname);
    const auto szQName = SameOrStable<Form>(qname, localname, szLocalName);
    const XMLSize_t count = attrs.getLength();
    if (table.pStartElement)
        table.pStartElement(m_pParser, m_pContext, m_nDepth, static_cast<int32_t>(count), szUri, szLocalName,
                            szQName);
    // Attributes are read only for a caller who hears of them.
    for (XMLSize_t index = 0; table.pAttribute && index < count; ++index) {
        const auto szAttrUri = Form::Stable(m_pNarrow.get(), attrs.getURI(index));
        const XMLCh *const attrLocalName = attrs.getLocalName(index);
        const auto szAttrLocalName = Form::Stable(m_pNarrow.get(), attrLocalName);
        const auto szAttrQName = SameOrStable<Form>(attrs.getQName(index), attrLocalName, szAttrLocalName);
        const auto szType = Form::Type(m_pNarrow.get(), attrs.getType(index));
        const auto szValue = Form::Transient(m_pNarrow.get(), attrs.getValue(index));
        table.pAttribute(m_pParser, m_pContext, m_nDepth, static_cast<int32_t>(index), szAttrUri, szAttrLocalName,
                         szAttrQName, szType, szValue);
    }
    // AttributesDone follows the NARROW Attribute entry whichever table
    // serves the start tag, and the serving table's AttributesDone is then
    // called unchecked: that is how the interface defines the entry (see the
    // SAX2 callbacks in zuxml.h). A caller who sets the narrow Attribute
    // entry sets AttributesDone in the table that serves StartElement, and
    // one who sets only wide entries never gets AttributesDone.
    if (m_CallbacksA.pAttribute)
        table.pAttributesDone(m_pParser, m_pContext, m_nDepth);
}

void CZUXMLSax2Handler::endElement(const XMLCh *uri, const XMLCh *localname, const XMLCh *qname) {
    RecordLocationOnThrow([&] {
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
    const auto szUri = Form::Stable(m_pNarrow.get(), uri);
    const auto szLocalName = Form::Stable(m_pNarrow.get(), localname);
    const auto szQName = SameOrStable<Form>(qname, localname, szLocalName);
    table.pEndElement(m_pParser, m_pContext, m_nDepth, szUri, szLocalName, szQName,
                      Form::View(Gathered<Form>().At(m_nDepth)));
}

// Text is gathered only in the form that its end tag will deliver, and only
// for an open element: character data at depth 0 belongs to nobody. No
// caller code runs here, so nothing needs its location recorded.
void CZUXMLSax2Handler::characters(const XMLCh *chars, XMLSize_t length) {
    if (m_nDepth <= 0)
        return;
    if (m_eTextForm == TextForm::Wide)
        Gather<WideForm>(chars, length);
    else if (m_eTextForm == TextForm::Narrow)
        Gather<NarrowForm>(chars, length);
}

template <class Form> void CZUXMLSax2Handler::Gather(const XMLCh *chars, XMLSize_t length) {
    Form::Append(m_pNarrow.get(), Gathered<Form>().At(m_nDepth - 1), chars, length);
}

template <class Form> CZUXMLTextStack<typename Form::Gathered> &CZUXMLSax2Handler::Gathered() {
    if constexpr (std::is_same_v<Form, WideForm>)
        return m_TextW;
    else
        return m_TextA;
}

void CZUXMLSax2Handler::comment(const XMLCh *chars, XMLSize_t) {
    RecordLocationOnThrow([&] {
        if (m_CallbacksW.pComment)
            OnComment<WideForm>(m_CallbacksW, chars);
        else if (m_CallbacksA.pComment)
            OnComment<NarrowForm>(m_CallbacksA, chars);
    });
}

template <class Form> void CZUXMLSax2Handler::OnComment(const typename Form::Table &table, const XMLCh *chars) {
    table.pComment(m_pParser, m_pContext, m_nDepth, Form::Transient(m_pNarrow.get(), chars));
}

void CZUXMLSax2Handler::warning(const SAXParseException &exc) { Diagnostic(SAX2_WARNING, exc); }

void CZUXMLSax2Handler::error(const SAXParseException &exc) { Diagnostic(SAX2_ERROR, exc); }

void CZUXMLSax2Handler::fatalError(const SAXParseException &exc) { Diagnostic(SAX2_FATAL_ERROR, exc); }

void CZUXMLSax2Handler::Diagnostic(int32_t nCode, const SAXParseException &exc) {
    RecordLocationOnThrow([&] {
        RecordLocation();
        if (m_CallbacksW.pDiagnostic)
            OnDiagnostic<WideForm>(m_CallbacksW, nCode, exc);
        else if (m_CallbacksA.pDiagnostic)
            OnDiagnostic<NarrowForm>(m_CallbacksA, nCode, exc);
    });
}

template <class Form>
void CZUXMLSax2Handler::OnDiagnostic(const typename Form::Table &table, int32_t nCode, const SAXParseException &exc) {
    table.pDiagnostic(m_pParser, m_pContext, nCode, Form::Transient(m_pNarrow.get(), exc.getMessage()));
}

} // namespace zuxml
