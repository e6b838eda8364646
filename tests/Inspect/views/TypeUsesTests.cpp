#include "Inspect/model/TypeReferences.h"
#include "Inspect/model/UseIndex.h"
#include "Inspect/views/TypeUses.h"
#include "RTTI/CTType.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RecordingBlockManager.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;

std::string usesOf(LinkedTypes& types, unsigned int id) {
    std::ostringstream out;
    writeUses(out, types.table(), id, TextStyle::plain());
    return out.str();
}

std::string allUsesOf(LinkedTypes& types, unsigned int id) {
    std::ostringstream out;
    writeAllUses(out, types.table(), id, TextStyle::plain());
    return out.str();
}

TEST(TypeUses, TellsTheRoleOfEachReference) {
    LinkedTypes types;
    const auto string = types.string();
    types.alias("alias", string);
    types.vhdlArray("grid", string, {TypeFileFormat::NO_TYPE_ID, string}, {{0, 3, 1}, {0, 3, 1}});
    types.add<CTAssocArrayType>("", string, string);
    types.structure("\x1B", {{"a", string}, {"\n", string}});
    types.access("ptr", string);
    types.add<CTFileType>("text", string);
    EXPECT_EQ(usesOf(types, string), "0 string \"string\" is used by:\n"
                                     "  1 typedef \"alias\": data type\n"
                                     "  2 VHDL array \"grid\": element type\n"
                                     "  2 VHDL array \"grid\": index type of dimension 2\n"
                                     "  3 associative array string [string]: element type\n"
                                     "  3 associative array string [string]: index type\n"
                                     "  4 unpacked struct \"\\x1B\": member \"a\"\n"
                                     "  4 unpacked struct \"\\x1B\": member \"\\n\"\n"
                                     "  5 access type \"ptr\": referenced type\n"
                                     "  6 file type \"text\": referenced type\n");
}

TEST(TypeUses, TellsWhoExtendsAClassAndWhoseBaseAnEnumerationHas) {
    LinkedTypes types;
    const auto base = types.classType("base", {{"me", 0}});
    types.classType("derived", {}, base);
    EXPECT_EQ(usesOf(types, base), "0 class \"base\" is used by:\n"
                                   "  0 class \"base\": member \"me\"\n"
                                   "  1 class \"derived\": base class\n");
    LinkedTypes others;
    others.logic();
    others.add<RTDiscreteEnumType>("").m_baseTypeId = 0;
    EXPECT_EQ(usesOf(others, 0), "0 sequential enumeration \"logic\" is used by:\n"
                                 "  1 discrete enumeration logic { }: base type\n");
}

TEST(TypeUses, ListsAllOnceNearestFirstWithTheShortestWay) {
    LinkedTypes types;
    const auto logic = types.logic();
    const auto byte = types.alias("byte_t", types.packed(logic, {{7, 0, 0}}));
    const auto header = types.structure("hdr_t", {{"len", byte}});
    types.structure("pkt_t", {{"hdr", header}, {"ok", logic}});
    types.queue(4);
    EXPECT_EQ(
        allUsesOf(types, logic),
        "0 sequential enumeration \"logic\" is used by, directly and through others:\n"
        "  1  1 packed array logic [7:0]: element type 0\n"
        "  1  4 unpacked struct \"pkt_t\": member \"ok\" 0\n"
        "  2  2 typedef \"byte_t\": data type 1 > element type 0\n"
        "  2  5 queue pkt_t [$]: element type 4 > member \"ok\" 0\n"
        "  3  3 unpacked struct \"hdr_t\": member \"len\" 2 > data type 1 > element type 0\n");
}

TEST(TypeUses, LeavesTheTypeItselfOutOfAll) {
    LinkedTypes types;
    const auto first = types.classType("first", {{"second", 1}});
    types.classType("second", {{"first", first}});
    EXPECT_EQ(allUsesOf(types, first),
              "0 class \"first\" is used by, directly and through others:\n"
              "  1  1 class \"second\": member \"first\" 0\n");
}

TEST(TypeUses, ShowsTheBeginningOfALongWay) {
    LinkedTypes types;
    unsigned int last = types.string();
    for (int i = 0; i < 9; ++i)
        last = types.queue(last);
    const std::string text = allUsesOf(types, 0);
    const std::string eighth =
        "  8  8 queue string [$][$][$][$][$][$][$][$]: element type 7 > "
        "element type 6 > element type 5 > element type 4 > "
        "element type 3 > element type 2 > element type 1 > element type 0\n";
    const std::string ninth =
        "  9  9 queue type_1 [$][$][$][$][$][$][$][$]: element type 8 > element type 7 "
        "> element type 6 > element type 5 > "
        "element type 4 > element type 3 > element type 2 > element type 1 > ...\n";
    ASSERT_GT(text.size(), eighth.size() + ninth.size());
    EXPECT_EQ(text.substr(text.size() - eighth.size() - ninth.size()), eighth + ninth);
}

TEST(TypeUses, JsonHasAUseALine) {
    LinkedTypes types;
    const auto string = types.string();
    types.add<CTAssocArrayType>("", 2, string);
    types.structure("s", {{"a", string}});
    const TypeTable table = types.table();
    std::ostringstream direct;
    writeUsesJson(direct, table, string, JsonForm::DOCUMENT);
    EXPECT_EQ(
        direct.str(),
        "{\"format\":\"HDL simulator type uses\",\"formatVersion\":1,"
        "\"id\":0,\"kind\":\"string\",\"name\":\"string\",\"uses\":[\n"
        "{\"id\":1,\"kind\":\"assocArray\",\"name\":\"\","
        "\"field\":\"indexType\"},\n"
        "{\"id\":2,\"kind\":\"record\",\"recordKind\":\"VLOG_UNPACKED_STRUCT\",\"name\":\"s\","
        "\"field\":\"members\",\"member\":\"a\"}\n"
        "]}\n");
    std::ostringstream all;
    writeAllUsesJson(all, table, 2, JsonForm::LINES);
    EXPECT_EQ(all.str(),
              "{\"format\":\"HDL simulator type uses\",\"formatVersion\":1,\"id\":2,"
              "\"kind\":\"record\",\"recordKind\":\"VLOG_UNPACKED_STRUCT\",\"name\":\"s\"}\n"
              "{\"id\":1,\"kind\":\"assocArray\",\"name\":\"\","
              "\"field\":\"elementType\",\"distance\":1,\"next\":2}\n");
}

using Distances = std::map<unsigned int, unsigned int>;

/// Whether the way from a type gets shorter by what it refers to.
bool shorten(Distances& distances, unsigned int from, const RTBaseType& type) {
    bool isShorter = false;
    for (const unsigned int to : referencesOf(type)) {
        const auto known = distances.find(to);
        if (known == distances.end() ||
            (distances.count(from) != 0 && distances[from] <= known->second + 1))
            continue;
        distances[from] = known->second + 1;
        isShorter = true;
    }
    return isShorter;
}

/// The shortest ways to a type, by going over all references until nothing changes.
Distances distancesTo(unsigned int id, const TypeTable& types) {
    Distances distances{{id, 0}};
    for (bool isChanged = true; isChanged;) {
        isChanged = false;
        for (unsigned int from = 0; from < types.count; ++from) {
            const RTBaseType* type = types.typeOf(from);
            isChanged = (type != nullptr && shorten(distances, from, *type)) || isChanged;
        }
    }
    distances.erase(id);
    return distances;
}

TEST(UseIndex, FindsTheShortestWaysInRandomFiles) {
    std::size_t ways = 0;
    for (unsigned int seed = 0; seed < 500; ++seed) {
        const ModelFile file = randomFile(seed, 40);
        RecordingBlockManager storage({file.bytes.begin(), file.bytes.end()});
        RTTypeManager manager;
        manager.setupDeserializer(storage, file.baseOffset);
        const TypeTable types{static_cast<unsigned int>(file.records.size()),
                              [&](unsigned int id) { return manager.getRTType(id); }};
        const UseIndex index(types);
        for (unsigned int id = 0; id < types.count; ++id) {
            const auto expected = distancesTo(id, types);
            std::map<unsigned int, unsigned int> found;
            unsigned int last = 0;
            for (const Use& use : index.usesOf(id)) {
                EXPECT_TRUE(found.emplace(use.typeId, use.distance).second);
                EXPECT_LE(last, use.distance);
                last = use.distance;
                const unsigned int rest = use.link.typeId == id ? 0 : found.at(use.link.typeId);
                EXPECT_EQ(rest + 1, use.distance);
            }
            ASSERT_EQ(found, expected) << "seed " << seed << ", type " << id;
            ways += found.size();
        }
    }
    EXPECT_GT(ways, 10000u);
}

} // namespace
