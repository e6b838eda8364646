// Storages that fail in the middle of a load.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

/// A class with a base class, members of an array, an access and a typedef type that lead back.
TypeFileBuilder tangledFile() {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(-99).u32(1).str("m").u32(2).u32(0).u32(1);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(3).u32(1).str("d").u32(0).u32(0).u32(0);
    file.record(0xA0000010, "array").u32(0xA00002).u32(3).u32(1).u32(5).u32(0).i32(-99);
    file.record(0xA0000007, "alias").u32(4).u32(1).range(1, 2, 1);
    file.record(0xA0000008, "pointer").u32(0).u32(8).u32(8);
    file.integer("index");
    return file;
}

TEST(FailedReads, TakesBackALoadThatFailsAtAnyReadAndMakesItAgain) {
    LoadedTypes whole(tangledFile());
    const std::size_t reads = whole.storage().takeReads().size();
    const std::size_t setupReads = 7;
    ASSERT_GE(reads, 6u * 3);
    for (std::size_t read = 0; read < reads; ++read) {
        LoadedTypes types(tangledFile(), false);
        types.storage().failAtRead(setupReads + read);
        EXPECT_THROW(types.manager().readAllRTTypes(), std::runtime_error) << read;
        EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty()) << read;
        types.storage().takeReads();
        EXPECT_NE(types.manager().readAllRTTypes(), nullptr) << read;
        EXPECT_EQ(types.storage().takeReads().size(), reads) << read;
        EXPECT_EQ(types.manager().getRTClassTypeIds(), whole.manager().getRTClassTypeIds());
        EXPECT_EQ(types.as<RTClassType>(1).m_memberTypes[0], types[0]);
        EXPECT_EQ(types.as<RTAccessType>(4).m_refType, types[0]);
    }
}

TEST(FailedReads, KeepsWhatEarlierCallsReadWhenALaterOneFails) {
    LoadedTypes types(TypeFileBuilder{}.integer("a").integer("b"), false);
    const RTBaseType* first = types[0];
    types.storage().failAtRead(3 + 3 + 2); // Setup, the first type, the second type's record.
    EXPECT_THROW(types[1], std::runtime_error);
    EXPECT_EQ(types[0], first);
    EXPECT_STREQ(types[1]->m_name, "b");
}

/// Types that lead to one another in every way that a record can.
TypeFileBuilder everyReference() {
    TypeFileBuilder file;
    file.record(0xA0000007, "alias").u32(1).u32(1).range(0, 1, 1);
    file.record(0xA0000017, "class").u32(2).i32(1).i32(2).str("a").u32(0).u32(0).u32(0);
    file.str("b").u32(3).u32(0).u32(1);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(2).i32(1).str("c").u32(1).u32(0).u32(0);
    file.record(0xA0000015, "map").u32(4).i32(3).u32(5);
    file.record(0xA0000008, "pointer").u32(0).u32(8).u32(8);
    file.record(0xA0000004, "enum").u32(6).i32(1).i32(1).str("A").bytes("a").u32(0);
    file.record(0xA0000010, "array").u32(0xA00001).u32(7).i32(0).u32(0).i32(-99);
    file.record(0xA000000C, "file").u32(8).u32(1).u32(1).string("text");
    return file;
}

TEST(FailedReads, LeaveTheTableAsItWasBeforeTheCallWhicheverTypeIsAskedFor) {
    const std::size_t setup = 1 + 9;
    for (unsigned int id = 0; id < 9; ++id) {
        LoadedTypes whole(everyReference(), false);
        ASSERT_NE(whole[id], nullptr);
        const auto reads = whole.storage().takeReads();
        for (std::size_t failing = 0; failing < reads.size(); ++failing) {
            LoadedTypes types(everyReference(), false);
            types.storage().failAtRead(setup + failing);
            EXPECT_THROW(types[id], std::runtime_error) << id << " at " << failing;
            EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
            types.storage().takeReads();
            EXPECT_STREQ(types[id]->m_name, whole[id]->m_name);
            EXPECT_EQ(types.storage().takeReads(), reads) << id << " at " << failing;
        }
    }
}

TEST(FailedReads, OfALaterCallKeepTheClassesOfEarlierOnes) {
    TypeFileBuilder file;
    file.record(0xA0000017, "a").u32(0xFFFFFFFF).i32(1).i32(0);
    file.record(0xA0000017, "b").u32(0xFFFFFFFF).i32(2).i32(1).str("m").u32(2).u32(0).u32(0);
    file.string("s");
    LoadedTypes types(file, false);
    const RTBaseType* first = types[0];
    types.storage().failAtRead(1 + 3 + 3 + 3); // Setup, both classes; the member's type fails.
    EXPECT_THROW(types.manager().readAllRTTypes(), std::runtime_error);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(0u));
    EXPECT_EQ(types[0], first);
    EXPECT_EQ(types.manager().readAllRTTypes(), types[2]);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(0u, 1u));
}

TEST(FailedReads, LeaveTheNextRecordItsOwnFields) {
    TypeFileBuilder file;
    file.record(0xA0000007, "t").u32(1).u32(0).string("s").record(0xA0000011, "r").u32(0xB0003);
    file.i32(0).i32(6);
    LoadedTypes types(file, false);
    types.storage().failAtRead(1 + 3 + 3); // In the middle of the typedef: its type's size.
    EXPECT_THROW(types[0], std::runtime_error);
    EXPECT_EQ(types.as<RTRecordType>(2).m_recordKind, VLOG_PACKED_STRUCT);
    EXPECT_EQ(types[2]->getSVTypeId(), 6);
}

} // namespace
