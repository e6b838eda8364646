#pragma once

#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/Text.h"
#include "Inspect/words/TextStyle.h"
#include "Inspect/words/TypeText.h"

#include <ostream>
#include <string>
#include <unordered_map>

namespace Inspect {

/// Prints types as blocks of lines. Each block is in the stream when its call returns. Takes the
/// memory of a block, or of 64 KiB of a longer one.
class TypeDumper {
public:
    /// The stream must outlive the dumper. `types` gives the types that fields refer to by id, and
    /// the encoding: the one that a type answers when it is asked before all others. Of a long list
    /// of ranges that is wanted whole, each run of equal ranges has a line.
    TypeDumper(std::ostream& out, const TypeTable& types,
               const TextStyle& style = TextStyle::plain(), RangeLists lists = RangeLists::SHORT);
    TypeDumper(const TypeDumper&) = delete;
    TypeDumper& operator=(const TypeDumper&) = delete;

    /// Writes the first line of a type: id, kind and name, or in place of a name the parts.
    void heading(unsigned int id, const RTTI::RTBaseType& type);

    /// Writes a type: id, kind, name, its declaration in its own language, every field and its
    /// answers to queries, with other types shown by id and name, and an empty line at the end. If
    /// the walk that flattens the ranges stops, after as many steps as `mostWalkSteps` says, the
    /// text says so.
    void type(unsigned int id, const RTTI::RTBaseType& type);

private:
    class Fields;

    void writeHeading(unsigned int id, const RTTI::RTBaseType& type);

    Text m_out;
    const TypeTable m_types;
    const TextStyle m_style;
    const RangeLists m_lists;
    unsigned int m_id = 0;                    ///< Of the type being written.
    const RTTI::RTBaseType* m_type = nullptr; ///< It need not be in the table.
    const TypeDeclarations m_declarations;
    std::unordered_map<const char*, std::string> m_fieldLabels; ///< Of those met so far.
};

} // namespace Inspect
