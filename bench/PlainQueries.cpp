#include "bench/PlainQueries.h"

#include <algorithm>

namespace Bench {

namespace {

using namespace RTTI;

/// The classes that a recursion is in.
class ClassPath {
public:
    bool has(const RTBaseType& type) const {
        return std::find(m_classes.begin(), m_classes.end(), &type) != m_classes.end();
    }
    void enter(const RTBaseType& type) { m_classes.push_back(&type); }
    void leave() { m_classes.pop_back(); }

private:
    std::vector<const RTBaseType*> m_classes;
};

class PlainEncoding {
public:
    ValueEncoding of(const RTBaseType& type) {
        switch (type.GetClassId()) {
        case ClassId::ARRAY: return of(static_cast<const RTArrayType&>(type));
        case ClassId::TYPEDEF:
            return behind(static_cast<const RTTypedefType&>(type).m_dataType, type);
        case ClassId::DISCRETE_ENUM:
            return behind(static_cast<const RTDiscreteEnumType&>(type).m_baseType, type);
        case ClassId::RECORD: return of(static_cast<const RTRecordType&>(type));
        case ClassId::CLASS: return of(static_cast<const RTClassType&>(type));
        default: return type.getValueEncoding();
        }
    }

private:
    ValueEncoding behind(const RTBaseType* other, const RTBaseType& type) {
        return other != nullptr ? of(*other) : type.RTBaseType::getValueEncoding();
    }

    ValueEncoding of(const RTArrayType& array) {
        if (array.m_arrayKind == BYTE_UNPADDED_ARRAY)
            return ENCODING_UNPADDED_BYTE;
        const bool isOfElement = array.m_arrayKind == VLOG_FIXED_UNPACKED_ARRAY ||
                                 array.m_arrayKind == VLOG_FIXED_PACKED_ARRAY;
        return isOfElement && array.m_elementType != nullptr ? of(*array.m_elementType)
                                                             : ENCODING_BYTE;
    }

    ValueEncoding of(const RTRecordType& record) {
        if (record.m_recordKind >= VLOG_UNPACKED_STRUCT &&
            record.m_recordKind <= VLOG_UNPACKED_UNTAGGED_UNION)
            return ofMembers(record);
        return record.m_recordKind == BYTE_UNPADDED_STRUCT ? ENCODING_UNPADDED_BYTE : ENCODING_BYTE;
    }

    ValueEncoding of(const RTClassType& type) {
        if (m_path.has(type))
            return ENCODING_2_STATE;
        m_path.enter(type);
        const bool isBaseTwoState =
            type.m_baseClass == nullptr || of(*type.m_baseClass) == ENCODING_2_STATE;
        const ValueEncoding encoding = isBaseTwoState ? ofMembers(type) : ENCODING_4_STATE;
        m_path.leave();
        return encoding;
    }

    ValueEncoding ofMembers(const RTAggregateType& aggregate) {
        for (const RTBaseType* member : aggregate.m_memberTypes) {
            if (of(*member) != ENCODING_2_STATE)
                return ENCODING_4_STATE;
        }
        return ENCODING_2_STATE;
    }

    ClassPath m_path;
};

class PlainRanges {
public:
    explicit PlainRanges(std::vector<FullConstraints>& out) : m_out(out) {}

    void appendOf(const RTBaseType* type) {
        while (type != nullptr)
            type = appendLevel(*type);
    }

private:
    /// What is below the type, unless that has been appended.
    const RTBaseType* appendLevel(const RTBaseType& type) {
        switch (type.GetClassId()) {
        case ClassId::ARRAY: return appendArray(static_cast<const RTArrayType&>(type));
        case ClassId::TYPEDEF: return static_cast<const RTTypedefType&>(type).m_dataType;
        case ClassId::DISCRETE_ENUM: return static_cast<const RTDiscreteEnumType&>(type).m_baseType;
        case ClassId::RECORD: appendMembers(static_cast<const RTRecordType&>(type)); return nullptr;
        case ClassId::CLASS: appendClass(static_cast<const RTClassType&>(type)); return nullptr;
        default: return nullptr;
        }
    }

    const RTBaseType* appendArray(const RTArrayType& array) {
        const std::size_t dimensions =
            std::min(array.m_indexTypeIds.size(), array.m_constraints.size());
        for (std::size_t i = 0; i < dimensions; ++i)
            m_out.push_back(array.m_constraints[i]);
        return array.m_elementType;
    }

    void appendMembers(const RTAggregateType& aggregate) {
        for (const RTBaseType* member : aggregate.m_memberTypes)
            appendOf(member);
    }

    void appendClass(const RTClassType& type) {
        if (m_path.has(type))
            return;
        m_path.enter(type);
        appendOf(type.m_baseClass);
        appendMembers(type);
        m_path.leave();
    }

    std::vector<FullConstraints>& m_out;
    ClassPath m_path;
};

} // namespace

ValueEncoding plainEncodingOf(const RTBaseType& type) { return PlainEncoding().of(type); }

std::size_t plainRangesOf(const RTBaseType& type) {
    static thread_local std::vector<FullConstraints> out;
    out.clear();
    PlainRanges(out).appendOf(&type);
    return out.size();
}

} // namespace Bench
