#include "Inspect/model/TypeReferences.h"
#include "Inspect/views/TypeNesting.h"
#include "Inspect/views/TypeOutlines.h"
#include "Inspect/views/TypeStatistics.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/CTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeFile/TypeFileVerifier.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RecordingBlockManager.h"
#include "tests/support/TypeFileBuilder.h"
#include "tests/support/TypeTableModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::ElementsAre;
using testing::HasSubstr;

using Ids = std::vector<unsigned int>;

TypeStatistics statisticsOf(const TypeTable& types) {
    return Inspect::statisticsOf(
        types, [](unsigned int id) { return 100 - id; }, 3);
}

TEST(TypeStatistics, CountsTypesAndBytesByKind) {
    LinkedTypes types;
    types.string();
    types.alias("a", 0);
    types.alias("b", 0);
    const TypeStatistics statistics = statisticsOf(types.table());
    ASSERT_EQ(statistics.kinds.size(), 2u);
    EXPECT_EQ(statistics.kinds[0].kind, "typedef");
    EXPECT_EQ(statistics.kinds[0].types, 2u);
    EXPECT_EQ(statistics.kinds[0].bytes, 99u + 98u);
    EXPECT_EQ(statistics.kinds[1].kind, "string");
    EXPECT_EQ(statistics.kinds[1].bytes, 100u);
    EXPECT_EQ(statistics.bytes, 297u);
}

TEST(TypeStatistics, SplitsTypesByLanguage) {
    LinkedTypes types;
    types.integer("integer", 0, 1);
    types.alias("natural", 0);
    types.string();
    const TypeStatistics statistics = statisticsOf(types.table());
    EXPECT_EQ(statistics.vhdlTypes, 2u);
    EXPECT_EQ(statistics.systemVerilogTypes, 1u);
}

TEST(TypeStatistics, RanksTypesByBytesAndByParts) {
    LinkedTypes types;
    const auto string = types.string();
    const auto one = types.structure("one", {{"a", string}});
    const auto states = types.enumeration("e", {"a", "b", "c"});
    const auto two = types.structure("two", {{"a", string}, {"b", string}});
    const auto other = types.structure("other", {{"a", string}, {"b", string}});
    const TypeStatistics statistics = statisticsOf(types.table());
    const auto idsOf = [](const std::vector<TypeStatistics::Ranked>& ranked) {
        Ids ids;
        for (const auto& type : ranked)
            ids.push_back(type.id);
        return ids;
    };
    EXPECT_THAT(idsOf(statistics.largest), ElementsAre(string, one, states));
    EXPECT_THAT(idsOf(statistics.longest), ElementsAre(states, two, other));
    EXPECT_EQ(statistics.longest[0].amount, 3u);
}

TEST(TypeStatistics, TypesThatNoOtherTypeRefersToAreUnused) {
    LinkedTypes types;
    types.string();
    types.classType("list", {{"next", 1}, {"text", 0}});
    types.queue(1);
    types.alias("self", 3);
    EXPECT_THAT(statisticsOf(types.table()).unused, ElementsAre(2, 3));
}

Ids nestingOf(const TypeTable& types) {
    return deepestNesting(TypeOutlines(types, [](unsigned int) { return 0; }));
}
Ids nestingOf(const LinkedTypes& types) { return nestingOf(types.table()); }

TEST(TypeNesting, GoesThroughEverythingThatIsHeldByValue) {
    LinkedTypes types;
    const auto logic = types.logic();
    const auto vector = types.packed(logic, {{1, 0, 0}});
    types.discreteEnum(vector);
    const auto states = types.last();
    const auto alias = types.alias("s", states);
    const auto record = types.structure("r", {{"s", alias}});
    const auto base = types.classType("base", {{"r", record}});
    const auto derived = types.classType("derived", {}, base);
    EXPECT_THAT(nestingOf(types), ElementsAre(derived, base, record, alias, states, vector, logic));
}

TEST(TypeNesting, EndsAtWhatIsHeldElsewhere) {
    LinkedTypes types;
    const auto inner = types.structure("inner", {{"s", types.string()}});
    const auto queue = types.queue(inner);
    const auto handle = types.classType("c", {{"i", inner}});
    const auto pointer = types.access("p", inner);
    types.structure("q", {{"q", queue}});
    types.structure("h", {{"h", handle}});
    types.structure("a", {{"p", pointer}});
    EXPECT_THAT(nestingOf(types), ElementsAre(handle, inner, 0));
}

TEST(TypeNesting, CountsAClassThatIsAMemberAsOne) {
    LinkedTypes types;
    types.classType("list", {{"next", 0}});
    EXPECT_THAT(nestingOf(types), ElementsAre(0, 0));
}

TEST(TypeNesting, TakesTheFirstOfChainsAsLong) {
    LinkedTypes types;
    const auto a = types.alias("a", 2);
    types.alias("b", 2);
    const auto string = types.string();
    const auto record = types.structure("r", {{"b", 1}, {"a", a}});
    EXPECT_THAT(nestingOf(types), ElementsAre(record, 1, string));
}

TEST(TypeNesting, EndsWhereAStructHoldsItself) {
    LinkedTypes types;
    const auto record = types.structure("r", {{"me", 0}, {"s", 1}});
    const auto string = types.string();
    EXPECT_THAT(nestingOf(types), ElementsAre(record, string));
}

TEST(TypeNesting, OfAHundredThousandStructsDoesNotUseUpTheCallStack) {
    LinkedTypes types;
    unsigned int last = types.string();
    for (int i = 0; i < 100000; ++i)
        last = types.structure("", {{"m", last}});
    EXPECT_EQ(nestingOf(types).size(), 100001u);
}

/// Depths by plain recursion over every path; nothing where a type holds itself.
class NestingModel {
public:
    explicit NestingModel(const TypeTable& types) : m_types(types) {}

    std::optional<unsigned int> deepest() {
        std::optional<unsigned int> most = 0u;
        for (unsigned int id = 0; id < m_types.count && most; ++id) {
            const auto depth = m_types.typeOf(id) != nullptr ? depthOf(id) : 0u;
            most = depth ? std::optional(std::max(*most, *depth)) : std::nullopt;
        }
        return most;
    }

private:
    std::optional<unsigned int> depthOf(unsigned int id) {
        if (!m_onPath.insert(id).second)
            return std::nullopt;
        unsigned int below = 0;
        std::vector<TypeLink> links;
        const RTBaseType& type = *m_types.typeOf(id);
        linksOf(type, links);
        for (const TypeLink& link : links) {
            const auto depth = partDepth(type, link);
            if (!depth)
                return std::nullopt;
            below = std::max(below, *depth);
        }
        m_onPath.erase(id);
        return below + 1;
    }

    std::optional<unsigned int> partDepth(const RTBaseType& type, const TypeLink& link) {
        const RTBaseType* part =
            link.typeId < m_types.count ? m_types.typeOf(link.typeId) : nullptr;
        const bool isElsewhere = link.role == LinkRole::DESIGNATED ||
                                 link.role == LinkRole::INDEX ||
                                 link.role == LinkRole::FILE_ELEMENT ||
                                 dynamic_cast<const RTAbstractArrayType*>(&type) != nullptr;
        if (part == nullptr || isElsewhere)
            return 0u;
        if (dynamic_cast<const RTClassType*>(part) != nullptr && link.role != LinkRole::BASE_CLASS)
            return 1u;
        return depthOf(link.typeId);
    }

    const TypeTable& m_types;
    std::set<unsigned int> m_onPath;
};

/// Calls `act` with the types of random files.
template <typename Action> void withRandomFiles(unsigned int files, Action act) {
    for (unsigned int seed = 0; seed < files; ++seed) {
        const ModelFile file = randomFile(seed, 12);
        RecordingBlockManager storage({file.bytes.begin(), file.bytes.end()});
        RTTypeManager manager;
        manager.setupDeserializer(storage, file.baseOffset);
        act(seed, TypeTable{static_cast<unsigned int>(file.records.size()),
                            [&](unsigned int id) { return manager.getRTType(id); }});
    }
}

TEST(TypeNesting, AgreesWithPlainRecursionOnRandomFiles) {
    std::map<std::size_t, unsigned int> found;
    withRandomFiles(3000, [&](unsigned int seed, const TypeTable& types) {
        const auto expected = NestingModel(types).deepest();
        const Ids chain = nestingOf(types);
        if (!expected)
            return;
        ASSERT_EQ(chain.size(), *expected) << "seed " << seed;
        ++found[chain.size()];
    });
    EXPECT_GT(found.size(), 4u);
    EXPECT_GT(found[3], 100u);
}

TEST(TypeStatistics, CountEveryTypeOfRandomFilesOnce) {
    withRandomFiles(500, [&](unsigned int seed, const TypeTable& types) {
        const TypeStatistics statistics = statisticsOf(types);
        std::set<unsigned int> used;
        unsigned int built = 0;
        for (unsigned int id = 0; id < types.count; ++id) {
            const RTBaseType* type = types.typeOf(id);
            built += type != nullptr ? 1 : 0;
            for (const unsigned int other : type != nullptr ? referencesOf(*type) : Ids()) {
                if (other != id && other < types.count && types.typeOf(other) != nullptr)
                    used.insert(other);
            }
        }
        unsigned int counted = 0;
        for (const auto& kind : statistics.kinds)
            counted += kind.types;
        ASSERT_EQ(counted, types.count) << "seed " << seed;
        ASSERT_EQ(statistics.unused.size(), built - used.size()) << "seed " << seed;
        ASSERT_EQ(statistics.vhdlTypes + statistics.systemVerilogTypes, built) << "seed " << seed;
    });
}

/// The statistics of a file's records.
TypeStatistics statisticsOf(const TypeFileBuilder& file) {
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    return Inspect::statisticsOf(storage, image.size(), file.baseOffset(), 3);
}

TEST(TypeStatistics, OfRecordsCountBytesAndParts) {
    TypeFileBuilder file;
    file.string("a").structure({0, 0}).alias(1);
    const TypeStatistics statistics = statisticsOf(file);
    EXPECT_EQ(statistics.types, 3u);
    // Size, kind, "a" and flags; for the struct also its kind, the number of members and the
    // SystemVerilog type id, and for each member its name, type and number of ranges.
    EXPECT_EQ(statistics.largest[0].id, 1u);
    EXPECT_EQ(statistics.largest[0].amount, 14u + 12u + 2u * 10u);
    ASSERT_EQ(statistics.longest.size(), 1u);
    EXPECT_EQ(statistics.longest[0].amount, 2u);
    EXPECT_THAT(statistics.nesting, ElementsAre(2, 1, 0));
    EXPECT_THAT(statistics.unused, ElementsAre(2));
}

TEST(TypeStatistics, OfRecordsTellIntegersByTheirNames) {
    TypeFileBuilder file;
    file.integer("int").integer("integer").integer("longint").alias(0).alias(1);
    const TypeStatistics statistics = statisticsOf(file);
    EXPECT_EQ(statistics.systemVerilogTypes, 3u);
    EXPECT_EQ(statistics.vhdlTypes, 2u);
}

TEST(TypeStatistics, OfRecordsDropFlavoursThatNobodyKnows) {
    TypeFileBuilder file;
    for (const int flavour : {0, 1, 99})
        file.record(FLOAT_KIND, "r").i32(flavour).f64(0).f64(1).f64(1);
    const TypeStatistics statistics = statisticsOf(file);
    EXPECT_EQ(statistics.vhdlTypes, 2u);
    EXPECT_EQ(statistics.systemVerilogTypes, 1u);
}

TEST(TypeStatistics, OfRecordsInAnyOrderAreThoseOfTheirIds) {
    TypeFileBuilder file;
    file.string("a").structure({0}).structure({1}).arrange({2, 0, 1});
    const TypeStatistics statistics = statisticsOf(file);
    EXPECT_THAT(statistics.nesting, ElementsAre(2, 1, 0));
    EXPECT_THAT(statistics.unused, ElementsAre(2));
}

TEST(TypeStatistics, OfRecordsBeginAtTheOffset) {
    TypeFileBuilder file;
    file.base(5).string("a").structure({0});
    EXPECT_THAT(statisticsOf(file).nesting, ElementsAre(1, 0));
}

/// Expects of a file's records what is expected of its types.
void expectSameOfRecords(OVAT::IBlockManager& storage, unsigned long long size,
                         unsigned long long offset) {
    const TypeFile::TypeFileFrame frame(storage, size, offset);
    RTTypeManager manager;
    manager.setupDeserializer(storage, offset);
    const TypeTable types{frame.typeCount(),
                          [&](unsigned int id) { return manager.getRTType(id); }};
    const auto sizeOf = [&](unsigned int id) {
        return static_cast<unsigned int>(frame.recordAt(frame.addressOf(id)).claimedSize);
    };
    const auto jsonOf = [&](const TypeStatistics& statistics) {
        std::ostringstream out;
        writeStatisticsJson(out, types, {}, statistics);
        return out.str();
    };
    EXPECT_EQ(jsonOf(Inspect::statisticsOf(storage, size, offset, 3)),
              jsonOf(Inspect::statisticsOf(types, sizeOf, 3)));
}

TEST(TypeStatistics, OfRecordsAreThoseOfTheTypesOfRandomFiles) {
    unsigned int sound = 0;
    for (unsigned int seed = 0; seed < 5000; ++seed) {
        SCOPED_TRACE(seed);
        const ModelFile file = randomFile(seed, 6);
        RecordingBlockManager storage({file.bytes.begin(), file.bytes.end()});
        if (TypeFile::hasErrors(TypeFile::verify(storage, file.bytes.size(), file.baseOffset)))
            continue;
        ++sound;
        expectSameOfRecords(storage, file.bytes.size(), file.baseOffset);
    }
    EXPECT_GT(sound, 100u);
}

TEST(TypeStatistics, OfRecordsAreThoseOfTheTypesOfRealFiles) {
    for (const char* name : {"ibex_slang", "svkinds_slang", "uvm_slang", "vhkinds_rti"}) {
        SCOPED_TRACE(name);
        OVAT::FileBlockManager storage(EXAMPLE_TYPEFILES_DIR "/" + std::string(name) + ".typ");
        expectSameOfRecords(storage, storage.size(), 0);
    }
}

TEST(TypeStatistics, AreWrittenAsText) {
    LinkedTypes types;
    const auto string = types.string();
    const auto record = types.structure("r\x1B", {{"a", string}});
    types.alias("t", record);
    types.queue(string);
    types.queue(string);
    const TypeTable table = types.table();
    const auto statistics = Inspect::statisticsOf(
        table, [](unsigned int id) { return 50 + id; }, 2);
    std::ostringstream out;
    writeStatistics(out, table, {"V 1", 16, 311}, statistics, 2, TextStyle::plain());
    EXPECT_EQ(out.str(), "version \"V 1\" at 16\n"
                         "5 types in 260 bytes of records\n"
                         "address table at 311, 40 bytes\n"
                         "\n"
                         "     types        bytes  kind\n"
                         "         2          107  queue\n"
                         "         1           50  string\n"
                         "         1           52  typedef\n"
                         "         1           51  unpacked struct\n"
                         "\n"
                         "0 types of VHDL, 5 of SystemVerilog\n"
                         "\n"
                         "deepest nesting: 3 types, each within the one before\n"
                         "  2 typedef \"t\": data type\n"
                         "  1 unpacked struct \"r\\x1B\": member \"a\"\n"
                         "  ... and 1 more\n"
                         "\n"
                         "largest records, in bytes\n"
                         "          54  4 queue string [$]\n"
                         "          53  3 queue string [$]\n"
                         "\n"
                         "most members, literals or units\n"
                         "           1  1 unpacked struct \"r\\x1B\"\n"
                         "\n"
                         "3 types that no other type refers to\n"
                         "(signals, variables and parameters may still use them)\n"
                         "  2 typedef \"t\"\n"
                         "  3 queue string [$]\n"
                         "  ... and 1 more\n"
                         "\n");
}

TEST(TypeStatistics, AreWrittenAsJson) {
    LinkedTypes types;
    types.alias("t", types.string());
    types.queue(0);
    const TypeTable table = types.table();
    const auto statistics = Inspect::statisticsOf(
        table, [](unsigned int) { return 20; }, 1);
    std::ostringstream out;
    writeStatisticsJson(out, table, {"V", 0, 100}, statistics);
    EXPECT_EQ(out.str(),
              "{\"format\":\"HDL simulator type statistics\",\"formatVersion\":1,"
              "\"version\":\"V\",\"offset\":0,\"types\":3,\"recordBytes\":60,\"tableOffset\":100,"
              "\"tableBytes\":24,\"kinds\":[{\"kind\":\"queue\",\"types\":1,\"bytes\":20},"
              "{\"kind\":\"string\",\"types\":1,\"bytes\":20},"
              "{\"kind\":\"typedef\",\"types\":1,\"bytes\":20}],"
              "\"languages\":{\"VHDL\":0,\"SystemVerilog\":3},\"nesting\":[1,0],"
              "\"largest\":[{\"id\":0,\"kind\":\"string\",\"name\":\"string\",\"bytes\":20}],"
              "\"longest\":[],\"unused\":[\n"
              "{\"id\":1,\"kind\":\"typedef\",\"name\":\"t\"},\n"
              "{\"id\":2,\"kind\":\"queue\",\"name\":\"\"}\n"
              "]}\n");
}

TEST(TypeStatistics, GiveTheKindsOfArraysAndRecordsByTheirNamesInJson) {
    LinkedTypes types;
    types.structure("s", {{"a", types.packed(types.logic(), {{7, 0, 0}})}});
    const TypeTable table = types.table();
    std::ostringstream out;
    writeStatisticsJson(out, table, {"V", 0, 100},
                        Inspect::statisticsOf(
                            table, [](unsigned int) { return 20; }, 0));
    EXPECT_THAT(
        out.str(),
        HasSubstr("\"kinds\":[{\"kind\":\"array\",\"arrayKind\":\"VLOG_FIXED_PACKED_ARRAY\","
                  "\"types\":1,\"bytes\":20},{\"kind\":\"seqEnum\",\"types\":1,\"bytes\":20},"
                  "{\"kind\":\"record\",\"recordKind\":\"VLOG_UNPACKED_STRUCT\",\"types\":1,"
                  "\"bytes\":20}],"));
}

TEST(TypeStatistics, OfNothing) {
    const TypeTable none{0, [](unsigned int) { return nullptr; }};
    const TypeStatistics statistics = statisticsOf(none);
    EXPECT_TRUE(statistics.kinds.empty());
    EXPECT_TRUE(statistics.nesting.empty());
    std::ostringstream out;
    writeStatistics(out, none, {}, statistics, 3, TextStyle::plain());
    EXPECT_THAT(out.str(), HasSubstr("deepest nesting: 0 types"));
}

/// Types by kind of a real file, with every fixed array, and every struct or record, as one kind.
std::map<std::string, unsigned int> countsOf(const std::string& name) {
    OVAT::FileBlockManager storage(EXAMPLE_TYPEFILES_DIR "/" + name + ".typ");
    const unsigned int types = TypeFile::TypeFileFrame(storage, storage.size()).typeCount();
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    std::map<std::string, unsigned int> counts;
    const auto statistics =
        statisticsOf({types, [&](unsigned int id) { return manager.getRTType(id); }});
    for (const auto& kind : statistics.kinds) {
        const std::string words(kind.kind);
        const bool isFixed =
            words == "packed array" || words == "unpacked array" || words == "VHDL array";
        const bool isStruct = words == "packed struct" || words == "unpacked struct";
        counts[isFixed ? "fixed array" : isStruct ? "struct" : words] += kind.types;
    }
    return counts;
}

TEST(TypeStatistics, OfRealFilesAreWhatTheFilesWereMadeWith) {
    using Counts = std::map<std::string, unsigned int>;
    EXPECT_EQ(countsOf("ibex_slang"), (Counts{{"fixed array", 101},
                                              {"typedef", 98},
                                              {"discrete enumeration", 50},
                                              {"struct", 39},
                                              {"sequential enumeration", 5},
                                              {"string", 1}}));
    EXPECT_EQ(countsOf("neorv32_rti"), (Counts{{"fixed array", 145},
                                               {"typedef", 95},
                                               {"record", 75},
                                               {"sequential enumeration", 45},
                                               {"real", 2},
                                               {"integer", 1},
                                               {"physical type", 1},
                                               {"access type", 1},
                                               {"file type", 1}}));
    EXPECT_EQ(countsOf("uvm_slang"), (Counts{{"typedef", 1650},
                                             {"class", 739},
                                             {"associative array", 122},
                                             {"queue", 69},
                                             {"discrete enumeration", 43},
                                             {"fixed array", 23},
                                             {"dynamic array", 12},
                                             {"struct", 10},
                                             {"sequential enumeration", 6},
                                             {"string", 1},
                                             {"chandle", 1},
                                             {"event", 1},
                                             {"real", 1}}));
}

} // namespace
