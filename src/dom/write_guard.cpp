// SPDX-License-Identifier: Apache-2.0
// The check before a file write: one walk over the nodes the serializer
// writes, reading only the strings that reach its transcoder unchecked.
#include "dom/write_guard.h"

#include <memory>
#include <vector>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLUni.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

bool IsLeadSurrogate(XMLCh unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

// Whether text holds a lead surrogate that ends a run: one followed by the
// end of the text or by a unit at which the serializer starts a new run.
// breaks lists those units; with a CDATA section (cdata true) the run ends
// before each "]]>", where the section is split.
bool EndsARunWithLeadSurrogate(const XMLCh *text, const char16_t *breaks, bool cdata = false) {
    if (!text)
        return false;
    for (const XMLCh *unit = text; *unit; ++unit) {
        if (!IsLeadSurrogate(*unit))
            continue;
        const XMLCh next = unit[1];
        if (next == 0)
            return true;
        for (const char16_t *b = breaks; *b; ++b)
            if (next == *b)
                return true;
        if (cdata && next == u']' && unit[2] == u']' && unit[3] == u'>')
            return true;
    }
    return false;
}

// Namespace URIs are written as attribute values: the serializer escapes
// these units, each one ending the run before it.
constexpr char16_t kAttributeBreaks[] = u"&<\"\n\r\t";
constexpr char16_t kNoBreaks[] = u"";

// The encoding the serializer writes a file in when none is set on its
// output: the document's input encoding, else its declared one, else UTF-8.
const XMLCh *OutputEncoding(const DOMDocument *document) {
    const XMLCh *encoding = document->getInputEncoding();
    if (encoding && *encoding)
        return encoding;
    encoding = document->getXmlEncoding();
    if (encoding && *encoding)
        return encoding;
    return XMLUni::fgUTF8EncodingString;
}

// Whether the transcoder for encoding keeps back a lone lead surrogate at
// the end of its input, eating nothing: the answer that makes the
// serializer's loop retry the same run.
bool TranscoderKeepsLeadSurrogate(const XMLCh *encoding) {
    XMLTransService::Codes code;
    std::unique_ptr<XMLTranscoder> transcoder(XMLPlatformUtils::fgTransService->makeNewTranscoderFor(
        encoding, code, 64, XMLPlatformUtils::fgMemoryManager));
    if (!transcoder)
        return false; // the serializer fails on its own
    const XMLCh lead = 0xD800;
    if (!transcoder->canTranscodeTo(lead))
        return false; // written as a character reference instead
    XMLByte bytes[16];
    XMLSize_t eaten = 0;
    try {
        transcoder->transcodeTo(&lead, 1, bytes, sizeof bytes, eaten, XMLTranscoder::UnRep_RepChar);
    } catch (const XMLException &) {
        return false;
    }
    return eaten == 0;
}

// Xerces keeps one copy of each namespace URI in the document's string
// pool, so the URI found clean last is not read again for the next node
// in the same namespace.
class NamespaceCheck {
public:
    bool EndsARun(const XMLCh *uri) {
        if (!uri || uri == m_pClean)
            return false;
        if (EndsARunWithLeadSurrogate(uri, kAttributeBreaks))
            return true;
        m_pClean = uri;
        return false;
    }

private:
    const XMLCh *m_pClean = nullptr;
};

bool NodeEndsARunWithLeadSurrogate(const DOMNode *node, NamespaceCheck &namespaces) {
    switch (node->getNodeType()) {
    case DOMNode::ELEMENT_NODE: {
        if (namespaces.EndsARun(node->getNamespaceURI()))
            return true;
        // The namespace of a prefixed attribute is declared beside it.
        const DOMNamedNodeMap *attributes = node->getAttributes();
        for (XMLSize_t i = 0, count = attributes->getLength(); i < count; ++i) {
            const DOMNode *attribute = attributes->item(i);
            const XMLCh *prefix = attribute->getPrefix();
            if (prefix && *prefix && namespaces.EndsARun(attribute->getNamespaceURI()))
                return true;
        }
        return false;
    }
    case DOMNode::CDATA_SECTION_NODE:
        return EndsARunWithLeadSurrogate(node->getNodeValue(), kNoBreaks, true);
    case DOMNode::DOCUMENT_TYPE_NODE: {
        const auto *type = static_cast<const DOMDocumentType *>(node);
        return EndsARunWithLeadSurrogate(type->getPublicId(), kNoBreaks) ||
               EndsARunWithLeadSurrogate(type->getSystemId(), kNoBreaks);
    }
    default:
        return false;
    }
}

// The serializer writes an entity reference by name and a document type
// without its children: only elements are entered.
bool WritesChildren(const DOMNode *node) { return node->getNodeType() == DOMNode::ELEMENT_NODE; }

} // namespace

bool WriteWouldNotReturn(const DOMDocument *document) {
    if (!TranscoderKeepsLeadSurrogate(OutputEncoding(document)))
        return false;
    // Depth first, without recursion (a document may be nested deeper than
    // the stack allows), keeping the elements entered rather than asking
    // each node for its parent, which Xerces answers slowly for text.
    std::vector<const DOMNode *> entered;
    NamespaceCheck namespaces;
    const DOMNode *node = document->getFirstChild();
    while (node || !entered.empty()) {
        if (!node) {
            node = entered.back()->getNextSibling();
            entered.pop_back();
            continue;
        }
        if (NodeEndsARunWithLeadSurrogate(node, namespaces))
            return true;
        const DOMNode *child = WritesChildren(node) ? node->getFirstChild() : nullptr;
        if (child) {
            entered.push_back(node);
            node = child;
        } else {
            node = node->getNextSibling();
        }
    }
    return false;
}

} // namespace zuxml
