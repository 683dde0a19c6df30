/* SPDX-License-Identifier: Apache-2.0 */
// A file of the fuzz process's own in the temporary directory, for the
// entry points that read files: rewritten with each input, removed when the
// process exits. Its name is ASCII, so its wide form is unit for byte.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "zuxml.h"

namespace zuxml_fuzz {

class ScratchFile {
public:
    explicit ScratchFile(const char *suffix) {
        const char *dir = std::getenv("TMPDIR");
        m_Path = std::string(dir != nullptr && *dir != 0 ? dir : "/tmp") + "/zuxml_fuzz_" +
                 std::to_string(static_cast<long>(getpid())) + suffix;
        for (char c : m_Path)
            m_WidePath.push_back(static_cast<char16_t>(static_cast<unsigned char>(c)));
    }
    ~ScratchFile() { std::remove(m_Path.c_str()); }
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    // Whether the bytes were written whole.
    bool Write(const std::string &bytes) const {
        FILE *file = std::fopen(m_Path.c_str(), "wb");
        if (file == nullptr)
            return false;
        const bool whole = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        return std::fclose(file) == 0 && whole;
    }
    const char *Narrow() const { return m_Path.c_str(); }
    const ZuXmlWChar *Wide() const { return reinterpret_cast<const ZuXmlWChar *>(m_WidePath.c_str()); }

private:
    std::string m_Path;
    std::u16string m_WidePath;
};

} // namespace zuxml_fuzz
