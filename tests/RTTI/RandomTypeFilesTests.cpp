#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/BuildKind.h"
#include "tests/support/CapturedOutput.h"
#include "tests/support/RecordingBlockManager.h"
#include "tests/support/ReferenceLoader.h"
#include "tests/support/RunOnStack.h"
#include "tests/support/TypeDescription.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

// Random type files are loaded twice: by the library from the bytes, and by a reference loader from
// the fields that the bytes were made from. Both have to agree on everything that can be seen.

namespace {

using namespace RTTITest;

constexpr std::uint64_t FILES = 3000;
constexpr unsigned int LARGEST_FILE = 40;
constexpr std::uint64_t DEEP_FILES = IS_SLOW ? 12 : 30;

/// A random file in the hands of the library and of the reference loader.
class Comparison {
public:
    Comparison(std::uint64_t seed, unsigned int maxTypes)
        : Comparison(randomFile(seed, maxTypes)) {}
    explicit Comparison(ModelFile file)
        : m_file(std::move(file)), m_reference(m_file),
          m_storage({m_file.bytes.begin(), m_file.bytes.end()}) {}

    std::uint32_t count() const { return static_cast<std::uint32_t>(m_file.records.size()); }
    const ReferenceLoader& reference() const { return m_reference; }
    RecordingBlockManager& storage() { return m_storage; }
    RTTI::RTTypeManager& manager() { return m_manager; }

    void setup() {
        m_reference.setup();
        attempt([this] { m_manager.setupDeserializer(m_storage, m_file.baseOffset); });
    }

    void readAll() {
        const Link expected = m_reference.readAll();
        const RTTI::RTBaseType* last = nullptr;
        attempt([&] { last = m_manager.readAllRTTypes(); });
        EXPECT_EQ(last != nullptr, expected.has_value());
        if (last != nullptr && expected) {
            EXPECT_EQ(last, m_manager.getRTType(*expected));
        }
        EXPECT_TRUE(m_storage.takeReads().empty()) << "a slot that readAllRTTypes left empty";
    }

    void get(std::uint32_t id) {
        const Link expected = m_reference.get(id);
        const RTTI::RTBaseType* type = nullptr;
        attempt([&] { type = m_manager.getRTType(id); });
        EXPECT_EQ(type != nullptr, expected.has_value()) << "type " << id;
    }

    void getEvery() {
        for (std::uint32_t id = 0; id < count(); ++id)
            get(id);
    }

    /// Compares every field and every link; all types have to be loaded.
    void compareTypes() {
        SlotOf slots;
        for (std::uint32_t id = 0; id < count(); ++id) {
            if (const RTTI::RTBaseType* type = m_manager.getRTType(id)) {
                EXPECT_TRUE(slots.emplace(type, id).second)
                    << "type " << id << " is another's object";
            }
        }
        for (const auto& [type, id] : slots) {
            ASSERT_NE(m_reference.type(id), nullptr) << "type " << id;
            EXPECT_EQ(describe(*type, slots), *m_reference.type(id)) << "type " << id;
        }
        m_storage.takeReads();
    }

    std::string takeExpectedTrace() { return m_reference.takeTrace(); }
    unsigned int failures() const { return m_failures; }

private:
    /// Makes the call, a second time where the storage fails, and compares the reads of the call
    /// that came through. A call that fails has to leave the class list as it was.
    template <typename Call> void attempt(const Call& call) {
        const std::vector<unsigned int> classIds = m_manager.getRTClassTypeIds();
        try {
            call();
        } catch (const PlannedFailure&) {
            ++m_failures;
            m_storage.takeReads();
            EXPECT_EQ(m_manager.getRTClassTypeIds(), classIds) << "after the exception";
            call();
        }
        EXPECT_EQ(m_storage.takeReads(), m_reference.takeReads());
        EXPECT_EQ(m_manager.getRTClassTypeIds(), m_reference.classIds());
    }

    ModelFile m_file;
    ReferenceLoader m_reference;
    RecordingBlockManager m_storage;
    RTTI::RTTypeManager m_manager;
    unsigned int m_failures = 0;
};

/// Loads a whole file, tracing; the answer is the trace.
std::string loadWhole(Comparison& files) {
    CapturedOutput output;
    files.setup();
    files.manager().setDebugMode();
    files.readAll();
    files.getEvery();
    files.manager().unsetDebugMode();
    return output.text();
}

TEST(RandomTypeFiles, WholeTablesAgreeWithTheReference) {
    std::size_t types = 0;
    std::size_t lostReads = 0;
    std::size_t endlessReferences = 0;
    for (std::uint64_t seed = 0; seed < FILES && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Comparison files(seed, LARGEST_FILE);
        const std::string trace = loadWhole(files);
        EXPECT_EQ(trace, files.takeExpectedTrace());
        files.compareTypes();
        types += files.count();
        lostReads += files.reference().lostReads();
        endlessReferences += files.reference().endlessReferences();
    }
    // The generator must not lose the cases that it is there for.
    EXPECT_TRUE(HasFailure() || types > 10 * FILES) << types;
    EXPECT_TRUE(HasFailure() || lostReads > FILES / 10) << lostReads;
    EXPECT_TRUE(HasFailure() || endlessReferences > FILES / 10) << endlessReferences;
    RecordProperty("types", std::to_string(types));
    RecordProperty("lostReads", std::to_string(lostReads));
    RecordProperty("endlessReferences", std::to_string(endlessReferences));
}

TEST(RandomTypeFiles, SingleTypesAgreeInAnyOrder) {
    for (std::uint64_t seed = 0; seed < FILES && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937_64 random(seed);
        Comparison files(seed, LARGEST_FILE);
        CapturedOutput output;
        files.setup();
        for (std::uint32_t i = 0; i < 2 * files.count(); ++i)
            files.get(static_cast<std::uint32_t>(random() % (files.count() + 1)));
        files.getEvery();
        files.compareTypes();
        EXPECT_EQ(output.text(), "");
    }
}

/// Loads a file whose read `failAt` fails, one type of it alone first; false where no read failed.
bool loadWithFailure(std::uint64_t seed, std::size_t failAt) {
    Comparison files(seed, 8);
    files.storage().failAtRead(failAt);
    files.setup();
    files.get(static_cast<std::uint32_t>(seed % files.count()));
    files.readAll();
    files.getEvery();
    const unsigned int failures = files.failures();
    files.storage().failAtRead(RecordingBlockManager::NEVER);
    files.compareTypes();
    EXPECT_LE(failures, 1U);
    return failures == 1;
}

TEST(RandomTypeFiles, LoadMadeAgainAfterAnyFailedReadIsComplete) {
    std::size_t loads = 0;
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
        for (std::size_t failAt = 0;; ++failAt) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", failing read " +
                         std::to_string(failAt));
            if (!loadWithFailure(seed, failAt) || HasFailure())
                break;
            ++loads;
        }
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(loads, 1000U);
    RecordProperty("loads", std::to_string(loads));
}

/// Far deeper than the records of any real file nest.
constexpr unsigned int DEEP_FILE = 3500;

/// A chain that is read once for each time that its beginning may be open is long enough like this.
constexpr unsigned int LEADING_BACK_FILE = 60;

ModelFile deepFileOf(std::uint64_t seed) {
    return deepFile(seed, DEEP_FILE, static_cast<DeepKinds>(seed % 3));
}

/// Loads a file whole: the answer is how many references were cut.
std::size_t compareWhole(Comparison& files) {
    const std::string trace = loadWhole(files);
    EXPECT_TRUE(trace == files.takeExpectedTrace()) << "the traces differ";
    files.compareTypes();
    return files.reference().cutReferences();
}

/// The reads, the trace and the types of plain recursion, at any depth.
TEST(DeepTypeFiles, AgreeWithTheReference) {
    runOnStack(LARGE_STACK, [&] {
        for (std::uint64_t seed = 0; seed < DEEP_FILES && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            Comparison files(deepFileOf(seed));
            compareWhole(files);
        }
    });
}

TEST(DeepTypeFiles, ThatLeadBackAgreeWithTheReferenceOnWhatIsCut) {
    std::size_t cutReferences = 0;
    runOnStack(LARGE_STACK, [&] {
        for (std::uint64_t seed = 0; seed < 10 * DEEP_FILES && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            Comparison files(
                deepFile(seed, LEADING_BACK_FILE, DeepKinds::BASE_CLASSES_THAT_LEAD_BACK));
            cutReferences += compareWhole(files);
        }
    });
    EXPECT_TRUE(HasFailure() || cutReferences > 10 * DEEP_FILES) << cutReferences;
    RecordProperty("cutReferences", std::to_string(cutReferences));
}

TEST(DeepTypeFiles, LoadMadeAgainAfterAFailedReadIsComplete) {
    std::size_t failures = 0;
    runOnStack(LARGE_STACK, [&] {
        for (std::uint64_t seed = 0; seed < DEEP_FILES && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            Comparison files(deepFileOf(seed));
            files.setup();
            files.storage().failAtRead(DEEP_FILE + 1 + (seed * 977 + 500) % (2 * DEEP_FILE));
            files.get(0);
            files.storage().failAtRead(RecordingBlockManager::NEVER);
            files.getEvery();
            failures += files.failures();
            files.compareTypes();
        }
    });
    EXPECT_TRUE(HasFailure() || failures > DEEP_FILES / 4) << failures;
    RecordProperty("failures", std::to_string(failures));
}

} // namespace
