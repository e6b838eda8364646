#pragma once

#include "Inspect/model/TypeTable.h"
#include "RTTI/RTType.h"
#include "TypeFile/TypeBuilding.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Types that refer to one another by id, in the order in which they are added, from 0 on; ids of
/// types to come may be used. The table has the links that a loader would make.
class LinkedTypes {
public:
    using Ranges = std::vector<RTTI::FullConstraints>;

    /// A member to be: its name, its type's id, and what narrows that.
    struct Member {
        std::string name;
        unsigned int typeId;
        Ranges ranges = {};
    };

    /// With arguments, the type is constructed from them behind its name.
    template <typename Type, typename... Arguments>
    Type& add(const std::string& name, Arguments... arguments) {
        std::unique_ptr<Type> type;
        if constexpr (sizeof...(arguments) == 0)
            type = std::make_unique<Type>();
        else
            type = std::make_unique<Type>(nullptr, arguments...);
        TypeFile::setName(*type, name);
        Type& added = *type;
        m_types.push_back(std::move(type));
        return added;
    }

    // Shorthands for what many tests need; each gives the id.
    unsigned int integer(const std::string& name, int left = 0, int right = 7);
    unsigned int enumeration(const std::string& name, const std::vector<std::string>& literals);
    unsigned int string();
    unsigned int alias(const std::string& name, unsigned int data, Ranges ranges = {});
    unsigned int access(const std::string& name, unsigned int designated);
    unsigned int vhdlArray(const std::string& name, unsigned int element,
                           const std::vector<unsigned int>& indices, Ranges ranges);

    /// With one dimension a range.
    unsigned int array(RTTI::ArrayKind kind, const std::string& name, unsigned int element,
                       Ranges ranges);
    unsigned int packed(const std::string& name, unsigned int element, Ranges ranges);
    unsigned int packed(unsigned int element, Ranges ranges);
    unsigned int queue(unsigned int element);
    unsigned int structure(const std::string& name, const std::vector<Member>& members,
                           RTTI::RecordKind kind = RTTI::VLOG_UNPACKED_STRUCT);
    unsigned int classType(const std::string& name, const std::vector<Member>& members,
                           unsigned int base = RTTI::TypeFileFormat::NO_TYPE_ID);

    /// SystemVerilog's logic and bit.
    unsigned int logic();
    unsigned int bit();

    /// A place in the table without a type.
    unsigned int hole();

    unsigned int last() const { return size() - 1; }
    unsigned int size() const { return static_cast<unsigned int>(m_types.size()); }
    RTTI::RTBaseType& operator[](unsigned int id) { return *m_types.at(id); }
    template <typename Type> Type& as(unsigned int id) { return dynamic_cast<Type&>((*this)[id]); }

    /// Links all types and gives them.
    Inspect::TypeTable table() const;

private:
    RTTI::RTBaseType* at(unsigned int id) const;
    void link(RTTI::RTBaseType& type) const;

    std::vector<std::unique_ptr<RTTI::RTBaseType>> m_types;
};
