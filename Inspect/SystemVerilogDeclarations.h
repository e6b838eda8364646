#pragma once

#include "Inspect/LanguageDeclarations.h"

namespace Inspect {

/// Declarations of IEEE 1800-2017.
class SystemVerilogDeclarations : public LanguageDeclarations {
public:
    SystemVerilogDeclarations(const TypeTable& types, const DeclaredNames& names)
        : LanguageDeclarations(SourceLanguage::SYSTEM_VERILOG, types, names) {}

    std::string declarationOf(unsigned int id) const override;
    std::string announcementOf(unsigned int id) const override;
    void needsOf(unsigned int id, std::vector<TypeNeed>& needs) const override;

private:
    /// A type as a declaration has it around a name: `logic [7:0]` before, ` [0:3]` after.
    struct Parts {
        std::string before;
        std::string after;
    };

    /// Whether a type is written out or called by its name.
    enum class Spelling { NAME, BODY };

    std::string ownObstacleOf(const RTTI::RTBaseType& type) const override;

    /// Arrays without a name are written out within others, up to a depth.
    Parts partsOf(unsigned int id, Spelling spelling, bool isPackedElement = false,
                  int depth = 0) const;
    Parts arrayParts(const RTTI::RTArrayType& type, int depth) const;
    Parts containerParts(const RTTI::RTAbstractArrayType& type, const std::string& dimension,
                         int depth) const;

    std::string typedefOf(unsigned int id, const std::string& before,
                          const std::string& after = {}) const;
    std::string enumeration(unsigned int id, const RTTI::RTDiscreteEnumType& type) const;
    std::string aggregate(unsigned int id, const RTTI::RTRecordType& type) const;
    std::string classDeclaration(unsigned int id, const RTTI::RTClassType& type) const;
    std::string members(const RTTI::RTAggregateType& type) const;
    std::string alias(unsigned int id, const RTTI::RTTypedefType& type) const;
    std::string indexOf(const RTTI::RTAssocArrayType& type) const;
    bool isClass(unsigned int id) const;
};

} // namespace Inspect
