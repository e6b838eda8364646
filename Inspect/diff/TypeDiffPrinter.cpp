#include "Inspect/diff/TypeDiffPrinter.h"

#include "Inspect/diff/TypeWords.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/words/TypeText.h"
#include "TypeFile/FieldNames.h"

#include <fmt/format.h>

#include <string>
#include <utility>

namespace Inspect {

using namespace RTTI;
using TypeFile::fieldWords;
namespace Field = TypeFile::Field;

namespace {

/// A field of a change in words: "element type" for "elementType", "index type 2" for
/// "indexTypes[1]". An entry of a list goes by its own name.
std::string changedWords(const std::string& field) {
    if (const std::size_t index = field.find('['); index != std::string::npos)
        return fmt::format("index type {}", std::stoul(field.substr(index + 1)) + 1);
    const std::string words = fieldWords(field);
    const bool isEntry =
        field == Field::LITERALS || field == Field::UNITS || field == Field::MEMBERS;
    return isEntry ? words.substr(0, words.size() - 1) : words;
}

class TextPrinter {
public:
    TextPrinter(std::ostream& out, const TypeDiff& diff, const TextStyle& style)
        : m_out(out), m_diff(diff), m_style(style) {}

    void print(RangeLists lists) {
        for (const unsigned int id : m_diff.removed())
            type(Ink::REMOVED, "removed", m_diff.a(), id);
        const TypeDiff::Counts counts =
            m_diff.eachChange([&](const TypeChange& one) { change(one); }, lists);
        for (const unsigned int id : m_diff.added())
            type(Ink::ADDED, "added", m_diff.b(), id);
        summary(counts);
    }

private:
    void type(Ink ink, std::string_view word, const TypeTable& table, unsigned int id) {
        m_out << m_style.paint(ink, fmt::format("{:<8}", word))
              << m_style.paint(Ink::COMMENT, fmt::format("type {}: ", id)) << typeWords(table, id)
              << '\n';
    }

    /// A range speaks for itself; other values come with the name of their field.
    void change(const TypeChange& change) {
        m_out << m_style.paint(Ink::CHANGED, "changed ") << m_style.paint(Ink::NAME, change.path)
              << ": ";
        if (change.field != Field::RANGE && change.field != Field::CONSTRAINTS)
            m_out << changedWords(change.field) << ' ';
        if (change.before && change.after)
            m_out << *change.before << " -> " << *change.after;
        else if (change.before)
            m_out << "removed: " << *change.before;
        else if (change.after)
            m_out << "added: " << *change.after;
        m_out << m_style.paint(Ink::COMMENT,
                               fmt::format(" (types {} and {})", change.idA, change.idB))
              << '\n';
    }

    void summary(const TypeDiff::Counts& counts) {
        m_out << m_style.paint(Ink::HEADING, verdictText(m_diff.verdict())) << ": "
              << ruleText(m_diff.verdict()) << '\n'
              << fmt::format("{} and {} types: {} equal, {} removed, {} changed, {} containing "
                             "changed ones, {} added\n",
                             counts.typesOfA, counts.typesOfB, counts.equal, counts.removed,
                             counts.changed, counts.containing, counts.added);
    }

    std::ostream& m_out;
    const TypeDiff& m_diff;
    const TextStyle& m_style;
};

/// A document whose lists have an entry a line.
class JsonPrinter {
public:
    JsonPrinter(std::ostream& out, const TypeDiff& diff) : m_out(out), m_diff(diff) {}

    void print() {
        openDocument(m_text, "HDL simulator type differences");
        m_text.member("verdict", verdictText(m_diff.verdict()));
        m_text.member("rule", ruleText(m_diff.verdict()));
        types("removed", m_diff.a(), m_diff.removed());
        openList("changed");
        const TypeDiff::Counts counts =
            m_diff.eachChange([&](const TypeChange& one) { change(one); }, RangeLists::WHOLE);
        closeList();
        types("added", m_diff.b(), m_diff.added());
        summary(counts);
        m_text.closeObject();
        m_text.endOfLines();
        m_text.writeTo(m_out);
    }

private:
    void openList(std::string_view key) {
        m_text.newLine();
        m_text.key(key);
        m_text.openList();
        m_isEmpty = true;
    }

    void beginEntry() {
        m_text.newLine();
        m_text.openObject();
        m_isEmpty = false;
    }

    void endEntry() {
        m_text.closeObject();
        m_text.writeTo(m_out);
    }

    void closeList() {
        if (!m_isEmpty)
            m_text.endOfLines();
        m_text.closeList();
    }

    void types(std::string_view key, const TypeTable& table, const std::vector<unsigned int>& ids) {
        openList(key);
        for (const unsigned int id : ids) {
            beginEntry();
            typeMembers(m_text, id, table.typeOf(id));
            endEntry();
        }
        closeList();
    }

    void change(const TypeChange& change) {
        beginEntry();
        m_text.member("idA", change.idA);
        m_text.member("idB", change.idB);
        kindAndName(m_text, m_diff.a().typeOf(change.idA));
        m_text.member("path", change.path);
        m_text.member("field", change.field);
        m_text.member("old", change.before);
        m_text.member("new", change.after);
        endEntry();
    }

    void summary(const TypeDiff::Counts& counts) {
        m_text.newLine();
        m_text.key("counts");
        m_text.openObject();
        m_text.member("typesOfA", counts.typesOfA);
        m_text.member("typesOfB", counts.typesOfB);
        m_text.member("equal", counts.equal);
        m_text.member("removed", counts.removed);
        m_text.member("changed", counts.changed);
        m_text.member("containing", counts.containing);
        m_text.member("added", counts.added);
        m_text.closeObject();
    }

    std::ostream& m_out;
    const TypeDiff& m_diff;
    JsonText m_text;
    bool m_isEmpty = true; ///< The list that is open.
};

} // namespace

void printDiffText(std::ostream& out, const TypeDiff& diff, const TextStyle& style,
                   RangeLists lists) {
    TextPrinter(out, diff, style).print(lists);
}

void printDiffJson(std::ostream& out, const TypeDiff& diff) { JsonPrinter(out, diff).print(); }

} // namespace Inspect
