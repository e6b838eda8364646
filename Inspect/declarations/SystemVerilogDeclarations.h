#pragma once

#include "Inspect/declarations/LanguageDeclarations.h"

namespace Inspect {

/// Declarations of IEEE 1800-2017.
class SystemVerilogDeclarations : public LanguageDeclarations {
public:
    /// Keeps references to the types and the names.
    SystemVerilogDeclarations(const TypeTable& types, const DeclaredNames& names)
        : LanguageDeclarations(SourceLanguage::SYSTEM_VERILOG, types, names) {}

    void declare(Text& out, unsigned int id) const override;
    std::string define(Text& out, unsigned int id, std::size_t most) const override;
    std::string announcementOf(unsigned int id) const override;
    void needsOf(unsigned int id, TypeNeeds& needs) const override;
    bool isSpelledOut(unsigned int id) const override;

private:
    /// A type as a declaration has it around a name: `logic [7:0]` before, ` [0:3]` after.
    struct Parts {
        Identifier before;
        std::string after;
    };

    /// Whether a type is written out or called by its name.
    enum class Spelling { NAME, BODY };

    std::string ownObstacleOf(unsigned int id, const TypeNeeds& needs) const override;

    /// Arrays without a name are written out within others, up to a depth.
    Parts partsOf(unsigned int id, Spelling spelling, bool isPackedElement = false,
                  int depth = 0) const;
    Parts arrayParts(const RTTI::RTArrayType& type, int depth) const;
    Parts containerParts(const RTTI::RTAbstractArrayType& type, const std::string& dimension,
                         int depth) const;

    /// Writes ranges that a declaration has no place for, as a comment at the end of its line.
    /// @{
    static void writeWithoutPlace(Text& out, const std::vector<RTTI::FullConstraints>& ranges,
                                  std::size_t first = 0);
    static void writeWithoutPlace(Text& out, const RTTI::RTBaseType& type);
    /// @}

    void enumeration(Text& out, unsigned int id, const RTTI::RTDiscreteEnumType& type,
                     std::size_t most) const;
    void classDeclaration(Text& out, unsigned int id, const RTTI::RTClassType& type) const;
    void members(Text& out, const RTTI::RTAggregateType& type, std::size_t most) const;
    std::string indexOf(const RTTI::RTAssocArrayType& type, int depth) const;
};

} // namespace Inspect
