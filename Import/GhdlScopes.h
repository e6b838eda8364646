#pragma once

#include "Import/GhdlListing.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Import {

/// Finds the declarations of a listing that are in sight of another one. The listing has to outlive
/// the answers.
class GhdlScopes {
public:
    /// Whether a declaration is one that can be meant.
    using Fits = std::function<bool(const ListedType& type)>;

    explicit GhdlScopes(const GhdlListing& listing);

    /// The declarations that a name can mean in the declaration `from`, the nearest first: those of
    /// its own scope and of those around it, then those of packages, which the source can mean by
    /// names that begin with the package. Those behind `from` count only where there are none in
    /// front. The answers are numbers of types of the listing.
    std::vector<std::size_t> find(const std::string& name, std::size_t from,
                                  const Fits& fits) const;

    /// The enumerations with a literal, likewise, but those of all scopes and packages in sight.
    std::vector<std::size_t> findWithLiteral(const std::string& literal, std::size_t from) const;

private:
    using Places = std::unordered_map<std::string, std::vector<std::size_t>>;
    struct Index {
        std::vector<Places> ofScopes;
        Places ofPackages;

        void add(const std::string& name, std::size_t type, const GhdlListing& listing);
    };

    /// The nearest of the places that fits, in front of `from` or behind it; `from` itself if there
    /// is none.
    std::size_t nearest(const std::vector<std::size_t>& places, std::size_t from, bool isInFront,
                        const Fits& fits) const;
    std::vector<std::size_t> findInPackages(const Places& places, const std::string& name,
                                            std::size_t from, bool isInFront,
                                            const Fits& fits) const;

    const GhdlListing& m_listing;
    Index m_names;
    Index m_literals;
};

} // namespace Import
