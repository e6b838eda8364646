// The reader of types in the JSON form: what it takes, and where it says that a text is wrong.

#include "Inspect/json/TypeJsonReader.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "TypeFile/TypeFileWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Inspect;
using namespace RTTI;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// The text of a document with one type, whose fields are given.
std::string documentOf(const std::string& fields) {
    return R"({"types":[{"id":0,)" + fields + "}]}";
}

void read(TypeJsonReader& reader, const std::string& text, JsonForm form) {
    std::istringstream in(text);
    if (form == JsonForm::DOCUMENT)
        reader.readDocument(in);
    else
        reader.readLines(in);
}

/// What a text gives: the ids and names of its types, its versions, and a check of each type.
struct Read {
    Read(
        const std::string& text, JsonForm form,
        const std::function<void(const RTBaseType&)>& check = [](const RTBaseType&) {}) {
        TypeJsonReader reader(
            [&](unsigned int id, const RTBaseType& type) {
                types.push_back(std::to_string(id) + ' ' + type.m_name);
                check(type);
            },
            [&](std::string_view version) { versions.emplace_back(version); });
        read(reader, text, form);
    }

    std::vector<std::string> types;
    std::vector<std::string> versions;
};

/// The place and the reason for which a text makes no type file; nothing if it makes one.
std::string faultOf(const std::string& text, JsonForm form = JsonForm::DOCUMENT) {
    TypeFile::TypeFileWriter writer;
    TypeJsonReader reader([&](unsigned int id, const RTBaseType& type) { writer.add(id, type); },
                          [&](std::string_view version) { writer.setVersion(version); });
    try {
        read(reader, text, form);
        writer.finish();
    } catch (const JsonError& error) {
        return error.what();
    } catch (const TypeFile::WriteError& error) {
        return reader.placeOf(error.typeId(), error.field()) + ": " + error.reason();
    }
    return "";
}

TEST(TypeJsonReader, GivesTypesInTheOrderOfTheText) {
    const Read read(R"({"types":[{"id":4,"kind":"string","name":"b"},)"
                    R"({"kind":"chandle","name":"a","id":2}],"version":"V 7"})",
                    JsonForm::DOCUMENT);
    EXPECT_THAT(read.types, ElementsAre("4 b", "2 a"));
    EXPECT_THAT(read.versions, ElementsAre("V 7"));
}

TEST(TypeJsonReader, TakesADocumentWithoutTypesOrVersion) {
    const Read read(R"({"types":[]})", JsonForm::DOCUMENT);
    EXPECT_THAT(read.types, IsEmpty());
    EXPECT_THAT(read.versions, IsEmpty());
}

TEST(TypeJsonReader, PassesBlankLinesOver) {
    const Read read("\n \t\r\n{\"format\":\"HDL simulator types\",\"version\":\"V\"}\n\n"
                    "{\"id\":0,\"kind\":\"string\",\"name\":\"s\"}\r\n"
                    "{\"id\":1,\"kind\":\"event\",\"name\":\"e\",\"flavour\":1}",
                    JsonForm::LINES);
    EXPECT_THAT(read.types, ElementsAre("0 s", "1 e"));
    EXPECT_THAT(read.versions, ElementsAre("V"));
}

TEST(TypeJsonReader, TakesBytesThatAreNoTextInHexadecimal) {
    const Read read(R"({"version":{"hex":"5600fF"},"types":[{"id":0,"kind":"string",)"
                    R"("name":{"hex":"e9Ab"}}]})",
                    JsonForm::DOCUMENT);
    EXPECT_THAT(read.versions, ElementsAre(std::string("V\0\xFF", 3)));
    EXPECT_THAT(read.types, ElementsAre("0 \xE9\xAB"));
}

TEST(TypeJsonReader, GivesDefaultsToWhatMayBeLeftOut) {
    const Read read(documentOf(R"("kind":"record","name":"r","recordKind":"VHDL_RECORD",)"
                               R"("members":[{"name":"m","type":0}])"),
                    JsonForm::DOCUMENT, [](const RTBaseType& type) {
                        const auto& record = dynamic_cast<const RTRecordType&>(type);
                        EXPECT_EQ(record.m_flags, 0u);
                        EXPECT_EQ(record.m_svTypeId, -99);
                        EXPECT_THAT(record.m_members.at(0)->m_constraints, IsEmpty());
                    });
    EXPECT_EQ(read.types.size(), 1u);
}

TEST(TypeJsonReader, TakesAMemberOfAClassWithoutItsFlag) {
    const Read read(documentOf(R"("kind":"class","name":"c","baseClass":null,)"
                               R"("members":[{"name":"m","type":0}])"),
                    JsonForm::DOCUMENT, [](const RTBaseType& type) {
                        using Member = RTClassType::t_ClassMember;
                        const auto& derived = dynamic_cast<const RTClassType&>(type);
                        const auto& member = dynamic_cast<const Member&>(*derived.m_members.at(0));
                        EXPECT_FALSE(member.m_memberFlag);
                    });
    EXPECT_EQ(read.types.size(), 1u);
}

TEST(TypeJsonReader, TakesAKindByItsNameOrItsNumber) {
    for (const char* const kind : {"\"VLOG_FIXED_PACKED_ARRAY\"", "10485763"}) {
        const Read read(documentOf(R"("kind":"array","name":"a","elementType":0,"indexTypes":)"
                                   R"([null,3],"arrayKind":)" +
                                   std::string(kind)),
                        JsonForm::DOCUMENT, [](const RTBaseType& type) {
                            const auto& array = dynamic_cast<const RTArrayType&>(type);
                            EXPECT_EQ(array.m_arrayKind, VLOG_FIXED_PACKED_ARRAY);
                            EXPECT_THAT(array.m_indexTypeIds, ElementsAre(0xFFFFFFFF, 3u));
                        });
        EXPECT_EQ(read.types.size(), 1u);
    }
}

/// The text of a document with these types.
std::string writtenAgain(const std::string& text) {
    std::ostringstream out;
    std::optional<TypeJsonWriter> writer;
    TypeJsonReader reader(
        [&](unsigned int id, const RTBaseType& type) { writer->type(id, type); },
        [&](std::string_view version) { writer.emplace(out, JsonForm::DOCUMENT, version); });
    read(reader, text, JsonForm::DOCUMENT);
    writer->end();
    return out.str();
}

TEST(TypeJsonReader, ReadsTheSameInEveryLayout) {
    std::ifstream file(EVERY_KIND_JSON);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const auto json = nlohmann::ordered_json::parse(text);
    EXPECT_EQ(writtenAgain(text), text);
    EXPECT_EQ(writtenAgain(json.dump()), text);
    EXPECT_EQ(writtenAgain(json.dump(3, '\t')), text);
    auto backwards = json;
    for (auto& type : backwards["types"]) {
        const auto fields = std::exchange(type, nlohmann::ordered_json::object());
        for (auto field = fields.rbegin(); field != fields.rend(); ++field)
            type[field.key()] = field.value();
    }
    EXPECT_EQ(writtenAgain(backwards.dump()), text);
}

TEST(TypeJsonReader, ReadsATypeWithANameOfAMillionLettersBehindOthers) {
    const std::string name(1'000'000, 'n');
    const Read read(R"({"types":[{"id":0,"kind":"string","name":"a"},)"
                    R"({"id":1,"kind":"string","name":"b"},{"id":2,"kind":"string","name":")" +
                        name + R"("},{"id":3,"kind":"string","name":"d"}]})",
                    JsonForm::DOCUMENT);
    EXPECT_EQ(read.types, (std::vector<std::string>{"0 a", "1 b", "2 " + name, "3 d"}));
}

TEST(TypeJsonReader, CountsLinesAndColumnsBehindManyTypes) {
    constexpr unsigned int TYPES = 20000;
    for (const std::string separator : {",", ",\n"}) {
        std::string text = R"({"types":[)";
        for (unsigned int id = 0; id < TYPES; ++id)
            text += (id == 0 ? "" : separator) + R"({"id":)" + std::to_string(id) +
                    R"(,"kind":"string","name":""})";
        const bool isOneLine = separator == ",";
        const std::size_t column = text.size() - (isOneLine ? 0 : text.rfind('\n') + 1) + 2;
        EXPECT_THAT(faultOf(text + ",]}"),
                    StartsWith("line " + std::to_string(isOneLine ? 1 : TYPES) + ", column " +
                               std::to_string(column) + ": syntax error"));
    }
}

TEST(TypeJsonReader, RefusesAPartOfAFile) {
    EXPECT_THAT(faultOf(R"({"isPart":true,"types":[]})"),
                StartsWith("/isPart: these are only some"));
    EXPECT_EQ(faultOf(R"({"isPart":false,"types":[]})"), "");
}

TEST(TypeJsonReader, NamesTheLineOfATypeThatIsWrong) {
    const std::string good = "{\"id\":0,\"kind\":\"string\",\"name\":\"\"}\n\n";
    EXPECT_EQ(faultOf(good + "{\"id\":1,\"kind\":\"string\"}\n", JsonForm::LINES),
              "line 3, type: there is no \"name\"");
    EXPECT_THAT(faultOf(good + R"({"id":1,"kind":"string","name":3})", JsonForm::LINES),
                StartsWith("line 3, type/name: must be text"));
    EXPECT_THAT(faultOf(R"({"id":0,"kind":"typedef","name":"","dataType":5})", JsonForm::LINES),
                StartsWith("line 1, type/dataType: refers to the id 5"));
    EXPECT_THAT(faultOf(good + "{\"id\":1 \"kind\":\"string\"}\n", JsonForm::LINES),
                StartsWith("line 3, column "));
    EXPECT_THAT(faultOf(good + R"({"format":"HDL simulator types","~/":1})", JsonForm::LINES),
                StartsWith("line 3, type/~0~1: there is no place"));
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

TEST_P(WrongDocuments, AreRefusedForTheirPlace) {
    const std::string fault = faultOf(GetParam().text);
    EXPECT_THAT(fault, StartsWith(GetParam().place + ": "));
    EXPECT_THAT(fault, HasSubstr(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    TypeJsonReader, WrongDocuments,
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
        WrongDocument{"IdTwice",
                      R"({"types":[{"id":0,"kind":"string","name":""},)"
                      R"({"id":0,"kind":"string","name":""}]})",
                      "/types/1/id", "two types"},
        WrongDocument{"Hole", R"({"types":[{"id":1,"kind":"string","name":""}]})", "/types",
                      "there is no type with this id"},
        WrongDocument{"Escape", "{\"\x1b[2J\":1}", "line 1, column 3", "control character"},
        WrongDocument{"LeadingZero",
                      R"({"types":[{"id":0,"kind":"string","name":""},)"
                      "\n"
                      R"({"id":1,"kind":"string","name":"","flags":07}]})",
                      "line 2, column 44", "unexpected number"},
        WrongDocument{"SecondNameNoUtf8",
                      R"({"types":[{"id":0,"kind":"string","name":""},)"
                      "\n{\"id\":1,\"kind\":\"string\",\"name\":\"\xFF\"}]}",
                      "line 2, column 33", "UTF-8"},
        WrongDocument{"NoSecondType", R"({"types":[{"id":0,"kind":"string","name":""},]})",
                      "line 1, column 46", "unexpected ']'"},
        WrongDocument{"NoComma",
                      R"({"types":[{"id":0,"kind":"string","name":""},)"
                      R"({"id":1,"kind":"string","name":""}{"id":2,"kind":"string","name":""}]})",
                      "line 1, column 80", "unexpected '{'"}),
    [](const auto& tested) { return std::string(tested.param.name); });

/// A type with a field that is wrong, and the message that says so.
struct WrongType {
    const char* name;
    std::string fields;
    std::string place; ///< In the type.
    std::string reason;
};

void PrintTo(const WrongType& wrong, std::ostream* out) { *out << wrong.name; }

class WrongTypes : public testing::TestWithParam<WrongType> {};

TEST_P(WrongTypes, AreRefusedForTheirPlace) {
    const std::string fault = faultOf(documentOf(GetParam().fields));
    EXPECT_THAT(fault, StartsWith("/types/0" + GetParam().place + ": "));
    EXPECT_THAT(fault, HasSubstr(GetParam().reason));
}

TEST_P(WrongTypes, AreRefusedForTheirPlaceBehindOthers) {
    const std::string fault =
        faultOf(R"({"types":[{"id":1,"kind":"string","name":""},{"id":2,"kind":"chandle",)"
                R"("name":""},{"id":3,"kind":"string","name":""},{"id":0,)" +
                GetParam().fields + "}]}");
    EXPECT_THAT(fault, StartsWith("/types/3" + GetParam().place + ": "));
    EXPECT_THAT(fault, HasSubstr(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    TypeJsonReader, WrongTypes,
    testing::Values(
        WrongType{"UnknownKind", R"("kind":"matrix","name":"")", "/kind",
                  "there is no kind \"matrix\""},
        WrongType{"NoType", R"("kind":"none","kindCode":0)", "/kind", "an id without a type"},
        WrongType{"UnknownField", R"("kind":"string","name":"","size":1)", "",
                  "no place for \"size\""},
        WrongType{"KeyTwice", R"("kind":"string","name":"","name":"b")", "/name", "twice"},
        WrongType{"NameWithZero", R"("kind":"string","name":"a\u0000b")", "/name", "zero byte"},
        WrongType{"NameWithZeroInHex", R"("kind":"string","name":{"hex":"00"})", "/name",
                  "zero byte"},
        WrongType{"NameOfHalfAByte", R"("kind":"string","name":{"hex":"616"})", "/name",
                  "two digits"},
        WrongType{"FlagsTooLarge", R"("kind":"string","name":"","flags":4294967296)", "/flags",
                  "from 0 to 4294967295"},
        WrongType{"FractionalFlags", R"("kind":"string","name":"","flags":1.5)", "/flags",
                  "whole number"},
        WrongType{"RangeBelow",
                  R"("kind":"integer","name":"","range":{"si":-2147483649,)"
                  R"("ei":0,"dir":0})",
                  "/range/si", "from -2147483648"},
        WrongType{"UnequalValues",
                  R"("kind":"discreteEnum","name":"","baseType":0,"valueSize":1,)"
                  R"("literals":[{"name":"A","value":"00"},)"
                  R"({"name":"B","value":"0001"}])",
                  "/literals/1/value", "has 2 bytes"},
        WrongType{"Overflow", R"("kind":"real","name":"","flavour":0,"left":1e999)", "/left",
                  "overflow"},
        WrongType{"FlavourTooLarge", R"("kind":"event","name":"","flavour":2)", "/flavour",
                  "at most 1"},
        WrongType{"FarReference",
                  R"("kind":"record","name":"","recordKind":1,"members":[)"
                  R"({"name":"m","type":9}])",
                  "/members/0/type", "refers to the id 9"},
        WrongType{"Deep", R"("kind":[[[[[[[[[[]]]]]]]]]])", "/kind/0/0/0/0/0/0", "deeper than"}),
    [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
