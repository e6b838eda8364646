// What `rtti` does on a terminal alone: colours, and a line of progress.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

constexpr char ESCAPE[] = "\x1B";
constexpr char ERASE_LINE[] = "\r\x1B[K";

Result onTerminal(const std::string& arguments, const std::string& assignments = "") {
    return rttiOnTerminal(OnTerminal::OUTPUT, assignments, arguments);
}

std::string withoutColours(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == *ESCAPE)
            i = text.find('m', i);
        else
            result += text[i];
    }
    return result;
}

/// A type file whose only type has this name, written as in JSON.
std::string fileWithName(const std::string& name) {
    std::string path = scratch("named.typ");
    const std::string json =
        fileOf(R"({"types":[{"id":0,"kind":"string","name":")" + name + R"("}]})");
    EXPECT_EQ(rtti("build " + json + " -o " + path).status, 0);
    return path;
}

TEST(RttiShowOnATerminal, PrintsTheSameTextWithColours) {
    const std::string arguments = "show " + example("svkinds_slang") + " 70";
    const Result plain = rtti(arguments);
    const Result coloured = onTerminal(arguments);
    EXPECT_EQ(coloured.status, 0);
    EXPECT_EQ(coloured.err, "");
    EXPECT_THAT(plain.out, Not(HasSubstr(ESCAPE)));
    EXPECT_THAT(coloured.out, StartsWith("\x1B[1mtype 70:\x1B[0m \x1B[35mclass\x1B[0m "
                                         "\x1B[36m\"cls_pkg::base_c\"\x1B[0m\n"));
    EXPECT_EQ(withoutColours(coloured.out), plain.out);
}

TEST(RttiShowOnATerminal, HasNoColoursForWhoDoesNotWantThem) {
    const std::string arguments = "show " + example("svkinds_slang") + " 70";
    const std::string plain = rtti(arguments).out;
    EXPECT_EQ(onTerminal(arguments, "NO_COLOR=1").out, plain);
    EXPECT_EQ(onTerminal(arguments, "TERM=dumb").out, plain);
    EXPECT_EQ(onTerminal(arguments, "unset TERM;").out, plain);
    EXPECT_NE(onTerminal(arguments, "NO_COLOR=").out, plain);
}

TEST(RttiDumpOnATerminal, HasColoursOnATerminalAlone) {
    const std::string arguments = "dump " + example("vhkinds_rti");
    const std::string plain = rtti(arguments).out;
    const std::string coloured = onTerminal(arguments).out;
    EXPECT_THAT(plain, Not(HasSubstr(ESCAPE)));
    EXPECT_THAT(coloured, HasSubstr("\x1B[35mrecord\x1B[0m \x1B[36m\"rec_t\"\x1B[0m\n"));
    EXPECT_EQ(withoutColours(coloured), plain);
}

TEST(RttiDumpOnATerminal, ShowsTheBytesOfANameEscaped) {
    const std::string path = fileWithName("\\u001B[2Jx");
    const std::string shown = onTerminal("dump " + path).out;
    EXPECT_THAT(shown, HasSubstr("\x1B[36m\"\\x1B[2Jx\"\x1B[0m"));
    EXPECT_THAT(shown, Not(HasSubstr("\x1B[2J")));
    std::remove(path.c_str());
}

TEST(RttiDumpOnATerminal, PrintsJsonWithoutColours) {
    const std::string arguments = "dump --json " + example("ieee_rti");
    EXPECT_EQ(onTerminal(arguments).out, rtti(arguments).out);
}

TEST(RttiVerifyOnATerminal, SetsOffErrors) {
    const std::string path = fileOf(contentOf(example("ieee_rti")).substr(0, 3000));
    const std::string plain = rtti("verify " + path).out;
    const std::string coloured = onTerminal("verify " + path).out;
    EXPECT_THAT(coloured, StartsWith("\x1B[1;31merror\x1B[0m table-outside-storage "));
    EXPECT_THAT(coloured, EndsWith(": \x1B[1;31m1 error\x1B[0m, 0 warnings\n"));
    EXPECT_EQ(withoutColours(coloured), plain);
}

TEST(RttiVerifyOnATerminal, SetsNothingOffWhereNothingIsWrong) {
    const std::string arguments = "verify " + example("ieee_rti");
    EXPECT_EQ(onTerminal(arguments).out, rtti(arguments).out);
}

// A reader that sleeps makes a dump last longer than a second.
constexpr char SLOW_READER[] = " | (sleep 1.2; cat >/dev/null)";

TEST(RttiProgress, OfADumpIsALineThatGoesAway) {
    const Result result =
        rttiOnTerminal(OnTerminal::ERROR, "", "dump " + example("uvm_slang") + SLOW_READER);
    EXPECT_THAT(result.err, StartsWith(ERASE_LINE + ("printing " + example("uvm_slang")) + ": "));
    EXPECT_THAT(result.err, EndsWith(std::string(" %") + ERASE_LINE));
}

TEST(RttiProgress, OfADumpIsALineOfItsOwnElsewhere) {
    const std::string lines = scratch("lines");
    rtti("dump " + example("uvm_slang") + " 2>" + lines + SLOW_READER);
    EXPECT_THAT(contentOf(lines), StartsWith("rtti: printing " + example("uvm_slang") + ": "));
    EXPECT_THAT(contentOf(lines), Not(HasSubstr(ESCAPE)));
    expectOneLine(contentOf(lines));
    std::remove(lines.c_str());
}

TEST(RttiProgress, OfADumpDoesNotMixWithItOnATerminal) {
    // Some 40 MB keep a terminal busy for longer than a second.
    const Result shown = rttiOnTerminal(OnTerminal::BOTH, "", "dump " + example("uvm_slang"));
    EXPECT_THAT(shown.out, Not(HasSubstr("printing")));
}

TEST(RttiProgress, OfABuildCountsTypes) {
    std::string types;
    for (int id = 0; id < 3000; ++id)
        types += "{\"id\":" + std::to_string(id) + ",\"kind\":\"string\",\"name\":\"s\"}\n";
    const std::string text = fileOf(types);
    const std::string output = scratch("built.typ");
    const Result result = rttiOnTerminal(
        OnTerminal::ERROR, "{ head -n 10 " + text + "; sleep 1.2; tail -n +11 " + text + "; } |",
        "build --ndjson - -o " + output);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, MatchesRegex("\r.\\[Ktypes read from standard input: 1025\r.\\[K"));
    std::remove(output.c_str());
}

} // namespace
