// SPDX-License-Identifier: Apache-2.0
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
    return WriteText(hDocument, [&](int32_t result, const TextResult &text) {
        return DeliverW(result, text, AsXml(szBuffer), pnLength);
    });
}

ZUXML_API int32_t ZuXmlWriteToStringA(ZuXmlDocument hDocument, char *szBuffer, int32_t *pnLength) {
    return WriteText(hDocument, [&](int32_t result, const TextResult &text) {
        return DeliverA(result, text, szBuffer, pnLength);
    });
}

} // extern "C"
