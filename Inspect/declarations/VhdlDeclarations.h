#pragma once

#include "Inspect/declarations/LanguageDeclarations.h"

#include <optional>

namespace Inspect {

/// Declarations of IEEE 1076-2008.
class VhdlDeclarations : public LanguageDeclarations {
public:
    /// Keeps references to the types and the names.
    VhdlDeclarations(const TypeTable& types, const DeclaredNames& names)
        : LanguageDeclarations(SourceLanguage::VHDL, types, names) {}

    void declare(Text& out, unsigned int id) const override;
    std::string define(Text& out, unsigned int id, std::size_t most) const override;
    std::string announcementOf(unsigned int id) const override;
    void needsOf(unsigned int id, TypeNeeds& needs) const override;
    bool isSpelledOut(unsigned int id) const override;

private:
    using Ranges = std::vector<RTTI::FullConstraints>;
    class ConstraintText;

    std::string ownObstacleOf(unsigned int id, const TypeNeeds& needs) const override;

    void enumeration(Text& out, unsigned int id, std::size_t most) const;
    void physical(Text& out, unsigned int id, const RTTI::RTPhysicalType& type,
                  std::size_t most) const;
    void array(Text& out, const RTTI::RTArrayType& type, std::size_t most) const;
    void record(Text& out, const RTTI::RTRecordType& type, std::size_t most) const;
    void subtype(Text& out, unsigned int id, const RTTI::RTTypedefType& type) const;

    /// What an access type designates: where that is a typedef that shares another type's
    /// declaration, the latter, which can be announced.
    unsigned int designated(const RTTI::RTAccessType& type) const {
        return m_names.declaredType(type.m_refTypeId);
    }

    /// The type that a user with `ranges` calls by its name: not a subtype without a name, unless
    /// it is constrained further.
    const RTTI::RTTypedefType* spelledOut(unsigned int id) const;
    const RTTI::RTTypedefType* spelledOut(unsigned int id, const Ranges& ranges) const;
    unsigned int calledType(unsigned int id, const Ranges& ranges) const;

    /// Writes a type's name with what `ranges` constrain of it; subtypes without a name are written
    /// out.
    void indication(Text& out, unsigned int id, const Ranges& ranges) const;

    /// Writes what `ranges` add to a type: a range, or constraints of dimensions and members.
    void constraint(Text& out, unsigned int id, const Ranges& ranges) const;

    /// Writes a range, or a bound, of the values of a base type.
    /// @{
    void scalarRange(Text& out, const RTTI::RTBaseType& base, unsigned int baseId,
                     const RTTI::FullConstraints& range) const;
    void bound(Text& out, const RTTI::RTBaseType& base, unsigned int baseId, int value) const;
    /// @}

    /// Writes a range of an index type: bounds, or literals where it is an enumeration.
    void discreteRange(Text& out, unsigned int indexTypeId,
                       const RTTI::FullConstraints& range) const;

    /// The type that typedefs lead to, with its id.
    std::optional<unsigned int> baseOf(unsigned int id) const;
};

/// A real number in the notation of both languages, with a point. Reading it gives the same number.
std::string realLiteral(double number);

} // namespace Inspect
