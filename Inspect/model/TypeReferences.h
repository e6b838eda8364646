#pragma once

#include "Inspect/model/TypeTable.h"
#include "TypeFile/TypeFields.h"

#include <string>
#include <vector>

namespace Inspect {

using TypeFile::LinkRole;

/// A reference from one type to another.
struct TypeLink {
    LinkRole role;         ///< The role of the reference.
    unsigned int position; ///< The index of the member or dimension, else 0.
    unsigned int typeId;   ///< The id of the other type, which may not exist.
};

/// Replaces `links` with the references in the fields of a type, in the order of its record; fields
/// that mean "no type" give none. The list belongs to the caller, who can use one for many types.
void linksOf(const RTTI::RTBaseType& type, std::vector<TypeLink>& links);

/// The field that holds the references of a role in types of a class, such as "dataType"; for
/// members their list. Null if the class has none.
const char* fieldOf(LinkRole role, unsigned int classId);

/// The reference in words, with the name of the member or the number of the dimension, such as
/// `member "len"` or "index type of dimension 2". Names are escaped.
std::string linkText(const RTTI::RTBaseType& type, const TypeLink& link);

/// The ids of the types that the fields of a type refer to, each once, in the order of the fields;
/// ids that mean "no type" are left out.
std::vector<unsigned int> referencesOf(const RTTI::RTBaseType& type);

/// The ids of the types of a table that refer to a type, in ascending order. Looks at all of them.
std::vector<unsigned int> referringTo(unsigned int typeId, const TypeTable& types);

} // namespace Inspect
