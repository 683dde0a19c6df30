// SPDX-License-Identifier: Apache-2.0
#include "failure_table.h"

#include <algorithm>
#include <vector>

namespace zuxml_dom_test {

using zuxml_test::FilledBuffer;
using zuxml_test::Sentinel;
using zuxml_test::Untouched;

::testing::AssertionResult IsNullNode(ZuXmlNode node) {
    if (node == nullptr)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "answered a node instead of NULL";
}

::testing::AssertionResult IsFailure(int32_t result, int32_t failure) {
    if (result == failure)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "answered " << result << " instead of " << failure;
}

::testing::AssertionResult WideGetterFails(const std::function<int32_t(ZuXmlWChar *, int32_t *)> &getter) {
    auto buffer = FilledBuffer<ZuXmlWChar>(64);
    int32_t length = 64;
    const int32_t result = getter(buffer.data(), &length);
    if (result != 0)
        return ::testing::AssertionFailure() << "answered " << result << " instead of 0";
    if (length != 64)
        return ::testing::AssertionFailure() << "set the length to " << length;
    if (!Untouched(buffer))
        return ::testing::AssertionFailure() << "wrote the buffer";
    return ::testing::AssertionSuccess();
}

::testing::AssertionResult NarrowGetterFails(const std::function<int32_t(char *, int32_t *)> &getter) {
    auto buffer = FilledBuffer<char>(64);
    int32_t length = 64;
    const int32_t result = getter(buffer.data(), &length);
    if (result != 0)
        return ::testing::AssertionFailure() << "answered " << result << " instead of 0";
    if (length != 64)
        return ::testing::AssertionFailure() << "set the length to " << length;
    if (buffer[0] != 0)
        return ::testing::AssertionFailure() << "left no empty string in the buffer";
    if (!std::all_of(buffer.begin() + 1, buffer.end(), [](char c) { return c == Sentinel<char>::value; }))
        return ::testing::AssertionFailure() << "wrote more than the empty string";
    return ::testing::AssertionSuccess();
}

// A test program instantiates only the suites its operations need.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FailsForNullNode);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FailsWithoutDocument);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FailsForNullDocument);

std::string CallName(const ::testing::TestParamInfo<FailingCall> &info) { return info.param.label; }

TEST_P(FailsForNullNode, AnswersTheFailureValue) {
    Document document = Loaded(kForeignDocument);
    EXPECT_TRUE(GetParam().fails(document, nullptr));
}

TEST_P(FailsWithoutDocument, AnswersTheFailureValueWithoutUsingTheNode) {
    Document foreign = Loaded(kForeignDocument);
    Document empty(ZuXmlCreateDocument());
    ASSERT_NE(empty.get(), nullptr);
    EXPECT_TRUE(GetParam().fails(empty, ZuXmlGetRootNode(foreign)));
    EXPECT_EQ(NodeName(foreign, ZuXmlGetRootNode(foreign)), W(u"p:r")) << "the foreign document is still whole";
}

TEST_P(FailsForNullDocument, AnswersTheFailureValue) {
    Document foreign = Loaded(kForeignDocument);
    EXPECT_TRUE(GetParam().fails(nullptr, ZuXmlGetRootNode(foreign)));
}

} // namespace zuxml_dom_test
