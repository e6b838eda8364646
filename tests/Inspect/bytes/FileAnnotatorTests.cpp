// A whole file's bytes as text and JSON, with what the verifier finds at its place.

#include "Inspect/bytes/FileAnnotator.h"
#include "Inspect/declarations/TypeLabel.h"
#include "OVAT/FileBlockManager.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <vector>

namespace {

using namespace Inspect;
using namespace RTTI;
using testing::HasSubstr;
using testing::Not;

struct Annotated {
    std::string text;
    bool hasErrors;
};

Annotated annotated(const std::string& image, const Annotation& annotation = {}) {
    RecordingBlockManager storage(image);
    std::ostringstream out;
    const bool hasErrors = annotate(out, storage, image.size(), annotation);
    return {out.str(), hasErrors};
}

Annotation ofType(unsigned int id) {
    Annotation annotation;
    annotation.typeId = id;
    return annotation;
}

/// Two types whose records lie behind one another: "s" at 40, "e" at 54; the table at 72.
TypeFileBuilder twoTypes() {
    TypeFileBuilder file;
    file.record(ClassId::STRING, "s").record(ClassId::EVENT, "e").u32(1);
    return file;
}

constexpr char TWO_TYPES[] =
    "header at 0x0, 40 bytes\n"
    "  00000000  42 72 61 6b 65 6c 20 4f 76 61 74 20  version                      "
    "\"Brakel Ovat TYPE FILE 001\"\n"
    "  0000000c  54 59 50 45 20 46 49 4c 45 20 30 30\n"
    "  00000018  31 00 00 00 00 00 00 00\n"
    "  00000020  02 00 00 00                          type count                   2\n"
    "  00000024  48 00 00 00                          address table offset         72            "
    "0x48\n"
    "\n"
    "type 0 at 0x28: string \"s\", 14 bytes\n"
    "  00000028  0e 00 00 00                          record size                  14\n"
    "  0000002c  18 00 00 a0                          kind                         0xa0000018    "
    "string\n"
    "  00000030  73 00                                name                         \"s\"\n"
    "  00000032  00 00 00 00                          flags                        0x0\n"
    "\n"
    "type 1 at 0x36: event \"e\", 18 bytes\n"
    "  00000036  12 00 00 00                          record size                  18\n"
    "  0000003a  0b 00 00 a0                          kind                         0xa000000b    "
    "event\n"
    "  0000003e  65 00                                name                         \"e\"\n"
    "  00000040  00 00 00 00                          flags                        0x0\n"
    "  00000044  01 00 00 00                          flavour                      1\n"
    "\n"
    "address table at 0x48, 16 bytes\n"
    "  00000048  28 00 00 00 00 00 00 00              address[0]                   0x28          "
    "string \"s\"\n"
    "  00000050  36 00 00 00 00 00 00 00              address[1]                   0x36          "
    "event \"e\"\n";

TEST(FileAnnotator, ShowsHeaderRecordsAndTableInTheOrderOfTheStorage) {
    const Annotated result = annotated(twoTypes().image());
    EXPECT_EQ(result.text, TWO_TYPES);
    EXPECT_FALSE(result.hasErrors);
}

TEST(FileAnnotator, TellsHowFarItHasCome) {
    std::vector<unsigned long long> ends;
    Annotation annotation;
    annotation.progress = [&](unsigned long long offset) { ends.push_back(offset); };
    annotated(twoTypes().image(), annotation);
    EXPECT_THAT(ends, testing::ElementsAre(40, 54, 72, 88)); // Header, two records, the table.
}

TEST(FileAnnotator, ShowsOneTypeWithItsAddress) {
    EXPECT_EQ(
        annotated(twoTypes().image(), ofType(0)).text,
        "address table at 0x48, 8 bytes\n"
        "  00000048  28 00 00 00 00 00 00 00              address[0]                   0x28  "
        "        string \"s\"\n"
        "\n"
        "type 0 at 0x28: string \"s\", 14 bytes\n"
        "  00000028  0e 00 00 00                          record size                  14\n"
        "  0000002c  18 00 00 a0                          kind                         "
        "0xa0000018    string\n"
        "  00000030  73 00                                name                         "
        "\"s\"\n"
        "  00000032  00 00 00 00                          flags                        0x0\n");
}

/// A typedef "t" of an array of bits that has no name, and another type.
std::string annotatedNameless(unsigned int otherKind, bool force) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "bit").u32(1).u32(1).u32(2).str("0").str("1").u32(1);
    file.record(ClassId::ARRAY, "").u32(VLOG_FIXED_PACKED_ARRAY).u32(0).u32(1).u32(0);
    file.u32(1).range(7, 0, 0).i32(-99);
    file.record(ClassId::TYPEDEF, "t").u32(1).u32(0).record(otherKind, "s");
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    const TypeTable types{4, [&](unsigned int id) { return manager.getRTType(id); }};
    Annotation annotation;
    annotation.shapeOf = [&](unsigned int id) {
        return shapeBehindKind(types, id, types.typeOf(id));
    };
    annotation.force = force;
    return annotated(image, annotation).text;
}

TEST(FileAnnotator, DescribesTypesWithoutNamesByTheirShapes) {
    const std::string text = annotatedNameless(ClassId::STRING, false);
    EXPECT_THAT(text, HasSubstr("\ntype 1 at 0x4c: packed array bit [7:0], 49 bytes\n"));
    EXPECT_THAT(text,
                HasSubstr("address[1]                   0x4c          packed array bit [7:0]\n"));
    EXPECT_THAT(text,
                HasSubstr("data type                    1             packed array bit [7:0]\n"));
}

TEST(FileAnnotator, LoadsTypesOfAFileWithErrorsOnlyByForce) {
    constexpr unsigned int UNKNOWN_KIND = 0xA0000040;
    EXPECT_THAT(annotatedNameless(UNKNOWN_KIND, false),
                HasSubstr("\ntype 1 at 0x4c: packed array, 49 bytes\n"));
    EXPECT_THAT(annotatedNameless(UNKNOWN_KIND, true),
                HasSubstr("\ntype 1 at 0x4c: packed array bit [7:0], 49 bytes\n"));
}

TEST(FileAnnotator, ShowsWhatLiesBetweenRecords) {
    std::string image = twoTypes().image();
    image[0x36 - 14] = 10;           // invalid_size: the first record leaves its flags out
    image += std::string(200, '\7'); // and there is something behind the table
    const std::string text = annotated(image).text;
    EXPECT_THAT(text, HasSubstr("\ngap at 0x32, 4 bytes that belong to nothing\n"
                                "  00000032  00 00 00 00\n\n"));
    EXPECT_THAT(text, HasSubstr("\ngap at 0x58, 200 bytes that belong to nothing\n"
                                "  00000058  07 07 07 07 07 07 07 07 07 07 07 07\n"));
    EXPECT_THAT(text, testing::EndsWith("  0000010c  07 07 07 07 07 07 07 07 07 07 07 07\n"
                                        "  ... 8 more bytes\n"));
}

TEST(FileAnnotator, PutsFindingsBehindTheirField) {
    TypeFileBuilder file;
    file.record(ClassId::TYPEDEF, "t").u32(7).u32(0);
    const Annotated result = annotated(file.image());
    EXPECT_THAT(result.text,
                HasSubstr("data type                    7             there is no such "
                          "type\n            ^ error type-id-outside-table, data type: "));
    EXPECT_TRUE(result.hasErrors);
}

TEST(FileAnnotator, PutsFindingsOfAddressesIntoTheTable) {
    std::string image = twoTypes().image();
    image[0x50 + 7] = 1; // invalid_address: the second record's highest byte
    const Annotated result = annotated(image);
    EXPECT_THAT(
        result.text,
        HasSubstr("address[1]                   0x100000000000036  its record is not in the "
                  "storage\n            ^ error record-outside-storage, address: "));
    EXPECT_THAT(result.text, HasSubstr("\ntype 1 at 0x100000000000036, 0 bytes\n"));
    EXPECT_TRUE(result.hasErrors);
}

TEST(FileAnnotator, TellsARecordOfKindZeroFromOneThatIsNotThere) {
    std::string image = twoTypes().image();
    std::fill_n(image.begin() + 0x3A, 4, '\0'); // invalid_kind: that of the second record
    const std::string text = annotated(image).text;
    EXPECT_THAT(text, HasSubstr("type 1 at 0x36: type of unknown class \"e\", 18 bytes\n"));
    EXPECT_THAT(text, HasSubstr("0x36          type of unknown class \"e\"\n"));
}

TEST(FileAnnotator, ShowsHowFarATableIsThere) {
    std::string image = twoTypes().image();
    image.resize(0x50 + 3);
    const Annotated result = annotated(image);
    EXPECT_THAT(result.text, HasSubstr("0x48\n            ^ error table-outside-storage, "));
    EXPECT_THAT(result.text,
                HasSubstr("\n  00000050  36 00 00                             "
                          "address[1]                   (missing)     the storage ends here\n"));
    EXPECT_THAT(result.text, HasSubstr("type 0 at 0x28: string \"s\", 14 bytes\n"));
    EXPECT_TRUE(result.hasErrors);
}

TEST(FileAnnotator, ShowsAnEmptyStorage) {
    const Annotated result = annotated("");
    EXPECT_THAT(result.text, HasSubstr("version                      (missing)"));
    EXPECT_THAT(result.text, HasSubstr("^ error header-outside-storage, header: "));
    EXPECT_TRUE(result.hasErrors);
}

TEST(FileAnnotator, ShowsARecordOnceForAllTypesThatShareIt) {
    std::string image = twoTypes().image();
    image[0x50] = 0x28; // invalid_address: that of the first record
    const std::string text = annotated(image).text;
    EXPECT_THAT(text, HasSubstr("\ntypes 0, 1 at 0x28: string \"s\", 14 bytes\n"));
    EXPECT_THAT(text, HasSubstr("^ warning record-shared, address: "));
}

TEST(FileAnnotator, DoesNotReadARecordIntoTheNextOne) {
    std::string image = twoTypes().image();
    image[0x28] = 20; // invalid_size: 6 bytes of the second record
    const std::string text = annotated(image).text;
    EXPECT_THAT(text, HasSubstr("record size                  20\n"
                                "            ^ error record-overlap, record size: "));
    EXPECT_THAT(text, HasSubstr("  00000030  73 00 00 00 00 00                    body"));
    EXPECT_THAT(text, HasSubstr("\ntype 1 at 0x36: event \"e\", 18 bytes\n"));
    EXPECT_THAT(
        annotated(image, ofType(0)).text,
        HasSubstr("left-over bytes                            6 bytes that are not read\n"));
}

TEST(FileAnnotator, ShowsAloneWhatIsWrongWithTheTypeAndTheFile) {
    TypeFileBuilder file = twoTypes();
    file.record(ClassId::TYPEDEF, "t").u32(7).u32(0);
    EXPECT_FALSE(annotated(file.image(), ofType(0)).hasErrors);
    EXPECT_TRUE(annotated(file.image(), ofType(2)).hasErrors);
    std::string image = file.image();
    image[1] = '\1'; // invalid_version: no text
    const Annotated result = annotated(image, ofType(0));
    EXPECT_TRUE(result.hasErrors);
    EXPECT_THAT(result.text, HasSubstr("^ error version-not-text, version: "));
}

TEST(FileAnnotator, SaysLastHowMuchMoreIsWrong) {
    TypeFileBuilder file;
    for (int i = 0; i < 1001; ++i)
        file.record(ClassId::EVENT, "e").u32(2);
    const Annotated result = annotated(file.image());
    EXPECT_THAT(result.text, testing::EndsWith(
                                 "\nfile at 0x0, 26066 bytes\n            ^ warning more-findings, "
                                 "findings: 0 more errors and 1 more warning are not listed.\n"));
    EXPECT_FALSE(result.hasErrors);
}

TEST(FileAnnotator, PaintsFindings) {
    Annotation annotation;
    annotation.style = TextStyle::coloured();
    TypeFileBuilder file;
    file.record(ClassId::TYPEDEF, "t").u32(7).u32(0);
    EXPECT_THAT(annotated(file.image(), annotation).text,
                HasSubstr("\x1B[1;31m^ error type-id-outside-table\x1B[0m, data type:"));
}

nlohmann::json jsonOf(const std::string& image) {
    Annotation annotation;
    annotation.form = AnnotationForm::JSON;
    return nlohmann::json::parse(annotated(image, annotation).text);
}

/// The fields of a record as JSON names them.
std::vector<std::string> jsonFieldsOf(const TypeFileBuilder& file) {
    std::vector<std::string> names;
    const nlohmann::json json = jsonOf(file.image());
    for (const nlohmann::json& field : json["parts"][1]["fields"])
        names.push_back(field["field"]);
    return names;
}

TEST(FileAnnotator, NamesFieldsInJsonAsADumpDoes) {
    TypeFileBuilder record;
    record.record(ClassId::RECORD, "r").u32(VHDL_RECORD).i32(1).str("m").u32(0).u32(2);
    record.range(7, 0, 0).i32(3); // Of the second range its left bound is there.
    EXPECT_THAT(jsonFieldsOf(record),
                testing::ElementsAre("recordSize", "kind", "name", "flags", "recordKind",
                                     "memberCount", "members[0].name", "members[0].type",
                                     "members[0].constraintCount", "members[0].constraints[0]",
                                     "members[0].constraints[1].si", "members[0].constraints[1].ei",
                                     "members[0].constraints[1].dir", "svTypeId"));
    TypeFileBuilder literals;
    literals.record(ClassId::SEQ_ENUM, "e").i32(ENCODING_BYTE).i32(VHDL_OTHER_ENUM).i32(2);
    literals.str("a").str("b").i32(1);
    EXPECT_THAT(jsonFieldsOf(literals),
                testing::ElementsAre("recordSize", "kind", "name", "flags", "encoding", "enumKind",
                                     "literalCount", "literals[0]", "literals[1]", "valueSize"));
    TypeFileBuilder array;
    array.record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0).i32(1).u32(0).u32(0).i32(-99);
    EXPECT_THAT(jsonFieldsOf(array),
                testing::ElementsAre("recordSize", "kind", "name", "flags", "arrayKind",
                                     "elementType", "indexTypeCount", "indexTypes[0]",
                                     "constraintCount", "svTypeId"));
}

TEST(FileAnnotator, GivesTheSameAsJson) {
    std::string image = twoTypes().image();
    image[0x44] = 2; // invalid_flavour
    const nlohmann::json json = jsonOf(image);
    EXPECT_EQ(json["errors"], 0);
    EXPECT_EQ(json["warnings"], 1);
    ASSERT_EQ(json["parts"].size(), 4u);
    const nlohmann::json& part = json["parts"][2];
    EXPECT_EQ(part["part"], "record");
    EXPECT_EQ(part["ids"], nlohmann::json::array({1}));
    EXPECT_EQ(part["kind"], "event");
    const nlohmann::json& field = part["fields"][4];
    EXPECT_EQ(field["offset"], 0x44);
    EXPECT_EQ(field["size"], 4);
    EXPECT_EQ(field["field"], "flavour");
    EXPECT_EQ(field["value"], "2");
    EXPECT_EQ(field["meaning"], "above 1: read as 0");
    EXPECT_EQ(field["state"], "whole");
    EXPECT_EQ(field["bytes"], "02000000");
    EXPECT_EQ(field["findings"][0]["code"], "flavour-unknown");
    EXPECT_EQ(field["findings"][0]["offset"], 0x44);
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The fields of all parts, in their order.
std::vector<nlohmann::json> fieldsIn(const nlohmann::json& json) {
    std::vector<nlohmann::json> fields;
    for (const nlohmann::json& part : json["parts"])
        fields.insert(fields.end(), part["fields"].begin(), part["fields"].end());
    return fields;
}

TEST(FileAnnotator, GivesJsonForEveryByteOfADamagedFile) {
    const std::string image = contentOf(EXAMPLE_TYPEFILES_DIR "/svkinds_slang.typ");
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        std::string damaged = image;
        for (int i = 0; i < 1 + round % 4; ++i)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        if (round % 3 == 0)
            damaged.resize(random() % damaged.size());
        std::vector<bool> isShown(damaged.size());
        std::size_t findings = 0; // One that is about no bytes stands by itself.
        const nlohmann::json json = jsonOf(damaged);
        for (const nlohmann::json& field : fieldsIn(json)) {
            findings += field.value("findings", nlohmann::json::array()).size();
            for (std::size_t i = 0; i < field.value("size", std::size_t{0}); ++i)
                isShown.at(field["offset"].get<std::size_t>() + i) = true;
        }
        EXPECT_EQ(std::count(isShown.begin(), isShown.end(), false), 0) << round;
        EXPECT_EQ(findings, json["errors"].get<std::size_t>() + json["warnings"].get<std::size_t>())
            << round;
    }
}

/// One type of each kind, from files of designs.
constexpr std::pair<const char*, unsigned int> EVERY_KIND[] = {
    {"ieee_ghw", 1},     {"ieee_ghw", 9},       {"ibex_slang", 6},     {"svkinds_slang", 90},
    {"ieee_ghw", 31},    {"ieee_rti", 19},      {"ieee_rti", 20},      {"vhkinds_ghw", 13},
    {"ibex_slang", 3},   {"svkinds_slang", 50}, {"svkinds_slang", 52}, {"svkinds_slang", 56},
    {"ibex_slang", 289}, {"svkinds_slang", 73}, {"svkinds_slang", 72}, {"svkinds_slang", 102},
    {"ieee_rti", 40},    {"svkinds_vltree", 56}};

TEST(FileAnnotator, ShowsOneTypeOfEachKindAsRecorded) {
    std::string text;
    for (const auto& [name, id] : EVERY_KIND) {
        OVAT::FileBlockManager storage(std::string(EXAMPLE_TYPEFILES_DIR "/") + name + ".typ");
        RTTypeManager manager;
        manager.setupDeserializer(storage, 0);
        const TypeTable types{id + 1, [&](unsigned int other) { return manager.getRTType(other); }};
        Annotation annotation = ofType(id);
        annotation.shapeOf = [&](unsigned int other) {
            return shapeBehindKind(types, other, types.typeOf(other));
        };
        std::ostringstream out;
        annotate(out, storage, storage.size(), annotation);
        text += std::string("$ rtti annotate ") + name + ".typ " + std::to_string(id) + '\n' +
                out.str() + '\n';
    }
    EXPECT_EQ(text, contentOf(ANNOTATED_KINDS));
}

} // namespace
