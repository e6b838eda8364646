#pragma once

#include "Inspect/model/TypeTable.h"
#include "RTTI/RTType.h"
#include "TypeFile/TypeBuilding.h"

#include <memory>
#include <string>
#include <vector>

namespace RTTITest {

/// Types that a test makes; the first has the id 0. Links are not set.
class TypeList {
public:
    template <typename Type> Type& add(const std::string& name) {
        auto type = std::make_unique<Type>();
        TypeFile::setName(*type, name);
        Type& reference = *type;
        m_types.push_back(std::move(type));
        return reference;
    }

    /// An id that builds no type.
    void addHole() { m_types.emplace_back(); }

    RTTI::RTIntType& integer(const std::string& name, int from = 0, int to = 7) {
        auto& type = add<RTTI::RTIntType>(name);
        type.m_constraint = {from, to, 1};
        return type;
    }

    RTTI::RTArrayType& array(const std::string& name, unsigned int element, int left, int right) {
        auto& type = add<RTTI::RTArrayType>(name);
        type.m_arrayKind = RTTI::VLOG_FIXED_PACKED_ARRAY;
        type.m_elementTypeId = element;
        type.m_constraints = {{left, right, 0}};
        return type;
    }

    RTTI::RTTypedefType& alias(const std::string& name, unsigned int of) {
        auto& type = add<RTTI::RTTypedefType>(name);
        type.m_dataTypeId = of;
        return type;
    }

    RTTI::RTAccessType& access(const std::string& name, unsigned int to) {
        auto& type = add<RTTI::RTAccessType>(name);
        type.m_refTypeId = to;
        return type;
    }

    RTTI::RTSeqEnumType& enumeration(const std::string& name,
                                     const std::vector<std::string>& literals) {
        auto& type = add<RTTI::RTSeqEnumType>(name);
        for (const std::string& literal : literals)
            TypeFile::addLiteral(type, literal);
        return type;
    }

    struct Member {
        std::string name;
        unsigned int type;
    };

    RTTI::RTRecordType& record(const std::string& name, const std::vector<Member>& members) {
        auto& type = add<RTTI::RTRecordType>(name);
        type.m_recordKind = RTTI::VLOG_PACKED_STRUCT;
        for (const Member& member : members)
            TypeFile::addMember(type, member.name, member.type);
        return type;
    }

    RTTI::RTBaseType& operator[](std::size_t id) { return *m_types.at(id); }
    std::size_t size() const { return m_types.size(); }

    Inspect::TypeTable table() const {
        return {static_cast<unsigned int>(m_types.size()),
                [this](unsigned int id) { return m_types[id].get(); }};
    }

private:
    std::vector<std::unique_ptr<RTTI::RTBaseType>> m_types;
};

} // namespace RTTITest
