// SPDX-License-Identifier: Apache-2.0
// A load without a file name: answered 0 before anything is made, so it
// prints nothing, calls no callback and leaves the parser as it was.
#include <gtest/gtest.h>

#include "trace.h"

using namespace zuxml_sax2_test;

namespace {

TEST(NullFileName, LoadAnswersZeroSilentlyWithoutCallbacksInEitherFormAndMode) {
    TempFile file("<a><b/></a>");
    TracedParser parser;
    parser.SetAllW();
    parser.SetAllA();
    for (const int32_t mode : {0, 1}) {
        int32_t wide = -5;
        int32_t narrow = -5;
        const std::string output = CaptureStdout([&] {
            wide = ZuXmlSax2LoadFromFileW(parser.handle(), nullptr, mode);
            narrow = ZuXmlSax2LoadFromFileA(parser.handle(), nullptr, mode);
        });
        EXPECT_EQ(0, wide) << "mode " << mode;
        EXPECT_EQ(0, narrow) << "mode " << mode;
        EXPECT_EQ("", output);
        EXPECT_TRUE(parser.events().empty());
        // The parser still streams a file.
        EXPECT_EQ(1, parser.Load(file.path(), mode));
        EXPECT_FALSE(parser.events().empty());
        parser.events().clear();
    }
}

TEST(NullFileName, LoadLeavesWhatAFailedLoadKeptInPlace) {
    TempFile bad("");
    TracedParser parser;
    parser.SetAllW();
    CaptureStdout([&] { ASSERT_EQ(0, parser.Load(bad.path(), 1)); });
    uint64_t line = 0;
    uint64_t column = 0;
    ASSERT_EQ(1, ZuXmlGetSax2CurrentLocation(parser.handle(), &line, &column));
    parser.events().clear();
    EXPECT_EQ(0, ZuXmlSax2LoadFromFileW(parser.handle(), nullptr, 1));
    uint64_t lineAfter = 0;
    uint64_t columnAfter = 0;
    EXPECT_EQ(1, ZuXmlGetSax2CurrentLocation(parser.handle(), &lineAfter, &columnAfter));
    EXPECT_EQ(line, lineAfter);
    EXPECT_EQ(column, columnAfter);
    EXPECT_TRUE(parser.events().empty());
}

} // namespace
