#pragma once

#include "Import/Notes.h"
#include "Import/Place.h"
#include "RTTI/RTType.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Import {

class References;
class TypeSource;

/// The types of one or several inputs while they are being read. A reader adds each type as soon as
/// it finds it, under an id of its own, and refers to later types by ids that it has reserved. At
/// the end, the types that are wanted, and the types that these need, get new ids, and equal types
/// become one.
///
/// A type is a run-time object of the library whose fields hold ids of this table, which owns it.
/// `finish` assigns the SystemVerilog type ids; readers do not set them.
class TypeTable {
public:
    /// Receives a type of the result.
    using TakeType = std::function<void(const RTTI::RTBaseType& type)>;

    /// A table without types.
    TypeTable();
    TypeTable(const TypeTable&) = delete;
    TypeTable& operator=(const TypeTable&) = delete;
    ~TypeTable();

    /// Reserves an id for a type that follows later, or is left out.
    unsigned int reserve();

    /// Sets the type of a reserved id, once for each id.
    void fill(unsigned int id, std::unique_ptr<RTTI::RTBaseType> type, const Place& place);

    /// Says that the type of a reserved id does not exist. All types that need it are left out;
    /// `what` names it in the notes about that, such as "type t".
    void leaveOut(unsigned int id, const std::string& what);

    /// Adds a type under the next id.
    unsigned int add(std::unique_ptr<RTTI::RTBaseType> type, const Place& place);

    /// Adds the types of a source under the ids from `size()` on, in their order. At most once, and
    /// no types are added afterwards.
    void addSource(std::unique_ptr<TypeSource> source);

    /// The type with this id, or null if it has not been set yet. The table owns it.
    RTTI::RTBaseType* find(unsigned int id) const { return m_types[id].type.get(); }

    /// The number of ids, including reserved ones.
    unsigned int size() const;

    /// Requests the type for the result: it was declared in a package, or declared or used
    /// elsewhere (an empty name). `finish` drops types that are neither wanted nor needed by
    /// others.
    void want(unsigned int id, std::string_view package);

    /// Hands over the wanted types and the types that they need, in the order of their new ids: a
    /// type comes after those that it needs, unless they need one another, otherwise in the order
    /// in which they were wanted. If `packages` is not empty, only declarations of these packages
    /// are wanted. Throws ImportError for a package that no input has, and for a type that contains
    /// itself with no class or access type in between. Types that are left out are noted. Must be
    /// the last call, made once. Takes O(m log n) time for m references of n types, without
    /// recursion.
    ///
    /// A type that was added exists as long as the table; one of a source exists, as an object,
    /// until the next one is handed over. `take` is called when all checks have been made and all
    /// notes been given; what it throws passes through.
    void finish(const std::vector<std::string>& packages, Notes& notes, const TakeType& take);

private:
    struct Entry {
        std::unique_ptr<RTTI::RTBaseType> type;
        Place place;
    };
    struct Wanted {
        unsigned int id;
        unsigned int package;
    };

    References takeReferences();
    std::string_view nameOf(unsigned int id) const;
    Place placeOf(unsigned int id) const;
    RTTI::RTBaseType& object(unsigned int id);
    unsigned int numberPackage(std::string_view package);
    unsigned int packageNumber(const std::string& package) const;
    std::vector<unsigned int> wantedIds(const std::vector<std::string>& packages) const;
    std::vector<unsigned int> completeTypes(const References& references,
                                            const std::vector<unsigned int>& wanted,
                                            Notes& notes) const;
    void handOver(const std::vector<unsigned int>& order, const References& references,
                  const TakeType& take);

    std::vector<Entry> m_types;
    std::unique_ptr<TypeSource> m_source; ///< Of the ids after those of `m_types`; may be null.
    std::map<unsigned int, std::string> m_leftOut; ///< Ids whose types do not exist, in words.
    std::vector<Wanted> m_wanted;
    std::vector<std::string> m_packages; ///< In the order in which they were found.
    std::unordered_map<std::string, unsigned int> m_packageNumbers;
};

} // namespace Import
