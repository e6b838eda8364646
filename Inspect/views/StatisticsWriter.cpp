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

Json rankingToJson(const TypeTable& types, const std::vector<Ranked>& ranked, const char* amount) {
    Json list = Json::array();
    for (const Ranked& type : ranked) {
        Json json = typeToJson(type.id, types.typeOf(type.id));
        json[amount] = type.amount;
        list.push_back(std::move(json));
    }
    return list;
}

Json kindsToJson(const TypeStatistics& statistics) {
    Json list = Json::array();
    for (const auto& kind : statistics.kinds) {
        Json json = kindToJson(kind.kindCode, kind.detail);
        json.update({{"types", kind.types}, {"bytes", kind.bytes}});
        list.push_back(std::move(json));
    }
    return list;
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
    const Json languages{{"VHDL", statistics.vhdlTypes},
                         {"SystemVerilog", statistics.systemVerilogTypes}};
    JsonLines lines(out, JsonForm::DOCUMENT,
                    jsonHead("HDL simulator type statistics",
                             {{"version", nameToJson(facts.version)},
                              {"offset", facts.offset},
                              {"types", statistics.types},
                              {"recordBytes", statistics.bytes},
                              {"tableOffset", facts.tableOffset},
                              {"tableBytes", tableBytes(statistics)},
                              {"kinds", kindsToJson(statistics)},
                              {"languages", languages},
                              {"nesting", statistics.nesting},
                              {"largest", rankingToJson(types, statistics.largest, "bytes")},
                              {"longest", rankingToJson(types, statistics.longest, "parts")}}),
                    "unused");
    for (const unsigned int id : statistics.unused)
        lines.add(typeToJson(id, types.typeOf(id)));
    lines.end();
}

} // namespace Inspect
