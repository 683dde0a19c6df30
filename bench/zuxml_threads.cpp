// SPDX-License-Identifier: Apache-2.0
// Thread scaling: N threads (1, 2) each doing whole operations on handles
// of their own, as the library allows (a handle is used by one thread at a
// time, different handles by different threads). Throughput is the
// documents done by all threads per second of wall time; the summary at the
// end gives the throughput of N threads against one.
//
//   zuxml_threads [google benchmark flags]
//
// Paths, each on record.xml and text.xml of the benchmark corpus:
//   dom    ZuXmlLoadFromBufA into the thread's own handle, then a walk of
//          every node with its name and, for elements, its text content
//   sax_w  ZuXmlSax2LoadFromFileW with the wide table
//   sax_a  ZuXmlSax2LoadFromFileA with the narrow table
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench.h"
#include "summary.h"
#include "zuxml.h"

namespace {

using namespace zuxml_bench;

void Dom(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    ZuXmlDocument doc = ZuXmlCreateDocument();
    WalkTally tally;
    for (auto _ : state) {
        if (ZuXmlDomLoad(doc, *document) != 1) {
            state.SkipWithError("load failed");
            break;
        }
        ZuXmlWalk(doc, tally);
    }
    benchmark::DoNotOptimize(tally.sum);
    ZuXmlReleaseDocument(doc);
    state.SetItemsProcessed(state.iterations());
}

// The callbacks count the events; every string is looked at.
template <class Char> struct Count {
    static uint64_t &N(void *context) { return *static_cast<uint64_t *>(context); }
    static void Start(ZuXmlSax2Parser, void *c, int32_t, int32_t, const Char *, const Char *local, const Char *) {
        N(c) += static_cast<uint64_t>(local[0]);
    }
    static void Attribute(ZuXmlSax2Parser, void *c, int32_t, int32_t, const Char *, const Char *, const Char *,
                          const Char *, const Char *value) {
        N(c) += static_cast<uint64_t>(value[0]);
    }
    static void End(ZuXmlSax2Parser, void *c, int32_t, const Char *, const Char *, const Char *, const Char *text) {
        N(c) += static_cast<uint64_t>(text[0]);
    }
    static void Comment(ZuXmlSax2Parser, void *c, int32_t, const Char *text) { N(c) += static_cast<uint64_t>(text[0]); }
    static void AttributesDone(ZuXmlSax2Parser, void *c, int32_t depth) { N(c) += static_cast<uint64_t>(depth); }
};

template <bool Wide> void Sax(benchmark::State &state, const std::string &name) {
    const Document *document = Require(state, name);
    if (!document)
        return;
    uint64_t events = 0;
    for (auto _ : state) {
        ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&events);
        int32_t result;
        if (Wide) {
            using C = Count<ZuXmlWChar>;
            ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, C::Start, C::Attribute, nullptr, C::End, C::Comment,
                                         nullptr);
            result = ZuXmlSax2LoadFromFileW(parser, reinterpret_cast<const ZuXmlWChar *>(document->widePath.c_str()), 0);
        } else {
            // The narrow Attribute entry brings AttributesDone, which must
            // then be set.
            using C = Count<char>;
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, C::Start, C::Attribute, C::AttributesDone, C::End,
                                         C::Comment, nullptr);
            result = ZuXmlSax2LoadFromFileA(parser, document->path.c_str(), 0);
        }
        ZuXmlReleaseSax2Parser(parser);
        if (result != 1) {
            state.SkipWithError("stream failed");
            break;
        }
    }
    benchmark::DoNotOptimize(events);
    state.SetItemsProcessed(state.iterations());
}

void Register(const std::string &path, void (*run)(benchmark::State &, const std::string &)) {
    for (const char *name : {"record", "text"}) {
        // Read here, before any thread asks for it.
        GetDocument(name);
        benchmark::RegisterBenchmark((path + "/" + name).c_str(), run, std::string(name))
            ->Threads(1)
            ->Threads(2)
            ->UseRealTime()
            ->MeasureProcessCPUTime()
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.5);
    }
}

// The console output, then N threads against one: documents per second of
// all threads together (wall time), and the CPU time each document took,
// from the medians of the repetitions. On a machine that others load, wall
// time shows how much of a second core the run got; CPU time per document
// shows whether the threads slowed each other down (locks, allocator).
class ScalingReporter : public SummaryReporter {
protected:
    void Take(const Run &run, bool median) override {
        const auto rate = run.counters.find("items_per_second");
        if (rate == run.counters.end())
            return;
        Sample &sample = m_Samples[run.run_name.function_name][run.threads];
        if (median || sample.rate == 0) {
            sample.rate = rate->second.value;
            sample.cpu = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        }
    }

public:
    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-14s %12s %12s %8s %14s %14s\n", "path", "docs/s, 1", "docs/s, 2", "scaling", "CPU/doc, 1",
                    "CPU/doc, 2");
        for (const auto &[path, byThreads] : m_Samples) {
            const auto one = byThreads.find(1), two = byThreads.find(2);
            if (one == byThreads.end() || two == byThreads.end())
                continue;
            std::printf("%-14s %12.1f %12.1f %8.2f %11.2f ms %11.2f ms\n", path.c_str(), one->second.rate,
                        two->second.rate, two->second.rate / one->second.rate, one->second.cpu * 1e3,
                        two->second.cpu * 1e3);
        }
        std::fflush(stdout);
    }

private:
    struct Sample {
        double rate = 0;
        double cpu = 0;
    };
    std::map<std::string, std::map<int64_t, Sample>> m_Samples;
};

} // namespace

int main(int argc, char **argv) {
    std::setlocale(LC_ALL, "C.UTF-8");
    ZuXmlInit();
    Register("dom", Dom);
    Register("sax_w", Sax<true>);
    Register("sax_a", Sax<false>);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    ScalingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    ZuXmlCleanup();
    return 0;
}
