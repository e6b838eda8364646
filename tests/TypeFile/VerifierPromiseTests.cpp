// What the verifier promises, on many damaged files: it never throws, and of a file without errors
// every type loads and every query on every type ends. The sanitizers say whether it was safe.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/ConstraintPopulation.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeFile/TypeFileVerifier.h"
#include "tests/support/TypeFileBuilder.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace RTTI;

/// Asks a type everything but for its ranges.
void askEverything(RTBaseType& type) {
    type.getValueEncoding();
    type.getValueSize();
    type.getSVTypeId();
    EXPECT_EQ(type.getSelf(true), &type);
    EXPECT_NE(type.getSelf(false), nullptr);
    if (auto* array = dynamic_cast<RTAbstractArrayType*>(&type)) {
        array->getArrayKind();
        array->getTotalNumDimensions(true);
        array->getTotalNumDimensions(false);
    }
}

/// The types that are reported for their constraint walks.
std::set<unsigned int> largeWalks(const std::vector<TypeFile::Finding>& findings) {
    std::set<unsigned int> types;
    for (const TypeFile::Finding& finding : findings)
        if (finding.code == TypeFile::FindingCode::WALK_TOO_LARGE)
            types.insert(finding.typeId);
    return types;
}

/// Verifies a file, and loads it if there are no errors. Whether it was loaded.
bool keepsThePromise(const std::vector<char>& bytes, unsigned long long base,
                     const TypeFile::VerifyLimits& limits) {
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    std::vector<TypeFile::Finding> findings;
    EXPECT_NO_THROW(findings = TypeFile::verify(storage, bytes.size(), base, limits));
    if (TypeFile::hasErrors(findings))
        return false;
    const unsigned int count = TypeFile::TypeFileFrame(storage, bytes.size(), base).typeCount();
    const std::set<unsigned int> large = largeWalks(findings);
    RTTypeManager manager;
    manager.setupDeserializer(storage, base);
    EXPECT_EQ(manager.readAllRTTypes() != nullptr, count != 0);
    for (unsigned int id = 0; id < count; ++id) {
        RTBaseType* type = manager.getRTType(id);
        if (type == nullptr) {
            ADD_FAILURE() << "type " << id << " did not load";
            continue;
        }
        askEverything(*type);
        EXPECT_EQ(populateTypeConstraints(*type, limits.maxWalkSteps).isComplete,
                  large.count(id) == 0)
            << "type " << id;
    }
    return true;
}

std::vector<char> fileOf(const std::string& name) {
    std::ifstream file(EXAMPLE_TYPEFILES_DIR "/" + name + ".typ", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Overwrites 1 to 3 fields: a byte, a bit or a word, often with a number that sits on an edge.
void mutate(std::vector<char>& bytes, std::mt19937_64& random) {
    constexpr unsigned int EDGES[] = {0, 1, 2, 7, 40, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    for (std::uint64_t changes = random() % 3 + 1; changes > 0; --changes) {
        const std::size_t at = random() % bytes.size();
        const std::uint64_t kind = random() % 4;
        if (kind == 0)
            bytes[at] = static_cast<char>(random());
        if (kind == 1)
            bytes[at] = static_cast<char>(bytes[at] ^ 1 << random() % 8);
        const unsigned int word =
            kind == 2 ? EDGES[random() % 8] : static_cast<unsigned int>(random() % 64);
        for (std::size_t i = 0; kind >= 2 && i < 4 && at + i < bytes.size(); ++i)
            bytes[at + i] = static_cast<char>(word >> (8 * i));
    }
}

TEST(VerifierPromise, HoldsForRandomFiles) {
    constexpr std::uint64_t FILES = 6000;
    TypeFile::VerifyLimits small;
    small.maxWalkSteps = 4;
    TypeFile::VerifyLimits large;
    large.maxWalkSteps = 10000;
    std::size_t loaded = 0;
    for (std::uint64_t seed = 0; seed < FILES && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RTTITest::ModelFile file = RTTITest::randomFile(seed, 6);
        std::mt19937_64 random(seed);
        loaded += keepsThePromise(file.bytes, file.baseOffset, large);
        keepsThePromise(file.bytes, file.baseOffset, small);
        mutate(file.bytes, random);
        loaded += keepsThePromise(file.bytes, file.baseOffset, small);
    }
    EXPECT_GT(loaded, FILES / 20); // Else the property says little.
    RecordProperty("loaded", std::to_string(loaded));
}

/// Ten or so types over one another. What holds others by value comes behind them, a class behind
/// its base class; handles lead anywhere.
class RandomWalks {
public:
    explicit RandomWalks(std::uint64_t seed) : m_random(seed), m_kinds(3 + below(10)) {
        for (unsigned int& kind : m_kinds)
            kind = std::vector<unsigned int>{ClassId::ARRAY, ClassId::TYPEDEF, ClassId::RECORD,
                                             ClassId::CLASS, ClassId::CLASS}[below(5)];
        m_kinds[0] = ClassId::INT;
        m_kinds[1] = ClassId::ARRAY;
        for (m_id = 0; m_id < m_kinds.size(); ++m_id)
            addType();
    }

    const TypeFileBuilder& file() const { return m_file; }

private:
    unsigned int below(std::size_t limit) { return static_cast<unsigned int>(m_random() % limit); }

    /// A type that is held by value, or by a handle.
    unsigned int part() {
        for (;;) {
            const unsigned int id = below(m_kinds.size());
            if (id < m_id || m_kinds[id] == ClassId::CLASS)
                return id;
        }
    }

    unsigned int base() {
        for (unsigned int id = m_id; id-- > 0;)
            if (m_kinds[id] == ClassId::CLASS && below(3) == 0)
                return id;
        return TypeFileFormat::NO_TYPE_ID;
    }

    void addType() {
        const unsigned int kind = m_kinds[m_id];
        m_file.record(kind, "t");
        if (kind == ClassId::INT)
            m_file.range(0, 1, 1);
        else if (kind == ClassId::ARRAY)
            addArray();
        else if (kind == ClassId::TYPEDEF)
            m_file.u32(part()).u32(0);
        else
            addMembers(kind == ClassId::CLASS);
    }

    void addArray() {
        const unsigned int dimensions = m_id == 1 ? 1 : below(3);
        m_file.u32(VHDL_ARRAY).u32(m_id == 1 ? 0 : part()).u32(dimensions);
        for (unsigned int i = 0; i < dimensions; ++i)
            m_file.u32(0);
        m_file.u32(dimensions);
        for (unsigned int i = 0; i < dimensions; ++i)
            m_file.range(0, 7, 1);
        m_file.i32(-99);
    }

    void addMembers(bool isClass) {
        if (isClass)
            m_file.u32(base()).i32(-99);
        else
            m_file.u32(VHDL_RECORD);
        const unsigned int members = 1 + below(7);
        m_file.u32(members);
        for (unsigned int i = 0; i < members; ++i) {
            m_file.str("m").u32(part()).u32(0);
            if (isClass)
                m_file.u32(0);
        }
        if (!isClass)
            m_file.i32(-99);
    }

    std::mt19937_64 m_random;
    std::vector<unsigned int> m_kinds;
    unsigned int m_id = 0;
    TypeFileBuilder m_file;
};

TEST(VerifierPromise, ReportsExactlyTheWalksThatTakeMoreStepsThanTheLimit) {
    std::size_t reported = 0;
    std::size_t large = 0;
    for (std::uint64_t seed = 0; seed < 5000 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::string image = RandomWalks(seed).file().image();
        TypeFile::VerifyLimits limits;
        limits.maxWalkSteps = seed % 3 == 0 ? seed % 100 : seed % 8;
        const std::vector<char> bytes(image.begin(), image.end());
        ASSERT_TRUE(keepsThePromise(bytes, 0, limits));
        OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
        const auto found = TypeFile::verify(storage, bytes.size(), 0, limits);
        reported += largeWalks(found).size();
        large += limits.maxWalkSteps > 20 && !largeWalks(found).empty() ? 1 : 0;
    }
    EXPECT_GT(reported, 1000u);
    EXPECT_GT(large, 100u);
}

class DamagedExample : public testing::TestWithParam<const char*> {};

TEST_P(DamagedExample, KeepsThePromise) {
    const std::vector<char> whole = fileOf(GetParam());
    std::size_t loaded = 0;
    for (std::uint64_t seed = 0; seed < 400 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::vector<char> bytes = whole;
        std::mt19937_64 random(seed);
        mutate(bytes, random);
        TypeFile::VerifyLimits limits;
        limits.maxWalkSteps = 10000;
        loaded += keepsThePromise(bytes, 0, limits);
    }
    EXPECT_GT(loaded, 20u);
    EXPECT_LT(loaded, 390u);
    RecordProperty("loaded", std::to_string(loaded));
}

INSTANTIATE_TEST_SUITE_P(VerifierPromise, DamagedExample,
                         testing::Values("svkinds_slang", "svkinds_vltree", "vhkinds_ghw",
                                         "vhkinds_rti", "ieee_rti", "ieee_ghw"),
                         [](const auto& example) { return std::string(example.param); });

class Example : public testing::TestWithParam<const char*> {};

TEST_P(Example, HasNoFinding) {
    const std::vector<char> bytes = fileOf(GetParam());
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    for (const TypeFile::Finding& finding : TypeFile::verify(storage, bytes.size(), 0))
        ADD_FAILURE() << TypeFile::lineOf(finding);
    EXPECT_FALSE(bytes.empty());
}

INSTANTIATE_TEST_SUITE_P(VerifierPromise, Example,
                         testing::Values("ibex_slang", "ibex_vltree", "ieee_ghw", "ieee_rti",
                                         "neorv32_ghw", "neorv32_rti", "svkinds_slang",
                                         "svkinds_vltree", "uvm_slang", "vhkinds_ghw",
                                         "vhkinds_rti"),
                         [](const auto& example) { return std::string(example.param); });

/// A chain of `length` records that each wait for the next while they are read.
std::vector<char> chainOf(unsigned int kind, unsigned int length) {
    TypeFileBuilder file;
    for (unsigned int id = 1; id < length; ++id) {
        file.record(kind, "t").u32(id);
        if (kind == ClassId::CLASS)
            file.i32(0).i32(0); // SV type id, no members
        else
            file.u32(0); // no constraints
    }
    if (kind == ClassId::CLASS)
        file.record(kind, "base").u32(TypeFileFormat::NO_TYPE_ID).i32(0).i32(0);
    else
        file.integer("int");
    const std::string image = file.image();
    return {image.begin(), image.end()};
}

/// Whether each link of a chain leads on.
bool isWhole(const std::vector<char>& bytes, unsigned int length) {
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    for (unsigned int id = 0; id + 1 < length; ++id) {
        const RTBaseType* type = manager.getRTType(id);
        const auto* alias = dynamic_cast<const RTTypedefType*>(type);
        const RTBaseType* link = alias != nullptr
                                     ? alias->m_dataType
                                     : dynamic_cast<const RTClassType&>(*type).m_baseClass;
        if (link == nullptr)
            return false;
    }
    return true;
}

TEST(VerifierPromise, HoldsForChainsOfAnyLength) {
    constexpr unsigned int LENGTH = 20000;
    for (const unsigned int kind : {ClassId::TYPEDEF, ClassId::CLASS}) {
        const std::vector<char> bytes = chainOf(kind, LENGTH);
        OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
        EXPECT_TRUE(TypeFile::verify(storage, bytes.size(), 0).empty()) << kind;
        EXPECT_TRUE(isWhole(bytes, LENGTH)) << kind;
    }
}

TEST(VerifierPromise, HandsOnWhatTheStorageThrowsAndCanBeAskedAgain) {
    TypeFileBuilder file;
    for (int i = 0; i < 10000; ++i) // More than is read at once.
        file.record(ClassId::STRING, "a string type");
    const std::string image = file.image();
    std::size_t failures = 0;
    for (;; ++failures) {
        RecordingBlockManager storage(image);
        storage.failAtRead(failures);
        try {
            TypeFile::verify(storage, image.size(), 0);
            break;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "the storage fails");
        }
        EXPECT_TRUE(TypeFile::verify(storage, image.size(), 0).empty());
    }
    EXPECT_GE(failures, 3U);
}

} // namespace
