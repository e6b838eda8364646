#include "Inspect/declarations/SystemVerilogNeeds.h"

namespace Inspect {

using namespace RTTI;

namespace {

/// Goes through one declaration.
class NeedsFinder {
public:
    NeedsFinder(const TypeTable& types, const DeclaredTypes& declared, TypeNeeds& needs)
        : m_types(types), m_declared(declared), m_needs(needs) {}

    void ofDeclaration(unsigned int id) {
        const RTBaseType* type = m_types.typeOf(id);
        if (type == nullptr || m_declared.isPredefined(id))
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
            const unsigned int index = map.m_indexTypeId;
            if (m_declared.classOf(index) == ClassId::WILDCARD)
                return;
            return name(index,
                        isSpelledOutAsIndex(m_types, m_declared, index) ? depth + 1 : INLINE_LIMIT);
        }
        default: return;
        }
    }

    void name(unsigned int id, int depth = 0) {
        if (depth >= INLINE_LIMIT || !isSpelledOut(m_declared, id))
            return m_needs.named.push_back({id, m_declared.classOf(id) == ClassId::CLASS});
        m_needs.inside.push_back(id);
        ofArray(*m_types.typeOf(id), depth);
    }

    const TypeTable& m_types;
    const DeclaredTypes& m_declared;
    TypeNeeds& m_needs;
};

} // namespace

bool isSystemVerilogArray(unsigned int classId) {
    switch (classId) {
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

bool isSpelledOut(const DeclaredTypes& declared, unsigned int id) {
    return isSystemVerilogArray(declared.classOf(id)) && declared.givenName(id).empty();
}

bool isSpelledOutAsIndex(const TypeTable& types, const DeclaredTypes& declared, unsigned int id) {
    return isSpelledOut(declared, id) && isPackedArray(*types.typeOf(id));
}

void findSystemVerilogNeeds(const TypeTable& types, const DeclaredTypes& declared, unsigned int id,
                            TypeNeeds& needs) {
    needs.named.clear();
    needs.inside.clear();
    NeedsFinder(types, declared, needs).ofDeclaration(id);
}

} // namespace Inspect
