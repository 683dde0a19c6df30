// SPDX-License-Identifier: Apache-2.0
// Writing a whole loaded document to a file: ZuXmlWriteNoPrettyW, which first
// makes sure the serializer can finish (one walk over the nodes it writes),
// and a raw Xerces serializer with a local file target. The output goes to
// the null device, so the serializer's own work is measured, not the disk's.
#include <string>

#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "bench.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_bench {

namespace {

constexpr char16_t kNullDevice[] = u"/dev/null";

__attribute__((noinline)) bool RawWriteFile(DOMDocument *doc) {
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSSerializer *serializer = implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager);
    DOMLSOutput *output = implementation->createLSOutput(XMLPlatformUtils::fgMemoryManager);
    bool written;
    {
        LocalFileFormatTarget target(kNullDevice, XMLPlatformUtils::fgMemoryManager);
        output->setByteStream(&target);
        written = serializer->write(doc, output);
    }
    output->release();
    serializer->release();
    return written;
}

} // namespace

void WriteFileZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument doc = Loaded(*document).zuxml;
    for (auto _ : state)
        if (ZuXmlWriteNoPrettyW(doc, kNullDevice) != 1)
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

void WriteFileRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    DOMDocument *doc = Loaded(*document).raw;
    for (auto _ : state)
        if (!RawWriteFile(doc))
            state.SkipWithError("write failed");
    SetBytes(state, *document);
}

} // namespace zuxml_bench
