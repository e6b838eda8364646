// `rtti dump` as its users meet it.

#include "tests/cli/RttiProgram.h"
#include "tests/support/BuildKind.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(RttiDump, PrintsEveryTypeInTheOrderOfTheIds) {
    const Result result = rtti("dump " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, StartsWith("type 0: packed array \"int\"\n"));
    EXPECT_EQ(count("\n" + result.out, "\ntype "), 104u);
    EXPECT_LT(result.out.find("\ntype 9:"), result.out.find("\ntype 10:"));
}

TEST(RttiDump, PrintsAllFieldsOfAType) {
    const Result result = rtti("dump --id 5 " + example("svkinds_slang"));
    EXPECT_EQ(result.out, "type 5: discrete enumeration \"kinds_pkg::enum_logic_e\"\n"
                          "  declaration:\n"
                          "    typedef enum logic [1:0] {\n"
                          "        L_0 = 2'h0,\n"
                          "        L_1 = 2'h1,\n"
                          "        L_X = 2'b1x,\n"
                          "        L_Z = 2'bzz\n"
                          "    } \\kinds_pkg::enum_logic_e ;\n"
                          "  flags: 0x0\n"
                          "  base type: 4 logic [1:0]\n"
                          "  literals: 4\n"
                          "    [0] \"L_0\" = 00 00\n"
                          "    [1] \"L_1\" = 01 00\n"
                          "    [2] \"L_X\" = 03 01\n"
                          "    [3] \"L_Z\" = 00 03\n"
                          "  constraints: none\n"
                          "  value encoding: 4-State\n"
                          "  value size: 2 bytes\n"
                          "  flattened constraints: (1 downto 0)\n"
                          "\n");
}

TEST(RttiDump, PrintsTheIdsThatAreAskedFor) {
    const Result result = rtti("dump --id 7 --id 3 " + example("svkinds_slang"));
    EXPECT_THAT(result.out, StartsWith("type 7: sequential enumeration \"bit\"\n"));
    EXPECT_THAT(result.out, HasSubstr("\ntype 3: sequential enumeration \"logic\"\n"));
    EXPECT_EQ(count("\n" + result.out, "\ntype "), 2u);
}

TEST(RttiDump, ShowsTheEncodingOfATypeThatIsAskedFirstHoweverOftenItIsShown) {
    const Result result = rtti("dump --id 170 --id 170 " + example("uvm_slang"));
    EXPECT_EQ(count(result.out, "\n  value encoding: 4-State\n"), 2u);
}

TEST(RttiDump, FiltersByKind) {
    EXPECT_EQ(count("\n" + rtti("dump --kind class " + example("uvm_slang")).out, "\ntype "), 739u);
    EXPECT_EQ(count("\n" + rtti("dump --kind STRUCT " + example("uvm_slang")).out, "\ntype "), 10u);
    EXPECT_EQ(count("\n" + rtti("dump --kind physical-type " + example("ieee_rti")).out, "\ntype "),
              1u);
}

TEST(RttiDump, FiltersByName) {
    const Result result =
        rtti("dump --name 'enum_*_e' --name '*enum_*_e' " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 2); // One pattern alone.
    const Result one = rtti("dump --name '*::enum_bit_e' " + example("svkinds_slang"));
    EXPECT_EQ(one.status, 0);
    EXPECT_EQ(count("\n" + one.out, "\ntype "), 2u);
    EXPECT_THAT(one.out, StartsWith("type 9: discrete enumeration \"kinds_pkg::enum_bit_e\"\n"));
}

TEST(RttiDump, TracesALoad) {
    const Result result = rtti("dump --trace --id 7 " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, " ===============================================  \n"
                          "**** Type Id  =  7   begin ****  \n"
                          " ** Sequential Enum   Type name =  bit  , flags =  0  **  \n"
                          "  Encoding:  2-State  \n"
                          "  Kind:  VLOG_BUILTIN_ENUM  \n"
                          "** Enumerator[ 0 ] =   0  \n"
                          "** Enumerator[ 1 ] =   1  \n"
                          "**  Size:  1  \n"
                          "**** Type Id  =  7   end ****  \n"
                          " ===============================================  \n");
}

TEST(RttiDump, FindsATypeFileAtAnOffset) {
    // Offsets in the file are absolute, so the records stay where they were.
    std::string bytes = oneRecord(0xA0000018);
    bytes += bytes.substr(0, 40);
    const Result result = rtti("dump --offset 64 " + fileOf(bytes));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "type 0: string \"abc\"\n"
                          "  declaration: typedef string abc;\n"
                          "  flags: 0x0\n"
                          "  value encoding: 2-State\n"
                          "  value size: not recorded\n"
                          "  flattened constraints: none\n"
                          "\n");
}

TEST(RttiDump, ShowsATypeIdThatBuildsNoType) {
    const Result result = rtti("dump --force " + fileOf(oneRecord(0xA000000E)));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "type 0: builds no type (kind 0xA000000E)\n\n");
    EXPECT_EQ(result.err, "");
}

TEST(RttiDump, ReportsAKindThatThereIsNot) {
    const Result result = rtti("dump --force " + fileOf(oneRecord(0xA0000020)));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "type 0: builds no type (kind 0xA0000020)\n\n");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("type 0: there is no kind 0xA0000020"));
}

TEST(RttiDump, RefusesAFileThatIsNotThere) {
    const Result result = rtti("dump /not/there.typ");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("/not/there.typ"));
}

TEST(RttiDump, BoundsTheMemoryThatItTakesByForce) {
    if (RTTITest::HAS_SANITIZERS)
        GTEST_SKIP() << "a sanitized program takes more address space than the bound";
    // Types that claim 200 million index types each, 0.8 GB, where 1 GB is allowed.
    TypeFileBuilder file;
    for (int i = 0; i < 2; ++i)
        file.record(0xA0000010, "a").u32(2).u32(0).i32(200000000).u32(0);
    const Result result = rtti("dump --force " + fileOf(file.image()));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("there is not enough memory"));
}

TEST(RttiDump, SaysThatMemoryIsNotEnough) {
    if (RTTITest::HAS_SANITIZERS)
        GTEST_SKIP() << "a sanitized program takes more address space than the limit";
    // A type that claims 300 million index types: 1.2 GB, where 1 GB is allowed.
    const std::string file = fileOf(
        TypeFileBuilder().record(0xA0000010, "a").u32(2).u32(0).i32(300000000).u32(0).image());
    const Result result = rttiWith("ulimit -v 1000000;", "dump --force " + file);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "rtti: there is not enough memory\n");
}

TEST(RttiDump, RefusesADirectory) {
    const Result result = rtti("dump " EXAMPLE_TYPEFILES_DIR);
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST(RttiDump, RefusesAFileShorterThanItsHeader) {
    const Result result = rtti("dump " + fileOf(oneRecord(0xA0000018).substr(0, 39)));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("too short"));
}

TEST(RttiDump, RefusesAFileThatEndsInItsAddressTable) {
    const Result result = rtti("dump " + fileOf(oneRecord(0xA0000018).substr(0, 63)));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("too short for its 1 type:"));
}

TEST(RttiDump, RefusesAFileWhoseRecordLiesOutside) {
    std::string bytes = oneRecord(0xA0000018);
    bytes[56] = 62; // The record's address, two bytes before the end of the file.
    const Result result = rtti("dump --force " + fileOf(bytes));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("read of 4 bytes at offset 62"));
}

TEST(RttiDump, RefusesAFileWithErrorsAndNamesTheFirst) {
    std::string bytes = oneRecord(0xA0000018);
    bytes[56] = 62; // The record's address, two bytes before the end of the file.
    const std::string file = fileOf(bytes);
    const Result result = rtti("dump " + file);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "rtti: " + file +
                  ": error record-outside-storage type 0 field \"address\" at 0x38: The record "
                  "begins at 0x3e, and the storage ends at 0x40. (see `rtti verify " +
                  file + "`; --force loads it anyway)\n");
}

TEST(RttiDump, RefusesAText) {
    const Result result = rtti("dump " + fileOf(std::string(500, 'x')));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("not a type file"));
}

TEST(RttiDump, RefusesAFileOfZeros) {
    const Result result = rtti("dump " + fileOf(std::string(500, '\0')));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("not a type file"));
}

TEST(RttiDump, ReportsAFileThatIsMarkedAsUnusable) {
    const Result result =
        rtti("dump " + fileOf(oneRecord(0xA0000018, "Brakel Ovat TYPE FILE 000")));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
}

TEST(RttiDump, RefusesAnIdThatTheFileDoesNotHave) {
    const Result result = rtti("dump --id 104 " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("--id 104: the file has 104 types"));
}

TEST(RttiDump, RefusesAKindThatThereIsNotAndListsThose) {
    const Result result = rtti("dump --kind strukt " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("packed struct"));
}

TEST(RttiDump, RefusesATraceOfAFilter) {
    EXPECT_EQ(rtti("dump --trace --kind class " + example("svkinds_slang")).status, 2);
}

TEST(RttiDump, SaysWhenItsOutputCannotBeWritten) {
    const std::string command = std::string(RTTI_PROGRAM " dump ") + example("svkinds_slang") +
                                " >/dev/full 2>'" + scratch("err") + "'";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 2);
    expectOneLine(contentOf(scratch("err")));
}

TEST(RttiDump, PrintsJsonOfTheTypesAskedFor) {
    const Result result = rtti("dump --ndjson --kind event " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(count(result.out, "\"kind\":\"event\""), count(result.out, "\"kind\":"));
    EXPECT_GE(count(result.out, "\"kind\":\"event\""), 1U);
}

TEST(RttiDump, RefusesTwoFormsAtOnce) {
    EXPECT_EQ(rtti("dump --json --ndjson " + example("ieee_rti")).status, 2);
    EXPECT_EQ(rtti("dump --json --trace " + example("ieee_rti")).status, 2);
    EXPECT_EQ(rtti("dump --json --format vhdl " + example("ieee_rti")).status, 2);
}

TEST(RttiDump, DeclaresTheTypesAskedForAndWhatTheyNeed) {
    const Result result = rtti("dump --format sv --id 53 " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, EndsWith("package kinds_pkg;\n"
                                     "    typedef logic [7:0] byte_t;\n"
                                     "    typedef byte_t q_t [$];\n"
                                     "endpackage\n"));
}

TEST(RttiDump, PrintsIdsAboveDeclarationsOnRequest) {
    const Result result = rtti("dump --format sv --ids --id 53 " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("    // type 15: typedef \"kinds_pkg::byte_t\"\n"
                                      "    typedef logic [7:0] byte_t;\n"
                                      "    // type 53: typedef \"kinds_pkg::q_t\"\n"
                                      "    typedef byte_t q_t [$];\n"));
    EXPECT_EQ(rtti("dump --ids " + example("svkinds_slang")).status, 2);
}

TEST(RttiDump, DeclaresAnArrayWithoutANameThatIsAskedFor) {
    const Result result = rtti("dump --format sv --id 52 " + example("svkinds_slang"));
    EXPECT_THAT(result.out, EndsWith("package types;\n"
                                     "    typedef kinds_pkg::byte_t type_52 [$];\n"
                                     "endpackage\n"));
}

TEST(RttiDump, DeclaresNothingForAKindWithoutType) {
    const Result result = rtti("dump --force --format vhdl --ids " + fileOf(oneRecord(0xA000000E)));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, EndsWith("package types is\n"
                                     "    -- type 0: builds no type\n"
                                     "end package types;\n"));
}

TEST(RttiDump, NamesTheLanguagesThatThereAre) {
    const Result result = rtti("dump --format ada " + example("ieee_rti"));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("{vhdl,sv}"));
}

} // namespace
