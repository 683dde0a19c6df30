// SPDX-License-Identifier: Apache-2.0
// One getter call on a short name, the first child element of the small
// document's root, wide and narrow, through ZuXml and through Xerces.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>

#include <xercesc/util/XMLString.hpp>

#include "bench.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_bench {

namespace {

ZuXmlNode FirstElement(ZuXmlDocument doc) {
    for (ZuXmlNode node = ZuXmlGetFirstChild(doc, nullptr); node; node = ZuXmlGetNextSibling(doc, node))
        if (ZuXmlGetNodeType(doc, node) == 1)
            return node;
    return nullptr;
}

template <class Char, int32_t (*Getter)(ZuXmlDocument, ZuXmlNode, Char *, int32_t *)>
__attribute__((noinline)) int32_t ZuXmlGetName(ZuXmlDocument doc, ZuXmlNode node, Char *buffer) {
    int32_t length = kBufferUnits;
    return Getter(doc, node, buffer, &length);
}

template <class Char, int32_t (*Getter)(ZuXmlDocument, ZuXmlNode, Char *, int32_t *)>
void GetterZuXml(benchmark::State &state) {
    const Document *document = Require(state, "small");
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    ZuXmlNode node = FirstElement(doc);
    Char buffer[kBufferUnits];
    for (auto _ : state) {
        benchmark::DoNotOptimize(ZuXmlGetName<Char, Getter>(doc, node, buffer));
        benchmark::ClobberMemory();
    }
}

DOMNode *RawFirstElement(DOMDocument *doc) {
    for (DOMNode *node = doc->getDocumentElement()->getFirstChild(); node; node = node->getNextSibling())
        if (node->getNodeType() == DOMNode::ELEMENT_NODE)
            return node;
    return nullptr;
}

// The raw counterparts: the name copied into the buffer, or (narrow)
// converted into it by the C runtime, as ZuXml's narrow getters convert.
__attribute__((noinline)) void RawGetName(const DOMNode *node, XMLCh *buffer) {
    const XMLCh *name = node->getNodeName();
    const XMLSize_t length = XMLString::stringLen(name);
    if (length < static_cast<XMLSize_t>(kBufferUnits))
        std::memcpy(buffer, name, (length + 1) * sizeof(XMLCh));
}

__attribute__((noinline)) void RawGetName(const DOMNode *node, char *buffer) {
    const XMLCh *name = node->getNodeName();
    const XMLSize_t length = XMLString::stringLen(name);
    if (length < static_cast<XMLSize_t>(kBufferUnits)) {
        wchar_t units[kBufferUnits];
        std::copy(name, name + length + 1, units);
        std::wcstombs(buffer, units, kBufferUnits);
    }
}

template <class Char> void GetterRaw(benchmark::State &state) {
    const Document *document = Require(state, "small");
    if (!document)
        return;
    DOMNode *node = RawFirstElement(Loaded(*document).raw);
    Char buffer[kBufferUnits] = {};
    for (auto _ : state) {
        RawGetName(node, buffer);
        benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(buffer[0]);
}

} // namespace

void RegisterGetters() {
    for (auto *bench : {benchmark::RegisterBenchmark("getter_name_w/small/zuxml", GetterZuXml<ZuXmlWChar, ZuXmlGetNodeNameW>),
                        benchmark::RegisterBenchmark("getter_name_w/small/raw", GetterRaw<XMLCh>),
                        benchmark::RegisterBenchmark("getter_name_a/small/zuxml", GetterZuXml<char, ZuXmlGetNodeNameA>),
                        benchmark::RegisterBenchmark("getter_name_a/small/raw", GetterRaw<char>)})
    {
        bench->Unit(benchmark::kNanosecond);
        bench->MeasureProcessCPUTime();
        FixIterations(bench);
    }
}

} // namespace zuxml_bench
