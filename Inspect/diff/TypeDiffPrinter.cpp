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

/// Writes the entries of a list, one a line.
class JsonList {
public:
    JsonList(std::ostream& out, std::string_view key) : m_out(out) {
        m_out << ",\n\"" << key << "\":[";
    }
    JsonList(const JsonList&) = delete;
    JsonList& operator=(const JsonList&) = delete;
    ~JsonList() { m_out << (m_isEmpty ? "]" : "\n]"); }

    void add(const Json& entry) {
        m_out << (m_isEmpty ? "\n" : ",\n") << lineText(entry);
        m_isEmpty = false;
    }

private:
    std::ostream& m_out;
    bool m_isEmpty = true;
};

void printTypes(std::ostream& out, std::string_view key, const TypeTable& table,
                const std::vector<unsigned int>& ids) {
    JsonList list(out, key);
    for (const unsigned int id : ids)
        list.add(typeToJson(id, table.typeOf(id)));
}

Json jsonOf(const TypeChange& change, const TypeTable& a) {
    Json json{{"idA", change.idA}, {"idB", change.idB}};
    json.update(typeToJson(change.idA, a.typeOf(change.idA)));
    json.erase("id");
    json.update(
        {{"path", change.path}, {"field", change.field}, {"old", nullptr}, {"new", nullptr}});
    if (change.before)
        json["old"] = *change.before;
    if (change.after)
        json["new"] = *change.after;
    return json;
}

} // namespace

void printDiffText(std::ostream& out, const TypeDiff& diff, const TextStyle& style,
                   RangeLists lists) {
    TextPrinter(out, diff, style).print(lists);
}

void printDiffJson(std::ostream& out, const TypeDiff& diff) {
    out << openedText(
        jsonHead("HDL simulator type differences",
                 {{"verdict", verdictText(diff.verdict())}, {"rule", ruleText(diff.verdict())}}));
    printTypes(out, "removed", diff.a(), diff.removed());
    TypeDiff::Counts counts;
    {
        JsonList list(out, "changed");
        counts =
            diff.eachChange([&](const TypeChange& change) { list.add(jsonOf(change, diff.a())); },
                            RangeLists::WHOLE);
    }
    printTypes(out, "added", diff.b(), diff.added());
    const Json json{{"typesOfA", counts.typesOfA}, {"typesOfB", counts.typesOfB},
                    {"equal", counts.equal},       {"removed", counts.removed},
                    {"changed", counts.changed},   {"containing", counts.containing},
                    {"added", counts.added}};
    out << ",\n\"counts\":" << json.dump() << "}\n";
}

} // namespace Inspect
