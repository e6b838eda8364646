// Types that nest deep: whole loads on a small stack, in the order of plain recursion.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/BuildKind.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RunOnStack.h"
#include "tests/support/TypeFileBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace RTTI;
using namespace RTTITest;

constexpr unsigned int CLASS = 0xA0000017;
constexpr unsigned int QUEUE = 0xA0000014;
constexpr unsigned int TYPEDEF = 0xA0000007;

/// Links of a chain. Under sanitizers a million take half a minute each.
constexpr unsigned int CHAIN = IS_SLOW ? 100000 : 1000000;

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
    file.record(0xA0000010, "a").u32(VLOG_FIXED_UNPACKED_ARRAY).u32(next).i32(0).u32(0).i32(7);
}
void addArrayWithRange(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000010, "a").u32(VLOG_FIXED_UNPACKED_ARRAY).u32(next).i32(1).u32(NO_TYPE_ID);
    file.u32(1).range(0, 7, 1).i32(7);
}
void addArrayWithOpenDimension(TypeFileBuilder& file, unsigned int next) {
    file.record(0xA0000010, "a").u32(VLOG_FIXED_UNPACKED_ARRAY).u32(next).i32(1).u32(NO_TYPE_ID);
    file.u32(0).i32(7);
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

/// What a chain is made of, and what its first type answers.
struct LinkStyle {
    const char* name;
    std::vector<AddRecord> records; ///< Of one link.
    ValueEncoding encoding;         ///< Over a "2-State" end.
    std::size_t ranges;             ///< Of the end alone; links with ranges add theirs.
    int svTypeId = 7;               ///< Of the first type.
    unsigned int valueSize = 0;     ///< Of the first type.
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

/// `CHAIN` types in a row and two at the end, loaded from the first one on.
class MillionLinks : public testing::TestWithParam<LinkStyle> {
protected:
    void askEverything(const RTBaseType& first) const {
        EXPECT_EQ(first.getValueEncoding(), GetParam().encoding);
        const bool isTypedef = first.GetClassId() == ClassId::TYPEDEF;
        EXPECT_EQ(first.getSelf(false) == &first, !isTypedef);
        EXPECT_EQ(first.getSelf(true), &first);
        EXPECT_EQ(first.getSVTypeId(), GetParam().svTypeId);
        EXPECT_EQ(first.getValueSize(), GetParam().valueSize);
        const std::vector<std::vector<int>> ranges = numbersOf(rangesOf(first));
        EXPECT_EQ(ranges.size(), GetParam().ranges);
        if (!ranges.empty()) {
            EXPECT_EQ(ranges.back(), (std::vector<int>{0, 7, 1}));
        }
    }
};

TEST_P(MillionLinks, LoadAnswerAndEndOnASmallStack) {
    const std::size_t records = GetParam().records.size();
    const std::string image = chainImage(GetParam(), CHAIN / static_cast<unsigned int>(records));
    const std::size_t types = CHAIN / records * records + 2;
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
    testing::Values(
        LinkStyle{"Classes", {addClass}, ENCODING_2_STATE, 1},
        LinkStyle{"ClassesThroughQueues", {addClass, addQueue}, ENCODING_4_STATE, 0},
        LinkStyle{"ClassesThroughTypedefs", {addClass, addTypedef}, ENCODING_2_STATE, 1},
        LinkStyle{"ClassesThroughStructs", {addClass, addStruct}, ENCODING_2_STATE, 1},
        LinkStyle{"Structs", {addStruct}, ENCODING_2_STATE, 1},
        LinkStyle{"AccessTypes", {addAccess}, ENCODING_BYTE, 0, -99, 8},
        LinkStyle{"Typedefs", {addTypedef}, ENCODING_2_STATE, 1, -99},
        LinkStyle{"Arrays", {addArray}, ENCODING_2_STATE, 1},
        LinkStyle{"ArraysWithRanges", {addArrayWithRange}, ENCODING_2_STATE, CHAIN + 1},
        LinkStyle{"ArraysWithoutRanges", {addArrayWithOpenDimension}, ENCODING_2_STATE, CHAIN + 1},
        LinkStyle{"DynamicArrays", {addDynamicArray}, ENCODING_BYTE, 0},
        LinkStyle{"Queues", {addQueue}, ENCODING_BYTE, 0},
        LinkStyle{"AssocArrays", {addAssocArray}, ENCODING_BYTE, 0},
        LinkStyle{"Files", {addFile}, ENCODING_BYTE, 0, -99, 8},
        LinkStyle{"DiscreteEnums", {addDiscreteEnum}, ENCODING_2_STATE, 1, -99},
        LinkStyle{"BaseClasses", {addDerivedClass}, ENCODING_2_STATE, 1},
        LinkStyle{"KindsWithRangesInTurn",
                  {addTypedef, addStruct, addDiscreteEnum, addArray, addClass, addDerivedClass},
                  ENCODING_2_STATE,
                  1},
        LinkStyle{"AllKindsInTurn",
                  {addClass, addStruct, addAccess, addTypedef, addArray, addDynamicArray, addQueue,
                   addAssocArray, addFile, addDiscreteEnum, addDerivedClass},
                  ENCODING_4_STATE,
                  0}),
    [](const testing::TestParamInfo<LinkStyle>& test) { return std::string(test.param.name); });

TEST(DeepDimensions, OfArraysThatLoadInOneCallAreCountedToTheEnd) {
    for (const AddRecord add : {addQueue, addDynamicArray, addAssocArray}) {
        const LinkStyle arrays{"", {add}, ENCODING_BYTE, 0};
        const std::string image = chainImage(arrays, CHAIN);
        runOnStack(smallStack(), [&] {
            OVAT::MemoryBlockManager storage(image.data(), image.size());
            RTTypeManager manager;
            manager.setupDeserializer(storage, 0);
            const auto& array = dynamic_cast<const RTAbstractArrayType&>(*manager.getRTType(0));
            EXPECT_EQ(array.getTotalNumDimensions(true), CHAIN + 1);
            EXPECT_EQ(array.getTotalNumDimensions(false), CHAIN + 1);
        });
    }
}

// ---- Order.

/// More than any stack that is at hand has room for, were each record read within the one before.
constexpr unsigned int DEEP = 20000;

TypeFileBuilder classes(unsigned int count) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < count; ++id)
        addClass(file, id);
    file.record(CLASS, "last").u32(NO_TYPE_ID).i32(7).i32(0);
    return file;
}

/// The ids of the records in the order in which the trace says that they begin, or end.
std::vector<unsigned int> idsIn(const std::string& trace, const std::string& what) {
    const std::string label = "**** Type Id  =  ";
    std::vector<unsigned int> ids;
    for (std::size_t at = trace.find(label); at != std::string::npos; at = trace.find(label, at)) {
        at += label.size();
        const std::size_t end = trace.find(' ', at);
        if (trace.compare(end, what.size(), what) == 0)
            ids.push_back(static_cast<unsigned int>(std::stoul(trace.substr(at, end - at))));
    }
    return ids;
}

std::vector<unsigned int> upTo(unsigned int count) {
    std::vector<unsigned int> ids(count);
    std::iota(ids.begin(), ids.end(), 0u);
    return ids;
}

/// Each class ends behind its member, however deep: the innermost ends first.
TEST(DeepOrder, RecordsBeginFromTheOutermostAndEndFromTheInnermost) {
    const std::string trace = LoadedTypes(classes(DEEP), false).trace();
    std::vector<unsigned int> ids = upTo(DEEP);
    EXPECT_EQ(idsIn(trace, "   begin"), ids);
    std::reverse(ids.begin(), ids.end());
    EXPECT_EQ(idsIn(trace, "   end"), ids);
}

/// Far down a struct has two classes of an integer each; the first class's integer is read before
/// the second class.
TEST(DeepOrder, MembersOfAMemberAreReadBeforeTheNextMember) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < DEEP; ++id)
        addClass(file, id);
    file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(2);
    file.str("x").u32(DEEP).u32(0).str("y").u32(DEEP + 1).u32(0).i32(-99);
    addClass(file, DEEP + 2);
    addClass(file, DEEP + 3);
    file.integer("of x").integer("of y");
    LoadedTypes types(file, false);
    types[0];
    const auto reads = types.storage().takeReads();
    ASSERT_EQ(reads.size(), 3 * (DEEP + 4));
    const unsigned int order[] = {DEEP, DEEP + 2, DEEP + 1, DEEP + 3};
    for (std::size_t i = 0; i < std::size(order); ++i)
        EXPECT_EQ(reads[3 * (DEEP + i)].first, file.address(order[i])) << i;
}

TEST(DeepOrder, ClassesAreListedFromTheOutermost) {
    LoadedTypes types(classes(DEEP), false);
    types[0];
    EXPECT_EQ(types.manager().getRTClassTypeIds(), upTo(DEEP));
}

// ---- Failures far down.

TEST(DeepFailures, LeaveNothingBehindAndTheNextCallIsComplete) {
    const unsigned int count = 2000;
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
    const unsigned int count = 2000;
    LoadedTypes types(classes(count), false);
    const RTBaseType* last = types[count - 1];
    types.storage().failAtRead(1 + count + 3 + 3 * (count / 2));
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

    /// In the next read; the load that this asks for fails at a read counted from the first of all.
    void askFor(unsigned int id, std::size_t failingRead = static_cast<std::size_t>(-1)) {
        m_id = id;
        m_storage.failAtRead(failingRead);
        m_asks = true;
    }
    const RTBaseType* answer() const { return m_answer; }
    bool hasFailed() const { return m_hasFailed; }
    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (std::exchange(m_asks, false)) {
            try {
                m_answer = m_manager.getRTType(m_id);
            } catch (const std::runtime_error&) {
                m_hasFailed = true;
            }
        }
        return m_storage.read(offset, buffer, count);
    }

private:
    RecordingBlockManager m_storage;
    RTTypeManager& m_manager;
    unsigned int m_id = 0;
    bool m_asks = false;
    bool m_hasFailed = false;
    const RTBaseType* m_answer = nullptr;
};

/// Two chains of classes, `count` types each.
TypeFileBuilder twoChains(unsigned int count) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id <= 2 * count; ++id) {
        if (id % count == 0)
            file.integer("end");
        else
            addClass(file, id);
    }
    return file;
}

TEST(DeepFailures, OfACallFromWithinTheStorageLeaveNothingToTheOuterCall) {
    const unsigned int count = 2000;
    RTTypeManager manager;
    AskingStorage storage(twoChains(count).image(), manager);
    manager.setupDeserializer(storage, 0);
    storage.askFor(count, 1 + 2 * count + 3 * (count / 2));
    EXPECT_EQ(lengthOf(manager.getRTType(0)), count);
    EXPECT_TRUE(storage.hasFailed());
    EXPECT_EQ(manager.getRTClassTypeIds().size(), count - 1);
    EXPECT_EQ(lengthOf(manager.getRTType(count)), count);
}

/// The list of open records moves while the outer one's bytes are being read.
TEST(CallsFromWithinTheStorage, LoadWholeAndLeaveTheOuterRecordAsItWas) {
    const unsigned int count = 2000;
    RTTypeManager manager;
    AskingStorage storage(twoChains(count).image(), manager);
    manager.setupDeserializer(storage, 0);
    storage.askFor(count);
    EXPECT_EQ(lengthOf(manager.getRTType(0)), count);
    EXPECT_EQ(lengthOf(storage.answer()), count);
    EXPECT_EQ(manager.getRTClassTypeIds().size(), 2 * (count - 1));
    EXPECT_EQ(storage.answer(), manager.getRTType(count));
}

/// What the outer call gave up had been given to nobody but the inner call.
TEST(CallsFromWithinTheStorage, GoBackWithAnOuterCallThatFails) {
    const unsigned int count = 100;
    RTTypeManager manager;
    AskingStorage storage(twoChains(count).image(), manager);
    manager.setupDeserializer(storage, 0);
    storage.askFor(count, 1 + 2 * count + 3 * count + 10);
    EXPECT_THROW(manager.getRTType(0), std::runtime_error);
    EXPECT_FALSE(storage.hasFailed());
    EXPECT_TRUE(manager.getRTClassTypeIds().empty());
    EXPECT_EQ(lengthOf(manager.getRTType(0)), count);
    EXPECT_EQ(lengthOf(manager.getRTType(count)), count);
    EXPECT_EQ(manager.getRTClassTypeIds().size(), 2 * (count - 1)) << "the inner call's are gone";
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

/// A chain of classes, each the base of the one before it; each has a member of the first.
TypeFileBuilder leadingBack(unsigned int count) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < count; ++id) {
        file.record(CLASS, "c").u32(id + 1 < count ? id + 1 : NO_TYPE_ID).i32(0).i32(1);
        file.str("m").u32(0).u32(0).u32(0);
    }
    return file;
}

/// The last class is read while the first is open once; the last but one while it is open twice.
/// When it would be opened once too often, the reference is null, and all that are open are done.
TEST(HostileFiles, ARecordIsOpenSixteenTimesAtOnceAndNoMore) {
    ASSERT_EQ(REOPEN_LIMIT, 16u);
    const unsigned int count = 40;
    LoadedTypes types(leadingBack(count), false);
    types[0];
    EXPECT_EQ(types.storage().takeReads().size(), 3u * (16 * count - (1 + 15) * 15 / 2));
    for (unsigned int id = 0; id < count; ++id) {
        const auto& type = types.as<RTClassType>(id);
        const bool isCut = id != 0 && id <= count - 16;
        EXPECT_EQ(type.m_memberTypes[0], isCut ? nullptr : types[0]) << id;
        EXPECT_EQ(type.m_baseClass, id + 1 < count ? types[id + 1] : nullptr) << id;
    }
}

TEST(HostileFiles, AChainThatLeadsBackFromEachOfItsClassesTakesSixteenReadingsOfEach) {
    const unsigned int count = 3000;
    runOnStack(smallStack(), [&] {
        LoadedTypes types(leadingBack(count), false);
        types[0];
        EXPECT_EQ(types.storage().takeReads().size(), 3u * (16 * count - (1 + 15) * 15 / 2));
    });
}

} // namespace
