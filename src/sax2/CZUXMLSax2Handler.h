/* SPDX-License-Identifier: Apache-2.0 */
// The Xerces SAX2 handler of one streaming load.
//
// It turns Xerces' content, lexical and error events into calls of the
// caller's callbacks: for each event through the wide table when its entry
// is set, else through the narrow one. It tracks the element depth, gathers
// each open element's character data so that the element's end tag hands
// it over in one piece, and answers ZuXmlGetSax2CurrentLocation.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <xercesc/sax2/DefaultHandler.hpp>

#include "sax2/CZUXMLNarrowCache.h"
#include "sax2/CZUXMLTextStack.h"
#include "sax2/Sax2CallbackTable.h"

namespace zuxml {

class CZUXMLSax2Handler final : public xercesc::DefaultHandler {
public:
    // hParser and pContext are passed to every callback as they are. The
    // tables are copies: changing the parser's tables during the load does
    // not reach this handler.
    CZUXMLSax2Handler(void *hParser, void *pContext, const Sax2CallbackTableW &callbacksW,
                      const Sax2CallbackTableA &callbacksA);

    // Whether a comment callback is set; only then is the handler worth
    // registering as Xerces' lexical handler.
    bool WantsComments() const { return m_CallbacksW.pComment || m_CallbacksA.pComment; }

    // The line and column of the parse: read from Xerces' locator while its
    // scan runs, and after a failed scan where the parse stopped (the last
    // diagnostic, or the event a callback threw from). Answers 0 and writes
    // nothing when Xerces never handed over a locator.
    int32_t Location(uint64_t *pnLine, uint64_t *pnColumn) const;

    // Told by the parser when a scan has failed: the locator reads through
    // Xerces' reader state, which is gone once a scan has ended (reading it
    // then crashes), so from now on the kept position is answered.
    void EndScan() { m_bScanEnded = true; }

    // ContentHandler
    void setDocumentLocator(const xercesc::Locator *locator) override;
    void startDocument() override;
    void endDocument() override;
    void startElement(const XMLCh *uri, const XMLCh *localname, const XMLCh *qname,
                      const xercesc::Attributes &attrs) override;
    void endElement(const XMLCh *uri, const XMLCh *localname, const XMLCh *qname) override;
    void characters(const XMLCh *chars, XMLSize_t length) override;

    // LexicalHandler
    void comment(const XMLCh *chars, XMLSize_t length) override;

    // ErrorHandler: reported, never thrown, so the reader decides how the
    // parse goes on.
    void warning(const xercesc::SAXParseException &exc) override;
    void error(const xercesc::SAXParseException &exc) override;
    void fatalError(const xercesc::SAXParseException &exc) override;

private:
    // Each dispatcher serves both forms; Form is WideForm or NarrowForm
    // (sax2/text_forms.h).
    template <class Form>
    void OnStartElement(const typename Form::Table &table, const XMLCh *uri, const XMLCh *localname, const XMLCh *qname,
                        const xercesc::Attributes &attrs);
    template <class Form>
    void OnEndElement(const typename Form::Table &table, const XMLCh *uri, const XMLCh *localname, const XMLCh *qname);
    // The form of text, or the form already made of converted when that is
    // the same address.
    template <class Form>
    typename Form::Text SameOrStable(const XMLCh *text, const XMLCh *converted, typename Form::Text form);
    template <class Form> void OnComment(const typename Form::Table &table, const XMLCh *chars);
    template <class Form>
    void OnDiagnostic(const typename Form::Table &table, int32_t nCode, const xercesc::SAXParseException &exc);
    static bool NeedsNarrowText(const Sax2CallbackTableW &callbacksW, const Sax2CallbackTableA &callbacksA);
    using DocumentCallback = void (*)(void *hParser, void *pContext);
    void DocumentEvent(DocumentCallback wide, DocumentCallback narrow);
    void Diagnostic(int32_t nCode, const xercesc::SAXParseException &exc);
    void RecordLocation();
    // Runs event; an exception on its way out records where the parse
    // stopped and passes on.
    template <class Event> void RecordLocationOnThrow(Event event);
    template <class Form> void Gather(const XMLCh *chars, XMLSize_t length);
    template <class Form> CZUXMLTextStack<typename Form::Gathered> &Gathered();

    // The form in which character data is gathered: that of the EndElement
    // entry that will deliver it, wide preferred; none without one.
    enum class TextForm { None, Wide, Narrow };

    void *m_pParser;
    void *m_pContext;
    const TextForm m_eTextForm;
    int32_t m_nDepth = 0;
    CZUXMLTextStack<std::basic_string<XMLCh>> m_TextW;
    CZUXMLTextStack<CZUXMLNarrowText> m_TextA;
    // Made only for a load whose tables send some text to a narrow entry:
    // a wide load neither builds nor keeps it.
    const std::unique_ptr<CZUXMLNarrowCache> m_pNarrow;
    const xercesc::Locator *m_pLocator = nullptr;
    // Where the parse stopped, for after the scan: taken at the start of
    // the document, at each diagnostic and when a callback throws, never
    // per event (reading the locator is not cheap).
    bool m_bScanEnded = false;
    uint64_t m_nLine = 0;
    uint64_t m_nColumn = 0;
    const Sax2CallbackTableW m_CallbacksW;
    const Sax2CallbackTableA m_CallbacksA;
};

} // namespace zuxml
