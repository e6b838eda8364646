#pragma once

#include "Import/Input.h"
#include "Import/TreeContents.h"

#include <string>
#include <vector>

namespace Import {

/// Goes through the lines of a tree dump once, and keeps what they say of types. Memory grows with
/// the types, not with the dump.
class TreeScanner {
public:
    explicit TreeScanner(Input& input) : m_input(input) {}

    /// Throws ImportError for a dump that is damaged or cut short.
    TreeContents scan();

private:
    /// A node that names of declarations below it begin with.
    struct Scope {
        unsigned int depth;
        std::string name;    ///< With those around it.
        std::string package; ///< The outermost one.
        TreeAddress classAt; ///< 0 if it is no class.
    };

    void takeHeader();
    void takeLine(std::string_view text);
    void takeNode(const TreeLine& line);
    void openScope(const TreeLine& line);
    void takeTypedef(const TreeLine& line);
    void takeVariable(const TreeLine& line);
    void takeMember(TreeClass& owner, const TreeLine& line);
    void takeBaseClass(const TreeLine& line);
    void takeType(const TreeLine& line);
    void takePart(const TreeLine& line, TreeAddress type);
    void takeConstant(const TreeLine& line);
    bool isIgnored() const;
    std::string scopedName(std::string_view name) const;
    [[noreturn]] void fail(const std::string& reason) const;

    Input& m_input;
    TreeContents m_contents;
    std::vector<Scope> m_scopes;
    TreeAddress m_type = 0; ///< The type that was met last.
    unsigned int m_typeDepth = 0;
    unsigned int m_literalDepth = 0; ///< Of the literal that was met last.
    bool m_hasTypeTable = false;
    bool m_hasEnd = false;
};

} // namespace Import
