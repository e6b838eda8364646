// `rtti import` as its users meet it: files of all kinds, damaged ones, and front ends that it
// starts.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// What front ends wrote, as an example.
std::vector<std::string> examples() {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(EXAMPLE_DUMP_DIR)) {
        if (entry.path().extension() != ".md")
            found.push_back(entry.path().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// The path of what a front end wrote.
std::string dump(const std::string& name) { return IMPORT_DATA_DIR "/" + name; }

std::string tree(const std::string& release) {
    return dump("verilator/kinds-" + release + ".tree");
}

/// A tree whose package declares the type `t`, eight bits.
std::string byteTree(const std::string& package) {
    return "Verilator Tree Dump (format 0x3900) from <e0> to <e9>\n"
           "     NETLIST 0x1 {a0aa}  $root [1ps/1ps]\n"
           "    1: PACKAGE 0x6 {c1aj}  " +
           package +
           "  L3 [LIB] [1ps]\n"
           "    1:2: TYPEDEF 0x7 {c2aj} @dt=0xa@(w8)  t -> BASICDTYPE 0xa {c2aj} @dt=this@(w8)\n"
           "    3: TYPETABLE 0x2 {a0aa}\n"
           "\t\t logic  -> BASICDTYPE 0x3 {a0aa}\n"
           "    3:1: BASICDTYPE 0xa {c2aj} @dt=this@(w8)  logic kwd=logic range=[7:0]\n"
           "    3: CONSTPOOL 0x4 {a0aa}\n"
           "    3:1: MODULE 0x5 {a0aa}  @CONST-POOL@  L0 [NONE]\n";
}

/// The types that `t` needs: the indices of the array are of the type int, and that is bits.
const std::string BYTE_TYPES = "sequential enumeration \"logic\"\n"
                               "sequential enumeration \"bit\"\n"
                               "packed array \"int\"\n"
                               "packed array logic [7:0]\n";

/// The names of the types of a file, a line each, sorted by their ids.
std::string names(const std::string& file) {
    const std::string text = "\n" + rtti("dump " + file).out;
    std::string found;
    for (std::size_t at = text.find("\ntype "); at != std::string::npos;
         at = text.find("\ntype ", at + 1)) {
        const std::size_t colon = text.find(": ", at) + 2;
        found += text.substr(colon, text.find('\n', colon) - colon) + '\n';
    }
    return found;
}

/// Imports into a file of the running test; expects success.
std::string imported(const std::string& arguments, const std::string& name = "typ") {
    std::string file = scratch(name);
    const Result result = rtti("import " + arguments + " -o '" + file + "'");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    return file;
}

/// Expects one line on standard error, exit status 2, and that nothing was written.
void expectRefusal(const std::string& arguments, const std::string& message) {
    const std::string file = scratch("unwritten");
    const Result result = rtti("import " + arguments + " -o '" + file + "'");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr(message));
    EXPECT_FALSE(fs::remove(file));
}

void expectSoundImport(const std::string& path) {
    SCOPED_TRACE(path);
    const std::string file = imported(path);
    const Result verified = rtti("verify " + file);
    EXPECT_EQ(verified.status, 0);
    EXPECT_THAT(verified.out, EndsWith("0 errors, 0 warnings\n"));
    EXPECT_EQ(contentOf(file), contentOf(imported(path, "again")));
}

/// A path as a name of a case.
std::string nameOf(std::string path) {
    for (char& letter : path)
        letter = std::isalnum(letter) != 0 ? letter : '_';
    return path;
}

class RttiImportSample : public testing::TestWithParam<const char*> {};

TEST_P(RttiImportSample, PassesTheVerifierAndIsTheSameOnEveryRun) {
    expectSoundImport(dump(GetParam()));
}

class RttiImportDesign : public testing::TestWithParam<const char*> {};

/// The expected types and notes have been read against the designs, `kinds` and `more`.
TEST_P(RttiImportDesign, GivesTheTypesAndNotesThatItsDeclarationsAskFor) {
    const std::string sample = dump(GetParam());
    const std::string file = scratch("typ");
    std::string notes = rtti("import " + sample + " -o '" + file + "'").err;
    for (std::size_t at; (at = notes.find(IMPORT_DATA_DIR "/")) != std::string::npos;)
        notes.erase(at, sizeof IMPORT_DATA_DIR);
    EXPECT_EQ(notes + rtti("dump " + file).out,
              contentOf(dump("expected/" + fs::path(sample).filename().string() + ".txt")));
}

INSTANTIATE_TEST_SUITE_P(, RttiImportDesign,
                         testing::Values("verilator/kinds-5.048.tree", "verilator/more-5.048.tree",
                                         "ghdl/kinds-2.0.ghw", "ghdl/kinds-2.0.rti"),
                         [](const auto& sample) { return nameOf(sample.param); });

TEST(RttiImport, TakesTheExamples) {
    EXPECT_GE(examples().size(), 22u);
    for (const std::string& path : examples())
        expectSoundImport(path);
}

INSTANTIATE_TEST_SUITE_P(, RttiImportSample,
                         testing::Values("verilator/kinds-5.006.tree", "verilator/kinds-5.032.tree",
                                         "verilator/kinds-5.048.tree", "verilator/more-5.048.tree",
                                         "ghdl/kinds-2.0.ghw", "ghdl/kinds-5.0.ghw",
                                         "ghdl/kinds-6.0.ghw", "ghdl/kinds-2.0.rti",
                                         "ghdl/kinds-5.0.rti", "ghdl/kinds-6.0.rti"),
                         [](const auto& sample) { return nameOf(sample.param); });

TEST(RttiImport, FindsTheSameTypesInTheTreesOf5032And5048) {
    const Result result =
        rtti("diff " + imported(tree("5.032"), "a") + " " + imported(tree("5.048"), "b"));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, StartsWith("identical: "));
}

// 5.006 keeps the class with parameters besides its specialisation; the virtual interface is
// behind `ifndef NOVIF, since 5.006 cannot read it.
TEST(RttiImport, FindsOneMoreClassInTheTreeOf5006) {
    const Result result =
        rtti("diff " + imported(tree("5.006"), "a") + " " + imported(tree("5.048"), "b"));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr(": class \"p::base\"\n"));
    EXPECT_THAT(result.out, HasSubstr(": chandle \"virtual interface bus_if\"\n"));
    EXPECT_THAT(result.out, HasSubstr(" 1 removed, 0 changed, 0 containing changed ones, 1 added"));
}

/// What rtti diff says of the types in a dump of a release of GHDL and in that of a later one.
std::string ghdlDifferences(const std::string& earlier, const std::string& later) {
    return rtti("diff " + imported(dump("ghdl/kinds-" + earlier), "a") + " " +
                imported(dump("ghdl/kinds-" + later), "b"))
        .out;
}

TEST(RttiImport, FindsTheSameTypesInTheWavesOfGhdlBut60HasNoSubtypeThatAddsNothing) {
    EXPECT_THAT(ghdlDifferences("2.0.ghw", "5.0.ghw"), StartsWith("identical: "));
    const std::string found = ghdlDifferences("5.0.ghw", "6.0.ghw");
    EXPECT_THAT(found, StartsWith("removed type 34: typedef \"res\"\nincompatible: "));
    EXPECT_THAT(found, HasSubstr(" 1 removed, 0 changed, 0 containing changed ones, 0 added"));
}

TEST(RttiImport, FindsTheTypesOfPackageBodiesAndNat32InListingsOfLaterGhdl) {
    const std::string found = ghdlDifferences("2.0.rti", "5.0.rti");
    EXPECT_THAT(found, HasSubstr("\"logic_ux01_table\"\n")); // Of the body of std_logic_1164.
    EXPECT_THAT(found, HasSubstr(" 0 removed, 0 changed, 0 containing changed ones, 13 added"));
    EXPECT_THAT(ghdlDifferences("5.0.rti", "6.0.rti"),
                StartsWith("added   type 24: integer \"nat32\"\ncompatible: "));
}

TEST(RttiImport, MergesFilesAndKeepsOneOfEqualTypesWithoutNames) {
    const std::string files =
        fileNamed("a.tree", byteTree("a")) + " " + fileNamed("b.tree", byteTree("b"));
    EXPECT_EQ(names(imported(files)), BYTE_TYPES + "typedef \"a::t\"\ntypedef \"b::t\"\n");
}

TEST(RttiImport, MakesOfAFileGivenTwiceWhatItMakesOfItOnce) {
    EXPECT_EQ(contentOf(imported(tree("5.048"), "once")),
              contentOf(imported(tree("5.048") + " " + tree("5.048"), "twice")));
}

TEST(RttiImport, MergesVhdlAndSystemVerilog) {
    const std::string all =
        names(imported(dump("ghdl/kinds-6.0.rti") + " " + fileNamed("a.tree", byteTree("a"))));
    EXPECT_THAT(all, HasSubstr("\"std_ulogic\"\n"));
    EXPECT_THAT(all, HasSubstr("typedef \"a::t\"\n"));
}

TEST(RttiImport, TellsTheFormatByTheContentAndNotByTheName) {
    const std::string wave = contentOf(dump("ghdl/kinds-5.0.ghw"));
    EXPECT_EQ(contentOf(imported(fileNamed("x.tree", wave), "a")),
              contentOf(imported(dump("ghdl/kinds-5.0.ghw"), "b")));
    EXPECT_EQ(names(imported(fileNamed("x.ghw", byteTree("p")), "c")),
              BYTE_TYPES + "typedef \"p::t\"\n");
}

TEST(RttiImport, TakesTheFormatThatFromNames) {
    EXPECT_EQ(contentOf(imported("--from verilator-tree " + tree("5.006"), "a")),
              contentOf(imported(tree("5.006"), "b")));
    expectRefusal("--from ghw " + tree("5.006"), "offset 1: not a GHW file");
    expectRefusal("--from xml " + tree("5.006"), "--from");
}

TEST(RttiImport, WritesTheJsonOfTheFileThatItWouldWrite) {
    const Result json = rtti("import --json " + tree("5.032"));
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.out, rtti("dump --json " + imported(tree("5.032"))).out);
    EXPECT_EQ(json.out, contentOf(imported("--json " + tree("5.032"), "json")));
}

TEST(RttiImport, TakesAPackageAndWhatItNeeds) {
    const std::string all = names(imported("--package p " + tree("5.048")));
    EXPECT_THAT(all, HasSubstr("packed struct \"p::pk_t\"\n"));
    EXPECT_THAT(all, HasSubstr("class \"std::mailbox__Tz3\"\n")); // A member of p::derived.
    EXPECT_THAT(all, Not(HasSubstr("loc_t")));
    expectRefusal("--package q " + tree("5.048"), "no types of a package q");
}

TEST(RttiImport, TakesEveryPackageThatIsNamed) {
    const std::string all =
        names(imported("--package sub__Tz1 --package sub__Tz2_W5 " + tree("5.006")));
    EXPECT_EQ(count(all, "\npacked struct \"sub__Tz1::loc_t\"\n"), 1u);
    EXPECT_EQ(count(all, "\npacked struct \"sub__Tz2_W5::loc_t\"\n"), 1u);
    EXPECT_THAT(all, Not(HasSubstr("\"p::up_t\"")));
}

TEST(RttiImport, KeepsMadeUpNamesIfAsked) {
    EXPECT_THAT(names(imported(tree("5.006"), "a")), Not(HasSubstr("__typeimp")));
    EXPECT_THAT(names(imported("--keep-anonymous " + tree("5.006"), "b")),
                HasSubstr("packed struct \"top::__typeimpsu11\"\n"));
}

TEST(RttiImport, NotesWhatCannotBeKeptWithItsLine) {
    const Result result = rtti("import " + tree("5.006") + " -o " + scratch("typ"));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err,
                HasSubstr(tree("5.006") + ":513: the bound of this queue is not kept\n"));
    EXPECT_THAT(result.err, EndsWith("rtti: 7 things could not be kept\n"));
    EXPECT_EQ(count(result.err, "\n"), 8u);
}

TEST(RttiImport, EndsWithOneIfStrictAndSomethingIsNotKept) {
    const std::string file = scratch("typ");
    EXPECT_EQ(rtti("import --strict " + tree("5.006") + " -o " + file).status, 1);
    EXPECT_EQ(contentOf(file), contentOf(imported(tree("5.006"), "b")));
    imported("--strict " + fileNamed("a.tree", byteTree("a")), "c");
}

TEST(RttiImport, RefusesAFileThatIsEmptyCutDamagedOrUnknown) {
    const std::string whole = contentOf(tree("5.006"));
    expectRefusal(fileNamed("empty", ""), "empty: the file is empty");
    expectRefusal(fileNamed("cut", whole.substr(0, 30000)), ": the tree is cut short");
    const std::size_t lineEnd = whole.find('\n', 30000) + 1;
    expectRefusal(fileNamed("cut", whole.substr(0, lineEnd)), ": the tree is ");
    std::string damaged = whole;
    damaged.replace(damaged.find("refdt=0x", damaged.find(": MEMBERDTYPE ")), 8, "refdt=0y");
    expectRefusal(fileNamed("damaged", damaged), ": the tree is damaged");
    expectRefusal(fileNamed("text", "package p;\n"), "the format is none of ");
    expectRefusal(scratch("missing"), "missing: No such file or directory\n");
    const std::string wave = contentOf(dump("ghdl/kinds-2.0.ghw"));
    expectRefusal(fileNamed("cut", wave.substr(0, wave.size() / 2)), "cut");
}

TEST(RttiImport, LeavesTheFileThatIsThereIfAnInputIsRefused) {
    const std::string file = fileNamed("typ", "as before");
    EXPECT_EQ(rtti("import " + tree("5.006") + " " + fileNamed("empty", "") + " -o " + file).status,
              2);
    EXPECT_EQ(contentOf(file), "as before");
}

TEST(RttiImport, ReadsStandardInputAndWritesStandardOutput) {
    const Result result = rtti("import - -o - <" + tree("5.048"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, contentOf(imported(tree("5.048"))));
    EXPECT_THAT(result.err, StartsWith("standard input:"));
}

TEST(RttiImport, SaysWhatACallLacks) {
    const Result noOutput = rtti("import " + tree("5.048"));
    EXPECT_EQ(noOutput.status, 2);
    expectOneLine(noOutput.err);
    EXPECT_THAT(noOutput.err, HasSubstr("--output"));
    expectRefusal("", "FILE");
    expectRefusal("--run verilator --from ghw x", "--from cannot be combined with --run");
    expectRefusal("--run modelmaker x", "--run");
}

/// A program that stands in for Verilator: it says its version, takes note of its arguments, writes
/// a tree if it is given one, and ends as it is told.
class RttiImportRun : public testing::Test {
protected:
    RttiImportRun() {
        fs::create_directories(m_programs);
        fs::create_directories(m_temporary);
        std::ofstream(m_programs + "/verilator")
            << "#!/bin/sh\n"
               "if [ \"$1\" = --version ]; then echo \"Verilator $RELEASE 2023-01-22\"; exit; fi\n"
               "echo said on standard output; echo said on standard error >&2\n"
               "printf '%s\\n' \"$@\" >'" +
                   m_arguments +
                   "'\n"
                   "while [ $# -gt 1 ]; do shift; [ \"$1\" != -Mdir ] || folder=$2; done\n"
                   "[ -z \"$TREE\" ] || cp \"$TREE\" \"$folder/Vt_011_width.tree\"\n"
                   "eval \"$LAST\"\n";
        fs::permissions(m_programs + "/verilator", fs::perms::owner_all);
    }
    ~RttiImportRun() override {
        fs::remove_all(m_programs);
        fs::remove_all(m_temporary);
    }

    std::string environment(const std::string& treeFile, const std::string& last,
                            const std::string& release) const {
        return "PATH='" + m_programs + "':$PATH TMPDIR='" + m_temporary + "' TREE='" + treeFile +
               "' LAST='" + last + "' RELEASE=" + release;
    }

    /// Imports with the program at the front of PATH; `last` is what it does last.
    Result run(const std::string& treeFile, const std::string& last = "",
               const std::string& release = "5.006", const std::string& before = "") {
        const Result result =
            rttiWith(before + environment(treeFile, last, release), m_importArguments);
        EXPECT_TRUE(fs::is_empty(m_temporary));
        EXPECT_EQ(result.out, "");
        return result;
    }

    const std::string m_programs = scratch("programs");
    const std::string m_temporary = scratch("temporary");
    const std::string m_arguments = scratch("arguments");
    const std::string m_output = scratch("typ");
    const std::string m_importArguments =
        "import --run verilator -o '" + m_output + "' -- -f 'a list.f' --top-module t";
};

TEST_F(RttiImportRun, ImportsWhatTheFrontEndWrites) {
    const Result result = run(tree("5.006"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(contentOf(m_output), contentOf(imported(tree("5.006"), "b")));
    EXPECT_THAT(result.err, HasSubstr("\nVt_011_width.tree:513: the bound"));
}

TEST_F(RttiImportRun, PassesMessagesOnToStandardError) {
    const Result result = run(fileNamed("a.tree", byteTree("a")));
    EXPECT_EQ(result.err, "said on standard output\nsaid on standard error\n");
}

TEST_F(RttiImportRun, GivesTheFrontEndItsArgumentsAndTheOptionsOfItsVersion) {
    run(tree("5.006"), "", "5.006");
    EXPECT_THAT(contentOf(m_arguments), HasSubstr("\n--xml-only\n--dump-V3Width\n"));
    EXPECT_THAT(contentOf(m_arguments), HasSubstr("\n-f\na list.f\n--top-module\nt\n-Mdir\n"));
    run(tree("5.048"), "", "5.048");
    EXPECT_THAT(contentOf(m_arguments), HasSubstr("\n--json-only\n--dump-tree\n"));
}

TEST_F(RttiImportRun, TellsTheFailureOfTheFrontEndFromItsOwn) {
    const Result result = run("", "exit 3");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, EndsWith("rtti: verilator: it ended with exit status 3\n"));
    EXPECT_FALSE(fs::exists(m_output));
}

TEST_F(RttiImportRun, NamesTheSignalThatEndedTheFrontEnd) {
    const Result result = run("", "kill -KILL $$");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("rtti: verilator: it was ended by signal 9 ("));
}

// What the front end has started goes on making files until it is ended, too.
TEST_F(RttiImportRun, EndsTheFrontEndAndRemovesItsFolderIfASignalComes) {
    for (const char* signal : {"HUP", "INT", "TERM"}) {
        SCOPED_TRACE(signal);
        const Result result =
            run(tree("5.006"), "for i in $(seq 3000); do mkdir -p \"$folder/$i\"; "
                               "done & kill -s " +
                                   std::string(signal) + " $PPID; wait");
        EXPECT_TRUE(result.status == -1 || result.status > 128) << result.status;
        EXPECT_THAT(result.err, Not(HasSubstr("rtti: ")));
        EXPECT_FALSE(fs::exists(m_output));
    }
}

TEST_F(RttiImportRun, RemovesItsFolderIfASignalComesWhileItReadsTheTree) {
    const Result result =
        run("", "mkfifo \"$folder/Vt_011_width.tree\"; { head -n 9 " + tree("5.006") +
                    "; kill $PPID; yes; } >\"$folder/Vt_011_width.tree\" &");
    EXPECT_TRUE(result.status == -1 || result.status > 128) << result.status;
    EXPECT_FALSE(fs::exists(m_output));
}

TEST_F(RttiImportRun, LetsTheFrontEndWriteToATerminalThatStopsTheBackground) {
    const Result result = rttiOnTerminal(
        OnTerminal::ERROR,
        "stty tostop; " + environment(fileNamed("a.tree", byteTree("a")), "", "5.006"),
        m_importArguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("said on standard error"));
}

TEST_F(RttiImportRun, KeepsToIgnoredSignals) {
    const Result result =
        run(fileNamed("a.tree", byteTree("a")), "kill -HUP $PPID", "5.006", "trap \"\" HUP;");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(fs::exists(m_output));
}

TEST_F(RttiImportRun, SaysThatThereIsNoTreeThoughTheFrontEndSucceeded) {
    const Result result = run("");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, EndsWith("rtti: verilator: it wrote no tree of types\n"));
}

TEST_F(RttiImportRun, ImportsAndNotesItIfTheFrontEndFailsAfterItsTree) {
    const Result result = run(fileNamed("a.tree", byteTree("a")), "exit 1");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("rtti: verilator ended with exit status 1"));
    EXPECT_EQ(contentOf(m_output), contentOf(imported(scratch("a.tree"), "b")));
}

TEST_F(RttiImportRun, BlamesTheFrontEndForTheTreeWithWhichItFailed) {
    const Result result = run(fileNamed("a.tree", byteTree("a").substr(0, 100)), "exit 1");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("rtti: verilator ended with exit status 1; what it wrote "
                                      "cannot be imported: Vt_011_width.tree:"));
}

TEST_F(RttiImportRun, RemovesItsFolderIfTheTreeIsDamaged) {
    const Result result = run(fileNamed("a.tree", byteTree("a").substr(0, 100)));
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("rtti: Vt_011_width.tree:"));
    EXPECT_FALSE(fs::exists(m_output));
}

TEST_F(RttiImportRun, NamesThePackageOfAFrontEndThatIsMissing) {
    const Result result =
        rttiWith("PATH=/nowhere", "import --run verilator -o '" + m_output + "' -- t.sv");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "rtti: verilator: not found; install the package verilator\n");
    EXPECT_FALSE(fs::exists(m_output));
}

TEST_F(RttiImportRun, NamesThePackageOfGhdlIfItIsMissing) {
    const Result result =
        rttiWith("PATH=/nowhere", "import --run ghdl -o '" + m_output + "' -- --std=08 tb");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "rtti: ghdl: not found; install the package ghdl-mcode\n");
}

TEST_F(RttiImportRun, SaysThatTheAnalysisOfGhdlFailed) {
    std::ofstream(m_programs + "/ghdl") << "#!/bin/sh\necho tb.vhd:1:1: fault >&2\nexit 1\n";
    fs::permissions(m_programs + "/ghdl", fs::perms::owner_all);
    const Result result = rttiWith("PATH='" + m_programs + "':$PATH TMPDIR='" + m_temporary + "'",
                                   "import --run ghdl -o '" + m_output + "' -- --std=08 tb.vhd tb");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "tb.vhd:1:1: fault\n"
                          "rtti: ghdl: the analysis failed: it ended with exit status 1\n");
    EXPECT_TRUE(fs::is_empty(m_temporary));
    EXPECT_FALSE(fs::exists(m_output));
}

TEST_F(RttiImportRun, SaysThatGhdlFailedInItsListing) {
    const std::string wave = dump("ghdl/kinds-2.0.ghw");
    std::ofstream(m_programs + "/ghdl") << "#!/bin/sh\n"
                                           "[ \"$1\" != --version ] || { echo mcode; exit; }\n"
                                           "for word; do last=$word; done\n"
                                           "case $last in --wave=*) cp '" +
                                               wave + "' \"${last#--wave=}\";; *) exit 1;; esac\n";
    fs::permissions(m_programs + "/ghdl", fs::perms::owner_all);
    const Result result = rttiWith("PATH='" + m_programs + "':$PATH TMPDIR='" + m_temporary + "'",
                                   "import --run ghdl -o '" + m_output + "' -- --std=08 tb");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("rtti: ghdl ended with exit status 1 before the type listing "
                                      "was complete, but what it had written was imported\n"));
    EXPECT_EQ(contentOf(m_output), contentOf(imported(wave, "b")));
}

} // namespace
