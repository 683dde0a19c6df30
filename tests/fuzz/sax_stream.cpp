// SPDX-License-Identifier: Apache-2.0
// Bytes as a file streamed through the SAX2 interface: once one-shot
// through ZuXmlSax2LoadFromFileW with the wide table, once progressively
// through ZuXmlSax2LoadFromFileA with the narrow table, stopping after a
// number of events the input chooses, and once with the two tables mixed.
// Every string a callback receives is read to its end.
#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

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

std::string g_path;
std::string g_goodPath;
std::u16string g_widePath;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    const char *dir = std::getenv("TMPDIR");
    g_path = std::string(dir != nullptr && *dir != 0 ? dir : "/tmp") + "/zuxml_fuzz_sax_" +
             std::to_string(static_cast<long>(getpid())) + ".xml";
    g_goodPath = g_path + ".good.xml";
    for (char c : g_path)
        g_widePath.push_back(static_cast<char16_t>(static_cast<unsigned char>(c)));
    FILE *good = std::fopen(g_goodPath.c_str(), "wb");
    Check(good != nullptr && std::fputs("<r/>", good) >= 0);
    std::fclose(good);
    std::atexit([] {
        std::remove(g_path.c_str());
        std::remove(g_goodPath.c_str());
    });
    return ZuXmlInit() == 1 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    const uint32_t stopAfter = data.ConsumeIntegralInRange<uint32_t>(0, 63);
    const bool mixedProgressive = data.ConsumeBool();
    const std::string xml = data.ConsumeRemainingBytesAsString();
    FILE *file = std::fopen(g_path.c_str(), "wb");
    Check(file != nullptr);
    Check(std::fwrite(xml.data(), 1, xml.size(), file) == xml.size());
    std::fclose(file);

    Run run;
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&run);
    Check(parser != nullptr);
    run.parser = parser;
    const ZuXmlWChar *widePath = reinterpret_cast<const ZuXmlWChar *>(g_widePath.c_str());

    // One shot, wide table.
    SetWide(parser, true);
    int32_t result = ZuXmlSax2LoadFromFileW(parser, widePath, 0);
    Check(result == 1 || result == 0 || result == -1);

    // Progressive, narrow table, asked to stop after some events.
    SetWide(parser, false);
    SetNarrow(parser, true);
    run = Run{parser, 0, stopAfter, -1};
    result = ZuXmlSax2LoadFromFileA(parser, g_path.c_str(), 1);
    Check(result == 1 || result == 0 || result == -1);

    // Both tables: the wide one serves what it has, the narrow one the rest.
    // The narrow attribute entry is set, so the table serving start tags
    // sets attributes-done, as the interface asks of its callers.
    ZuXmlSetSax2ParserCallbacksW(parser, nullptr, EndDocument, StartElement<ZuXmlWChar>, nullptr, AttributesDone,
                                 EndElement<ZuXmlWChar>, nullptr, Diagnostic<ZuXmlWChar>);
    run = Run{parser, 0, mixedProgressive ? stopAfter : 0, -1};
    result = ZuXmlSax2LoadFromFileA(parser, g_path.c_str(), mixedProgressive ? 1 : 0);
    Check(result == 1 || result == 0 || result == -1);

    // A failed load keeps its reader until the next load; one of a small
    // good file frees it, so that the kept memory does not pile up.
    ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    Check(ZuXmlSax2LoadFromFileA(parser, g_goodPath.c_str(), 0) == 1);
    ZuXmlReleaseSax2Parser(parser);
    return 0;
}
