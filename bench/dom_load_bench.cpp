// SPDX-License-Identifier: Apache-2.0
// DOM loading: a document parsed from its bytes in memory, through
// ZuXmlLoadFromBufA and through a raw DOM parser configured as ZuXml's; and
// the documents loaded once for the paths that read them.
#include <map>
#include <string>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "bench.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_bench {

namespace {

// The DOM parser as ZuXml makes it: synchronous, namespaces on, the rest
// left at Xerces' defaults; reused, its documents released before each load.
DOMLSParser *NewRawParser() {
    auto *implementation = static_cast<DOMImplementationLS *>(DOMImplementationRegistry::getDOMImplementation(u"Core"));
    DOMLSParser *parser = implementation->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr,
                                                         XMLPlatformUtils::fgMemoryManager, nullptr);
    parser->getDomConfig()->setParameter(XMLUni::fgDOMNamespaces, true);
    return parser;
}

std::map<std::string, LoadedDocuments> &AllLoaded() {
    static std::map<std::string, LoadedDocuments> loaded;
    return loaded;
}

} // namespace

__attribute__((noinline)) DOMDocument *RawDomLoad(DOMLSParser *parser, const Document &document) {
    parser->resetDocumentPool();
    MemBufInputSource source(reinterpret_cast<const XMLByte *>(document.bytes.data()), document.bytes.size(),
                             "XMLBuffer", false, XMLPlatformUtils::fgMemoryManager);
    Wrapper4InputSource input(&source, false, XMLPlatformUtils::fgMemoryManager);
    return parser->parse(&input);
}

__attribute__((noinline)) int32_t ZuXmlDomLoad(ZuXmlDocument handle, const Document &document) {
    return ZuXmlLoadFromBufA(handle, document.bytes.data(), static_cast<uint32_t>(document.bytes.size()));
}

LoadedDocuments &Loaded(const Document &document) {
    LoadedDocuments &loaded = AllLoaded()[document.path];
    if (!loaded.zuxml) {
        loaded.zuxml = ZuXmlCreateDocument();
        ZuXmlDomLoad(loaded.zuxml, document);
        loaded.parser = NewRawParser();
        loaded.raw = RawDomLoad(loaded.parser, document);
    }
    return loaded;
}

void ReleaseLoaded() {
    for (auto &[path, loaded] : AllLoaded()) {
        ZuXmlReleaseDocument(loaded.zuxml);
        loaded.parser->release();
    }
    AllLoaded().clear();
}

void LoadZuXml(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument handle = ZuXmlCreateDocument();
    for (auto _ : state)
        if (ZuXmlDomLoad(handle, *document) != 1)
            state.SkipWithError("load failed");
    SetBytes(state, *document);
    ZuXmlReleaseDocument(handle);
}

void LoadRaw(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    DOMLSParser *parser = NewRawParser();
    for (auto _ : state)
        benchmark::DoNotOptimize(RawDomLoad(parser, *document));
    SetBytes(state, *document);
    parser->release();
}

} // namespace zuxml_bench
