/* SPDX-License-Identifier: Apache-2.0 */
// What the DOM tests share: owned document handles, documents loaded from
// text, readers that follow the caller-buffer protocol to the end, and
// scratch directories for written files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/text.h"
#include "zuxml.h"

namespace zuxml_dom_test {

using zuxml_test::NarrowOf;
using zuxml_test::ReadBytes;
using zuxml_test::Utf8Of;
using zuxml_test::Utf8Path;
using zuxml_test::W;
using zuxml_test::WideOf;
using zuxml_test::WriteBytes;
using zuxml_test::WString;
using zuxml_test::kUtf8Locale;

// A document handle released at the end of its scope.
class Document {
public:
    Document() = default;
    explicit Document(ZuXmlDocument handle) : m_hDocument(handle) {}
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;
    Document(Document &&other) noexcept : m_hDocument(other.m_hDocument) { other.m_hDocument = nullptr; }
    ~Document() { ZuXmlReleaseDocument(m_hDocument); }

    ZuXmlDocument get() const { return m_hDocument; }
    operator ZuXmlDocument() const { return m_hDocument; }

private:
    ZuXmlDocument m_hDocument = nullptr;
};

// A new handle holding the document parsed from the UTF-8 text; a failed
// load is reported as a test failure.
Document Loaded(const std::string &xml);

// A new handle from ZuXmlCreateWriteDocumentW.
Document Built(const char16_t *root, const char16_t *nameSpace = nullptr, const char16_t *systemId = nullptr);

// Runs a getter first with length 0, then with exactly the reported
// length. No value when the getter fails outright (reports no length) or
// the retry does not answer 1.
template <class Char, class Getter> std::optional<std::basic_string<Char>> ReadAll(Getter getter) {
    int32_t length = 0;
    if (getter(static_cast<Char *>(nullptr), &length) != 0 || length <= 0)
        return std::nullopt;
    std::basic_string<Char> buffer(static_cast<size_t>(length), Char(0x7E));
    if (getter(&buffer[0], &length) != 1)
        return std::nullopt;
    return std::basic_string<Char>(buffer.c_str());
}

// The wide readers, run to the end as above.
std::optional<WString> NodeName(ZuXmlDocument document, ZuXmlNode node);
std::optional<WString> TextContent(ZuXmlDocument document, ZuXmlNode node);
std::optional<WString> Namespace(ZuXmlDocument document, ZuXmlNode node);
// Local name and prefix, read with buffers large enough for both.
std::optional<std::pair<WString, WString>> LocalNameAndPrefix(ZuXmlDocument document, ZuXmlNode node);
// The document as ZuXmlWriteToStringW gives it.
inline std::optional<WString> Serialised(ZuXmlDocument document) {
    return ReadAll<ZuXmlWChar>([&](ZuXmlWChar *b, int32_t *n) { return ZuXmlWriteToStringW(document, b, n); });
}

// What Xerces' own writeToString gives for the document behind a handle,
// with a fresh serializer at its defaults. Reads the root through the
// handle (a call on it).
WString XercesWriteToString(ZuXmlDocument document);

// Node handles are Xerces' own nodes: what Xerces itself answers is the
// reference for the text content of every kind of node.
WString XercesTextContent(ZuXmlNode node);

// Every node of the document in document order, the document node first,
// through the interface.
std::vector<ZuXmlNode> EveryNode(ZuXmlDocument document);

// Node lookup by name below parent (NULL: the root element).
ZuXmlNode Child(ZuXmlDocument document, ZuXmlNode parent, const char16_t *name);

// The number of children of a node.
int ChildCount(ZuXmlDocument document, ZuXmlNode node);

// UTF-8 form of UTF-16 text.
std::string Utf8(const WString &text);

// The XML text without the whitespace that indentation adds: every run of
// whitespace right after a '>' or right before a '<' is dropped.
WString WithoutIndentation(const WString &xml);

// A fresh directory below the test framework's temporary directory,
// removed with everything in it at the end of its scope.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory &) = delete;
    ScratchDirectory &operator=(const ScratchDirectory &) = delete;

    std::filesystem::path File(const std::string &name) const { return m_Path / Utf8Path(name); }
    const std::filesystem::path &path() const { return m_Path; }

private:
    std::filesystem::path m_Path;
};


// The directory of the DOM test documents.
std::filesystem::path DataFile(const std::string &name);

} // namespace zuxml_dom_test
