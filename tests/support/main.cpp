// Test entry: Xerces is initialised once around the whole run, as a caller
// of the library does.
#include <gtest/gtest.h>

#include "zuxml.h"

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (ZuXmlInit() != 1)
        return 2;
    const int result = RUN_ALL_TESTS();
    ZuXmlCleanup();
    return result;
}
