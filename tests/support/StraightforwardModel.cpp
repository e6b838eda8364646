#include "tests/support/StraightforwardModel.h"

#include <climits>

namespace RTTITest {

using namespace RTTI;

namespace {

// Class ids, stated a second time so that a wrong number in the library shows.
constexpr unsigned int SEQ_ENUM_ID = 0xA0000003;
constexpr unsigned int DISCRETE_ENUM_ID = 0xA0000004;
constexpr unsigned int FLOAT_ID = 0xA0000006;
constexpr unsigned int TYPEDEF_ID = 0xA0000007;
constexpr unsigned int EVENT_ID = 0xA000000B;
constexpr unsigned int ARRAY_ID = 0xA0000010;
constexpr unsigned int RECORD_ID = 0xA0000011;
constexpr unsigned int CLASS_ID = 0xA0000017;
constexpr unsigned int STRING_ID = 0xA0000018;

template <typename Type> const Type& as(const RTBaseType& type) {
    return static_cast<const Type&>(type);
}

ValueEncoding flagEncoding(const RTBaseType& type) {
    return (type.m_flags & 0x10) != 0 ? ENCODING_UNPADDED_BYTE : ENCODING_BYTE;
}

} // namespace

ValueEncoding EncodingModel::ask(const RTBaseType& type) {
    m_steps = 0;
    m_structs.assign(1, {});
    return encoding(&type, ENCODING_BYTE);
}

ValueEncoding EncodingModel::encoding(const RTBaseType* type, ValueEncoding ifMissing) {
    if (type == nullptr)
        return ifMissing;
    if (++m_steps > m_limit)
        throw TooManySteps();
    switch (type->GetClassId()) {
    case SEQ_ENUM_ID: return as<RTSeqEnumType>(*type).m_valueEncoding;
    case FLOAT_ID:
        return as<RTFloatType>(*type).m_floatKind == 0 ? ENCODING_BYTE : ENCODING_4_STATE;
    case STRING_ID:
    case EVENT_ID: return ENCODING_2_STATE;
    case DISCRETE_ENUM_ID:
        return encoding(as<RTDiscreteEnumType>(*type).m_baseType, flagEncoding(*type));
    case TYPEDEF_ID: return encoding(as<RTTypedefType>(*type).m_dataType, flagEncoding(*type));
    case ARRAY_ID: {
        const auto& array = as<RTArrayType>(*type);
        if (array.m_arrayKind == 0xA00002 || array.m_arrayKind == 0xA00003)
            return encoding(array.m_elementType, ENCODING_BYTE);
        return array.m_arrayKind == 0xA00007 ? ENCODING_UNPADDED_BYTE : ENCODING_BYTE;
    }
    case RECORD_ID: return recordEncoding(as<RTRecordType>(*type));
    case CLASS_ID: return classEncoding(as<RTClassType>(*type));
    default: return flagEncoding(*type);
    }
}

ValueEncoding EncodingModel::recordEncoding(const RTRecordType& record) {
    if (record.m_recordKind == 0xB0008)
        return ENCODING_UNPADDED_BYTE;
    if (record.m_recordKind < 0xB0002 || record.m_recordKind > 0xB0008)
        return ENCODING_BYTE;
    if (!m_structs.back().insert(&record).second)
        return ENCODING_2_STATE;
    const bool isTwoState = membersAreTwoState(record);
    m_structs.back().erase(&record);
    return isTwoState ? ENCODING_2_STATE : ENCODING_4_STATE;
}

ValueEncoding EncodingModel::classEncoding(const RTClassType& type) {
    if (!m_marked.insert(&type).second)
        return ENCODING_2_STATE;
    m_structs.emplace_back();
    const bool hasTwoStateBase = encoding(type.m_baseClass, ENCODING_2_STATE) == ENCODING_2_STATE;
    const bool isTwoState = hasTwoStateBase && membersAreTwoState(type);
    m_structs.pop_back();
    if (hasTwoStateBase) // Else the mark stays.
        m_marked.erase(&type);
    return isTwoState ? ENCODING_2_STATE : ENCODING_4_STATE;
}

bool EncodingModel::membersAreTwoState(const RTAggregateType& aggregate) {
    for (const RTBaseType* member : aggregate.m_memberTypes) {
        if (encoding(member, ENCODING_BYTE) != ENCODING_2_STATE)
            return false;
    }
    return true;
}

void ConstraintModel::push(const Ranges& own) {
    Level level{own, 0};
    const auto isOpen = [](const FullConstraints& range) { return range.dir == -2; };
    const auto isFilled = [&](const FullConstraints& range) {
        const bool isFull = range.si == INT_MIN && range.ei == INT_MAX && range.dir == 1;
        return isOpen(range) || isFull;
    };
    bool hasOpen = false;
    std::size_t p = own.size();
    for (std::size_t i = own.size(); i-- > 0;) {
        hasOpen = hasOpen || isOpen(own[i]);
        if (!isFilled(own[i]))
            p = i;
    }
    if (hasOpen && p < own.size() && !m_frames.empty()) {
        const Ranges& bottom = m_frames.front().ranges;
        std::size_t q = 0;
        while (q < bottom.size() && !(bottom[q].si == own[p].si && bottom[q].ei == own[p].ei &&
                                      bottom[q].dir == own[p].dir))
            ++q;
        if (q < bottom.size() && q >= p && q - p + own.size() <= bottom.size()) {
            for (std::size_t i = 0; i < own.size(); ++i)
                level.ranges[i] = isFilled(own[i]) ? bottom[q - p + i] : own[i];
        }
    }
    m_frames.push_back(level);
}

void ConstraintModel::pop() { m_frames.pop_back(); }

FullConstraints ConstraintModel::next() {
    for (std::size_t i = m_frames.size(); i-- > 0;) {
        Level& level = m_frames[i];
        if (level.used == level.ranges.size())
            continue;
        const FullConstraints range = level.ranges[level.used++];
        if (range.dir != -2)
            return range;
    }
    return {0, 0, 0};
}

void ConstraintModel::walk(const RTBaseType* type) {
    if (type == nullptr)
        return;
    if (++m_steps > m_limit)
        throw TooManySteps();
    switch (type->GetClassId()) {
    case ARRAY_ID: {
        const auto& array = as<RTArrayType>(*type);
        push(array.m_constraints);
        for (std::size_t i = 0; i < array.m_indexTypeIds.size(); ++i)
            m_output.push_back(next());
        walk(array.m_elementType);
        pop();
        break;
    }
    case TYPEDEF_ID:
        push(as<RTTypedefType>(*type).m_constraints);
        walk(as<RTTypedefType>(*type).m_dataType);
        pop();
        break;
    case DISCRETE_ENUM_ID:
        push(as<RTDiscreteEnumType>(*type).m_constraints);
        walk(as<RTDiscreteEnumType>(*type).m_baseType);
        pop();
        break;
    case RECORD_ID: walkRecord(as<RTRecordType>(*type)); break;
    case CLASS_ID: walkClass(as<RTClassType>(*type)); break;
    default: break;
    }
}

void ConstraintModel::walkRecord(const RTRecordType& record) {
    if (!m_structs.back().insert(&record).second)
        return;
    const std::size_t outputBefore = m_output.size();
    walkMembers(record);
    m_structs.back().erase(&record);
    m_fruitfulVisits += m_output.size() != outputBefore ? 1 : 0;
}

void ConstraintModel::walkClass(const RTClassType& type) {
    if (!m_classes.insert(&type).second)
        return;
    const std::size_t outputBefore = m_output.size();
    m_structs.emplace_back();
    walk(type.m_baseClass);
    walkMembers(type);
    m_structs.pop_back();
    m_classes.erase(&type);
    m_fruitfulVisits += m_output.size() != outputBefore ? 1 : 0;
}

void ConstraintModel::walkMembers(const RTAggregateType& aggregate) {
    for (std::size_t i = 0; i < aggregate.m_members.size(); ++i) {
        if (aggregate.m_members[i] == nullptr)
            continue;
        push(aggregate.m_members[i]->m_constraints);
        walk(aggregate.m_memberTypes[i]);
        pop();
    }
}

} // namespace RTTITest
