// SPDX-License-Identifier: Apache-2.0
// SAX2 streaming entries: each calls one method of the parser object behind
// its handle, or answers its failure value for a NULL handle.
#include "zuxml.h"

#include <new>

#include "frame/boundary.h"
#include "frame/wide.h"
#include "sax2/CZUXMLSax2.h"

using namespace zuxml;

extern "C" {

ZUXML_API ZuXmlSax2Parser ZuXmlCreateSax2Parser(void *pContext) {
    return ToHandle(new (std::nothrow) CZUXMLSax2(pContext));
}

ZUXML_API int32_t ZuXmlSetSax2ParserCallbacksW(
    ZuXmlSax2Parser hParser, ZuXmlSax2StartDocumentCallback pStartDocument, ZuXmlSax2EndDocumentCallback pEndDocument,
    ZuXmlSax2StartElementCallbackW pStartElement, ZuXmlSax2AttributeCallbackW pAttribute,
    ZuXmlSax2AttributesDoneCallback pAttributesDone, ZuXmlSax2EndElementCallbackW pEndElement,
    ZuXmlSax2CommentCallbackW pComment, ZuXmlSax2DiagnosticCallbackW pDiagnostic) {
    return Call(hParser, 0, &CZUXMLSax2::SetWideCallbacks,
                Sax2CallbackTableW{pStartDocument, pEndDocument, pStartElement, pAttribute, pAttributesDone,
                                   pEndElement, pComment, pDiagnostic});
}

ZUXML_API int32_t ZuXmlSetSax2ParserCallbacksA(
    ZuXmlSax2Parser hParser, ZuXmlSax2StartDocumentCallback pStartDocument, ZuXmlSax2EndDocumentCallback pEndDocument,
    ZuXmlSax2StartElementCallbackA pStartElement, ZuXmlSax2AttributeCallbackA pAttribute,
    ZuXmlSax2AttributesDoneCallback pAttributesDone, ZuXmlSax2EndElementCallbackA pEndElement,
    ZuXmlSax2CommentCallbackA pComment, ZuXmlSax2DiagnosticCallbackA pDiagnostic) {
    return Call(hParser, 0, &CZUXMLSax2::SetNarrowCallbacks,
                Sax2CallbackTableA{pStartDocument, pEndDocument, pStartElement, pAttribute, pAttributesDone,
                                   pEndElement, pComment, pDiagnostic});
}

ZUXML_API int32_t ZuXmlSax2LoadFromFileW(ZuXmlSax2Parser hParser, const ZuXmlWChar *szFileName, int32_t nMode) {
    return Call(hParser, 0, &CZUXMLSax2::LoadFromFile, AsXml(szFileName), nMode);
}

ZUXML_API int32_t ZuXmlSax2LoadFromFileA(ZuXmlSax2Parser hParser, const char *szFileName, int32_t nMode) {
    return Call(hParser, 0, &CZUXMLSax2::LoadFromNarrowFile, szFileName, nMode);
}

ZUXML_API void ZuXmlSax2StopLoadFromFile(ZuXmlSax2Parser hParser) {
    return Call(hParser, kNoAnswer, &CZUXMLSax2::RequestStop);
}

ZUXML_API int32_t ZuXmlGetSax2CurrentLocation(ZuXmlSax2Parser hParser, uint64_t *pnLine, uint64_t *pnColumn) {
    return Call(hParser, 0, &CZUXMLSax2::CurrentLocation, pnLine, pnColumn);
}

} // extern "C"
