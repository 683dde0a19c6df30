/* SPDX-License-Identifier: Apache-2.0 */
// What the benchmark families of zuxml_bench share: the documents, the
// documents loaded once for the paths that read them, and the entry points
// that main.cpp registers under fixed names.
#pragma once

#include <cstdint>
#include <string>

#include <benchmark/benchmark.h>

#include <xercesc/dom/DOM.hpp>

#include "zuxml.h"

namespace zuxml_bench {

// The caller buffer of the getters: ZuXml fills it with zeros to its end on
// every call, as its contract says, so its size is part of what is measured.
// A name or a short text fits; longer text takes a second call with a buffer
// of the size the first one reported, on both sides.
constexpr int32_t kBufferUnits = 256;

// ---------------------------------------------------------------------------
// Documents (documents.cpp)

struct Document {
    std::string path;
    std::string bytes;
    std::u16string widePath;
    bool present = false;
};

const Document &GetDocument(const std::string &name);

// The document of a run, or NULL after telling the run why it is skipped.
const Document *Require(benchmark::State &state, const std::string &name);

void SetBytes(benchmark::State &state, const Document &document);

// ---------------------------------------------------------------------------
// Loaded documents (dom_load_bench.cpp)

// One DOM load of the document through each side; not inlined, so that a
// profile can collect exactly the loads.
int32_t ZuXmlDomLoad(ZuXmlDocument handle, const Document &document);
xercesc::DOMDocument *RawDomLoad(xercesc::DOMLSParser *parser, const Document &document);

// Loaded documents for the paths that read them, kept from one repetition
// to the next: loading the large ones takes longer than reading them.
struct LoadedDocuments {
    ZuXmlDocument zuxml = nullptr;
    xercesc::DOMLSParser *parser = nullptr;
    xercesc::DOMDocument *raw = nullptr;
    // Bytes read since the last load, for the walks (dom_walk_bench.cpp).
    uint64_t zuxmlRead = 0;
    uint64_t rawRead = 0;
};

LoadedDocuments &Loaded(const Document &document);
void ReleaseLoaded();

// ---------------------------------------------------------------------------
// The families: each path measured through ZuXml and through raw Xerces

using Half = void (*)(benchmark::State &state, const std::string &document);

// sax2_bench.cpp: a streaming load with every string read, wide or narrow.
void SaxWideZuXml(benchmark::State &state, const std::string &document);
void SaxWideRaw(benchmark::State &state, const std::string &document);
void SaxNarrowZuXml(benchmark::State &state, const std::string &document);
void SaxNarrowRaw(benchmark::State &state, const std::string &document);

// dom_load_bench.cpp: a DOM load from the document's bytes.
void LoadZuXml(benchmark::State &state, const std::string &document);
void LoadRaw(benchmark::State &state, const std::string &document);

// dom_walk_bench.cpp: every node visited, names and element text read.
struct WalkTally {
    uint64_t sum = 0;
    uint64_t nodes = 0;
};
void ZuXmlWalk(ZuXmlDocument doc, WalkTally &tally);
void WalkZuXml(benchmark::State &state, const std::string &document);
void WalkRaw(benchmark::State &state, const std::string &document);

// write_bench.cpp: the whole document written into a string, with a buffer
// of the right size or by asking for the length first.
void WriteZuXml(benchmark::State &state, const std::string &document);
void WriteAskFillZuXml(benchmark::State &state, const std::string &document);
void WriteRaw(benchmark::State &state, const std::string &document);

// write_file_bench.cpp: the whole document written to a file.
void WriteFileZuXml(benchmark::State &state, const std::string &document);
void WriteFileRaw(benchmark::State &state, const std::string &document);

// getter_bench.cpp: one getter call on a short name, registered there.
void RegisterGetters();

// main.cpp: a fixed number of iterations when ZUXML_BENCH_ITERATIONS says so.
void FixIterations(benchmark::internal::Benchmark *bench);

} // namespace zuxml_bench
