// SPDX-License-Identifier: Apache-2.0
#include "dom_support.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

namespace zuxml_dom_test {

Document Loaded(const std::string &xml) {
    Document document(ZuXmlCreateDocument());
    EXPECT_NE(document.get(), nullptr);
    EXPECT_EQ(ZuXmlLoadFromBufA(document, xml.data(), static_cast<uint32_t>(xml.size())), 1) << xml;
    return document;
}

Document Built(const char16_t *root, const char16_t *nameSpace, const char16_t *systemId) {
    const WString r = W(root), n = nameSpace ? W(nameSpace) : WString(), s = systemId ? W(systemId) : WString();
    Document document(
        ZuXmlCreateWriteDocumentW(r.c_str(), nameSpace ? n.c_str() : nullptr, systemId ? s.c_str() : nullptr));
    EXPECT_NE(document.get(), nullptr);
    return document;
}

// Every node of the document in document order, through the interface.
std::vector<ZuXmlNode> EveryNode(ZuXmlDocument document) {
    std::vector<ZuXmlNode> nodes;
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, ZuXmlGetRootNode(document));
    nodes.push_back(documentNode);
    for (ZuXmlNode node = ZuXmlGetFirstChild(document, documentNode); node;) {
        nodes.push_back(node);
        ZuXmlNode next = ZuXmlGetFirstChild(document, node);
        while (!next && node) {
            next = ZuXmlGetNextSibling(document, node);
            if (!next)
                node = ZuXmlGetParentNode(document, node);
        }
        node = next;
    }
    return nodes;
}

WString XercesTextContent(ZuXmlNode node) {
    const XMLCh *text = static_cast<xercesc::DOMNode *>(node)->getTextContent();
    return text ? WString(reinterpret_cast<const ZuXmlWChar *>(text)) : WString();
}

WString XercesWriteToString(ZuXmlDocument document) {
    using namespace xercesc;
    DOMNode *root = static_cast<DOMNode *>(ZuXmlGetRootNode(document));
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSSerializer *serializer = implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager);
    XMLCh *text = serializer->writeToString(root->getOwnerDocument());
    WString result = text ? WString(reinterpret_cast<const ZuXmlWChar *>(text)) : WString();
    XMLString::release(&text, XMLPlatformUtils::fgMemoryManager);
    serializer->release();
    return result;
}

std::optional<WString> NodeName(ZuXmlDocument document, ZuXmlNode node) {
    return ReadAll<ZuXmlWChar>([&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeNameW(document, node, b, n); });
}

std::optional<WString> TextContent(ZuXmlDocument document, ZuXmlNode node) {
    return ReadAll<ZuXmlWChar>(
        [&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeTextContentW(document, node, b, n); });
}

std::optional<WString> Namespace(ZuXmlDocument document, ZuXmlNode node) {
    return ReadAll<ZuXmlWChar>([&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeNamespaceW(document, node, b, n); });
}

std::optional<std::pair<WString, WString>> LocalNameAndPrefix(ZuXmlDocument document, ZuXmlNode node) {
    ZuXmlWChar local[256], prefix[256];
    int32_t localLength = 256, prefixLength = 256;
    if (ZuXmlGetLocalNodeNameW(document, node, local, &localLength, prefix, &prefixLength) != 1)
        return std::nullopt;
    return std::make_pair(WString(local), WString(prefix));
}

ZuXmlNode Child(ZuXmlDocument document, ZuXmlNode parent, const char16_t *name) {
    return ZuXmlFindChildW(document, parent, W(name).c_str());
}

int ChildCount(ZuXmlDocument document, ZuXmlNode node) {
    int count = 0;
    for (ZuXmlNode child = ZuXmlGetFirstChild(document, node); child; child = ZuXmlGetNextSibling(document, child))
        ++count;
    return count;
}

std::string Utf8(const WString &text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t c = text[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size())
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (c >> 18));
            out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

static bool IsSpace(ZuXmlWChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

WString WithoutIndentation(const WString &xml) {
    WString out;
    for (size_t i = 0; i < xml.size();) {
        if (!IsSpace(xml[i])) {
            out += xml[i++];
            continue;
        }
        size_t end = i;
        while (end < xml.size() && IsSpace(xml[end]))
            ++end;
        const bool afterTag = !out.empty() && out.back() == u'>';
        const bool beforeTag = end == xml.size() || xml[end] == u'<';
        if (!afterTag && !beforeTag)
            out.append(xml, i, end - i);
        i = end;
    }
    return out;
}

ScratchDirectory::ScratchDirectory() {
    // A directory no one else has, made the same way where there is no mkdtemp.
    const std::filesystem::path base = Utf8Path(::testing::TempDir());
    std::random_device random;
    for (int attempt = 0; attempt < 100 && m_Path.empty(); ++attempt) {
        const std::filesystem::path candidate = base / Utf8Path("zuxml-dom-" + std::to_string(random()));
        std::error_code error;
        if (std::filesystem::create_directory(candidate, error))
            m_Path = candidate;
    }
    EXPECT_FALSE(m_Path.empty()) << "no scratch directory under " << Utf8Of(base);
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    if (!m_Path.empty())
        std::filesystem::remove_all(m_Path, ignored);
}

std::filesystem::path DataFile(const std::string &name) { return Utf8Path(ZUXML_DOM_DATA_DIR) / Utf8Path(name); }

} // namespace zuxml_dom_test
