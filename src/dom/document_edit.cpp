// SPDX-License-Identifier: Apache-2.0
// Node editing. Only Xerces' DOMException is caught, and only around the
// steps that may raise it; a node made for an add that then fails is
// released, so no detached node is left behind.
#include "dom/CZUXMLDocument.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

constexpr uint16_t kElementNodeType = DOMNode::ELEMENT_NODE;

} // namespace

DOMNode *CZUXMLDocument::AddNode(DOMNode *parent, const XMLCh *name, uint16_t type, const XMLCh *text,
                                 const XMLCh *nameSpace) {
    if (!m_pDocument || !name)
        return nullptr;
    if (!parent)
        parent = m_pDocument->getDocumentElement();
    // Elements are the only kind this interface creates.
    if (!parent || type != kElementNodeType)
        return nullptr;
    EditReaches(parent);
    HoldsCallersText();
    DOMElement *element;
    try {
        element = nameSpace ? m_pDocument->createElementNS(nameSpace, name) : m_pDocument->createElement(name);
    } catch (const DOMException &) {
        return nullptr;
    }
    if (!element)
        return nullptr;
    try {
        if (text)
            element->setTextContent(text);
        parent->appendChild(element);
    } catch (const DOMException &) {
        element->release();
        return nullptr;
    }
    return element;
}

DOMNode *CZUXMLDocument::AddComment(DOMNode *parent, const XMLCh *text) {
    if (!m_pDocument || !text)
        return nullptr;
    DOMComment *comment = m_pDocument->createComment(text);
    if (!parent)
        parent = m_pDocument->getDocumentElement();
    // Without a root element a NULL parent has nowhere to put the comment.
    if (!parent) {
        comment->release();
        return nullptr;
    }
    EditReaches(parent);
    try {
        parent->appendChild(comment);
    } catch (const DOMException &) {
        comment->release();
        return nullptr;
    }
    return comment;
}

DOMNode *CZUXMLDocument::AddNodeExisting(DOMNode *parent, DOMNode *source, int32_t deep) {
    if (!m_pDocument || !source)
        return nullptr;
    if (!parent)
        parent = m_pDocument->getDocumentElement();
    if (!parent)
        return nullptr;
    EditReaches(parent);
    // The copy's text was checked by no parser of this document's.
    HoldsCallersText();
    DOMNode *copy = nullptr;
    try {
        // Only a flag of exactly 1 copies the subtree.
        copy = m_pDocument->importNode(source, deep == 1);
        parent->appendChild(copy);
    } catch (const DOMException &) {
        if (copy)
            copy->release();
        return nullptr;
    }
    return copy;
}

int32_t CZUXMLDocument::RemoveNode(DOMNode *node) {
    DOMNode *parent = node->getParentNode();
    if (!parent)
        return 0;
    EditReaches(parent);
    try {
        parent->removeChild(node)->release();
    } catch (const DOMException &) {
        return 0;
    }
    return 1;
}

int32_t CZUXMLDocument::SetNodeTextContent(DOMNode *node, const XMLCh *text) {
    EditReaches(node);
    // The only text this edit gives that the file serializer writes
    // unchecked: a CDATA section's, whichever document holds it.
    if (node->getNodeType() == DOMNode::CDATA_SECTION_NODE)
        CdataGetsCallersText(node);
    try {
        node->setTextContent(text);
    } catch (const DOMException &) {
        return 0;
    }
    return 1;
}

} // namespace zuxml
