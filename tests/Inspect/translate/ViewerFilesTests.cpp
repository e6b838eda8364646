#include "Inspect/translate/ViewerFiles.h"

#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using namespace std::string_literals;

using Files = std::map<std::string, std::string>;

template <typename Write> Files filesOf(LinkedTypes& types, Write write) {
    Files files;
    write(types.table(), [&](const std::string& name, const std::string& text) {
        EXPECT_TRUE(files.emplace(name, text).second) << name;
    });
    return files;
}

Files filtersOf(LinkedTypes& types) { return filesOf(types, writeGtkwaveFilters); }

/// The lines that are no comments.
std::string lines(const std::string& text) {
    std::string result;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find('\n', begin) + 1;
        result += text[begin] != '#' ? text.substr(begin, end - begin) : "";
        begin = end;
    }
    return result;
}

unsigned int logicVector(LinkedTypes& types, int width) {
    const unsigned int logic = types.logic();
    return types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{width - 1, 0, 0}});
}

/// An enumeration over logic [5:0].
RTDiscreteEnumType& enumeration(LinkedTypes& types, const std::string& name) {
    const unsigned int base = logicVector(types, 6);
    auto& type = types.add<RTDiscreteEnumType>(name);
    type.m_baseTypeId = base;
    return type;
}

TEST(ViewerFiles, HaveLiteralsInBinaryAndHexadecimalForGtkwave) {
    LinkedTypes types;
    auto& type = enumeration(types, "p::state_e");
    TypeFile::addLiteral(type, "RUN", "\x2A\x00"s);
    TypeFile::addLiteral(type, "OFF", "\x00\x00"s);
    const Files files = filtersOf(types);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files.begin()->first, "p.state_e.txt");
    EXPECT_EQ(files.begin()->second.substr(0, 25), "# p::state_e, 6 bits\n# GT");
    EXPECT_EQ(lines(files.begin()->second), "101010 RUN\n2a RUN\n000000 OFF\n00 OFF\n");
}

TEST(ViewerFiles, HaveNoHexadecimalDigitThatStandsForMoreThanOneValue) {
    LinkedTypes types;
    auto& type = enumeration(types, "e");
    TypeFile::addLiteral(type, "X_LOW", "\x21\x01"s); // 10000x
    TypeFile::addLiteral(type, "ALL_X", "\x3F\x3F"s);
    TypeFile::addLiteral(type, "Z_LOW", "\x10\x0F"s); // 01zzzz
    TypeFile::addLiteral(type, "ONE_Z", "\x00\x01"s); // 00000z
    EXPECT_EQ(lines(filtersOf(types)["e.txt"]), "10000x X_LOW\nxxxxxx ALL_X\n"
                                                "01zzzz Z_LOW\n1z Z_LOW\n00000z ONE_Z\n");
}

TEST(ViewerFiles, HaveOneLineForEachValueOfOneBit) {
    LinkedTypes types;
    const unsigned int bit = types.bit();
    auto& type = types.add<RTDiscreteEnumType>("on_e");
    type.m_baseTypeId = bit;
    TypeFile::addLiteral(type, "OFF", "\x00"s);
    TypeFile::addLiteral(type, "ON", "\x01"s);
    EXPECT_EQ(lines(filtersOf(types)["on_e.txt"]), "0 OFF\n1 ON\n");
}

TEST(ViewerFiles, HaveVhdlEnumerationsByPosition) {
    LinkedTypes types;
    types.enumeration("color_t", {"red", "green", "' '", "\\a b\\", "blue"});
    EXPECT_EQ(filesOf(types, writeSurferMappings)["color_t.txt"],
              "Name = color_t\nBits = 3\n0b000 red\n0b001 green\n0b010 ' '\n0b011 \\a b\\\n"
              "0b100 blue\n");
    types.logic();
    types.add<RTSeqEnumType>("std_ulogic").m_enumKind = VHDL_STD_LOGIC_ENUM;
    types.add<RTSeqEnumType>("bit").m_enumKind = VHDL_BIT_ENUM;
    EXPECT_EQ(filtersOf(types).size(), 1u);
}

TEST(ViewerFiles, HaveUnknownValuesForSurfer) {
    LinkedTypes types;
    TypeFile::addLiteral(enumeration(types, "p::e"), "ODD", "\x21\x03"s); // 1000zx
    EXPECT_EQ(filesOf(types, writeSurferMappings)["p.e.txt"],
              "Name = p::e\nBits = 6\n0b1000zx ODD\n");
}

TEST(ViewerFiles, AreNamedForTheTypedefOfATypeWithoutName) {
    LinkedTypes types;
    enumeration(types, "");
    types.alias("p::first_t", types.last());
    types.alias("p::second_t", types.last() - 1);
    enumeration(types, "");
    const Files files = filtersOf(types);
    EXPECT_EQ(files.size(), 2u);
    EXPECT_EQ(files.count("p.first_t.txt"), 1u);
    EXPECT_EQ(files.count("type_" + std::to_string(types.last()) + ".txt"), 1u);
}

TEST(ViewerFiles, OfEqualNamesAreToldApartById) {
    LinkedTypes types;
    enumeration(types, "e");
    enumeration(types, "E");
    enumeration(types, "e_11");
    enumeration(types, "e");
    ASSERT_EQ(types.last(), 11u);
    const Files files = filtersOf(types);
    EXPECT_EQ(files.size(), 4u);
    EXPECT_EQ(files.count("e.txt"), 1u);
    EXPECT_EQ(files.count("E_5.txt"), 1u);
    EXPECT_EQ(files.count("e_11.txt"), 1u);
    EXPECT_EQ(files.count("e_11_11.txt"), 1u);
}

TEST(ViewerFiles, StayInTheirDirectory) {
    LinkedTypes types;
    for (const char* name : {"../../etc/passwd", "..", ".hidden", "a/b", "a\\b", "-rf", "a::::b",
                             "\x01\n\xFF", "a..b.", "::"})
        enumeration(types, name);
    enumeration(types, std::string(5000, 'n'));
    enumeration(types, std::string(5001, 'n'));
    for (const auto& [name, text] : filtersOf(types)) {
        EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "0123456789_.-"),
                  std::string::npos)
            << name;
        EXPECT_NE(name.front(), '.') << name;
        EXPECT_NE(name.front(), '-') << name;
        EXPECT_EQ(name.find(".."), std::string::npos) << name;
        EXPECT_LE(name.size(), 220u);
        EXPECT_EQ(text.find('\x01'), std::string::npos);
    }
}

/// What filter processes are called with.
std::vector<std::string> arguments(LinkedTypes& types) {
    std::vector<std::string> found;
    for (const FilterType& type : filterTypes(types.table()))
        found.push_back(type.file + ' ' + type.argument);
    return found;
}

TEST(FilterTypes, AreThoseWithNamesInTheirValues) {
    LinkedTypes types;
    enumeration(types, "state_e");
    const unsigned int state = types.last();
    auto& record = types.add<RTRecordType>("p::job_t");
    record.m_recordKind = VLOG_PACKED_STRUCT;
    TypeFile::addMember(record, "st", state);
    types.alias("p::job_t", types.last());
    types.alias("other_t", state);
    types.array(VLOG_FIXED_PACKED_ARRAY, "", state, {{1, 0, 0}});
    types.alias("states_t", types.last());
    types.array(VLOG_FIXED_PACKED_ARRAY, "", state, {{2, 1, 0}});
    types.enumeration("color", {"red", "green"});
    types.add<RTStringType>("text");
    EXPECT_EQ(arguments(types), (std::vector<std::string>{"state_e state_e", "p.job_t p::job_t",
                                                          "states_t states_t", "color color"}));
}

TEST(FilterTypes, AreCalledByIdWhereTheNameDoesNotLeadToThem) {
    LinkedTypes types;
    for (const char* name : {"twice", "twice", "-rf", "7", ""})
        enumeration(types, name);
    EXPECT_EQ(arguments(types),
              (std::vector<std::string>{"twice 2", "twice_5 5", "_-rf 8", "7 11", "type_14 14"}));
}

TEST(ViewerFiles, LeaveOutWhatNoViewerShows) {
    LinkedTypes types;
    auto& type = types.add<RTDiscreteEnumType>("wide_e");
    type.m_baseTypeId = logicVector(types, 65537);
    TypeFile::addLiteral(type, "ONE", "\x01\x00"s);
    types.add<RTDiscreteEnumType>("baseless_e");
    EXPECT_TRUE(filtersOf(types).empty());
}

} // namespace
