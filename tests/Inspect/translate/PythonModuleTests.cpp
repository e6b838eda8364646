#include "Inspect/translate/PythonModule.h"

#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace std::string_literals;
using testing::HasSubstr;
using testing::Not;

std::string moduleOf(LinkedTypes& types) {
    std::ostringstream out;
    Inspect::writePythonModule(out, types.table());
    return out.str();
}

RTDiscreteEnumType& enumeration(LinkedTypes& types, const std::string& name) {
    const unsigned int logic = types.logic();
    const unsigned int base = types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{5, 0, 0}});
    auto& type = types.add<RTDiscreteEnumType>(name);
    type.m_baseTypeId = base;
    return type;
}

RTRecordType& structure(LinkedTypes& types, const std::string& name) {
    auto& type = types.add<RTRecordType>(name);
    type.m_recordKind = VLOG_PACKED_STRUCT;
    return type;
}

TEST(PythonModule, HasPackagesAsClassesAroundTheirTypes) {
    LinkedTypes types;
    TypeFile::addLiteral(enumeration(types, "p::state_e"), "RUN", "\x2A\x00"s);
    EXPECT_THAT(moduleOf(types), HasSubstr("\n\nclass p:\n\n"
                                           "    class state_e(IntEnum):\n"
                                           "        \"\"\"p::state_e, 6 bits.\"\"\"\n\n"
                                           "        RUN = 0x2a\n"));
}

TEST(PythonModule, HasLiteralsWithUnknownBitsInComments) {
    LinkedTypes types;
    TypeFile::addLiteral(enumeration(types, "e"), "ODD", "\x21\x03"s);
    EXPECT_THAT(moduleOf(types), HasSubstr("    # ODD = 0b1000zx\n"));
}

TEST(PythonModule, AddsAnUnderscoreToNamesThatMeanSomething) {
    LinkedTypes types;
    auto& type = enumeration(types, "class");
    for (const char* name :
         {"name", "mro", "None", "real", "plain", "__init__", "_x_", "9", "a b", "a_b"})
        TypeFile::addLiteral(type, name, "\x01\x00"s);
    const std::string text = moduleOf(types);
    EXPECT_THAT(text, HasSubstr("class class_(IntEnum):"));
    for (const char* name :
         {"name_", "mro_", "None_", "real_", "plain", "x__init__", "x_x_", "x9", "a_b", "a_b_"})
        EXPECT_THAT(text, HasSubstr("    "s + name + " = 0x01\n"));
}

TEST(PythonModule, HasMembersThatHideNothingThatTheModuleNeeds) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    auto& type = structure(types, "p::pair_t");
    for (const char* name : {"p", "WIDTH", "int", "to_int", "self", "value"})
        TypeFile::addMember(type, name, logic);
    const std::string text = moduleOf(types);
    for (const char* name : {"p_", "WIDTH_", "int_", "to_int_", "self", "value"})
        EXPECT_THAT(text, HasSubstr("        "s + name + ": int = 0\n"));
}

TEST(PythonModule, TellsEqualNamesApartById) {
    LinkedTypes types;
    enumeration(types, "p::e");
    enumeration(types, "p::e");
    const unsigned int last = types.last();
    enumeration(types, "p::e::deep");
    const std::string text = moduleOf(types);
    EXPECT_THAT(text, HasSubstr("class e(IntEnum)"));
    EXPECT_THAT(text, HasSubstr("class e_" + std::to_string(last) + "(IntEnum)"));
    EXPECT_THAT(text, HasSubstr("    class e_:\n\n        class deep(IntEnum):"));
}

TEST(PythonModule, HasNoMoreLevelsThanPythonTakes) {
    LinkedTypes types;
    std::string name;
    for (int i = 0; i < 100000; ++i)
        name += "p::";
    enumeration(types, name + 'e');
    EXPECT_THAT(moduleOf(types), Not(HasSubstr(std::string(100, ' '))));
}

TEST(PythonModule, KeepsNamesInTheirTexts) {
    LinkedTypes types;
    TypeFile::addLiteral(enumeration(types, "e\"\"\"\\\n"), "A", "\x01\x00"s);
    EXPECT_THAT(moduleOf(types), HasSubstr("\"\"\"e'''//n, 6 bits.\"\"\"\n"));
}

TEST(PythonModule, HasPackedTypesAlone) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    auto& type = types.add<RTRecordType>("loose_t");
    type.m_recordKind = VLOG_UNPACKED_STRUCT;
    TypeFile::addMember(type, "on", logic);
    EXPECT_THAT(moduleOf(types), Not(HasSubstr("loose_t")));
}

TEST(PythonModule, TakesAnEnumerationThatIsTooWideForAnInt) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int base = types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{65536, 0, 0}});
    types.add<RTDiscreteEnumType>("wide_e").m_baseTypeId = base;
    const unsigned int wide = types.last();
    TypeFile::addMember(structure(types, "s"), "wide", wide);
    EXPECT_THAT(moduleOf(types), HasSubstr("    wide: int = 0\n"));
}

} // namespace
