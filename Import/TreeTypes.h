#pragma once

#include "Import/ImportOptions.h"
#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TreeContents.h"
#include "Import/TypeTable.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Import {

/// Makes types of what a tree dump says: those that are declared or used, and what they need. No
/// recursion: a type is given its id when something refers to it, and made in its turn.
class TreeTypes {
public:
    /// `input` has been read; it says where notes belong.
    TreeTypes(const TreeContents& contents, const ImportOptions& options, const Input& input,
              TypeTable& types, Notes& notes);

    /// Throws ImportError where the dump refers to what it does not have.
    void add();

private:
    void nameTypes();
    void declare(const TreeDeclaration& declaration);
    void declareTypedef(const TreeDeclaration& declaration);

    const TreeType& typeAt(TreeAddress address, unsigned long long line) const;
    TreeAddress behindAliases(TreeAddress address, unsigned long long line) const;
    unsigned int idOf(TreeAddress address, unsigned long long line);
    unsigned int idOfClass(TreeAddress address, unsigned long long line);
    void make(TreeAddress address);

    // Each makes a type of its kind; null for one that cannot be made, which has been noted.
    using Made = std::unique_ptr<RTTI::RTBaseType>;
    Made makeType(TreeAddress address, const TreeType& type);
    Made makeBasic(const TreeType& type);
    Made makeEnum(TreeAddress address, const TreeType& type);
    Made makeStruct(TreeAddress address, const TreeType& type);
    Made makeArray(const TreeType& type);
    Made makeInterface(const TreeType& type);
    Made makeAssociative(const TreeType& type);
    Made makeClass(const TreeClass& type);
    template <typename Array> Made makeVariableArray(const TreeType& type);

    struct EnumBase {
        unsigned long long bits = 0;
        bool isFourState = false;
    };
    EnumBase enumBase(const TreeType& type) const;
    unsigned int predefined(const std::string& word);
    std::string nameAt(TreeAddress address) const;
    bool isCovergroup(TreeAddress address, unsigned long long line) const;
    void note(unsigned long long line, const std::string& text);
    void noteCutName(unsigned long long line, const std::string& name);

    const TreeContents& m_contents;
    const ImportOptions& m_options;
    const Input& m_input;
    TypeTable& m_types;
    Notes& m_notes;
    std::unordered_map<TreeAddress, unsigned int> m_ids;
    std::unordered_map<std::string, unsigned int> m_predefined;
    std::unordered_map<TreeAddress, std::string> m_names; ///< Of structs, unions, enumerations.
    std::vector<TreeAddress> m_pending;                   ///< Have an id, and are still to be made.
};

} // namespace Import
