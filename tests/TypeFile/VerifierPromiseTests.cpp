// What the verifier promises, on many damaged files: it never throws, and of a file without errors
// every type loads and every query on every type ends. The sanitizers say whether it was safe.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "tests/support/TypeFileBuilder.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace RTTI;

/// Asks a type everything; the answer is the number of its flattened constraints.
std::size_t askEverything(RTBaseType& type) {
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
    Brakel_tolv::ConstraintStack<FullConstraints> stack;
    std::vector<FullConstraints> ranges;
    type.populateTypeConstraints(stack, ranges);
    return ranges.size();
}

/// Verifies a file, and loads it if there are no errors. Whether it was loaded.
bool keepsThePromise(const std::vector<char>& bytes, unsigned long long base,
                     const TypeFile::VerifyLimits& limits) {
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    std::vector<TypeFile::Finding> findings;
    EXPECT_NO_THROW(findings = TypeFile::verify(storage, bytes.size(), base, limits));
    if (TypeFile::hasErrors(findings))
        return false;
    unsigned int count = 0;
    for (unsigned int i = 0; i < 4; ++i)
        count |= static_cast<unsigned int>(static_cast<unsigned char>(bytes[base + 32 + i]))
                 << (8 * i);
    RTTypeManager manager;
    manager.setupDeserializer(storage, base);
    EXPECT_EQ(manager.readAllRTTypes() != nullptr, count != 0);
    for (unsigned int id = 0; id < count; ++id) {
        RTBaseType* type = manager.getRTType(id);
        if (type == nullptr) {
            ADD_FAILURE() << "type " << id << " did not load";
            continue;
        }
        EXPECT_LE(askEverything(*type), limits.maxWalkSteps) << "type " << id;
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
    std::size_t loaded = 0;
    for (std::uint64_t seed = 0; seed < FILES && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RTTITest::ModelFile file = RTTITest::randomFile(seed, 6);
        std::mt19937_64 random(seed);
        loaded += keepsThePromise(file.bytes, file.baseOffset, {});
        keepsThePromise(file.bytes, file.baseOffset, small);
        mutate(file.bytes, random);
        loaded += keepsThePromise(file.bytes, file.baseOffset, small);
    }
    EXPECT_GT(loaded, FILES / 20); // Else the property says little.
    RecordProperty("loaded", std::to_string(loaded));
}

/// Arrays, structs and classes over one another: structs in the order of the ids, classes anywhere.
TypeFileBuilder randomWalks(std::mt19937_64& random) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(1).u32(0).u32(1).range(0, 7, 1).i32(-99);
    const auto types = static_cast<unsigned int>(4 + random() % 7);
    const auto firstClass = static_cast<unsigned int>(3 + random() % (types - 2));
    for (unsigned int id = 2; id < types; ++id) {
        const bool isClass = id >= firstClass;
        const auto members = static_cast<unsigned int>(1 + random() % 5);
        file.record(isClass ? ClassId::CLASS : ClassId::RECORD, "x");
        file.u32(isClass ? TypeFileFormat::NO_TYPE_ID : VHDL_RECORD);
        if (isClass)
            file.i32(-99);
        file.u32(members);
        for (unsigned int i = 0; i < members; ++i) {
            const bool isHandle = firstClass < types && random() % 2 == 0;
            const std::uint64_t part = isHandle ? firstClass + random() % (types - firstClass)
                                                : random() % std::min(id, firstClass);
            file.str("m").u32(static_cast<unsigned int>(part)).u32(0);
            if (isClass)
                file.u32(0);
        }
        if (!isClass)
            file.i32(-99);
    }
    return file;
}

TEST(VerifierPromise, CountsNoWalkAsShorterThanItIs) {
    std::size_t longWalks = 0;
    for (std::uint64_t seed = 0; seed < 3000 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937_64 random(seed);
        const TypeFileBuilder file = randomWalks(random);
        const std::string image = file.image();
        OVAT::MemoryBlockManager storage(image.data(), image.size());
        ASSERT_FALSE(TypeFile::hasErrors(TypeFile::verify(storage, image.size(), 0)));
        LoadedTypes types(file);
        std::size_t longest = 0;
        for (unsigned int id = 0; types[id] != nullptr; ++id)
            longest = std::max(longest, askEverything(*types[id]));
        TypeFile::VerifyLimits limits;
        limits.maxWalkSteps =
            static_cast<unsigned int>(longest) - 1; // The array's own range: >= 1.
        EXPECT_TRUE(TypeFile::hasErrors(TypeFile::verify(storage, image.size(), 0, limits)))
            << longest << " ranges";
        longWalks += longest > 20 ? 1 : 0;
    }
    EXPECT_GT(longWalks, 100u);
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
        loaded += keepsThePromise(bytes, 0, {});
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

TEST(VerifierPromise, HoldsForChainsUpToTheLimitAndTheLoaderGoesOn) {
    const unsigned int LONGEST = TypeFile::VerifyLimits().maxNesting;
    for (const unsigned int kind : {ClassId::TYPEDEF, ClassId::CLASS}) {
        for (const unsigned int length : {LONGEST, LONGEST + 1}) {
            const std::vector<char> bytes = chainOf(kind, length);
            OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
            const bool isSound = !TypeFile::hasErrors(TypeFile::verify(storage, bytes.size(), 0));
            EXPECT_EQ(isSound, length == LONGEST) << kind;
            EXPECT_TRUE(isWhole(bytes, length)) << kind;
        }
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
