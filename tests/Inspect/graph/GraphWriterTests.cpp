#include "Inspect/graph/GraphWriter.h"
#include "RTTI/CTType.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Types, and graphs of them.
class Types : public LinkedTypes {
public:
    std::string graph(GraphForm form, GraphRequest request = {}) const {
        std::ostringstream out;
        m_size = write(out, request, form);
        return out.str();
    }

    GraphSize write(std::ostream& out, const GraphRequest& request, GraphForm form) const {
        return writeGraph(out, table(), request, form);
    }

    /// The ids and the edges that a graph shows, such as "1 members 0".
    std::vector<std::string> shown(GraphRequest request = {}) const {
        const auto json = nlohmann::json::parse(graph(GraphForm::JSON, request));
        std::vector<std::string> texts;
        for (const auto& node : json["nodes"])
            texts.push_back(node["id"].dump());
        for (const auto& edge : json["edges"])
            texts.push_back(edge["from"].dump() + ' ' + edge["field"].get<std::string>() + ' ' +
                            edge["to"].dump());
        return texts;
    }

    GraphSize drawn() const { return m_size; }

private:
    mutable GraphSize m_size;
};

RTRecordType& addRecord(Types& types, const char* name) {
    auto& type = types.add<RTRecordType>(name);
    type.m_recordKind = VHDL_RECORD;
    return type;
}

RTClassType& addClass(Types& types, const char* name,
                      unsigned int base = TypeFileFormat::NO_TYPE_ID) {
    auto& type = types.add<RTClassType>(name);
    type.m_baseClassTypeId = base;
    return type;
}

/// An integer, and typedefs of it that each alias the one before.
void addChain(Types& types, unsigned int length) {
    types.integer("end", 0, 255);
    for (unsigned int id = 0; id < length; ++id)
        types.alias("link", id);
}

std::string linesWith(const std::string& text, const std::string& part) {
    std::istringstream in(text);
    std::string lines;
    for (std::string line; std::getline(in, line);) {
        if (line.find(part) != std::string::npos)
            lines += line + '\n';
    }
    return lines;
}

TEST(GraphWriter, DrawsInheritanceFromTheBaseClassInAGroupOfItsOwn) {
    Types types;
    addClass(types, "base");
    TypeFile::addMember(addClass(types, "derived", 0), "peer", 1);
    const std::string dot = types.graph(GraphForm::DOT);
    EXPECT_THAT(dot, HasSubstr("  subgraph cluster_classes {\n"
                               "    label=\"classes\"; labeljust=l; color=\"#6A3FA0\"; "
                               "style=rounded;\n"
                               "    T0;\n"
                               "    T1;\n"
                               "    T0 -> T1 [dir=back, arrowtail=empty, arrowsize=1, "
                               "penwidth=1.6, weight=8, color=\"#6A3FA0\"];\n"
                               "  }\n"
                               "  T1 -> T1 [arrowhead=vee, constraint=false, label=<peer>];\n"));
    const std::string mermaid = types.graph(GraphForm::MERMAID);
    EXPECT_THAT(mermaid, HasSubstr("  T0 <|-- T1\n  T1 --> T1 : peer\n"));
}

TEST(GraphWriter, DrawsNoGroupWithoutClasses) {
    Types types;
    types.integer("int", 0, 255);
    EXPECT_THAT(types.graph(GraphForm::DOT), Not(HasSubstr("subgraph")));
}

TEST(GraphWriter, GivesEachNodeItsIdKindNameAndRange) {
    Types types;
    types.integer("byte_t", 0, 255);
    EXPECT_EQ(linesWith(types.graph(GraphForm::DOT), "T0"),
              "  T0 [label=<0 <i>integer</i><br/><b>byte_t</b><br/>0 to 255>, "
              "fillcolor=\"#FFFFFF\"];\n");
    EXPECT_THAT(types.graph(GraphForm::MERMAID), HasSubstr("  class T0[\"0 byte_t\"] {\n"
                                                           "    <<integer>>\n"
                                                           "    0 to 255\n"
                                                           "  }\n"));
}

TEST(GraphWriter, ShowsTheShapeOfATypeWithoutAName) {
    RTIntType nameless;
    nameless.m_constraint = {0, 255, 1};
    const TypeTable table{1, [&](unsigned int) { return &nameless; }};
    std::ostringstream dot, json;
    writeGraph(dot, table, {}, GraphForm::DOT);
    EXPECT_EQ(linesWith(dot.str(), "T0"),
              "  T0 [label=<0 <i>integer</i><br/>range 0 to 255>, fillcolor=\"#FFFFFF\"];\n");
    writeGraph(json, table, {}, GraphForm::JSON);
    EXPECT_THAT(json.str(), HasSubstr("\"name\":\"\""));
}

TEST(GraphWriter, DrawsEachRoleInItsOwnStyle) {
    Types types;
    types.integer("int", 0, 255);
    types.add<CTArrayType>("array", VHDL_ARRAY, 0, 0);
    types.add<CTAccessType>("access", 0);
    types.add<CTFileType>("file", 0);
    types.add<CTTypedefType>("alias", 0);
    types.add<RTDiscreteEnumType>("enum").m_baseTypeId = 0;
    EXPECT_EQ(linesWith(types.graph(GraphForm::DOT), "->"),
              "  T1 -> T0 [dir=both, arrowtail=odiamond];\n"
              "  T1 -> T0 [style=dotted, arrowhead=vee, color=\"#888888\"];\n"
              "  T2 -> T0 [style=dashed, arrowhead=vee, label=<referenced type>];\n"
              "  T3 -> T0 [style=dashed, arrowhead=vee, label=<referenced type>];\n"
              "  T4 -> T0 [style=dashed, arrowhead=vee];\n"
              "  T5 -> T0 [style=dashed, arrowhead=vee, label=<base type>];\n");
    EXPECT_EQ(linesWith(types.graph(GraphForm::MERMAID), " T0"), "  class T0[\"0 int\"] {\n"
                                                                 "  T1 o-- T0\n"
                                                                 "  T1 ..> T0 : index types\n"
                                                                 "  T2 ..> T0 : referenced type\n"
                                                                 "  T3 ..> T0 : referenced type\n"
                                                                 "  T4 ..> T0\n"
                                                                 "  T5 ..> T0 : base type\n");
}

TEST(GraphWriter, MergesMembersOfOneTypeInTheOrderOfTheirDeclaration) {
    Types types;
    auto& record = addRecord(types, "rec");
    types.integer("a", 0, 255);
    types.integer("b", 0, 255);
    TypeFile::addMember(record, "x", 2);
    TypeFile::addMember(record, "y", 1);
    TypeFile::addMember(record, "z", 2);
    EXPECT_EQ(linesWith(types.graph(GraphForm::DOT), "->"),
              "  T0 -> T2 [arrowhead=vee, label=<x<br/>z>];\n"
              "  T0 -> T1 [arrowhead=vee, label=<y>];\n");
    EXPECT_EQ(types.drawn().types, 3u);
    EXPECT_EQ(types.drawn().edges, 2u);
}

TEST(GraphWriter, CountsTheMembersThatAPictureHasNoRoomFor) {
    Types types;
    types.integer("int", 0, 255);
    auto& five = addRecord(types, "five");
    auto& six = addRecord(types, "six");
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        TypeFile::addMember(five, name, 0);
        TypeFile::addMember(six, name, 0);
    }
    TypeFile::addMember(six, "f", 0);
    EXPECT_EQ(linesWith(types.graph(GraphForm::MERMAID), " --> T0"),
              "  T1 --> T0 : a, b, c, d, e\n"
              "  T2 --> T0 : a, b, c, d, +2 more\n");
    EXPECT_EQ(linesWith(types.graph(GraphForm::JSON), "\"from\":2"),
              "{\"from\":2,\"to\":0,\"field\":\"members\","
              "\"members\":[\"a\",\"b\",\"c\",\"d\",\"e\",\"f\"]}\n");
}

TEST(GraphWriter, ShortensLongNamesInPicturesAlone) {
    Types types;
    types.integer(std::string(61, 'n'), 0, 255);
    types.integer(std::string(60, 'm'), 0, 255);
    const std::string dot = types.graph(GraphForm::DOT);
    EXPECT_THAT(dot, HasSubstr("<b>" + std::string(57, 'n') + "...</b>"));
    EXPECT_THAT(dot, HasSubstr("<b>" + std::string(60, 'm') + "</b>"));
    EXPECT_THAT(types.graph(GraphForm::JSON), HasSubstr(std::string(61, 'n')));
}

TEST(GraphWriter, EscapesWhatDotAndHtmlWouldTakeForMore) {
    Types types;
    types.integer("<b>&\"\\N\n\xFF", 0, 255);
    EXPECT_THAT(types.graph(GraphForm::DOT),
                HasSubstr("<b>&lt;b&gt;&amp;&quot;\\\\N\\\\n\\\\xFF</b>"));
}

TEST(GraphWriter, WritesOddCharactersOfMermaidAsCodes) {
    Types types;
    types.integer("a::b#(\"T\")\x1B", 0, 255);
    EXPECT_THAT(types.graph(GraphForm::MERMAID),
                HasSubstr("[\"0 a::b#35;#40;#34;T#34;#41;#92;x1B\"]"));
}

TEST(GraphWriter, HidesTextThatMermaidWouldTakeForAStatement) {
    Types types;
    types.integer("direction LR", 0, 255);
    types.integer("style::x#", 0, 255);
    auto& record = addRecord(types, " blank");
    TypeFile::addMember(record, "m:n", 0);
    const std::string mermaid = types.graph(GraphForm::MERMAID);
    EXPECT_THAT(mermaid, HasSubstr("[\"0 direction#32;LR\"]"));
    EXPECT_THAT(mermaid, HasSubstr("[\"1 style#58;#58;x#35;\"]"));
    EXPECT_THAT(mermaid, HasSubstr("[\"2 #32;blank\"]"));
    EXPECT_THAT(mermaid, HasSubstr("T2 --> T0 : m#58;n\n"));
}

TEST(GraphWriter, ShowsIdsWithoutATypeThatSomethingRefersTo) {
    Types types;
    types.hole();
    auto& record = addRecord(types, "rec");
    types.hole();
    TypeFile::addMember(record, "gone", 0);
    TypeFile::addMember(record, "outside", 9);
    EXPECT_THAT(types.shown(), ElementsAre("1", "0", "9", "1 members 0", "1 members 9"));
    EXPECT_THAT(types.graph(GraphForm::DOT),
                HasSubstr("  T0 [label=<0 <i>builds no type</i>>, style=dotted];\n"));
    EXPECT_THAT(types.graph(GraphForm::MERMAID), HasSubstr("  class T9[\"9 builds no type\"]\n"));
    EXPECT_EQ(types.drawn().types, 3u);
}

TEST(GraphWriter, ShowsARootWithoutAType) {
    Types types;
    types.hole();
    EXPECT_THAT(types.shown({0, 5}), ElementsAre("0"));
}

TEST(GraphWriter, ShowsWhatARootReachesInTheOrderOfTheIds) {
    Types types;
    types.integer("unrelated", 0, 255);
    types.add<CTQueueType>("queue", 3);
    types.integer("last", 0, 255);
    types.add<CTTypedefType>("alias", 2);
    EXPECT_THAT(types.shown({1, 9}), ElementsAre("1", "2", "3", "1 elementType 3", "3 dataType 2"));
}

TEST(GraphWriter, StopsAtTheDepthAndSaysWhereItCut) {
    Types types;
    addChain(types, 3);
    EXPECT_THAT(types.shown({3, 0}), ElementsAre("3"));
    EXPECT_THAT(types.shown({3, 1}), ElementsAre("2", "3", "3 dataType 2"));
    EXPECT_THAT(types.shown({3, 3}).size(), 4u + 3u);
    EXPECT_EQ(linesWith(types.graph(GraphForm::DOT, {3, 1}), "dashed\""),
              "  T2 [label=<2 <i>typedef</i><br/><b>link</b>>, fillcolor=\"#FFFFFF\", "
              "style=\"rounded,filled,dashed\"];\n");
    EXPECT_THAT(types.graph(GraphForm::MERMAID, {3, 1}), HasSubstr("<<typedef>>\n    ...\n  }\n"));
}

TEST(GraphWriter, ReachesEachTypeOfACycleOnce) {
    Types types;
    auto& record = addRecord(types, "node");
    types.add<CTAccessType>("next", 0);
    TypeFile::addMember(record, "next", 1);
    EXPECT_THAT(types.shown({1, 100}), ElementsAre("0", "1", "0 members 1", "1 refType 0"));
}

TEST(GraphWriter, FollowsManyLinksInARow) {
    Types types;
    addChain(types, 200000);
    std::ignore = types.graph(GraphForm::DOT, {200000, 200000});
    EXPECT_EQ(types.drawn().types, 200001u);
    EXPECT_EQ(types.drawn().edges, 200000u);
}

TEST(GraphWriter, EndsWhereItsStreamFails) {
    Types types;
    addChain(types, 10);
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(types.write(out, {}, GraphForm::DOT).types, 0u);
}

TEST(GraphWriter, WritesAnEmptyGraphForAnEmptyTable) {
    const Types types;
    EXPECT_EQ(types.graph(GraphForm::JSON),
              "{\"format\":\"HDL simulator type "
              "graph\",\"formatVersion\":1,\"nodes\":[\n],\n\"edges\":[\n]}\n");
    EXPECT_THAT(types.graph(GraphForm::DOT), testing::EndsWith("arrowsize=0.7];\n}\n"));
}

} // namespace
