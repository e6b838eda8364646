// Types that nest deep: whole loads on a small stack, what the limits cut, and the queries.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/ConstraintStack.h"
#include "support/BuildKind.h"
#include "support/RunOnStack.h"
#include "support/TypeFileBuilder.h"
#include "support/TypeGraph.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace RTTI;
using namespace RTTITest;
using TypeFileFormat::CHAIN_LIMIT;
using TypeFileFormat::NESTING_LIMIT;
using TypeFileFormat::NO_TYPE_ID;

constexpr unsigned int CLASS = 0xA0000017;
constexpr unsigned int QUEUE = 0xA0000014;
constexpr unsigned int TYPEDEF = 0xA0000007;

/// Links of a chain. Under sanitizers a million take half a minute each.
constexpr unsigned int CHAIN = HAS_SANITIZERS ? 100000 : 1000000;

// ---- Records.

using AddRecord = void (*)(TypeFileBuilder& file, unsigned int next);

void addClass(TypeFileBuilder& file, unsigned int next) {
    file.record(CLASS, "c").u32(NO_TYPE_ID).i32(7).i32(1).str("m").u32(next).u32(0).u32(0);
}
void addStruct(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(1).str("m").u32(next).u32(0).i32(7);
}
void addAccess(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000008, "p").u32(next).u32(8).u32(8);
}
void addTypedef(TypeFileBuilder& file, unsigned int next) {
    file.record(TYPEDEF, "t").u32(next).u32(0);
}
void addArray(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000010, "a").u32(VLOG_FIXED_UNPACKED_ARRAY).u32(next).i32(0).u32(0).i32(-99);
}
void addDynamicArray(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000013, "d").u32(next).i32(7);
}
void addQueue(TypeFileBuilder& file, unsigned int next) {
    file.record(QUEUE, "q").u32(next).i32(7);
}
void addAssocArray(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000015, "m").u32(next).i32(7).u32(next);
}
void addFile(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA000000C, "f").u32(next).u32(8).u32(8);
}
void addDiscreteEnum(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000004, "e").u32(next).i32(0).i32(0).u32(0);
}
void addDerivedClass(TypeFileBuilder& file, unsigned int next) {
    file.record(CLASS, "c").u32(next).i32(7).i32(0);
}

/// What a record of a chain refers to.
const RTBaseType* behind(const RTBaseType& type) {
    if (const auto* aggregate = dynamic_cast<const RTAggregateType*>(&type)) {
        EXPECT_EQ(aggregate->m_memberTypes.size(), aggregate->m_members.size());
        if (!aggregate->m_memberTypes.empty())
            return aggregate->m_memberTypes[0];
        const auto* derived = dynamic_cast<const RTClassType*>(aggregate);
        return derived != nullptr ? derived->m_baseClass : nullptr;
    }
    if (const auto* container = dynamic_cast<const RTAbstractArrayType*>(&type))
        return container->m_elementType;
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF: return static_cast<const RTTypedefType&>(type).m_dataType;
    case ClassId::ACCESS: return static_cast<const RTAccessType&>(type).m_refType;
    case ClassId::FILE_TYPE: return static_cast<const RTFileType&>(type).m_refType;
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_elementType;
    case ClassId::DISCRETE_ENUM: return static_cast<const RTDiscreteEnumType&>(type).m_baseType;
    default: return nullptr;
    }
}

/// How many types a chain has, the first included.
std::size_t lengthOf(const RTBaseType* type) {
    std::size_t length = 0;
    for (; type != nullptr; type = behind(*type))
        ++length;
    return length;
}

Ranges rangesOf(const RTBaseType& type) {
    Brakel_tolv::ConstraintStack<FullConstraints> stack;
    Ranges out;
    type.populateTypeConstraints(stack, out);
    return out;
}

// ---- Chains of a million, on the smallest stack that there is.

/// One link of a chain: a class, struct or access type, and perhaps what it leads through.
struct LinkStyle {
    const char* name;
    std::vector<AddRecord> records;
    ValueEncoding encoding; ///< Of the first type, over a "2-State" end.
    std::size_t ranges;     ///< That come through to the first type.
};

void PrintTo(const LinkStyle& style, std::ostream* out) { *out << style.name; }

/// The chain, and at its end an array of strings, whose range is 0 to 7.
std::string chainImage(const LinkStyle& style, unsigned int links) {
    TypeFileBuilder file;
    unsigned int next = 0;
    for (unsigned int i = 0; i < links; ++i) {
        for (const AddRecord add : style.records)
            add(file, ++next);
    }
    file.record(0xA0000010, "a").u32(VLOG_FIXED_UNPACKED_ARRAY).u32(next + 1).i32(1).u32(0);
    file.u32(1).range(0, 7, 1).i32(-99).string("s");
    return file.image();
}

class MillionLinks : public testing::TestWithParam<LinkStyle> {
protected:
    void askEverything(const RTBaseType& first) const {
        EXPECT_EQ(first.getValueEncoding(), GetParam().encoding);
        EXPECT_EQ(first.getSelf(false), &first);
        EXPECT_EQ(first.getSelf(true), &first);
        EXPECT_EQ(first.getSVTypeId(), first.GetClassId() == ClassId::ACCESS ? -99 : 7);
        EXPECT_EQ(first.getValueSize(), first.GetClassId() == ClassId::ACCESS ? 8u : 0u);
        EXPECT_EQ(triples(rangesOf(first)),
                  triples(Ranges(GetParam().ranges, FullConstraints{0, 7, 1})));
        const auto* queue = dynamic_cast<const RTQueueType*>(behind(first));
        EXPECT_TRUE(queue == nullptr || queue->getTotalNumDimensions(true) == 1);
    }
};

TEST_P(MillionLinks, LoadAnswerAndEndOnASmallStack) {
    const std::string image = chainImage(GetParam(), CHAIN);
    const std::size_t types = CHAIN * GetParam().records.size() + 2;
    runOnStack(smallStack(), [&] {
        OVAT::MemoryBlockManager storage(image.data(), image.size());
        RTTypeManager manager;
        manager.setupDeserializer(storage, 0);
        const RTBaseType* first = manager.getRTType(0);
        ASSERT_NE(first, nullptr);
        EXPECT_EQ(lengthOf(first), types);
        askEverything(*first);
        EXPECT_NE(manager.readAllRTTypes(), nullptr);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Chains, MillionLinks,
    testing::Values(LinkStyle{"Classes", {addClass}, ENCODING_2_STATE, 1},
                    LinkStyle{"ClassesThroughQueues", {addClass, addQueue}, ENCODING_4_STATE, 0},
                    LinkStyle{
                        "ClassesThroughTypedefs", {addClass, addTypedef}, ENCODING_2_STATE, 1},
                    LinkStyle{"ClassesThroughStructs", {addClass, addStruct}, ENCODING_2_STATE, 1},
                    LinkStyle{"Structs", {addStruct}, ENCODING_2_STATE, 1},
                    LinkStyle{"AccessTypes", {addAccess}, ENCODING_BYTE, 0}),
    [](const testing::TestParamInfo<LinkStyle>& test) { return std::string(test.param.name); });

// ---- Chains through readers, which are cut.

struct ReaderLink {
    const char* name;
    AddRecord add;
};

void PrintTo(const ReaderLink& link, std::ostream* out) { *out << link.name; }

class ReaderChains : public testing::TestWithParam<ReaderLink> {
protected:
    /// `length` records, each of which refers to the next, and an integer.
    TypeFileBuilder chain(unsigned int length, unsigned int firstId = 0) const {
        TypeFileBuilder file;
        for (unsigned int id = firstId + 1; id <= firstId + length; ++id)
            GetParam().add(file, id);
        file.integer("int");
        return file;
    }
};

TEST_P(ReaderChains, UpToTheLimitAreWhole) {
    const TypeFileBuilder file = chain(CHAIN_LIMIT - 1);
    runOnStack(smallStack(), [&] {
        LoadedTypes types(file, false);
        EXPECT_EQ(lengthOf(types[0]), CHAIN_LIMIT);
    });
}

TEST_P(ReaderChains, BehindTheLimitAreNullAndWholeBeforeIt) {
    const TypeFileBuilder file = chain(CHAIN_LIMIT);
    runOnStack(smallStack(), [&] {
        LoadedTypes types(file, false);
        EXPECT_EQ(lengthOf(types[0]), CHAIN_LIMIT);
        EXPECT_EQ(types.storage().takeReads().size(), 3 * CHAIN_LIMIT);
        EXPECT_STREQ(types[CHAIN_LIMIT]->m_name, "int");
        EXPECT_EQ(behind(*types[CHAIN_LIMIT - 1]), nullptr) << "a link does not change any more";
    });
}

TEST_P(ReaderChains, ReadFromTheirEndHaveNoLimit) {
    TypeFileBuilder file;
    file.integer("int");
    for (unsigned int id = 0; id < 3 * CHAIN_LIMIT; ++id)
        GetParam().add(file, id);
    LoadedTypes types(file);
    EXPECT_EQ(lengthOf(types[3 * CHAIN_LIMIT]), 3 * CHAIN_LIMIT + 1);
}

TEST_P(ReaderChains, OfAMillionLoadInPieces) {
    const std::string image = chain(CHAIN).image();
    runOnStack(smallStack(), [&] {
        OVAT::MemoryBlockManager storage(image.data(), image.size());
        RTTypeManager manager;
        manager.setupDeserializer(storage, 0);
        ASSERT_NE(manager.readAllRTTypes(), nullptr);
        for (unsigned int id = 0; id < CHAIN; id += CHAIN / 50)
            EXPECT_EQ(lengthOf(manager.getRTType(id)), CHAIN_LIMIT - id % CHAIN_LIMIT);
    });
}

/// The classes nest as deep as they can before the chain begins, so that this is the most that the
/// loader asks of the stack.
TEST_P(ReaderChains, BelowClassesHaveTheirWholeLength) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < NESTING_LIMIT; ++id)
        addClass(file, id);
    for (unsigned int id = NESTING_LIMIT; id < NESTING_LIMIT + CHAIN_LIMIT; ++id)
        GetParam().add(file, id);
    file.integer("int");
    runOnStack(smallStack(), [&] {
        LoadedTypes types(file, false);
        EXPECT_EQ(lengthOf(types[0]), NESTING_LIMIT - 1 + CHAIN_LIMIT);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ReaderChains,
    testing::Values(ReaderLink{"Typedefs", addTypedef}, ReaderLink{"Arrays", addArray},
                    ReaderLink{"DynamicArrays", addDynamicArray}, ReaderLink{"Queues", addQueue},
                    ReaderLink{"AssocArrays", addAssocArray}, ReaderLink{"Files", addFile},
                    ReaderLink{"DiscreteEnums", addDiscreteEnum},
                    ReaderLink{"BaseClasses", addDerivedClass}),
    [](const testing::TestParamInfo<ReaderLink>& test) { return std::string(test.param.name); });

// ---- Order.

TypeFileBuilder classes(unsigned int count) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < count; ++id)
        addClass(file, id);
    file.record(CLASS, "last").u32(NO_TYPE_ID).i32(7).i32(0);
    return file;
}

std::size_t placeOf(const std::string& trace, unsigned int id, const char* what) {
    return trace.find("**** Type Id  =  " + std::to_string(id) + what);
}

TEST(DeepOrder, MembersOfAnOrdinaryClassAreTracedBeforeItsEnd) {
    const std::string trace = LoadedTypes(classes(NESTING_LIMIT + 5), false).trace();
    const unsigned int id = NESTING_LIMIT - 2;
    EXPECT_LT(placeOf(trace, id + 1, "   begin"), placeOf(trace, id, "   end"));
}

TEST(DeepOrder, MembersOfADeeperClassAreTracedBehindTheEndsOfAllThatAreOpen) {
    const std::string trace = LoadedTypes(classes(NESTING_LIMIT + 5), false).trace();
    const unsigned int id = NESTING_LIMIT - 1;
    ASSERT_NE(placeOf(trace, id + 1, "   begin"), std::string::npos);
    EXPECT_LT(placeOf(trace, id, "   end"), placeOf(trace, 0, "   end"));
    EXPECT_LT(placeOf(trace, 0, "   end"), placeOf(trace, id + 1, "   begin"));
}

/// At the limit a struct has two classes of two integers; those are read class by class.
TEST(DeepOrder, WhatWaitsIsCompletedInTheOrderOfItsReading) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < NESTING_LIMIT - 1; ++id)
        addClass(file, id);
    unsigned int next = NESTING_LIMIT - 1;
    file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(2);
    file.str("x").u32(next).u32(0).str("y").u32(next + 1).u32(0).i32(-99);
    addClass(file, next + 2);
    addClass(file, next + 3);
    file.integer("of x").integer("of y");
    LoadedTypes types(file, false);
    types[0];
    const auto reads = types.storage().takeReads();
    ASSERT_EQ(reads.size(), 3 * (NESTING_LIMIT + 3));
    EXPECT_EQ(reads[3 * (NESTING_LIMIT + 1)].first, file.address(next + 2));
    EXPECT_EQ(reads[3 * (NESTING_LIMIT + 2)].first, file.address(next + 3));
}

TEST(DeepOrder, ClassesAreListedFromTheOutermost) {
    const TypeFileBuilder file = classes(3 * NESTING_LIMIT);
    LoadedTypes types(file, false);
    types[0];
    const std::vector<unsigned int>& ids = types.manager().getRTClassTypeIds();
    ASSERT_EQ(ids.size(), 3 * NESTING_LIMIT);
    for (unsigned int id = 0; id < ids.size(); ++id)
        ASSERT_EQ(ids[id], id);
}

// ---- Failures far down.

TEST(DeepFailures, LeaveNothingBehindAndTheNextCallIsComplete) {
    const unsigned int count = 2 * NESTING_LIMIT + 10;
    const TypeFileBuilder file = classes(count);
    for (unsigned int read = 0; read < 3 * count; read += 211) {
        LoadedTypes types(file, false);
        types.storage().failAtRead(1 + count + read);
        EXPECT_THROW(types[0], std::runtime_error);
        EXPECT_TRUE(types.manager().getRTClassTypeIds().empty());
        EXPECT_EQ(lengthOf(types[0]), count);
    }
}

TEST(DeepFailures, KeepTheTypesOfEarlierCalls) {
    const unsigned int count = 2 * NESTING_LIMIT;
    LoadedTypes types(classes(count), false);
    const RTBaseType* last = types[count - 1];
    types.storage().failAtRead(1 + count + 3 + 3 * NESTING_LIMIT + 30);
    EXPECT_THROW(types[0], std::runtime_error);
    EXPECT_EQ(types.manager().getRTClassTypeIds(), std::vector<unsigned int>{count - 1});
    EXPECT_EQ(lengthOf(types[0]), count);
    EXPECT_EQ(types[count - 1], last);
}

/// A storage that is asked by its manager and, once, asks the manager in turn for another type,
/// whose load then fails far down.
class AskingStorage : public OVAT::IBlockManager {
public:
    AskingStorage(std::string image, RTTypeManager& manager)
        : m_storage(std::move(image)), m_manager(manager) {}

    void askFor(unsigned int id, std::size_t failingRead) {
        m_id = id;
        m_storage.failAtRead(failingRead);
        m_asks = true;
    }
    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (std::exchange(m_asks, false)) {
            EXPECT_THROW(m_manager.getRTType(m_id), std::runtime_error);
        }
        return m_storage.read(offset, buffer, count);
    }

private:
    RecordingBlockManager m_storage;
    RTTypeManager& m_manager;
    unsigned int m_id = 0;
    bool m_asks = false;
};

TEST(DeepFailures, OfACallFromWithinTheStorageLeaveNothingToTheOuterCall) {
    const unsigned int count = 2 * NESTING_LIMIT;
    TypeFileBuilder file;
    for (unsigned int id = 1; id <= 2 * count; ++id) { // Two chains.
        if (id % count == 0)
            file.integer("end");
        else
            addClass(file, id);
    }
    RTTypeManager manager;
    AskingStorage storage(file.image(), manager);
    manager.setupDeserializer(storage, 0);
    storage.askFor(count, 1 + 2 * count + 3 * (NESTING_LIMIT + 10));
    EXPECT_EQ(lengthOf(manager.getRTType(0)), count);
    EXPECT_EQ(manager.getRTClassTypeIds().size(), count - 1);
    EXPECT_EQ(lengthOf(manager.getRTType(count)), count);
}

// ---- Hostile files.

/// Families of classes, each the base of the one before it, whose members all lead back to the
/// first of the family: that one is open, and read again, whenever one of them is done.
TEST(HostileFiles, ClassesThatLeadBackToTheMostDerivedOneAreReadAFewTimesEach) {
    for (const unsigned int family : {40u, 1000u, CHAIN}) {
        TypeFileBuilder file;
        const unsigned int count = CHAIN / 10;
        for (unsigned int id = 0; id < count; ++id) {
            const unsigned int base = (id + 1) % family == 0 ? NO_TYPE_ID : id + 1;
            file.record(CLASS, "c").u32(base).i32(0).i32(1);
            file.str("m").u32(id - id % family).u32(0).u32(0);
        }
        runOnStack(smallStack(), [&] {
            LoadedTypes types(file);
            EXPECT_LT(types.storage().takeReads().size(), 3u * 25 * count) << family;
        });
    }
}

// ---- Queries over chains that no loader builds.

class DeepQueries : public testing::Test {
protected:
    const RTBaseType& chain(const std::function<const RTBaseType*(const RTBaseType*)>& add,
                            const RTBaseType& end) {
        const RTBaseType* type = &end;
        for (unsigned int i = 0; i < CHAIN; ++i)
            type = add(type);
        return *type;
    }
    void onSmallStack(const std::function<void()>& work) { runOnStack(smallStack(), work); }

    TypeGraph m_types;
    const RTSeqEnumType& m_bit = m_types.seqEnum(ENCODING_2_STATE);
    const RTArrayType& m_array = m_types.array(VLOG_FIXED_PACKED_ARRAY, &m_bit, 1, {{0, 7, 1}});
};

TEST_F(DeepQueries, Typedefs) {
    const auto& first =
        chain([&](const RTBaseType* type) { return &m_types.alias(type, {OPEN}); }, m_array);
    onSmallStack([&] {
        EXPECT_EQ(first.getValueEncoding(), ENCODING_2_STATE);
        EXPECT_EQ(first.getSelf(false), &m_array);
        EXPECT_EQ(first.getSVTypeId(), -99);
        EXPECT_EQ(triples(rangesOf(first)), triples({{0, 7, 1}}));
    });
}

TEST_F(DeepQueries, DiscreteEnums) {
    const auto& first =
        chain([&](const RTBaseType* type) { return &m_types.discreteEnum(type); }, m_array);
    const auto& queue = m_types.container<RTQueueType>(&first);
    onSmallStack([&] {
        EXPECT_EQ(first.getValueEncoding(), ENCODING_2_STATE);
        EXPECT_EQ(triples(rangesOf(first)), triples({{0, 7, 1}}));
        EXPECT_EQ(queue.getTotalNumDimensions(false), 2u);
        EXPECT_EQ(queue.getTotalNumDimensions(true), 1u);
    });
}

TEST_F(DeepQueries, Arrays) {
    const auto& first = chain(
        [&](const RTBaseType* type) {
            return &m_types.array(VLOG_FIXED_PACKED_ARRAY, type, 1, {{0, 7, 1}});
        },
        m_array);
    const auto& queue = m_types.container<RTQueueType>(&first);
    onSmallStack([&] {
        EXPECT_EQ(first.getValueEncoding(), ENCODING_2_STATE);
        EXPECT_EQ(rangesOf(first).size(), CHAIN + 1);
        EXPECT_EQ(queue.getTotalNumDimensions(true), CHAIN + 2);
    });
}

TEST_F(DeepQueries, Queues) {
    const auto& first = chain(
        [&](const RTBaseType* type) { return &m_types.container<RTQueueType>(type); }, m_array);
    onSmallStack([&] {
        const auto& queue = dynamic_cast<const RTQueueType&>(first);
        EXPECT_EQ(queue.getTotalNumDimensions(true), CHAIN + 1);
        EXPECT_EQ(first.getValueEncoding(), ENCODING_BYTE);
    });
}

TEST_F(DeepQueries, BaseClasses) {
    const auto& last = m_types.classType({&m_array});
    const auto& first =
        chain([&](const RTBaseType* type) { return &m_types.classType({}, type); }, last);
    onSmallStack([&] {
        EXPECT_EQ(first.getValueEncoding(), ENCODING_2_STATE);
        EXPECT_EQ(triples(rangesOf(first)), triples({{0, 7, 1}}));
    });
}

} // namespace
