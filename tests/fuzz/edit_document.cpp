// SPDX-License-Identifier: Apache-2.0
// The editing entry points driven by the input: a document created for
// writing (or loaded from a few bytes), then a program of edits read from
// the input: add elements, comments and attributes, set text and values,
// remove nodes and attributes, import from a second document, take hold
// of the nodes under a node (read-only entity content too), read nodes
// back, and write to a string and to the null device, which also exercises
// the check for documents the serializer could never finish; each in its
// wide form and most in their narrow form too. Texts are dictionary names,
// short ASCII strings or raw UTF-16 units, lone surrogates included; the
// locale the narrow forms follow is the input's choice.
#include <xercesc/dom/DOMException.hpp>

#include <algorithm>
#include <clocale>
#include <string_view>

#include "fuzz_walk.h"
#include "locale_choice.h"

namespace {

using zuxml_fuzz::Check;
using WString = std::basic_string<ZuXmlWChar>;

constexpr uint16_t kElement = 1;
constexpr uint16_t kEntityReference = 5;

WString PickText(FuzzedDataProvider &data) {
    // The last three are bytes for the narrow forms (each byte a unit in
    // the wide ones): a character beyond the BMP in UTF-8, an accented
    // letter in UTF-8 and a kana in EUC-JP.
    static const char *const kWords[] = {"a",     "b",      "p:c",  "q:d",     "xmlns", "xmlns:p",
                                         "xml:lang", "urn:p", "urn:q", "",         "]]>",   "1x",
                                         "text",  "<&\">", "r.dtd", "\xF0\x9F\x98\x80", "\xC3\xA9t\xC3\xA9", "\xA4\xA2"};
    switch (data.ConsumeIntegralInRange<int>(0, 2)) {
    case 0: {
        const std::string_view word = kWords[data.ConsumeIntegralInRange<size_t>(0, std::size(kWords) - 1)];
        WString units;
        for (const unsigned char byte : word)
            units.push_back(byte);
        return units;
    }
    case 1: {
        const std::string ascii = data.ConsumeRandomLengthString(24);
        return WString(ascii.begin(), ascii.end());
    }
    default: {
        WString units(data.ConsumeIntegralInRange<size_t>(0, 12), u'a');
        for (ZuXmlWChar &unit : units)
            unit = static_cast<ZuXmlWChar>(std::max<uint16_t>(1, data.ConsumeIntegral<uint16_t>()));
        return units;
    }
    }
}

// The narrow argument made of text: each unit's low byte, so that raw
// units give bytes the locale may not accept, which the narrow forms turn
// into empty text.
std::string Narrow(const WString &text) {
    std::string bytes;
    for (ZuXmlWChar unit : text)
        bytes.push_back(static_cast<char>(unit & 0xFF ? unit & 0xFF : '?'));
    return bytes;
}

// Now and then NULL instead of the text, which the functions refuse.
const ZuXmlWChar *OrNull(FuzzedDataProvider &data, const WString &text) {
    return data.ConsumeIntegralInRange<int>(0, 15) == 0 ? nullptr : text.c_str();
}

// The nodes the program may address: elements and comments it made or
// found, each with its kind. Node handles die with their subtree.
struct Nodes {
    std::vector<std::pair<ZuXmlNode, bool>> all; // node, is an element

    ZuXmlNode Pick(FuzzedDataProvider &data, bool elementOnly) const {
        // Now and then no node: the root element for the functions that
        // add, refused by the others.
        if (data.ConsumeIntegralInRange<int>(0, 15) == 0)
            return nullptr;
        std::vector<ZuXmlNode> candidates;
        for (const auto &[node, element] : all)
            if (element || !elementOnly)
                candidates.push_back(node);
        if (candidates.empty())
            return nullptr;
        return candidates[data.ConsumeIntegralInRange<size_t>(0, candidates.size() - 1)];
    }
    void Add(ZuXmlNode node, bool element) {
        if (node)
            all.emplace_back(node, element);
    }
    // Forgets node and every node under it, before it is removed.
    void Forget(ZuXmlDocument doc, ZuXmlNode node) {
        all.erase(std::remove_if(all.begin(), all.end(),
                                 [&](const auto &entry) {
                                     for (ZuXmlNode n = entry.first; n; n = ZuXmlGetParentNode(doc, n))
                                         if (n == node)
                                             return true;
                                     return false;
                                 }),
                  all.end());
    }
};

// Whether node lies inside the expansion of an entity reference, which
// Xerces keeps read-only: no edit of it, or of its children, can succeed.
bool InsideEntityReference(ZuXmlDocument doc, ZuXmlNode node) {
    for (ZuXmlNode n = ZuXmlGetParentNode(doc, node); n; n = ZuXmlGetParentNode(doc, n))
        if (ZuXmlGetNodeType(doc, n) == kEntityReference)
            return true;
    return false;
}

ZuXmlDocument MakeDocument(FuzzedDataProvider &data) {
    if (data.ConsumeBool()) {
        const std::string bytes = data.ConsumeRandomLengthString(256);
        ZuXmlDocument doc = ZuXmlCreateDocument();
        if (ZuXmlLoadFromBufA(doc, bytes.data(), static_cast<uint32_t>(bytes.size())) == 1)
            return doc;
        ZuXmlReleaseDocument(doc);
    }
    const WString root = data.ConsumeBool() ? WString(u"r") : PickText(data);
    const WString nameSpace = PickText(data);
    const WString systemId = PickText(data);
    const bool withNamespace = data.ConsumeBool();
    const bool withSystemId = data.ConsumeBool();
    if (data.ConsumeBool()) {
        const std::string r = Narrow(root), n = Narrow(nameSpace), s = Narrow(systemId);
        return ZuXmlCreateWriteDocumentA(r.c_str(), withNamespace ? n.c_str() : nullptr,
                                         withSystemId ? s.c_str() : nullptr);
    }
    return ZuXmlCreateWriteDocumentW(root.c_str(), withNamespace ? nameSpace.c_str() : nullptr,
                                     withSystemId ? systemId.c_str() : nullptr);
}

void RunProgram(ZuXmlDocument doc, ZuXmlDocument other, FuzzedDataProvider &data) {
    Nodes nodes;
    nodes.Add(ZuXmlGetRootNode(doc), true);
    for (int step = 0; step < 32 && data.remaining_bytes() > 0; ++step) {
        const WString name = PickText(data);
        const WString text = PickText(data);
        const std::string narrow = Narrow(name);
        const std::string narrowText = Narrow(text);
        switch (data.ConsumeIntegralInRange<int>(0, 18)) {
        case 0:
            nodes.Add(ZuXmlAddNodeW(doc, nodes.Pick(data, true), OrNull(data, name), data.ConsumeBool() ? kElement : 3,
                                    data.ConsumeBool() ? text.c_str() : nullptr,
                                    data.ConsumeBool() ? PickText(data).c_str() : nullptr),
                      true);
            break;
        case 1:
            nodes.Add(ZuXmlAddNodeA(doc, nodes.Pick(data, true), narrow.c_str(), kElement, narrow.c_str(), nullptr),
                      true);
            break;
        case 2:
            nodes.Add(ZuXmlAddCommentW(doc, nodes.Pick(data, true), OrNull(data, text)), false);
            break;
        case 3: {
            ZuXmlNode element = nodes.Pick(data, true);
            Check(ZuXmlAddNodeAttributeW(doc, element, OrNull(data, name), text.c_str()) <= 1);
            break;
        }
        case 4: {
            ZuXmlNode element = nodes.Pick(data, true);
            if (!element)
                break;
            // A read-only attribute lets Xerces' exception out, as the
            // contract says; only a loaded document has them.
            try {
                Check(ZuXmlSetNodeAttributeValueW(doc, element, name.c_str(), text.c_str()) <= 1);
            } catch (const xercesc::DOMException &) {
            }
            break;
        }
        case 5:
            Check(ZuXmlSetNodeTextContentW(doc, nodes.Pick(data, false), text.c_str()) <= 1);
            break;
        case 6: {
            ZuXmlNode element = nodes.Pick(data, true);
            if (element)
                Check(ZuXmlRemoveAttributeIndex(doc, element, data.ConsumeIntegralInRange<int32_t>(-1, 3)) <= 1);
            break;
        }
        case 7: {
            ZuXmlNode element = nodes.Pick(data, true);
            if (element)
                Check(ZuXmlRemoveAttributeNameW(doc, element, name.c_str()) <= 1);
            break;
        }
        case 8: {
            // A node whose parent's text was replaced is out of the tree;
            // removing it answers 0 and leaves it as it is. The root element
            // may go too, leaving a document without one.
            ZuXmlNode node = nodes.Pick(data, false);
            if (node) {
                // Asked before the removal, which releases the node.
                const bool inTree = ZuXmlGetParentNode(doc, node) != nullptr;
                const bool removable = inTree && !InsideEntityReference(doc, node);
                if (inTree)
                    nodes.Forget(doc, node);
                Check(ZuXmlRemoveNode(doc, node) == (removable ? 1 : 0));
            }
            break;
        }
        case 9: {
            ZuXmlNode source = ZuXmlGetRootNode(other);
            if (source && data.ConsumeBool())
                source = ZuXmlGetFirstChild(other, source) ? ZuXmlGetFirstChild(other, source) : source;
            if (source)
                nodes.Add(ZuXmlAddNodeExisting(doc, nodes.Pick(data, true), source,
                                               data.ConsumeIntegralInRange<int32_t>(0, 2)),
                          ZuXmlGetNodeType(other, source) == kElement);
            break;
        }
        case 10:
            zuxml_fuzz::ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlWriteToStringW(doc, b, l); });
            zuxml_fuzz::ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlWriteToStringA(doc, b, l); });
            break;
        case 11:
            Check(zuxml_fuzz::WriteFile(doc, data.ConsumeIntegralInRange<int>(0, 3)) <= 1);
            break;
        // The narrow forms, whose arguments the locale converts first.
        case 12:
            nodes.Add(ZuXmlAddCommentA(doc, nodes.Pick(data, true), narrowText.c_str()), false);
            break;
        case 13: {
            ZuXmlNode element = nodes.Pick(data, true);
            Check(ZuXmlAddNodeAttributeA(doc, element, narrow.c_str(), narrowText.c_str()) <= 1);
            break;
        }
        case 14: {
            ZuXmlNode element = nodes.Pick(data, true);
            if (!element)
                break;
            try {
                Check(ZuXmlSetNodeAttributeValueA(doc, element, narrow.c_str(), narrowText.c_str()) <= 1);
            } catch (const xercesc::DOMException &) {
            }
            break;
        }
        case 15:
            Check(ZuXmlSetNodeTextContentA(doc, nodes.Pick(data, false),
                                           data.ConsumeBool() ? narrowText.c_str() : nullptr) <= 1);
            break;
        case 16: {
            ZuXmlNode element = nodes.Pick(data, true);
            if (element)
                Check(ZuXmlRemoveAttributeNameA(doc, element, narrow.c_str()) <= 1);
            break;
        }
        case 17: {
            // The nodes under one held join them, in document order: a
            // loaded document's text, CDATA sections, processing
            // instructions, entity references and what lies inside them.
            const ZuXmlNode top = nodes.Pick(data, false);
            ZuXmlNode node = top ? ZuXmlGetFirstChild(doc, top) : nullptr;
            while (node && nodes.all.size() < 256) {
                nodes.Add(node, ZuXmlGetNodeType(doc, node) == kElement);
                if (ZuXmlNode child = ZuXmlGetFirstChild(doc, node)) {
                    node = child;
                    continue;
                }
                while (node && node != top && !ZuXmlGetNextSibling(doc, node))
                    node = ZuXmlGetParentNode(doc, node);
                node = node && node != top ? ZuXmlGetNextSibling(doc, node) : nullptr;
            }
            break;
        }
        default:
            zuxml_fuzz::ReadNode(doc, nodes.Pick(data, false), data);
            break;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    return ZuXmlInit() == 1 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    zuxml_fuzz::ChooseLocale(data);
    ZuXmlDocument doc = MakeDocument(data);
    if (!doc)
        return 0;
    static const char kOther[] = "<o xmlns:p='urn:p' p:a='1'><p:c>t<![CDATA[d]]><!--c--></p:c><?pi x?></o>";
    ZuXmlDocument other = ZuXmlCreateDocument();
    Check(ZuXmlLoadFromBufA(other, kOther, sizeof kOther - 1) == 1);
    RunProgram(doc, other, data);
    zuxml_fuzz::WalkDocument(doc, data);
    Check(ZuXmlWriteW(doc, u"/dev/null") <= 1);
    ZuXmlReleaseDocument(other);
    ZuXmlReleaseDocument(doc);
    return 0;
}
