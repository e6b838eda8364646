#pragma once

#include "Inspect/model/TypeTable.h"
#include "RTTI/OwnedName.h"
#include "RTTI/RTType.h"
#include "tests/support/Ranges.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace RTTITest {

using RTTI::TypeFileFormat::NO_TYPE_ID;

/// Types that refer to one another by id, in the order in which they are added, from 0 on; ids of
/// types to come may be used, and cycles be made. A type that is asked for has the links that a
/// loader would make, and so have those that it leads to.
class LinkedTypes {
public:
    using Ids = std::vector<unsigned int>;

    /// A member to be: its name, its type's id, and what narrows that.
    struct Member {
        std::string name;
        unsigned int typeId;
        Ranges ranges = {};
    };

    /// With arguments, the type is constructed from them behind its name. The ids in it may be
    /// changed until a type is asked for; `as` gives it for changes that come later.
    template <typename Type, typename... Arguments>
    Type& add(const std::string& name = "", Arguments... arguments) {
        std::unique_ptr<Type> type;
        if constexpr (sizeof...(arguments) == 0)
            type = std::make_unique<Type>();
        else
            type = std::make_unique<Type>(nullptr, arguments...);
        type->m_name = RTTI::copyOfName(name);
        Type& added = *type;
        append(std::move(type));
        return added;
    }

    /// A type as its constructor makes it; gives the id, like all shorthands.
    template <typename Type> unsigned int plain(const std::string& name = "") {
        add<Type>(name);
        return last();
    }

    // For what many tests need. Those without a name for the type have none for its members either.
    unsigned int integer(const std::string& name = "", int left = 0, int right = 7);
    unsigned int enumeration(const std::string& name, const std::vector<std::string>& literals);
    unsigned int seqEnum(RTTI::ValueEncoding encoding);
    unsigned int discreteEnum(unsigned int base, Ranges ranges = {});
    unsigned int string();
    unsigned int alias(const std::string& name, unsigned int data, Ranges ranges = {});
    unsigned int alias(unsigned int data, Ranges ranges = {}) {
        return alias("", data, std::move(ranges));
    }
    unsigned int access(const std::string& name, unsigned int designated);
    unsigned int vhdlArray(const std::string& name, unsigned int element, const Ids& indices,
                           Ranges ranges);

    /// With one dimension a range, or with as many as are wanted.
    unsigned int array(RTTI::ArrayKind kind, const std::string& name, unsigned int element,
                       Ranges ranges);
    unsigned int array(RTTI::ArrayKind kind, unsigned int element, std::size_t dimensions,
                       Ranges ranges);
    unsigned int vhdlArray(unsigned int element, Ranges ranges) {
        return array(RTTI::VHDL_ARRAY, "", element, std::move(ranges));
    }
    unsigned int packed(const std::string& name, unsigned int element, Ranges ranges) {
        return array(RTTI::VLOG_FIXED_PACKED_ARRAY, name, element, std::move(ranges));
    }
    unsigned int packed(unsigned int element, Ranges ranges) {
        return packed("", element, std::move(ranges));
    }

    /// A queue, or another array whose length varies.
    template <typename Container>
    unsigned int container(const std::string& name, unsigned int element) {
        add<Container>(name).m_elementTypeId = element;
        return last();
    }
    template <typename Container> unsigned int container(unsigned int element) {
        return container<Container>("", element);
    }
    unsigned int queue(unsigned int element) { return container<RTTI::RTQueueType>(element); }

    unsigned int structure(const std::string& name, const std::vector<Member>& members,
                           RTTI::RecordKind kind = RTTI::VLOG_UNPACKED_STRUCT);
    unsigned int structure(const Ids& members = {}) {
        return record(RTTI::VLOG_UNPACKED_STRUCT, members);
    }
    unsigned int record(RTTI::RecordKind kind, const Ids& members = {});
    unsigned int classType(const std::string& name, const std::vector<Member>& members,
                           unsigned int base = NO_TYPE_ID);
    unsigned int classType(const Ids& members = {}, unsigned int base = NO_TYPE_ID);

    /// Appends a member to a record, struct, union or class.
    void addMember(unsigned int aggregate, const Member& member);
    void addMember(unsigned int aggregate, unsigned int type, Ranges ranges = {}) {
        addMember(aggregate, {"", type, std::move(ranges)});
    }

    /// SystemVerilog's logic and bit.
    unsigned int logic();
    unsigned int bit();

    /// A place in the table without a type.
    unsigned int hole();

    unsigned int last() const { return size() - 1; }
    unsigned int size() const { return static_cast<unsigned int>(m_places.size()); }

    /// Links what was added, or given for changes, since a type was asked for the last time, and
    /// what waits for ids to come. Changes of the result show in its links when a type is asked for
    /// again.
    RTTI::RTBaseType& operator[](unsigned int id);
    const RTTI::RTBaseType& operator[](unsigned int id) const;
    template <typename Type> Type& as(unsigned int id) { return dynamic_cast<Type&>((*this)[id]); }

    /// The type as it is, or null if there is none.
    const RTTI::RTBaseType* find(unsigned int id) const;

    /// Links all types and gives them.
    Inspect::TypeTable table() const {
        linkAll();
        return {size(), [this](unsigned int id) { return find(id); }};
    }

private:
    struct Place {
        std::unique_ptr<RTTI::RTBaseType> type; ///< Null for a hole.
        bool isMarked = false;                  ///< To be linked.
    };

    void append(std::unique_ptr<RTTI::RTBaseType> type);
    void markForLinking(unsigned int id) const;
    void linkMarked() const;
    void linkAll() const;

    /// Returns whether all types are there that it refers to.
    bool link(RTTI::RTBaseType& type) const;

    mutable std::vector<Place> m_places;
    mutable Ids m_marked;
};

/// Members of these types with the names "a", "b" and so on.
std::vector<LinkedTypes::Member> lettered(const LinkedTypes::Ids& types);

} // namespace RTTITest
