#pragma once

#include "Inspect/model/TypeReferences.h"
#include "Inspect/model/TypeTable.h"

#include <cstddef>
#include <vector>

namespace Inspect {

/// A type that leads to another one, with the first reference of the shortest way there.
struct Use {
    unsigned int typeId;
    TypeLink link;
    unsigned int distance; ///< References on the way.
};

/// Calls `act` with the id, the type and the link of every reference to a type of the table, in the
/// order of the ids, until it says false.
template <typename Action> void forEachLink(const TypeTable& types, Action act) {
    std::vector<TypeLink> links;
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTTI::RTBaseType* type = types.typeOf(id);
        if (type == nullptr)
            continue;
        linksOf(*type, links);
        for (const TypeLink& link : links) {
            if (link.typeId < types.count && !act(id, *type, link))
                return;
        }
    }
}

/// The references of a table from their other end: for each type those that lead to it. Made in two
/// passes over the table, in memory for every reference.
class UseIndex {
public:
    explicit UseIndex(const TypeTable& types);

    /// The references to `id`, in the order of the types that they belong to; the distance is 1.
    std::vector<Use> referencesTo(unsigned int id) const;

    /// The types that lead to `id`, each once and without `id` itself: nearest first, and among
    /// those that are as near in the order of the types that they refer to, then of the ids. Ways
    /// lead through types that come before.
    std::vector<Use> usesOf(unsigned int id) const;

private:
    /// A reference, at the type that it leads to.
    struct BackLink {
        unsigned int from;
        LinkRole role;
        unsigned int position;
    };

    unsigned int m_count;
    std::vector<std::size_t> m_begins; ///< For each type, and one more: of its back links.
    std::vector<BackLink> m_backLinks;
};

} // namespace Inspect
