#pragma once

#include "Inspect/json/JsonError.h"
#include "RTTI/RTType.h"

#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// Reads types from their JSON form, one after the other, in the order of the text. Memory does not
/// grow with the number of types but for a few bytes each.
class TypeJsonReader {
public:
    /// Takes a type that was read; it is gone afterwards. What it throws ends the reading; a
    /// TypeFile::WriteError gets the place in the text.
    using TakeType = std::function<void(unsigned int id, const RTTI::RTBaseType& type)>;

    /// Takes the version text, at most once.
    using TakeVersion = std::function<void(std::string_view version)>;

    /// The functions are called while a text is read, in its order.
    TypeJsonReader(TakeType takeType, TakeVersion takeVersion);

    /// Reads one document. Throws JsonError.
    void readDocument(std::istream& in);

    /// Reads an object a line; empty lines are passed over. Throws JsonError.
    void readLines(std::istream& in);

    /// The place of a field of a type that was read; `field` as in TypeFile::WriteError.
    std::string placeOf(unsigned int typeId, const std::string& field) const;

private:
    class Scan;

    TakeType m_takeType;
    TakeVersion m_takeVersion;
    std::vector<unsigned int> m_typeIds; ///< Of the types so far, in the order of the text.
    std::vector<std::size_t> m_lines;    ///< Where each stands, if each line is a text of its own.
};

} // namespace Inspect
