#pragma once

#include "Inspect/json/JsonError.h"
#include "RTTI/RTType.h"

#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// Reads types from their JSON form, one after the other, in the order of the text. Memory use is a
/// few bytes for each type.
class TypeJsonReader {
public:
    /// Receives a type that has been read; the type exists only during the call. An exception ends
    /// the reading; a TypeFile::WriteError is given the place in the text.
    using TakeType = std::function<void(unsigned int id, const RTTI::RTBaseType& type)>;

    /// Receives the version text, at most once.
    using TakeVersion = std::function<void(std::string_view version)>;

    /// The functions are called while a text is read, in the order of the text.
    TypeJsonReader(TakeType takeType, TakeVersion takeVersion);

    /// Reads one document. Throws JsonError.
    void readDocument(std::istream& in);

    /// Reads the line form: one object on each line; empty lines are ignored. Throws JsonError.
    void readLines(std::istream& in);

    /// The place of a field of a type that has been read, with `field` as in TypeFile::WriteError.
    std::string placeOf(unsigned int typeId, const std::string& field) const;

private:
    class Scan;

    TakeType m_takeType;
    TakeVersion m_takeVersion;
    std::vector<unsigned int> m_typeIds; ///< Ids of the types so far, in the order of the text.
    std::vector<std::size_t> m_lines;    ///< The line of each type, in the line form.
};

} // namespace Inspect
