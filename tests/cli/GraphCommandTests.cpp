// `rtti graph` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

bool isGraphvizThere() { return std::system("command -v dot >/dev/null") == 0; }

/// A directory for PATH with a program `dot` that is this shell script.
std::string pathWithDot(const std::string& script) {
    const std::string directory = scratch("bin");
    mkdir(directory.c_str(), 0700);
    const std::string program = directory + "/dot";
    std::ofstream(program) << "#!/bin/sh\n" << script << '\n';
    chmod(program.c_str(), 0700);
    return "PATH=" + directory + ":/usr/bin:/bin";
}

TEST(RttiGraph, PrintsDotUnlessToldOtherwise) {
    const Result result = rtti("graph " + example("ieee_rti") + " 19 --depth 1");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, rtti("graph --format dot " + example("ieee_rti") + " 19 --depth 1").out);
    EXPECT_THAT(result.out, StartsWith("// The types of a design, for Graphviz"));
    EXPECT_THAT(result.out, EndsWith("  T19 -> T11 [style=dashed, arrowhead=vee, "
                                     "label=<referenced type>];\n}\n"));
}

TEST(RttiGraph, PrintsJsonByEitherName) {
    const Result result = rtti("graph --json " + example("ieee_rti") + " 19 --depth 1");
    EXPECT_EQ(result.out,
              "{\"format\":\"HDL simulator type graph\",\"formatVersion\":1,\"nodes\":[\n"
              "{\"id\":11,\"kind\":\"array\",\"arrayKind\":\"VHDL_ARRAY\",\"name\":"
              "\"string\",\"isCut\":true},\n"
              "{\"id\":19,\"kind\":\"access\",\"name\":\"line\",\"isCut\":false}\n"
              "],\n\"edges\":[\n"
              "{\"from\":19,\"to\":11,\"field\":\"refType\"}\n"
              "]}\n");
    EXPECT_EQ(result.out, rtti("graph --format json " + example("ieee_rti") + " 19 --depth 1").out);
}

TEST(RttiGraph, WritesAFile) {
    const std::string path = scratch("dot");
    const Result result = rtti("graph " + example("ieee_rti") + " -o " + path);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(contentOf(path), rtti("graph " + example("ieee_rti")).out);
    std::remove(path.c_str());
}

TEST(RttiGraph, WritesALargeFileWhole) {
    const std::string path = scratch("mmd");
    const Result result =
        rtti("graph --format mermaid " + example("uvm_slang") + " --output " + path);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(contentOf(path), rtti("graph --format mermaid " + example("uvm_slang")).out);
    std::remove(path.c_str());
}

TEST(RttiGraph, SaysWhenThereIsMoreThanMermaidDraws) {
    const Result result = rtti("graph --format mermaid " + example("uvm_slang"));
    EXPECT_THAT(result.err, HasSubstr(" edges: Mermaid draws at most 500 "));
    EXPECT_THAT(result.err, EndsWith("(fewer with TYPE and --depth)\n"));
    expectOneLine(result.err);
}

TEST(RttiGraph, SaysWhenThereIsMoreThanGraphvizDrawsQuickly) {
    const Result result =
        rttiWith(pathWithDot("cat >/dev/null"), "graph --format svg " + example("uvm_slang"));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr(": 2678 types: dot may take minutes"));
    expectOneLine(result.err);
}

TEST(RttiGraph, LetsGraphvizDrawSvg) {
    if (!isGraphvizThere())
        GTEST_SKIP() << "Graphviz is missing";
    const Result result = rtti("graph --format svg " + example("svkinds_slang") + " 71");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, StartsWith("<?xml"));
    EXPECT_THAT(result.out, HasSubstr("cls_pkg::base_c"));
    EXPECT_THAT(result.out, EndsWith("</svg>\n"));
}

TEST(RttiGraph, GivesGraphvizTheDotTextAndPrintsItsAnswer) {
    const std::string arguments = example("neorv32_ghw"); // More than a pipe holds.
    const Result result =
        rttiWith(pathWithDot("test \"$*\" = -Tsvg && cat"), "graph --format svg " + arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, rtti("graph " + arguments).out);
}

TEST(RttiGraph, SaysThatGraphvizIsMissing) {
    const Result result = rttiWith("PATH=/nowhere", "graph --format svg " + example("ieee_rti"));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "rtti: dot: not found; SVG needs Graphviz to be installed\n");
}

TEST(RttiGraph, SaysWhyGraphvizFailed) {
    const std::string output = scratch("svg");
    const Result result =
        rttiWith(pathWithDot("echo '<svg'; printf 'no \\033font\\nmore\\n' >&2; exit 3"),
                 "graph --format svg " + example("neorv32_ghw") + " -o " + output);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "rtti: dot: failed with status 3: no \\x1Bfont\n");
    EXPECT_NE(::access(output.c_str(), F_OK), 0);
}

TEST(RttiGraph, SaysThatASignalEndedGraphviz) {
    const Result result =
        rttiWith(pathWithDot("kill -9 $$"), "graph --format svg " + example("neorv32_ghw"));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "rtti: dot: ended by signal 9\n");
}

TEST(RttiGraph, RefusesADepthWithoutAnId) {
    const Result result = rtti("graph --depth 1 " + example("ieee_rti"));
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("needs a TYPE"));
    expectOneLine(result.err);
}

TEST(RttiGraph, RefusesWhatItDoesNotHave) {
    EXPECT_EQ(rtti("graph " + example("ieee_rti") + " 46").status, 2);
    EXPECT_EQ(rtti("graph --format png " + example("ieee_rti")).status, 2);
    EXPECT_EQ(rtti("graph --json --format dot " + example("ieee_rti")).status, 2);
    EXPECT_EQ(rtti("graph /nowhere.typ").status, 2);
    EXPECT_EQ(rtti("graph " + example("ieee_rti") + " -o /nowhere/graph.dot").status, 2);
}

TEST(RttiGraph, SaysWhenItsOutputCannotBeWritten) {
    const std::string command = std::string(RTTI_PROGRAM " graph ") + example("ieee_rti") +
                                " >/dev/full 2>'" + scratch("err") + "'";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 2);
    expectOneLine(contentOf(scratch("err")));
}

TEST(RttiGraph, ShowsHelpWithAnExample) {
    const Result result = rtti("graph --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("Example:\n  rtti graph "));
}

} // namespace
