/* SPDX-License-Identifier: Apache-2.0 */
// Shared by the fuzz targets: walk a loaded document and read every
// property of every node in both forms, with buffer lengths the fuzzer
// chooses, checking the caller-buffer protocol as it goes.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "zuxml.h"

namespace zuxml_fuzz {

// A length the fuzzer picks: often small or exact-ish, sometimes 0 or negative.
inline int32_t PickLength(FuzzedDataProvider &data) {
    switch (data.ConsumeIntegralInRange<int>(0, 3)) {
    case 0:
        return data.ConsumeIntegralInRange<int32_t>(-4, 4);
    case 1:
        return data.ConsumeIntegralInRange<int32_t>(0, 64);
    case 2:
        return data.ConsumeIntegralInRange<int32_t>(0, 4096);
    default:
        return data.ConsumeIntegral<int32_t>() % 100000;
    }
}

inline void Check(bool condition) {
    if (!condition)
        __builtin_trap();
}

constexpr uint16_t kSentinel = 0x7E7E;

// Calls a wide getter through a buffer of a chosen length padded with a
// sentinel, and checks that nothing past the buffer is written and that a
// too-small answer writes nothing at all.
template <class Getter> void ReadWide(FuzzedDataProvider &data, Getter getter) {
    const int32_t length = PickLength(data);
    const size_t capacity = length > 0 ? static_cast<size_t>(length) : 0;
    std::vector<ZuXmlWChar> buffer(capacity + 8, kSentinel);
    int32_t inOut = length;
    const int32_t result = getter(buffer.data(), &inOut);
    Check(result == 0 || result == 1);
    for (size_t i = capacity; i < buffer.size(); ++i)
        Check(buffer[i] == kSentinel);
    if (result == 1) {
        Check(inOut == length);
    } else if (inOut != length) {
        // Too small: the needed length was reported and nothing written.
        Check(inOut > 0 && inOut >= length);
        for (ZuXmlWChar c : buffer)
            Check(c == kSentinel);
        if (inOut <= 1 << 20) {
            std::vector<ZuXmlWChar> retry(static_cast<size_t>(inOut));
            int32_t exact = inOut;
            Check(getter(retry.data(), &exact) == 1);
        }
    }
}

// A narrow getter may be given no buffer at all when its length is 0 or
// less: it then only reports the length it needs.
template <class Getter> void ReadNarrow(FuzzedDataProvider &data, Getter getter) {
    const int32_t length = PickLength(data);
    const size_t capacity = length > 0 ? static_cast<size_t>(length) : 0;
    std::vector<char> buffer(capacity + 8, '~');
    int32_t inOut = length;
    const bool noBuffer = length <= 0 && data.ConsumeBool();
    const int32_t result = getter(noBuffer ? nullptr : buffer.data(), &inOut);
    Check(result == 0 || result == 1);
    Check(!noBuffer || result == 0);
    for (size_t i = capacity > 0 || noBuffer ? capacity : 1; i < buffer.size(); ++i)
        Check(buffer[i] == '~');
}

// The wide text a getter gives, read to its end; empty when it fails.
template <class Getter> std::basic_string<ZuXmlWChar> WideText(Getter getter) {
    int32_t length = 0;
    if (getter(nullptr, &length) != 0 || length <= 0 || length > 1 << 20)
        return {};
    std::vector<ZuXmlWChar> buffer(static_cast<size_t>(length));
    if (getter(buffer.data(), &length) != 1)
        return {};
    return buffer.data();
}

// Reads every property of node in both forms.
inline void ReadNode(ZuXmlDocument doc, ZuXmlNode node, FuzzedDataProvider &data) {
    (void)ZuXmlGetNodeType(doc, node);
    ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlGetNodeNameW(doc, node, b, l); });
    ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlGetNodeNameA(doc, node, b, l); });
    ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlGetNodeTextContentW(doc, node, b, l); });
    ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlGetNodeTextContentA(doc, node, b, l); });
    ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlGetNodeNamespaceW(doc, node, b, l); });
    ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlGetNodeNamespaceA(doc, node, b, l); });
    ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) {
        std::vector<ZuXmlWChar> prefix(8192);
        int32_t prefixLength = 8192;
        return ZuXmlGetLocalNodeNameW(doc, node, b, l, prefix.data(), &prefixLength);
    });
    ReadNarrow(data, [&](char *b, int32_t *l) {
        char prefix[8];
        int32_t prefixLength = data.ConsumeIntegralInRange<int32_t>(-1, 8);
        return ZuXmlGetLocalNodeNameA(doc, node, b, l, prefix, &prefixLength);
    });
    const int32_t count = ZuXmlGetNodeAttributeCount(doc, node);
    Check(count >= -1);
    for (int32_t i = -1; i <= count && i < 64; ++i) {
        ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlGetNodeAttributeNameW(doc, node, i, b, l); });
        ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlGetNodeAttributeNameA(doc, node, i, b, l); });
        ReadWide(data,
                 [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlGetNodeAttributeValueIndexW(doc, node, i, b, l); });
        ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlGetNodeAttributeValueIndexA(doc, node, i, b, l); });
        // The same attribute by its name, in both forms.
        const auto name = WideText([&](ZuXmlWChar *b, int32_t *l) {
            return ZuXmlGetNodeAttributeNameW(doc, node, i, b, l);
        });
        const std::string narrowName(name.begin(), name.end());
        ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) {
            return ZuXmlGetNodeAttributeValueNameW(doc, node, name.c_str(), b, l);
        });
        ReadNarrow(data, [&](char *b, int32_t *l) {
            return ZuXmlGetNodeAttributeValueNameA(doc, node, narrowName.c_str(), b, l);
        });
    }
    // The first child found again by its name, in both forms.
    const auto childName = WideText([&](ZuXmlWChar *b, int32_t *l) {
        return ZuXmlGetNodeNameW(doc, ZuXmlGetFirstChild(doc, node), b, l);
    });
    (void)ZuXmlFindChildW(doc, node, childName.c_str());
    (void)ZuXmlFindChildA(doc, node, std::string(childName.begin(), childName.end()).c_str());
}

// Visits every node without recursion, up to a bound: in document order,
// or backwards from each last child, as the input chooses. Either way the
// root element is reached through the document node.
inline void WalkDocument(ZuXmlDocument doc, FuzzedDataProvider &data) {
    const bool backwards = data.ConsumeBool();
    ZuXmlNode (*const first)(ZuXmlDocument, ZuXmlNode) = backwards ? ZuXmlGetLastChild : ZuXmlGetFirstChild;
    ZuXmlNode (*const next)(ZuXmlDocument, ZuXmlNode) = backwards ? ZuXmlGetPriviousSibling : ZuXmlGetNextSibling;
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    ZuXmlNode node = root ? ZuXmlGetParentNode(doc, root) : nullptr;
    const ZuXmlNode top = node;
    for (int visited = 0; node && visited < 2000; ++visited) {
        ReadNode(doc, node, data);
        if (ZuXmlNode child = first(doc, node)) {
            node = child;
            continue;
        }
        while (node && node != top && !next(doc, node))
            node = ZuXmlGetParentNode(doc, node);
        node = node && node != top ? next(doc, node) : nullptr;
    }
}

// The document written to the null device by one of the four file writes,
// indented or not, by a wide or a narrow name.
inline int32_t WriteFile(ZuXmlDocument doc, int how) {
    switch (how) {
    case 0:
        return ZuXmlWriteW(doc, u"/dev/null");
    case 1:
        return ZuXmlWriteA(doc, "/dev/null");
    case 2:
        return ZuXmlWriteNoPrettyW(doc, u"/dev/null");
    default:
        return ZuXmlWriteNoPrettyA(doc, "/dev/null");
    }
}

// A few edits chosen by the fuzzer, then serialisation in both forms.
inline void EditAndWrite(ZuXmlDocument doc, FuzzedDataProvider &data) {
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    ZuXmlNode first = ZuXmlGetFirstChild(doc, nullptr);
    const std::string name = data.ConsumeRandomLengthString(16);
    const std::string value = data.ConsumeRandomLengthString(16);
    (void)ZuXmlAddNodeA(doc, data.ConsumeBool() ? root : first, name.c_str(), 1, value.c_str(), nullptr);
    (void)ZuXmlAddNodeAttributeA(doc, nullptr, name.c_str(), value.c_str());
    (void)ZuXmlAddCommentA(doc, nullptr, value.c_str());
    (void)ZuXmlSetNodeAttributeValueA(doc, root, name.c_str(), value.c_str());
    (void)ZuXmlRemoveAttributeIndex(doc, root, data.ConsumeIntegralInRange<int32_t>(-1, 3));
    if (first && data.ConsumeBool())
        (void)ZuXmlAddNodeExisting(doc, nullptr, first, data.ConsumeIntegralInRange<int32_t>(0, 2));
    if (first && data.ConsumeBool())
        (void)ZuXmlSetNodeTextContentA(doc, first, value.c_str());
    ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlWriteToStringW(doc, b, l); });
    ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlWriteToStringA(doc, b, l); });
    if (data.ConsumeBool())
        Check(WriteFile(doc, data.ConsumeIntegralInRange<int>(0, 3)) <= 1);
    // Whether the node has a parent is asked before the removal: after it
    // the handle names a released node, which no call may be given.
    if (first && data.ConsumeBool()) {
        const bool attached = ZuXmlGetParentNode(doc, first) != nullptr;
        Check(ZuXmlRemoveNode(doc, first) == (attached ? 1 : 0));
    }
}

} // namespace zuxml_fuzz
