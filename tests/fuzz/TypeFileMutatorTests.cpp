#include "fuzz/TypeFileMutator.h"

#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/FieldReader.h"
#include "fuzz/RecordEditor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Fuzz::Parts;
using TypeFile::FieldForm;
using TypeFile::ReadField;

Parts everyKind() {
    std::ifstream file(EVERY_KIND_TYPEFILE, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return Fuzz::takeApart(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// Calls `take(field, bytes)` with each field of a record and what it holds.
template <typename Take> void forEachField(const std::string& record, Take take) {
    OVAT::MemoryBlockManager storage(record.data(), record.size());
    TypeFile::StorageWindow window(storage, record.size(), record.size());
    TypeFile::FieldReader reader(window, 0, record.size(), [&](const ReadField& field) {
        take(field, record.substr(field.offset, field.size));
        return true;
    });
    reader.read(TypeFile::Layout::HEAD);
    const char* const kind = record.data() + RTTI::TypeFileFormat::RECORD_KIND_OFFSET;
    reader.read(TypeFile::bodyLayout(RTTI::littleEndianAt<unsigned int>(kind)));
}

/// The fields of a record by name, with what they hold, in their order.
std::vector<std::pair<std::string, std::string>> fieldsOf(const std::string& record) {
    std::vector<std::pair<std::string, std::string>> fields;
    forEachField(record, [&](const ReadField& field, const std::string& bytes) {
        fields.emplace_back(TypeFile::nameOf(field), bytes);
    });
    return fields;
}

unsigned int recordSizeOf(const std::string& record) {
    return RTTI::littleEndianAt<unsigned int>(record.data());
}

std::string withChangedField(std::string record, std::mt19937& random) {
    Fuzz::RecordEditor(record, 27, random).changeField();
    return record;
}

TEST(TypeFileMutator, MakesTheSameFileFromTheSameSeed) {
    const auto mutated = [](unsigned int seed) {
        std::mt19937 random(seed);
        Parts parts = everyKind();
        for (int changes = 0; changes < 20; ++changes)
            Fuzz::mutate(parts, random);
        return Fuzz::putTogether(parts);
    };
    EXPECT_EQ(mutated(1), mutated(1));
    EXPECT_NE(mutated(1), mutated(2));
}

TEST(RecordEditor, ChangesEveryFieldOfEveryKind) {
    std::mt19937 random(1);
    const Parts parts = everyKind();
    for (const std::string& record : parts.records) {
        const auto before = fieldsOf(record);
        std::set<std::string> unchanged;
        for (const auto& [name, bytes] : before)
            unchanged.insert(name);
        for (int round = 0; round < 20000 && !unchanged.empty(); ++round) {
            const auto after = fieldsOf(withChangedField(record, random));
            std::size_t first = 1;
            while (first < std::min(before.size(), after.size()) && before[first] == after[first])
                ++first;
            unchanged.erase(before[first < before.size() ? first : 0].first);
        }
        EXPECT_TRUE(unchanged.empty()) << *unchanged.begin();
    }
}

TEST(RecordEditor, KeepsTheRecordSizeInStep) {
    std::mt19937 random(1);
    int resized = 0;
    const Parts parts = everyKind();
    for (const std::string& record : parts.records) {
        ASSERT_EQ(recordSizeOf(record), record.size());
        for (int round = 0; round < 500; ++round) {
            const std::string changed = withChangedField(record, random);
            if (changed.size() == record.size())
                continue;
            ++resized;
            EXPECT_EQ(recordSizeOf(changed), changed.size());
        }
    }
    EXPECT_GT(resized, 0);
}

/// Whether every field is there and nothing is left over.
bool isWhole(const std::string& record) {
    std::size_t end = 0;
    bool isWhole = true;
    forEachField(record, [&](const ReadField& field, const std::string&) {
        isWhole = isWhole && field.isWhole;
        end = field.offset + field.size;
    });
    return isWhole && end == record.size();
}

/// A count alone is changed once in four times, and so is the size of values.
TEST(RecordEditor, KeepsListsInStepWithWhatTheirCountsSay) {
    std::mt19937 random(1);
    int changedCounts = 0;
    int whole = 0;
    const Parts parts = everyKind();
    for (const std::string& record : parts.records) {
        const auto before = fieldsOf(record);
        for (int round = 0; round < 500; ++round) {
            const std::string changed = withChangedField(record, random);
            const auto after = fieldsOf(changed);
            std::size_t first = 1;
            while (first < std::min(before.size(), after.size()) && before[first] == after[first])
                ++first;
            if (first == before.size() || before[first].first.find("Count") == std::string::npos)
                continue;
            ++changedCounts;
            whole += isWhole(changed) ? 1 : 0;
        }
    }
    EXPECT_GT(changedCounts, 100);
    EXPECT_GT(whole, changedCounts * 6 / 10);
    EXPECT_LT(whole, changedCounts);
}

TEST(RecordEditor, RenumbersReferencesToTypesAlone) {
    Parts parts = everyKind();
    std::mt19937 random(1);
    const auto typeCount = static_cast<unsigned int>(parts.records.size());
    for (std::string& record : parts.records) {
        const std::string before = record;
        Fuzz::RecordEditor(record, typeCount, random).renumber([](unsigned int id) {
            return id + 1000;
        });
        forEachField(before, [&](const ReadField& field, const std::string& bytes) {
            const bool isMoved = field.layout->form == FieldForm::TYPE_ID && field.word < typeCount;
            const std::string now = record.substr(field.offset, field.size);
            EXPECT_EQ(now != bytes, isMoved) << TypeFile::nameOf(field);
        });
    }
}

TEST(TypeFileMutator, AppendsTypesThatKeepTheirReferences) {
    std::mt19937 random(1);
    Parts parts = everyKind();
    const std::size_t half = parts.records.size();
    Fuzz::append(parts, everyKind(), random);
    ASSERT_EQ(parts.records.size(), 2 * half);
    for (std::size_t id = 0; id < half; ++id) {
        std::vector<unsigned int> own;
        std::vector<unsigned int> appended;
        const auto collectInto = [&](std::vector<unsigned int>& ids) {
            return [&ids](const ReadField& field, const std::string&) {
                if (field.layout->form == FieldForm::TYPE_ID)
                    ids.push_back(field.word);
            };
        };
        forEachField(parts.records[id], collectInto(own));
        forEachField(parts.records[half + id], collectInto(appended));
        for (unsigned int& target : own)
            target += target < half ? static_cast<unsigned int>(half) : 0;
        EXPECT_EQ(appended, own) << "type " << id;
    }
}

} // namespace
