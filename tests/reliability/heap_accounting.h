/* SPDX-License-Identifier: Apache-2.0 */
// Counting the C heap: mallinfo2()'s in-use bytes before and after each
// repetition of a scenario. After a few warm-up runs (Xerces fills caches
// once), a scenario that leaks k bytes per run shows k more bytes in use
// after every run, and one that must not leak shows none.
//
// glibc's per-thread cache counts its free chunks as in use, so these
// programs run with it off: CTest sets GLIBC_TUNABLES for them
// (tests/reliability/CMakeLists.txt). Memory checkers replace malloc: under
// AddressSanitizer or valgrind each scenario runs once, uncounted, and the
// checker with its named suppressions (lsan.supp, valgrind.supp) does the
// accounting instead.
#pragma once

#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "zuxml.h"

namespace zuxml_reliability {

inline size_t InUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// False where a memory checker has replaced malloc and glibc's figures
// stand still.
inline bool HeapIsCounted() {
    const size_t before = InUse();
    void *volatile block = std::malloc(4000);
    const size_t during = InUse();
    std::free(block);
    return during >= before + 4000;
}

// True when a freed small chunk still counts as in use: glibc's per-thread
// cache keeps it.
inline bool ThreadCacheHoldsFreedChunks() {
    void *volatile warm = std::malloc(48);
    std::free(warm);
    const size_t before = InUse();
    void *volatile block = std::malloc(48);
    const size_t during = InUse();
    std::free(block);
    return during == before;
}

// The bytes each of `runs` repetitions left in use, after `warmup` runs.
inline std::vector<long> Growth(const std::function<void()> &scenario, int runs = 8, int warmup = 3) {
    for (int i = 0; i < warmup; ++i)
        scenario();
    std::vector<long> growth;
    growth.reserve(static_cast<size_t>(runs));
    for (int i = 0; i < runs; ++i) {
        const size_t before = InUse();
        scenario();
        growth.push_back(static_cast<long>(InUse()) - static_cast<long>(before));
    }
    return growth;
}

// A scratch directory per test; each test finds out whether the heap can be
// counted at all.
class LeakAccounting : public ::testing::Test {
protected:
    void SetUp() override {
        m_bCounted = HeapIsCounted();
        if (m_bCounted) {
            ASSERT_FALSE(ThreadCacheHoldsFreedChunks())
                << "glibc's thread cache is on: run through ctest, which sets "
                   "GLIBC_TUNABLES=glibc.malloc.tcache_count=0";
        }
        m_Dir = std::filesystem::temp_directory_path() / ("zuxml_leaks_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_Dir);
    }
    void TearDown() override {
        if (!m_Dir.empty())
            std::filesystem::remove_all(m_Dir);
    }
    std::string File(const std::string &name, const std::string &content) const {
        const std::string path = (m_Dir / name).string();
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::string Path(const std::string &name) const { return (m_Dir / name).string(); }

    // Every run left `bytes` behind: exactly none for a scenario that must
    // not leak; for one that leaks, the chunk sizes it keeps, or one step
    // (16 bytes) more when malloc hands out a whole free chunk it could not
    // split.
    void ExpectEachRunLeaks(const std::function<void()> &scenario, long bytes) const {
        if (!m_bCounted) {
            scenario();
            return;
        }
        const std::vector<long> growth = Growth(scenario);
        for (size_t i = 0; i < growth.size(); ++i) {
            if (bytes == 0) {
                EXPECT_EQ(growth[i], 0) << "run " << i;
            } else {
                EXPECT_GE(growth[i], bytes) << "run " << i;
                EXPECT_LE(growth[i], bytes + 16) << "run " << i;
            }
        }
    }

    bool m_bCounted = true;
    std::filesystem::path m_Dir;
};

} // namespace zuxml_reliability
