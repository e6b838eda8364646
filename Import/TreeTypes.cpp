#include "Import/TreeTypes.h"

#include "Import/ImportError.h"
#include "Import/LogicValue.h"
#include "Import/PredefinedTypes.h"
#include "TypeFile/TypeBuilding.h"

#include <algorithm>
#include <utility>

namespace Import {

using namespace RTTI;

namespace {

/// What stands in place of the end of a name that is too long.
constexpr std::string_view CUT_MARK = "__Vhsh";

/// Enumerations are not wider; a damaged tree can say anything.
constexpr unsigned long long WIDEST_ENUM = 1 << 16;

std::unique_ptr<RTArrayType> newArray(ArrayKind kind) {
    auto array = std::make_unique<RTArrayType>();
    TypeFile::setName(*array, "");
    array->m_arrayKind = kind;
    return array;
}

RecordKind recordKind(const TreeType& type) {
    if (type.kind == TreeTypeKind::STRUCT)
        return type.isPacked ? VLOG_PACKED_STRUCT : VLOG_UNPACKED_STRUCT;
    if (type.isTagged)
        return type.isPacked ? VLOG_PACKED_TAGGED_UNION : VLOG_UNPACKED_TAGGED_UNION;
    return type.isPacked ? VLOG_PACKED_UNTAGGED_UNION : VLOG_UNPACKED_UNTAGGED_UNION;
}

unsigned long long rangeSize(const TreeType& type) {
    const long long difference = static_cast<long long>(type.left) - type.right;
    return static_cast<unsigned long long>(difference < 0 ? -difference : difference) + 1;
}

bool isNamedKind(TreeTypeKind kind) {
    return kind == TreeTypeKind::STRUCT || kind == TreeTypeKind::UNION ||
           kind == TreeTypeKind::ENUM;
}

/// "top.state_e" of a node's name, as "top::state_e".
std::string scopedNodeName(std::string_view name) {
    std::string text;
    for (const char c : name) {
        if (c == '.')
            text += "::";
        else
            text += c;
    }
    return sourceName(text);
}

/// Without the marks that stand right behind a name: "rRAND".
std::string withoutMarks(const std::string& name, bool& isRandom) {
    for (const std::string_view mark : {"RANDC", "RAND"}) {
        if (name.size() > mark.size() && name.substr(name.size() - mark.size()) == mark) {
            isRandom = true;
            return name.substr(0, name.size() - mark.size());
        }
    }
    return name;
}

} // namespace

TreeTypes::TreeTypes(const TreeContents& contents, const ImportOptions& options, const Input& input,
                     TypeTable& types, Notes& notes)
    : m_contents(contents), m_options(options), m_input(input), m_types(types), m_notes(notes) {}

void TreeTypes::add() {
    nameTypes();
    for (const TreeDeclaration& declaration : m_contents.declarations) {
        declare(declaration);
        while (!m_pending.empty()) {
            const TreeAddress address = m_pending.back();
            m_pending.pop_back();
            make(address);
        }
    }
}

void TreeTypes::note(unsigned long long line, const std::string& text) {
    m_notes.add(m_input.linePlace(line), text);
}

/// A type has the name of the typedef that declares it.
void TreeTypes::nameTypes() {
    for (const TreeDeclaration& declaration : m_contents.declarations) {
        if (declaration.kind != TreeDeclaration::Kind::TYPEDEF ||
            (declaration.isMadeUp && !m_options.keepAnonymous))
            continue;
        const auto found = m_contents.types.find(declaration.type);
        if (found != m_contents.types.end() && isNamedKind(found->second.kind))
            m_names.emplace(declaration.type, declaration.name);
    }
}

std::string TreeTypes::nameAt(TreeAddress address) const {
    const auto found = m_names.find(address);
    if (found != m_names.end())
        return found->second;
    const std::string& name = m_contents.types.at(address).name;
    return isMadeUpName(name) && !m_options.keepAnonymous ? "" : scopedNodeName(name);
}

/// Names beyond a limit of the front end are not whole.
void TreeTypes::noteCutName(unsigned long long line, const std::string& name) {
    if (name.find(CUT_MARK) != std::string::npos)
        note(line, "the front end has cut the name " + name + " (Verilator: --comp-limit-syms N)");
}

void TreeTypes::declare(const TreeDeclaration& declaration) {
    noteCutName(declaration.line, declaration.name);
    if (declaration.kind == TreeDeclaration::Kind::CLASS) {
        if (m_contents.classes.at(declaration.type).isCovergroup)
            note(declaration.line, "the covergroup " + declaration.name + " is left out");
        else
            m_types.want(idOfClass(declaration.type, declaration.line), declaration.package);
        return;
    }
    if (declaration.kind == TreeDeclaration::Kind::TYPEDEF) {
        declareTypedef(declaration);
        return;
    }
    const TreeAddress behind = behindAliases(declaration.type, declaration.line);
    const TreeType& type = typeAt(behind, declaration.line);
    if (type.isInstance || type.kind == TreeTypeKind::VOID ||
        isCovergroup(behind, declaration.line))
        return;
    m_types.want(idOf(behind, declaration.line), declaration.package);
}

void TreeTypes::declareTypedef(const TreeDeclaration& declaration) {
    if (declaration.isMadeUp && !m_options.keepAnonymous)
        return;
    auto type = std::make_unique<RTTypedefType>();
    TypeFile::setName(*type, declaration.name);
    type->m_dataTypeId = idOf(declaration.type, declaration.line);
    const unsigned int id = m_types.add(std::move(type), m_input.linePlace(declaration.line));
    m_types.want(id, declaration.package);
}

const TreeType& TreeTypes::typeAt(TreeAddress address, unsigned long long line) const {
    const auto found = m_contents.types.find(address);
    if (found == m_contents.types.end())
        throw ImportError(m_input.linePlace(line),
                          "the tree is damaged or cut short: the type that this node refers to "
                          "is not there");
    return found->second;
}

TreeAddress TreeTypes::behindAliases(TreeAddress address, unsigned long long line) const {
    for (std::size_t steps = 0; steps <= m_contents.types.size(); ++steps) {
        const TreeType& type = typeAt(address, line);
        if (type.kind != TreeTypeKind::ALIAS)
            return address;
        address = type.refers;
        line = type.line;
    }
    throw ImportError(m_input.linePlace(line), "the tree is damaged: a type is another name of "
                                               "itself");
}

unsigned int TreeTypes::predefined(const std::string& word) {
    const auto found = m_predefined.find(word);
    if (found != m_predefined.end())
        return found->second;
    const auto need = [this](const std::string& needed) { return predefined(needed); };
    const unsigned int id = m_types.add(predefinedType(word, need), m_input.place());
    m_predefined.emplace(word, id);
    return id;
}

unsigned int TreeTypes::idOf(TreeAddress address, unsigned long long line) {
    address = behindAliases(address, line);
    const auto found = m_ids.find(address);
    if (found != m_ids.end())
        return found->second;
    const TreeType& type = typeAt(address, line);
    unsigned int id = 0;
    if (type.kind == TreeTypeKind::CLASS_REF) {
        id = idOfClass(type.refers, type.line);
    } else if (type.kind == TreeTypeKind::BASIC && isPredefined(type.word) &&
               (hasOwnRange(type.word) || !type.hasRange)) {
        if (type.isSigned != isSignedByItself(type.word))
            note(type.line, "the sign of this " + type.word + " is not kept");
        id = predefined(type.word);
    } else {
        id = m_types.reserve();
        m_pending.push_back(address);
    }
    m_ids.emplace(address, id);
    return id;
}

unsigned int TreeTypes::idOfClass(TreeAddress address, unsigned long long line) {
    const auto found = m_contents.classes.find(address);
    if (found == m_contents.classes.end())
        throw ImportError(m_input.linePlace(line), "the tree is damaged or cut short: the class "
                                                   "that this node refers to is not there");
    const auto [id, isNew] = m_ids.try_emplace(address, 0);
    if (isNew) {
        id->second = m_types.reserve();
        m_pending.push_back(address);
    }
    return id->second;
}

void TreeTypes::make(TreeAddress address) {
    const unsigned int id = m_ids.at(address);
    const auto asClass = m_contents.classes.find(address);
    if (asClass != m_contents.classes.end()) {
        m_types.fill(id, makeClass(asClass->second), m_input.linePlace(asClass->second.line));
        return;
    }
    const TreeType& type = m_contents.types.at(address);
    if (Made made = makeType(address, type))
        m_types.fill(id, std::move(made), m_input.linePlace(type.line));
    else
        m_types.leaveOut(id, "the node " + type.word);
}

TreeTypes::Made TreeTypes::makeType(TreeAddress address, const TreeType& type) {
    switch (type.kind) {
    case TreeTypeKind::BASIC: return makeBasic(type);
    case TreeTypeKind::ENUM: return makeEnum(address, type);
    case TreeTypeKind::STRUCT:
    case TreeTypeKind::UNION: return makeStruct(address, type);
    case TreeTypeKind::PACKED_ARRAY:
    case TreeTypeKind::UNPACKED_ARRAY: return makeArray(type);
    case TreeTypeKind::DYNAMIC_ARRAY: return makeVariableArray<RTDynamicArrayType>(type);
    case TreeTypeKind::QUEUE:
        if (type.isBounded)
            note(type.line, "the bound of this queue is not kept");
        return makeVariableArray<RTQueueType>(type);
    case TreeTypeKind::ASSOC_ARRAY:
    case TreeTypeKind::WILDCARD_ARRAY: return makeAssociative(type);
    case TreeTypeKind::INTERFACE_REF: return makeInterface(type);
    default: break;
    }
    note(type.line, "the node " + type.word + " is not known: types that need it are left out");
    return nullptr;
}

TreeTypes::Made TreeTypes::makeBasic(const TreeType& type) {
    if (!isPredefined(type.word)) {
        note(type.line, "the type " + type.word + " is not known: types that need it are left out");
        return nullptr;
    }
    if (type.isSigned)
        note(type.line, "the sign of this " + type.word + " vector is not kept");
    auto array = newArray(VLOG_FIXED_PACKED_ARRAY);
    array->m_elementTypeId = predefined(type.word);
    addDimension(*array, type.left, type.right, predefined("int"));
    return array;
}

TreeTypes::Made TreeTypes::makeArray(const TreeType& type) {
    const bool isPacked = type.kind == TreeTypeKind::PACKED_ARRAY;
    auto array = newArray(isPacked ? VLOG_FIXED_PACKED_ARRAY : VLOG_FIXED_UNPACKED_ARRAY);
    const TreeType* level = &type;
    TreeAddress element = 0;
    // The dimensions of an unpacked array are those of one type, however it was declared.
    do {
        if (!level->hasRange)
            throw ImportError(m_input.linePlace(level->line),
                              "the tree is damaged: an array has no range");
        if (array->m_indexTypeIds.size() > m_contents.types.size())
            throw ImportError(m_input.linePlace(level->line),
                              "the tree is damaged: an array is its own element");
        addDimension(*array, level->left, level->right, predefined("int"));
        element = behindAliases(level->refers, level->line);
        level = &typeAt(element, level->line);
    } while (!isPacked && level->kind == TreeTypeKind::UNPACKED_ARRAY);
    array->m_elementTypeId = idOf(element, type.line);
    return array;
}

template <typename Array> TreeTypes::Made TreeTypes::makeVariableArray(const TreeType& type) {
    auto array = std::make_unique<Array>();
    TypeFile::setName(*array, "");
    array->m_elementTypeId = idOf(type.refers, type.line);
    return array;
}

TreeTypes::Made TreeTypes::makeAssociative(const TreeType& type) {
    auto array = std::make_unique<RTAssocArrayType>();
    TypeFile::setName(*array, "");
    array->m_elementTypeId = idOf(type.refers, type.line);
    array->m_indexTypeId =
        type.kind == TreeTypeKind::WILDCARD_ARRAY ? predefined("*") : idOf(type.key, type.line);
    return array;
}

TreeTypes::Made TreeTypes::makeInterface(const TreeType& type) {
    note(type.line, "virtual interface " + type.word + " is kept as a chandle");
    auto handle = std::make_unique<RTCHandle>();
    TypeFile::setName(*handle, "virtual interface " + sourceName(type.word));
    return handle;
}

TreeTypes::Made TreeTypes::makeStruct(TreeAddress address, const TreeType& type) {
    auto record = std::make_unique<RTRecordType>();
    TypeFile::setName(*record, nameAt(address));
    record->m_recordKind = recordKind(type);
    if (type.isSigned && type.isPacked)
        note(type.line, "the sign of this packed struct or union is not kept");
    if (type.isSoft)
        note(type.line, "that this union is soft is not kept");
    for (const TreePart& part : type.parts) {
        const TreeAddress behind = behindAliases(part.type, part.line);
        noteCutName(part.line, part.name);
        if (typeAt(behind, part.line).kind == TreeTypeKind::VOID)
            note(part.line, "the void member " + sourceName(part.name) + " is left out");
        else
            TypeFile::addMember(*record, sourceName(part.name), idOf(behind, part.line));
    }
    return record;
}

TreeTypes::Made TreeTypes::makeEnum(TreeAddress address, const TreeType& type) {
    const EnumBase base = enumBase(type);
    if (base.bits == 0 || base.bits > WIDEST_ENUM) {
        note(type.line, "the base of this enumeration is not known: types that need it are left "
                        "out");
        return nullptr;
    }
    auto made = std::make_unique<RTDiscreteEnumType>();
    TypeFile::setName(*made, nameAt(address));
    made->m_baseTypeId = idOf(type.refers, type.line);
    for (const TreePart& part : type.parts) {
        LogicValue value;
        noteCutName(part.line, part.name);
        if (!readLogicValue(part.value, static_cast<unsigned int>(base.bits), value))
            throw ImportError(m_input.linePlace(part.line),
                              "the tree is damaged: a literal has no value");
        TypeFile::addLiteral(*made, sourceName(part.name),
                             base.isFourState ? value.planes : value.values());
    }
    return made;
}

/// Width and states of the base type; 0 bits for one that enumerations cannot have.
TreeTypes::EnumBase TreeTypes::enumBase(const TreeType& type) const {
    EnumBase base;
    base.bits = 1;
    const TreeType* level = &type;
    std::size_t levels = 0;
    do {
        if (levels++ > m_contents.types.size())
            return {};
        level = &typeAt(behindAliases(level->refers, level->line), level->line);
        base.bits *= level->hasRange ? rangeSize(*level) : 1;
    } while (level->kind == TreeTypeKind::PACKED_ARRAY && base.bits <= WIDEST_ENUM);
    if (level->kind != TreeTypeKind::BASIC || !isPredefined(level->word))
        return {};
    if (hasOwnRange(level->word))
        base.bits = bitsOf(level->word);
    base.isFourState = isFourState(level->word);
    return base;
}

bool TreeTypes::isCovergroup(TreeAddress address, unsigned long long line) const {
    const TreeType& type = typeAt(address, line);
    const auto found = m_contents.classes.find(type.refers);
    return type.kind == TreeTypeKind::CLASS_REF && found != m_contents.classes.end() &&
           found->second.isCovergroup;
}

TreeTypes::Made TreeTypes::makeClass(const TreeClass& type) {
    auto made = std::make_unique<RTClassType>();
    TypeFile::setName(*made, type.name);
    if (type.base != 0) {
        if (typeAt(behindAliases(type.base, type.line), type.line).kind != TreeTypeKind::CLASS_REF)
            throw ImportError(m_input.linePlace(type.line),
                              "the tree is damaged: the base of " + type.name + " is not a class");
        made->m_baseClassTypeId = idOf(type.base, type.line);
    }
    if (type.hasParameters)
        note(type.line, type.name + ": its parameters are not kept");
    for (const std::string& interface : type.interfaces)
        note(type.line,
             type.name + ": that it implements " + sourceName(interface) + " is not kept");
    for (const TreePart& part : type.members) {
        bool isRandom = part.isRandom;
        const std::string written =
            m_contents.hasGluedMarks ? withoutMarks(part.name, isRandom) : part.name;
        const std::string name = sourceName(written);
        noteCutName(part.line, name);
        const TreeAddress behind = behindAliases(part.type, part.line);
        if (isCovergroup(behind, part.line)) {
            note(part.line, type.name + ": the covergroup " + name + " is left out");
            continue;
        }
        if (isRandom)
            note(part.line, type.name + ": that " + name + " is random is not kept");
        TypeFile::addMember(*made, name, idOf(behind, part.line), {}, part.isStatic);
    }
    return made;
}

} // namespace Import
