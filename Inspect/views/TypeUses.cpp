#include "Inspect/views/TypeUses.h"

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/json/JsonLines.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/model/UseIndex.h"

#include <string>
#include <unordered_map>

namespace Inspect {

using namespace RTTI;

namespace {

/// References of a way that are shown; all the ways of a long chain would be its length squared.
constexpr unsigned int LONGEST_WAY_SHOWN = 8;

/// Calls `act` with the id, the type and the link for every reference to `used`. One question needs
/// no index.
template <typename Action>
void forEachUse(std::ostream& out, const TypeTable& types, unsigned int used, Action act) {
    forEachLink(types, [&](unsigned int id, const RTBaseType& type, const TypeLink& link) {
        if (link.typeId == used)
            act(id, type, link);
        return out.good();
    });
}

void useMembers(JsonText& text, unsigned int id, const RTBaseType& type, const TypeLink& link) {
    typeMembers(text, id, &type);
    text.member("field", fieldOf(link.role, type.GetClassId()));
    if (link.role == LinkRole::MEMBER) {
        text.key("member");
        text.name(static_cast<const RTAggregateType&>(type).m_members[link.position]->m_memberName);
    }
    if (link.role == LinkRole::INDEX && type.GetClassId() == ClassId::ARRAY)
        text.member("dimension", link.position);
}

JsonLines usesLines(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form) {
    return {out, form, "HDL simulator type uses", "uses",
            [&](JsonText& head) { typeMembers(head, id, types.typeOf(id)); }};
}

void writeHeading(std::ostream& out, const TypeTable& types, unsigned int id, const char* text,
                  const TextStyle& style) {
    out << labelOf(types, id, types.typeOf(id), style) << ' ' << text << ":\n";
}

/// The ways of uses to the type that they lead to, in words.
class Ways {
public:
    Ways(const TypeTable& types, const std::vector<Use>& uses) : m_types(types), m_uses(uses) {
        for (std::size_t i = 0; i < uses.size(); ++i)
            m_places[uses[i].typeId] = i;
    }

    std::string textOf(const Use& use) const {
        std::string text = stepText(use);
        const Use* step = &use;
        for (unsigned int shown = 1; shown < use.distance; ++shown) {
            if (shown == LONGEST_WAY_SHOWN)
                return text + " > ...";
            step = &m_uses[m_places.at(step->link.typeId)];
            text += " > " + stepText(*step);
        }
        return text;
    }

private:
    std::string stepText(const Use& use) const {
        return linkText(*m_types.typeOf(use.typeId), use.link) + ' ' +
               std::to_string(use.link.typeId);
    }

    const TypeTable& m_types;
    const std::vector<Use>& m_uses;
    std::unordered_map<unsigned int, std::size_t> m_places; ///< Of the uses, by type.
};

} // namespace

void writeUses(std::ostream& out, const TypeTable& types, unsigned int id, const TextStyle& style) {
    writeHeading(out, types, id, "is used by", style);
    forEachUse(out, types, id,
               [&](unsigned int user, const RTBaseType& type, const TypeLink& link) {
                   out << "  " << labelOf(types, user, &type, style) << ": " << linkText(type, link)
                       << '\n';
               });
}

void writeUsesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form) {
    JsonLines lines = usesLines(out, types, id, form);
    forEachUse(out, types, id,
               [&](unsigned int user, const RTBaseType& type, const TypeLink& link) {
                   useMembers(lines.begin(), user, type, link);
                   lines.put();
               });
    lines.end();
}

void writeAllUses(std::ostream& out, const TypeTable& types, unsigned int id,
                  const TextStyle& style) {
    writeHeading(out, types, id, "is used by, directly and through others", style);
    const std::vector<Use> uses = UseIndex(types).usesOf(id);
    const Ways ways(types, uses);
    for (const Use& use : uses) {
        out << "  " << style.paint(Ink::NUMBER, std::to_string(use.distance)) << "  "
            << labelOf(types, use.typeId, types.typeOf(use.typeId), style) << ": "
            << ways.textOf(use) << '\n';
        if (!out)
            return;
    }
}

void writeAllUsesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form) {
    JsonLines lines = usesLines(out, types, id, form);
    for (const Use& use : UseIndex(types).usesOf(id)) {
        if (!out)
            return;
        JsonText& text = lines.begin();
        useMembers(text, use.typeId, *types.typeOf(use.typeId), use.link);
        text.member("distance", use.distance);
        text.member("next", use.link.typeId);
        lines.put();
    }
    lines.end();
}

} // namespace Inspect
