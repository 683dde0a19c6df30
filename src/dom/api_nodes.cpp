// SPDX-License-Identifier: Apache-2.0
// Entry points: node navigation and node properties.
#include "dom/entry.h"
#include "frame/narrow.h"

using namespace zuxml;

extern "C" {

ZUXML_API ZuXmlNode ZuXmlGetRootNode(ZuXmlDocument hDocument) {
    return Call(hDocument, nullptr, &CZUXMLDocument::RootNode);
}

ZUXML_API ZuXmlNode ZuXmlGetParentNode(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, nullptr, &CZUXMLDocument::ParentNode, NodeOf(hNode));
}

ZUXML_API ZuXmlNode ZuXmlGetPriviousSibling(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, nullptr, &CZUXMLDocument::PreviousSibling, NodeOf(hNode));
}

ZUXML_API ZuXmlNode ZuXmlGetNextSibling(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, nullptr, &CZUXMLDocument::NextSibling, NodeOf(hNode));
}

ZUXML_API ZuXmlNode ZuXmlGetFirstChild(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return Call(hDocument, nullptr, &CZUXMLDocument::FirstChild, NodeOf(hNode));
}

ZUXML_API ZuXmlNode ZuXmlGetLastChild(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, nullptr, &CZUXMLDocument::LastChild, NodeOf(hNode));
}

ZUXML_API ZuXmlNode ZuXmlFindChildW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szName) {
    return Call(hDocument, nullptr, &CZUXMLDocument::FindChild, NodeOf(hParent), AsXml(szName));
}

ZUXML_API ZuXmlNode ZuXmlFindChildA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szName) {
    return Call(hDocument, nullptr, &CZUXMLDocument::FindChild, NodeOf(hParent),
                                   NarrowArg(szName).get());
}

ZUXML_API uint16_t ZuXmlGetNodeType(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::NodeType, NodeOf(hNode));
}

ZUXML_API int32_t ZuXmlGetNodeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                    int32_t *pnLength) {
    return ReadTextW(hDocument, &CZUXMLDocument::NodeName, szBuffer, pnLength, hNode);
}

ZUXML_API int32_t ZuXmlGetNodeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer, int32_t *pnLength) {
    return ReadTextA(hDocument, &CZUXMLDocument::NodeName, szBuffer, pnLength, hNode);
}

ZUXML_API int32_t ZuXmlGetLocalNodeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szLocalName,
                                         int32_t *pnLocalNameLength, ZuXmlWChar *szPrefix,
                                         int32_t *pnPrefixLength) {
    TextResult localName, prefix;
    return DeliverW(CallOnNode(hDocument, 0, &CZUXMLDocument::LocalNodeName, NodeOf(hNode), localName, prefix),
                    localName, AsXml(szLocalName), pnLocalNameLength, prefix, AsXml(szPrefix), pnPrefixLength);
}

ZUXML_API int32_t ZuXmlGetLocalNodeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szLocalName,
                                         int32_t *pnLocalNameLength, char *szPrefix, int32_t *pnPrefixLength) {
    TextResult localName, prefix;
    return DeliverA(CallOnNode(hDocument, 0, &CZUXMLDocument::LocalNodeName, NodeOf(hNode), localName, prefix),
                    localName, szLocalName, pnLocalNameLength, prefix, szPrefix, pnPrefixLength);
}

ZUXML_API int32_t ZuXmlGetNodeTextContentW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                           int32_t *pnLength) {
    return ReadContent(hDocument, hNode, [&](int32_t result, const TextResult &text) {
        return DeliverW(result, text, AsXml(szBuffer), pnLength);
    });
}

ZUXML_API int32_t ZuXmlGetNodeTextContentA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer,
                                           int32_t *pnLength) {
    return ReadContent(hDocument, hNode, [&](int32_t result, const TextResult &text) {
        return DeliverA(result, text, szBuffer, pnLength);
    });
}

ZUXML_API int32_t ZuXmlGetNodeNamespaceW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                         int32_t *pnLength) {
    return ReadTextW(hDocument, &CZUXMLDocument::NodeNamespace, szBuffer, pnLength, hNode);
}

ZUXML_API int32_t ZuXmlGetNodeNamespaceA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer,
                                         int32_t *pnLength) {
    return ReadTextA(hDocument, &CZUXMLDocument::NodeNamespace, szBuffer, pnLength, hNode);
}

} // extern "C"
