#pragma once

#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"

#include <string_view>
#include <vector>

namespace Inspect {

/// What declarations of one language have to know of types before these get their names.
///
/// A typedef that has the name of its data type and adds nothing is treated as that type.
class DeclaredTypes {
public:
    /// When types are looked at.
    enum class Examination {
        ON_REQUEST, ///< Whenever something is asked.
        IN_ADVANCE  ///< By the constructor, which takes about 32 bytes for each type.
    };

    /// Keeps a copy of the table, whose types have to outlive this.
    DeclaredTypes(const TypeTable& types, SourceLanguage language, Examination examination);

    /// The name that a type has from the design, or nothing.
    std::string_view givenName(unsigned int id) const {
        return isExamined() ? factsOf(id).name : nameAsked(id);
    }

    /// The class of a type; 0 if there is none with this id. Costs no look at a type that was
    /// examined in advance.
    unsigned int classOf(unsigned int id) const {
        return isExamined() ? factsOf(id).classId : classAsked(id);
    }

    /// Whether there is a type with this id and it belongs to the language.
    bool isOfLanguage(unsigned int id) const {
        return isExamined() ? factsOf(id).isOfLanguage : isOfLanguageAsked(id);
    }

    /// Whether the language predefines the type. Always false in VHDL for types that are not
    /// examined in advance, where a declaration can be shown.
    bool isPredefined(unsigned int id) const {
        return isExamined() ? factsOf(id).isPredefined : isPredefinedAsked(id);
    }

    /// The type whose declaration a typedef shares; for all other types the id itself.
    unsigned int declaredType(unsigned int id) const {
        if (!isExamined())
            follow(id);
        return id < m_facts.size() ? m_facts[id].declaredType : id;
    }

    /// Whether a typedef of the type that adds something has its name. Only known of types that
    /// were examined in advance.
    bool yieldsName(unsigned int id) const { return factsOf(id).yieldsName; }

    /// Whether types are examined in advance.
    bool isExamined() const { return m_examination == Examination::IN_ADVANCE; }

protected:
    /// Follows typedefs to the type whose declaration they share; null if there is none.
    const RTTI::RTBaseType* follow(unsigned int& id) const;

    /// Whether SystemVerilog predefines the type, in declarations of it.
    bool isKeyword(const RTTI::RTBaseType& type) const;

    // NOLINTBEGIN(misc-non-private-member-variables-in-classes): a class that adds names shares
    // them.
    TypeTable m_types;         ///< The types.
    SourceLanguage m_language; ///< Of the declarations.
    // NOLINTEND(misc-non-private-member-variables-in-classes)

private:
    struct Facts {
        std::string_view name;         ///< From the design, or empty.
        unsigned int declaredType = 0; ///< The type whose declaration it shares.
        unsigned int classId = 0;      ///< 0 if there is no type.
        bool isOfLanguage = false;
        bool isPredefined = false;
        bool yieldsName = false; ///< Its subtype has its name.
    };

    /// What was found out in advance.
    const Facts& factsOf(unsigned int id) const {
        static constexpr Facts NONE{};
        return id < m_facts.size() ? m_facts[id] : NONE;
    }

    /// The same on request.
    /// @{
    std::string_view nameAsked(unsigned int id) const;
    unsigned int classAsked(unsigned int id) const;
    bool isOfLanguageAsked(unsigned int id) const;
    bool isPredefinedAsked(unsigned int id) const;
    /// @}

    void examineTypes();
    void findDeclaredTypes();
    bool addsNothing(const RTTI::RTTypedefType& alias) const;
    bool hasNameOfItsData(unsigned int id, const RTTI::RTTypedefType& alias) const;

    /// Whether the language predefines a type of it that has a name.
    bool isPredefinedName(const RTTI::RTBaseType& type) const;

    Examination m_examination;
    std::vector<Facts> m_facts; ///< Of types, if they are examined in advance.
};

} // namespace Inspect
