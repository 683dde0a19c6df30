/* SPDX-License-Identifier: Apache-2.0 */
// The object behind a document handle.
//
// It holds at most one Xerces DOM document. A document built here (create
// for writing) belongs to the object; a loaded one belongs to the
// DOMLSParser that built it, which the object keeps and reuses for the next
// load. Node handles are the Xerces nodes themselves: they die with the
// document that holds them.
#pragma once

#include <cstdint>

#include <xercesc/dom/DOM.hpp>

#include "frame/CZUXMLHandle.h"
#include "frame/buffer.h"

namespace zuxml {

class CZUXMLDocument final : public CZUXMLHandle {
public:
    using DOMNode = xercesc::DOMNode;

    CZUXMLDocument() = default;
    ~CZUXMLDocument() override;

    // Whether a document is held. A method whose node may not be NULL is
    // reached only through CallOnNode (frame/boundary.h), which has refused
    // a NULL node and a missing document before the call; a method that
    // reads a NULL node as the root element checks for the document itself.
    bool HasDocument() const { return m_pDocument != nullptr; }

    // Documents and loading.
    int32_t CreateForWriting(const XMLCh *root, const XMLCh *nameSpace, const XMLCh *systemId);
    int32_t LoadFromFile(const XMLCh *path);
    int32_t LoadFromBytes(const void *bytes, uint32_t count);
    int32_t LoadFromWideText(const XMLCh *text, uint32_t units);

    // Writing.
    int32_t WriteToFile(const XMLCh *path, bool pretty);
    // The document as UTF-16 text, viewed by text: the text kept from the
    // last WriteToString when there is one, else a new serialisation. The
    // object holds the text until KeepWrittenText or DropWrittenText.
    int32_t WriteToString(TextResult &text);
    // After a WriteToString whose text the caller's buffer could not take:
    // the text stays for the next WriteToString, so that asking for the
    // length and then filling a buffer of that length serialises once.
    void KeepWrittenText();
    // After a successful WriteToString: its text goes.
    void DropWrittenText();
    // After a text content read of node whose buffer could not take the
    // text: the length counted for it stays for the next call, so that
    // asking for the length of an element's text and then filling a buffer
    // of that length counts once.
    void KeepCountedLength(const DOMNode *node);
    // A WriteToString call, which does not drop its own kept text as it
    // begins, still drops a kept length.
    void DropCountedLength();
    // Every other call on the handle, and every change of the document,
    // drops what was kept (document_kept.cpp): it is used only for an
    // unchanged document and never held longer than until the next call.
    void DropKept();
    // Every entry point but WriteToString's tells the object of its call
    // through the boundary helper; what the last call kept goes then, but
    // for a counted length, which this call may still use. Most calls find
    // nothing kept.
    void OnEntry() {
        if (m_pWritten || m_bCountKept)
            EnterWhileKeeping();
        else
            m_Counted.node = nullptr;
    }

    // Node reading.
    DOMNode *RootNode() const;
    DOMNode *ParentNode(DOMNode *node) const;
    DOMNode *PreviousSibling(DOMNode *node) const;
    DOMNode *NextSibling(DOMNode *node) const;
    DOMNode *FirstChild(DOMNode *node) const;
    DOMNode *LastChild(DOMNode *node) const;
    DOMNode *FindChild(DOMNode *parent, const XMLCh *name) const;
    uint16_t NodeType(DOMNode *node) const;
    int32_t NodeName(DOMNode *node, TextResult &text) const;
    int32_t LocalNodeName(DOMNode *node, TextResult &localName, TextResult &prefix) const;
    int32_t NodeTextContent(DOMNode *node, TextResult &text);
    int32_t NodeNamespace(DOMNode *node, TextResult &text) const;

    // Node editing.
    DOMNode *AddNode(DOMNode *parent, const XMLCh *name, uint16_t type, const XMLCh *text, const XMLCh *nameSpace);
    DOMNode *AddComment(DOMNode *parent, const XMLCh *text);
    DOMNode *AddNodeExisting(DOMNode *parent, DOMNode *source, int32_t deep);
    int32_t RemoveNode(DOMNode *node);
    int32_t SetNodeTextContent(DOMNode *node, const XMLCh *text);

    // Attributes.
    int32_t AttributeCount(DOMNode *node) const;
    int32_t AttributeName(DOMNode *node, int32_t index, TextResult &text) const;
    int32_t AttributeValueAt(DOMNode *node, int32_t index, TextResult &text) const;
    int32_t AttributeValueNamed(DOMNode *node, const XMLCh *name, TextResult &text) const;
    int32_t AddAttribute(DOMNode *node, const XMLCh *name, const XMLCh *value);
    int32_t SetAttributeValue(DOMNode *node, const XMLCh *name, const XMLCh *value);
    int32_t RemoveAttributeAt(DOMNode *node, int32_t index);
    int32_t RemoveAttributeNamed(DOMNode *node, const XMLCh *name);

private:
    void ReleaseContents();
    int32_t BuildDocument(xercesc::DOMImplementation *implementation, const XMLCh *root, const XMLCh *nameSpace,
                          const XMLCh *systemId);
    bool PrepareParser();
    int32_t Load(xercesc::DOMLSInput *input, const XMLCh *path);
    int32_t IndexedAttributeText(DOMNode *node, int32_t index, const XMLCh *(xercesc::DOMAttr::*property)() const,
                                 TextResult &text) const;
    xercesc::DOMElement *NamedAttributeElement(DOMNode *node, const XMLCh *name) const;
    xercesc::DOMLSSerializer *NewSerializer(xercesc::DOMImplementationLS *&implementation) const;
    XMLCh *Serialise(size_t &length) const;
    void EditReaches(DOMNode *node);
    void UpdateKeeperName();
    void EnterWhileKeeping();
    // Text that comes from the caller rather than the parser (see
    // m_bUncheckedText): set by this object's edits of its own document,
    // and on the DOM document itself for the one edit that may reach
    // another handle's document, a CDATA section's new text.
    void HoldsCallersText() { m_bUncheckedText = true; }
    static void CdataGetsCallersText(DOMNode *node);
    bool MayHoldUnwritableText() const;

    xercesc::DOMDocument *m_pDocument = nullptr;
    xercesc::DOMLSParser *m_pParser = nullptr;
    // The text WriteToString produced (Xerces' default memory manager) and
    // its length in units, while the call that produced it runs or while it
    // is kept for the next one; NULL otherwise.
    XMLCh *m_pWritten = nullptr;
    size_t m_nWritten = 0;
    bool m_bWrittenKept = false;
    // The length of an element's text content that the last call counted
    // and kept for this one, or that this call counted; no node when there
    // is none.
    struct CountedText {
        const DOMNode *node = nullptr;
        size_t length = 0;
    };
    CountedText m_Counted;
    bool m_bCountKept = false;
    // Whether the DOM document names this object as keeping something.
    bool m_bNamedKeeper = false;
    // Whether the document may hold text the parser has not checked: text
    // that came from the caller, or a loaded document's DTD (see Load). The
    // parser refuses a lone surrogate in the document itself, so only such
    // text can make Xerces' file serializer loop for ever, and only then
    // does a file write look for it first.
    bool m_bUncheckedText = false;
};

// The Xerces DOM implementation for "Core", looked up afresh on each use.
xercesc::DOMImplementation *CoreImplementation();

} // namespace zuxml
