#include "Inspect/diff/TypeDiffPrinter.h"

#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::TextStyle;

/// A removed, an added and two changed types, one of them twice, and one that contains a change.
struct TwoFiles {
    TwoFiles() {
        a.integer("int");
        a.structure("hdr_t", {{"len", 0}, {"kind", 0}}, VLOG_PACKED_STRUCT);
        a.packed("", 1, {{3, 0, 0}});
        a.integer("old\x1B", 1, 2);
        a.packed("frames_t", 2, {{7, 0, 0}});
        b.packed("", 1, {{3, 0, 0}});
        b.structure("hdr_t", {{"len", 2}, {"crc", 3}}, VLOG_PACKED_STRUCT);
        b.integer("int", 0, 15);
        b.add<RTStringType>("string");
        b.packed("frames_t", 0, {{7, 0, 0}});
    }

    std::string text(const TextStyle& style) const {
        std::ostringstream out;
        printDiffText(out, Inspect::TypeDiff(a.table(), b.table()), style);
        return out.str();
    }

    LinkedTypes a, b;
};

TEST(TypeDiffText, HasALineForEachTypeAndTheVerdictWithItsRule) {
    EXPECT_EQ(TwoFiles().text(TextStyle::plain()),
              "removed type 3: integer \"old\\x1B\"\n"
              "changed int: 0 to 7 -> 0 to 15 (types 0 and 2)\n"
              "changed hdr_t.kind: member removed: integer \"int\" (types 1 and 1)\n"
              "changed hdr_t.crc: member added: string \"string\" (types 1 and 1)\n"
              "added   type 3: string \"string\"\n"
              "incompatible: a type of A was changed or removed: it has no equal in B\n"
              "5 and 5 types: 0 equal, 1 removed, 2 changed, 2 containing changed ones, 1 added\n");
}

TEST(TypeDiffText, IsTheSameInColours) {
    std::string text = TwoFiles().text(TextStyle::coloured());
    EXPECT_NE(text, TwoFiles().text(TextStyle::plain()));
    for (std::size_t begin = text.find('\x1B'); begin != std::string::npos;
         begin = text.find('\x1B'))
        text.erase(begin, text.find('m', begin) - begin + 1);
    EXPECT_EQ(text, TwoFiles().text(TextStyle::plain()));
}

TEST(TypeDiffText, OfTheSameTypesIsTheVerdictAlone) {
    const TwoFiles files;
    std::ostringstream out;
    printDiffText(out, Inspect::TypeDiff(files.a.table(), files.a.table()), TextStyle::plain());
    EXPECT_EQ(out.str(),
              "identical: every id has the same type in both files\n"
              "5 and 5 types: 5 equal, 0 removed, 0 changed, 0 containing changed ones, 0 added\n");
}

TEST(TypeDiffText, TellsTypesWithoutNamesByTheirShapes) {
    LinkedTypes a, b;
    a.integer("int");
    a.as<RTArrayType>(a.packed("", 0, {})).m_constraints = {{3, 0, 0}}; // It has no dimension.
    a.alias("<anonymous>", 4, {{1, 2, 1}, {3, 0, 0}});
    a.hole();
    a.structure("pair", {}, VHDL_RECORD);
    std::ostringstream out;
    printDiffText(out, Inspect::TypeDiff(a.table(), b.table()), TextStyle::plain());
    EXPECT_EQ(out.str().substr(0, out.str().find("incompatible")),
              "removed type 0: integer \"int\"\n"
              "removed type 1: packed array int\n"
              "removed type 2: typedef \"<anonymous>\" pair /* no place for: (1 to 2), "
              "(3 downto 0) */\n"
              "removed type 3: no type\n"
              "removed type 4: record \"pair\"\n");
}

TEST(TypeDiffJson, HasTheSameListsAnEntryALine) {
    const TwoFiles files;
    std::ostringstream out;
    printDiffJson(out, Inspect::TypeDiff(files.a.table(), files.b.table()));
    EXPECT_EQ(
        out.str(),
        R"({"format":"HDL simulator type differences","formatVersion":1,"verdict":"incompatible","rule":"a type of A was changed or removed: it has no equal in B",
"removed":[
{"id":3,"kind":"integer","name":"old\u001b"}
],
"changed":[
{"idA":0,"idB":2,"kind":"integer","name":"int","path":"int","field":"range","old":"0 to 7","new":"0 to 15"},
{"idA":1,"idB":1,"kind":"record","recordKind":"VLOG_PACKED_STRUCT","name":"hdr_t","path":"hdr_t.kind","field":"members","old":"integer \"int\"","new":null},
{"idA":1,"idB":1,"kind":"record","recordKind":"VLOG_PACKED_STRUCT","name":"hdr_t","path":"hdr_t.crc","field":"members","old":null,"new":"string \"string\""}
],
"added":[
{"id":3,"kind":"string","name":"string"}
],
"counts":{"typesOfA":5,"typesOfB":5,"equal":0,"removed":1,"changed":2,"containing":2,"added":1}}
)");
}

TEST(TypeDiffJson, OfTheSameTypesHasEmptyLists) {
    const TwoFiles files;
    std::ostringstream out;
    printDiffJson(out, Inspect::TypeDiff(files.a.table(), files.a.table()));
    EXPECT_EQ(
        out.str(),
        R"({"format":"HDL simulator type differences","formatVersion":1,"verdict":"identical","rule":"every id has the same type in both files",
"removed":[],
"changed":[],
"added":[],
"counts":{"typesOfA":5,"typesOfB":5,"equal":5,"removed":0,"changed":0,"containing":0,"added":0}}
)");
}

} // namespace
