#include "Subcommand.h"

#include "Inspect/declarations/DeclarationFile.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/views/TypeDumper.h"
#include "Inspect/words/TypeKind.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include <fnmatch.h>

namespace {

/// `rtti dump`: what to print.
struct DumpOptions : FileArguments, ColorArguments {
    std::vector<std::string> types; ///< Ids and names; none for all.
    std::string kind;               ///< Empty for all.
    std::string name;               ///< A glob; empty for all.
    std::string format;             ///< A language; empty for the fields.
    bool trace = false;
    bool json = false;
    bool ndjson = false;
    Inspect::RangeLists lists = Inspect::RangeLists::SHORT;
    bool ids = false; ///< Whether to print ids above declarations.
};

using namespace RTTI;

/// Kinds that are part of the format and yet build no object.
constexpr unsigned int kindsWithoutType[] = {ClassId::CLASS_HANDLE, ClassId::LOGIC, ClassId::BIT,
                                             ClassId::ABSTRACT_ARRAY, ClassId::AGGREGATE};

std::string hex(unsigned int number) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << number;
    return text.str();
}

void checkKind(const std::string& kind) {
    const auto kinds = Inspect::allKinds();
    if (kind.empty() || std::any_of(kinds.begin(), kinds.end(), [&](std::string_view known) {
            return Inspect::matchesKind(known, kind);
        }))
        return;
    std::string text = "--kind " + kind + ": no such kind. There are:";
    for (const std::string_view known : kinds)
        text += (known == kinds.front() ? " " : ", ") + std::string(known);
    throw CLI::ValidationError(text);
}

/// One run over a file. Types are loaded as they are printed, so the first appear at once.
class Dump {
public:
    explicit Dump(const DumpOptions& options) : m_options(options), m_file(options) {}

    int run() {
        if (m_options.trace)
            m_file.manager().setDebugMode();
        if (!m_options.format.empty())
            m_declarations.emplace(
                std::cout, m_types = m_file.loadedTypes(),
                m_options.format == "vhdl" ? Inspect::SourceLanguage::VHDL
                                           : Inspect::SourceLanguage::SYSTEM_VERILOG,
                m_options.ids ? Inspect::IdComments::SHOWN : Inspect::IdComments::NONE);
        if (m_options.json || m_options.ndjson)
            m_json.emplace(std::cout,
                           m_options.json ? Inspect::JsonForm::DOCUMENT : Inspect::JsonForm::LINES,
                           m_file.version(), isPart());
        if (m_ids.empty()) {
            dumpAll();
        } else {
            for (const unsigned int id : m_ids)
                dump(id);
        }
        if (m_json)
            m_json->end();
        if (m_declarations)
            m_declarations->end();
        return m_faults ? ExitStatus::FAULTY : ExitStatus::DONE;
    }

    /// Before anything is printed, so that a wrong call prints nothing.
    void findTypes() {
        for (const std::string& type : m_options.types)
            m_ids.push_back(m_file.idOf("--id", type));
    }

private:
    bool isPart() const {
        return !(m_ids.empty() && m_options.kind.empty() && m_options.name.empty());
    }

    void dumpAll() {
        std::optional<Progress> progress;
        if (!isOutputOnTerminal())
            progress.emplace("printing " + m_options.file, m_file.typeCount());
        for (unsigned int id = 0; id < m_file.typeCount() && std::cout; ++id) {
            dump(id);
            if (progress)
                progress->at(id);
        }
    }

    void dump(unsigned int id) {
        const RTBaseType* type = m_file.manager().getRTType(id);
        if (type == nullptr)
            dumpHole(id);
        else if (m_options.trace || !isWanted(*type))
            return;
        else if (m_json)
            m_json->type(id, *type);
        else if (m_declarations)
            declare(id);
        else
            m_dumper.type(id, *type);
    }

    /// What is chosen gets a declaration, even if its users do without.
    void declare(unsigned int id) {
        if (m_ids.empty() && m_options.kind.empty() && m_options.name.empty())
            m_declarations->addUnlessSpelledOut(id);
        else
            m_declarations->add(id);
    }

    bool isWanted(const RTBaseType& type) const {
        if (!m_options.kind.empty() && !Inspect::matchesKind(Inspect::kindOf(type), m_options.kind))
            return false;
        return m_options.name.empty() ||
               fnmatch(m_options.name.c_str(), type.m_name != nullptr ? type.m_name : "", 0) == 0;
    }

    void dumpHole(unsigned int id) {
        const unsigned int kind = m_file.kindOf(id);
        const bool isShown = !m_options.trace && m_options.kind.empty() && m_options.name.empty();
        if (isShown && m_json)
            m_json->noType(id, kind);
        else if (isShown && m_declarations)
            m_declarations->add(id);
        else if (isShown)
            std::cout << m_style.paint(Inspect::Ink::HEADING, "type " + std::to_string(id) + ':')
                      << " builds no type (kind " << hex(kind) << ")\n\n";
        if (std::find(std::begin(kindsWithoutType), std::end(kindsWithoutType), kind) !=
            std::end(kindsWithoutType))
            return;
        std::cerr << "rtti: " << m_options.file << ": type " << id << ": there is no kind "
                  << hex(kind) << '\n';
        m_faults = true;
    }

    const DumpOptions& m_options;
    OpenedFile m_file;
    std::vector<unsigned int> m_ids; ///< None for all.
    std::optional<Inspect::TypeJsonWriter> m_json;
    const Inspect::TextStyle m_style = m_options.style();
    Inspect::TypeTable m_types = m_file.types();
    Inspect::TypeDumper m_dumper{std::cout, m_types, m_style, m_options.lists};
    std::optional<Inspect::DeclarationFile> m_declarations; ///< Of `m_types`.
    bool m_faults = false;
};

/// Prints the types of a file to standard output. The exit status: 0, or 1 if the file has faults,
/// each of which is a line on standard error. Throws for a wrong call or an unusable file.
int runDump(const DumpOptions& options) {
    checkKind(options.kind);
    if (options.trace && !(options.kind.empty() && options.name.empty()))
        throw CLI::ValidationError(
            "--trace shows a whole load; types can be chosen only with --id");
    if (options.json + options.ndjson + options.trace + !options.format.empty() > 1)
        throw CLI::ValidationError("--format, --json, --ndjson and --trace exclude one another");
    if (options.ids && options.format.empty())
        throw CLI::ValidationError("--ids goes with declarations: use it with --format");
    Dump dump(options);
    dump.findTypes();
    return dump.run();
}

} // namespace

Subcommand addDump(CLI::App& program) {
    const auto options = std::make_shared<DumpOptions>();
    CLI::App* dump = program.add_subcommand("dump", "Print the types of a type file");
    addFileArguments(*dump, *options);
    dump->add_option("--id", options->types, "Only the type with this id or name; may be repeated")
        ->take_all()
        ->expected(1)
        ->type_name("TYPE");
    dump->add_option("--kind", options->kind,
                     "Only types of this kind, such as \"packed struct\", struct or queue");
    dump->add_option("--name", options->name, "Only types whose name matches this shell pattern")
        ->type_name("GLOB");
    addChoice(*dump, "--format", options->format, {"vhdl", "sv"}, "LANGUAGE",
              "Print declarations that a compiler reads, in VHDL or SystemVerilog");
    dump->add_flag("--ids", options->ids, "Print the id of each type above its declaration");
    addRangeLists(*dump, options->lists);
    dump->add_flag("--trace", options->trace, "Print the debug trace of the load instead");
    dump->add_flag("--json", options->json, "Print a JSON document that rtti build reads");
    dump->add_flag("--ndjson", options->ndjson, "The same, with one JSON object on each line");
    addColorArgument(*dump, *options);
    dump->footer("Example:\n  rtti dump --kind struct --name 'ibex_*' "
                 "examples/typefiles/ibex_slang.typ\n"
                 "  rtti dump --format vhdl examples/typefiles/ieee_ghw.typ");
    return {dump, [options] { return runDump(*options); }};
}
