// `rtti build` as its users meet it: what it makes, and what it says of documents that are wrong.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The text of a document with one type, whose fields are given.
std::string documentOf(const std::string& fields) {
    return R"({"types":[{"id":0,)" + fields + "}]}";
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
    ASSERT_EQ(rtti("build --ndjson " + fileNamed("json", lines.out) + " -o " + scratch("again.typ"))
                  .status,
              0);
    EXPECT_EQ(contentOf(scratch("again.typ")), contentOf(scratch("typ")));
}

TEST(RttiBuild, KeepsAVersionThatIsNotUtf8) {
    const std::string text = fileNamed(
        "json", R"({"version":{"hex":"56ff"},"types":[{"id":0,"kind":"string","name":"s"}]})");
    ASSERT_EQ(rtti("build " + text + " -o " + scratch("typ")).status, 0);
    EXPECT_THAT(contentOf(scratch("typ")), StartsWith(std::string("V\xFF\0", 3)));
    EXPECT_THAT(rtti("dump --force --json " + scratch("typ")).out,
                HasSubstr("\"version\":{\"hex\":\"56ff\"}"));
}

TEST(RttiBuild, RefusesAPartOfAFile) {
    for (const std::string choice : {"--id 19", "--kind 'file type'", "--name 'line'"}) {
        const Result part = rtti("dump --json " + choice + ' ' + example("ieee_rti"));
        EXPECT_THAT(part.out, HasSubstr("\"isPart\":true")) << choice;
        const Result build =
            rtti("build " + fileNamed("json", part.out) + " -o " + scratch("part.typ"));
        EXPECT_EQ(build.status, 1);
        EXPECT_THAT(build.err, HasSubstr("/isPart: these are only some of a file's types"));
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
                                  fileNamed("json", dump.out) + " -o " + scratch("typ"));
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
    const std::string text = fileNamed("json", documentOf(R"("kind":"string","name":"s")"));
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

/// Expects that a document is refused for what stands there, on one line, and that no file is made.
void expectRefusal(const std::string& document, const std::string& place,
                   const std::string& reason) {
    const std::string text = fileNamed("json", document);
    const Result result = rtti("build " + text + " -o " + scratch("typ"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, StartsWith("rtti: " + text + ": " + place + ": "));
    EXPECT_THAT(result.err, HasSubstr(reason));
    EXPECT_FALSE(std::ifstream(scratch("typ")).good());
}

TEST(RttiBuild, SaysWhereADocumentIsWrongAndMakesNoFile) {
    expectRefusal("{\"types\":[\n{]}", "line 2, column 2", "syntax error");
    expectRefusal(documentOf(R"("kind":"matrix","name":"")"), "/types/0/kind",
                  "there is no kind \"matrix\"");
    expectRefusal(R"({"types":[{"id":1,"kind":"string","name":""}]})", "/types",
                  "there is no type with this id");
    expectRefusal("{\"\x1b[2J\":1}", "line 1, column 3", "control character");
}

TEST(RttiBuild, NamesTheLineOfAWrongOne) {
    const std::string good = "{\"id\":0,\"kind\":\"string\",\"name\":\"\"}\n\n";
    const std::string text = fileNamed("json", good + "{\"id\":1,\"kind\":\"string\"}\n");
    const Result result = rtti("build --ndjson " + text + " -o " + scratch("typ"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "rtti: " + text + ": line 3, type: there is no \"name\"\n");
}

TEST(RttiBuild, EndsWith2WhereNothingCanBeReadOrWritten) {
    EXPECT_EQ(rtti("build /nowhere/types.json -o " + scratch("typ")).status, 2);
    EXPECT_EQ(rtti("build / -o " + scratch("typ")).status, 2);
    EXPECT_EQ(rtti("build " EVERY_KIND_JSON " -o /nowhere/types.typ").status, 2);
    EXPECT_EQ(rtti("build " EVERY_KIND_JSON " -o /dev/null").status, 2);
    EXPECT_EQ(rtti("build " EVERY_KIND_JSON).status, 2);
}

} // namespace
