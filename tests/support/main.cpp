// SPDX-License-Identifier: Apache-2.0
// Test entry: Xerces is initialised once around the whole run, as a caller
// of the library does.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "zuxml.h"

// Read by AddressSanitizer and UBSan when the suite is built with them.
// Xerces is built without frame pointers, so only the slow unwinder sees
// past its allocator to the function that asked for the memory, which is
// what the leak suppressions name.
extern "C" const char *__asan_default_options() { return "fast_unwind_on_malloc=0:detect_leaks=1"; }
extern "C" const char *__ubsan_default_options() { return "print_stacktrace=1:halt_on_error=1"; }

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // A run under a given locale sets it before Xerces starts, as a caller
    // that sets its locale first does.
    if (const char *locale = std::getenv("ZUXML_TEST_LOCALE")) {
        if (!std::setlocale(LC_ALL, locale)) {
            std::fprintf(stderr, "no locale %s on this machine\n", locale);
            return 2;
        }
    }
    if (ZuXmlInit() != 1)
        return 2;
    const int result = RUN_ALL_TESTS();
    ZuXmlCleanup();
    return result;
}
