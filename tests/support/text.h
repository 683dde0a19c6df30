// Small helpers shared by the tests: UTF-16 literals as the interface's
// wide type, sentinel-filled buffers, and a scoped C locale.
#pragma once

#include <clocale>
#include <cstdio>
#include <cstdint>
#include <string>
#include <vector>

#include "zuxml.h"

namespace zuxml_test {

using WString = std::basic_string<ZuXmlWChar>;

inline WString W(const char16_t *text) { return WString(text, text + std::char_traits<char16_t>::length(text)); }

// A buffer filled with a sentinel, so that "nothing written" is checked.
template <class Char> struct Sentinel {
    static constexpr Char value = static_cast<Char>(0x7E);
};

template <class Char> std::vector<Char> FilledBuffer(size_t size) {
    return std::vector<Char>(size, Sentinel<Char>::value);
}

template <class Char> bool Untouched(const std::vector<Char> &buffer) {
    for (Char c : buffer)
        if (c != Sentinel<Char>::value)
            return false;
    return true;
}

// Sets the C locale for one scope and puts the previous one back.
class ScopedLocale {
public:
    explicit ScopedLocale(const char *name) : m_Previous(std::setlocale(LC_ALL, nullptr)) {
        m_bOk = std::setlocale(LC_ALL, name) != nullptr;
        // The Windows C runtime has no "C.UTF-8": CTest counts a test that
        // prints this line there as skipped (tests/CMakeLists.txt).
        if (!m_bOk)
            std::printf("zuxml-test: the C runtime has no locale \"%s\"\n", name);
    }
    ~ScopedLocale() { std::setlocale(LC_ALL, m_Previous.c_str()); }
    bool ok() const { return m_bOk; }

private:
    std::string m_Previous;
    bool m_bOk;
};

} // namespace zuxml_test
