/* SPDX-License-Identifier: Apache-2.0 */
// The console output as usual, and at the end ZuXml / raw for every pair:
// the medians when the runs were repeated, else the single runs.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "summary.h"

namespace zuxml_bench {

class RatioReporter : public SummaryReporter {
public:
    void Finalize() override;

protected:
    void Take(const Run &run, bool median) override;

private:
    static std::string Format(double seconds);

    struct Sample {
        std::vector<double> runs;
        double median = -1;
        double Median() const {
            if (median >= 0)
                return median;
            if (runs.empty())
                return 0;
            std::vector<double> sorted = runs;
            std::sort(sorted.begin(), sorted.end());
            return sorted[sorted.size() / 2];
        }
    };
    std::map<std::string, Sample> m_Samples;
};

} // namespace zuxml_bench
