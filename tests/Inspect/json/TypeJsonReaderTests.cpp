// The reader of types in the JSON form: what it takes, and where it says that a text is wrong.

#include "Inspect/json/TypeJsonReader.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "TypeFile/TypeFileWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
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

TEST(TypeJsonReader, RefusesAPartOfAFile) {
    EXPECT_THAT(faultOf(R"({"isPart":true,"types":[]})"), StartsWith("/isPart: this is a part"));
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
        WrongDocument{"NameOfHalfAByte", documentOf(R"("kind":"string","name":{"hex":"616"})"),
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

} // namespace
