// Counts that address more than there are addresses, where these have 32 bits.

#include "TypeFile/TypeFileWriter.h"
#include "tests/support/TypeFileBuilder.h"

#include <gtest/gtest.h>

#include <new>

namespace {

using namespace RTTI;

constexpr int MOST = 0x7FFFFFFF;

void expectNoMemory(const TypeFileBuilder& file) {
    LoadedTypes types(file, false);
    EXPECT_THROW(types[0], std::bad_alloc);
    EXPECT_THROW(types[0], std::bad_alloc); // Made again it is the same.
}

TEST(SmallAddressSpaces, HaveNoRoomForAsManyTypes) {
    for (const unsigned int count : {0xFFFFFFFFU, 0x20000000U, 0x10000000U})
        EXPECT_THROW(LoadedTypes(TypeFileBuilder{}.integer("i").count(count)), std::bad_alloc);
}

TEST(SmallAddressSpaces, HaveNoRoomForAsManyEntriesOfAList) {
    expectNoMemory(TypeFileBuilder{}.record(0xA0000003, "e").i32(2).i32(5).i32(MOST));
    expectNoMemory(
        TypeFileBuilder{}.record(0xA0000004, "e").u32(1).i32(MOST).i32(1).integer("base"));
    expectNoMemory(TypeFileBuilder{}.record(0xA000000D, "p").i32(MOST));
    expectNoMemory(TypeFileBuilder{}
                       .record(0xA0000010, "a")
                       .u32(0xA00001)
                       .u32(1)
                       .i32(MOST)
                       .integer("element"));
    expectNoMemory(TypeFileBuilder{}.record(0xA0000011, "r").u32(0xB0001).i32(MOST));
    expectNoMemory(TypeFileBuilder{}.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(MOST));
    expectNoMemory(TypeFileBuilder{}
                       .record(0xA0000010, "a")
                       .u32(0xA00001)
                       .u32(1)
                       .i32(0)
                       .u32(0xFFFFFFFF)
                       .integer("element"));
}

TEST(SmallAddressSpaces, HaveNoRoomForAnImageWithATypeFileAtItsEnd) {
    TypeFile::TypeFileWriter writer(0xFFFFFF00);
    RTIntType type;
    for (int i = 0; i < 4; ++i)
        writer.add(type);
    std::vector<char> image{'a', 'b'};
    EXPECT_THROW(writer.finishInto(image), std::bad_alloc);
    EXPECT_EQ(image.size(), 2U);
}

} // namespace
