#include "Inspect/model/TypeReferences.h"

#include "Inspect/words/TypeText.h"

#include <optional>
#include <tuple>
#include <unordered_set>

namespace Inspect {

using namespace RTTI;
using TypeFile::fieldWords;
namespace Form = TypeFile::Form;

namespace {

/// The role of the references in a field of one form, if it has any.
template <typename FieldForm> constexpr std::optional<LinkRole> roleOf(const FieldForm&) {
    return std::nullopt;
}
template <typename Link> constexpr std::optional<LinkRole> roleOf(const Form::TypeId<Link>& form) {
    return form.role;
}
template <typename Item> constexpr std::optional<LinkRole> roleOf(const Form::Items<Item>& form) {
    return roleOf(form.item);
}
template <typename Entry> constexpr std::optional<LinkRole> roleOf(Form::Entries<Entry>) {
    std::optional<LinkRole> role;
    std::apply([&](const auto&... field) { ((role = role ? role : roleOf(field.form)), ...); },
               TypeFile::FIELDS<Entry>);
    return role;
}

} // namespace

void linksOf(const RTBaseType& type, std::vector<TypeLink>& links) {
    links.clear();
    TypeFile::forEachReference(type, [&](unsigned int id, const auto& form, std::size_t position) {
        if (id != TypeFileFormat::NO_TYPE_ID)
            links.push_back({form.role, static_cast<unsigned int>(position), id});
    });
}

const char* fieldOf(LinkRole role, unsigned int classId) {
    const char* name = nullptr;
    TypeFile::withClass(classId, [&](auto tag) {
        std::apply(
            [&](const auto&... field) {
                ((name = roleOf(field.form) == role ? field.name : name), ...);
            },
            TypeFile::FIELDS<typename decltype(tag)::Class>);
    });
    return name;
}

std::string linkText(const RTBaseType& type, const TypeLink& link) {
    const unsigned int classId = type.GetClassId();
    if (link.role == LinkRole::MEMBER) {
        const auto& aggregate = static_cast<const RTAggregateType&>(type);
        return "member " + quotedName(aggregate.m_members[link.position]->m_memberName);
    }
    if (link.role == LinkRole::INDEX && classId == ClassId::ARRAY)
        return "index type of dimension " + std::to_string(link.position + 1);
    return fieldWords(fieldOf(link.role, classId));
}

std::vector<unsigned int> referencesOf(const RTBaseType& type) {
    std::vector<TypeLink> links;
    linksOf(type, links);
    std::vector<unsigned int> distinct;
    std::unordered_set<unsigned int> seen;
    for (const TypeLink& link : links) {
        if (seen.insert(link.typeId).second)
            distinct.push_back(link.typeId);
    }
    return distinct;
}

std::vector<unsigned int> referringTo(unsigned int typeId, const TypeTable& types) {
    std::vector<unsigned int> ids;
    std::vector<TypeLink> links;
    for (unsigned int other = 0; other < types.count; ++other) {
        const RTBaseType* type = types.typeOf(other);
        if (type == nullptr)
            continue;
        linksOf(*type, links);
        if (std::any_of(links.begin(), links.end(),
                        [=](const TypeLink& link) { return link.typeId == typeId; }))
            ids.push_back(other);
    }
    return ids;
}

} // namespace Inspect
