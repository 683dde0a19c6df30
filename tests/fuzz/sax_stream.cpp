// SPDX-License-Identifier: Apache-2.0
// Bytes as a file streamed through the SAX2 interface: once one-shot
// through ZuXmlSax2LoadFromFileW with the wide table, once progressively
// through ZuXmlSax2LoadFromFileA with the narrow table, stopping after a
// number of events the input chooses, and once with the two tables mixed.
// Every string a callback receives is read to its end.
#include <fuzzer/FuzzedDataProvider.h>

#include <clocale>
#include <cstdint>
#include <cstring>
#include <string>

#include "scratch_file.h"
#include "zuxml.h"

namespace {

void Check(bool condition) {
    if (!condition)
        __builtin_trap();
}

struct Run {
    ZuXmlSax2Parser parser = nullptr;
    uint32_t events = 0;
    uint32_t stopAfter = 0; // 0: never ask to stop
    int32_t depth = -1;     // depth of the innermost open element
};

size_t WideLength(const ZuXmlWChar *text) {
    size_t n = 0;
    while (text[n] != 0)
        ++n;
    return n;
}

void Touch(const ZuXmlWChar *text) {
    if (text != nullptr)
        (void)WideLength(text);
}
void Touch(const char *text) {
    if (text != nullptr)
        (void)std::strlen(text);
}

void Event(ZuXmlSax2Parser parser, void *context) {
    Run &run = *static_cast<Run *>(context);
    Check(parser == run.parser);
    ++run.events;
    if (run.stopAfter != 0 && run.events == run.stopAfter)
        ZuXmlSax2StopLoadFromFile(parser);
    uint64_t line = 0, column = 0;
    (void)ZuXmlGetSax2CurrentLocation(parser, &line, &column);
}

void StartDocument(ZuXmlSax2Parser p, void *c) { Event(p, c); }
void EndDocument(ZuXmlSax2Parser p, void *c) { Event(p, c); }

template <class Char>
void StartElement(ZuXmlSax2Parser p, void *c, int32_t depth, int32_t attributes, const Char *uri,
                  const Char *local, const Char *qname) {
    Event(p, c);
    Run &run = *static_cast<Run *>(c);
    Check(depth >= 0 && depth == run.depth + 1 && attributes >= 0);
    run.depth = depth;
    Touch(uri);
    Touch(local);
    Touch(qname);
}

template <class Char>
void Attribute(ZuXmlSax2Parser p, void *c, int32_t depth, int32_t index, const Char *uri, const Char *local,
               const Char *qname, const Char *type, const Char *value) {
    Event(p, c);
    Check(depth >= 0 && index >= 0);
    Touch(uri);
    Touch(local);
    Touch(qname);
    Touch(type);
    Touch(value);
}

void AttributesDone(ZuXmlSax2Parser p, void *c, int32_t depth) {
    Event(p, c);
    Check(depth >= 0);
}

template <class Char>
void EndElement(ZuXmlSax2Parser p, void *c, int32_t depth, const Char *uri, const Char *local, const Char *qname,
                const Char *text) {
    Event(p, c);
    Run &run = *static_cast<Run *>(c);
    Check(depth >= 0);
    if (run.depth >= 0) {
        Check(depth == run.depth);
        run.depth = depth - 1;
    }
    Touch(uri);
    Touch(local);
    Touch(qname);
    Touch(text);
}

template <class Char> void Comment(ZuXmlSax2Parser p, void *c, int32_t depth, const Char *text) {
    Event(p, c);
    (void)depth;
    Touch(text);
}

template <class Char> void Diagnostic(ZuXmlSax2Parser p, void *c, int32_t code, const Char *message) {
    Event(p, c);
    Check(code == SAX2_ERROR || code == SAX2_FATAL_ERROR || code == SAX2_WARNING);
    Touch(message);
}

void SetWide(ZuXmlSax2Parser parser, bool on) {
    if (on)
        ZuXmlSetSax2ParserCallbacksW(parser, StartDocument, EndDocument, StartElement<ZuXmlWChar>,
                                     Attribute<ZuXmlWChar>, AttributesDone, EndElement<ZuXmlWChar>,
                                     Comment<ZuXmlWChar>, Diagnostic<ZuXmlWChar>);
    else
        ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                     nullptr);
}

void SetNarrow(ZuXmlSax2Parser parser, bool on) {
    if (on)
        ZuXmlSetSax2ParserCallbacksA(parser, StartDocument, EndDocument, StartElement<char>, Attribute<char>,
                                     AttributesDone, EndElement<char>, Comment<char>, Diagnostic<char>);
    else
        ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                     nullptr);
}

const zuxml_fuzz::ScratchFile *g_File;
const zuxml_fuzz::ScratchFile *g_GoodFile;

// A load's answer is one of its three, and the position after it is
// answered or not, whatever became of the load.
void Loaded(ZuXmlSax2Parser parser, int32_t result) {
    Check(result == 1 || result == 0 || result == -1);
    uint64_t line = 0, column = 0;
    Check(ZuXmlGetSax2CurrentLocation(parser, &line, &column) <= 1);
    (void)ZuXmlGetSax2CurrentLocation(parser, nullptr, nullptr);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    static const zuxml_fuzz::ScratchFile file("_sax.xml");
    static const zuxml_fuzz::ScratchFile good("_sax_good.xml");
    g_File = &file;
    g_GoodFile = &good;
    Check(good.Write("<r/>"));
    return ZuXmlInit() == 1 ? 0 : 1;
}

// The choices are read from the end of the input (FuzzedDataProvider takes
// numbers from there), so that a seed is its document followed by them.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    const uint32_t stopAfter = data.ConsumeIntegralInRange<uint32_t>(0, 63);
    const bool mixedProgressive = data.ConsumeBool();
    const std::string xml = data.ConsumeRemainingBytesAsString();
    Check(g_File->Write(xml));

    Run run;
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&run);
    Check(parser != nullptr);
    run.parser = parser;

    // One shot, wide table.
    SetWide(parser, true);
    Loaded(parser, ZuXmlSax2LoadFromFileW(parser, g_File->Wide(), 0));

    // Progressive, narrow table, asked to stop after some events.
    SetWide(parser, false);
    SetNarrow(parser, true);
    run = Run{parser, 0, stopAfter, -1};
    Loaded(parser, ZuXmlSax2LoadFromFileA(parser, g_File->Narrow(), 1));

    // No file name: refused before anything starts, no callback called and
    // the position of the last load still answered.
    uint64_t line = 0, column = 0, lineAfter = 0, columnAfter = 0;
    const int32_t located = ZuXmlGetSax2CurrentLocation(parser, &line, &column);
    const uint32_t events = run.events;
    Check(ZuXmlSax2LoadFromFileA(parser, nullptr, stopAfter & 1) == 0);
    Check(run.events == events);
    Check(ZuXmlGetSax2CurrentLocation(parser, &lineAfter, &columnAfter) == located);
    Check(located == 0 || (line == lineAfter && column == columnAfter));

    // Both tables: the wide one serves what it has, the narrow one the rest.
    // The narrow attribute entry is set, so the table serving start tags
    // sets attributes-done, as the interface asks of its callers.
    ZuXmlSetSax2ParserCallbacksW(parser, nullptr, EndDocument, StartElement<ZuXmlWChar>, nullptr, AttributesDone,
                                 EndElement<ZuXmlWChar>, nullptr, Diagnostic<ZuXmlWChar>);
    run = Run{parser, 0, mixedProgressive ? stopAfter : 0, -1};
    Loaded(parser, ZuXmlSax2LoadFromFileA(parser, g_File->Narrow(), mixedProgressive ? 1 : 0));

    // A failed load keeps its reader until the next load; one of a small
    // good file frees it, so that the kept memory does not pile up.
    ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    Check(ZuXmlSax2LoadFromFileA(parser, g_GoodFile->Narrow(), 0) == 1);
    ZuXmlReleaseSax2Parser(parser);
    return 0;
}
