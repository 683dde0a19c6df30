/* SPDX-License-Identifier: Apache-2.0 */
// Tables of calls that must answer their failure value: for a NULL node,
// for a handle that holds no document, for a NULL document handle. Each row
// checks its own failure value and that no caller buffer was written.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "dom_support.h"

namespace zuxml_dom_test {

struct FailingCall {
    const char *label;
    // Calls the operation on (document, node) and tells whether it failed
    // the way the interface says.
    std::function<::testing::AssertionResult(ZuXmlDocument, ZuXmlNode)> fails;
};

// A handle result that must be NULL.
::testing::AssertionResult IsNullNode(ZuXmlNode node);
// A result code that must equal the failure value.
::testing::AssertionResult IsFailure(int32_t result, int32_t failure = 0);

// A wide getter that must answer 0 and write neither buffer nor length.
::testing::AssertionResult WideGetterFails(const std::function<int32_t(ZuXmlWChar *, int32_t *)> &getter);
// A narrow getter that must answer 0, leave the length and write only the
// empty string.
::testing::AssertionResult NarrowGetterFails(const std::function<int32_t(char *, int32_t *)> &getter);

std::string CallName(const ::testing::TestParamInfo<FailingCall> &info);

// The node every row is given in the last two suites: the root of
//   <p:r xmlns:p="urn:p" a="1"><c/>text</p:r>
// loaded into another handle, on which every row would succeed.
constexpr const char *kForeignDocument = "<p:r xmlns:p=\"urn:p\" a=\"1\"><c/>text</p:r>";

// Rows given a NULL node, with a loaded document.
class FailsForNullNode : public ::testing::TestWithParam<FailingCall> {};
// Rows given a live node, with a handle that holds no document.
class FailsWithoutDocument : public ::testing::TestWithParam<FailingCall> {};
// Rows given a live node, with a NULL document handle.
class FailsForNullDocument : public ::testing::TestWithParam<FailingCall> {};

} // namespace zuxml_dom_test
