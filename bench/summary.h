/* SPDX-License-Identifier: Apache-2.0 */
// The reporter of both benchmark programs: the console output as usual,
// and for the summary each program prints after its runs, the runs it
// reads: the median of repeated runs, or each run when runs are not
// repeated.
#pragma once

#include <vector>

#include <benchmark/benchmark.h>

namespace zuxml_bench {

class SummaryReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.error_occurred)
                continue;
            if (run.run_type != Run::RT_Aggregate)
                Take(run, false);
            else if (run.aggregate_name == "median")
                Take(run, true);
        }
    }

protected:
    // A run for the summary; median tells a median from a single run.
    virtual void Take(const Run &run, bool median) = 0;
};

} // namespace zuxml_bench
