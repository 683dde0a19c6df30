// SPDX-License-Identifier: Apache-2.0
#include "trace.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>

#include <unistd.h>

#include <gtest/gtest.h>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLString.hpp>

#include "support/files.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml_sax2_test {

std::string Utf8(const ZuXmlWChar *text) {
    if (!text)
        return "<NULL>";
    const XMLCh *units = reinterpret_cast<const XMLCh *>(text);
    TranscodeToStr utf8(units, XMLString::stringLen(units), "UTF-8");
    return std::string(reinterpret_cast<const char *>(utf8.str()), utf8.length());
}

namespace {

std::string Quote(const std::string &text) { return "\"" + text + "\""; }
std::string Quote(const char *text) { return text ? Quote(std::string(text)) : "<NULL>"; }
std::string Quote(const ZuXmlWChar *text) { return text ? Quote(Utf8(text)) : "<NULL>"; }

template <class... Texts> std::string Args(Texts... texts) {
    std::string out;
    ((out += (out.empty() ? "" : ",") + texts), ...);
    return out;
}

void Record(ZuXmlSax2Parser hParser, void *pContext, const std::string &line) {
    Recorder &recorder = *static_cast<Recorder *>(pContext);
    const std::string entry = hParser == recorder.hParser ? line : "WRONG-HANDLE " + line;
    recorder.events.push_back(entry);
    if (recorder.onEvent)
        recorder.onEvent(recorder, entry);
}

} // namespace

namespace record {

void StartDocumentW(ZuXmlSax2Parser h, void *c) { Record(h, c, "W:StartDocument()"); }
void EndDocumentW(ZuXmlSax2Parser h, void *c) { Record(h, c, "W:EndDocument()"); }
void StartDocumentA(ZuXmlSax2Parser h, void *c) { Record(h, c, "A:StartDocument()"); }
void EndDocumentA(ZuXmlSax2Parser h, void *c) { Record(h, c, "A:EndDocument()"); }

void StartElementW(ZuXmlSax2Parser h, void *c, int32_t depth, int32_t count, const ZuXmlWChar *uri,
                   const ZuXmlWChar *local, const ZuXmlWChar *qname) {
    Record(h, c,
           "W:StartElement(" +
               Args(std::to_string(depth), std::to_string(count), Quote(uri), Quote(local), Quote(qname)) + ")");
}
void StartElementA(ZuXmlSax2Parser h, void *c, int32_t depth, int32_t count, const char *uri, const char *local,
                   const char *qname) {
    Record(h, c,
           "A:StartElement(" +
               Args(std::to_string(depth), std::to_string(count), Quote(uri), Quote(local), Quote(qname)) + ")");
}

void AttributeW(ZuXmlSax2Parser h, void *c, int32_t depth, int32_t index, const ZuXmlWChar *uri,
                const ZuXmlWChar *local, const ZuXmlWChar *qname, const ZuXmlWChar *type, const ZuXmlWChar *value) {
    Record(h, c,
           "W:Attribute(" +
               Args(std::to_string(depth), std::to_string(index), Quote(uri), Quote(local), Quote(qname), Quote(type),
                    Quote(value)) +
               ")");
}
void AttributeA(ZuXmlSax2Parser h, void *c, int32_t depth, int32_t index, const char *uri, const char *local,
                const char *qname, const char *type, const char *value) {
    Record(h, c,
           "A:Attribute(" +
               Args(std::to_string(depth), std::to_string(index), Quote(uri), Quote(local), Quote(qname), Quote(type),
                    Quote(value)) +
               ")");
}

void AttributesDoneW(ZuXmlSax2Parser h, void *c, int32_t depth) {
    Record(h, c, "W:AttributesDone(" + std::to_string(depth) + ")");
}
void AttributesDoneA(ZuXmlSax2Parser h, void *c, int32_t depth) {
    Record(h, c, "A:AttributesDone(" + std::to_string(depth) + ")");
}

void EndElementW(ZuXmlSax2Parser h, void *c, int32_t depth, const ZuXmlWChar *uri, const ZuXmlWChar *local,
                 const ZuXmlWChar *qname, const ZuXmlWChar *text) {
    Record(h, c,
           "W:EndElement(" + Args(std::to_string(depth), Quote(uri), Quote(local), Quote(qname), Quote(text)) + ")");
}
void EndElementA(ZuXmlSax2Parser h, void *c, int32_t depth, const char *uri, const char *local, const char *qname,
                 const char *text) {
    Record(h, c,
           "A:EndElement(" + Args(std::to_string(depth), Quote(uri), Quote(local), Quote(qname), Quote(text)) + ")");
}

void CommentW(ZuXmlSax2Parser h, void *c, int32_t depth, const ZuXmlWChar *text) {
    Record(h, c, "W:Comment(" + Args(std::to_string(depth), Quote(text)) + ")");
}
void CommentA(ZuXmlSax2Parser h, void *c, int32_t depth, const char *text) {
    Record(h, c, "A:Comment(" + Args(std::to_string(depth), Quote(text)) + ")");
}

void DiagnosticW(ZuXmlSax2Parser h, void *c, int32_t code, const ZuXmlWChar *message) {
    Record(h, c, "W:Diagnostic(" + Args(std::to_string(code), Quote(message)) + ")");
}
void DiagnosticA(ZuXmlSax2Parser h, void *c, int32_t code, const char *message) {
    Record(h, c, "A:Diagnostic(" + Args(std::to_string(code), Quote(message)) + ")");
}

} // namespace record

TracedParser::TracedParser() { m_Recorder.hParser = ZuXmlCreateSax2Parser(&m_Recorder); }

TracedParser::~TracedParser() { ZuXmlReleaseSax2Parser(m_Recorder.hParser); }

void TracedParser::SetAllW() {
    using namespace record;
    ZuXmlSetSax2ParserCallbacksW(handle(), StartDocumentW, EndDocumentW, StartElementW, AttributeW, AttributesDoneW,
                                 EndElementW, CommentW, DiagnosticW);
}

void TracedParser::SetAllA() {
    using namespace record;
    ZuXmlSetSax2ParserCallbacksA(handle(), StartDocumentA, EndDocumentA, StartElementA, AttributeA, AttributesDoneA,
                                 EndElementA, CommentA, DiagnosticA);
}

int32_t TracedParser::Load(const std::string &path, int32_t nMode) {
    TranscodeFromStr wide(reinterpret_cast<const XMLByte *>(path.data()), path.size(), "UTF-8");
    return ZuXmlSax2LoadFromFileW(handle(), reinterpret_cast<const ZuXmlWChar *>(wide.str()), nMode);
}

int32_t TracedParser::LoadNarrow(const std::string &path, int32_t nMode) {
    return ZuXmlSax2LoadFromFileA(handle(), path.c_str(), nMode);
}

Trace TraceOf(const std::string &content, const std::function<void(TracedParser &)> &setup, int32_t nMode) {
    TempFile file(content);
    TracedParser parser;
    setup(parser);
    EXPECT_EQ(1, parser.Load(file.path(), nMode));
    return parser.events();
}

std::string DataFile(const std::string &name) { return std::string(ZUXML_TEST_DATA_DIR) + "/" + name; }

TempFile::TempFile(const std::string &content) {
    // TMPDIR or /tmp; on Windows the user's temporary folder, drive included.
    std::string pattern = zuxml_test::NarrowOf(std::filesystem::temp_directory_path() / zuxml_test::Utf8Path("zuxml_sax2_XXXXXX"));
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    const int fd = mkstemp(name.data());
    if (fd < 0) {
        ADD_FAILURE() << "cannot make a temporary file";
        return;
    }
    close(fd);
    m_Path = name.data();
    zuxml_test::WriteBytes(zuxml_test::Utf8Path(m_Path), content);
}

TempFile::~TempFile() {
    if (!m_Path.empty())
        std::remove(m_Path.c_str());
}

std::string CaptureStdout(const std::function<void()> &action) {
    std::cout.flush();
    testing::internal::CaptureStdout();
    action();
    std::cout.flush();
    return testing::internal::GetCapturedStdout();
}

} // namespace zuxml_sax2_test
