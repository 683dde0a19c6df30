// SPDX-License-Identifier: Apache-2.0
// The interface has one list of names and ordinals, exports/ZUXML.def; this
// test keeps everything made from it or written beside it in agreement with
// it: the version script the build writes from it, the public header and
// the dynamic symbols of the built library.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "support/files.h"
#include "zuxml.h"

namespace {

struct Export {
    int ordinal;
    std::string target; // the function the name is bound to
};

std::map<std::string, Export> DefExports() {
    std::map<std::string, Export> exports;
    std::istringstream in(zuxml_test::ReadBytes(zuxml_test::Utf8Path(ZUXML_SOURCE_DIR "/exports/ZUXML.def")));
    const std::regex plain(R"(^\s+(ZuXml\w+)\s+@(\d+)\s*$)");
    const std::regex alias(R"(^\s+(ZuXml\w+)\s*=\s*(ZuXml\w+)\s+@(\d+)\s*$)");
    std::string line;
    std::smatch m;
    while (std::getline(in, line)) {
        if (std::regex_match(line, m, plain))
            exports[m[1]] = {std::stoi(m[2]), m[1]};
        else if (std::regex_match(line, m, alias))
            exports[m[1]] = {std::stoi(m[3]), m[2]};
    }
    return exports;
}

std::set<std::string> Names(const std::map<std::string, Export> &exports) {
    std::set<std::string> names;
    for (const auto &e : exports)
        names.insert(e.first);
    return names;
}

TEST(ExportTable, HasSixtyFiveNamesWithDistinctOrdinals) {
    const auto exports = DefExports();
    EXPECT_EQ(exports.size(), 65u);
    std::set<int> ordinals;
    for (const auto &e : exports) {
        EXPECT_TRUE(ordinals.insert(e.second.ordinal).second) << e.first;
        const int o = e.second.ordinal;
        EXPECT_TRUE((o >= 100 && o <= 140) || (o >= 600 && o <= 621) || (o >= 700 && o <= 721)) << e.first;
    }
}

TEST(ExportTable, NarrowFormsSitOneHundredBelowTheirWideForms) {
    const auto exports = DefExports();
    int pairs = 0;
    for (const auto &e : exports) {
        const std::string &name = e.first;
        const char form = name.back();
        const int o = e.second.ordinal;
        if (o >= 700) {
            ASSERT_EQ(form, 'W') << name;
            const auto narrow = exports.find(name.substr(0, name.size() - 1) + "A");
            ASSERT_NE(narrow, exports.end()) << name;
            EXPECT_EQ(narrow->second.ordinal, o - 100) << name;
            ++pairs;
        } else if (o >= 600) {
            EXPECT_EQ(form, 'A') << name;
        }
    }
    EXPECT_EQ(pairs, 22);
}

TEST(ExportTable, SharedEntriesAreBoundToOneFunction) {
    const auto exports = DefExports();
    EXPECT_EQ(exports.at("ZuXmlSax2Init").target, "ZuXmlInit");
    EXPECT_EQ(exports.at("ZuXmlSax2Cleanup").target, "ZuXmlCleanup");
    EXPECT_EQ(exports.at("ZuXmlReleaseSax2Parser").target, "ZuXmlReleaseDocument");
    EXPECT_EQ(exports.at("ZuXmlGetPriviousSibling").ordinal, 120) << "the name is kept as callers link it";
}

TEST(ExportTable, VersionScriptListsEveryNameOnceAndHidesTheRest) {
    const std::string script = zuxml_test::ReadBytes(zuxml_test::Utf8Path(ZUXML_VERSION_SCRIPT));
    std::set<std::string> names;
    const std::regex entry(R"((ZuXml\w+);)");
    for (std::sregex_iterator it(script.begin(), script.end(), entry), end; it != end; ++it)
        EXPECT_TRUE(names.insert((*it)[1]).second) << (*it)[1] << " is listed twice";
    EXPECT_EQ(names, Names(DefExports()));
    EXPECT_TRUE(std::regex_search(script, std::regex(R"(local:\s*\*;)"))) << script;
}

TEST(ExportTable, HeaderDeclaresEveryNameOnce) {
    const std::string header = zuxml_test::ReadBytes(zuxml_test::Utf8Path(ZUXML_SOURCE_DIR "/include/zuxml.h"));
    std::set<std::string> declared;
    const std::regex declaration(R"(ZUXML_API\s+[\w\s\*]*?\b(ZuXml\w+)\s*\()");
    for (std::sregex_iterator it(header.begin(), header.end(), declaration), end; it != end; ++it)
        EXPECT_TRUE(declared.insert((*it)[1]).second) << (*it)[1] << " is declared twice";
    EXPECT_EQ(declared, Names(DefExports()));
}

#if !defined(_WIN32)
// ELF only: ZUXML.dll's export table, ordinals included, is read by
// scripts/windows/check-exports.sh and by tests/windows/ordinal_client.c.
TEST(ExportTable, LibraryExportsExactlyTheTable) {
    const std::string command = "nm -D --defined-only '" ZUXML_LIBRARY_FILE "'";
    FILE *pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::set<std::string> exported;
    char line[512];
    while (fgets(line, sizeof line, pipe)) {
        std::istringstream fields(line);
        std::string address, type, name;
        if (fields >> address >> type >> name)
            exported.insert(name.substr(0, name.find('@')));
    }
    ASSERT_EQ(pclose(pipe), 0) << command;
    EXPECT_EQ(exported, Names(DefExports()));
}
#endif

// The second names of the shared entries are the same functions, as a
// caller sees them: on Windows the header imports the functions, so their
// addresses are those in ZUXML.dll and not of stubs in the caller.
TEST(ExportTable, SharedNamesAreOneFunctionToTheCaller) {
    EXPECT_EQ(reinterpret_cast<void *>(&ZuXmlInit), reinterpret_cast<void *>(&ZuXmlSax2Init));
    EXPECT_EQ(reinterpret_cast<void *>(&ZuXmlCleanup), reinterpret_cast<void *>(&ZuXmlSax2Cleanup));
    EXPECT_EQ(reinterpret_cast<void *>(&ZuXmlReleaseDocument), reinterpret_cast<void *>(&ZuXmlReleaseSax2Parser));
}

} // namespace
