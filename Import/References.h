#pragma once

#include "Import/TypeIds.h"
#include "RTTI/RTType.h"

#include <span>
#include <utility>
#include <vector>

namespace Import {

/// Which types refer to which: a copy of the ids in them, which is quick to walk. Types are numbers
/// from 0 on.
class References {
public:
    References() = default;

    /// Appends the references of the next type, which has none if it is null.
    void add(const RTTI::RTBaseType* type);

    /// Appends one reference of the next type, in the order of its record, and ends that type.
    /// @{
    void addId(unsigned int id, bool isPart) {
        m_ids.push_back(id);
        if (isPart)
            m_parts = m_ids.size();
    }
    void endType() {
        m_ends.push_back({m_parts, m_ids.size()});
        m_parts = m_ids.size();
    }
    /// @}

    /// Appends all types of another object.
    void append(References&& other);

    /// Keeps the references of `types` among each other; their places there become their numbers.
    /// They must refer to none but each other.
    void keep(const std::vector<unsigned int>& types);

    /// The number of types.
    unsigned int count() const { return static_cast<unsigned int>(m_ends.size()); }

    /// All types that a type needs, in the order of its record.
    std::span<const unsigned int> of(unsigned int type) const {
        return {m_ids.data() + begin(type), m_ids.data() + m_ends[type].all};
    }

    /// Those types of which its values are made: the first ones of all that it needs. Members of
    /// classes and designated types are not among them, because they are but handles.
    std::span<const unsigned int> parts(unsigned int type) const {
        return {m_ids.data() + begin(type), m_ids.data() + m_ends[type].parts};
    }

private:
    struct Ends {
        std::size_t parts;
        std::size_t all;
    };

    std::size_t begin(unsigned int type) const { return type == 0 ? 0 : m_ends[type - 1].all; }

    std::vector<unsigned int> m_ids; ///< Those of one type after those of the other.
    std::vector<Ends> m_ends;        ///< Of each type's ids.
    std::size_t m_parts = 0;         ///< Where the parts of the next type end so far.
};

/// Puts types in an order in which each comes after those that it leads to, unless these lead back
/// to it. Does not recurse.
class Ordering {
public:
    /// What a type leads to: a function of References.
    using LeadsTo = std::span<const unsigned int> (References::*)(unsigned int type) const;

    explicit Ordering(const References& references, LeadsTo leadsTo = &References::of)
        : m_references(references), m_leadsTo(leadsTo), m_isSeen(references.count(), false) {}

    /// Appends all types that are not there yet and to which this one leads, and itself.
    void walkFrom(unsigned int type);

    /// The types so far.
    const std::vector<unsigned int>& order() const { return m_order; }

private:
    struct Visit {
        unsigned int type;
        std::span<const unsigned int> left; ///< Still to be walked.
    };

    void enter(unsigned int type);

    const References& m_references;
    LeadsTo m_leadsTo;
    std::vector<bool> m_isSeen;
    std::vector<Visit> m_visits;
    std::vector<unsigned int> m_order;
};

} // namespace Import
