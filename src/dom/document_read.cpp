// SPDX-License-Identifier: Apache-2.0
// Node navigation and node properties. Node handles are Xerces' own nodes;
// the document only proves that a document is there and stands in for the
// root element where a NULL node means the root.
#include "dom/CZUXMLDocument.h"

#include <algorithm>

#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// The text content of an element, as Xerces defines it: the values of the
// text and CDATA sections below it in document order, through child
// elements and entity references, without comments and processing
// instructions. Xerces builds that string in the document's own memory on
// every read and frees it only with the document; here the length is
// counted first and the units are written only where the caller's buffer
// takes them.
bool HasContentChildren(DOMNode::NodeType type) {
    switch (type) {
    case DOMNode::ELEMENT_NODE:
    case DOMNode::ENTITY_NODE:
    case DOMNode::ENTITY_REFERENCE_NODE:
    case DOMNode::DOCUMENT_FRAGMENT_NODE:
        return true;
    default:
        return false;
    }
}

// Whether a node of that type contributes a value of its own: text and
// CDATA sections (an attribute, which Xerces also names, is never a child).
bool IsText(DOMNode::NodeType type) { return type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE; }

// A text or CDATA section knows its own length, so counting never reads its
// units (the parser refuses U+0000, and every text that reaches the DOM
// through this library ends at its first zero unit, so that length is also
// the length up to the terminator).
size_t TextLength(const DOMNode *text) { return static_cast<const DOMCharacterData *>(text)->getLength(); }

// Visits, in document order, every text and CDATA section below top whose
// value the text content takes; without recursion, so depth costs no stack.
// The way back up goes through the ancestors kept on the way down: Xerces
// answers getParentNode through a dynamic_cast, which would cost more than
// all the rest of a short element's read. Past kKeptAncestors levels it is
// asked.
template <class Visit> void ForEachContentValue(const DOMNode *top, Visit visit) {
    constexpr size_t kKeptAncestors = 32;
    const DOMNode *ancestors[kKeptAncestors];
    size_t depth = 0; // levels below the children of top
    const DOMNode *node = top->getFirstChild();
    while (node) {
        const DOMNode *next = nullptr;
        const DOMNode::NodeType type = node->getNodeType();
        if (HasContentChildren(type)) {
            if ((next = node->getFirstChild()) != nullptr) {
                if (depth < kKeptAncestors)
                    ancestors[depth] = node;
                ++depth;
            }
        } else if (IsText(type)) {
            visit(node);
        }
        while (!next) {
            next = node->getNextSibling();
            if (next)
                break;
            if (depth == 0)
                return;
            --depth;
            node = depth < kKeptAncestors ? ancestors[depth] : node->getParentNode();
        }
        node = next;
    }
}

size_t ContentLength(const DOMNode *top) {
    size_t length = 0;
    ForEachContentValue(top, [&](const DOMNode *text) { length += TextLength(text); });
    return length;
}

void WriteContent(const void *top, XMLCh *out) {
    ForEachContentValue(static_cast<const DOMNode *>(top), [&](const DOMNode *text) {
        const size_t length = TextLength(text);
        std::copy_n(text->getNodeValue(), length, out);
        out += length;
    });
}

} // namespace

DOMNode *CZUXMLDocument::RootNode() const { return m_pDocument ? m_pDocument->getDocumentElement() : nullptr; }

DOMNode *CZUXMLDocument::ParentNode(DOMNode *node) const {
    return node->getParentNode();
}

DOMNode *CZUXMLDocument::PreviousSibling(DOMNode *node) const {
    return node->getPreviousSibling();
}

DOMNode *CZUXMLDocument::NextSibling(DOMNode *node) const {
    return node->getNextSibling();
}

// Only the first child (and the child search) read a NULL node as the root
// element, so that a walk can begin at the document without asking for its
// root first; the last child of NULL is NULL, as for every other neighbour.
DOMNode *CZUXMLDocument::FirstChild(DOMNode *node) const {
    if (!m_pDocument)
        return nullptr;
    if (!node)
        node = m_pDocument->getDocumentElement();
    return node ? node->getFirstChild() : nullptr;
}

DOMNode *CZUXMLDocument::LastChild(DOMNode *node) const {
    return node->getLastChild();
}

// Direct children only, every kind of child, compared on the DOM node name
// unit by unit: "p:item" finds a prefixed element, "#text" a text child.
DOMNode *CZUXMLDocument::FindChild(DOMNode *parent, const XMLCh *name) const {
    if (!m_pDocument)
        return nullptr;
    if (!parent)
        parent = m_pDocument->getDocumentElement();
    if (!parent || !name)
        return nullptr;
    for (DOMNode *child = parent->getFirstChild(); child; child = child->getNextSibling())
        if (XMLString::equals(child->getNodeName(), name))
            return child;
    return nullptr;
}

uint16_t CZUXMLDocument::NodeType(DOMNode *node) const {
    return static_cast<uint16_t>(node->getNodeType());
}

int32_t CZUXMLDocument::NodeName(DOMNode *node, TextResult &text) const {
    text.View(node->getNodeName());
    return 1;
}

// The DOM's own local name and prefix: a node made without namespace
// processing has neither, and both read as empty, never as its node name.
int32_t CZUXMLDocument::LocalNodeName(DOMNode *node, TextResult &localName, TextResult &prefix) const {
    localName.View(node->getLocalName());
    prefix.View(node->getPrefix());
    return 1;
}

// An element's text is counted and written here; every other kind of node
// answers what Xerces answers. The length counted is remembered, so that a
// read whose buffer was too small can keep it for the next call.
int32_t CZUXMLDocument::NodeTextContent(DOMNode *node, TextResult &text) {
    if (node->getNodeType() == DOMNode::ELEMENT_NODE) {
        // A length the last call kept is the length now: nothing has
        // changed the document since (document_kept.cpp).
        if (m_Counted.node != node)
            m_Counted = CountedText{node, ContentLength(node)};
        text.Defer(m_Counted.length, WriteContent, node);
    } else {
        text.View(node->getTextContent());
    }
    return 1;
}

// A node without a namespace URI has no namespace to report: 0, and the
// caller's buffer is left alone.
int32_t CZUXMLDocument::NodeNamespace(DOMNode *node, TextResult &text) const {
    const XMLCh *uri = node->getNamespaceURI();
    if (!uri)
        return 0;
    text.View(uri);
    return 1;
}

} // namespace zuxml
