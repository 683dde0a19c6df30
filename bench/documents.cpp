// SPDX-License-Identifier: Apache-2.0
// The benchmark documents, read once from the corpus directory.
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

#include "bench.h"

namespace zuxml_bench {

namespace {

std::string CorpusDir() {
    if (const char *dir = std::getenv("ZUXML_BENCH_CORPUS"))
        return dir;
    return ZUXML_BENCH_CORPUS_DIR;
}

} // namespace

const Document &GetDocument(const std::string &name) {
    static std::map<std::string, Document> documents;
    auto found = documents.find(name);
    if (found != documents.end())
        return found->second;
    Document &document = documents[name];
    document.path = CorpusDir() + "/" + name + ".xml";
    std::ifstream in(document.path, std::ios::binary);
    if (in) {
        document.bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        document.present = !document.bytes.empty();
    }
    document.widePath.assign(document.path.begin(), document.path.end());
    return document;
}

const Document *Require(benchmark::State &state, const std::string &name) {
    const Document &document = GetDocument(name);
    if (!document.present) {
        state.SkipWithError(("no document " + document.path + " (build target zuxml_bench_corpus)").c_str());
        return nullptr;
    }
    return &document;
}

void SetBytes(benchmark::State &state, const Document &document) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(document.bytes.size()));
}

} // namespace zuxml_bench
