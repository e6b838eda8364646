// `rtti build` as its users meet it: what it makes, and what it says of documents that are wrong.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
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
    const std::string text = fileNamed("json", GetParam().text);
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
    const std::string text = fileNamed("json", good + "{\"id\":1,\"kind\":\"string\"}\n");
    const Result result = rtti("build --ndjson " + text + " -o " + scratch("typ"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "rtti: " + text + ": line 3, type: there is no \"name\"\n");
    const std::string wrongName = fileNamed("json", good + R"({"id":1,"kind":"string","name":3})");
    EXPECT_THAT(rtti("build --ndjson " + wrongName + " -o " + scratch("typ")).err,
                HasSubstr(": line 3, type/name: must be text"));
    const std::string far =
        fileNamed("json", R"({"id":0,"kind":"typedef","name":"","dataType":5})");
    EXPECT_THAT(rtti("build --ndjson " + far + " -o " + scratch("typ")).err,
                HasSubstr(": line 1, type/dataType: refers to the id 5"));
    const std::string other = fileNamed("json", good + "{\"id\":1 \"kind\":\"string\"}\n");
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

} // namespace
