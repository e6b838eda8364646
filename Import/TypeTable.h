#pragma once

#include "Import/Notes.h"
#include "Import/Place.h"
#include "RTTI/RTType.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Import {

/// Types while they are made out of one or several inputs. A reader adds a type as soon as it meets
/// it, under an id of its own, and may refer to types that follow by ids that it takes beforehand.
/// In the end those that are wanted, and what they need, are numbered anew; equal ones have become
/// one.
///
/// A type is a run-time object of the library whose fields hold ids of this table; the table owns
/// it. SystemVerilog type ids are given in the end: readers leave them alone.
class TypeTable {
public:
    /// Takes an id for a type that is still to come. One that never comes leaves out every type
    /// that needs it; `what` calls it in the note about that, such as "class p::base".
    unsigned int reserve(const std::string& what);

    /// Gives the type for an id that was taken. Each id gets one.
    void fill(unsigned int id, std::unique_ptr<RTTI::RTBaseType> type, const Place& place);

    /// Adds a type under the next id.
    unsigned int add(std::unique_ptr<RTTI::RTBaseType> type, const Place& place);

    /// The type with this id, or null while it is still to come. The table owns it.
    RTTI::RTBaseType* find(unsigned int id) const { return m_types[id].type.get(); }

    /// How many ids were given.
    unsigned int size() const { return static_cast<unsigned int>(m_types.size()); }

    /// Says that the type is to be in the result: it was declared in a package, or declared or used
    /// elsewhere (an empty name). What is neither wanted nor needed is dropped in the end.
    void want(unsigned int id, std::string_view package);

    /// The wanted types and what they need, in the order of their new ids: a type comes after those
    /// that it needs, unless they need one another, else in the order in which they were wanted.
    /// `packages`, if there are any, says whose declarations alone are wanted; one that no input
    /// has throws ImportError, and so does a type that is a part of itself with no class or access
    /// type in between. What is left out is noted. The table is empty afterwards. Takes
    /// O(m log n) for m references of n types, and no recursion.
    std::vector<std::unique_ptr<RTTI::RTBaseType>> finish(const std::vector<std::string>& packages,
                                                          Notes& notes);

private:
    struct Entry {
        std::unique_ptr<RTTI::RTBaseType> type;
        Place place;
        std::string what; ///< While the type is still to come.
    };
    struct Wanted {
        unsigned int id;
        unsigned int package;
    };

    unsigned int packageNumber(const std::string& package) const;
    std::vector<unsigned int> wantedIds(const std::vector<std::string>& packages) const;
    std::vector<unsigned int> missingTypes() const;
    std::vector<unsigned int> completeTypes(const std::vector<unsigned int>& wanted, Notes& notes);
    void checkParts(const std::vector<unsigned int>& needed) const;
    void joinEqual(std::vector<unsigned int>& wanted);

    std::vector<Entry> m_types;
    std::vector<Wanted> m_wanted;
    std::vector<std::string> m_packages; ///< In the order in which they were met.
    std::unordered_map<std::string, unsigned int> m_packageNumbers;
};

} // namespace Import
