// SPDX-License-Identifier: Apache-2.0
// Entry points: counting, reading, adding, changing and removing attributes.
#include "dom/entry.h"
#include "frame/narrow.h"

using namespace zuxml;

extern "C" {

ZUXML_API int32_t ZuXmlGetNodeAttributeCount(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, -1, &CZUXMLDocument::AttributeCount, NodeOf(hNode));
}

ZUXML_API int32_t ZuXmlGetNodeAttributeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                             ZuXmlWChar *szBuffer, int32_t *pnLength) {
    return ReadTextW(hDocument, &CZUXMLDocument::AttributeName, szBuffer, pnLength, hNode, nIndex);
}

ZUXML_API int32_t ZuXmlGetNodeAttributeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                             char *szBuffer, int32_t *pnLength) {
    return ReadTextA(hDocument, &CZUXMLDocument::AttributeName, szBuffer, pnLength, hNode, nIndex);
}

ZUXML_API int32_t ZuXmlGetNodeAttributeValueIndexW(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                                   ZuXmlWChar *szBuffer, int32_t *pnLength) {
    return ReadTextW(hDocument, &CZUXMLDocument::AttributeValueAt, szBuffer, pnLength, hNode, nIndex);
}

ZUXML_API int32_t ZuXmlGetNodeAttributeValueIndexA(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                                   char *szBuffer, int32_t *pnLength) {
    return ReadTextA(hDocument, &CZUXMLDocument::AttributeValueAt, szBuffer, pnLength, hNode, nIndex);
}

ZUXML_API int32_t ZuXmlGetNodeAttributeValueNameW(ZuXmlDocument hDocument, ZuXmlNode hNode,
                                                  const ZuXmlWChar *szName, ZuXmlWChar *szBuffer,
                                                  int32_t *pnLength) {
    return ReadTextW(hDocument, &CZUXMLDocument::AttributeValueNamed, szBuffer, pnLength, hNode,
                     AsXml(szName));
}

ZUXML_API int32_t ZuXmlGetNodeAttributeValueNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                                  char *szBuffer, int32_t *pnLength) {
    return ReadTextA(hDocument, &CZUXMLDocument::AttributeValueNamed, szBuffer, pnLength, hNode,
                     NarrowArg(szName).get());
}

ZUXML_API int32_t ZuXmlAddNodeAttributeW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName,
                                         const ZuXmlWChar *szValue) {
    return Call(hDocument, 0, &CZUXMLDocument::AddAttribute, NodeOf(hNode), AsXml(szName), AsXml(szValue));
}

ZUXML_API int32_t ZuXmlAddNodeAttributeA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                         const char *szValue) {
    return Call(hDocument, 0, &CZUXMLDocument::AddAttribute, NodeOf(hNode), NarrowArg(szName).get(),
                        NarrowArg(szValue).get());
}

ZUXML_API int32_t ZuXmlSetNodeAttributeValueW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName,
                                              const ZuXmlWChar *szValue) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::SetAttributeValue, NodeOf(hNode), AsXml(szName),
                        AsXml(szValue));
}

ZUXML_API int32_t ZuXmlSetNodeAttributeValueA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                              const char *szValue) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::SetAttributeValue, NodeOf(hNode), NarrowArg(szName).get(),
                        NarrowArg(szValue).get());
}

ZUXML_API int32_t ZuXmlRemoveAttributeIndex(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::RemoveAttributeAt, NodeOf(hNode), nIndex);
}

ZUXML_API int32_t ZuXmlRemoveAttributeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::RemoveAttributeNamed, NodeOf(hNode), AsXml(szName));
}

ZUXML_API int32_t ZuXmlRemoveAttributeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::RemoveAttributeNamed, NodeOf(hNode), NarrowArg(szName).get());
}

} // extern "C"
