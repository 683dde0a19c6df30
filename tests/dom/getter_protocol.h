/* SPDX-License-Identifier: Apache-2.0 */
// The caller-buffer protocol, checked on the real getters of the library.
//
// Each test program lists its getters as GetterCase rows and instantiates
// the suites below with them; the bodies are in getter_protocol.cpp:
//   WideGetterProtocol     getter x length            (L, L+1, larger, 0, negative)
//   NarrowGetterProtocol   getter x length x locale   ("C" and the UTF-8 locale, ASCII text)
//   GetterRetry            getter: a retry with the reported length succeeds
//   MultibyteNarrowGetter  getter on the text "\u00e9\u00e8\u00ea": the narrow asymmetries
#pragma once

#include <gtest/gtest.h>

#include <tuple>

#include "dom_support.h"

namespace zuxml_dom_test {

using WideGetter = int32_t (*)(ZuXmlDocument, ZuXmlWChar *, int32_t *);
using NarrowGetter = int32_t (*)(ZuXmlDocument, char *, int32_t *);

struct GetterCase {
    const char *label;    // names the instantiated test
    const char *xml;      // UTF-8 document the getter reads from
    WideGetter wide;      // the wide getter, on the node it reads
    NarrowGetter narrow;  // its narrow twin, on the same node
    const char16_t *text; // the text the getter gives for that document
};

// A caller's length, derived from the text length L.
struct LengthCase {
    const char *label;
    int64_t fromLength; // factor of L
    int64_t offset;     // added to it
    bool fits;          // whether the text and its terminator fit

    int32_t For(int32_t textLength) const { return static_cast<int32_t>(fromLength * textLength + offset); }
};

// L: too small by one; L + 1: exact; L + 5 and L + 6: larger; 0 and
// negative: too small.
const LengthCase kWideLengths[] = {
    {"TextLength", 1, 0, false},
    {"TextLengthPlusOne", 1, 1, true},
    {"TextLengthPlusFive", 1, 5, true},
    {"Larger", 1, 6, true},
    {"Zero", 0, 0, false},
    {"MinusOne", 0, -1, false},
    {"MinusSeven", 0, -7, false},
    {"MostNegative", 0, INT32_MIN, false},
};

// A narrow getter behaves as if through a wide buffer of length + 1 units,
// which the most negative length cannot size: it is not a length a narrow
// caller can pass.
const LengthCase kNarrowLengths[] = {
    {"TextLength", 1, 0, false}, {"TextLengthPlusOne", 1, 1, true}, {"Larger", 1, 6, true},
    {"Zero", 0, 0, false},       {"MinusOne", 0, -1, false},        {"MinusSeven", 0, -7, false},
};

const char *const kNarrowLocales[] = {"C", kUtf8Locale};

class WideGetterProtocol : public ::testing::TestWithParam<std::tuple<GetterCase, LengthCase>> {};
class NarrowGetterProtocol : public ::testing::TestWithParam<std::tuple<GetterCase, LengthCase, const char *>> {};
class GetterRetry : public ::testing::TestWithParam<GetterCase> {};
class MultibyteNarrowGetter : public ::testing::TestWithParam<GetterCase> {};

std::string GetterName(const ::testing::TestParamInfo<GetterCase> &info);
std::string WideName(const ::testing::TestParamInfo<std::tuple<GetterCase, LengthCase>> &info);
std::string NarrowName(const ::testing::TestParamInfo<std::tuple<GetterCase, LengthCase, const char *>> &info);

} // namespace zuxml_dom_test

// Instantiates the three protocol suites for the ASCII getters of a test
// program.
#define ZUXML_GETTER_PROTOCOL_SUITES(Prefix, cases)                                                                    \
    INSTANTIATE_TEST_SUITE_P(Prefix, WideGetterProtocol,                                                               \
                             ::testing::Combine(::testing::ValuesIn(cases), ::testing::ValuesIn(kWideLengths)),        \
                             WideName);                                                                                \
    INSTANTIATE_TEST_SUITE_P(Prefix, NarrowGetterProtocol,                                                             \
                             ::testing::Combine(::testing::ValuesIn(cases), ::testing::ValuesIn(kNarrowLengths),       \
                                                ::testing::ValuesIn(kNarrowLocales)),                                  \
                             NarrowName);                                                                              \
    INSTANTIATE_TEST_SUITE_P(Prefix, GetterRetry, ::testing::ValuesIn(cases), GetterName)
