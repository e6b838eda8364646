#pragma once

#include "Inspect/model/TypeTable.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

class DeclaredTypes;

/// The packages that SystemVerilog types are declared in, in an order in which a compiler can read
/// them.
///
/// A type called `p::t` belongs to the package `p`, unless a class has the name `p`. As packages
/// cannot need one another, a type that needs one of a later package is declared in that one. A
/// type without a package goes with the first package that needs it, if it needs none or only
/// earlier ones; all others are in the last package, which has a name of its own. The needs of
/// specialisations of classes, `p::c#(...)`, make no difference for the order of packages.
class DeclaredPackages {
public:
    /// One package for all types.
    DeclaredPackages() : m_names{"types"} {}

    /// Looks at all types, which are examined in advance, and at what their declarations name.
    DeclaredPackages(const TypeTable& types, const DeclaredTypes& declared);

    /// At least 1.
    std::size_t count() const { return m_names.size(); }

    /// The name of a package. No other package has the name of the last one.
    const std::string& nameOf(std::size_t package) const { return m_names[package]; }

    /// The index of the package that declares the type.
    std::size_t packageOf(unsigned int id) const {
        return id < m_places.size() ? m_places[id] : m_names.size() - 1;
    }

    /// Whether that package differs from the one in the type's name.
    bool isAway(unsigned int id) const { return id < m_away.size() && m_away[id]; }

    /// The name of a type within the package that declares it: without that package's name.
    std::string_view localName(unsigned int id, std::string_view name) const;

private:
    std::vector<std::string> m_names;
    std::vector<unsigned int> m_places; ///< Of types.
    std::vector<bool> m_away;
};

} // namespace Inspect
