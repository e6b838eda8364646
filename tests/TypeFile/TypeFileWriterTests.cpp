#include "TypeFile/RecordEncoder.h"
#include "TypeFile/TypeFileWriter.h"

#include "OVAT/FileBlockManager.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/CTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

namespace {

using namespace RTTI;
using namespace TypeFile;
using testing::HasSubstr;

std::string bytesOf(TypeFileWriter& writer) {
    const std::vector<char> bytes = writer.finish();
    return {bytes.begin(), bytes.end()};
}

/// The record of one type, under the id 0, with everything that it refers to left to the caller.
std::string recordOf(const RTBaseType& type, unsigned int otherTypes = 0) {
    TypeFileWriter writer;
    writer.add(type);
    for (unsigned int i = 0; i < otherTypes; ++i)
        writer.add(RTStringType());
    const std::string bytes = bytesOf(writer);
    const auto size = static_cast<unsigned char>(bytes[TypeFileFormat::HEADER_SIZE]);
    return bytes.substr(TypeFileFormat::HEADER_SIZE, size);
}

/// The record that the builder of the tests lays out, which states the bytes a second time.
std::string expected(const TypeFileBuilder& file) {
    const std::string image = file.image();
    const auto begin = static_cast<std::size_t>(file.address(0));
    return image.substr(begin, static_cast<unsigned char>(image[begin]));
}

template <typename Type> Type& named(Type& type, const char* name, unsigned int flags = 0) {
    setName(type, name);
    type.m_flags = flags;
    return type;
}

template <typename Call> WriteError refusal(Call call) {
    try {
        call();
    } catch (const WriteError& error) {
        return error;
    }
    throw std::logic_error("nothing was refused");
}

WriteError refusalOf(const RTBaseType& type) {
    return refusal([&] {
        TypeFileWriter writer;
        writer.add(type);
        writer.finish();
    });
}

class ScratchFile {
public:
    ScratchFile()
        : path(testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() +
               ".typ") {
        std::remove(path.c_str());
    }
    ~ScratchFile() { std::remove(path.c_str()); }

    std::string content() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void fill(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

    /// Files in the same directory whose names begin alike.
    int relatives() const {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(testing::TempDir()))
            count += entry.path().string().rfind(path, 0) == 0;
        return count;
    }

    const std::string path;
};

TEST(TypeFileWriter, WritesHeaderRecordsAndTable) {
    CTIntType integer;
    named(integer, "i", 0x10);
    integer.m_constraint = {7, 0, 1};
    TypeFileWriter writer;
    EXPECT_EQ(writer.add(integer), 0U);
    EXPECT_EQ(writer.add(RTStringType()), 1U);
    std::string file = "Brakel Ovat TYPE FILE 001";
    file.resize(32);
    file += std::string("\2\0\0\0\x4F\0\0\0", 8);                 // 2 types, the table at 79
    file += std::string("\x1A\0\0\0\5\0\0\xA0i\0\x10\0\0\0", 14); // 26 bytes from 40
    file += std::string("\7\0\0\0\0\0\0\0\1\0\0\0", 12);
    file += std::string("\xD\0\0\0\x18\0\0\xA0\0\0\0\0\0", 13); // 13 bytes from 66, null name
    file += std::string("\x28\0\0\0\0\0\0\0\x42\0\0\0\0\0\0\0", 16);
    EXPECT_EQ(bytesOf(writer), file);
}

TEST(TypeFileWriter, WritesNoTypesAsAHeaderAlone) {
    TypeFileWriter writer;
    std::string header = "Brakel Ovat TYPE FILE 001";
    header.resize(40);
    header[36] = 40;
    EXPECT_EQ(bytesOf(writer), header);
}

TEST(TypeFileWriter, AddsTheBaseOffsetToEveryOffset) {
    TypeFileWriter writer(0x1000);
    writer.add(RTStringType());
    std::vector<char> image(16, 'x');
    writer.finishInto(image);
    EXPECT_EQ(image[0], 'x');
    EXPECT_EQ(image[15], 'x');
    EXPECT_EQ(image[16], '\0');
    OVAT::OwningMemoryBlockManager storage(image);
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0x1000);
    ASSERT_NE(manager.getRTType(0), nullptr);
    EXPECT_EQ(manager.getRTType(0)->GetClassId(), ClassId::STRING);
}

TEST(TypeFileWriter, KeepsTheBytesAroundItInAnImage) {
    TypeFileWriter writer(8);
    writer.add(RTStringType());
    std::vector<char> image(200, 'x');
    writer.finishInto(image);
    ASSERT_EQ(image.size(), 200U);
    EXPECT_EQ(std::string(image.begin(), image.begin() + 8), "xxxxxxxx");
    EXPECT_EQ(image[8], 'B');
    EXPECT_EQ(image[8 + 40 + 13 + 8], 'x');
}

TEST(TypeFileWriter, TakesTypesInAnyOrderOfIds) {
    TypeFileWriter forwards;
    TypeFileWriter backwards;
    CTTypedefType alias("t", 2);
    RTStringType text;
    RTCHandle handle("h");
    forwards.add(0, alias);
    forwards.add(1, text);
    forwards.add(2, handle);
    backwards.add(2, handle);
    backwards.add(0, alias);
    backwards.add(1, text);
    EXPECT_EQ(bytesOf(forwards), bytesOf(backwards));
}

TEST(TypeFileWriter, CopiesATypeWhenItIsAdded) {
    TypeFileWriter writer;
    {
        CTEventType event;
        named(event, "gone");
        writer.add(event);
    }
    EXPECT_THAT(bytesOf(writer), HasSubstr(std::string("gone\0", 5)));
}

TEST(TypeFileWriter, WritesSequentialEnumerations) {
    CTSeqEnumType type;
    named(type, "state");
    type.m_valueEncoding = ENCODING_4_STATE;
    type.m_enumKind = VHDL_OTHER_ENUM;
    type.m_valueSize = 1;
    addLiteral(type, "IDLE");
    addLiteral(type, "");
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "state").i32(0).i32(5).i32(2).str("IDLE").str("").i32(1);
    EXPECT_EQ(recordOf(type), expected(file));
}

TEST(TypeFileWriter, WritesDiscreteEnumerations) {
    CTDiscreteEnumType type;
    named(type, "op");
    type.m_baseTypeId = 1;
    addLiteral(type, "ADD", std::string("\0\xFF", 2));
    addLiteral(type, "SUB", std::string("\1\0", 2));
    type.m_constraints = {{1, 0, 0}};
    TypeFileBuilder file;
    file.record(ClassId::DISCRETE_ENUM, "op").u32(1).i32(2).i32(2);
    file.str("ADD").bytes(std::string("\0\xFF", 2)).str("SUB").bytes(std::string("\1\0", 2));
    file.u32(1).range(1, 0, 0);
    EXPECT_EQ(recordOf(type, 1), expected(file));
}

TEST(TypeFileWriter, WritesReals) {
    CTFloatType type;
    named(type, "r");
    type.m_floatKind = -1;
    type.m_left = -0.0;
    type.m_right = std::numeric_limits<double>::infinity();
    type.m_direction = -2147483647 - 1;
    TypeFileBuilder file;
    file.record(ClassId::FLOAT, "r").i32(-1).f64(-0.0);
    file.f64(std::numeric_limits<double>::infinity()).f64(-2147483648.0);
    EXPECT_EQ(recordOf(type), expected(file));
}

TEST(TypeFileWriter, WritesPhysicalTypes) {
    CTPhysicalType type;
    named(type, "time");
    addUnit(type, "fs", 1);
    addUnit(type, "ever", -9223372036854775807LL - 1);
    TypeFileBuilder file;
    file.record(ClassId::PHYSICAL, "time").i32(2).str("fs").i64(1).str("ever");
    file.i64(-9223372036854775807LL - 1);
    EXPECT_EQ(recordOf(type), expected(file));
}

TEST(TypeFileWriter, WritesTypedefs) {
    CTTypedefType type("word", 1);
    type.m_constraints = {{15, 0, 0}, {0, 0, -2}};
    TypeFileBuilder file;
    file.record(ClassId::TYPEDEF, "word").u32(1).u32(2).range(15, 0, 0).range(0, 0, -2);
    EXPECT_EQ(recordOf(type, 1), expected(file));
}

TEST(TypeFileWriter, WritesAccessAndFileTypes) {
    CTAccessType access("p", 0);
    access.m_alignment = 8;
    access.m_valueSize = 0xFFFFFFFF;
    TypeFileBuilder pointer;
    pointer.record(ClassId::ACCESS, "p").u32(0).u32(8).u32(0xFFFFFFFF);
    EXPECT_EQ(recordOf(access), expected(pointer));

    CTFileType text("f", 1);
    TypeFileBuilder file;
    file.record(ClassId::FILE_TYPE, "f").u32(1).u32(0).u32(0);
    EXPECT_EQ(recordOf(text, 1), expected(file));
}

TEST(TypeFileWriter, WritesArrays) {
    CTArrayType type("a", VLOG_FIXED_UNPACKED_ARRAY, 1, 2);
    type.m_indexTypeIds.push_back(TypeFileFormat::NO_TYPE_ID);
    type.m_constraints = {{3, 0, 0}, {0, 1, 1}};
    type.m_svTypeId = 17;
    TypeFileBuilder file;
    file.record(ClassId::ARRAY, "a").u32(0xA00002).u32(1).i32(2).u32(2).u32(0xFFFFFFFF);
    file.u32(2).range(3, 0, 0).range(0, 1, 1).i32(17);
    EXPECT_EQ(recordOf(type, 2), expected(file));
}

TEST(TypeFileWriter, WritesArraysOfVariableSize) {
    CTDynamicArrayType dynamic("d", 1);
    TypeFileBuilder dynamicRecord;
    dynamicRecord.record(ClassId::DYNAMIC_ARRAY, "d").u32(1).i32(-99);
    EXPECT_EQ(recordOf(dynamic, 1), expected(dynamicRecord));

    CTQueueType queue("q", 1);
    queue.m_svTypeId = 4;
    TypeFileBuilder queueRecord;
    queueRecord.record(ClassId::QUEUE, "q").u32(1).i32(4);
    EXPECT_EQ(recordOf(queue, 1), expected(queueRecord));

    CTAssocArrayType assoc("m", 1, 2);
    TypeFileBuilder assocRecord;
    assocRecord.record(ClassId::ASSOC_ARRAY, "m").u32(1).i32(-99).u32(2);
    EXPECT_EQ(recordOf(assoc, 2), expected(assocRecord));
}

TEST(TypeFileWriter, WritesRecords) {
    CTRecordType type;
    named(type, "pkt");
    type.m_recordKind = VLOG_PACKED_STRUCT;
    type.m_svTypeId = 3;
    addMember(type, "len", 1, {{7, 0, 0}});
    addMember(type, "", 0);
    TypeFileBuilder file;
    file.record(ClassId::RECORD, "pkt").u32(0xB0003).i32(2);
    file.str("len").u32(1).u32(1).range(7, 0, 0).str("").u32(0).u32(0).i32(3);
    EXPECT_EQ(recordOf(type, 1), expected(file));
}

TEST(TypeFileWriter, WritesClasses) {
    RTClassType type;
    named(type, "node");
    type.m_svTypeId = 9;
    addMember(type, "next", 0, {}, true);
    addMember(type, "n", 1, {{1, 2, 1}});
    TypeFileBuilder file;
    file.record(ClassId::CLASS, "node").u32(0xFFFFFFFF).i32(9).i32(2);
    file.str("next").u32(0).u32(0).u32(1).str("n").u32(1).u32(1).range(1, 2, 1).u32(0);
    EXPECT_EQ(recordOf(type, 1), expected(file));
}

TEST(TypeFileWriter, WritesTheKindsWithoutABody) {
    TypeFileBuilder file;
    file.record(ClassId::CHANDLE, "c", 5);
    RTCHandle handle("c");
    handle.m_flags = 5;
    EXPECT_EQ(recordOf(handle), expected(file));
    TypeFileBuilder wildcard;
    wildcard.record(ClassId::WILDCARD, "");
    EXPECT_EQ(recordOf(RTWildCardType()), expected(wildcard));
    TypeFileBuilder event;
    event.record(ClassId::EVENT, "").i32(1);
    CTEventType flavoured;
    flavoured.m_eventKind = 1;
    EXPECT_EQ(recordOf(flavoured), expected(event));
}

TEST(TypeFileWriter, RefusesAZeroByteInAName) {
    CTPhysicalType type;
    named(type, "time");
    type.m_units.push_back({"fs", 1});
    type.m_units.push_back({std::string("p\0s", 3), 1000});
    const WriteError error = refusalOf(type);
    EXPECT_EQ(error.typeId(), 0U);
    EXPECT_EQ(error.field(), "units[1].name");
    EXPECT_STREQ(error.what(), "type 0 \"time\", units[1].name: there is a zero byte in the name, "
                               "where a record's names end");
}

TEST(TypeFileWriter, NamesTheTypeThatItRefuses) {
    TypeFileWriter writer;
    CTPhysicalType time;
    named(time, "time");
    time.m_units.push_back({std::string("p\0s", 3), 1000});
    EXPECT_EQ(refusal([&] { writer.add(7, time); }).typeId(), 7U);
}

TEST(TypeBuilding, RefusesAZeroByteInANameAndLeavesTheTypeAsItWas) {
    CTRecordType type;
    named(type, "\x1Bpoint");
    const WriteError error = refusal([&] { addMember(type, std::string_view("x\0y", 3), 0); });
    EXPECT_EQ(error.field(), "members[0].name");
    EXPECT_THAT(error.what(), HasSubstr("\"?point\""));
    EXPECT_TRUE(type.m_members.empty());
}

TEST(TypeFileWriter, RefusesAnIdWithoutAType) {
    TypeFileWriter writer;
    writer.add(2, RTStringType());
    writer.add(0, RTStringType());
    const WriteError error = refusal([&] { writer.finish(); });
    EXPECT_EQ(error.typeId(), 1U);
    EXPECT_EQ(error.field(), "id");
    writer.add(1, RTStringType());
    EXPECT_EQ(writer.finish().size(), 40U + 3 * 13 + 3 * 8) << "The refusal has changed nothing.";
}

TEST(TypeFileWriter, RefusesTwoTypesOfOneId) {
    TypeFileWriter writer;
    writer.add(0, RTStringType());
    writer.add(0, RTCHandle("h"));
    EXPECT_EQ(refusal([&] { writer.finish(); }).reason(), "two types have this id");
}

TEST(TypeFileWriter, RefusesTheIdThatStandsForNoType) {
    TypeFileWriter writer;
    EXPECT_EQ(refusal([&] { writer.add(0xFFFFFFFF, RTStringType()); }).field(), "id");
}

TEST(TypeFileWriter, RefusesAReferenceToAnIdWithoutAType) {
    CTRecordType type;
    named(type, "pkt");
    addMember(type, "a", 0);
    addMember(type, "b", 1);
    const WriteError error = refusalOf(type);
    EXPECT_EQ(error.typeId(), 0U);
    EXPECT_EQ(error.field(), "members[1].type");
    EXPECT_STREQ(error.what(),
                 "type 0 \"pkt\", members[1].type: refers to the id 1, and the last "
                 "type has the id 0");
}

TEST(TypeFileWriter, RefusesATypedefOfNoType) {
    EXPECT_EQ(refusalOf(CTTypedefType()).field(), "dataType");
}

TEST(TypeFileWriter, ForgetsTheReferencesOfARefusedType) {
    CTRecordType refused;
    addMember(refused, "far", 1000);
    refused.m_members.push_back(nullptr);
    TypeFileWriter writer;
    EXPECT_EQ(refusal([&] { writer.add(refused); }).field(), "members[1]");
    writer.add(RTStringType());
    EXPECT_EQ(writer.finish().size(), 40U + 13 + 8);
}

TEST(TypeFileWriter, RefusesValuesOfUnequalSize) {
    CTDiscreteEnumType type;
    named(type, "op");
    addLiteral(type, "A", "ab");
    const WriteError error = refusal([&] { addLiteral(type, "B", "abc"); });
    EXPECT_EQ(error.field(), "literals[1].value");
    EXPECT_THAT(error.what(), HasSubstr("\"op\""));
    EXPECT_EQ(type.m_enumerators.size(), 1U);
}

TEST(TypeFileWriter, RefusesALiteralWithoutItsValueBytes) {
    CTDiscreteEnumType type;
    type.m_baseTypeId = 0;
    type.m_valueSize = 2;
    type.m_enumerators.push_back({"A", nullptr});
    EXPECT_EQ(refusalOf(type).field(), "literals[0].value");
}

TEST(TypeFileWriter, RefusesWhatItsReaderWouldDrop) {
    CTFloatType real;
    real.m_floatKind = 4;
    EXPECT_EQ(refusalOf(real).field(), "flavour");
    CTEventType event;
    event.m_eventKind = 2;
    EXPECT_EQ(refusalOf(event).field(), "flavour");
    CTArrayType array("a", VHDL_ARRAY, 0, 0);
    array.m_reserved.push_back(1);
    EXPECT_EQ(refusalOf(array).field(), "reserved");
    CTSeqEnumType literals;
    literals.m_reservedNumber = 1;
    EXPECT_EQ(refusalOf(literals).field(), "reserved");
}

TEST(TypeFileWriter, RefusesAClassWithAMemberOfARecord) {
    RTClassType type;
    type.m_members.push_back(new RTAggregateType::t_Member);
    EXPECT_EQ(refusalOf(type).field(), "members[0].flag");
}

TEST(TypeFileWriter, RefusesAClassThatNoRecordHas) {
    EXPECT_EQ(refusalOf(RTEnumType()).field(), "kind");
    EXPECT_EQ(refusalOf(RTAbstractArrayType()).field(), "kind");
}

TEST(TypeFileWriter, RefusesARecordPast31BitsBeforeItIsMade) {
    CTDiscreteEnumType type;
    named(type, "huge");
    type.m_baseTypeId = 0;
    char byte = 0; // The values are not looked at.
    type.m_enumerators = {{"A", &byte}, {"B", &byte}, {"C", &byte}};
    type.m_valueSize = 1U << 30;
    const WriteError error = refusalOf(type);
    type.m_enumerators.clear();
    EXPECT_EQ(error.field(), "literals");
    EXPECT_THAT(error.what(), HasSubstr("2147483647 bytes"));
    type.m_valueSize = 1U << 31;
    EXPECT_EQ(refusalOf(type).field(), "valueSize");
}

TEST(TypeFileWriter, RefusesARecordThatGrowsPastItsLimit) {
    CTTypedefType type("t", 0);
    type.m_constraints.resize(3);
    std::vector<char> bytes(5, 'x');
    constexpr std::size_t SIZE = 8 + 2 + 4 + 4 + 4 + 3 * 12;
    EXPECT_EQ(refusal([&] { RecordEncoder(bytes, SIZE - 1).encode(0, type); }).field(),
              "constraints");
    EXPECT_EQ(bytes.size(), 5U);
    RecordEncoder(bytes, SIZE).encode(0, type);
    EXPECT_EQ(bytes.size(), 5 + SIZE);
}

TEST(TypeFileWriter, RefusesAnAddressTablePast32Bits) {
    TypeFileWriter last(0xFFFFFFFF - 40 - 13);
    last.add(RTStringType());
    EXPECT_EQ(last.finish()[36], '\xFF');
    TypeFileWriter past(0xFFFFFFFF - 40 - 12);
    past.add(RTStringType());
    EXPECT_EQ(refusal([&] { past.finish(); }).field(), "addressTableOffset");
    TypeFileWriter farPast(0xFFFFFFFFFFFFFFFF);
    EXPECT_EQ(refusal([&] { farPast.finish(); }).field(), "addressTableOffset");
}

TEST(TypeFileWriter, SetsTheVersionText) {
    TypeFileWriter writer;
    writer.setVersion("0123456789012345678901234567890");
    EXPECT_EQ(bytesOf(writer).substr(0, 32), std::string("0123456789012345678901234567890\0", 32));
    TypeFileWriter other;
    EXPECT_EQ(refusal([&] { other.setVersion("01234567890123456789012345678901"); }).reason(),
              "the text has 32 bytes, and there is room for 31");
    EXPECT_THROW(other.setVersion(std::string("a\0b", 3)), WriteError);
    EXPECT_THROW(other.setVersion("Brakel Ovat TYPE FILE 000"), WriteError);
}

TEST(TypeFileWriter, ReadsAFileOfSeveralBlocksAgain) {
    const auto write = [](auto finish) {
        TypeFileWriter writer;
        for (int i = 0; i < 200; ++i)
            writer.add(RTCHandle(std::string(1000, 'a').c_str()));
        return finish(writer);
    };
    const ScratchFile file;
    write([&](TypeFileWriter& writer) { writer.finishFile(file.path); });
    EXPECT_TRUE(file.content() == write([](TypeFileWriter& writer) { return bytesOf(writer); }));
}

TEST(TypeFileWriter, FinishesOnce) {
    TypeFileWriter writer;
    writer.finish();
    EXPECT_THROW(writer.finish(), std::logic_error);
    EXPECT_THROW(writer.add(RTStringType()), std::logic_error);
}

TEST(TypeFileWriter, MakesAFileWithZerosInFront) {
    const ScratchFile file;
    TypeFileWriter writer(100);
    writer.add(RTStringType());
    writer.finishFile(file.path);
    const std::string content = file.content();
    ASSERT_EQ(content.size(), 100U + 40 + 13 + 8);
    EXPECT_EQ(content.substr(0, 100), std::string(100, '\0'));
    OVAT::FileBlockManager storage(file.path);
    RTTypeManager manager;
    manager.setupDeserializer(storage, 100);
    EXPECT_NE(manager.getRTType(0), nullptr);
}

TEST(TypeFileWriter, TakesTheOtherBytesFromAnImage) {
    const ScratchFile file;
    file.fill(std::string(300, 'x'));
    TypeFileWriter writer(100);
    writer.add(RTStringType());
    writer.finishFile(file.path, file.path);
    const std::string content = file.content();
    ASSERT_EQ(content.size(), 300U);
    EXPECT_EQ(content.substr(0, 106), std::string(100, 'x') + "Brakel");
    EXPECT_EQ(content.substr(161), std::string(139, 'x'));
}

TEST(TypeFileWriter, ReplacesAFileAndItsRest) {
    const ScratchFile file;
    file.fill(std::string(300, 'x'));
    TypeFileWriter writer;
    writer.finishFile(file.path);
    EXPECT_EQ(file.content().size(), 40U);
}

TEST(TypeFileWriter, LeavesTheOldFileWhereSomethingIsRefused) {
    const ScratchFile file;
    file.fill("old");
    TypeFileWriter writer;
    writer.add(CTTypedefType("t", 5));
    EXPECT_THROW(writer.finishFile(file.path), WriteError);
    TypeFileWriter withoutImage;
    EXPECT_THROW(withoutImage.finishFile(file.path, file.path + ".none"), std::system_error);
    EXPECT_EQ(file.content(), "old");
    EXPECT_EQ(file.relatives(), 1);
}

} // namespace
