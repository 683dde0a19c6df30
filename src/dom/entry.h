/* SPDX-License-Identifier: Apache-2.0 */
// What the DOM entry points share beyond the boundary helper: node handles
// as the Xerces nodes they are, and the getters of text about a node.
#pragma once

#include <utility>

#include "dom/CZUXMLDocument.h"
#include "frame/boundary.h"
#include "frame/buffer.h"
#include "frame/wide.h"
#include "zuxml.h"

namespace zuxml {

inline xercesc::DOMNode *NodeOf(ZuXmlNode node) { return static_cast<xercesc::DOMNode *>(node); }

// A getter of text about a node the caller names: the document method fills
// a TextResult (its last argument) and the caller-buffer protocol hands it
// out, wide or narrow.
template <class Method, class... Args>
int32_t ReadTextW(ZuXmlDocument handle, Method method, ZuXmlWChar *buffer, int32_t *length, ZuXmlNode node,
                      Args &&...args) {
    TextResult text;
    return DeliverW(CallOnNode(handle, 0, method, NodeOf(node), std::forward<Args>(args)..., text), text,
                    AsXml(buffer), length);
}

template <class Method, class... Args>
int32_t ReadTextA(ZuXmlDocument handle, Method method, char *buffer, int32_t *length, ZuXmlNode node,
                      Args &&...args) {
    TextResult text;
    return DeliverA(CallOnNode(handle, 0, method, NodeOf(node), std::forward<Args>(args)..., text), text, buffer,
                    length);
}

// WriteToString, its text handed out by deliver (the caller-buffer
// protocol, wide or narrow): text that the buffer could not take is kept
// for the next call, which then hands it out instead of serialising the
// document again.
template <class Deliver> int32_t WriteText(ZuXmlDocument handle, Deliver deliver) {
    TextResult text;
    if (!handle)
        return deliver(0, text);
    CZUXMLDocument *document = FromHandle<CZUXMLDocument>(handle);
    document->DropCountedLength();
    if (deliver(document->WriteToString(text), text) == 1) {
        document->DropWrittenText();
        return 1;
    }
    document->KeepWrittenText();
    return 0;
}

// A node's text content, handed out by deliver (the caller-buffer protocol,
// wide or narrow): when the buffer could not take an element's text, the
// length counted is kept for the next call, which then need not count it
// again if it reads the same element.
template <class Deliver> int32_t ReadContent(ZuXmlDocument handle, ZuXmlNode node, Deliver deliver) {
    TextResult text;
    const int32_t result = deliver(CallOnNode(handle, 0, &CZUXMLDocument::NodeTextContent, NodeOf(node), text), text);
    if (result == 0 && handle)
        FromHandle<CZUXMLDocument>(handle)->KeepCountedLength(NodeOf(node));
    return result;
}

} // namespace zuxml
