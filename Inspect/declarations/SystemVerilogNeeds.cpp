#include "Inspect/declarations/SystemVerilogNeeds.h"

#include "Inspect/declarations/PredefinedTypes.h"
#include "Inspect/words/TypeText.h"

namespace Inspect {

using namespace RTTI;

namespace {

/// Goes through one declaration.
class NeedsFinder {
public:
    NeedsFinder(const TypeTable& types, TypeNeeds& needs) : m_types(types), m_needs(needs) {}

    void ofDeclaration(unsigned int id) {
        const RTBaseType* type = typeOf(id);
        if (type == nullptr || !systemVerilogKeyword(*type).empty())
            return;
        switch (type->GetClassId()) {
        case ClassId::TYPEDEF: return name(static_cast<const RTTypedefType&>(*type).m_dataTypeId);
        case ClassId::DISCRETE_ENUM:
            return name(static_cast<const RTDiscreteEnumType&>(*type).m_baseTypeId);
        case ClassId::CLASS: {
            const auto base = static_cast<const RTClassType&>(*type).m_baseClassTypeId;
            if (base != TypeFileFormat::NO_TYPE_ID)
                m_needs.named.push_back({base, false});
            return ofMembers(static_cast<const RTClassType&>(*type));
        }
        case ClassId::RECORD: return ofMembers(static_cast<const RTRecordType&>(*type));
        default: return ofArray(*type, 0);
        }
    }

private:
    const RTBaseType* typeOf(unsigned int id) const {
        return id != TypeFileFormat::NO_TYPE_ID ? m_types.typeOf(id) : nullptr;
    }

    void ofMembers(const RTAggregateType& type) {
        for (const auto* member : type.m_members) {
            if (member != nullptr)
                name(member->m_typeId);
        }
    }

    void ofArray(const RTBaseType& type, int depth) {
        switch (type.GetClassId()) {
        case ClassId::ARRAY:
            return name(static_cast<const RTArrayType&>(type).m_elementTypeId, depth + 1);
        case ClassId::DYNAMIC_ARRAY:
        case ClassId::QUEUE:
            return name(static_cast<const RTAbstractArrayType&>(type).m_elementTypeId, depth + 1);
        case ClassId::ASSOC_ARRAY: {
            const auto& map = static_cast<const RTAssocArrayType&>(type);
            name(map.m_elementTypeId, depth + 1);
            const RTBaseType* index = typeOf(map.m_indexTypeId);
            if (index != nullptr && index->GetClassId() == ClassId::WILDCARD)
                return;
            const bool isWritten = index != nullptr && isSpelledOutAsIndex(*index);
            return name(map.m_indexTypeId, isWritten ? depth + 1 : INLINE_LIMIT);
        }
        default: return;
        }
    }

    void name(unsigned int id, int depth = 0) {
        const RTBaseType* type = typeOf(id);
        if (type == nullptr || depth >= INLINE_LIMIT || !isSpelledOut(*type)) {
            const bool isClass = type != nullptr && type->GetClassId() == ClassId::CLASS;
            return m_needs.named.push_back({id, isClass});
        }
        m_needs.inside.push_back(id);
        ofArray(*type, depth);
    }

    const TypeTable& m_types;
    TypeNeeds& m_needs;
};

} // namespace

bool isSystemVerilogArray(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::ARRAY:
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
    case ClassId::ASSOC_ARRAY: return true;
    default: return false;
    }
}

bool isPackedArray(const RTBaseType& type) {
    return type.GetClassId() == ClassId::ARRAY &&
           static_cast<const RTArrayType&>(type).m_arrayKind == VLOG_FIXED_PACKED_ARRAY;
}

bool isSpelledOut(const RTBaseType& type) {
    return isSystemVerilogArray(type) && !isGivenName(type.m_name);
}

bool isSpelledOutAsIndex(const RTBaseType& type) {
    return isSpelledOut(type) && isPackedArray(type);
}

void findSystemVerilogNeeds(const TypeTable& types, unsigned int id, TypeNeeds& needs) {
    needs.named.clear();
    needs.inside.clear();
    NeedsFinder(types, needs).ofDeclaration(id);
}

} // namespace Inspect
