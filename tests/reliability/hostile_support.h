/* SPDX-License-Identifier: Apache-2.0 */
// Shared by the reliability tests: scratch files, serialising a loaded
// document, and streaming a file while recording what the callbacks saw.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "zuxml.h"

namespace zuxml_reliability {

class Scratch {
public:
    Scratch() {
        static int counter = 0;
        m_Dir = std::filesystem::temp_directory_path() /
                ("zuxml_rel_" + std::to_string(getpid()) + "_" + std::to_string(++counter));
        std::filesystem::create_directories(m_Dir);
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Dir, ignored);
    }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;

    std::string Write(const std::string &name, const std::string &bytes) const {
        const std::string path = (m_Dir / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    std::string Path(const std::string &name) const { return (m_Dir / name).string(); }

private:
    std::filesystem::path m_Dir;
};

// The whole document as UTF-8-free narrow text (ASCII documents only).
inline std::optional<std::string> Serialised(ZuXmlDocument doc) {
    int32_t length = 0;
    if (ZuXmlWriteToStringA(doc, nullptr, &length) == 1 || length <= 0)
        return std::nullopt;
    std::string text(static_cast<size_t>(length), '\0');
    if (ZuXmlWriteToStringA(doc, text.data(), &length) != 1)
        return std::nullopt;
    text.resize(text.find('\0') == std::string::npos ? text.size() : text.find('\0'));
    return text;
}

struct StreamRecord {
    int32_t result = -2;
    int elements = 0;
    int maxDepth = -1;
    int fatal = 0;
    int errors = 0;
    int warnings = 0;
    std::string text; // the document element's gathered text
};

inline void RecordStart(ZuXmlSax2Parser, void *context, int32_t depth, int32_t, const char *, const char *,
                        const char *) {
    auto &record = *static_cast<StreamRecord *>(context);
    ++record.elements;
    if (depth > record.maxDepth)
        record.maxDepth = depth;
}
inline void RecordEnd(ZuXmlSax2Parser, void *context, int32_t depth, const char *, const char *, const char *,
                      const char *text) {
    if (depth == 0)
        static_cast<StreamRecord *>(context)->text = text ? text : "";
}
inline void RecordDiagnostic(ZuXmlSax2Parser, void *context, int32_t code, const char *) {
    auto &record = *static_cast<StreamRecord *>(context);
    if (code == SAX2_FATAL_ERROR)
        ++record.fatal;
    else if (code == SAX2_ERROR)
        ++record.errors;
    else
        ++record.warnings;
}

// Streams a file one-shot (mode 0) or progressively (mode 1) with the
// narrow table, on a parser made for it.
inline StreamRecord Stream(const std::string &path, int32_t mode = 0) {
    StreamRecord record;
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&record);
    ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, RecordStart, nullptr, nullptr, RecordEnd, nullptr,
                                 RecordDiagnostic);
    record.result = ZuXmlSax2LoadFromFileA(parser, path.c_str(), mode);
    ZuXmlReleaseSax2Parser(parser);
    return record;
}

} // namespace zuxml_reliability
