// SPDX-License-Identifier: Apache-2.0
// ZuXml against raw Xerces-C++, in one process and one run.
//
// Every path is measured twice under one name, "<path>/<document>/zuxml" and
// "<path>/<document>/raw": the raw side drives Xerces exactly as ZuXml
// configures it and does the work a caller of Xerces would do to get the
// same strings. Repetitions are interleaved at random, and after the run a
// summary gives ZuXml / raw for each pair from the medians of that run.
//
//   zuxml_bench [google benchmark flags]
//
// The documents are read from ZUXML_BENCH_CORPUS (a directory) or, without
// it, from where the build wrote them. A path whose document is missing is
// skipped with a message.
//
// Each family of paths lives in a file of its own (sax2_bench.cpp,
// dom_load_bench.cpp, dom_walk_bench.cpp, getter_bench.cpp, write_bench.cpp);
// this file registers them under their fixed names and runs them.
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench.h"
#include "ratio_reporter.h"

namespace zuxml_bench {

namespace {

const char *const kDocuments[] = {"record", "text", "small"};

void RegisterPair(const std::string &path, const std::string &document, Half zuxml, Half raw) {
    const bool large = document != "small";
    auto *a = benchmark::RegisterBenchmark((path + "/" + document + "/zuxml").c_str(), zuxml, document);
    auto *b = benchmark::RegisterBenchmark((path + "/" + document + "/raw").c_str(), raw, document);
    for (auto *bench : {a, b}) {
        bench->Unit(large ? benchmark::kMillisecond : benchmark::kMicrosecond);
        bench->MeasureProcessCPUTime();
        // Every operation on a large document takes longer than this: one
        // iteration per repetition.
        if (std::getenv("ZUXML_BENCH_ITERATIONS"))
            FixIterations(bench);
        else if (large)
            bench->MinTime(0.05);
    }
}

void RegisterAll() {
    for (const char *document : kDocuments) {
        RegisterPair("sax_wide", document, SaxWideZuXml, SaxWideRaw);
        RegisterPair("sax_narrow", document, SaxNarrowZuXml, SaxNarrowRaw);
        // The narrow table against raw wide streaming: what the narrow
        // events cost beyond the parse itself.
        RegisterPair("sax_narrow_vs_wide", document, SaxNarrowZuXml, SaxWideRaw);
        RegisterPair("dom_load", document, LoadZuXml, LoadRaw);
        RegisterPair("dom_walk", document, WalkZuXml, WalkRaw);
        RegisterPair("write_string", document, WriteZuXml, WriteRaw);
        RegisterPair("write_file", document, WriteFileZuXml, WriteFileRaw);
        RegisterPair("write_ask_fill", document, WriteAskFillZuXml, WriteRaw);
    }
    RegisterGetters();
}

} // namespace

// A fixed number of iterations when ZUXML_BENCH_ITERATIONS says so (for
// instruction counts under valgrind), else as many as the timing needs.
void FixIterations(benchmark::internal::Benchmark *bench) {
    if (const char *count = std::getenv("ZUXML_BENCH_ITERATIONS"))
        bench->Iterations(std::atoll(count));
}

} // namespace zuxml_bench

int main(int argc, char **argv) {
    // Narrow text is in the C runtime's locale: a caller sets one.
    std::setlocale(LC_ALL, "C.UTF-8");
    ZuXmlInit();
    zuxml_bench::RegisterAll();

    // Unless told otherwise: repeated, interleaved at random, medians only.
    std::vector<char *> args(argv, argv + argc);
    std::vector<std::string> defaults = {"--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true",
                                         "--benchmark_report_aggregates_only=true"};
    for (const std::string &option : defaults) {
        const std::string key = option.substr(0, option.find('='));
        bool given = false;
        for (int i = 1; i < argc; ++i)
            given = given || std::strncmp(argv[i], key.c_str(), key.size()) == 0;
        if (!given)
            args.push_back(const_cast<char *>(option.c_str()));
    }
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return 1;
    zuxml_bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    zuxml_bench::ReleaseLoaded();
    ZuXmlCleanup();
    return 0;
}
