// `rtti diff` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// The ibex example with some of its text replaced; the caller's scratch file.
std::string changedExample(const std::string& script) {
    const std::string text = scratch("json"), file = scratch("changed.typ");
    const std::string command = std::string(RTTI_PROGRAM " dump --json ") + example("ibex_slang") +
                                " | sed '" + script + "' > '" + text + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(rtti("build '" + text + "' -o '" + file + "'").status, 0);
    return file;
}

TEST(RttiDiff, EndsWith0ForTheSameTypes) {
    const Result same = rtti("diff " + example("ibex_slang") + " " + example("ibex_slang"));
    EXPECT_EQ(same.status, 0);
    EXPECT_THAT(same.out, StartsWith("identical: "));
    EXPECT_EQ(same.err, "");
    const std::string file = changedExample("s/\"svTypeId\":20}/\"svTypeId\":2000}/");
    const Result renumbered = rtti("diff " + example("ibex_slang") + " " + file);
    EXPECT_EQ(renumbered.status, 0);
    EXPECT_THAT(renumbered.out, StartsWith("renumbered: "));
}

TEST(RttiDiff, EndsWith1ForOtherTypes) {
    const std::string file = changedExample("/\"id\":44,/s/\"si\":63/\"si\":47/");
    const Result changed = rtti("diff " + example("ibex_slang") + " " + file);
    EXPECT_EQ(changed.status, 1);
    EXPECT_THAT(changed.out,
                StartsWith("changed prim_secded_pkg::secded_72_64_t.data: 63 downto 0 -> "
                           "47 downto 0 (types 44 and 44)\nincompatible: "));
    EXPECT_EQ(changed.err, "");
}

TEST(RttiDiff, EndsWith1ForMoreTypes) {
    const std::string file = changedExample(
        "s/^\\]}/,{\"id\":294,\"kind\":\"string\",\"name\":\"more\",\"flags\":0}]}/");
    const Result more = rtti("diff " + example("ibex_slang") + " " + file);
    EXPECT_EQ(more.status, 1);
    EXPECT_THAT(more.out, StartsWith("added   type 294: string \"more\"\ncompatible: "));
    EXPECT_THAT(rtti("diff " + file + " " + example("ibex_slang")).out,
                StartsWith("removed type 294: string \"more\"\nincompatible: "));
}

TEST(RttiDiff, NamesAFileThatCannotBeUsed) {
    const std::string good = example("ieee_rti");
    const std::string damaged = fileOf(oneRecord(0xA0000020));
    for (const auto& [bad, status] : {std::pair(std::string("/nowhere/a.typ"), 2), {damaged, 1}}) {
        for (const std::string& files : {bad + " " + good, good + " " + bad}) {
            const Result result = rtti("diff " + files);
            EXPECT_EQ(result.status, status);
            EXPECT_EQ(result.out, "");
            expectOneLine(result.err);
            EXPECT_THAT(result.err, HasSubstr(bad));
        }
    }
    EXPECT_EQ(rtti("diff " + good).status, 2);
    EXPECT_EQ(rtti("diff --offset-b 1000000 " + good + " " + good).status, 1);
}

TEST(RttiDiff, ComparesDamagedFilesWhenForced) {
    const std::string damaged = fileOf(oneRecord(0xA0000020));
    const Result result = rtti("diff --force " + damaged + " " + damaged);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, StartsWith("identical: "));
    EXPECT_THAT(rtti("diff --force " + damaged + " " + example("ieee_rti")).out,
                StartsWith("removed type 0: no type\n"));
}

TEST(RttiDiff, FindsTypeFilesAtOffsets) {
    const std::string file = scratch("image"), plain = example("ieee_rti");
    const std::string command = std::string(RTTI_PROGRAM " dump --json ") + plain +
                                " | " RTTI_PROGRAM " build --offset 24 - -o '" + file + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(rtti("diff --offset-a 24 " + file + " " + plain).status, 0);
    EXPECT_EQ(rtti("diff --offset-b 24 " + plain + " " + file).status, 0);
    EXPECT_EQ(rtti("diff " + plain + " " + file).status, 1);
}

TEST(RttiDiff, PrintsJson) {
    const Result result =
        rtti("diff --json " + example("ibex_slang") + " " + example("ibex_vltree"));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out,
                StartsWith("{\"format\":\"HDL simulator type differences\",\"formatVersion\":1,"
                           "\"verdict\":\"incompatible\",\"rule\":\""));
    EXPECT_THAT(result.out, EndsWith("}}\n"));
}

TEST(RttiDiff, ComparesAnyTwoRealFiles) {
    const char* names[] = {"ibex_slang",  "ibex_vltree", "ieee_ghw",      "ieee_rti",
                           "neorv32_ghw", "neorv32_rti", "svkinds_slang", "svkinds_vltree",
                           "uvm_slang",   "vhkinds_ghw", "vhkinds_rti"};
    for (const std::string a : names) {
        for (const std::string b : names) {
            const Result result = rtti("diff " + example(a) + " " + example(b));
            EXPECT_EQ(result.status, a == b ? 0 : 1) << a << ' ' << b;
            EXPECT_EQ(result.err, "") << a << ' ' << b;
        }
    }
}

} // namespace
