#pragma once

#include "Inspect/translate/PackedElement.h"
#include "Inspect/translate/TranslatedNames.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// A package, or the module itself: what it contains, by name.
struct PythonScope {
    std::map<std::string, std::unique_ptr<PythonScope>> scopes;
    std::map<std::string, unsigned int> types; ///< Ids.
};

/// What the types of a table are called in a Python module.
class PythonNames {
public:
    /// Names the types of these ids.
    PythonNames(const TypeTable& types, const std::vector<unsigned int>& ids);

    const PythonScope& module() const { return m_module; }

    /// As the whole module calls the type: `ibex_pkg.md_op_e`.
    const std::string& of(unsigned int id) const { return m_paths.at(id); }

    /// As the source language calls it, without quotes and control characters.
    std::string original(unsigned int id) const;

    /// Names for the literals of an enumeration, or for the members of a struct or union: each one
    /// legal and different from the others. A name that means something there has `_` behind it.
    std::vector<std::string> literals(const std::vector<std::string>& names) const;
    std::vector<std::string> members(const std::vector<std::string>& names) const;

private:
    void add(unsigned int id);
    std::string typeName(const PythonScope& scope, const std::string& name, unsigned int id) const;

    std::vector<std::string> m_names;
    PythonScope m_module;
    std::unordered_map<unsigned int, std::string> m_paths;
};

} // namespace Inspect
