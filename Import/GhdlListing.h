#pragma once

#include "Import/Input.h"
#include "Import/ListedUse.h"
#include "Import/Notes.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Import {

/// A unit, or an element of a record.
struct ListedPart {
    std::string name;
    long long value = 0;
    ListedUse use;
};

/// The declaration of a type.
struct ListedType {
    enum class Form : unsigned char {
        ENUMERATION,    ///< Its literals are the names of its parts.
        SCALAR,         ///< A number type; `use` has its range.
        SCALAR_SUBTYPE, ///< `use` is what it is of.
        ARRAY,          ///< Open; `use` is its element.
        ARRAY_SUBTYPE,  ///< `use` is what it is of; an `element` is there for a type in one piece.
        OPEN_SUBTYPE,   ///< Of an array or record, of which it may give some ranges.
        RECORD,
        RECORD_SUBTYPE,
        ALIAS, ///< A subtype that adds nothing.
        ACCESS,
        FILE_TYPE,
        PROTECTED,
        UNSAID,
    };

    Form form = Form::UNSAID;
    std::string name; ///< Empty where the source gives it none.
    std::size_t scope = 0;
    unsigned long long line = 0;
    ListedUse use;
    ListedUse element;
    bool hasElement = false;
    std::vector<ListedPart> parts;
    std::vector<std::string> indexes;
};

/// Where declarations stand; they see those of the scopes around them. The first scope is around
/// all others.
struct ListedScope {
    std::size_t parent = 0;
    std::string package; ///< The one that it is part of, "outer.inner" if that stands in another.
    bool isPackage = false;
};

/// The declarations of a listing.
struct GhdlListing {
    std::vector<ListedScope> scopes;
    std::vector<ListedType> types; ///< In the order of the listing.
};

/// Reads what GHDL prints for `--dump-rti`. What the running design prints before and behind it is
/// passed over; lines of kinds that are not known are noted. Throws ImportError for a listing that
/// is damaged or cut short. Memory grows with the declarations, not with the values of objects.
GhdlListing readGhdlListing(Input& input, Notes& notes);

} // namespace Import
