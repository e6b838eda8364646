#include "Inspect/diff/TypeDiff.h"

#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::DiffVerdict;
using Inspect::TypeDiff;
using testing::ElementsAre;
using testing::IsEmpty;

std::string numbered(std::string text, unsigned int number) {
    return text.append(std::to_string(number));
}

/// What differs, a line each: ids of removed types as "-1", of added ones as "+1".
std::vector<std::string> linesOf(const TypeDiff& diff) {
    std::vector<std::string> lines;
    for (const unsigned int id : diff.removed())
        lines.push_back(numbered("-", id));
    diff.eachChange([&](const Inspect::TypeChange& change) {
        lines.push_back(change.path + ": " + change.field + " " + change.before.value_or("...") +
                        " -> " + change.after.value_or("..."));
    });
    for (const unsigned int id : diff.added())
        lines.push_back(numbered("+", id));
    return lines;
}

std::vector<std::string> linesOf(const LinkedTypes& a, const LinkedTypes& b) {
    return linesOf(TypeDiff(a.table(), b.table()));
}

DiffVerdict verdictOf(const LinkedTypes& a, const LinkedTypes& b) {
    return TypeDiff(a.table(), b.table()).verdict();
}

/// The same types twice, with one change to the second.
std::vector<std::string> linesAfter(const std::function<void(LinkedTypes&)>& make,
                                    const std::function<void(LinkedTypes&)>& change) {
    LinkedTypes a, b;
    make(a);
    make(b);
    change(b);
    return linesOf(a, b);
}

/// A packet whose header has a length: 0 bit, 1 array, 2 header, 3 packet, 4 alias of it.
void makePacket(LinkedTypes& types) {
    types.enumeration("bit", {"0", "1"});
    types.packed("", 0, {{7, 0, 0}});
    types.structure("", {{"len", 1}, {"last", 0}}, VLOG_PACKED_STRUCT);
    types.structure("", {{"hdr", 2}}, VLOG_PACKED_STRUCT);
    types.alias("pkt_t", 3);
}

// Verdicts.

TEST(TypeDiffs, SameIdsWithSameTypesAreIdentical) {
    LinkedTypes a, b;
    makePacket(a);
    makePacket(b);
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::IDENTICAL);
    EXPECT_THAT(linesOf(a, b), IsEmpty());
}

TEST(TypeDiffs, FilesWithoutTypesAreIdentical) {
    EXPECT_EQ(verdictOf(LinkedTypes(), LinkedTypes()), DiffVerdict::IDENTICAL);
}

TEST(TypeDiffs, SameTypesUnderOtherIdsAreRenumbered) {
    LinkedTypes a, b;
    a.integer("int");
    a.alias("word", 0);
    b.alias("word", 1);
    b.integer("int");
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
    EXPECT_THAT(linesOf(a, b), IsEmpty());
}

TEST(TypeDiffs, AnotherSystemVerilogTypeIdRenumbers) {
    LinkedTypes a, b;
    a.add<RTQueueType>("q").m_svTypeId = 5;
    b.add<RTQueueType>("q").m_svTypeId = 7;
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
}

TEST(TypeDiffs, SystemVerilogTypeIdWhereThereWasNoneIsAChange) {
    LinkedTypes a, b;
    a.add<RTQueueType>("q");
    b.add<RTQueueType>("q").m_svTypeId = 7;
    EXPECT_THAT(linesOf(a, b), ElementsAre("q: svTypeId none -> assigned"));
}

TEST(TypeDiffs, MoreTypesAreCompatible) {
    LinkedTypes a, b;
    a.integer("int");
    b.integer("byte", 0, 255);
    b.integer("int");
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::COMPATIBLE);
    EXPECT_THAT(linesOf(a, b), ElementsAre("+0"));
}

TEST(TypeDiffs, FewerTypesAreIncompatible) {
    LinkedTypes a, b;
    a.integer("int");
    a.integer("byte", 0, 255);
    b.integer("int");
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::INCOMPATIBLE);
    EXPECT_THAT(linesOf(a, b), ElementsAre("-1"));
}

TEST(TypeDiffs, EachTypeNeedsAnEqualOfItsOwn) {
    LinkedTypes a, b;
    a.integer("int");
    a.integer("int");
    b.integer("int");
    EXPECT_THAT(linesOf(a, b), ElementsAre("-1"));
    EXPECT_THAT(linesOf(b, a), ElementsAre("+1"));
}

TEST(TypeDiffs, AppendedLiteralIsIncompatible) {
    LinkedTypes a, b;
    a.enumeration("state", {"idle"});
    b.enumeration("state", {"idle", "busy"});
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::INCOMPATIBLE);
}

// Where a change lies.

TEST(TypeDiffs, ChangeIsToldWhereItLiesAndNotAgainAbove) {
    LinkedTypes a, b;
    makePacket(a);
    makePacket(b);
    static_cast<RTArrayType&>(b[1]).m_constraints = {{15, 0, 0}};
    const TypeDiff diff(a.table(), b.table());
    EXPECT_THAT(linesOf(diff), ElementsAre("pkt_t.hdr.len: constraints 7 downto 0 -> 15 downto 0"));
    const TypeDiff::Counts counts = diff.eachChange([](const Inspect::TypeChange&) {});
    EXPECT_EQ(counts.changed, 1u);
    EXPECT_EQ(counts.containing, 3u);
    EXPECT_EQ(counts.equal, 1u);
}

TEST(TypeDiffs, PathBeginsAtTheNearestName) {
    EXPECT_THAT(linesAfter(
                    [](LinkedTypes& types) {
                        makePacket(types);
                        types.structure("frame_t", {{"body", 4}}, VLOG_PACKED_STRUCT);
                    },
                    [](LinkedTypes& types) { types[2].m_flags = 0x10; }),
                ElementsAre("pkt_t.hdr: flags 0x0 -> 0x10"));
}

TEST(TypeDiffs, MemberThatTookAnotherArrayIsToldByItsRange) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->enumeration("bit", {"0", "1"});
        types->packed("", 0, {{7, 0, 0}});
        types->packed("", 0, {{15, 0, 0}});
        types->structure("lengths_t", {{"short", 1}, {"long", 2}}, VLOG_PACKED_STRUCT);
    }
    a.structure("hdr_t", {{"len", 1}}, VLOG_PACKED_STRUCT);
    b.structure("hdr_t", {{"len", 2}}, VLOG_PACKED_STRUCT);
    EXPECT_THAT(linesOf(a, b), ElementsAre("hdr_t.len: constraints 7 downto 0 -> 15 downto 0"));
}

TEST(TypeDiffs, ArrayThatCameToEqualAnotherIsToldOnce) {
    EXPECT_THAT(linesAfter(
                    [](LinkedTypes& types) {
                        types.enumeration("bit", {"0", "1"});
                        types.packed("", 0, {{63, 0, 0}});
                        types.packed("", 0, {{31, 0, 0}});
                        types.packed("", 1, {{3, 0, 0}});
                        types.packed("", 2, {{3, 0, 0}});
                        types.structure("word_t", {{"data", 1}}, VLOG_PACKED_STRUCT);
                    },
                    [](LinkedTypes& types) {
                        static_cast<RTArrayType&>(types[1]).m_constraints = {{31, 0, 0}};
                    }),
                ElementsAre("word_t.data: constraints 63 downto 0 -> 31 downto 0"));
}

TEST(TypeDiffs, MemberThatTookANamedTypeIsToldByName) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->integer("byte", 0, 255);
        types->integer("word", 0, 65535);
    }
    a.structure("hdr_t", {{"len", 0}}, VLOG_PACKED_STRUCT);
    b.structure("hdr_t", {{"len", 1}}, VLOG_PACKED_STRUCT);
    EXPECT_THAT(linesOf(a, b), ElementsAre("hdr_t.len: type integer \"byte\" -> integer \"word\""));
}

TEST(TypeDiffs, SharedTypeThatChangedHasOneLine) {
    EXPECT_THAT(
        linesAfter(
            [](LinkedTypes& types) {
                types.integer("byte", 0, 255);
                for (unsigned int i = 0; i < 100; ++i)
                    types.structure(numbered("record_", i), {{"field", 0}}, VLOG_PACKED_STRUCT);
            },
            [](LinkedTypes& types) { static_cast<RTIntType&>(types[0]).m_constraint.ei = 127; }),
        ElementsAre("byte: range 0 to 255 -> 0 to 127"));
}

/// What became of a typedef with ten distinct ranges whose first and last ones were others.
LinkedTypes tenRanges(int first, int last) {
    Ranges ranges;
    for (int i = 0; i < 10; ++i)
        ranges.push_back({i == 0 ? first : i == 9 ? last : i, 0, 0});
    LinkedTypes types;
    types.integer("int");
    types.alias("t", 0, ranges);
    return types;
}

TEST(TypeDiffs, LongListsOfRangesAreShort) {
    const std::string rest = ", (1 downto 0), (2 downto 0), (3 downto 0), (4 downto 0), "
                             "(5 downto 0), (6 downto 0), (7 downto 0), ... 10 in all";
    EXPECT_THAT(linesOf(tenRanges(40, 9), tenRanges(50, 9)),
                ElementsAre("t: constraints (40 downto 0)" + rest + " -> (50 downto 0)" + rest));
}

TEST(TypeDiffs, ListsThatDifferBehindWhatIsShownAreToldFromThereOn) {
    EXPECT_THAT(linesOf(tenRanges(40, 9), tenRanges(40, 10)),
                ElementsAre("t: constraints from [9] on: 9 downto 0 -> from [9] on: 10 downto 0"));
}

TEST(TypeDiffs, LongListsOfRangesAreWholeOnRequest) {
    const LinkedTypes a = tenRanges(40, 9), b = tenRanges(40, 10);
    TypeDiff(a.table(), b.table())
        .eachChange(
            [](const Inspect::TypeChange& change) {
                EXPECT_THAT(change.before.value(), testing::EndsWith("(8 downto 0), (9 downto 0)"));
                EXPECT_THAT(change.after.value(), testing::EndsWith("(8 downto 0), (10 downto 0)"));
            },
            Inspect::RangeLists::WHOLE);
}

TEST(TypeDiffs, StepsOfAPathNameTheReference) {
    const auto steps = [](auto link) {
        LinkedTypes a, b;
        for (LinkedTypes* types : {&a, &b}) {
            types->integer("int");
            types->alias("", 0);
            link(*types);
        }
        b[1].m_flags = 1;
        return linesOf(a, b);
    };
    EXPECT_THAT(steps([](LinkedTypes& types) {
                    types.packed("mem", 1, {{3, 0, 0}});
                }),
                ElementsAre("mem[]: flags 0x0 -> 0x1"));
    EXPECT_THAT(steps([](LinkedTypes& types) {
                    types.vhdlArray("mem", 0, {0, 1}, {{3, 0, 0}});
                }),
                ElementsAre("mem[index 2]: flags 0x0 -> 0x1"));
    EXPECT_THAT(steps([](LinkedTypes& types) { types.access("ptr", 1); }),
                ElementsAre("ptr.all: flags 0x0 -> 0x1"));
    EXPECT_THAT(steps([](LinkedTypes& types) { types.add<RTFileType>("text").m_refTypeId = 1; }),
                ElementsAre("text.<element>: flags 0x0 -> 0x1"));
    EXPECT_THAT(
        steps([](LinkedTypes& types) { types.add<RTClassType>("c").m_baseClassTypeId = 1; }),
        ElementsAre("c.<base>: flags 0x0 -> 0x1"));
    EXPECT_THAT(steps([](LinkedTypes& types) { types.alias("t", 1); }),
                ElementsAre("t: flags 0x0 -> 0x1"));
}

TEST(TypeDiffs, OddNamesInPathsAreQuotedAndEscaped) {
    EXPECT_THAT(
        linesAfter(
            [](LinkedTypes& types) {
                types.structure("a.b\x1B", {{"the \"x\"", 7}}, VLOG_PACKED_STRUCT);
            },
            [](LinkedTypes& types) {
                static_cast<RTRecordType&>(types[0]).m_members[0]->m_constraints = {{1, 0, 0}};
            }),
        ElementsAre("\"a.b\\x1B\".\"the \\\"x\\\"\": constraints no range -> 1 downto 0"));
}

TEST(TypeDiffs, TypeWithoutANameAroundItIsToldById) {
    EXPECT_THAT(linesAfter(
                    [](LinkedTypes& types) {
                        types.packed("", 9, {{3, 0, 0}});
                    },
                    [](LinkedTypes& types) { types[0].m_flags = 2; }),
                ElementsAre("(type 0): flags 0x0 -> 0x2"));
}

// Lists of literals, units and members.

TEST(TypeDiffs, LiteralInTheMiddleIsOneAddition) {
    LinkedTypes a, b;
    a.enumeration("state", {"idle", "busy", "done"});
    b.enumeration("state", {"idle", "wait", "busy", "done"});
    EXPECT_THAT(linesOf(a, b), ElementsAre("state.wait: literals ... -> value 1"));
    EXPECT_THAT(linesOf(b, a), ElementsAre("state.wait: literals value 1 -> ..."));
}

TEST(TypeDiffs, LiteralWithAnotherNameInItsPlaceIsRenamed) {
    LinkedTypes a, b;
    a.enumeration("state", {"idle", "busy", "done"});
    b.enumeration("state", {"idle", "work", "done"});
    EXPECT_THAT(linesOf(a, b), ElementsAre("state.busy: name \"busy\" -> \"work\""));
}

TEST(TypeDiffs, LiteralInAnotherPlaceIsNotRenamed) {
    LinkedTypes a, b;
    a.enumeration("state", {"idle", "busy"});
    b.enumeration("state", {"busy", "done"});
    EXPECT_THAT(linesOf(a, b), ElementsAre("state.idle: literals value 0 -> ...",
                                           "state.done: literals ... -> value 1"));
}

TEST(TypeDiffs, LiteralWithAnotherValueIsTold) {
    LinkedTypes a, b;
    TypeFile::addLiteral(a.add<RTDiscreteEnumType>("e"), "x", std::string("\x01\x02"));
    TypeFile::addLiteral(b.add<RTDiscreteEnumType>("e"), "x", std::string("\x01\x03"));
    static_cast<RTDiscreteEnumType&>(a[0]).m_valueSize = 2;
    static_cast<RTDiscreteEnumType&>(b[0]).m_valueSize = 2;
    EXPECT_THAT(linesOf(a, b), ElementsAre("e.x: value 0102 -> 0103"));
}

TEST(TypeDiffs, UnitWithAnotherValueIsTold) {
    LinkedTypes a, b;
    TypeFile::addUnit(a.add<RTPhysicalType>("time"), "ps", 1000);
    TypeFile::addUnit(b.add<RTPhysicalType>("time"), "ps", 1);
    EXPECT_THAT(linesOf(a, b), ElementsAre("time.ps: value 1000 -> 1"));
}

TEST(TypeDiffs, FewestMembersCountAsMoved) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b})
        types->integer("int");
    a.structure("r", {{"a", 0}, {"b", 0}, {"c", 0}, {"d", 0}}, VLOG_PACKED_STRUCT);
    b.structure("r", {{"d", 0}, {"a", 0}, {"b", 0}, {"c", 0}}, VLOG_PACKED_STRUCT);
    EXPECT_THAT(linesOf(a, b), ElementsAre("r.d: position 3 -> 0"));
}

TEST(TypeDiffs, RemovedAndAddedMembersHaveALineEach) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->integer("int");
        types->integer("byte", 0, 255);
    }
    a.structure("r", {{"a", 0}, {"b", 0}}, VLOG_PACKED_STRUCT);
    b.structure("r", {{"a", 0}, {"c", 1}}, VLOG_PACKED_STRUCT);
    EXPECT_THAT(linesOf(a, b), ElementsAre("r.b: members integer \"int\" -> ...",
                                           "r.c: members ... -> integer \"byte\""));
}

TEST(TypeDiffs, MembersOfOneNameAreTakenInTheirOrder) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b})
        types->integer("int");
    a.structure("r", {{"x", 0}, {"x", 0}}, VLOG_PACKED_STRUCT);
    b.structure("r", {{"x", 0}, {"x", 0}, {"x", 0}}, VLOG_PACKED_STRUCT);
    EXPECT_THAT(linesOf(a, b), ElementsAre("r.x: members ... -> integer \"int\""));
}

// Which types are before and after of one another.

TEST(TypeDiffs, RenamedTypeHasOneLineWhereverItIsUsed) {
    LinkedTypes a, b;
    a.integer("byte", 0, 255);
    b.integer("octet", 0, 255);
    for (LinkedTypes* types : {&a, &b}) {
        types->structure("r", {{"x", 0}}, VLOG_PACKED_STRUCT);
        types->structure("s", {{"y", 0}}, VLOG_PACKED_STRUCT);
    }
    EXPECT_THAT(linesOf(a, b), ElementsAre("byte: name \"byte\" -> \"octet\""));
}

TEST(TypeDiffs, NameThatTheOtherFileHasAsWellIsNoNewName) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b})
        types->integer("time");
    a.alias("time", 0);
    b.alias("delay", 0);
    EXPECT_THAT(linesOf(a, b), ElementsAre("-1", "+1"));
}

TEST(TypeDiffs, NameWithAnotherKindIsOneChange) {
    LinkedTypes a, b;
    a.integer("word");
    b.enumeration("word", {"low", "high"});
    EXPECT_THAT(linesOf(a, b), ElementsAre("word: kind integer -> sequential enumeration"));
}

TEST(TypeDiffs, TypesOfOneNameArePairedByTheirLiterals) {
    LinkedTypes a, b;
    a.enumeration("state_t", {"idle", "busy"});
    a.enumeration("state_t", {"open", "shut"});
    b.as<RTSeqEnumType>(b.enumeration("state_t", {"open", "shut"})).m_valueSize = 4;
    b.as<RTSeqEnumType>(b.enumeration("state_t", {"idle", "busy"})).m_valueSize = 2;
    EXPECT_THAT(linesOf(a, b),
                ElementsAre("state_t: valueSize 1 -> 2", "state_t: valueSize 1 -> 4"));
}

TEST(TypeDiffs, TypesOfOneNameWithNothingInCommonAreRemovedAndAdded) {
    LinkedTypes a, b;
    a.enumeration("state_t", {"idle", "busy"});
    a.enumeration("state_t", {"open", "shut"});
    b.enumeration("state_t", {"red", "green"});
    b.enumeration("state_t", {"up", "down"});
    EXPECT_THAT(linesOf(a, b), ElementsAre("-0", "-1", "+0", "+1"));
}

TEST(TypeDiffs, TypesOfOneNameArePairedByTheirPlaces) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->enumeration("state_t", {"idle", "busy"});
        types->enumeration("state_t", {"open", "shut"});
        types->structure("fsm_t", {{"first", 0}, {"second", 1}}, VLOG_PACKED_STRUCT);
    }
    TypeFile::addLiteral(static_cast<RTSeqEnumType&>(b[0]), "ajar");
    TypeFile::addLiteral(static_cast<RTSeqEnumType&>(b[1]), "off");
    EXPECT_THAT(linesOf(a, b), ElementsAre("state_t.ajar: literals ... -> value 2",
                                           "state_t.off: literals ... -> value 2"));
}

TEST(TypeDiffs, TypeFoundByItsPlaceIsNotRemovedAsWell) {
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->integer("int");
        types->packed("", 0, {{types == &a ? 7 : 15, 0, 0}});
        types->packed("", 0, {{7, 0, 0}});
        // Two of one name, so that only their members tell them apart.
        types->structure("r", {{"len", 1}, {"last", 0}}, VLOG_PACKED_STRUCT);
        (*types)[types->last()].m_flags = types == &a ? 0 : 1;
        types->structure("r", {{"tag", 0}}, VLOG_PACKED_STRUCT);
        (*types)[types->last()].m_flags = types == &a ? 0 : 1;
    }
    a.packed("", 0, {{7, 0, 0}});
    EXPECT_THAT(linesOf(a, b), ElementsAre("-2", "r.len: constraints 7 downto 0 -> 15 downto 0",
                                           "r: flags 0x0 -> 0x1", "r: flags 0x0 -> 0x1"));
}

// Cycles, depth and damage.

TEST(TypeDiffs, ListsThatLeadToThemselvesAreFollowedOnce) {
    LinkedTypes a, b;
    a.structure("node_t", {{"next", 1}}, VLOG_PACKED_STRUCT);
    a.access("node_ptr", 0);
    b.access("node_ptr", 1);
    b.structure("node_t", {{"next", 0}}, VLOG_PACKED_STRUCT);
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
    static_cast<RTAccessType&>(b[0]).m_valueSize = 8;
    EXPECT_THAT(linesOf(a, b), ElementsAre("node_ptr: valueSize 0 -> 8"));
}

TEST(TypeDiffs, CyclesOfDifferentLengthThatNothingTellsApartAreEqual) {
    LinkedTypes a, b;
    a.access("p", 0);
    b.access("p", 1);
    b.access("p", 0);
    EXPECT_THAT(linesOf(a, b), ElementsAre("+1"));
}

TEST(TypeDiffs, TypeOutsideACycleEqualsOneInside) {
    LinkedTypes a, b;
    a.access("p", 0);
    a.access("p", 0);
    b.access("p", 1);
    b.access("p", 0);
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
}

TEST(TypeDiffs, ReferencesToNothingAreComparedAsSuch) {
    LinkedTypes a, b;
    a.access("none", 0xFFFFFFFF);
    a.access("beyond", 100);
    b.access("none", 0xFFFFFFFF);
    b.access("beyond", 200);
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
    static_cast<RTAccessType&>(b[0]).m_refTypeId = 100;
    EXPECT_THAT(linesOf(a, b), ElementsAre("none: refType none -> missing type"));
}

TEST(TypeDiffs, IdsThatBuildNoTypeAreAlike) {
    LinkedTypes a, b;
    a.hole();
    a.alias("t", 0);
    b.alias("t", 1);
    b.hole();
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
    b.hole();
    EXPECT_THAT(linesOf(a, b), ElementsAre("+2"));
}

TEST(TypeDiffs, MissingMemberIsNoCrash) {
    LinkedTypes a, b;
    a.structure("r", {{"x", 0}}, VLOG_PACKED_STRUCT);
    auto& record = b.as<RTRecordType>(b.structure("r", {}, VLOG_PACKED_STRUCT));
    record.m_members.push_back(nullptr);
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::INCOMPATIBLE);
    EXPECT_FALSE(linesOf(a, b).empty());
}

TEST(TypeDiffs, DeepChainsNeedNoStackAndNoQuadraticTime) {
    constexpr unsigned int DEPTH = 200000;
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->integer("int");
        for (unsigned int i = 0; i < DEPTH; ++i)
            types->alias("", i);
        types->access("loop", DEPTH + 2);
        types->structure("", {{"deep", DEPTH}, {"loop", DEPTH + 1}}, VLOG_PACKED_STRUCT);
    }
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::IDENTICAL);
    b[0].m_flags = 1;
    EXPECT_THAT(linesOf(a, b), ElementsAre("int: flags 0x0 -> 0x1"));
}

TEST(TypeDiffs, LongRingOfLikeTypesEndsSoon) {
    constexpr unsigned int LENGTH = 200000;
    LinkedTypes a, b;
    for (unsigned int i = 0; i < LENGTH; ++i) {
        a.access(i == 0 ? "first" : "", (i + 1) % LENGTH);
        b.access(i == LENGTH - 1 ? "first" : "", (i + 1) % LENGTH);
    }
    EXPECT_EQ(verdictOf(a, b), DiffVerdict::RENUMBERED);
}

TEST(TypeDiffs, ManyMembersOfOneStructTakeNoQuadraticTime) {
    constexpr unsigned int MEMBERS = 50000;
    LinkedTypes a, b;
    for (LinkedTypes* types : {&a, &b}) {
        types->integer("int");
        std::vector<LinkedTypes::Member> members;
        for (unsigned int i = 1; i <= MEMBERS; ++i) {
            types->packed("", 0, {{static_cast<int>(i), types == &a ? 0 : -1, 0}});
            members.push_back({numbered("m", i), i});
        }
        types->structure("big_t", members, VLOG_PACKED_STRUCT);
    }
    EXPECT_EQ(linesOf(a, b).size(), MEMBERS);
}

} // namespace
