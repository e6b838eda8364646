#pragma once

#include "RTTI/RTType.h"

#include <string>
#include <vector>

namespace Inspect {

/// The role of a reference from one type to another.
enum class LinkRole {
    ALIASED,      ///< The type behind a typedef.
    BASE_TYPE,    ///< The base type of a discrete enumeration.
    DESIGNATED,   ///< The type that an access type designates.
    FILE_ELEMENT, ///< The element type of a file type.
    ELEMENT,      ///< The element type of an array.
    INDEX,        ///< An index type of an array.
    BASE_CLASS,   ///< The base class of a class.
    MEMBER        ///< The type of a member of a record, struct, union or class.
};

/// A reference from one type to another.
struct TypeLink {
    LinkRole role;         ///< The role of the reference.
    unsigned int position; ///< The index of the member or dimension, else 0.
    unsigned int typeId;   ///< The id of the other type, which may not exist.
};

/// Replaces `links` with the references in the fields of a type, in the order of its record; fields
/// that mean "no type" give none. The list belongs to the caller, who can use one for many types.
void linksOf(const RTTI::RTBaseType& type, std::vector<TypeLink>& links);

/// The reference in words, with the name of the member or the number of the dimension, such as
/// `member "len"` or "index type of dimension 2". Names are escaped.
std::string linkText(const RTTI::RTBaseType& type, const TypeLink& link);

/// The ids of the types that the fields of a type refer to, each once, in the order of the fields;
/// ids that mean "no type" are left out.
std::vector<unsigned int> referencesOf(const RTTI::RTBaseType& type);

} // namespace Inspect
