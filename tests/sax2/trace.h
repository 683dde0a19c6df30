/* SPDX-License-Identifier: Apache-2.0 */
// Records every SAX2 callback with its arguments as one line of text, so
// that tests compare whole event traces.
//
// The recorder is the parser's context value. Wide text is written as
// UTF-8, narrow text as it came; every line says which table served it:
//   W:StartElement(0,2,"","a","a")   A:EndElement(1,"","b","b","text")
// A hook may act on each event (stop, ask the location, throw).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "zuxml.h"

namespace zuxml_sax2_test {

struct Recorder {
    ZuXmlSax2Parser hParser = nullptr;
    std::vector<std::string> events;
    // Called after each event is recorded, with the recorded line.
    std::function<void(Recorder &, const std::string &)> onEvent;
};

// Parser with a recorder as its context; released by the destructor.
class TracedParser {
public:
    TracedParser();
    ~TracedParser();
    TracedParser(const TracedParser &) = delete;
    TracedParser &operator=(const TracedParser &) = delete;

    ZuXmlSax2Parser handle() const { return m_Recorder.hParser; }
    Recorder &recorder() { return m_Recorder; }
    std::vector<std::string> &events() { return m_Recorder.events; }

    // Installs the full wide or narrow table of recording callbacks.
    void SetAllW();
    void SetAllA();

    int32_t Load(const std::string &path, int32_t nMode = 0);
    int32_t LoadNarrow(const std::string &path, int32_t nMode = 0);

private:
    Recorder m_Recorder;
};

// The recording callbacks, one per entry and form.
namespace record {
void StartDocumentW(ZuXmlSax2Parser, void *);
void EndDocumentW(ZuXmlSax2Parser, void *);
void StartDocumentA(ZuXmlSax2Parser, void *);
void EndDocumentA(ZuXmlSax2Parser, void *);
void StartElementW(ZuXmlSax2Parser, void *, int32_t, int32_t, const ZuXmlWChar *, const ZuXmlWChar *,
                   const ZuXmlWChar *);
void StartElementA(ZuXmlSax2Parser, void *, int32_t, int32_t, const char *, const char *, const char *);
void AttributeW(ZuXmlSax2Parser, void *, int32_t, int32_t, const ZuXmlWChar *, const ZuXmlWChar *, const ZuXmlWChar *,
                const ZuXmlWChar *, const ZuXmlWChar *);
void AttributeA(ZuXmlSax2Parser, void *, int32_t, int32_t, const char *, const char *, const char *, const char *,
                const char *);
void AttributesDoneW(ZuXmlSax2Parser, void *, int32_t);
void AttributesDoneA(ZuXmlSax2Parser, void *, int32_t);
void EndElementW(ZuXmlSax2Parser, void *, int32_t, const ZuXmlWChar *, const ZuXmlWChar *, const ZuXmlWChar *,
                 const ZuXmlWChar *);
void EndElementA(ZuXmlSax2Parser, void *, int32_t, const char *, const char *, const char *, const char *);
void CommentW(ZuXmlSax2Parser, void *, int32_t, const ZuXmlWChar *);
void CommentA(ZuXmlSax2Parser, void *, int32_t, const char *);
void DiagnosticW(ZuXmlSax2Parser, void *, int32_t, const ZuXmlWChar *);
void DiagnosticA(ZuXmlSax2Parser, void *, int32_t, const char *);
} // namespace record

using Trace = std::vector<std::string>;

// Writes content to a temporary file and loads it in mode through a new
// parser that setup has prepared; expects the load to answer 1 and answers
// the trace.
Trace TraceOf(const std::string &content, const std::function<void(TracedParser &)> &setup, int32_t nMode = 0);

// UTF-8 form of zero-terminated UTF-16 text.
std::string Utf8(const ZuXmlWChar *text);

// A file in the test data directory, and a file written for one test.
std::string DataFile(const std::string &name);
class TempFile {
public:
    explicit TempFile(const std::string &content);
    ~TempFile();
    const std::string &path() const { return m_Path; }

private:
    std::string m_Path;
};

// Runs action with the process's standard output captured; answers what
// was written to it.
std::string CaptureStdout(const std::function<void()> &action);

} // namespace zuxml_sax2_test
