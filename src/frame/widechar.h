/* SPDX-License-Identifier: Apache-2.0 */
// The bridge between the C runtime's wchar_t and UTF-16 code units.
//
// The narrow forms convert through the C runtime's mbstowcs/wcstombs, which
// speak wchar_t. Where wchar_t is 16 bits (Windows) it already is UTF-16 and
// nothing is converted. Where it is 32 bits, characters above U+FFFF become
// surrogate pairs on the way to UTF-16 and are joined again on the way back.
#pragma once

#include <cstddef>
#include <string>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

constexpr bool kWideCharIsUtf16 = sizeof(wchar_t) == sizeof(XMLCh);

// Appends the UTF-16 form of the zero-terminated wchar_t text to out.
// Answers false, leaving out unspecified, for a value that is no Unicode
// scalar value (over U+10FFFF, or a surrogate where wchar_t is 32 bits).
bool AppendUtf16(const wchar_t *text, std::u16string &out);

// Writes the wchar_t form of length UTF-16 units at text, and a terminator,
// to out, which has room for length + 1 values. Pairs are joined; a lone
// surrogate passes as its own value, which the locale conversion after it
// then rejects as it rejects any character it cannot represent.
void ToWideChar(const XMLCh *text, size_t length, wchar_t *out);

} // namespace zuxml
