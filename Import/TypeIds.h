#pragma once

#include "TypeFile/TypeFields.h"

#include <type_traits>

namespace Import {

/// Calls `take(id)` or `take(id, role)` with each field of a type that holds the id of another one,
/// in the order of the record; not for those that may be and are empty. The fields of a type that
/// may be changed can be changed.
template <typename Type, typename Take> void forEachTypeId(Type& type, Take take) {
    TypeFile::forEachReference(type, [&](auto& id, const auto& form, std::size_t) {
        if (form.mayBeNone && id == RTTI::TypeFileFormat::NO_TYPE_ID)
            return;
        if constexpr (std::is_invocable_v<Take, decltype(id), TypeFile::LinkRole>)
            take(id, form.role);
        else
            take(id);
    });
}

} // namespace Import
