// SPDX-License-Identifier: Apache-2.0
// Writing a whole loaded document into a string: ZuXmlWriteToStringW into a
// buffer of the size a first call reported, the two calls of a caller who
// asks for the length first, and a raw Xerces serializer.
#include <cstddef>
#include <string>
#include <vector>

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "bench.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_bench {

namespace {

__attribute__((noinline)) int32_t ZuXmlWrite(ZuXmlDocument doc, std::vector<ZuXmlWChar> &buffer) {
    int32_t length = static_cast<int32_t>(buffer.size());
    return ZuXmlWriteToStringW(doc, buffer.data(), &length);
}

__attribute__((noinline)) size_t RawWrite(DOMDocument *doc) {
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSSerializer *serializer = implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager);
    XMLCh *text = serializer->writeToString(doc);
    const size_t length = XMLString::stringLen(text);
    XMLString::release(&text, XMLPlatformUtils::fgMemoryManager);
    serializer->release();
    return length;
}

// What a caller who does not know the length does: asks with length 0, then
// fills a buffer of the length reported.
__attribute__((noinline)) int32_t ZuXmlWriteAskFill(ZuXmlDocument doc, std::vector<ZuXmlWChar> &buffer) {
    int32_t length = 0;
    ZuXmlWriteToStringW(doc, nullptr, &length);
    buffer.resize(static_cast<size_t>(length));
    return ZuXmlWriteToStringW(doc, buffer.data(), &length);
}

} // namespace

void WriteZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    // The caller's buffer has the size a first call reported.
    int32_t length = 0;
    ZuXmlWriteToStringW(doc, nullptr, &length);
    std::vector<ZuXmlWChar> buffer(static_cast<size_t>(length));
    for (auto _ : state)
        if (ZuXmlWrite(doc, buffer) != 1)
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

void WriteAskFillZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    std::vector<ZuXmlWChar> buffer;
    for (auto _ : state)
        if (ZuXmlWriteAskFill(doc, buffer) != 1)
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

void WriteRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    DOMDocument *doc = Loaded(*document).raw;
    for (auto _ : state)
        benchmark::DoNotOptimize(RawWrite(doc));
    SetBytes(state, *document);
}

} // namespace zuxml_bench
