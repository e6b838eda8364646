#pragma once

#include "RTTI/OwnedName.h"
#include "TypeFile/TypeFields.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Inspect {

// What the readers of a type's fields share.

/// Whether a field may be left out, and then has the value that it has in a new object.
template <typename FieldForm> constexpr bool isOptional(const FieldForm&) { return false; }
constexpr bool isOptional(TypeFile::Form::Flags) { return true; }
constexpr bool isOptional(TypeFile::Form::Ranges) { return true; }
constexpr bool isOptional(TypeFile::Form::SVTypeId) { return true; }
constexpr bool isOptional(TypeFile::Form::Boolean) { return true; }

inline void setText(std::string& text, std::string_view from) { text = from; }
inline void setText(char*& text, std::string_view from) {
    char* const copy = RTTI::copyOfName(from);
    delete[] std::exchange(text, copy);
}

/// Appends an object that has no values yet. The list owns it.
template <typename Entry> Entry& appendTo(std::vector<Entry>& list) { return list.emplace_back(); }
template <typename Entry, typename Base> Entry& appendTo(std::vector<Base*>& list) {
    auto entry = std::make_unique<Entry>();
    list.push_back(entry.get());
    return *entry.release();
}

} // namespace Inspect
