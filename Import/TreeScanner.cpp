#include "Import/TreeScanner.h"

#include "Import/ImportError.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace Import {

namespace {

constexpr std::string_view TYPE_NODE = "DTYPE";
constexpr std::string_view MADE_UP = "__typeimp";
constexpr std::string_view TYPEDEF_MARK = "typedef="; ///< Of the releases that glue marks to names.
constexpr std::string_view STANDARD_PACKAGE = "std";

struct TypeNode {
    std::string_view name;
    TreeTypeKind kind;
};

constexpr std::array TYPE_NODES = {
    TypeNode{"BASICDTYPE", TreeTypeKind::BASIC},
    TypeNode{"REFDTYPE", TreeTypeKind::ALIAS},
    TypeNode{"CONSTDTYPE", TreeTypeKind::ALIAS},
    TypeNode{"PARAMTYPEDTYPE", TreeTypeKind::ALIAS},
    TypeNode{"ENUMDTYPE", TreeTypeKind::ENUM},
    TypeNode{"STRUCTDTYPE", TreeTypeKind::STRUCT},
    TypeNode{"UNIONDTYPE", TreeTypeKind::UNION},
    TypeNode{"PACKARRAYDTYPE", TreeTypeKind::PACKED_ARRAY},
    TypeNode{"UNPACKARRAYDTYPE", TreeTypeKind::UNPACKED_ARRAY},
    TypeNode{"DYNARRAYDTYPE", TreeTypeKind::DYNAMIC_ARRAY},
    TypeNode{"UNSIZEDARRAYDTYPE", TreeTypeKind::DYNAMIC_ARRAY},
    TypeNode{"QUEUEDTYPE", TreeTypeKind::QUEUE},
    TypeNode{"ASSOCARRAYDTYPE", TreeTypeKind::ASSOC_ARRAY},
    TypeNode{"WILDCARDARRAYDTYPE", TreeTypeKind::WILDCARD_ARRAY},
    TypeNode{"CLASSREFDTYPE", TreeTypeKind::CLASS_REF},
    TypeNode{"IFACEREFDTYPE", TreeTypeKind::INTERFACE_REF},
    TypeNode{"VOIDDTYPE", TreeTypeKind::VOID},
};

TreeTypeKind typeKind(std::string_view node) {
    const auto* const found =
        std::find_if(TYPE_NODES.begin(), TYPE_NODES.end(),
                     [=](const TypeNode& known) { return known.name == node; });
    return found == TYPE_NODES.end() ? TreeTypeKind::UNKNOWN : found->kind;
}

bool endsWith(std::string_view text, std::string_view with) {
    return text.size() >= with.size() && text.substr(text.size() - with.size()) == with;
}

/// Nodes that declarations can stand in, and that their names tell of.
bool isScope(std::string_view kind) {
    constexpr std::array<std::string_view, 9> SCOPES = {
        "MODULE", "PACKAGE", "IFACE", "CLASS", "BEGIN", "GENBLOCK", "FORK", "FUNC", "TASK"};
    return std::find(SCOPES.begin(), SCOPES.end(), kind) != SCOPES.end();
}

/// "(sw8)" and "(G/sw8)": signed.
bool isSignedShape(std::string_view shape) {
    if (!shape.empty())
        shape.remove_prefix(1);
    if (shape.substr(0, 2) == "G/")
        shape.remove_prefix(2);
    return shape.substr(0, 2) == "sw";
}

/// The address in "(w0)[assoc-0x55a74d61eb40]".
TreeAddress keyOf(std::string_view shape) {
    constexpr std::string_view MARK = "[assoc-";
    const std::size_t at = shape.find(MARK);
    return at == std::string_view::npos ? 0 : treeAddress(shape.substr(at + MARK.size()));
}

/// The last bracketed range of the marks: " refdt=0x..(w8)ref [0:3]".
bool lastRange(std::string_view marks, int& left, int& right) {
    const std::size_t at = marks.rfind('[');
    return at != std::string_view::npos && treeRange(marks.substr(at), left, right);
}

int hexDigit(char c) {
    const char lower = static_cast<char>(c | 0x20);
    if (c >= '0' && c <= '9')
        return c - '0';
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Appends what an escape at `at` stands for, and says how long the escape is: 0 if there is none.
std::size_t unescape(std::string_view name, std::size_t at, std::string& text) {
    constexpr std::array<std::pair<std::string_view, char>, 3> WORDS = {
        {{"__BRA__", '['}, {"__KET__", ']'}, {"__DOT__", '.'}}};
    const std::string_view rest = name.substr(at);
    for (const auto& [word, stands] : WORDS) {
        if (rest.substr(0, word.size()) == word) {
            text.push_back(stands);
            return word.size();
        }
    }
    if (rest.size() < 5 || rest.substr(0, 3) != "__0")
        return 0;
    const int high = hexDigit(rest[3]);
    const int low = hexDigit(rest[4]);
    if (high < 0 || low < 0)
        return 0;
    text.push_back(static_cast<char>(high * 16 + low));
    return 5;
}

} // namespace

std::string sourceName(std::string_view name) {
    std::string text;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t escape = name[at] == '_' ? unescape(name, at, text) : 0;
        if (escape == 0)
            text.push_back(name[at]);
        at += std::max<std::size_t>(escape, 1);
    }
    return text;
}

std::string_view lastPartOf(std::string_view name) {
    const std::size_t at = name.find_last_of(".:");
    return at == std::string_view::npos ? name : name.substr(at + 1);
}

bool isMadeUpName(std::string_view name) {
    return lastPartOf(name).substr(0, MADE_UP.size()) == MADE_UP;
}

void TreeScanner::fail(const std::string& reason) const {
    throw ImportError(m_input.linePlace(), reason);
}

TreeContents TreeScanner::scan() {
    takeHeader();
    std::string_view text;
    while (m_input.readLine(text)) {
        if (!m_input.endedLine())
            fail("the tree is cut short: its last line does not end");
        takeLine(text);
    }
    if (!m_hasTypeTable || !m_hasEnd)
        fail("the tree is cut short: it ends before its " +
             std::string(m_hasTypeTable ? "pool of constants" : "table of types"));
    return std::move(m_contents);
}

void TreeScanner::takeHeader() {
    std::string_view text;
    if (!m_input.readLine(text) || text.find("Tree Dump") == std::string_view::npos)
        fail("the file does not begin like a tree dump");
}

void TreeScanner::takeLine(std::string_view text) {
    TreeLine line;
    if (!beginTreeLine(text, line))
        return;
    while (!m_scopes.empty() && m_scopes.back().depth >= line.depth)
        m_scopes.pop_back();
    if (m_type != 0 && line.depth <= m_typeDepth)
        m_type = 0;
    const bool isType = endsWith(line.kind, TYPE_NODE);
    const bool isWanted = isType || isScope(line.kind) || line.kind == "VAR" ||
                          line.kind == "TYPEDEF" || line.kind == "CLASSEXTENDS" ||
                          (m_type != 0 && (line.kind == "ENUMITEM" || line.kind == "CONST"));
    if (isWanted) {
        if (!finishTreeLine(text, line))
            fail("the node " + std::string(line.kind) + " has no address");
        takeNode(line);
    } else if (line.kind == "TYPETABLE") {
        m_hasTypeTable = true;
    } else if (line.kind == "CONSTPOOL") {
        m_hasEnd = true;
    }
}

void TreeScanner::takeNode(const TreeLine& line) {
    if (endsWith(line.kind, TYPE_NODE))
        takeType(line);
    else if (line.kind == "VAR")
        takeVariable(line);
    else if (line.kind == "TYPEDEF")
        takeTypedef(line);
    else if (line.kind == "CLASSEXTENDS")
        takeBaseClass(line);
    else if (line.kind == "ENUMITEM")
        takePart(line, 0);
    else if (line.kind == "CONST")
        takeConstant(line);
    else
        openScope(line);
}

std::string TreeScanner::scopedName(std::string_view name) const {
    std::string own = sourceName(name);
    if (m_scopes.empty())
        return own;
    return m_scopes.back().name + (own.empty() ? "" : "::" + own);
}

/// Whether what stands here is not the design's own.
bool TreeScanner::isIgnored() const {
    return m_scopes.empty() || m_scopes.front().package == STANDARD_PACKAGE ||
           m_scopes.front().package.substr(0, 1) == "@";
}

void TreeScanner::openScope(const TreeLine& line) {
    const std::string name = scopedName(line.name);
    const std::string package = m_scopes.empty() ? name : m_scopes.front().package;
    const bool isClass = line.kind == "CLASS";
    m_scopes.push_back({line.depth, name, package, isClass ? line.address : 0});
    if (!isClass)
        return;
    TreeClass& added = m_contents.classes[line.address];
    added.name = name;
    added.package = package;
    added.line = m_input.line();
    added.isCovergroup = line.has("[CG]");
    if (!isIgnored())
        m_contents.declarations.push_back(
            {TreeDeclaration::Kind::CLASS, false, line.address, name, package, m_input.line()});
}

void TreeScanner::takeTypedef(const TreeLine& line) {
    if (isIgnored())
        return;
    const TreeAddress target = line.targetAddress() != 0 ? line.targetAddress() : line.type;
    m_contents.declarations.push_back({TreeDeclaration::Kind::TYPEDEF, isMadeUpName(line.name),
                                       target, scopedName(line.name), m_scopes.front().package,
                                       m_input.line()});
}

void TreeScanner::takeVariable(const TreeLine& line) {
    if (!m_scopes.empty() && m_scopes.back().classAt != 0 &&
        m_scopes.back().depth + 1 == line.depth) {
        takeMember(m_contents.classes[m_scopes.back().classAt], line);
        return;
    }
    if (isIgnored() || endsWith(line.marks, " IFACEREF"))
        return;
    m_contents.declarations.push_back(
        {TreeDeclaration::Kind::VARIABLE, false, line.type, "", "", m_input.line()});
}

void TreeScanner::takeMember(TreeClass& owner, const TreeLine& line) {
    if (!endsWith(line.marks, " MEMBER")) {
        owner.hasParameters = owner.hasParameters || endsWith(line.marks, " GPARAM");
        return;
    }
    TreePart member;
    member.name = std::string(line.name);
    member.type = line.type;
    member.isStatic = line.has("[VSTATIC");
    member.isRandom = line.has("[RAND]") || line.has("[RANDC]");
    member.line = m_input.line();
    owner.members.push_back(std::move(member));
}

void TreeScanner::takeBaseClass(const TreeLine& line) {
    if (m_scopes.empty() || m_scopes.back().classAt == 0)
        return;
    TreeClass& derived = m_contents.classes[m_scopes.back().classAt];
    constexpr std::string_view MARK = "class:";
    const std::size_t at = line.typeShape.find(MARK);
    if (line.has("[IMPLEMENTS]"))
        derived.interfaces.emplace_back(
            at == std::string_view::npos ? "" : line.typeShape.substr(at + MARK.size()));
    else
        derived.base = line.type;
}

void TreeScanner::takeType(const TreeLine& line) {
    if (line.kind == "MEMBERDTYPE") {
        takePart(line, line.addressOf("refdt="));
        return;
    }
    if (line.kind == "PARAMTYPEDTYPE" && !m_scopes.empty() && m_scopes.back().classAt != 0)
        m_contents.classes[m_scopes.back().classAt].hasParameters = true;
    TreeType& type = m_contents.types[line.address];
    type.kind = typeKind(line.kind);
    type.line = m_input.line();
    type.name = std::string(line.name);
    type.word = std::string(type.kind == TreeTypeKind::BASIC           ? line.valueOf("kwd=")
                            : type.kind == TreeTypeKind::INTERFACE_REF ? line.valueOf("if=")
                                                                       : line.kind);
    type.refers = line.addressOf("refdt=");
    if (type.refers == 0)
        type.refers = line.targetAddress();
    if (type.refers == 0 && line.type != line.address)
        type.refers = line.type;
    type.key = keyOf(line.typeShape);
    type.hasRange = type.kind == TreeTypeKind::BASIC
                        ? treeRange(line.valueOf("range="), type.left, type.right)
                        : lastRange(line.marks, type.left, type.right);
    type.isSigned = isSignedShape(line.typeShape);
    type.isPacked = line.has("[PACKED]");
    type.isTagged = line.has("[tagged]");
    type.isSoft = line.has("[soft]");
    type.isInstance = line.has("cell=");
    if (line.target.substr(0, TYPEDEF_MARK.size()) == TYPEDEF_MARK)
        m_contents.hasGluedMarks = true;
    m_type = line.address;
    m_typeDepth = line.depth;
    m_literalDepth = 0;
}

void TreeScanner::takePart(const TreeLine& line, TreeAddress type) {
    if (m_type == 0 || line.depth != m_typeDepth + 1)
        return;
    TreePart part;
    part.name = std::string(line.name);
    part.type = type;
    part.line = m_input.line();
    m_contents.types[m_type].parts.push_back(std::move(part));
    m_literalDepth = line.depth;
}

/// The value of a literal, or the bound of a queue.
void TreeScanner::takeConstant(const TreeLine& line) {
    TreeType& type = m_contents.types[m_type];
    if (type.kind == TreeTypeKind::ENUM && !type.parts.empty() && line.depth == m_literalDepth + 1)
        type.parts.back().value = std::string(line.name);
    else if (type.kind == TreeTypeKind::QUEUE && line.depth == m_typeDepth + 1)
        type.isBounded = true;
}

} // namespace Import
