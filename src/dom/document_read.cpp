// Node navigation and node properties. Node handles are Xerces' own nodes;
// the document only proves that a document is there and stands in for the
// root element where a NULL node means the root.
#include "dom/CZUXMLDocument.h"

#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

DOMNode *CZUXMLDocument::RootNode() const { return m_pDocument ? m_pDocument->getDocumentElement() : nullptr; }

DOMNode *CZUXMLDocument::ParentNode(DOMNode *node) const {
    return node && m_pDocument ? node->getParentNode() : nullptr;
}

DOMNode *CZUXMLDocument::PreviousSibling(DOMNode *node) const {
    return node && m_pDocument ? node->getPreviousSibling() : nullptr;
}

DOMNode *CZUXMLDocument::NextSibling(DOMNode *node) const {
    return node && m_pDocument ? node->getNextSibling() : nullptr;
}

// Only the first child (and the child search) read a NULL node as the root
// element; the last child of NULL is NULL. Callers rely on the asymmetry.
DOMNode *CZUXMLDocument::FirstChild(DOMNode *node) const {
    if (!m_pDocument)
        return nullptr;
    if (!node)
        node = m_pDocument->getDocumentElement();
    return node ? node->getFirstChild() : nullptr;
}

DOMNode *CZUXMLDocument::LastChild(DOMNode *node) const {
    return node && m_pDocument ? node->getLastChild() : nullptr;
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
    return node && m_pDocument ? static_cast<uint16_t>(node->getNodeType()) : 0;
}

int32_t CZUXMLDocument::NodeName(DOMNode *node, TextResult &text) const {
    if (!node || !m_pDocument)
        return 0;
    text.View(node->getNodeName());
    return 1;
}

// The DOM's own local name and prefix: a node made without namespace
// processing has neither, and both read as empty, never as its node name.
int32_t CZUXMLDocument::LocalNodeName(DOMNode *node, TextResult &localName, TextResult &prefix) const {
    if (!node || !m_pDocument)
        return 0;
    localName.View(node->getLocalName());
    prefix.View(node->getPrefix());
    return 1;
}

int32_t CZUXMLDocument::NodeTextContent(DOMNode *node, TextResult &text) const {
    if (!node || !m_pDocument)
        return 0;
    text.View(node->getTextContent());
    return 1;
}

// A node without a namespace URI has no namespace to report: 0, and the
// caller's buffer is left alone.
int32_t CZUXMLDocument::NodeNamespace(DOMNode *node, TextResult &text) const {
    if (!node || !m_pDocument)
        return 0;
    const XMLCh *uri = node->getNamespaceURI();
    if (!uri)
        return 0;
    text.View(uri);
    return 1;
}

} // namespace zuxml
