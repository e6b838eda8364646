#include "Inspect/views/TypeTree.h"

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/json/JsonLines.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/model/PartWalk.h"
#include "Inspect/words/TypeText.h"

#include <string>

namespace Inspect {

using namespace RTTI;
using TypeFile::fieldWords;

namespace {

/// Levels whose lines are drawn. A chain can be a hundred thousand levels deep.
constexpr unsigned int LEVELS_DRAWN = 40;

/// The lines at the left of a part, which say what it is a part of.
class Branches {
public:
    std::string before(const Part& part) {
        if (part.depth == 0)
            return "";
        if (part.depth > LEVELS_DRAWN)
            return m_stem + "[" + std::to_string(part.depth) + "] ";
        m_stem.resize(WIDTH * (part.depth - 1));
        std::string text = m_stem + (part.isLast ? "`-- " : "|-- ");
        m_stem += part.isLast ? "    " : "|   ";
        return text;
    }

private:
    static constexpr std::size_t WIDTH = 4;
    std::string m_stem; ///< What goes on below the last part, level by level.
};

std::string roleText(const Part& part) {
    if (part.depth == 0)
        return "";
    if (part.role != LinkRole::MEMBER)
        return fieldWords(fieldOf(part.role, part.above->GetClassId())) + ": ";
    return (part.member != nullptr ? pathName(part.member->m_memberName) : "(no member)") + ": ";
}

/// What a type refers to that is no part of it.
std::string besides(const RTBaseType& type, const TypeTable& types, const TextStyle& style) {
    const auto label = [&](unsigned int id) {
        return labelOf(types, id, id < types.count ? types.typeOf(id) : nullptr, style);
    };
    switch (type.GetClassId()) {
    case ClassId::ASSOC_ARRAY:
        return " indexed by " + label(static_cast<const RTAssocArrayType&>(type).m_indexTypeId);
    case ClassId::ACCESS: return " to " + label(static_cast<const RTAccessType&>(type).m_refTypeId);
    case ClassId::FILE_TYPE:
        return " of " + label(static_cast<const RTFileType&>(type).m_refTypeId);
    default: return "";
    }
}

std::string detailsOf(const Part& part, const TypeTable& types, RangeLists lists,
                      const TextStyle& style) {
    if (part.type == nullptr)
        return "";
    std::string text;
    if (!part.ranges.empty())
        text += ' ' + style.paint(Ink::NUMBER, runsText(part.ranges, lists));
    const std::string range = valueRangeText(*part.type, part.narrowing);
    if (!range.empty())
        text += ' ' + style.paint(Ink::NUMBER, range);
    text += besides(*part.type, types, style);
    if (part.isSeenAbove)
        text += ' ' + style.paint(Ink::COMMENT, "(seen above)");
    return text;
}

void partMembers(JsonText& text, const Part& part) {
    text.member("depth", part.depth);
    text.key("field");
    if (part.above != nullptr)
        text.value(fieldOf(part.role, part.above->GetClassId()));
    else
        text.value(nullptr);
    if (part.member != nullptr) {
        text.key("member");
        text.name(part.member->m_memberName);
    }
    typeMembers(text, part.typeId, part.type);
    text.member("ranges", part.ranges);
    if (part.type != nullptr && !part.hasParts && part.narrowing != nullptr)
        text.member("valueRange", *part.narrowing);
    if (part.isSeenAbove)
        text.member("seenAbove", true);
}

} // namespace

bool writeTree(std::ostream& out, const TypeTable& types, const TreeRequest& request,
               const TextStyle& style) {
    PartWalk walk(request.id, types.typeOf(request.id), request.depth, request.limit);
    Branches branches;
    while (out && walk.next()) {
        const Part& part = walk.part();
        out << branches.before(part) << roleText(part)
            << labelOf(types, part.typeId, part.type, style)
            << detailsOf(part, types, request.lists, style);
        if (part.hasParts && part.depth >= request.depth)
            out << ' ' << style.paint(Ink::COMMENT, "...");
        out << '\n';
    }
    if (walk.isCut())
        out << style.paint(Ink::COMMENT, "... and more") << '\n';
    return !walk.isCut();
}

bool writeTreeJson(std::ostream& out, const TypeTable& types, const TreeRequest& request,
                   JsonForm form) {
    PartWalk walk(request.id, types.typeOf(request.id), request.depth, request.limit);
    JsonLines lines(out, form, "HDL simulator type tree", "parts",
                    [&](JsonText& head) { head.member("id", request.id); });
    while (out && walk.next()) {
        JsonText& text = lines.begin();
        partMembers(text, walk.part());
        if (walk.part().hasParts && walk.part().depth >= request.depth)
            text.member("isCut", true);
        lines.put();
    }
    lines.end();
    return !walk.isCut();
}

} // namespace Inspect
