// SPDX-License-Identifier: Apache-2.0
// What one call on a document handle keeps for the next call on the same
// handle: the text of a WriteToString whose buffer could not take it, and
// the length of an element's text content that a read counted for a buffer
// too small. Either is used only by the next call, and only while the
// document is unchanged: every other call on the handle drops it as it
// begins, and an edit of this document made through another handle's call
// (with a node of this document) drops it too.
#include "dom/CZUXMLDocument.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// The DOM user-data key under which a document names the object that keeps
// something of it for its next call.
const XMLCh kKeeperKey[] = u"zuxml-kept-for-next-call";

} // namespace

void CZUXMLDocument::EnterWhileKeeping() {
    DropWrittenText();
    // A length kept by the last call is this call's to use, and no later
    // call's unless this call reads the same element and keeps it again.
    if (!m_bCountKept)
        m_Counted = CountedText{};
    m_bCountKept = false;
    UpdateKeeperName();
}

void CZUXMLDocument::KeepWrittenText() {
    if (!m_pWritten)
        return;
    m_bWrittenKept = true;
    UpdateKeeperName();
}

void CZUXMLDocument::DropWrittenText() {
    if (!m_pWritten)
        return;
    m_bWrittenKept = false;
    XMLString::release(&m_pWritten, XMLPlatformUtils::fgMemoryManager);
    m_nWritten = 0;
    UpdateKeeperName();
}

// Only a length this call has for node is kept (not one of an element an
// earlier call read), and only for a node of this document: an edit of
// another document through its own handle would not find this object.
void CZUXMLDocument::KeepCountedLength(const DOMNode *node) {
    if (!node || m_Counted.node != node || node->getOwnerDocument() != m_pDocument)
        return;
    m_bCountKept = true;
    UpdateKeeperName();
}

void CZUXMLDocument::DropCountedLength() {
    m_Counted = CountedText{};
    m_bCountKept = false;
    UpdateKeeperName();
}

void CZUXMLDocument::DropKept() {
    DropWrittenText();
    DropCountedLength();
}

// While something is kept, the DOM document names this object, so that an
// edit made through another handle's call finds what to drop.
void CZUXMLDocument::UpdateKeeperName() {
    const bool keeping = m_bWrittenKept || m_bCountKept;
    if (keeping == m_bNamedKeeper)
        return;
    m_pDocument->setUserData(kKeeperKey, keeping ? this : nullptr, nullptr);
    m_bNamedKeeper = keeping;
}

// An edit through this object's call reaches node's document. What this
// object kept was dropped when the call began; another object's document
// may also be reached, through a node handle of that document.
void CZUXMLDocument::EditReaches(DOMNode *node) {
    if (!node)
        return;
    DOMDocument *document = node->getNodeType() == DOMNode::DOCUMENT_NODE ? static_cast<DOMDocument *>(node)
                                                                          : node->getOwnerDocument();
    if (document && document != m_pDocument)
        if (auto *keeper = static_cast<CZUXMLDocument *>(document->getUserData(kKeeperKey)))
            keeper->DropKept();
}

} // namespace zuxml
