// SPDX-License-Identifier: Apache-2.0
#include "ratio_reporter.h"

#include <cstdio>

namespace zuxml_bench {

void RatioReporter::Take(const Run &run, bool median) {
    const double seconds = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    Sample &sample = m_Samples[run.run_name.function_name];
    if (median) {
        sample.median = seconds;
    } else {
        sample.runs.push_back(seconds);
    }
}

void RatioReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::printf("\n%-28s %14s %14s %8s\n", "ZuXml / raw, CPU time", "zuxml", "raw", "ratio");
    for (const auto &[name, sample] : m_Samples) {
        const size_t slash = name.rfind('/');
        if (slash == std::string::npos || name.substr(slash + 1) != "zuxml")
            continue;
        const auto raw = m_Samples.find(name.substr(0, slash) + "/raw");
        if (raw == m_Samples.end())
            continue;
        const double zu = sample.Median();
        const double rw = raw->second.Median();
        std::printf("%-28s %14s %14s %8.3f\n", name.substr(0, slash).c_str(), Format(zu).c_str(),
                    Format(rw).c_str(), rw > 0 ? zu / rw : 0.0);
    }
    std::fflush(stdout);
}

std::string RatioReporter::Format(double seconds) {
    char text[32];
    if (seconds < 1e-6)
        std::snprintf(text, sizeof text, "%.1f ns", seconds * 1e9);
    else if (seconds < 1e-3)
        std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
    else
        std::snprintf(text, sizeof text, "%.1f ms", seconds * 1e3);
    return text;
}

} // namespace zuxml_bench
