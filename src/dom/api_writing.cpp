// Entry points: writing a document to a file or into a caller's buffer.
#include "dom/entry.h"
#include "frame/narrow.h"

using namespace zuxml;

extern "C" {

ZUXML_API int32_t ZuXmlWriteW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath) {
    return Call(hDocument, 0, &CZUXMLDocument::WriteToFile, AsXml(szPath), true);
}

ZUXML_API int32_t ZuXmlWriteA(ZuXmlDocument hDocument, const char *szPath) {
    return Call(hDocument, 0, &CZUXMLDocument::WriteToFile, NarrowArg(szPath).get(), true);
}

ZUXML_API int32_t ZuXmlWriteNoPrettyW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath) {
    return Call(hDocument, 0, &CZUXMLDocument::WriteToFile, AsXml(szPath), false);
}

ZUXML_API int32_t ZuXmlWriteNoPrettyA(ZuXmlDocument hDocument, const char *szPath) {
    return Call(hDocument, 0, &CZUXMLDocument::WriteToFile, NarrowArg(szPath).get(), false);
}

ZUXML_API int32_t ZuXmlWriteToStringW(ZuXmlDocument hDocument, ZuXmlWChar *szBuffer, int32_t *pnLength) {
    TextResult text;
    return DeliverW(Call(hDocument, 0, &CZUXMLDocument::WriteToString, text), text, AsXml(szBuffer), pnLength);
}

ZUXML_API int32_t ZuXmlWriteToStringA(ZuXmlDocument hDocument, char *szBuffer, int32_t *pnLength) {
    TextResult text;
    return DeliverA(Call(hDocument, 0, &CZUXMLDocument::WriteToString, text), text, szBuffer, pnLength);
}

} // extern "C"
