// Loads and walks whose memory runs out: nothing is left half done, and the call made again is
// complete.

#include "OVAT/FileBlockManager.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/TypeDescription.h"
#include "tests/support/TypeFileBuilder.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using TypeFileFormat::NO_TYPE_ID;

constexpr unsigned int DEPTH = 1000;
constexpr unsigned int FAN = 20;

/// Classes within each other, all of which are open when the last is read; that has members of more
/// classes, each of which has a member of its own.
TypeFileBuilder deepFan() {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < DEPTH; ++id)
        file.record(0xA0000017, "c").u32(NO_TYPE_ID).i32(0).i32(1).str("m").u32(id).u32(0).u32(1);
    const unsigned int first = DEPTH;
    file.record(0xA0000017, "fan").u32(NO_TYPE_ID).i32(0).i32(FAN);
    for (unsigned int i = 0; i < FAN; ++i)
        file.str("m").u32(first + i).u32(0).u32(0);
    for (unsigned int i = 0; i < FAN; ++i) {
        file.record(0xA0000017, "c").u32(NO_TYPE_ID).i32(0).i32(1);
        file.str("m").u32(first + FAN + i).u32(0).u32(1);
    }
    for (unsigned int i = 0; i < FAN; ++i)
        file.integer("int");
    return file;
}

/// Whether every class has the type of every member.
bool isWhole(LoadedTypes& types) {
    for (const unsigned int id : types.manager().getRTClassTypeIds()) {
        const auto& type = types.as<RTClassType>(id);
        if (type.m_memberTypes.size() != type.m_members.size())
            return false;
        for (const RTBaseType* member : type.m_memberTypes) {
            if (member == nullptr)
                return false;
        }
    }
    return types.manager().getRTClassTypeIds().size() == DEPTH + FAN;
}

/// How many allocations a load of the whole file makes.
std::size_t allocationsOf(const TypeFileBuilder& file) {
    LoadedTypes types(file, false);
    const std::size_t before = allocationCount();
    types[0];
    return allocationCount() - before;
}

/// Fails one allocation of a load and makes the load again.
void loadWithFailureAt(const TypeFileBuilder& file, std::size_t number) {
    LoadedTypes types(file, false);
    {
        const FailingAllocation failing(number);
        EXPECT_THROW(types[0], std::bad_alloc);
    }
    EXPECT_TRUE(types.manager().getRTClassTypeIds().empty());
    types.storage().takeReads();
    types[0];
    EXPECT_EQ(types.storage().takeReads().size(), 3 * (DEPTH + 2 * FAN));
    EXPECT_TRUE(isWhole(types));
}

TEST(AllocationFailures, AtTheDeepEndOfALoadLeaveNothingBehind) {
    const TypeFileBuilder file = deepFan();
    const std::size_t all = allocationsOf(file);
    const std::size_t end = 400; // The fan; before it one class is like the next.
    ASSERT_GT(all, end);
    for (std::size_t number = 1; number <= all; number += number + end < all ? 311 : 1) {
        SCOPED_TRACE("allocation " + std::to_string(number) + " of " + std::to_string(all));
        loadWithFailureAt(file, number);
        ASSERT_FALSE(HasFailure());
    }
}

/// The fields of all types of a manager, one after the other.
std::vector<RTTITest::Description> allTypesOf(RTTypeManager& manager) {
    std::vector<RTTITest::Description> types;
    for (unsigned int id = 0; const RTBaseType* type = manager.getRTType(id); ++id)
        types.push_back(RTTITest::describeFields(*type));
    return types;
}

TEST(AllocationFailures, AtAnyPlaceOfALoadOfEveryKindLeaveNothingBehind) {
    OVAT::FileBlockManager storage(EVERY_KIND_TYPEFILE);
    RTTypeManager sound;
    sound.setupDeserializer(storage, 0);
    const auto expected = allTypesOf(sound);
    ASSERT_GE(expected.size(), 25U);

    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    const std::size_t failures =
        failEachAllocation([&] { manager.readAllRTTypes(); },
                           [&](std::size_t) { EXPECT_TRUE(manager.getRTClassTypeIds().empty()); });
    EXPECT_GE(failures, 4 * expected.size());
    EXPECT_EQ(allTypesOf(manager), expected);
    EXPECT_EQ(manager.getRTClassTypeIds(), sound.getRTClassTypeIds());
}

TEST(AllocationFailures, WhileAManagerIsSetUpLeaveItAsItWas) {
    OVAT::FileBlockManager storage(EVERY_KIND_TYPEFILE);
    RTTypeManager manager;
    const std::size_t failures =
        failEachAllocation([&] { manager.setupDeserializer(storage, 0); },
                           [&](std::size_t) { EXPECT_EQ(manager.getRTType(0), nullptr); });
    EXPECT_GE(failures, 3U);
    EXPECT_NE(manager.getRTType(0), nullptr);
}

/// Structs and classes below each other, barren ones and ones that come back among them, and more
/// levels with ranges than the stack has room for.
const RTBaseType& wideAndDeep(RTTITest::LinkedTypes& types) {
    unsigned int open = types.vhdlArray(types.integer(), {RTTITest::OPEN, {1, 4, 1}});
    for (int level = 0; level < 30; ++level)
        open = types.alias(open, {RTTITest::OPEN});
    const auto barren = types.structure({types.structure({types.integer()})});
    const auto outer = types.structure({barren});
    const auto holder = types.classType({outer, barren}, types.classType({barren, open}));
    types.addMember(outer, types.structure({outer, holder}));
    types.addMember(outer, open, {{0, 9, 1}, {1, 4, 1}});
    return types[outer];
}

TEST(AllocationFailures, AtAnyPlaceOfAWalkTakeItsFramesAndMarksBack) {
    RTTITest::LinkedTypes types;
    const RTBaseType& type = wideAndDeep(types);
    RTTITest::Ranges expected;
    Brakel_tolv::ConstraintStack<FullConstraints> empty;
    type.populateTypeConstraints(empty, expected);
    ASSERT_EQ(expected.size(), 6U); // Two each: base class, outer behind the class, outer.

    RTTITest::Ranges out;
    const std::size_t failures = failEachAllocation(
        [&] {
            out.clear();
            Brakel_tolv::ConstraintStack<FullConstraints> stack;
            type.populateTypeConstraints(stack, out);
            EXPECT_EQ(stack.depth(), 0U);
        },
        [](std::size_t) {});
    EXPECT_GE(failures, 10U);
    EXPECT_EQ(numbersOf(out), numbersOf(expected));
}

TEST(AllocationFailures, AreNoneInTheEncodingOfAFewNestedStructsAndClasses) {
    RTTITest::LinkedTypes types;
    const auto text = types.string();
    const auto inner = types.structure({text, text});
    const auto base = types.classType({inner});
    const RTBaseType& outer = types[types.structure({inner, types.classType({inner, text}, base)})];
    const std::size_t failures = failEachAllocation(
        [&] { EXPECT_EQ(outer.getValueEncoding(), ENCODING_2_STATE); }, [](std::size_t) {});
    EXPECT_EQ(failures, 0U);
}

} // namespace
