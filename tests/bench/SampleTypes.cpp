#include "tests/bench/SampleTypes.h"

#include "TypeFile/TypeBuilding.h"
#include "TypeFile/TypeFileWriter.h"

namespace Bench {

using namespace RTTI;
using TypeFile::addLiteral;
using TypeFile::addMember;
using TypeFile::addUnit;
using TypeFile::setName;

namespace {

constexpr unsigned int STATE = 0;
constexpr unsigned int INTEGER = 2;
constexpr unsigned int CLASS = 13;

template <typename Types, typename Each> void forEachType(Types& types, const Each& each) {
    each(types.state);
    each(types.opcode);
    each(types.integer);
    each(types.real);
    each(types.string);
    each(types.time);
    each(types.alias);
    each(types.access);
    each(types.array);
    each(types.queue);
    each(types.dynamicArray);
    each(types.assocArray);
    each(types.record);
    each(types.classType);
}

template <typename Change>
void changeNamed(SampleTypes& types, const std::string& name, const Change& change) {
    forEachType(types, [&](RTBaseType& type) {
        if (type.m_name == name)
            change(type);
    });
}

std::string bytesOf(int value) { return std::string(4, static_cast<char>(value)); }

} // namespace

SampleTypes::SampleTypes() {
    int number = 0;
    forEachType(*this,
                [&](RTBaseType& type) { setName(type, "type_" + std::to_string(++number)); });
    state.m_enumKind = VHDL_BIT_ENUM;
    state.m_valueEncoding = ENCODING_2_STATE;
    state.m_valueSize = 1;
    addLiteral(state, "idle");
    addLiteral(state, "busy");
    opcode.m_baseTypeId = STATE;
    opcode.m_constraints = {{7, 0, 0}};
    addLiteral(opcode, "NOP", bytesOf(1));
    addLiteral(opcode, "ADD", bytesOf(2));
    integer.m_constraint = {-8, 7, 1};
    real.m_floatKind = 1;
    real.m_left = -1.5;
    real.m_right = 2.5;
    real.m_direction = 1;
    addUnit(time, "fs", 1);
    addUnit(time, "ps", 1000);
    alias.m_dataTypeId = INTEGER;
    alias.m_constraints = {{3, 0, 0}, {0, 1, 1}};
    access.m_refTypeId = INTEGER;
    access.m_alignment = 8;
    access.m_valueSize = 8;
    array.m_arrayKind = VHDL_ARRAY;
    array.m_elementTypeId = STATE;
    array.m_indexTypeIds = {INTEGER, STATE};
    array.m_constraints = {{31, 0, 0}, {0, 0, -2}};
    array.m_svTypeId = 4;
    queue.m_elementTypeId = STATE;
    dynamicArray.m_elementTypeId = STATE;
    assocArray.m_elementTypeId = STATE;
    assocArray.m_indexTypeId = INTEGER;
    record.m_recordKind = VHDL_RECORD;
    addMember(record, "first", STATE);
    addMember(record, "second", INTEGER, {{5, 0, 0}});
    addMember(classType, "third", STATE, {{1, 0, 0}, {2, 0, 0}}, true);
    addMember(classType, "fourth", INTEGER);
}

std::vector<char> SampleTypes::table() const {
    TypeFile::TypeFileWriter writer;
    forEachType(*this, [&](const auto& type) { writer.add(type); });
    return writer.finish();
}

std::vector<FieldChange> changesOfEveryField() {
    std::vector<FieldChange> changes = {
        {"enumeration kind", [](auto& to) { to.state.m_enumKind = VHDL_OTHER_ENUM; }},
        {"encoding", [](auto& to) { to.state.m_valueEncoding = ENCODING_BYTE; }},
        {"value size", [](auto& to) { to.state.m_valueSize = 2; }},
        {"literal", [](auto& to) { to.state.m_enumeratorNames[1][3] = 'x'; }},
        {"one more literal", [](auto& to) { addLiteral(to.state, "more"); }},
        {"base type", [](auto& to) { to.opcode.m_baseTypeId = INTEGER; }},
        {"range of an enumeration", [](auto& to) { to.opcode.m_constraints[0].si = 6; }},
        {"literal with a value", [](auto& to) { to.opcode.m_enumerators[0].enumName = "NIL"; }},
        {"value of a literal", [](auto& to) { to.opcode.m_enumerators[1].value[3] = 9; }},
        {"left bound of an integer", [](auto& to) { to.integer.m_constraint.si = -9; }},
        {"right bound of an integer", [](auto& to) { to.integer.m_constraint.ei = 9; }},
        {"direction of an integer", [](auto& to) { to.integer.m_constraint.dir = 0; }},
        {"flavour of a real", [](auto& to) { to.real.m_floatKind = 2; }},
        {"left bound of a real", [](auto& to) { to.real.m_left = -2.5; }},
        {"right bound of a real", [](auto& to) { to.real.m_right = 3.5; }},
        {"direction of a real", [](auto& to) { to.real.m_direction = 0; }},
        {"unit", [](auto& to) { to.time.m_units[1].unitName = "ns"; }},
        {"value of a unit", [](auto& to) { to.time.m_units[1].value = 1000000; }},
        {"aliased type", [](auto& to) { to.alias.m_dataTypeId = STATE; }},
        {"right bound of a range", [](auto& to) { to.alias.m_constraints[1].ei = 2; }},
        {"no range", [](auto& to) { to.alias.m_constraints.clear(); }},
        {"designated type", [](auto& to) { to.access.m_refTypeId = STATE; }},
        {"alignment", [](auto& to) { to.access.m_alignment = 4; }},
        {"size of an access value", [](auto& to) { to.access.m_valueSize = 4; }},
        {"array kind", [](auto& to) { to.array.m_arrayKind = VLOG_FIXED_PACKED_ARRAY; }},
        {"element type", [](auto& to) { to.array.m_elementTypeId = INTEGER; }},
        {"index type", [](auto& to) { to.array.m_indexTypeIds[1] = INTEGER; }},
        {"direction of a range", [](auto& to) { to.array.m_constraints[1].dir = 1; }},
        {"SV type of an array", [](auto& to) { to.array.m_svTypeId = 5; }},
        {"element type of a queue", [](auto& to) { to.queue.m_elementTypeId = INTEGER; }},
        {"SV type of a queue", [](auto& to) { to.queue.m_svTypeId = 5; }},
        {"element type of a dynamic array",
         [](auto& to) { to.dynamicArray.m_elementTypeId = INTEGER; }},
        {"SV type of a dynamic array", [](auto& to) { to.dynamicArray.m_svTypeId = 5; }},
        {"element type of a map", [](auto& to) { to.assocArray.m_elementTypeId = INTEGER; }},
        {"index type of a map", [](auto& to) { to.assocArray.m_indexTypeId = STATE; }},
        {"SV type of a map", [](auto& to) { to.assocArray.m_svTypeId = 5; }},
        {"record kind", [](auto& to) { to.record.m_recordKind = VLOG_PACKED_STRUCT; }},
        {"SV type of a record", [](auto& to) { to.record.m_svTypeId = 5; }},
        {"member name", [](auto& to) { to.record.m_members[0]->m_memberName[4] = 'x'; }},
        {"member type", [](auto& to) { to.record.m_members[1]->m_typeId = STATE; }},
        {"member range", [](auto& to) { to.record.m_members[1]->m_constraints[0].si = 6; }},
        {"one more member", [](auto& to) { addMember(to.record, "more", STATE); }},
        {"base class", [](auto& to) { to.classType.m_baseClassTypeId = CLASS; }},
        {"SV type of a class", [](auto& to) { to.classType.m_svTypeId = 5; }},
        {"class member", [](auto& to) { to.classType.m_members[1]->m_memberName[0] = 'x'; }},
        {"class member range",
         [](auto& to) { to.classType.m_members[0]->m_constraints[1].si = 6; }},
        {"member flag",
         [](auto& to) {
             static_cast<RTClassType::t_ClassMember*>(to.classType.m_members[1])->m_memberFlag =
                 true;
         }},
    };
    const SampleTypes samples;
    forEachType(samples, [&](const RTBaseType& type) {
        const std::string name = type.m_name;
        changes.push_back({"flags of " + name, [name](SampleTypes& to) {
                               changeNamed(to, name, [](RTBaseType& of) { of.m_flags = 1; });
                           }});
        changes.push_back({"name of " + name, [name](SampleTypes& to) {
                               changeNamed(to, name, [](auto& of) { setName(of, "renamed"); });
                           }});
    });
    return changes;
}

} // namespace Bench
