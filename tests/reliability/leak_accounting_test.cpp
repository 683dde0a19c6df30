// Pins the size of every leak the library keeps on purpose, and of
// Xerces' own CVE-2018-1311 leak, by counting the C heap: mallinfo2()'s
// in-use bytes before and after each repetition of a scenario. After a few
// warm-up runs (Xerces fills caches once), a scenario that leaks k bytes
// per run must show k more bytes in use after every run, and one that must
// not leak shows none. The figures are glibc chunk sizes (request
// rounded up to 16 bytes, with an 8-byte header). glibc's per-thread cache
// counts its free chunks as in use, so the program turns it off for itself
// (GLIBC_TUNABLES, read only at start: it starts itself again with it
// set). Memory checkers replace malloc: under AddressSanitizer or valgrind
// each scenario runs once, uncounted, and the checker with its named
// suppressions (lsan.supp, valgrind.supp) does the accounting instead.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstring>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "frame/CZUXMLTextRecord.h"
#include "support/text.h"
#include "zuxml.h"

namespace {

constexpr char kNoThreadCache[] = "glibc.malloc.tcache_count=0";

// Before main: start again with the thread cache off, same arguments.
// Not under valgrind (its preload is in LD_PRELOAD), whose own malloc
// makes these tests skip anyway.
__attribute__((constructor)) void WithoutThreadCache() {
    const char *tunables = std::getenv("GLIBC_TUNABLES");
    if (tunables != nullptr && std::strstr(tunables, kNoThreadCache) != nullptr)
        return;
    const char *preload = std::getenv("LD_PRELOAD");
    if (preload != nullptr && std::strstr(preload, "vgpreload") != nullptr)
        return;
    std::ifstream in("/proc/self/cmdline", std::ios::binary);
    const std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::vector<char *> argv;
    for (size_t i = 0; i < all.size(); i += std::strlen(&all[i]) + 1)
        argv.push_back(const_cast<char *>(&all[i]));
    argv.push_back(nullptr);
    if (argv.size() < 2 || setenv("GLIBC_TUNABLES", kNoThreadCache, 1) != 0)
        return;
    execv("/proc/self/exe", argv.data());
}

using zuxml_test::ScopedLocale;

// Measured on Debian 12 (glibc 2.36, Xerces 3.2.4, x86-64).
// The serializer's output descriptor: one object of 48 bytes.
constexpr long kOutputDescriptorBytes = 64;
// Xerces' external-subset leak (its CVE-2018-1311 fix): 152 bytes asked in
// three blocks.
constexpr long kExternalSubsetBytes = 176;
// A SAX2 reader (280 bytes) and the 72,904 bytes in 140 blocks that it and
// the library's handler hold.
constexpr long kFailedReaderBytes = 75040;

size_t InUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

bool HeapIsCounted() {
    const size_t before = InUse();
    void *volatile block = std::malloc(4000);
    const size_t during = InUse();
    std::free(block);
    return during >= before + 4000;
}

// The bytes each of `runs` repetitions left in use, after `warmup` runs.
bool g_counted = true;

std::vector<long> Growth(const std::function<void()> &scenario, int runs = 8, int warmup = 3) {
    for (int i = 0; i < warmup; ++i)
        scenario();
    std::vector<long> growth;
    growth.reserve(static_cast<size_t>(runs));
    for (int i = 0; i < runs; ++i) {
        const size_t before = InUse();
        scenario();
        growth.push_back(static_cast<long>(InUse()) - static_cast<long>(before));
    }
    return growth;
}

// Every run left `bytes` behind: exactly none for a scenario that must not
// leak; for one that leaks, the chunk sizes it keeps, or one step (16
// bytes) more when malloc hands out a whole free chunk it could not split.
void ExpectEachRunLeaks(const std::function<void()> &scenario, long bytes) {
    if (!g_counted) {
        scenario();
        return;
    }
    const std::vector<long> growth = Growth(scenario);
    for (size_t i = 0; i < growth.size(); ++i) {
        if (bytes == 0) {
            EXPECT_EQ(growth[i], 0) << "run " << i;
        } else {
            EXPECT_GE(growth[i], bytes) << "run " << i;
            EXPECT_LE(growth[i], bytes + 16) << "run " << i;
        }
    }
}

class LeakAccounting : public ::testing::Test {
protected:
    void SetUp() override {
        g_counted = HeapIsCounted();
        m_Dir = std::filesystem::temp_directory_path() / ("zuxml_leaks_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_Dir);
    }
    void TearDown() override {
        if (!m_Dir.empty())
            std::filesystem::remove_all(m_Dir);
    }
    std::string File(const std::string &name, const std::string &content) const {
        const std::string path = (m_Dir / name).string();
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::string Path(const std::string &name) const { return (m_Dir / name).string(); }

    std::filesystem::path m_Dir;
};

struct Counter {
    int fatal = 0;
};

void OnDiagnostic(ZuXmlSax2Parser, void *context, int32_t code, const char *) {
    if (code == SAX2_FATAL_ERROR)
        ++static_cast<Counter *>(context)->fatal;
}

int32_t Stream(const std::string &path, Counter &counter, bool release = true) {
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&counter);
    ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                 OnDiagnostic);
    const int32_t result = ZuXmlSax2LoadFromFileA(parser, path.c_str(), 0);
    if (release)
        ZuXmlReleaseSax2Parser(parser);
    return result;
}

} // namespace

TEST_F(LeakAccounting, ThePlainPathsLeakNothing) {
    const std::string plain = File("plain.xml", "<r a='1'><b>text</b><!--c--></r>");
    ExpectEachRunLeaks(
        [&] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromBufA(doc, "<r a='1'><b>t</b></r>", 21), 1);
            ASSERT_EQ(ZuXmlLoadFromFileA(doc, plain.c_str()), 1);
            char text[256];
            int32_t length = sizeof text;
            ASSERT_EQ(ZuXmlWriteToStringA(doc, text, &length), 1);
            ASSERT_EQ(ZuXmlLoadFromBufA(doc, "<r>", 3), 0);
            ZuXmlReleaseDocument(doc);
            Counter counter;
            ASSERT_EQ(Stream(plain, counter), 1);
        },
        0);
}

TEST_F(LeakAccounting, ARecordWhoseNarrowFormTheLocaleCannotHoldLeaksItsScratchBuffer) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    ExpectEachRunLeaks(
        [] {
            zuxml::CZUXMLTextRecord ascii(zuxml::CZUXMLTextRecord::WideSlot{}, u"abc");
            ASSERT_STREQ(ascii.NarrowForm(), "abc");
        },
        0);
    // One unit and the terminator: calloc(2 * 2 + 1), a 32-byte chunk.
    ExpectEachRunLeaks(
        [] {
            zuxml::CZUXMLTextRecord accented(zuxml::CZUXMLTextRecord::WideSlot{}, u"\u00e9");
            ASSERT_EQ(accented.NarrowForm(), nullptr);
        },
        32);
    // 40 units: calloc(2 * 41 + 1) = 83 bytes, a 96-byte chunk.
    ExpectEachRunLeaks(
        [] {
            zuxml::CZUXMLTextRecord accented(zuxml::CZUXMLTextRecord::WideSlot{},
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9");
            ASSERT_EQ(accented.NarrowForm(), nullptr);
        },
        96);
}

TEST_F(LeakAccounting, EveryWideBufferLoadLeaksTheEncodingName) {
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

TEST_F(LeakAccounting, EveryFileWriteLeaksTheOutputDescriptor) {
    const std::string out = Path("out.xml");
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromBufA(doc, "<r><a/></r>", 11), 1);
    ExpectEachRunLeaks([&] { ASSERT_EQ(ZuXmlWriteA(doc, out.c_str()), 1); }, kOutputDescriptorBytes);
    ExpectEachRunLeaks([&] { ASSERT_EQ(ZuXmlWriteNoPrettyA(doc, out.c_str()), 1); }, kOutputDescriptorBytes);
    ZuXmlReleaseDocument(doc);
}

TEST_F(LeakAccounting, AFailedStreamLeaksItsReaderOnlyWhenReleasedAfterTheFailure) {
    const std::string good = File("good.xml", "<r><a/></r>");
    const std::string missing = Path("missing.xml");
    // A failure followed by a good load: the next load frees what the
    // failure kept.
    ExpectEachRunLeaks(
        [&] {
            Counter counter;
            ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&counter);
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                         OnDiagnostic);
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
}

TEST_F(LeakAccounting, XercesLeaksABlockForEveryExternalSubset) {
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
            Counter counter;
            ASSERT_EQ(Stream(external, counter), 1);
            ASSERT_EQ(counter.fatal, 0);
        },
        kExternalSubsetBytes);
}

// Not ours: a load of a directory path fails while Xerces' XMLReader is
// being constructed (reading a directory throws), so its destructor never
// runs and the copy of the system identifier it made stays behind:
// 2 × (characters + 1) bytes.
TEST_F(LeakAccounting, XercesLeaksTheSystemIdentifierOfADirectoryLoad) {
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
