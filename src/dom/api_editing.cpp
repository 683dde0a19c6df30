// SPDX-License-Identifier: Apache-2.0
// Entry points: adding, copying and removing nodes, and replacing text.
#include "dom/entry.h"
#include "frame/narrow.h"

using namespace zuxml;

extern "C" {

ZUXML_API ZuXmlNode ZuXmlAddNodeW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szName,
                                  uint16_t nType, const ZuXmlWChar *szText, const ZuXmlWChar *szNamespace) {
    return Call(hDocument, nullptr, &CZUXMLDocument::AddNode, NodeOf(hParent), AsXml(szName),
                                   nType, AsXml(szText), AsXml(szNamespace));
}

ZUXML_API ZuXmlNode ZuXmlAddNodeA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szName, uint16_t nType,
                                  const char *szText, const char *szNamespace) {
    return Call(hDocument, nullptr, &CZUXMLDocument::AddNode, NodeOf(hParent),
                                   NarrowArg(szName).get(), nType, NarrowArg(szText).get(),
                                   NarrowArg(szNamespace).get());
}

ZUXML_API ZuXmlNode ZuXmlAddCommentW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szText) {
    return Call(hDocument, nullptr, &CZUXMLDocument::AddComment, NodeOf(hParent), AsXml(szText));
}

ZUXML_API ZuXmlNode ZuXmlAddCommentA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szText) {
    return Call(hDocument, nullptr, &CZUXMLDocument::AddComment, NodeOf(hParent),
                                   NarrowArg(szText).get());
}

ZUXML_API ZuXmlNode ZuXmlAddNodeExisting(ZuXmlDocument hDocument, ZuXmlNode hParent, ZuXmlNode hSource,
                                         int32_t nDeep) {
    return Call(hDocument, nullptr, &CZUXMLDocument::AddNodeExisting, NodeOf(hParent),
                                   NodeOf(hSource), nDeep);
}

ZUXML_API int32_t ZuXmlRemoveNode(ZuXmlDocument hDocument, ZuXmlNode hNode) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::RemoveNode, NodeOf(hNode));
}

ZUXML_API int32_t ZuXmlSetNodeTextContentW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szText) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::SetNodeTextContent, NodeOf(hNode), AsXml(szText));
}

ZUXML_API int32_t ZuXmlSetNodeTextContentA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szText) {
    return CallOnNode(hDocument, 0, &CZUXMLDocument::SetNodeTextContent, NodeOf(hNode), NarrowArg(szText).get());
}

} // extern "C"
