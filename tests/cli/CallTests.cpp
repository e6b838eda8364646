// What all subcommands have in common: how a call is read, how it ends, and what --help says.

#include "tests/cli/RttiProgram.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace {

using testing::AnyOf;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string fileWithVersion(const std::string& version) {
    return TypeFileBuilder().version(version).string("s").image();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream in(text);
    for (std::string word; in >> word;) {
        if (word != "\\") // Goes on in the next line.
            words.push_back(word);
    }
    return words;
}

std::vector<std::string> subcommands() {
    std::vector<std::string> names;
    bool isList = false;
    for (const std::string& line : linesOf(rttiWith("COLUMNS=100", "--help").out)) {
        isList = line == "Subcommands:" || (isList && !line.empty());
        if (isList && line.front() == ' ')
            names.push_back(wordsOf(line).front());
    }
    return names;
}

TEST(Call, OfAnUnknownSubcommandNamesItAndTheNearest) {
    EXPECT_EQ(rtti("dmp F").err,
              "rtti: there is no subcommand \"dmp\"; the nearest is \"dump\" (see rtti --help)\n");
    EXPECT_THAT(rtti("foo").err, HasSubstr("no subcommand \"foo\"; the nearest is \""));
    EXPECT_THAT(rtti("anotate F").err, HasSubstr("the nearest is \"annotate\""));
    EXPECT_EQ(rtti("foo").status, 2);
}

TEST(Call, WithoutASubcommandIsRefused) {
    const Result result = rtti("");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST(Call, WithAnUnknownOptionIsRefused) {
    const Result result = rtti("dump --colour " + example("svkinds_slang"));
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST(Call, ForTheVersionPrintsIt) {
    const Result result = rtti("--version");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, testing::MatchesRegex("rtti [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Call, ThatIsWrongPointsToTheHelpOfItsSubcommand) {
    EXPECT_THAT(rtti("show").err, EndsWith("(see rtti show --help)\n"));
    EXPECT_THAT(rtti("dump --nothing F").err, EndsWith("(see rtti dump --help)\n"));
    EXPECT_THAT(rtti("leaves " + example("ieee_rti") + " 46").err,
                EndsWith("(see rtti leaves --help)\n"));
    EXPECT_THAT(rtti("").err, EndsWith("(see rtti --help)\n"));
}

TEST(Call, TakesNoNumberBelowZero) {
    const std::string file = example("ieee_rti");
    for (const std::string& call :
         {"dump --offset -1 " + file, "verify --offset=-1 " + file, "annotate --offset -1 " + file,
          "diff --offset-a -1 " + file + ' ' + file,
          std::string("build --offset -1 - -o /nowhere/x"), "tree --depth -1 " + file + " 1",
          "graph --depth -1 " + file + " 1", "stats --top -1 " + file,
          "html --offset -1 -o /nowhere/x " + file}) {
        const Result result = rtti(call + " </dev/null");
        EXPECT_EQ(result.status, 2) << call;
        expectOneLine(result.err);
        EXPECT_THAT(result.err, HasSubstr("-1 is not a whole number of 0 or more")) << call;
    }
    EXPECT_THAT(rtti("dump --offset 18446744073709551616 " + file).err, HasSubstr("is above"));
    EXPECT_THAT(rtti("stats --top 4294967296 " + file).err, HasSubstr("is above 4294967295"));
    EXPECT_EQ(rtti("dump --offset 0x0 " + file).status, 0);
}

TEST(Call, TakesAMinusForStandardInputAndOutput) {
    const std::string file = example("ieee_rti");
    EXPECT_EQ(rtti("stats - <" + file).out, rtti("stats " + file).out);
    EXPECT_EQ(rtti("annotate - 19 <" + file).out, rtti("annotate " + file + " 19").out);
    EXPECT_EQ(rtti("verify - <" + file).out, "standard input: 0 errors, 0 warnings\n");
    EXPECT_EQ(rtti("graph -o - " + file).out, rtti("graph " + file).out);
    EXPECT_THAT(rtti("html -o - " + file).out, EndsWith("</html>\n"));
    ASSERT_EQ(rtti("dump --json " + file + " >'" + scratch("json") + '\'').status, 0);
}

TEST(Call, BuildsToStandardOutput) {
    const std::string file = example("ieee_rti");
    const std::string json = fileOf(rtti("dump --json " + file).out);
    EXPECT_EQ(rtti("build -o - " + json).out, contentOf(file));
    std::FILE* const image = std::fopen(scratch("image").c_str(), "w");
    std::fputs("0123456789", image);
    std::fclose(image);
    const std::string whole =
        rtti("build -o - --offset 8 --image '" + scratch("image") + "' " + json).out;
    EXPECT_THAT(whole, StartsWith("01234567Brakel"));
    EXPECT_EQ(contentOf("-"), "");
}

TEST(Call, WhoseReaderGoesEndsQuietly) {
    const std::string command = "bash -c 'trap \"\" PIPE; " RTTI_PROGRAM " dump " +
                                example("uvm_slang") + " 2>\"" + scratch("err") +
                                "\" | head -n 1; exit ${PIPESTATUS[0]}' >/dev/null";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 128 + SIGPIPE);
    EXPECT_EQ(contentOf(scratch("err")), "");
}

TEST(Call, ColorsWhenItIsToldTo) {
    const std::string arguments = "show " + example("svkinds_slang") + " 70";
    const std::string plain = rtti(arguments).out;
    const std::string colored = rttiOnTerminal(OnTerminal::OUTPUT, "", arguments).out;
    EXPECT_NE(colored, plain);
    EXPECT_EQ(rtti(arguments + " --color always").out, colored);
    EXPECT_EQ(rttiWith("NO_COLOR=1", arguments + " --color=always").out, colored);
    EXPECT_EQ(rtti(arguments + " --color auto").out, plain);
    EXPECT_EQ(rttiOnTerminal(OnTerminal::OUTPUT, "", arguments + " --color never").out, plain);
    EXPECT_THAT(rtti(arguments + " --color blue").err, HasSubstr("{auto,always,never}"));
}

TEST(Help, OfTheProgramAndOfADumpHasAnExample) {
    const Result program = rtti("--help");
    EXPECT_EQ(program.status, 0);
    EXPECT_THAT(program.out, HasSubstr("Example:"));
    const Result dump = rtti("dump --help");
    EXPECT_EQ(dump.status, 0);
    EXPECT_THAT(dump.out, HasSubstr("--trace"));
    EXPECT_THAT(dump.out, HasSubstr("Example:"));
}

TEST(Help, BreaksNoWordAt60Columns) {
    for (const std::string& subcommand : subcommands()) {
        const std::string wide = rttiWith("COLUMNS=100", subcommand + " --help").out;
        const std::string narrow = rttiWith("COLUMNS=60", subcommand + " --help").out;
        EXPECT_EQ(wordsOf(narrow), wordsOf(wide)) << subcommand;
        for (const std::string& line : linesOf(narrow))
            EXPECT_LE(line.size(), 60u) << subcommand << ": " << line;
    }
}

TEST(Help, OfEverySubcommandHasAnExampleAndTheExitStatuses) {
    const std::string table =
        "\nExit status:\n"
        "  0  done\n"
        "  1  the file has faults, the files differ, or something was not kept\n"
        "  2  the call is wrong, or a file cannot be read or written\n";
    std::vector<std::string> calls = subcommands();
    EXPECT_GE(calls.size(), 12u);
    calls.emplace_back("");
    for (const std::string& call : calls) {
        const std::string help = rtti(call + " --help").out;
        EXPECT_THAT(help, EndsWith(table)) << call;
        EXPECT_THAT(help, AllOf(ContainsRegex("\nExamples?:\n"), HasSubstr("  rtti " + call)))
            << call;
    }
}

TEST(ExitStatus, OfEverySubcommandIs1ForATruncatedFile) {
    const std::string file = fileOf(contentOf(example("ieee_rti")).substr(0, 3000));
    for (const std::string& call :
         {"dump " + file, "dump --force " + file, "show " + file + " 1", "tree " + file + " 1",
          "leaves " + file + " 1", "uses " + file + " 1", "stats " + file, "graph " + file,
          "diff " + file + ' ' + example("ieee_rti"), "annotate " + file,
          "html -o /nowhere/x " + file, "verify " + file})
        EXPECT_EQ(rtti(call).status, 1) << call;
}

TEST(Force, OpensAFileWhoseVersionIsNoText) {
    const std::string file = fileOf(fileWithVersion("\x01\x02\xff"));
    EXPECT_EQ(rtti("dump " + file).status, 1);
    const Result forced = rtti("dump --force " + file);
    EXPECT_EQ(forced.status, 0);
    EXPECT_THAT(forced.out, StartsWith("type 0: string \"s\"\n"));
    const Result unended = rtti("dump --force " + fileOf(fileWithVersion(std::string(32, 'v'))));
    EXPECT_THAT(unended.out, StartsWith("type 0: string \"s\"\n"));
    for (const std::string form : {"--json", "--ndjson"})
        EXPECT_EQ(rtti("dump --force " + form + ' ' + file).status, 0) << form;
}

TEST(Force, RefusesAHeaderThatClaimsMoreTypesThanTheFileHolds) {
    const std::string file =
        fileOf(TypeFileBuilder().string("s").count(0xFFFFFFFF).image()); // 64 GB of pointers.
    for (const std::string call :
         {"dump", "dump --json", "dump --format sv", "dump --format vhdl", "stats", "graph",
          "html -o /nowhere/x", "diff " EXAMPLE_TYPEFILES_DIR "/ieee_rti.typ",
          "translate --to python -o /nowhere/x"}) {
        const Result result = rtti(call + " --force " + file);
        EXPECT_EQ(result.status, 1) << call;
        expectOneLine(result.err);
        EXPECT_THAT(result.err, HasSubstr("too short for its 4294967295 types: ")) << call;
    }
    for (const std::string call : {"show", "tree", "leaves", "uses", "graph"})
        EXPECT_EQ(rtti(call + " --force " + file + " 0").err, rtti("stats " + file).err) << call;
}

TEST(Force, OpensAFileThatIsMarkedAsUnusable) {
    const std::string file = fileOf(fileWithVersion("Brakel Ovat TYPE FILE 000"));
    EXPECT_EQ(rtti("stats " + file).status, 1);
    const Result forced = rtti("stats --force " + file); // The library loads no type of it.
    EXPECT_EQ(forced.status, 0);
    EXPECT_THAT(forced.out, HasSubstr("\n0 types in 0 bytes"));
}

/// A type file with an array "a" of twenty dimensions, the last of which has a bound.
std::string longArray(const std::string& name, int lastBound) {
    std::string ranges, indexes;
    for (int i = 0; i < 20; ++i) {
        const std::string comma = i == 0 ? "" : ",";
        const int bound = i < 19 ? i : lastBound;
        ranges += comma + R"({"si":)" + std::to_string(bound) + R"(,"ei":0,"dir":0})";
        indexes += comma + '0';
    }
    const std::string json = fileOf(
        R"({"types":[{"id":0,"kind":"integer","name":"i","range":{"si":0,"ei":7,"dir":1}},)"
        R"({"id":1,"kind":"array","name":"a","arrayKind":"VHDL_ARRAY","elementType":0,"indexTypes":[)" +
        indexes + R"(],"constraints":[)" + ranges + "]}]}");
    const std::string file = scratch(name);
    EXPECT_EQ(rtti("build " + json + " -o " + file).err, "");
    return file;
}

TEST(All, ShowsLongListsOfRangesWholeInEverySubcommand) {
    const std::string file = longArray("long.typ", 100), other = longArray("other.typ", 200);
    for (const std::string& call : {"dump " + file, "show " + file + " 1", "tree " + file + " 1",
                                    "leaves " + file + " 1", "diff " + file + ' ' + other}) {
        const std::string part = call.substr(0, call.find(' '));
        const auto shown = [&](const std::string& text) { // Without the declaration.
            return rtti(text + " | grep -v '^  *declaration:'").out;
        };
        EXPECT_THAT(shown(call), AnyOf(HasSubstr(" ... 20 in all"), HasSubstr("from [19] on")));
        EXPECT_THAT(shown(call), Not(HasSubstr("15 downto 0"))) << part;
        EXPECT_THAT(shown(call + " --all"), HasSubstr("15 downto 0")) << part;
        EXPECT_THAT(shown(call + " --all"), Not(HasSubstr(" in all"))) << part;
    }
}

TEST(TypeName, StandsForItsIdEverywhere) {
    const std::string file = example("ieee_rti"); // Type 19 is "line".
    for (const std::string call : {"show", "tree", "leaves", "uses", "uses --all", "graph",
                                   "annotate", "tree --json", "graph --format json"}) {
        const Result byName = rtti(call + ' ' + file + " line");
        EXPECT_EQ(byName.status, 0) << call;
        EXPECT_EQ(byName.out, rtti(call + ' ' + file + " 19").out) << call;
    }
    EXPECT_EQ(rtti("dump --id line " + file).out, rtti("dump --id 19 " + file).out);
}

TEST(TypeName, OfATypedefAndItsTypeIsTheTypedef) {
    const std::string file = example("ibex_slang");
    EXPECT_EQ(rtti("show " + file + " ibex_pkg::md_op_e").out, rtti("show " + file + " 117").out);
}

TEST(TypeName, OfSeveralTypesListsThemWithTheirIds) {
    const std::string json = fileOf(
        R"({"types":[{"id":0,"kind":"string","name":"s"},{"id":1,"kind":"string","name":""},)"
        R"({"id":2,"kind":"chandle","name":"s"}]})");
    ASSERT_EQ(rtti("build " + json + " -o " + scratch("two.typ")).status, 0);
    const Result result = rtti("show " + scratch("two.typ") + " s");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "rtti: TYPE s: 2 types have this name; give an id: 0 (string), "
                          "2 (chandle) (see rtti show --help)\n");
}

TEST(TypeName, ThatNoTypeHasIsAWrongCall) {
    const Result result = rtti("uses " + example("ieee_rti") + " lines");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("TYPE lines: no type has this name"));
    expectOneLine(result.err);
}

/// The subcommands that answer questions about one type.
class TypeQueries : public testing::TestWithParam<const char*> {};

TEST_P(TypeQueries, EndWith2ForAnIdThatTheFileDoesNotHave) {
    const Result result = rtti(std::string(GetParam()) + " " + example("ieee_rti") + " 46");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("TYPE 46: the file has 46 types"));
}

TEST_P(TypeQueries, EndWith2ForTwoFormsAtOnce) {
    const Result result =
        rtti(std::string(GetParam()) + " --json --ndjson " + example("ieee_rti") + " 1");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST_P(TypeQueries, EndWith1ForAFileWithErrorsUnlessForced) {
    std::string bytes = contentOf(example("ieee_rti"));
    bytes[40] = '\x7F'; // The size of the first record now ends within the second.
    const std::string call = std::string(GetParam()) + " " + fileOf(bytes) + " 0";
    EXPECT_EQ(rtti(call).status, 1);
    EXPECT_EQ(rtti(call + " --force").status, 0);
}

INSTANTIATE_TEST_SUITE_P(Subcommands, TypeQueries, testing::Values("tree", "leaves", "uses"),
                         [](const auto& tested) { return std::string(tested.param); });

} // namespace
