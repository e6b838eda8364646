#pragma once

#include "Import/Notes.h"
#include "Import/VhdlTypes.h"

#include <string>

namespace Import {

/// Notes what records cannot hold of VHDL types, and what the input does not say about them. Both
/// arguments of the constructor have to outlive the object.
class VhdlNotes {
public:
    VhdlNotes(const VhdlTypes& types, Notes& notes) : m_types(types), m_notes(notes) {}

    void add(const VhdlType& type, const std::string& text);

    /// What there is to say of a type apart from those that it uses, and their ranges.
    void addOf(const VhdlType& type);

    /// The uses in a type that can mean several others.
    void alternatives(const VhdlType& type);

    /// A range in a type of which a record has 32 bits.
    void cutRange(const VhdlType& type, const VhdlRange& range);

    void missingRanges(const VhdlType& type);

private:
    void ofInteger(const VhdlType& type);
    void ofReal(const VhdlType& type);
    void ofSubtype(const VhdlType& type);
    void lostRange(const VhdlType& type, const VhdlType& physical);
    void resolution(const VhdlType& type, const VhdlType& base);

    const VhdlTypes& m_types;
    Notes& m_notes;
};

} // namespace Import
