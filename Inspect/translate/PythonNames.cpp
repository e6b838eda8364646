#include "Inspect/translate/PythonNames.h"

#include "Inspect/words/TypeText.h"

#include <algorithm>
#include <set>

namespace Inspect {

using namespace RTTI;

namespace {

using Words = std::set<std::string, std::less<>>;

/// Python's keywords, and the names that the module uses itself.
const Words& reservedWords() {
    static const Words words{
        "False",     "None",        "True",      "and",      "as",         "assert",
        "async",     "await",       "break",     "class",    "continue",   "def",
        "del",       "elif",        "else",      "except",   "finally",    "for",
        "from",      "global",      "if",        "import",   "in",         "is",
        "lambda",    "nonlocal",    "not",       "or",       "pass",       "raise",
        "return",    "try",         "while",     "with",     "yield",      "int",
        "str",       "dict",        "tuple",     "len",      "range",      "type",
        "property",  "classmethod", "enumerate", "sorted",   "ValueError", "annotations",
        "dataclass", "field",       "IntEnum",   "ClassVar", "Iterator",   "TypeVar"};
    return words;
}

/// What an IntEnum has already.
const Words& enumWords() {
    static const Words words{"mro",
                             "name",
                             "value",
                             "real",
                             "imag",
                             "numerator",
                             "denominator",
                             "conjugate",
                             "bit_length",
                             "bit_count",
                             "to_bytes",
                             "from_bytes",
                             "as_integer_ratio",
                             "is_integer"};
    return words;
}

/// What the classes of structs and unions have already.
const Words& memberWords() {
    static const Words words{"WIDTH", "SLICES", "from_int", "to_int"};
    return words;
}

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// An identifier that is close to the name. One with underscores in front would be private.
std::string identifier(std::string_view name) {
    std::string text;
    for (const char c : name)
        text += isPlain(c) ? c : '_';
    if (text.empty() || text.front() == '_' || (text.front() >= '0' && text.front() <= '9'))
        text.insert(0, 1, 'x');
    return reservedWords().count(text) != 0 ? text + '_' : text;
}

std::vector<std::string> distinct(const std::vector<std::string>& names, const Words& taken) {
    Words used = taken;
    std::vector<std::string> result;
    for (const std::string& name : names) {
        std::string unique = identifier(name);
        while (!used.insert(unique).second)
            unique += '_';
        result.push_back(std::move(unique));
    }
    return result;
}

/// Python takes no more than 100 levels of indentation.
constexpr std::size_t MOST_SCOPES = 20;

/// The parts between the `::` of a name; those that are nested too deep are one.
std::vector<std::string> partsOf(std::string_view name) {
    std::vector<std::string> parts;
    std::size_t end = 0;
    while (parts.size() < MOST_SCOPES && (end = name.find("::")) != std::string_view::npos) {
        parts.emplace_back(name.substr(0, end));
        name.remove_prefix(end + 2);
    }
    parts.emplace_back(name);
    return parts;
}

} // namespace

PythonNames::PythonNames(const TypeTable& types, const std::vector<unsigned int>& ids)
    : m_names(translatedNames(types)) {
    for (const unsigned int id : ids)
        add(id);
}

std::string PythonNames::original(unsigned int id) const {
    std::string text = escaped(m_names[id]);
    std::replace(text.begin(), text.end(), '"', '\'');
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

void PythonNames::add(unsigned int id) {
    const std::vector<std::string> parts = partsOf(m_names[id]);
    PythonScope* scope = &m_module;
    std::string path;
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        std::string name = identifier(parts[i]);
        while (scope->types.count(name) != 0)
            name += '_';
        path += name + '.';
        auto& inner = scope->scopes[name];
        if (inner == nullptr)
            inner = std::make_unique<PythonScope>();
        scope = inner.get();
    }
    const std::string name = typeName(*scope, parts.back(), id);
    scope->types.emplace(name, id);
    m_paths.emplace(id, path + name);
}

std::string PythonNames::typeName(const PythonScope& scope, const std::string& name,
                                  unsigned int id) const {
    std::string unique = identifier(name);
    while (scope.types.count(unique) != 0 || scope.scopes.count(unique) != 0)
        unique += '_' + std::to_string(id);
    return unique;
}

std::vector<std::string> PythonNames::literals(const std::vector<std::string>& names) const {
    return distinct(names, enumWords());
}

std::vector<std::string> PythonNames::members(const std::vector<std::string>& names) const {
    Words taken = memberWords();
    for (const auto& [name, scope] : m_module.scopes)
        taken.insert(name); // Annotations of members would find the member in their place.
    for (const auto& [name, id] : m_module.types)
        taken.insert(name);
    return distinct(names, taken);
}

} // namespace Inspect
