// The program as its users meet it: what it prints and how it ends.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/wait.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Result {
    int status;
    std::string out;
    std::string err;
};

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string scratch(const std::string& name) {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    return testing::TempDir() + test->name() + '.' + name;
}

Result rtti(const std::string& arguments) {
    const std::string command = std::string(RTTI_PROGRAM " ") + arguments + " >'" + scratch("out") +
                                "' 2>'" + scratch("err") + "'";
    const int status = std::system(command.c_str());
    Result result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(scratch("out")),
                  contentOf(scratch("err"))};
    std::remove(scratch("out").c_str());
    std::remove(scratch("err").c_str());
    return result;
}

std::string example(const std::string& name) { return EXAMPLE_TYPEFILES_DIR "/" + name + ".typ"; }

std::string fileOf(const std::string& bytes) {
    const std::string path = scratch("typ");
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

void expectOneLine(const std::string& text) {
    EXPECT_EQ(text.find('\n'), text.size() - 1) << text;
    EXPECT_THAT(text, StartsWith("rtti: "));
}

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

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
                          "  flags: 0x0\n"
                          "  base type: 4 \"\"\n"
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
                          "  flags: 0x0\n"
                          "  value encoding: 2-State\n"
                          "  value size: not recorded\n"
                          "  flattened constraints: none\n"
                          "\n");
}

TEST(RttiDump, ShowsATypeIdThatBuildsNoType) {
    const Result result = rtti("dump " + fileOf(oneRecord(0xA000000E)));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "type 0: builds no type (kind 0xA000000E)\n\n");
    EXPECT_EQ(result.err, "");
}

TEST(RttiDump, ReportsAKindThatThereIsNot) {
    const Result result = rtti("dump " + fileOf(oneRecord(0xA0000020)));
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
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("too short"));
}

TEST(RttiDump, RefusesAFileThatEndsInItsAddressTable) {
    const Result result = rtti("dump " + fileOf(oneRecord(0xA0000018).substr(0, 63)));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("too short for its 1 types"));
}

TEST(RttiDump, RefusesAFileWhoseRecordLiesOutside) {
    std::string bytes = oneRecord(0xA0000018);
    bytes[56] = 62; // The record's address, two bytes before the end of the file.
    const Result result = rtti("dump " + fileOf(bytes));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("read of 4 bytes at offset 62"));
}

TEST(RttiDump, RefusesAText) {
    const Result result = rtti("dump " + fileOf(std::string(500, 'x')));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("no type file"));
}

TEST(RttiDump, RefusesAFileOfZeros) {
    const Result result = rtti("dump " + fileOf(std::string(500, '\0')));
    EXPECT_EQ(result.status, 2);
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
    EXPECT_THAT(result.out, HasSubstr("\nrefers to:\n\ntype 4: packed array \"\"\n  flags: 0x0\n"));
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

} // namespace
