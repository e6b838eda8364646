#pragma once

#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"
#include "OVAT/IBlockManager.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace Inspect {

/// What types are and refer to, in a few words of memory each: no names, ranges or values. Made
/// from types, or from their records without an object of any.
class TypeOutlines {
public:
    /// A type, or an id without one.
    struct Outline {
        unsigned int kindCode = 0; ///< 0 for an id without a type.
        unsigned int detail = 0;   ///< See `kindDetailOf`.
        unsigned int parts = 0;    ///< The number of members, literals or units.
        unsigned int linkCount = 0;
        std::size_t linksBegin = 0;
        unsigned long long bytes = 0; ///< Of the record.
        /// None where it is that of the first type that this one refers to.
        std::optional<SourceLanguage> language;
    };

    /// A reference in the fields of a type, in the order of its record, whatever the id.
    struct Link {
        unsigned int typeId;
        bool isByValue; ///< What is referred to is a part of each value, or what the type stands
                        ///< for.
        bool isBaseClass;
    };

    TypeOutlines(const TypeTable& types,
                 const std::function<unsigned long long(unsigned int)>& recordSizes);

    /// Reads the records of a type file that has no errors, in the order of the storage.
    TypeOutlines(OVAT::IBlockManager& storage, unsigned long long storageSize,
                 unsigned long long baseOffset);

    unsigned int count() const { return static_cast<unsigned int>(m_types.size()); }
    const Outline& operator[](unsigned int id) const { return m_types[id]; }

    /// Whether the table has an id, with a type.
    bool hasType(unsigned int id) const { return id < count() && m_types[id].kindCode != 0; }

    std::span<const Link> linksOf(unsigned int id) const {
        return std::span(m_links).subspan(m_types[id].linksBegin, m_types[id].linkCount);
    }

    /// The language of a type, as `languageOf` tells it.
    SourceLanguage languageOf(unsigned int id) const;

private:
    class RecordReader;

    Outline outlineOf(const RTTI::RTBaseType& type);

    std::vector<Outline> m_types; ///< By id.
    std::vector<Link> m_links;
};

} // namespace Inspect
