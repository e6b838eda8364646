#include "Inspect/declarations/DeclaredTypes.h"

#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/PredefinedTypes.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/Ranges.h"

#include <algorithm>

namespace Inspect {

using namespace RTTI;

namespace {

/// Typedefs are followed to the type whose declaration they share through this many.
constexpr int CHAIN_LIMIT = 1000;

} // namespace

DeclaredTypes::DeclaredTypes(const TypeTable& types, SourceLanguage language,
                             Examination examination)
    : m_types(types), m_language(language), m_examination(examination) {
    if (!isExamined())
        return;
    examineTypes();
    findDeclaredTypes();
}

/// A typedef mostly follows its data type: long chains of them are not walked again for each.
void DeclaredTypes::examineTypes() {
    m_facts.resize(m_types.count);
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const RTBaseType* type = m_types.typeOf(id);
        Facts& facts = m_facts[id];
        facts.declaredType = id;
        if (type == nullptr)
            continue;
        facts.name = Inspect::givenName(type->m_name);
        facts.classId = type->GetClassId();
        const unsigned int data = facts.classId == ClassId::TYPEDEF
                                      ? static_cast<const RTTypedefType*>(type)->m_dataTypeId
                                      : id;
        facts.isOfLanguage = data < id && m_types.typeOf(data) != nullptr
                                 ? m_facts[data].isOfLanguage
                                 : languageOf(*type) == m_language;
        facts.isPredefined = facts.isOfLanguage && !facts.name.empty() && isPredefinedName(*type);
    }
}

std::string_view DeclaredTypes::nameAsked(unsigned int id) const {
    const RTBaseType* type = m_types.typeOf(id);
    return type != nullptr ? Inspect::givenName(type->m_name) : "";
}

unsigned int DeclaredTypes::classAsked(unsigned int id) const {
    const RTBaseType* type = id != TypeFileFormat::NO_TYPE_ID ? m_types.typeOf(id) : nullptr;
    return type != nullptr ? type->GetClassId() : 0;
}

bool DeclaredTypes::isOfLanguageAsked(unsigned int id) const {
    const RTBaseType* type = m_types.typeOf(id);
    return type != nullptr && languageOf(*type) == m_language;
}

bool DeclaredTypes::isPredefinedAsked(unsigned int id) const {
    const RTBaseType* type = m_types.typeOf(id);
    return type != nullptr && isKeyword(*type);
}

void DeclaredTypes::findDeclaredTypes() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        if (m_facts[id].classId != ClassId::TYPEDEF)
            continue;
        const auto& alias = static_cast<const RTTypedefType&>(*m_types.typeOf(id));
        const unsigned int data = alias.m_dataTypeId;
        if (!hasNameOfItsData(id, alias))
            continue;
        if (addsNothing(alias))
            follow(m_facts[id].declaredType);
        else if (data < m_types.count && !m_facts[data].isPredefined)
            m_facts[data].yieldsName = true;
    }
}

const RTBaseType* DeclaredTypes::follow(unsigned int& id) const {
    const RTBaseType* type = m_types.typeOf(id);
    for (int i = 0; i < CHAIN_LIMIT; ++i) {
        if (type == nullptr || type->GetClassId() != ClassId::TYPEDEF)
            return type;
        const auto& alias = static_cast<const RTTypedefType&>(*type);
        if (!hasNameOfItsData(id, alias) || !addsNothing(alias))
            return type;
        id = alias.m_dataTypeId;
        type = m_types.typeOf(id);
    }
    return type;
}

bool DeclaredTypes::hasNameOfItsData(unsigned int id, const RTTypedefType& alias) const {
    if (alias.m_dataType == nullptr)
        return false;
    const std::string_view name = givenName(id);
    const std::string_view data = givenName(alias.m_dataTypeId);
    if (data.empty() || name.size() != data.size())
        return false;
    return identityOf(m_language, identifierOf(m_language, name)) ==
           identityOf(m_language, identifierOf(m_language, data));
}

bool DeclaredTypes::addsNothing(const RTTypedefType& alias) const {
    if (std::all_of(alias.m_constraints.begin(), alias.m_constraints.end(), isOpen))
        return true;
    const auto* integer = dynamic_cast<const RTIntType*>(alias.m_dataType);
    if (integer == nullptr || alias.m_constraints.size() != 1)
        return false;
    return isSame(alias.m_constraints.front(), integer->m_constraint);
}

bool DeclaredTypes::isPredefinedName(const RTBaseType& type) const {
    return m_language == SourceLanguage::VHDL ? isPredefinedInVhdl(type, m_types.typeOf)
                                              : isKeyword(type);
}

bool DeclaredTypes::isKeyword(const RTBaseType& type) const {
    return m_language == SourceLanguage::SYSTEM_VERILOG && !systemVerilogKeyword(type).empty();
}

} // namespace Inspect
