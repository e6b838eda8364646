#pragma once

#include "Inspect/words/TextStyle.h"
#include "OVAT/IBlockManager.h"

#include <functional>
#include <optional>
#include <ostream>

namespace Inspect {

/// How annotated bytes are written.
enum class AnnotationForm {
    TEXT,
    JSON ///< One document; a line for each field.
};

/// Which bytes to annotate, and how.
struct Annotation {
    unsigned long long baseOffset = 0;          ///< Of the header, in the storage.
    std::optional<unsigned int> typeId;         ///< This type alone; else everything.
    AnnotationForm form = AnnotationForm::TEXT; ///< How to write them.
    TextStyle style = TextStyle::plain();       ///< Of the text.

    /// If there is one, it is told up to where in the storage everything has been written.
    std::function<void(unsigned long long offset)> progress;
};

/// Writes the bytes of a type file field by field, in the order of the storage: header, address
/// table, records, and what lies between them. What the verifier finds stands at the bytes that it
/// is about. A file is never refused: it shows what is there.
///
/// True if there is an error among the findings that are shown; those of other types are not where
/// one type alone is asked for. What the storage throws passes through. Text appears as it is made;
/// memory is that of the verifier and 16 bytes a type.
bool annotate(std::ostream& out, OVAT::IBlockManager& storage, unsigned long long storageSize,
              const Annotation& annotation);

} // namespace Inspect
