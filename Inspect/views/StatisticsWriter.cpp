// TypeStatistics as text and as JSON.

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/json/JsonLines.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/model/TypeReferences.h"
#include "Inspect/views/TypeStatistics.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

namespace Inspect {

using namespace RTTI;

namespace {

using Ranked = TypeStatistics::Ranked;

unsigned long long tableBytes(const TypeStatistics& statistics) {
    return statistics.types * static_cast<unsigned long long>(TypeFileFormat::ADDRESS_SIZE);
}

/// The text, block by block.
class StatisticsText {
public:
    StatisticsText(std::ostream& out, const TypeTable& types, const TextStyle& style,
                   unsigned int top)
        : m_out(out), m_types(types), m_style(style), m_top(top) {}

    void header(const FileFacts& facts, const TypeStatistics& statistics) {
        m_out << fmt::format("version {} at {}\n", Inspect::quoted(facts.version), facts.offset)
              << fmt::format("{} in {} of records\n", counted(statistics.types, "type"),
                             counted(statistics.bytes, "byte"))
              << fmt::format("address table at {}, {}\n\n", facts.tableOffset,
                             counted(tableBytes(statistics), "byte"));
    }

    void kinds(const TypeStatistics& statistics) {
        heading(fmt::format("{:>10} {:>12}  kind", "types", "bytes"));
        for (const auto& kind : statistics.kinds)
            m_out << fmt::format("{:>10} {:>12}  {}\n", kind.types, kind.bytes,
                                 m_style.paint(Ink::KEYWORD, kind.kind));
        m_out << fmt::format("\n{} of VHDL, {} of SystemVerilog\n\n",
                             counted(statistics.vhdlTypes, "type"), statistics.systemVerilogTypes);
    }

    void nesting(const std::vector<unsigned int>& chain) {
        heading(fmt::format("deepest nesting: {}, each within the one before",
                            counted(chain.size(), "type")));
        for (std::size_t i = 0; i < std::min<std::size_t>(chain.size(), m_top); ++i) {
            m_out << "  " << label(chain[i]);
            if (i + 1 < chain.size())
                m_out << ": " << linkBetween(chain[i], chain[i + 1]);
            m_out << '\n';
        }
        rest(chain.size());
    }

    void ranking(const char* title, const std::vector<Ranked>& ranked) {
        heading(title);
        for (const Ranked& type : ranked)
            m_out << fmt::format("{:>12}  {}\n", type.amount, label(type.id));
        m_out << '\n';
    }

    void unused(const std::vector<unsigned int>& ids) {
        heading(fmt::format("{} that no other type refers to", counted(ids.size(), "type")));
        m_out << "(signals, variables and parameters may still use them)\n";
        for (std::size_t i = 0; i < std::min<std::size_t>(ids.size(), m_top); ++i)
            m_out << "  " << label(ids[i]) << '\n';
        rest(ids.size());
    }

private:
    void heading(const std::string& text) { m_out << m_style.paint(Ink::HEADING, text) << '\n'; }

    std::string label(unsigned int id) const {
        return labelOf(m_types, id, m_types.typeOf(id), m_style);
    }

    std::string linkBetween(unsigned int from, unsigned int to) const {
        std::vector<TypeLink> links;
        const RTBaseType& type = *m_types.typeOf(from);
        linksOf(type, links);
        const auto link = std::find_if(links.begin(), links.end(),
                                       [&](const TypeLink& l) { return l.typeId == to; });
        return linkText(type, *link);
    }

    /// Ends a list of which the first were shown.
    void rest(std::size_t count) {
        if (count > m_top)
            m_out << "  ... and " << count - m_top << " more\n";
        m_out << '\n';
    }

    std::ostream& m_out;
    const TypeTable& m_types;
    const TextStyle& m_style;
    unsigned int m_top;
};

void rankingMember(JsonText& text, const char* key, const TypeTable& types,
                   const std::vector<Ranked>& ranked, const char* amount) {
    text.key(key);
    text.openList();
    for (const Ranked& type : ranked) {
        text.openObject();
        typeMembers(text, type.id, types.typeOf(type.id));
        text.member(amount, type.amount);
        text.closeObject();
    }
    text.closeList();
}

void kindsMember(JsonText& text, const TypeStatistics& statistics) {
    text.key("kinds");
    text.openList();
    for (const auto& kind : statistics.kinds) {
        text.openObject();
        kindMembers(text, kind.kindCode, kind.detail);
        text.member("types", kind.types);
        text.member("bytes", kind.bytes);
        text.closeObject();
    }
    text.closeList();
}

void fileMembers(JsonText& text, const TypeTable& types, const FileFacts& facts,
                 const TypeStatistics& statistics) {
    text.key("version");
    text.name(facts.version);
    text.member("offset", facts.offset);
    text.member("types", statistics.types);
    text.member("recordBytes", statistics.bytes);
    text.member("tableOffset", facts.tableOffset);
    text.member("tableBytes", tableBytes(statistics));
    kindsMember(text, statistics);
    text.key("languages");
    text.openObject();
    text.member("VHDL", statistics.vhdlTypes);
    text.member("SystemVerilog", statistics.systemVerilogTypes);
    text.closeObject();
    text.member("nesting", statistics.nesting);
    rankingMember(text, "largest", types, statistics.largest, "bytes");
    rankingMember(text, "longest", types, statistics.longest, "parts");
}

} // namespace

void writeStatistics(std::ostream& out, const TypeTable& types, const FileFacts& facts,
                     const TypeStatistics& statistics, unsigned int top, const TextStyle& style) {
    StatisticsText text(out, types, style, top);
    text.header(facts, statistics);
    text.kinds(statistics);
    text.nesting(statistics.nesting);
    text.ranking("largest records, in bytes", statistics.largest);
    text.ranking("most members, literals or units", statistics.longest);
    text.unused(statistics.unused);
}

void writeStatisticsJson(std::ostream& out, const TypeTable& types, const FileFacts& facts,
                         const TypeStatistics& statistics) {
    JsonLines lines(out, JsonForm::DOCUMENT, "HDL simulator type statistics", "unused",
                    [&](JsonText& head) { fileMembers(head, types, facts, statistics); });
    for (const unsigned int id : statistics.unused) {
        typeMembers(lines.begin(), id, types.typeOf(id));
        lines.put();
    }
    lines.end();
}

} // namespace Inspect
