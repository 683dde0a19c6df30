/* SPDX-License-Identifier: Apache-2.0 */
// The C runtime locale an input runs under, which the narrow forms follow.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <clocale>
#include <iterator>

namespace zuxml_fuzz {

// UTF-8 (also when the input has no byte left to choose), "C", and the
// test suite's single-byte and double-byte legacy locales, in which the
// library hands narrow text through Xerces' transcoder rather than its
// own direct UTF-8 path. A locale the machine lacks falls back to UTF-8,
// so that an input always runs the same way.
inline void ChooseLocale(FuzzedDataProvider &data) {
    static const char *const kLocales[] = {"C.UTF-8", "C", "en_US.ISO-8859-1", "ja_JP.EUC-JP"};
    if (!std::setlocale(LC_ALL, kLocales[data.ConsumeIntegralInRange<size_t>(0, std::size(kLocales) - 1)]))
        std::setlocale(LC_ALL, kLocales[0]);
}

} // namespace zuxml_fuzz
