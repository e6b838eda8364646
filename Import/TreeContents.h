#pragma once

#include "Import/TreeLine.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace Import {

/// What a tree dump says of types. Everything refers by address to what may stand anywhere.

/// The nodes that stand for a type, by what becomes of them.
enum class TreeTypeKind : unsigned char {
    ALIAS, ///< Stands for another one: references, type parameters, constants.
    BASIC,
    ENUM,
    STRUCT,
    UNION,
    PACKED_ARRAY,
    UNPACKED_ARRAY,
    DYNAMIC_ARRAY,
    QUEUE,
    ASSOC_ARRAY,
    WILDCARD_ARRAY,
    CLASS_REF,
    INTERFACE_REF,
    VOID,
    UNKNOWN,
};

/// A member of a struct, a union or a class, or a literal of an enumeration.
struct TreePart {
    std::string name;
    TreeAddress type = 0;
    std::string value; ///< Of a literal.
    bool isStatic = false;
    bool isRandom = false;
    unsigned long long line = 0;
};

/// A node that stands for a type.
struct TreeType {
    TreeTypeKind kind = TreeTypeKind::UNKNOWN;
    unsigned long long line = 0;
    std::string name;       ///< As it is written.
    std::string word;       ///< Basic: keyword. Interface: its name. Unknown: kind of the node.
    TreeAddress refers = 0; ///< Aliased, base, element type, or class.
    TreeAddress key = 0;    ///< Of an associative array.
    int left = 0, right = 0;
    bool hasRange = false;
    bool isSigned = false;
    bool isPacked = false;
    bool isTagged = false;
    bool isSoft = false;
    bool isBounded = false;
    bool isInstance = false; ///< Interface: that of an instance, which is no type of a variable.
    std::vector<TreePart> parts;
};

/// A class.
struct TreeClass {
    std::string name;    ///< With its scopes.
    std::string package; ///< The outermost scope.
    unsigned long long line = 0;
    TreeAddress base = 0; ///< The type that refers to the base class; 0 for none.
    std::vector<TreePart> members;
    std::vector<std::string> interfaces; ///< As they are written.
    bool hasParameters = false;
    bool isCovergroup = false;
};

/// Something that is declared with a type, or as one.
struct TreeDeclaration {
    enum class Kind : unsigned char { TYPEDEF, CLASS, VARIABLE };

    Kind kind;
    bool isMadeUp = false; ///< A typedef that the front end gives to a type without a name.
    TreeAddress type;      ///< Of the class, for a class.
    std::string name;      ///< Of a typedef, with its scopes.
    std::string package;   ///< The outermost scope, where it is a declaration of its own.
    unsigned long long line;
};

struct TreeContents {
    std::unordered_map<TreeAddress, TreeType> types;
    std::unordered_map<TreeAddress, TreeClass> classes;
    std::vector<TreeDeclaration> declarations; ///< In the order of the dump.
    bool hasGluedMarks = false; ///< "rRAND": marks may stand right behind the name of a variable.
};

/// A name as the source has it: dumps write "odd__02dname" for "odd-name".
std::string sourceName(std::string_view name);

/// Whether the front end made the name up for something that has none, and the last part of it.
/// @{
bool isMadeUpName(std::string_view name);
std::string_view lastPartOf(std::string_view name);
/// @}

} // namespace Import
