#include "Import/GhdlScopes.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace Import {

namespace {

const std::vector<std::size_t>*
placesOf(const std::unordered_map<std::string, std::vector<std::size_t>>& places,
         const std::string& name) {
    const auto at = places.find(name);
    return at != places.end() ? &at->second : nullptr;
}

} // namespace

void GhdlScopes::Index::add(const std::string& name, std::size_t type, const GhdlListing& listing) {
    const std::size_t scope = listing.types[type].scope;
    ofScopes[scope][name].push_back(type);
    if (listing.scopes[scope].isPackage)
        ofPackages[name].push_back(type);
}

GhdlScopes::GhdlScopes(const GhdlListing& listing) : m_listing(listing) {
    m_names.ofScopes.resize(listing.scopes.size());
    m_literals.ofScopes.resize(listing.scopes.size());
    for (std::size_t i = 0; i < listing.types.size(); ++i) {
        const ListedType& type = listing.types[i];
        m_names.add(type.name, i, listing);
        if (type.form != ListedType::Form::ENUMERATION)
            continue;
        for (const ListedPart& literal : type.parts)
            m_literals.add(literal.name, i, listing);
    }
}

std::size_t GhdlScopes::nearest(const std::vector<std::size_t>& places, std::size_t from,
                                bool isInFront, const Fits& fits) const {
    auto at = std::lower_bound(places.begin(), places.end(), from);
    const auto isMeant = [&](std::size_t type) {
        return type != from && fits(m_listing.types[type]);
    };
    if (!isInFront) {
        at = std::find_if(at, places.end(), isMeant);
        return at != places.end() ? *at : from;
    }
    while (at != places.begin()) {
        if (isMeant(*--at))
            return *at;
    }
    return from;
}

std::vector<std::size_t> GhdlScopes::findInPackages(const Places& places, const std::string& name,
                                                    std::size_t from, bool isInFront,
                                                    const Fits& fits) const {
    std::vector<std::size_t> found;
    const std::vector<std::size_t>* const all = placesOf(places, name);
    if (all == nullptr)
        return found;
    std::set<std::size_t> scopes;
    for (auto at = all->rbegin(); at != all->rend(); ++at) {
        const ListedType& type = m_listing.types[*at];
        if (*at != from && (*at < from) == isInFront && fits(type) &&
            scopes.insert(type.scope).second)
            found.push_back(*at);
    }
    return found;
}

std::vector<std::size_t> GhdlScopes::find(const std::string& name, std::size_t from,
                                          const Fits& fits) const {
    // Access types alone lead to what follows, and from there back again.
    const bool mayFollow = m_listing.types[from].form == ListedType::Form::ACCESS;
    const Fits fitsBehind = [&](const ListedType& type) {
        return (mayFollow || type.form == ListedType::Form::ACCESS) && fits(type);
    };
    for (const bool isInFront : {true, false}) {
        const Fits& isMeant = isInFront ? fits : fitsBehind;
        std::vector<std::size_t> found;
        const auto add = [&](std::size_t type) {
            if (std::find(found.begin(), found.end(), type) == found.end())
                found.push_back(type);
        };
        const auto addOf = [&](std::size_t scope) {
            const std::vector<std::size_t>* const places = placesOf(m_names.ofScopes[scope], name);
            const std::size_t type =
                places == nullptr ? from : nearest(*places, from, isInFront, isMeant);
            if (type != from)
                add(type);
        };
        std::size_t scope = m_listing.types[from].scope;
        for (; scope != 0; scope = m_listing.scopes[scope].parent)
            addOf(scope);
        addOf(scope);
        for (const std::size_t type :
             findInPackages(m_names.ofPackages, name, from, isInFront, isMeant))
            add(type);
        if (!found.empty())
            return found;
    }
    return {};
}

std::vector<std::size_t> GhdlScopes::findWithLiteral(const std::string& literal,
                                                     std::size_t from) const {
    const Fits all = [](const ListedType&) { return true; };
    std::vector<std::size_t> found;
    const auto addOf = [&](std::size_t scope) {
        const std::vector<std::size_t>* const places =
            placesOf(m_literals.ofScopes[scope], literal);
        if (places != nullptr)
            std::copy_if(places->rbegin(), places->rend(), std::back_inserter(found),
                         [from](std::size_t type) { return type < from; });
    };
    std::size_t scope = m_listing.types[from].scope;
    for (; scope != 0; scope = m_listing.scopes[scope].parent)
        addOf(scope);
    addOf(scope);
    for (const std::size_t type : findInPackages(m_literals.ofPackages, literal, from, true, all)) {
        if (std::find(found.begin(), found.end(), type) == found.end())
            found.push_back(type);
    }
    return found;
}

} // namespace Import
