#pragma once

#include "TypeFile/TypeFields.h"

namespace Import {

/// Calls `take` with each field of a type that holds the id of another one, in the order of the
/// record; not for those that may be and are empty. The fields of a type that may be changed can be
/// changed.
template <typename Type, typename Take> void forEachTypeId(Type& type, Take take) {
    TypeFile::forEachReference(type, [&](auto& id, const auto& form, std::size_t) {
        if (!form.mayBeNone || id != RTTI::TypeFileFormat::NO_TYPE_ID)
            take(id);
    });
}

} // namespace Import
