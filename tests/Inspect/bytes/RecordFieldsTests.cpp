// What each kind of record is read into, field by field. The records have one-letter names: size,
// kind, name and flags take the first 14 bytes, as `head` says.

#include "Inspect/bytes/RecordFields.h"
#include "Inspect/words/TypeText.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFileFrame.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <map>

namespace {

using namespace Inspect;
using namespace RTTI;
using testing::ElementsAreArray;
using testing::EndsWith;

constexpr std::size_t BLOCK = 4096;

using Lines = std::vector<std::string>;

/// "14+4 name = value (meaning) state", the offset from the beginning of the record.
std::string lineOf(const RecordField& field, unsigned long long address) {
    std::string line = std::to_string(field.offset - address) + '+' + std::to_string(field.size) +
                       ' ' + field.name;
    if (field.lastItem)
        line += " to [" + std::to_string(*field.lastItem) + ']';
    line += " = " + field.value;
    if (!field.meaning.empty())
        line += " (" + field.meaning + ')';
    if (field.state != FieldState::WHOLE)
        line += ' ' + std::string(wordOf(field.state));
    return line;
}

Lines fieldsIn(const std::string& image, unsigned long long address) {
    RecordingBlockManager storage(image);
    TypeFile::StorageWindow window(storage, image.size(), BLOCK);
    Lines lines;
    readRecordFields(
        window, address, [](unsigned int id) { return "type " + std::to_string(id); },
        [&](const RecordField& field) {
            lines.push_back(lineOf(field, address));
            return true;
        });
    return lines;
}

Lines fieldsOf(const TypeFileBuilder& file) { return fieldsIn(file.image(), file.address(0)); }

/// The fields that all records begin with, and these behind them.
void expectBody(const TypeFileBuilder& file, unsigned int size, const std::string& kind,
                const Lines& body) {
    Lines expected{"0+4 recordSize = " + std::to_string(size), "4+4 kind = " + kind,
                   "8+2 name = \"t\"", "10+4 flags = 0x0"};
    expected.insert(expected.end(), body.begin(), body.end());
    EXPECT_THAT(fieldsOf(file), ElementsAreArray(expected));
}

TypeFileBuilder typeFile(unsigned int kind) {
    TypeFileBuilder file;
    file.record(kind, "t");
    return file;
}

TEST(RecordFields, OfAnInteger) {
    expectBody(typeFile(ClassId::INT).range(-5, 100, 1), 26, "0xa0000005 (integer)",
               {"14+12 range = -5 to 100"});
}

TEST(RecordFields, OfAReal) {
    expectBody(typeFile(ClassId::FLOAT).u32(2).f64(-0.5).f64(1e6).f64(0), 42, "0xa0000006 (real)",
               {"14+4 flavour = 2", "18+8 left = -0.5", "26+8 right = 1000000",
                "34+8 direction = 0 (downto)"});
}

TEST(RecordFields, OfARealSayWhatTheLoaderMakesOfFlavourAndDirection) {
    const Lines lines = fieldsOf(typeFile(ClassId::FLOAT).u32(4).f64(0).f64(0).f64(1.75));
    EXPECT_EQ(lines[4], "14+4 flavour = 4 (above 3: read as 0)");
    EXPECT_EQ(lines[7], "34+8 direction = 1.75 (to)");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Lines none = fieldsOf(typeFile(ClassId::FLOAT).u32(0).f64(0).f64(0).f64(nan));
    EXPECT_EQ(none[7], "34+8 direction = nan (does not fit into 32 bits: read as -2147483648)");
}

TEST(RecordFields, OfASequentialEnumeration) {
    expectBody(typeFile(ClassId::SEQ_ENUM).u32(1).u32(5).u32(2).str("a").str("bc").u32(1), 35,
               "0xa0000003 (sequential enumeration)",
               {"14+4 encoding = 1 (2-State)", "18+4 enumKind = 5 (VHDL_OTHER_ENUM)",
                "22+4 literalCount = 2", "26+2 literals[0] = \"a\"", "28+3 literals[1] = \"bc\"",
                "31+4 valueSize = 1 (bytes of a value)"});
}

TEST(RecordFields, OfADiscreteEnumeration) {
    TypeFileBuilder file = typeFile(ClassId::DISCRETE_ENUM);
    file.u32(3).u32(1).u32(2).str("on").bytes({'\x34', '\x12'}).u32(1).range(7, 0, 0);
    expectBody(file, 47, "0xa0000004 (discrete enumeration)",
               {"14+4 baseType = 3 (type 3)", "18+4 literalCount = 1",
                "22+4 valueSize = 2 (bytes of a value)", "26+3 literals[0].name = \"on\"",
                "29+2 literals[0].value = 4660 (as a little-endian number)",
                "31+4 constraintCount = 1", "35+12 constraints[0] = 7 downto 0"});
}

TEST(RecordFields, OfADiscreteEnumerationWithoutValueBytesHaveNoValues) {
    TypeFileBuilder file = typeFile(ClassId::DISCRETE_ENUM);
    file.u32(3).u32(2).u32(0).str("a").str("b").u32(0);
    const Lines lines = fieldsOf(file);
    EXPECT_EQ(lines[7], "26+2 literals[0].name = \"a\"");
    EXPECT_EQ(lines[8], "28+2 literals[1].name = \"b\"");
    EXPECT_EQ(lines[9], "30+4 constraintCount = 0");
}

TEST(RecordFields, OfATypedef) {
    expectBody(typeFile(ClassId::TYPEDEF).u32(9).u32(1).range(0, 0, -2), 34, "0xa0000007 (typedef)",
               {"14+4 dataType = 9 (type 9)", "18+4 constraintCount = 1",
                "22+12 constraints[0] = open (filled in by an enclosing type)"});
}

TEST(RecordFields, OfAccessAndFileTypes) {
    const Lines body{"14+4 refType = 4 (type 4)", "18+4 alignment = 8", "22+4 valueSize = 16"};
    expectBody(typeFile(ClassId::ACCESS).u32(4).u32(8).u32(16), 26, "0xa0000008 (access type)",
               body);
    expectBody(typeFile(ClassId::FILE_TYPE).u32(4).u32(8).u32(16), 26, "0xa000000c (file type)",
               body);
}

TEST(RecordFields, OfAPhysicalType) {
    expectBody(typeFile(ClassId::PHYSICAL).u32(1).str("fs").i64(-1), 29,
               "0xa000000d (physical type)",
               {"14+4 unitCount = 1", "18+3 units[0].name = \"fs\"", "21+8 units[0].value = -1"});
}

TEST(RecordFields, OfAnArray) {
    TypeFileBuilder file = typeFile(ClassId::ARRAY);
    file.u32(VLOG_FIXED_PACKED_ARRAY).u32(2).u32(2).u32(1).u32(TypeFileFormat::NO_TYPE_ID);
    file.u32(2).range(3, 0, 0).range(0, 7, 1).i32(-99);
    expectBody(file, 66, "0xa0000010 (fixed array)",
               {"14+4 arrayKind = 0xa00003 (VLOG_FIXED_PACKED_ARRAY)",
                "18+4 elementType = 2 (type 2)", "22+4 indexTypeCount = 2",
                "26+4 indexTypes[0] = 1 (type 1)", "30+4 indexTypes[1] = 4294967295 (none)",
                "34+4 constraintCount = 2", "38+12 constraints[0] = 3 downto 0",
                "50+12 constraints[1] = 0 to 7", "62+4 svTypeId = -99 (none)"});
}

TEST(RecordFields, OfDynamicArraysAndQueues) {
    const Lines body{"14+4 elementType = 2 (type 2)", "18+4 svTypeId = -5 (string)"};
    expectBody(typeFile(ClassId::DYNAMIC_ARRAY).u32(2).i32(-5), 22, "0xa0000013 (dynamic array)",
               body);
    expectBody(typeFile(ClassId::QUEUE).u32(2).i32(-5), 22, "0xa0000014 (queue)", body);
}

TEST(RecordFields, OfAnAssociativeArray) {
    expectBody(
        typeFile(ClassId::ASSOC_ARRAY).u32(2).i32(12).u32(6), 26, "0xa0000015 (associative array)",
        {"14+4 elementType = 2 (type 2)", "18+4 svTypeId = 12", "22+4 indexType = 6 (type 6)"});
}

TEST(RecordFields, OfAStruct) {
    TypeFileBuilder file = typeFile(ClassId::RECORD);
    file.u32(VLOG_PACKED_STRUCT).u32(2).str("x").u32(5).u32(0);
    file.str("yy").u32(6).u32(1).range(1, 0, 0).i32(40);
    expectBody(file, 59, "0xa0000011 (record, struct or union)",
               {"14+4 recordKind = 0xb0003 (VLOG_PACKED_STRUCT)", "18+4 memberCount = 2",
                "22+2 members[0].name = \"x\"", "24+4 members[0].type = 5 (type 5)",
                "28+4 members[0].constraintCount = 0", "32+3 members[1].name = \"yy\"",
                "35+4 members[1].type = 6 (type 6)", "39+4 members[1].constraintCount = 1",
                "43+12 members[1].constraints[0] = 1 downto 0", "55+4 svTypeId = 40"});
}

TEST(RecordFields, OfAClass) {
    TypeFileBuilder file = typeFile(ClassId::CLASS);
    file.u32(TypeFileFormat::NO_TYPE_ID).i32(-7).u32(1).str("m").u32(0).u32(0).u32(2);
    expectBody(file, 40, "0xa0000017 (class)",
               {"14+4 baseClass = 4294967295 (none)", "18+4 svTypeId = -7 (event)",
                "22+4 memberCount = 1", "26+2 members[0].name = \"m\"",
                "28+4 members[0].type = 0 (type 0)", "32+4 members[0].constraintCount = 0",
                "36+4 members[0].flag = 2 (true)"});
}

TEST(RecordFields, OfAnEvent) {
    expectBody(typeFile(ClassId::EVENT).u32(1), 18, "0xa000000b (event)", {"14+4 flavour = 1"});
}

TEST(RecordFields, OfKindsWithoutABody) {
    expectBody(typeFile(ClassId::STRING), 14, "0xa0000018 (string)", {});
    expectBody(typeFile(ClassId::CHANDLE), 14, "0xa0000009 (chandle)", {});
    expectBody(typeFile(ClassId::WILDCARD), 14, "0xa0000019 (wildcard)", {});
}

TEST(RecordFields, OfAKindThatBuildsNoTypeAreNotRead) {
    for (const unsigned int kind : {ClassId::LOGIC, ClassId::CLASS_HANDLE, 0xA000001Au}) {
        const Lines lines = fieldsOf(typeFile(kind));
        ASSERT_EQ(lines.size(), 3u);
        EXPECT_EQ(lines[2], "8+6 left-over bytes =  (6 bytes that are not read) unread");
    }
}

TEST(RecordFields, ShowTheFlagThatMeansSomething) {
    TypeFileBuilder file;
    file.record(ClassId::STRING, "t", 0x31);
    EXPECT_EQ(fieldsOf(file)[3], "10+4 flags = 0x31 (values in unpadded bytes)");
}

TEST(RecordFields, EscapeNames) {
    TypeFileBuilder file;
    file.record(ClassId::STRING, "\x1b[2J\"");
    EXPECT_EQ(fieldsOf(file)[2], "8+6 name = \"\\x1B[2J\\\"\"");
}

TEST(RecordFields, OfALongNameShowItsBeginning) {
    TypeFileBuilder file;
    file.record(ClassId::STRING, std::string(10000, 'n')); // More than the window holds at once.
    EXPECT_EQ(fieldsOf(file)[2],
              "8+10001 name = \"" + std::string(1024, 'n') + "\" (the first 1024 of 10000 bytes)");
}

TEST(RecordFields, BehindTheEndAreMissing) {
    TypeFileBuilder file = typeFile(ClassId::ARRAY);
    file.u32(VHDL_ARRAY).u32(2).cut(20);
    expectBody(file, 20, "0xa0000010 (fixed array)",
               {"14+4 arrayKind = 0xa00001 (VHDL_ARRAY)",
                "18+2 elementType = (missing) (2 of 4 bytes: read as 0) partial",
                "20+0 indexTypeCount = (missing) (read as 0) missing",
                "20+0 constraintCount = (missing) (read as 0) missing",
                "20+0 svTypeId = (missing) (read as -99) missing"});
}

TEST(RecordFields, OfACutRangeAreItsNumbers) {
    TypeFileBuilder file = typeFile(ClassId::INT);
    file.u32(5).bytes({'\x01'});
    expectBody(file, 19, "0xa0000005 (integer)",
               {"14+4 range.si = 5", "18+1 range.ei = (missing) (1 of 4 bytes: read as 0) partial",
                "19+0 range.dir = (missing) (read as 0) missing"});
}

TEST(RecordFields, OfACutMemberAreNamedWithItsIndex) {
    TypeFileBuilder file = typeFile(ClassId::RECORD);
    file.u32(VHDL_RECORD).u32(1).str("x").u32(5).u32(2).range(1, 2, 1);
    expectBody(file, 44, "0xa0000011 (record, struct or union)",
               {"14+4 recordKind = 0xb0001 (VHDL_RECORD)", "18+4 memberCount = 1",
                "22+2 members[0].name = \"x\"", "24+4 members[0].type = 5 (type 5)",
                "28+4 members[0].constraintCount = 2", "32+12 members[0].constraints[0] = 1 to 2",
                "44+0 members[0].constraints[1] = (missing) (read as empty) missing",
                "44+0 svTypeId = (missing) (read as -99) missing"});
}

TEST(RecordFields, OfAListThatClaimsToBeHugeAreOneWhereItEnds) {
    TypeFileBuilder file = typeFile(ClassId::SEQ_ENUM);
    file.u32(0).u32(0).u32(0x7FFFFFFF).str("a");
    const Lines lines = fieldsOf(file);
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[7], "26+2 literals[0] = \"a\"");
    EXPECT_EQ(lines[8], "28+0 literals[1] to [2147483646] = (missing) (2147483646 entries, "
                        "read as empty) missing");
}

TEST(RecordFields, OfAListWithANegativeCountAreNone) {
    TypeFileBuilder file = typeFile(ClassId::PHYSICAL);
    file.i32(-1);
    EXPECT_EQ(fieldsOf(file).back(), "14+4 unitCount = -1 (negative: nothing is read)");
}

TEST(RecordFields, OfANameWithoutEndGoUpToTheRecordsEnd) {
    TypeFileBuilder file;
    file.record(ClassId::INT, "integer").cut(12);
    EXPECT_EQ(fieldsOf(file)[2],
              "8+4 name = \"inte\" (no zero byte: ends with the record) partial");
    EXPECT_EQ(fieldsOf(file)[3], "12+0 flags = (missing) (read as 0) missing");
}

TEST(RecordFields, OfAValueThatIsCut) {
    TypeFileBuilder file = typeFile(ClassId::DISCRETE_ENUM);
    file.u32(0).u32(1).u32(4).str("a").bytes({'\x01'});
    EXPECT_EQ(fieldsOf(file)[8],
              "28+1 literals[0].value =  (1 of 4 bytes, the others are read as 0) partial");
}

TEST(RecordFields, LeaveOverWhatTheLoaderDoesNotRead) {
    expectBody(typeFile(ClassId::STRING).bytes("abc"), 17, "0xa0000018 (string)",
               {"14+3 left-over bytes =  (3 bytes that are not read) unread"});
}

TEST(RecordFields, OfARecordWithoutRoomForItsKindAreMissingBehindIt) {
    TypeFileBuilder file = typeFile(ClassId::STRING);
    const Lines lines = fieldsOf(file.claim(-3));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "0+4 recordSize = -3 (less than the 8 bytes of size and kind)");
    EXPECT_EQ(lines[1], "4+4 kind = 0xa0000018 (string)");
    EXPECT_EQ(lines[2], "8+0 name = (missing) (read as empty) missing");
}

TEST(RecordFields, EndWithTheStorage) {
    TypeFileBuilder file = typeFile(ClassId::FLOAT);
    file.u32(0).claim(0x7FFFFFFF);
    std::string image = file.image();
    image.resize(file.address(0) + 16);
    const Lines lines = fieldsIn(image, file.address(0));
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[0], "0+4 recordSize = 2147483647 (the storage ends after 16 bytes)");
    EXPECT_EQ(lines[4], "14+2 flavour = (missing) (2 of 4 bytes: the storage ends here) partial");
    EXPECT_EQ(lines[5], "16+0 left = (missing) (the storage ends here) missing");
}

TEST(RecordFields, AreNoLongerGivenWhenNoMoreAreWanted) {
    RecordingBlockManager storage(typeFile(ClassId::STRING).image());
    TypeFile::StorageWindow window(storage, 40 + 14 + 8, BLOCK);
    int given = 0;
    readRecordFields(window, 40, {}, [&](const RecordField&) { return ++given < 2; });
    EXPECT_EQ(given, 2);
}

TEST(RecordHead, HasKindAndNameOfARecord) {
    TypeFileBuilder file;
    file.record(ClassId::ARRAY, "mem").u32(VLOG_FIXED_PACKED_ARRAY);
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    TypeFile::StorageWindow window(storage, image.size(), BLOCK);
    const RecordHead head = recordHeadAt(window, file.address(0));
    EXPECT_EQ(head.kindCode, ClassId::ARRAY);
    EXPECT_EQ(head.kind, "packed array");
    EXPECT_EQ(head.label, "\"mem\"");
    EXPECT_TRUE(head.isThere);
    EXPECT_FALSE(recordHeadAt(window, image.size() - 7).isThere);
    EXPECT_FALSE(recordHeadAt(window, ~0ULL).isThere);
}

TEST(RecordHead, HasTheArrayKindOrRecordKindAndNoOtherDetail) {
    TypeFileBuilder file;
    file.record(ClassId::ARRAY, "a").u32(VHDL_ARRAY);
    file.record(ClassId::RECORD, "r").u32(VLOG_PACKED_STRUCT);
    file.record(ClassId::SEQ_ENUM, "e").u32(ENCODING_2_STATE);
    file.record(ClassId::TYPEDEF, "t").u32(7);
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    TypeFile::StorageWindow window(storage, image.size(), BLOCK);
    const auto detail = [&](unsigned int id) {
        return recordHeadAt(window, file.address(id)).detail;
    };
    EXPECT_EQ(detail(0), VHDL_ARRAY);
    EXPECT_EQ(detail(1), VLOG_PACKED_STRUCT);
    EXPECT_EQ(detail(2), std::nullopt);
    EXPECT_EQ(detail(3), std::nullopt);
}

/// A real file: its types loaded, and the fields of their records.
class RealFile : public testing::TestWithParam<std::string> {
protected:
    RealFile()
        : m_storage(EXAMPLE_TYPEFILES_DIR "/" + GetParam() + ".typ"),
          m_window(m_storage, m_storage.size(), BLOCK), m_frame(m_storage, m_storage.size()),
          m_count(m_frame.typeCount()) {
        m_manager.setupDeserializer(m_storage, 0);
    }

    unsigned long long addressOf(unsigned int id) const { return m_frame.addressOf(id); }

    std::vector<RecordField> fields(unsigned int id) {
        std::vector<RecordField> fields;
        readRecordFields(m_window, addressOf(id), {}, [&](const RecordField& field) {
            fields.push_back(field);
            return true;
        });
        return fields;
    }

    OVAT::FileBlockManager m_storage;
    TypeFile::StorageWindow m_window;
    RTTI::RTTypeManager m_manager;
    TypeFile::TypeFileFrame m_frame;
    unsigned int m_count;
};

TEST_P(RealFile, HasRecordsThatTheirFieldsCoverWithoutGapOrOverlap) {
    ASSERT_GT(m_count, 0u);
    for (unsigned int id = 0; id < m_count; ++id) {
        unsigned long long at = addressOf(id);
        const unsigned long long end = at + littleEndianAt<unsigned int>(m_window.at(at, 4));
        for (const RecordField& field : fields(id)) {
            EXPECT_EQ(field.offset, at) << id << ' ' << field.name;
            EXPECT_EQ(field.state, FieldState::WHOLE) << id << ' ' << field.name;
            at += field.size;
        }
        EXPECT_EQ(at, end) << id;
    }
}

using Texts = std::map<std::string, std::string>;

void addRanges(Texts& texts, const std::string& prefix,
               const std::vector<FullConstraints>& constraints) {
    texts[prefix + "constraintCount"] = std::to_string(constraints.size());
    for (std::size_t i = 0; i < constraints.size(); ++i)
        texts[prefix + "constraints[" + std::to_string(i) + ']'] = rangeText(constraints[i]);
}

void addMembers(Texts& texts, const RTAggregateType& type) {
    texts["memberCount"] = std::to_string(type.m_members.size());
    for (std::size_t i = 0; i < type.m_members.size(); ++i) {
        const std::string prefix = "members[" + std::to_string(i) + "].";
        const RTAggregateType::t_Member& member = *type.m_members[i];
        texts[prefix + "name"] = quotedName(member.m_memberName);
        texts[prefix + "type"] = std::to_string(member.m_typeId);
        addRanges(texts, prefix, member.m_constraints);
    }
}

/// Fields of the loaded object by the names that they have in the record.
Texts valuesOf(const RTBaseType& type) {
    Texts texts{{"name", quotedName(type.m_name)}};
    if (const auto* array = dynamic_cast<const RTArrayType*>(&type)) {
        texts["elementType"] = std::to_string(array->m_elementTypeId);
        texts["indexTypeCount"] = std::to_string(array->m_indexTypeIds.size());
        for (std::size_t i = 0; i < array->m_indexTypeIds.size(); ++i)
            texts["indexTypes[" + std::to_string(i) + "]"] =
                std::to_string(array->m_indexTypeIds[i]);
        texts["svTypeId"] = std::to_string(array->m_svTypeId);
        addRanges(texts, "", array->m_constraints);
    } else if (const auto* aggregate = dynamic_cast<const RTAggregateType*>(&type)) {
        addMembers(texts, *aggregate);
        texts["svTypeId"] = std::to_string(type.getSVTypeId());
    } else if (const auto* enumeration = dynamic_cast<const RTSeqEnumType*>(&type)) {
        texts["encoding"] = std::to_string(enumeration->m_valueEncoding);
        for (std::size_t i = 0; i < enumeration->m_enumeratorNames.size(); ++i)
            texts["literals[" + std::to_string(i) + "]"] =
                quoted(enumeration->m_enumeratorNames[i]);
        texts["valueSize"] = std::to_string(enumeration->m_valueSize);
    } else if (const auto* alias = dynamic_cast<const RTTypedefType*>(&type)) {
        texts["dataType"] = std::to_string(alias->m_dataTypeId);
        addRanges(texts, "", alias->m_constraints);
    } else if (const auto* integer = dynamic_cast<const RTIntType*>(&type)) {
        texts["range"] = rangeText(integer->m_constraint);
    } else if (const auto* physical = dynamic_cast<const RTPhysicalType*>(&type)) {
        for (std::size_t i = 0; i < physical->m_units.size(); ++i)
            texts["units[" + std::to_string(i) + "].value"] =
                std::to_string(physical->m_units[i].value);
    }
    return texts;
}

TEST_P(RealFile, HasFieldsWithTheValuesThatAreLoaded) {
    for (unsigned int id = 0; id < m_count; ++id) {
        Texts found;
        for (const RecordField& field : fields(id))
            found[field.name] = field.value;
        const RTBaseType* type = m_manager.getRTType(id);
        ASSERT_NE(type, nullptr);
        for (const auto& [name, value] : valuesOf(*type))
            EXPECT_EQ(found[name], value) << id << ' ' << name;
    }
}

std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLE_TYPEFILES_DIR))
        if (entry.path().extension() == ".typ")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(RecordFields, RealFile, testing::ValuesIn(exampleNames()),
                         [](const auto& example) { return example.param; });

} // namespace
