/* SPDX-License-Identifier: Apache-2.0 */
// Paths and files in the test programs, without the C++ library's narrow
// path conversions and file streams. MinGW-w64's libstdc++ is built against
// msvcrt's headers, whose mbstate_t is not the Universal CRT's: a program on
// the Universal CRT cannot link its codecvt<wchar_t, char>, so none of
// std::filesystem's char conversions, and its file streams, which hold an
// mbstate_t, do not agree with the library on their own layout. On Windows
// paths go through Windows' own UTF-8 conversion and the C runtime's
// locale, and files through C stdio; elsewhere a path is its bytes.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

#include "text.h"

namespace zuxml_test {

#if defined(_WIN32)
// A path from UTF-8 text.
inline std::filesystem::path Utf8Path(const std::string &utf8) {
    const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), units);
    return std::filesystem::path(wide);
}

// A path as UTF-8 text.
inline std::string Utf8Of(const std::filesystem::path &path) {
    const std::wstring &wide = path.native();
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0,
                                          nullptr, nullptr);
    std::string utf8(static_cast<size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(), bytes, nullptr,
                        nullptr);
    return utf8;
}

// A path as the narrow entries take it: in the C runtime's current locale
// (empty when the locale cannot spell it).
inline std::string NarrowOf(const std::filesystem::path &path) {
    const size_t bytes = std::wcstombs(nullptr, path.c_str(), 0);
    if (bytes == static_cast<size_t>(-1))
        return std::string();
    std::string narrow(bytes, '\0');
    std::wcstombs(narrow.data(), path.c_str(), bytes + 1);
    return narrow;
}

// A path as the interface's wide text.
inline WString WideOf(const std::filesystem::path &path) { return WString(path.native().begin(), path.native().end()); }
#else
inline std::filesystem::path Utf8Path(const std::string &utf8) { return std::filesystem::path(utf8); }
inline std::string Utf8Of(const std::filesystem::path &path) { return path.string(); }
inline std::string NarrowOf(const std::filesystem::path &path) { return path.string(); }
inline WString WideOf(const std::filesystem::path &path) { return W(path.u16string().c_str()); }
#endif

// The whole content of a file, or nothing when it cannot be read.
inline std::string ReadBytes(const std::filesystem::path &path) {
#if defined(_WIN32)
    std::FILE *in = _wfopen(path.c_str(), L"rb");
#else
    std::FILE *in = std::fopen(path.c_str(), "rb");
#endif
    std::string bytes;
    if (!in)
        return bytes;
    char block[4096];
    for (size_t n; (n = std::fread(block, 1, sizeof block, in)) > 0;)
        bytes.append(block, n);
    std::fclose(in);
    return bytes;
}

// Makes or replaces a file with these bytes.
inline void WriteBytes(const std::filesystem::path &path, const std::string &bytes) {
#if defined(_WIN32)
    std::FILE *out = _wfopen(path.c_str(), L"wb");
#else
    std::FILE *out = std::fopen(path.c_str(), "wb");
#endif
    if (!out)
        return;
    std::fwrite(bytes.data(), 1, bytes.size(), out);
    std::fclose(out);
}

} // namespace zuxml_test
