// `rtti translate` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// A directory of the running test that is not there.
std::string folder() {
    const std::string path = scratch("translated");
    std::filesystem::remove_all(path);
    return path;
}

/// The number of files with an ending.
std::size_t filesIn(const std::string& path, const std::string& ending) {
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path))
        files += entry.path().extension() == ending ? 1 : 0;
    return files;
}

/// What a program prints that a shell starts.
std::string printed(const std::string& command) {
    const std::string out = scratch("printed");
    EXPECT_EQ(std::system((command + " > " + out).c_str()), 0) << command;
    return contentOf(out);
}

TEST(RttiTranslate, WritesAFilterFileForEachEnumeration) {
    const std::string path = folder() + "/made/here";
    const Result result = rtti("translate " + example("ibex_slang") + " --to gtkwave -o " + path);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(filesIn(path, ".txt"), 50u);
    EXPECT_THAT(contentOf(path + "/ibex_pkg.pmp_cfg_mode_e.txt"),
                EndsWith("00 PMP_MODE_OFF\n0 PMP_MODE_OFF\n01 PMP_MODE_TOR\n1 PMP_MODE_TOR\n"
                         "10 PMP_MODE_NA4\n2 PMP_MODE_NA4\n11 PMP_MODE_NAPOT\n3 PMP_MODE_NAPOT\n"));
}

TEST(RttiTranslate, WritesAMappingFileForEachEnumeration) {
    const std::string path = folder();
    EXPECT_EQ(rtti("translate " + example("ibex_slang") + " --to surfer -o " + path).status, 0);
    EXPECT_EQ(filesIn(path, ".txt"), 50u);
    EXPECT_EQ(filesIn(path, ".sh"), 0u);
    EXPECT_EQ(contentOf(path + "/ibex_pkg.pmp_cfg_mode_e.txt"),
              "Name = ibex_pkg::pmp_cfg_mode_e\nBits = 2\n0b00 PMP_MODE_OFF\n0b01 PMP_MODE_TOR\n"
              "0b10 PMP_MODE_NA4\n0b11 PMP_MODE_NAPOT\n");
}

TEST(RttiTranslate, WritesAFilterProcessForEachTypeWithFields) {
    const std::string path = folder();
    EXPECT_EQ(rtti("translate " + example("ibex_slang") + " --to gtkwave -o " + path).status, 0);
    const std::string script = path + "/ibex_pkg.pmp_cfg_t.sh";
    EXPECT_THAT(contentOf(script), StartsWith("#!/bin/sh\n# ibex_pkg::pmp_cfg_t\n"));
    EXPECT_THAT(contentOf(script), EndsWith("' 'ibex_pkg::pmp_cfg_t'\n"));
    EXPECT_EQ(printed("cd / && echo 29 | " + script),
              "lock=1 mode=PMP_MODE_TOR exec=0 write=0 read=1\n");
    EXPECT_EQ(printed("echo 2 | " + path + "/ibex_pkg.pmp_cfg_mode_e.sh"), "PMP_MODE_NA4\n");
}

TEST(RttiTranslate, WritesFilterProcessesThatFindAFileOfAnyNameAndPlace) {
    const std::string path = folder();
    std::filesystem::create_directories(path + "/it's a $HOME");
    const std::string types = "\"" + path + "/it's a \\$HOME/types\"";
    const std::string json = fileNamed("json", rtti("dump --json " + example("ibex_slang")).out);
    ASSERT_EQ(rtti("build " + json + " --offset 64 -o " + types).status, 0);
    EXPECT_EQ(rtti("translate --offset 64 " + types + " --to gtkwave -o " + path).status, 0);
    EXPECT_EQ(printed("echo 2 | " + path + "/ibex_pkg.pmp_cfg_mode_e.sh"), "PMP_MODE_NA4\n");
}

TEST(RttiTranslate, WritesNoFilterProcessesForStandardInput) {
    const std::string path = folder();
    const Result result =
        rtti("translate - --to gtkwave -o " + path + " < " + example("ibex_slang"));
    EXPECT_EQ(result.status, 0);
    expectOneLine(result.err);
    EXPECT_EQ(filesIn(path, ".txt"), 50u);
    EXPECT_EQ(filesIn(path, ".sh"), 0u);
}

TEST(RttiTranslate, WritesAPythonModule) {
    const Result result = rtti("translate " + example("ibex_slang") + " --to python -o -");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("        PMP_MODE_NAPOT = 0x3\n"));
    EXPECT_THAT(result.out, HasSubstr("            \"mode\": (4, 3),\n"));
    const std::string file = scratch("types.py");
    EXPECT_EQ(rtti("translate " + example("ibex_slang") + " --to python -o " + file).status, 0);
    EXPECT_EQ(contentOf(file), result.out);
}

TEST(RttiTranslate, FiltersALineForALine) {
    const std::string values = fileNamed("values", "101001\n29\nwhat?\n\nxxxxxx");
    const Result result =
        rtti("translate --filter " + example("ibex_slang") + " ibex_pkg::pmp_cfg_t < " + values);
    EXPECT_EQ(result.status, 0) << result.err;
    const std::string fields = "lock=1 mode=PMP_MODE_TOR exec=0 write=0 read=1\n";
    EXPECT_EQ(result.out, fields + fields + "what?\n\nlock=x mode=0xx exec=x write=x read=x\n");
}

TEST(RttiTranslate, AnswersBeforeTheNextLineComes) {
    // The reader sends its second line when it has the first answer.
    const std::string pipe = scratch("pipe");
    std::filesystem::remove(pipe);
    const Result made = rtti("--version > /dev/null; mkfifo " + pipe);
    ASSERT_EQ(made.status, 0);
    const Result result = rtti("translate --filter " + example("ibex_slang") +
                               " ibex_pkg::pmp_cfg_mode_e < " + pipe + " | { exec 3> " + pipe +
                               "; echo 2 >&3; read -r first; echo 3 >&3; read -r second; "
                               "exec 3>&-; echo \"$first $second\"; }");
    EXPECT_EQ(result.out, "PMP_MODE_NA4 PMP_MODE_NAPOT\n");
}

TEST(RttiTranslate, SaysWhatACallLacks) {
    const std::string file = example("ibex_slang");
    for (const std::string& call :
         {file, "--filter " + file, file + " --to gtkwave", file + " -o there",
          file + " --to nothing -o there", file + " 1 --to python -o -",
          "--filter --to python -o - " + file + " 1", "--filter " + file + " nowhere",
          std::string("--filter /not/there 1")}) {
        const Result result = rtti("translate " + call + " < /dev/null");
        EXPECT_EQ(result.status, 2) << call;
        EXPECT_EQ(result.out, "") << call;
        expectOneLine(result.err);
    }
}

TEST(RttiTranslate, SaysWhyValuesCannotBeDecoded) {
    const Result result =
        rtti("translate --filter " + example("vhkinds_rti") + " rec_t < /dev/null");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err,
                HasSubstr("TYPE: the values of rec_t cannot be decoded: it is neither a "
                          "packed type nor an enumeration"));
    expectOneLine(result.err);
}

TEST(RttiTranslate, LeavesNothingWhereItCannotWrite) {
    const std::string file = fileNamed("in-the-way", "as it was");
    const Result result = rtti("translate " + example("ibex_slang") + " --to surfer -o " + file);
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
    EXPECT_EQ(contentOf(file), "as it was");
}

TEST(RttiTranslate, SaysThatThereIsNothingToTranslate) {
    const std::string path = folder();
    const Result result =
        rtti("translate " + fileOf(oneRecord(0xA0000018)) + " --to gtkwave -o " + path);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, EndsWith("there is nothing to translate\n"));
    expectOneLine(result.err);
}

} // namespace
