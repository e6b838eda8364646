#include "Inspect/declarations/LanguageDeclarations.h"

#include "Inspect/words/TypeText.h"

namespace Inspect {

using namespace RTTI;

std::string_view LanguageDeclarations::comment() const {
    return m_language == SourceLanguage::VHDL ? "--" : "//";
}

bool LanguageDeclarations::isUnnamed(unsigned int id) const {
    return m_names.classOf(id) != 0 && m_names.givenName(id).empty();
}

std::string LanguageDeclarations::shapeOf(unsigned int id) const {
    constexpr std::size_t MOST_PARTS = 8;
    Text text;
    text << define(text, id, MOST_PARTS);
    std::string line;
    for (const char c : text.view()) {
        if ((c != ' ' && c != '\n') || (!line.empty() && line.back() != ' '))
            line += c == '\n' ? ' ' : c;
    }
    if (!line.empty() && line.back() == ' ')
        line.pop_back();
    if (line.size() > MOST_CHARACTERS)
        line.replace(MOST_CHARACTERS - 3, std::string::npos, "...");
    return line;
}

void LanguageDeclarations::remark(Text& out, std::string_view text) const {
    out << comment() << ' ' << text << '\n';
}

std::string LanguageDeclarations::obstacleOf(unsigned int id) const {
    constexpr std::size_t MANY = 16;
    TypeNeeds needs;
    needs.named.reserve(MANY);
    needsOf(id, needs);
    return obstacleOf(id, needs);
}

std::string LanguageDeclarations::obstacleOf(unsigned int id, const TypeNeeds& needs) const {
    if (typeOf(id) == nullptr)
        return "there is no such type";
    for (const TypeNeed& need : needs.named) {
        if (need.typeId == TypeFileFormat::NO_TYPE_ID)
            return "what it is made of is not recorded";
        if (m_names.isOfLanguage(need.typeId))
            continue;
        const std::string type = "type " + std::to_string(need.typeId);
        const RTBaseType* needed = typeOf(need.typeId);
        return needed == nullptr ? type + " is missing"
                                 : type + " belongs to " + nameOf(languageOf(*needed));
    }
    return ownObstacleOf(id, needs);
}

} // namespace Inspect
