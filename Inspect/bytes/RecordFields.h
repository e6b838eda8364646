#pragma once

#include "RTTI/TypeFileFormat.h"
#include "TypeFile/RecordLayout.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace TypeFile {
class StorageWindow;
}

namespace Inspect {

using TypeFile::FieldForm;

/// The word for a form where programs read it, such as "typeId".
std::string_view wordOf(FieldForm form);

/// What a SystemVerilog type id means to the library; empty for most.
std::string_view svTypeIdMeaning(int id);

/// How much of a field there is.
enum class FieldState {
    WHOLE,
    PARTIAL, ///< Its first bytes: the record or the storage ends inside it.
    MISSING, ///< Nothing of it.
    UNREAD   ///< No field: bytes that the loader passes over.
};

/// The word for a state, such as "missing".
std::string_view wordOf(FieldState state);

/// A field as the loader reads it. A long list of which nothing is there is one field, too.
struct RecordField {
    FieldState state;
    FieldForm form;
    std::string name;          ///< As findings have it: "members[3].type"; of an UNREAD what it is.
    unsigned long long offset; ///< In the storage.
    unsigned long long size;   ///< Of the bytes that are there; offset and size lie in the storage.
    std::string value;         ///< Escaped. Of long names the beginning.
    std::string meaning;       ///< May be empty.

    /// The type that the field refers to, or NO_TYPE_ID.
    unsigned int typeId = RTTI::TypeFileFormat::NO_TYPE_ID;

    /// Of several entries of a list that are missing together, the last; the name has the first.
    std::optional<unsigned int> lastItem = {};
};

/// Takes a field. False says that no more are wanted.
using TakeField = std::function<bool(const RecordField&)>;

/// The words for a type in the meaning of a field that refers to it.
using DescribeType = std::function<std::string(unsigned int typeId)>;

/// Gives the fields of the record at `address` in their order, as the loader reads them, and the
/// answer is the first byte behind the record. The fields cover all bytes of the record that are in
/// the storage, each once. At most one field is in memory, and no more than its first bytes: what
/// counts and sizes claim costs nothing.
unsigned long long readRecordFields(TypeFile::StorageWindow& storage, unsigned long long address,
                                    const DescribeType& describe, const TakeField& take);

/// The same for the header of a type file.
unsigned long long readHeaderFields(TypeFile::StorageWindow& storage, unsigned long long address,
                                    const TakeField& take);

/// What the list of types says of a type, read from its record alone.
struct RecordHead {
    bool isThere = false; ///< Size and kind are in the storage.
    unsigned int kindCode = 0;
    std::string_view kind; ///< In the words of `kindOf`.
    std::optional<unsigned int>
        detail;        ///< The array kind or record kind, where the record is read so far.
    std::string label; ///< The name in quotes, of a long one the beginning; empty without a name.
};

/// The least that a window needs for `recordHeadAt`, which looks no further: a longer name hides
/// the kind of an array or record.
inline constexpr std::size_t RECORD_HEAD_BLOCK = 1024;

RecordHead recordHeadAt(TypeFile::StorageWindow& storage, unsigned long long address);

} // namespace Inspect
