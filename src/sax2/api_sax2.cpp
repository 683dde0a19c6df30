// SAX2 streaming entries: each checks its parser handle and calls one
// method of the parser object.
#include "zuxml.h"

#include <new>

#include "frame/CZUXMLTextRecord.h"
#include "sax2/CZUXMLSax2.h"

using zuxml::CZUXMLSax2;

namespace {

CZUXMLSax2 *Parser(ZuXmlSax2Parser hParser) { return zuxml::FromHandle<CZUXMLSax2>(hParser); }

} // namespace

extern "C" {

ZUXML_API ZuXmlSax2Parser ZuXmlCreateSax2Parser(void *pContext) {
    return zuxml::ToHandle(new (std::nothrow) CZUXMLSax2(pContext));
}

ZUXML_API int32_t ZuXmlSetSax2ParserCallbacksW(
    ZuXmlSax2Parser hParser, ZuXmlSax2StartDocumentCallback pStartDocument, ZuXmlSax2EndDocumentCallback pEndDocument,
    ZuXmlSax2StartElementCallbackW pStartElement, ZuXmlSax2AttributeCallbackW pAttribute,
    ZuXmlSax2AttributesDoneCallback pAttributesDone, ZuXmlSax2EndElementCallbackW pEndElement,
    ZuXmlSax2CommentCallbackW pComment, ZuXmlSax2DiagnosticCallbackW pDiagnostic) {
    if (!hParser)
        return 0;
    Parser(hParser)->SetCallbacks(zuxml::Sax2CallbackTableW{pStartDocument, pEndDocument, pStartElement, pAttribute,
                                                            pAttributesDone, pEndElement, pComment, pDiagnostic});
    return 1;
}

ZUXML_API int32_t ZuXmlSetSax2ParserCallbacksA(
    ZuXmlSax2Parser hParser, ZuXmlSax2StartDocumentCallback pStartDocument, ZuXmlSax2EndDocumentCallback pEndDocument,
    ZuXmlSax2StartElementCallbackA pStartElement, ZuXmlSax2AttributeCallbackA pAttribute,
    ZuXmlSax2AttributesDoneCallback pAttributesDone, ZuXmlSax2EndElementCallbackA pEndElement,
    ZuXmlSax2CommentCallbackA pComment, ZuXmlSax2DiagnosticCallbackA pDiagnostic) {
    if (!hParser)
        return 0;
    Parser(hParser)->SetCallbacks(zuxml::Sax2CallbackTableA{pStartDocument, pEndDocument, pStartElement, pAttribute,
                                                            pAttributesDone, pEndElement, pComment, pDiagnostic});
    return 1;
}

// A load without a file name is refused before anything is made: no
// reader, no handler, no message and no callback, and the parser keeps what
// it held.
ZUXML_API int32_t ZuXmlSax2LoadFromFileW(ZuXmlSax2Parser hParser, const ZuXmlWChar *szFileName, int32_t nMode) {
    if (!hParser || !szFileName)
        return 0;
    return Parser(hParser)->LoadFromFile(reinterpret_cast<const XMLCh *>(szFileName), nMode);
}

// The narrow file name goes through Xerces' own local code page transcoder,
// not the C runtime's locale that the other narrow entries use: streaming
// callers have always had their file names read that way.
ZUXML_API int32_t ZuXmlSax2LoadFromFileA(ZuXmlSax2Parser hParser, const char *szFileName, int32_t nMode) {
    if (!hParser || !szFileName)
        return 0;
    zuxml::CZUXMLTextRecord fileName(szFileName);
    return Parser(hParser)->LoadFromFile(fileName.ParserForm(), nMode);
}

ZUXML_API void ZuXmlSax2StopLoadFromFile(ZuXmlSax2Parser hParser) {
    if (hParser)
        Parser(hParser)->RequestStop();
}

ZUXML_API int32_t ZuXmlGetSax2CurrentLocation(ZuXmlSax2Parser hParser, uint64_t *pnLine, uint64_t *pnColumn) {
    if (!hParser)
        return 0;
    return Parser(hParser)->CurrentLocation(pnLine, pnColumn);
}

} // extern "C"
