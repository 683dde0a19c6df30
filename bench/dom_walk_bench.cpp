// SPDX-License-Identifier: Apache-2.0
// DOM walking: every node of a loaded document visited, the name and the
// text of each element read into a caller buffer, through ZuXml's getters
// and through Xerces' nodes.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <xercesc/util/XMLString.hpp>

#include "bench.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_bench {

namespace {

// Xerces makes an element's text content in the document's own memory on
// every read and frees it only with the document, so a document is loaded
// afresh (untimed) once its walks have read about this much.
constexpr uint64_t kWalkBytesPerLoad = 256u << 20;

// A getter through the buffer protocol: the small buffer first, and when the
// text did not fit, once more with a buffer of the reported size.
template <class Getter>
inline uint64_t ReadInto(Getter getter, ZuXmlDocument doc, ZuXmlNode node, ZuXmlWChar *buffer,
                         std::vector<ZuXmlWChar> &large) {
    int32_t length = kBufferUnits;
    if (getter(doc, node, buffer, &length) == 1)
        return buffer[0];
    if (length <= kBufferUnits)
        return 0;
    large.resize(static_cast<size_t>(length));
    getter(doc, node, large.data(), &length);
    return large[0];
}

} // namespace

// Also the walk of each thread in zuxml_threads.
__attribute__((noinline)) void ZuXmlWalk(ZuXmlDocument doc, WalkTally &tally) {
    ZuXmlWChar buffer[kBufferUnits];
    std::vector<ZuXmlWChar> large;
    ZuXmlNode root = ZuXmlGetRootNode(doc);
    ZuXmlNode node = root;
    while (node) {
        ++tally.nodes;
        if (ZuXmlGetNodeType(doc, node) == 1) {
            tally.sum += ReadInto(ZuXmlGetNodeNameW, doc, node, buffer, large);
            tally.sum += ReadInto(ZuXmlGetNodeTextContentW, doc, node, buffer, large);
        }
        ZuXmlNode next = ZuXmlGetFirstChild(doc, node);
        while (!next && node && node != root) {
            next = ZuXmlGetNextSibling(doc, node);
            if (!next)
                node = ZuXmlGetParentNode(doc, node);
        }
        node = next;
    }
}

namespace {

inline uint64_t CopyInto(const XMLCh *text, XMLCh *buffer, std::vector<XMLCh> &large) {
    const XMLSize_t length = XMLString::stringLen(text);
    XMLCh *target = buffer;
    if (length >= static_cast<XMLSize_t>(kBufferUnits)) {
        large.resize(length + 1);
        target = large.data();
    }
    std::memcpy(target, text, (length + 1) * sizeof(XMLCh));
    return target[0];
}

__attribute__((noinline)) void RawWalk(DOMDocument *doc, WalkTally &tally) {
    XMLCh buffer[kBufferUnits];
    std::vector<XMLCh> large;
    DOMNode *root = doc->getDocumentElement();
    DOMNode *node = root;
    while (node) {
        ++tally.nodes;
        if (node->getNodeType() == DOMNode::ELEMENT_NODE) {
            tally.sum += CopyInto(node->getNodeName(), buffer, large);
            tally.sum += CopyInto(node->getTextContent(), buffer, large);
        }
        DOMNode *next = node->getFirstChild();
        while (!next && node && node != root) {
            next = node->getNextSibling();
            if (!next)
                node = node->getParentNode();
        }
        node = next;
    }
}

void SetWalkCounters(benchmark::State &state, const WalkTally &tally) {
    const double nodes = static_cast<double>(tally.nodes) / static_cast<double>(std::max<int64_t>(1, state.iterations()));
    state.counters["per_node"] =
        benchmark::Counter(nodes, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["check"] = static_cast<double>(tally.sum / static_cast<uint64_t>(std::max<int64_t>(1, state.iterations())));
}

} // namespace

void WalkZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    LoadedDocuments &loaded = Loaded(*document);
    WalkTally tally;
    for (auto _ : state) {
        if (loaded.zuxmlRead > kWalkBytesPerLoad) {
            state.PauseTiming();
            ZuXmlDomLoad(loaded.zuxml, *document);
            loaded.zuxmlRead = 0;
            state.ResumeTiming();
        }
        ZuXmlWalk(loaded.zuxml, tally);
        loaded.zuxmlRead += document->bytes.size() * 4;
    }
    SetBytes(state, *document);
    SetWalkCounters(state, tally);
}

void WalkRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    LoadedDocuments &loaded = Loaded(*document);
    WalkTally tally;
    for (auto _ : state) {
        if (loaded.rawRead > kWalkBytesPerLoad) {
            state.PauseTiming();
            loaded.raw = RawDomLoad(loaded.parser, *document);
            loaded.rawRead = 0;
            state.ResumeTiming();
        }
        RawWalk(loaded.raw, tally);
        loaded.rawRead += document->bytes.size() * 4;
    }
    SetBytes(state, *document);
    SetWalkCounters(state, tally);
}

} // namespace zuxml_bench
