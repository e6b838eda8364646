#pragma once

#include "RTTI/RTType.h"

#include <string>
#include <vector>

namespace Inspect {

/// What a type refers to another one for.
enum class LinkRole {
    ALIASED,      ///< The type behind a typedef.
    BASE_TYPE,    ///< Of a discrete enumeration.
    DESIGNATED,   ///< By an access type.
    FILE_ELEMENT, ///< Of a file type.
    ELEMENT,      ///< Of an array.
    INDEX,        ///< Of an array.
    BASE_CLASS,   ///< Of a class.
    MEMBER        ///< Of a record, struct, union or class.
};

/// A reference from one type to another.
struct TypeLink {
    LinkRole role;         ///< What for.
    unsigned int position; ///< Of the member, or of the index's dimension; else 0.
    unsigned int typeId;   ///< Of the other type, which the file may not have.
};

/// Replaces `links` by the references in a type's own fields, in the order of its record; fields
/// that say "no type" give none. The list is the caller's, so that one serves many types.
void linksOf(const RTTI::RTBaseType& type, std::vector<TypeLink>& links);

/// The reference in words, with the name of the member or the number of the dimension, such as
/// `member "len"` or "index type of dimension 2"; all bytes of names escaped.
std::string linkText(const RTTI::RTBaseType& type, const TypeLink& link);

/// The ids of the types that a type's own fields refer to, each once, in the order of the fields;
/// ids that say "no type" are left out.
std::vector<unsigned int> referencesOf(const RTTI::RTBaseType& type);

} // namespace Inspect
