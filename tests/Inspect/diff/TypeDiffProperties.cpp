// What holds for the differences between any two files, over tables of types made at random.

#include "Inspect/diff/EqualityClasses.h"
#include "Inspect/diff/TypeDiff.h"
#include "Inspect/diff/TypePairing.h"
#include "Inspect/diff/TypesInQuestion.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/Renumbering.h"
#include "tests/support/TypeMutations.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <tuple>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::DiffVerdict;
using Inspect::TypeDiff;

/// The types of a random file, cut records and references to nowhere among them, each with a name
/// of its own.
class RandomTypes {
public:
    RandomTypes(unsigned int seed, unsigned int maxTypes)
        : RandomTypes(randomFile(seed, maxTypes)) {}

    RTBaseType* operator[](std::size_t id) { return m_types.at(id); }
    unsigned int size() const { return static_cast<unsigned int>(m_types.size()); }
    Inspect::TypeTable table() {
        return {size(), [this](unsigned int id) { return m_types[id]; }};
    }

    /// Moves each type to another id, and the references with it.
    void shuffle(unsigned int seed) {
        std::vector<unsigned int> newIds(size());
        std::iota(newIds.begin(), newIds.end(), 0U);
        std::shuffle(newIds.begin(), newIds.end(), std::mt19937(seed));
        const std::vector<RTBaseType*> old = m_types;
        for (std::size_t id = 0; id < old.size(); ++id)
            m_types[newIds[id]] = old[id];
        for (RTBaseType* type : old) {
            if (type != nullptr)
                mapReferences(*type,
                              [&](unsigned int id) { return id < size() ? newIds[id] : id; });
        }
    }

    void append(RTBaseType& type) { m_types.push_back(&type); }

    static std::string nameOf(unsigned int id) {
        std::string name = "t";
        return name.append(std::to_string(id));
    }

private:
    explicit RandomTypes(const ModelFile& file) : m_storage(file.bytes) {
        m_manager.setupDeserializer(m_storage, file.baseOffset);
        for (unsigned int id = 0; id < file.records.size(); ++id)
            m_types.push_back(m_manager.getRTType(id));
        for (unsigned int id = 0; id < m_types.size(); ++id) {
            if (m_types[id] == nullptr)
                continue;
            TypeFile::setName(*m_types[id], nameOf(id));
            // What leads past the table stays so when types are appended.
            mapReferences(*m_types[id], [&](unsigned int to) {
                return to == 0xFFFFFFFF || to < size() ? to : 0xFFFFFF00;
            });
        }
    }

    OVAT::OwningMemoryBlockManager m_storage;
    RTTypeManager m_manager;
    std::vector<RTBaseType*> m_types;
};

std::vector<Inspect::TypeChange> changesOf(const TypeDiff& diff) {
    std::vector<Inspect::TypeChange> changes;
    diff.eachChange([&](const Inspect::TypeChange& change) { changes.push_back(change); });
    return changes;
}

class AnySeed : public testing::TestWithParam<unsigned int> {};

INSTANTIATE_TEST_SUITE_P(TypeDiffs, AnySeed, testing::Range(0U, 40U));

/// Few names and few kinds, so that many types are alike; references to anywhere.
void addAlikeTypes(LinkedTypes& types, unsigned int count, std::mt19937& random,
                   unsigned int names = 2) {
    const auto target = [&]() -> unsigned int {
        const unsigned int id = random() % (count + 1);
        return id < count ? id : random() % 2 == 0 ? 0xFFFFFFFF : count + random() % 3;
    };
    const unsigned int kinds = 1 + random() % 5;
    for (unsigned int i = 0; i < count; ++i) {
        const std::string name(random() % names, 'a');
        switch (random() % kinds) {
        case 0: types.access(name, target()); break;
        case 1:
            types.structure(name, {{"x", target()}, {"y", target()}}, VLOG_PACKED_STRUCT);
            break;
        case 2: types.alias(name, target()); break;
        case 3: types.vhdlArray(name, target(), {target()}, {{1, 0, 0}}); break;
        default: types.integer(name);
        }
    }
}

/// What two types are told apart by after so many steps along references, in text: the types with
/// the classes of the step before in place of ids.
std::vector<std::string> textsOf(unsigned int seed, unsigned int countA, unsigned int countB,
                                 const std::vector<unsigned int>& classes) {
    std::vector<std::string> texts;
    std::mt19937 random(seed);
    for (const unsigned int count : {countA, countB}) {
        LinkedTypes types;
        addAlikeTypes(types, count, random);
        const std::size_t first = texts.size();
        for (unsigned int id = 0; id < count; ++id) {
            mapReferences(types[id], [&](unsigned int to) {
                return to == 0xFFFFFFFF ? to : to < count ? classes[first + to] : 0xFFFFFF00;
            });
            std::ostringstream text;
            Inspect::TypeJsonWriter(text, Inspect::JsonForm::LINES, "").type(0, types[id]);
            texts.push_back(text.str());
        }
    }
    return texts;
}

/// Numbers from 0 on for equal texts, in the order of their first appearance.
template <typename Values> std::vector<unsigned int> numbered(const Values& values) {
    std::map<typename Values::value_type, unsigned int> numbers;
    std::vector<unsigned int> result;
    for (const auto& value : values)
        result.push_back(
            numbers.emplace(value, static_cast<unsigned int>(numbers.size())).first->second);
    return result;
}

TEST_P(AnySeed, ClassesAreThoseThatStepsAlongReferencesTellApart) {
    for (unsigned int i = 0; i < 25; ++i) {
        const unsigned int seed = 100 * GetParam() + i;
        std::mt19937 random(seed);
        const unsigned int countA = random() % 12, countB = random() % 12;
        std::vector<unsigned int> expected(countA + countB, 0);
        for (unsigned int step = 0; step <= countA + countB; ++step)
            expected = numbered(textsOf(seed, countA, countB, expected));

        LinkedTypes a, b;
        random.seed(seed);
        addAlikeTypes(a, countA, random);
        addAlikeTypes(b, countB, random);
        const std::vector<bool> all(countA + countB, true);
        const auto classes = equalityClasses(Inspect::TypeGraph(a.table(), b.table(), all));
        EXPECT_EQ(numbered(classes), expected) << "seed " << seed;
    }
}

/// Makes two versions of a table: some types have another name or other flags, some are new.
void addVersions(LinkedTypes& a, LinkedTypes& b, unsigned int seed) {
    constexpr unsigned int NAMES = 12;
    std::mt19937 random(seed);
    const unsigned int count = 10 + random() % 20;
    for (LinkedTypes* types : {&a, &b}) {
        random.seed(seed);
        addAlikeTypes(*types, count, random, NAMES);
    }
    for (unsigned int changes = random() % 3; changes != 0; --changes) {
        RTBaseType& type = b[random() % count];
        if (random() % 2 == 0)
            TypeFile::setName(type, std::string(random() % NAMES, 'a'));
        else
            type.m_flags ^= 1;
    }
    for (unsigned int more = random() % 3; more != 0; --more)
        b.alias(std::string(random() % NAMES, 'a'), random() % count);
}

/// What became of the types of A, and which types were added, if these nodes are in question.
auto outcome(const LinkedTypes& a, const LinkedTypes& b, const std::vector<bool>& isInQuestion) {
    const Inspect::TypeGraph graph(a.table(), b.table(), isInQuestion);
    const auto classes = equalityClasses(graph);
    const Inspect::TypePairing pairing(graph, classes);
    std::map<unsigned int, unsigned int> partners;
    for (const unsigned int node : pairing.changed())
        partners[node] = pairing.partner(node);
    return std::tuple(partners, pairing.removed(), pairing.added());
}

TEST_P(AnySeed, TypesOutOfQuestionMakeNoDifference) {
    std::size_t left = 0;
    for (unsigned int i = 0; i < 100; ++i) {
        SCOPED_TRACE(testing::Message() << "seed " << 100 * GetParam() + i);
        LinkedTypes a, b;
        addVersions(a, b, 100 * GetParam() + i);
        const auto question = Inspect::typesInQuestion(a.table(), b.table());
        if (question.areNone)
            continue;
        const auto& nodes = question.nodes;
        EXPECT_EQ(outcome(a, b, nodes), outcome(a, b, std::vector<bool>(nodes.size(), true)));
        left += static_cast<std::size_t>(std::count(nodes.begin(), nodes.end(), false));
    }
    EXPECT_GT(left, 300u);
}

TEST_P(AnySeed, ShuffledTypesAreRenumbered) {
    RandomTypes a(GetParam(), 200), b(GetParam(), 200);
    EXPECT_EQ(TypeDiff(a.table(), b.table()).verdict(), DiffVerdict::IDENTICAL);
    b.shuffle(GetParam());
    const TypeDiff diff(a.table(), b.table());
    EXPECT_LE(diff.verdict(), DiffVerdict::RENUMBERED);
    EXPECT_TRUE(changesOf(diff).empty());
}

TEST_P(AnySeed, AppendedTypesAreCompatible) {
    RandomTypes a(GetParam(), 200), b(GetParam(), 200);
    LinkedTypes more;
    more.integer("an integer");
    more.alias("an alias", 0);
    more.structure("a record", {{"itself", b.size() + 2}});
    for (unsigned int id = 0; id < more.size(); ++id)
        b.append(more[id]);
    b.shuffle(GetParam());
    const TypeDiff diff(a.table(), b.table());
    EXPECT_EQ(diff.verdict(), DiffVerdict::COMPATIBLE);
    EXPECT_EQ(diff.added().size(), 3u);
    const TypeDiff back(b.table(), a.table());
    EXPECT_EQ(back.verdict(), DiffVerdict::INCOMPATIBLE);
    EXPECT_EQ(back.removed().size(), 3u);
    EXPECT_TRUE(back.added().empty() && changesOf(back).empty());
}

TEST_P(AnySeed, OneChangedFieldIsOneLineThatLeadsToIt) {
    std::mt19937 random(GetParam());
    for (unsigned int i = 0; i < 50; ++i) {
        RandomTypes a(1000 * GetParam() + i, 20), b(1000 * GetParam() + i, 20);
        const unsigned int id = random() % a.size();
        if (b[id] == nullptr)
            continue;
        std::vector<TypeMutation> mutations = mutationsOf(*b[id]);
        TypeMutation& mutation = mutations[random() % mutations.size()];
        mutation.apply();
        const TypeDiff diff(a.table(), b.table());
        const std::vector<Inspect::TypeChange> changes = changesOf(diff);
        SCOPED_TRACE(testing::Message() << "type " << id << ' ' << mutation.field << " of seed "
                                        << 1000 * GetParam() + i);
        ASSERT_EQ(changes.size(), 1u);
        EXPECT_EQ(diff.verdict(), DiffVerdict::INCOMPATIBLE);
        EXPECT_TRUE(diff.removed().empty() && diff.added().empty());
        EXPECT_EQ(changes[0].idA, id);
        EXPECT_EQ(changes[0].idB, id);
        EXPECT_EQ(changes[0].field, mutation.field);
        const std::string name = RandomTypes::nameOf(id);
        EXPECT_EQ(changes[0].path.substr(0, name.size()), name);

        const std::vector<Inspect::TypeChange> back = changesOf(TypeDiff(b.table(), a.table()));
        ASSERT_EQ(back.size(), 1u);
        EXPECT_EQ(back[0].field, changes[0].field);
        EXPECT_EQ(back[0].before, changes[0].after);
        EXPECT_EQ(back[0].after, changes[0].before);
    }
}

TEST_P(AnySeed, AnyTwoFilesHaveEachTypeOnce) {
    RandomTypes a(GetParam(), 200), b(GetParam() + 1000, 200);
    const TypeDiff diff(a.table(), b.table());
    std::set<unsigned int> changedA, changedB;
    const TypeDiff::Counts counts = diff.eachChange([&](const Inspect::TypeChange& change) {
        changedA.insert(change.idA);
        changedB.insert(change.idB);
        EXPECT_NE(change.before, change.after);
    });
    EXPECT_EQ(changedA.size(), counts.changed);
    EXPECT_EQ(changedB.size(), counts.changed);
    const std::size_t inBoth = counts.equal + counts.changed + counts.containing;
    EXPECT_EQ(inBoth + diff.removed().size(), a.size());
    EXPECT_EQ(inBoth + diff.added().size(), b.size());
    for (const unsigned int id : diff.removed())
        EXPECT_EQ(changedA.count(id), 0u);
    for (const unsigned int id : diff.added())
        EXPECT_EQ(changedB.count(id), 0u);
}

} // namespace
