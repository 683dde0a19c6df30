// SPDX-License-Identifier: Apache-2.0
// Attributes of an element, by position in Xerces' attribute map or by
// qualified name (the DOM's non-namespace accessors: "p:a" and "a" differ).
// A node that is not an element has no attributes to offer: every
// operation answers its failure value for it.
#include "dom/CZUXMLDocument.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

DOMElement *AsElement(DOMNode *node) {
    return node->getNodeType() == DOMNode::ELEMENT_NODE ? static_cast<DOMElement *>(node) : nullptr;
}

bool IsEmpty(const XMLCh *name) { return !name || !*name; }

// The attribute at index, or NULL when the index is out of range.
DOMAttr *AttributeAt(DOMElement *element, int32_t index) {
    if (index < 0)
        return nullptr;
    DOMNamedNodeMap *attributes = element->getAttributes();
    if (static_cast<int64_t>(index) >= static_cast<int64_t>(attributes->getLength()))
        return nullptr;
    return static_cast<DOMAttr *>(attributes->item(index));
}

DOMAttr *IndexedAttribute(DOMNode *node, int32_t index) {
    DOMElement *element = AsElement(node);
    return element ? AttributeAt(element, index) : nullptr;
}

} // namespace

int32_t CZUXMLDocument::AttributeCount(DOMNode *node) const {
    DOMElement *element = AsElement(node);
    return element ? static_cast<int32_t>(element->getAttributes()->getLength()) : -1;
}

int32_t CZUXMLDocument::AttributeName(DOMNode *node, int32_t index, TextResult &text) const {
    return IndexedAttributeText(node, index, &DOMAttr::getName, text);
}

int32_t CZUXMLDocument::AttributeValueAt(DOMNode *node, int32_t index, TextResult &text) const {
    return IndexedAttributeText(node, index, &DOMAttr::getValue, text);
}

int32_t CZUXMLDocument::IndexedAttributeText(DOMNode *node, int32_t index, const XMLCh *(DOMAttr::*property)() const,
                                             TextResult &text) const {
    DOMAttr *attribute = IndexedAttribute(node, index);
    if (!attribute)
        return 0;
    text.View((attribute->*property)());
    return 1;
}

// The element whose attribute name addresses: NULL for a NULL node, no
// document, a NULL or empty name, or a node that is not an element.
DOMElement *CZUXMLDocument::NamedAttributeElement(DOMNode *node, const XMLCh *name) const {
    if (IsEmpty(name))
        return nullptr;
    return AsElement(node);
}

// An absent attribute answers 0, told apart from one whose value is empty.
int32_t CZUXMLDocument::AttributeValueNamed(DOMNode *node, const XMLCh *name, TextResult &text) const {
    DOMElement *element = NamedAttributeElement(node, name);
    if (!element)
        return 0;
    try {
        DOMAttr *attribute = element->getAttributeNode(name);
        if (!attribute)
            return 0;
        text.View(attribute->getValue());
    } catch (const DOMException &) {
        return 0;
    }
    return 1;
}

// Creates the attribute or replaces its value; a NULL node is the root.
// Xerces rejects a name that is not a legal XML name with a DOMException;
// a NULL name it would dereference, so that is refused here.
int32_t CZUXMLDocument::AddAttribute(DOMNode *node, const XMLCh *name, const XMLCh *value) {
    if (!m_pDocument || !name)
        return 0;
    if (!node)
        node = m_pDocument->getDocumentElement();
    DOMElement *element = node ? AsElement(node) : nullptr;
    if (!element)
        return 0;
    EditReaches(element);
    try {
        element->setAttribute(name, value);
    } catch (const DOMException &) {
        return 0;
    }
    return 1;
}

// Changes an existing attribute only; a DOMException (a read-only
// attribute) is not caught here and reaches the caller.
int32_t CZUXMLDocument::SetAttributeValue(DOMNode *node, const XMLCh *name, const XMLCh *value) {
    DOMElement *element = NamedAttributeElement(node, name);
    DOMAttr *attribute = element ? element->getAttributeNode(name) : nullptr;
    if (!attribute)
        return 0;
    EditReaches(element);
    attribute->setValue(value);
    return 1;
}

// Removal goes by the attribute's qualified name, not by the node.
int32_t CZUXMLDocument::RemoveAttributeAt(DOMNode *node, int32_t index) {
    DOMAttr *attribute = IndexedAttribute(node, index);
    if (!attribute)
        return 0;
    EditReaches(node);
    try {
        static_cast<DOMElement *>(node)->removeAttribute(attribute->getName());
    } catch (const DOMException &) {
        return 0;
    }
    return 1;
}

// 1 also when the element had no such attribute.
int32_t CZUXMLDocument::RemoveAttributeNamed(DOMNode *node, const XMLCh *name) {
    DOMElement *element = NamedAttributeElement(node, name);
    if (!element)
        return 0;
    EditReaches(element);
    try {
        element->removeAttribute(name);
    } catch (const DOMException &) {
        return 0;
    }
    return 1;
}

} // namespace zuxml
