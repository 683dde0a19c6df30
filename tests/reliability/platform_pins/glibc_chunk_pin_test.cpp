// SPDX-License-Identifier: Apache-2.0
// The size of every leak the library keeps on purpose, and of Xerces' own
// CVE-2018-1311 leak, counted on the C heap (heap_accounting.h). The
// figures are glibc chunk sizes (request rounded up to 16 bytes, with an
// 8-byte header) of the objects Xerces 3.2.4 makes on x86-64: platform pins,
// which another C library, Xerces or word size would move.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "heap_accounting.h"
#include "hostile_support.h"
#include "zuxml.h"

using namespace zuxml_reliability;

namespace {

// Measured on Debian 12 (glibc 2.36, Xerces 3.2.4, x86-64).
// The serializer's output descriptor: one object of 48 bytes.
constexpr long kOutputDescriptorBytes = 64;
// Xerces' external-subset leak (its CVE-2018-1311 fix): 152 bytes asked in
// three blocks.
constexpr long kExternalSubsetBytes = 176;
// A SAX2 reader and what it and the library's handler hold, for a load
// without narrow callbacks; a load that sends text to a narrow callback
// keeps the handler's narrow cache besides (28,176 bytes of heap).
constexpr long kFailedReaderBytes = 50432;
constexpr long kFailedNarrowReaderBytes = 78608;

using GlibcChunkSizePin = LeakAccounting;

} // namespace

TEST_F(GlibcChunkSizePin, EveryWideBufferLoadLeaksTheEncodingName) {
    // "UTF-16" as a Xerces string: 7 units, 14 bytes, a 32-byte chunk, for
    // a load that succeeds and one that fails alike.
    ExpectEachRunLeaks(
        [] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromBufW(doc, reinterpret_cast<const ZuXmlWChar *>(u"<r/>"), 4), 1);
            ZuXmlReleaseDocument(doc);
        },
        32);
    ExpectEachRunLeaks(
        [] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromBufW(doc, reinterpret_cast<const ZuXmlWChar *>(u"<r>"), 3), 0);
            ZuXmlReleaseDocument(doc);
        },
        32);
}


TEST_F(GlibcChunkSizePin, EveryFileWriteLeaksTheOutputDescriptor) {
    const std::string out = Path("out.xml");
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromBufA(doc, "<r><a/></r>", 11), 1);
    ExpectEachRunLeaks([&] { ASSERT_EQ(ZuXmlWriteA(doc, out.c_str()), 1); }, kOutputDescriptorBytes);
    ExpectEachRunLeaks([&] { ASSERT_EQ(ZuXmlWriteNoPrettyA(doc, out.c_str()), 1); }, kOutputDescriptorBytes);
    ZuXmlReleaseDocument(doc);
}


TEST_F(GlibcChunkSizePin, AFailedStreamLeaksItsReaderOnlyWhenReleasedAfterTheFailure) {
    const std::string good = File("good.xml", "<r><a/></r>");
    const std::string missing = Path("missing.xml");
    // A failure followed by a good load: the next load frees what the
    // failure kept.
    ExpectEachRunLeaks(
        [&] {
            StreamRecord record;
            ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&record);
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                         RecordDiagnostic);
            ASSERT_EQ(ZuXmlSax2LoadFromFileA(parser, missing.c_str(), 1), 0);
            ASSERT_EQ(ZuXmlSax2LoadFromFileA(parser, good.c_str(), 0), 1);
            ZuXmlReleaseSax2Parser(parser);
        },
        0);
    // Released right after a failed progressive start: the reader, its
    // handler and all the reader holds stay behind, the same every time.
    ExpectEachRunLeaks(
        [&] {
            ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(nullptr);
            ASSERT_EQ(ZuXmlSax2LoadFromFileA(parser, missing.c_str(), 1), 0);
            ZuXmlReleaseSax2Parser(parser);
        },
        kFailedReaderBytes);
    // With a narrow callback that takes text, the handler's narrow cache
    // too (here one for start tags, which a missing file never calls, so
    // that no text of the failure is kept in it).
    const ZuXmlSax2StartElementCallbackA startElement = [](ZuXmlSax2Parser, void *, int32_t, int32_t, const char *,
                                                           const char *, const char *) {};
    ExpectEachRunLeaks(
        [&] {
            ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(nullptr);
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, startElement, nullptr, nullptr, nullptr, nullptr,
                                         nullptr);
            ASSERT_EQ(ZuXmlSax2LoadFromFileA(parser, missing.c_str(), 1), 0);
            ZuXmlReleaseSax2Parser(parser);
        },
        kFailedNarrowReaderBytes);
}


TEST_F(GlibcChunkSizePin, XercesLeaksABlockForEveryExternalSubset) {
    File("ext.dtd", "<!ELEMENT r ANY>");
    const std::string external = File("external.xml", "<!DOCTYPE r SYSTEM 'ext.dtd'><r/>");
    const std::string internal = File("internal.xml", "<!DOCTYPE r [<!ELEMENT r ANY>]><r/>");
    ExpectEachRunLeaks(
        [&] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromFileA(doc, internal.c_str()), 1);
            ZuXmlReleaseDocument(doc);
        },
        0);
    ExpectEachRunLeaks(
        [&] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromFileA(doc, external.c_str()), 1);
            ZuXmlReleaseDocument(doc);
        },
        kExternalSubsetBytes);
    ExpectEachRunLeaks(
        [&] {
            const StreamRecord record = Stream(external);
            ASSERT_EQ(record.result, 1);
            ASSERT_EQ(record.fatal, 0);
        },
        kExternalSubsetBytes);
}

// Not ours: a load of a directory path fails while Xerces' XMLReader is
// being constructed (reading a directory throws), so its destructor never
// runs and the copy of the system identifier it made stays behind:
// 2 × (characters + 1) bytes.
TEST_F(GlibcChunkSizePin, XercesLeaksTheSystemIdentifierOfADirectoryLoad) {
    const std::string directory = m_Dir.string();
    const long request = 2 * static_cast<long>(directory.size() + 1);
    // glibc's chunk for the request: an 8-byte header, rounded up to 16.
    const long chunk = std::max(32L, (request + 8 + 15) / 16 * 16);
    ExpectEachRunLeaks(
        [&] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromFileA(doc, directory.c_str()), 0);
            ZuXmlReleaseDocument(doc);
        },
        chunk);
}
