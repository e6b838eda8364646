// The program as its users meet it: what it prints and how it ends.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::string word(unsigned int value, int bytes = 4) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

/// A file of one type: record of the given kind at offset 40, address table at 56.
std::string oneRecord(unsigned int kind, const std::string& version = "TYPES 1") {
    std::string bytes = version + std::string(32 - version.size(), '\0') + word(1) + word(56);
    bytes += word(16) + word(kind) + "abc" + '\0' + word(0);
    return bytes + word(40) + word(0);
}

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
                  file + "`; --force loads it all the same)\n");
}

TEST(RttiDump, RefusesAText) {
    const Result result = rtti("dump " + fileOf(std::string(500, 'x')));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("no type file"));
}

TEST(RttiDump, RefusesAFileOfZeros) {
    const Result result = rtti("dump " + fileOf(std::string(500, '\0')));
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("no type file"));
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

TEST(RttiShow, PrintsATypeWhatItRefersToAndWhatRefersToIt) {
    const Result result = rtti("show " + example("svkinds_slang") + " 5");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, StartsWith("type 5: discrete enumeration"));
    EXPECT_THAT(result.out, HasSubstr("\nrefers to:\n\ntype 4: packed array logic [1:0]\n"
                                      "  declaration: typedef logic [1:0] type_4;\n"));
    EXPECT_THAT(result.out, EndsWith("\nreferred to by:\n\ntype 6: typedef "
                                     "\"kinds_pkg::enum_logic_e\"\n"));
}

TEST(RttiShow, RefusesAnIdThatTheFileDoesNotHave) {
    const Result result = rtti("show " + example("svkinds_slang") + " 104");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
}

TEST(RttiShow, RefusesAFileThatIsNotThere) {
    const Result result = rtti("show /not/there.typ 0");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST(RttiShow, RefusesAFileWithErrorsUnlessForced) {
    const std::string file = fileOf(oneRecord(0xA0000020));
    const Result result = rtti("show " + file + " 0");
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("kind-unknown type 0"));
    EXPECT_EQ(rtti("show --force " + file + " 0").status, 0);
}

TEST(RttiVerify, PrintsASummaryForAFileWithoutFindings) {
    const std::string file = example("svkinds_slang");
    const Result result = rtti("verify " + file);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, file + ": 0 errors, 0 warnings\n");
    EXPECT_EQ(result.err, "");
}

TEST(RttiVerify, PrintsALineForEveryFinding) {
    const std::string file = fileOf(oneRecord(0xA0000020));
    const Result result = rtti("verify " + file);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "error kind-unknown type 0 field \"kind\" at 0x2c: Found 0xa0000020, "
                          "expected a kind from 0xa0000003 to 0xa0000019.\n" +
                              file + ": 1 error, 0 warnings\n");
    EXPECT_EQ(result.err, "");
}

TEST(RttiVerify, FindsAWarningWithoutFailing) {
    // An event record: its last word, the event kind, is 7.
    std::string bytes = std::string("TYPES 1") + std::string(25, '\0') + word(1) + word(57);
    bytes += word(17) + word(0xA000000B) + '\0' + word(0) + word(7);
    const std::string file = fileOf(bytes + word(40) + word(0));
    const Result result = rtti("verify " + file);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "warning flavour-unknown type 0 field \"event kind\" at 0x35: Found 7, "
                          "expected 0 or 1.\n" +
                              file + ": 0 errors, 1 warning\n");
}

TEST(RttiVerify, PrintsJson) {
    const std::string file = fileOf(oneRecord(0xA0000020).substr(0, 63));
    const Result result = rtti("verify --json " + file);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "{\n"
                          "  \"format\": \"HDL simulator type file findings\",\n"
                          "  \"formatVersion\": 1,\n"
                          "  \"file\": \"" +
                              file +
                              "\",\n"
                              "  \"errors\": 1,\n"
                              "  \"warnings\": 0,\n"
                              "  \"findings\": [\n"
                              "    {\n"
                              "      \"severity\": \"error\",\n"
                              "      \"code\": \"table-outside-storage\",\n"
                              "      \"id\": null,\n"
                              "      \"field\": \"addressTableOffset\",\n"
                              "      \"offset\": 36,\n"
                              "      \"text\": \"The table of 1 type takes 8 bytes at 0x38, and "
                              "the storage ends at 0x3f.\"\n"
                              "    }\n"
                              "  ]\n"
                              "}\n");
}

TEST(RttiVerify, FindsATypeFileAtAnOffset) {
    std::string bytes = oneRecord(0xA0000018);
    bytes += bytes.substr(0, 40);
    EXPECT_EQ(rtti("verify --offset 64 " + fileOf(bytes)).status, 0);
    EXPECT_EQ(rtti("verify --offset 65 " + fileOf(bytes)).status, 1);
}

TEST(RttiVerify, RefusesAFileThatIsNotThere) {
    const Result result = rtti("verify /not/there.typ");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
}

TEST(RttiVerify, ShowsHelpWithAnExample) {
    const Result result = rtti("verify --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("Example:"));
    EXPECT_THAT(result.out, HasSubstr("--json"));
}

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

TEST(Rtti, ShowsHelpWithAnExample) {
    const Result program = rtti("--help");
    EXPECT_EQ(program.status, 0);
    EXPECT_THAT(program.out, HasSubstr("Example:"));
    const Result dump = rtti("dump --help");
    EXPECT_EQ(dump.status, 0);
    EXPECT_THAT(dump.out, HasSubstr("--trace"));
    EXPECT_THAT(dump.out, HasSubstr("Example:"));
}

TEST(Rtti, RefusesACallWithoutASubcommand) {
    const Result result = rtti("");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST(Rtti, RefusesAnUnknownOption) {
    const Result result = rtti("dump --colour " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

/// The text of a document with one type, whose fields are given.
std::string documentOf(const std::string& fields) {
    return R"({"types":[{"id":0,)" + fields + "}]}";
}

std::string textFileOf(const std::string& text) {
    const std::string path = scratch("json");
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

TEST(RttiBuild, MakesAFileWhoseDumpIsTheSameText) {
    const std::string text = EVERY_KIND_JSON;
    ASSERT_EQ(rtti("build " + text + " -o " + scratch("typ")).status, 0);
    const Result dump = rtti("dump --force --json " + scratch("typ"));
    EXPECT_EQ(dump.status, 0);
    EXPECT_EQ(dump.out, contentOf(text));
}

TEST(RttiBuild, MakesTheSameFileFromLines) {
    ASSERT_EQ(rtti("build " EVERY_KIND_JSON " -o " + scratch("typ")).status, 0);
    const Result lines = rtti("dump --force --ndjson " + scratch("typ"));
    EXPECT_EQ(count(lines.out, "\n"), 28U); // 27 types and the head
    ASSERT_EQ(
        rtti("build --ndjson " + textFileOf(lines.out) + " -o " + scratch("again.typ")).status, 0);
    EXPECT_EQ(contentOf(scratch("again.typ")), contentOf(scratch("typ")));
}

TEST(RttiBuild, KeepsAVersionThatIsNotUtf8) {
    const std::string text =
        textFileOf(R"({"version":{"hex":"56ff"},"types":[{"id":0,"kind":"string","name":"s"}]})");
    ASSERT_EQ(rtti("build " + text + " -o " + scratch("typ")).status, 0);
    EXPECT_THAT(contentOf(scratch("typ")), StartsWith(std::string("V\xFF\0", 3)));
    EXPECT_THAT(rtti("dump --force --json " + scratch("typ")).out,
                HasSubstr("\"version\":{\"hex\":\"56ff\"}"));
}

TEST(RttiBuild, RefusesAPartOfAFile) {
    for (const std::string choice : {"--id 19", "--kind 'file type'", "--name 'line'"}) {
        const Result part = rtti("dump --json " + choice + ' ' + example("ieee_rti"));
        EXPECT_THAT(part.out, HasSubstr("\"isPart\":true")) << choice;
        const Result build = rtti("build " + textFileOf(part.out) + " -o " + scratch("part.typ"));
        EXPECT_EQ(build.status, 1);
        EXPECT_THAT(build.err, HasSubstr("/isPart: this is a part of a file's types"));
    }
    EXPECT_THAT(rtti("dump --json " + example("ieee_rti")).out, Not(HasSubstr("isPart")));
}

class RealFiles : public testing::TestWithParam<const char*> {};

TEST_P(RealFiles, ComeBackFromJsonByteForByte) {
    const std::string file = example(GetParam());
    for (const std::string form : {"--json", "--ndjson"}) {
        const Result dump = rtti("dump " + form + ' ' + file);
        ASSERT_EQ(dump.status, 0);
        const Result build = rtti("build " + std::string(form == "--json" ? "" : form) + ' ' +
                                  textFileOf(dump.out) + " -o " + scratch("typ"));
        ASSERT_EQ(build.err, "");
        EXPECT_EQ(contentOf(scratch("typ")), contentOf(file));
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, RealFiles,
                         testing::Values("ibex_slang", "ibex_vltree", "ieee_ghw", "ieee_rti",
                                         "neorv32_ghw", "neorv32_rti", "svkinds_slang",
                                         "svkinds_vltree", "uvm_slang", "vhkinds_ghw",
                                         "vhkinds_rti"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST(RttiBuild, TakesOffsetAndImage) {
    const std::string text = textFileOf(documentOf(R"("kind":"string","name":"s")"));
    const std::string image = fileOf(std::string(200, 'x'));
    ASSERT_EQ(rtti("build " + text + " --offset 50 --image " + image + " -o " + scratch("out.typ"))
                  .status,
              0);
    const std::string made = contentOf(scratch("out.typ"));
    ASSERT_EQ(made.size(), 200U);
    EXPECT_EQ(made.substr(0, 56), std::string(50, 'x') + "Brakel");
    EXPECT_EQ(made.substr(50 + 40 + 14 + 8), std::string(200 - 112, 'x'));
    EXPECT_THAT(rtti("dump --offset 50 " + scratch("out.typ")).out,
                StartsWith("type 0: string \"s\"\n"));
}

TEST(RttiBuild, ReadsStandardInput) {
    ASSERT_EQ(rtti("build - -o " + scratch("typ") + " <" EVERY_KIND_JSON).status, 0);
    EXPECT_EQ(contentOf(scratch("typ")).substr(0, 6), "Brakel");
}

/// A document that is wrong in one place, and the message that says so.
struct WrongDocument {
    const char* name;
    std::string text;
    std::string place;
    std::string reason;
};

void PrintTo(const WrongDocument& wrong, std::ostream* out) { *out << wrong.name; }

class WrongDocuments : public testing::TestWithParam<WrongDocument> {};

TEST_P(WrongDocuments, EndWithThePlaceAndNoFile) {
    const std::string text = textFileOf(GetParam().text);
    std::remove(scratch("typ").c_str());
    const Result result = rtti("build " + text + " -o " + scratch("typ"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, StartsWith("rtti: " + text + ": " + GetParam().place + ": "));
    EXPECT_THAT(result.err, HasSubstr(GetParam().reason));
    EXPECT_FALSE(std::ifstream(scratch("typ")).good());
}

INSTANTIATE_TEST_SUITE_P(
    Build, WrongDocuments,
    testing::Values(
        WrongDocument{"NoJson", "{\"types\":[\n{]}", "line 2, column 2", "syntax error"},
        WrongDocument{"CutShort", "{\"types\":[", "line 1, column 11", "unexpected end"},
        WrongDocument{"NoUtf8", "{\"types\":[\"\xFF\"]}", "line 1, column 12", "UTF-8"},
        WrongDocument{"List", "[]", "the document", "must be an object"},
        WrongDocument{"NoTypes", "{}", "the document", "there is no \"types\""},
        WrongDocument{"TypesNoList", R"({"types":{}})", "/types", "must be a list"},
        WrongDocument{"OtherFormat", R"({"format":"x","types":[]})", "/format", "must be HDL"},
        WrongDocument{"OtherVersion", R"({"formatVersion":2,"types":[]})", "/formatVersion",
                      "must be 1"},
        WrongDocument{"PartThatIsNoBoolean", R"({"isPart":1,"types":[]})", "/isPart",
                      "must be true or false"},
        WrongDocument{"VersionThatIsNoText", R"({"version":7,"types":[]})", "/version",
                      R"(must be text, or {"hex")"},
        WrongDocument{"UnknownKey", R"({"colour":1,"types":[]})", "/colour", "no place"},
        WrongDocument{"LongVersion", R"({"version":"01234567890123456789012345678901","types":[]})",
                      "/version", "32 bytes"},
        WrongDocument{"TypeNoObject", R"({"types":[7]})", "/types/0", "must be an object"},
        WrongDocument{"NoId", R"({"types":[{"kind":"string","name":"s"}]})", "/types/0",
                      "there is no \"id\""},
        WrongDocument{"UnknownKind", documentOf(R"("kind":"matrix","name":"")"), "/types/0/kind",
                      "there is no kind \"matrix\""},
        WrongDocument{"NoType", documentOf(R"("kind":"none","kindCode":0)"), "/types/0/kind",
                      "an id without a type"},
        WrongDocument{"UnknownField", documentOf(R"("kind":"string","name":"","size":1)"),
                      "/types/0", "no place for \"size\""},
        WrongDocument{"KeyTwice", documentOf(R"("kind":"string","name":"","name":"b")"),
                      "/types/0/name", "twice"},
        WrongDocument{"NameWithZero", documentOf(R"("kind":"string","name":"a\u0000b")"),
                      "/types/0/name", "zero byte"},
        WrongDocument{"NameWithZeroInHex", documentOf(R"("kind":"string","name":{"hex":"00"})"),
                      "/types/0/name", "zero byte"},
        WrongDocument{"NameOfHalfABye", documentOf(R"("kind":"string","name":{"hex":"616"})"),
                      "/types/0/name", "two digits"},
        WrongDocument{"FlagsTooLarge",
                      documentOf(R"("kind":"string","name":"","flags":4294967296)"),
                      "/types/0/flags", "from 0 to 4294967295"},
        WrongDocument{"FractionalFlags", documentOf(R"("kind":"string","name":"","flags":1.5)"),
                      "/types/0/flags", "whole number"},
        WrongDocument{"RangeBelow",
                      documentOf(R"("kind":"integer","name":"","range":{"si":-2147483649,)"
                                 R"("ei":0,"dir":0})"),
                      "/types/0/range/si", "from -2147483648"},
        WrongDocument{"UnequalValues",
                      documentOf(R"("kind":"discreteEnum","name":"","baseType":0,"valueSize":1,)"
                                 R"("literals":[{"name":"A","value":"00"},)"
                                 R"({"name":"B","value":"0001"}])"),
                      "/types/0/literals/1/value", "has 2 bytes"},
        WrongDocument{"Overflow", documentOf(R"("kind":"real","name":"","flavour":0,"left":1e999)"),
                      "/types/0/left", "overflow"},
        WrongDocument{"FlavourTooLarge", documentOf(R"("kind":"event","name":"","flavour":2)"),
                      "/types/0/flavour", "at most 1"},
        WrongDocument{"FarReference",
                      documentOf(R"("kind":"record","name":"","recordKind":1,"members":[)"
                                 R"({"name":"m","type":1}])"),
                      "/types/0/members/0/type", "refers to the id 1"},
        WrongDocument{"IdTwice",
                      R"({"types":[{"id":0,"kind":"string","name":""},)"
                      R"({"id":0,"kind":"string","name":""}]})",
                      "/types/1/id", "two types"},
        WrongDocument{"Hole", R"({"types":[{"id":1,"kind":"string","name":""}]})", "/types",
                      "there is no type with this id"},
        WrongDocument{"Deep", documentOf(R"("kind":[[[[[[[[[[]]]]]]]]]])"),
                      "/types/0/kind/0/0/0/0/0/0", "so deep"},
        WrongDocument{"Escape", "{\"\x1b[2J\":1}", "line 1, column 3", "control character"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(RttiBuild, NamesTheLineOfAWrongOne) {
    const std::string good = "{\"id\":0,\"kind\":\"string\",\"name\":\"\"}\n\n";
    const std::string text = textFileOf(good + "{\"id\":1,\"kind\":\"string\"}\n");
    const Result result = rtti("build --ndjson " + text + " -o " + scratch("typ"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "rtti: " + text + ": line 3, type: there is no \"name\"\n");
    const std::string wrongName = textFileOf(good + R"({"id":1,"kind":"string","name":3})");
    EXPECT_THAT(rtti("build --ndjson " + wrongName + " -o " + scratch("typ")).err,
                HasSubstr(": line 3, type/name: must be text"));
    const std::string far = textFileOf(R"({"id":0,"kind":"typedef","name":"","dataType":5})");
    EXPECT_THAT(rtti("build --ndjson " + far + " -o " + scratch("typ")).err,
                HasSubstr(": line 1, type/dataType: refers to the id 5"));
    const std::string other = textFileOf(good + "{\"id\":1 \"kind\":\"string\"}\n");
    EXPECT_THAT(rtti("build --ndjson " + other + " -o " + scratch("typ")).err,
                StartsWith("rtti: " + other + ": line 3, column "));
}

TEST(RttiBuild, EndsWith2WhereNothingCanBeReadOrWritten) {
    EXPECT_EQ(rtti("build /nowhere/types.json -o " + scratch("typ")).status, 2);
    EXPECT_EQ(rtti("build / -o " + scratch("typ")).status, 2);
    EXPECT_EQ(rtti("build " EVERY_KIND_JSON " -o /nowhere/types.typ").status, 2);
    EXPECT_EQ(rtti("build " EVERY_KIND_JSON " -o /dev/null").status, 2);
    EXPECT_EQ(rtti("build " EVERY_KIND_JSON).status, 2);
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

TEST(RttiAnnotate, EndsWithOneForAnErrorAmongWhatItShows) {
    EXPECT_EQ(rtti("annotate " + example("ieee_rti")).status, 0);
    EXPECT_EQ(rtti("annotate " + example("ieee_rti") + " 45").status, 0);
    const std::string damaged = fileOf(oneRecord(0xA0000040));
    const Result result = rtti("annotate " + damaged);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("            ^ error kind-unknown, kind: Found 0xa0000040"));
    EXPECT_EQ(rtti("annotate " + damaged + " 0").status, 1);
}

TEST(RttiAnnotate, EndsWithTwoForWhatIsNotThere) {
    const Result noType = rtti("annotate " + example("ieee_rti") + " 46");
    EXPECT_EQ(noType.status, 2);
    EXPECT_THAT(noType.err, HasSubstr("TYPE 46: the file has 46 types"));
    expectOneLine(noType.err);
    const Result noFile = rtti("annotate /not/there.typ");
    EXPECT_EQ(noFile.status, 2);
    expectOneLine(noFile.err);
}

TEST(RttiAnnotate, ShowsAFileThatIsNone) {
    const Result result = rtti("annotate " + fileOf("short"));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("header-outside-storage"));
    EXPECT_EQ(rtti("annotate --json " + fileOf("short")).status, 1);
}

TEST(RttiAnnotate, FindsATypeFileInsideAStorage) {
    const std::string file = scratch("storage");
    const std::string json = fileOf(rtti("dump --json " + example("ieee_rti")).out);
    ASSERT_EQ(rtti("build --offset 64 -o " + file + ' ' + json).status, 0);
    const Result result = rtti("annotate --offset 64 " + file + " 0");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("type 0 at 0x68: sequential enumeration \"boolean\""));
}

TEST(RttiHtml, WritesAPageThatIsThereAsAWhole) {
    const std::string page = scratch("html");
    const Result result = rtti("html " + example("ieee_rti") + " -o " + page);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(contentOf(page), StartsWith("<!DOCTYPE html>\n"));
    EXPECT_THAT(contentOf(page), EndsWith("</html>\n"));
    EXPECT_THAT(contentOf(page), HasSubstr("<title>ieee_rti.typ</title>"));
}

TEST(RttiHtml, WritesNoPageOfAFaultyFileUnlessItIsForced) {
    const std::string page = scratch("html");
    const std::string damaged = fileOf(oneRecord(0xA0000040));
    const Result refused = rtti("html " + damaged + " -o " + page);
    EXPECT_EQ(refused.status, 1);
    expectOneLine(refused.err);
    EXPECT_EQ(contentOf(page), "");
    EXPECT_EQ(rtti("html --force " + damaged + " -o " + page).status, 0);
    EXPECT_THAT(contentOf(page), HasSubstr("class=\"details\">[null]"));
}

TEST(RttiHtml, EndsWithTwoWhereThePageCannotBeWritten) {
    const Result result = rtti("html " + example("ieee_rti") + " -o /not/there.html");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("/not/there.html"));
    expectOneLine(result.err);
    EXPECT_EQ(rtti("html " + example("ieee_rti")).status, 2);
}

} // namespace
