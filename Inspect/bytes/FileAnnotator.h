#pragma once

#include "Inspect/words/TextStyle.h"
#include "OVAT/IBlockManager.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>

namespace Inspect {

/// How annotated bytes are written.
enum class AnnotationForm {
    TEXT,
    JSON ///< One document, with one line for each field.
};

/// Which bytes to annotate, and how.
struct Annotation {
    unsigned long long baseOffset = 0;          ///< Storage offset of the header.
    std::optional<unsigned int> typeId;         ///< Only this type; without it everything.
    AnnotationForm form = AnnotationForm::TEXT; ///< How to write them.
    TextStyle style = TextStyle::plain();       ///< The style of the text.

    /// If set, returns the shape of a type without a name, such as `logic [7:0]`, and an empty text
    /// for a type with one. Not called if the file has errors, unless `force` is set: a call may
    /// load types.
    std::function<std::string(unsigned int typeId)> shapeOf;
    bool force = false; ///< Whether to call `shapeOf` for a file with errors too.

    /// If set, called with the storage offset up to which everything has been written.
    std::function<void(unsigned long long offset)> progress;
};

/// Writes the bytes of a type file field by field, in the order of the storage: header, address
/// table, records, and the bytes between them. Each finding of the verifier is shown with the bytes
/// that it concerns. No file is refused, however damaged.
///
/// Returns true if there is an error among the findings shown. If only one type is requested, the
/// findings of other types are left out. Exceptions of the storage pass through. The text is
/// written as it is made; memory use is that of the verifier plus 16 bytes for each type.
bool annotate(std::ostream& out, OVAT::IBlockManager& storage, unsigned long long storageSize,
              const Annotation& annotation);

} // namespace Inspect
