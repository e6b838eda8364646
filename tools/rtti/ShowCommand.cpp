#include "Subcommand.h"

#include "Inspect/model/TypeReferences.h"
#include "Inspect/views/TypeDumper.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

using RTTI::RTBaseType;

namespace {

/// `rtti show`: which type of which file.
struct ShowOptions : FileArguments, ColorArguments {
    std::string type;
    Inspect::RangeLists lists = Inspect::RangeLists::SHORT;
};

/// Prints a type with its neighbours.
class Show {
public:
    Show(OpenedFile& file, const Inspect::TypeTable& types, const Inspect::TextStyle& style,
         Inspect::TypeDumper& dumper)
        : m_file(file), m_types(types), m_style(style), m_dumper(dumper) {}

    void type(unsigned int id) {
        if (const RTBaseType* shown = m_types.typeOf(id))
            m_dumper.type(id, *shown);
        else
            std::cout << m_style.paint(Inspect::Ink::HEADING, "type " + std::to_string(id) + ':')
                      << " builds no type\n\n";
    }

    void referredTypes(unsigned int id) {
        heading("refers to:");
        if (const RTBaseType* shown = m_types.typeOf(id)) {
            for (const unsigned int referred : Inspect::referencesOf(*shown))
                type(referred);
        }
    }

    void referringTypes(unsigned int id) {
        heading("referred to by:");
        std::cout.flush(); // The work is done before a line is written under the progress.
        for (const unsigned int other : m_file.referringTo(id))
            m_dumper.heading(other, *m_types.typeOf(other));
    }

private:
    void heading(const char* text) const {
        std::cout << m_style.paint(Inspect::Ink::HEADING, text) << "\n\n";
    }

    OpenedFile& m_file;
    const Inspect::TypeTable& m_types;
    const Inspect::TextStyle& m_style;
    Inspect::TypeDumper& m_dumper;
};

/// Prints a type, the types that it refers to, and a line for each type that refers to it. The exit
/// status is 0. Throws for a wrong call or an unusable file.
int runShow(const ShowOptions& options) {
    OpenedFile file(options, OpenedFile::Verified::AS_ASKED);
    const unsigned int id = file.idOf("TYPE", options.type);
    const Inspect::TypeTable types = file.types();
    const Inspect::TextStyle style = options.style();
    Inspect::TypeDumper dumper(std::cout, types, style, options.lists);
    Show show(file, types, style, dumper);
    show.type(id);
    show.referredTypes(id);
    show.referringTypes(id);
    return ExitStatus::DONE;
}

} // namespace

Subcommand addShow(CLI::App& program) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* show = program.add_subcommand("show", "Print one type with its neighbours");
    addFileArguments(*show, *options);
    addTypeArgument(*show, options->type)->required();
    addColorArgument(*show, *options);
    addRangeLists(*show, options->lists);
    show->footer("Example:\n  rtti show examples/typefiles/ibex_slang.typ ibex_pkg::md_op_e");
    return {show, [options] { return runShow(*options); }};
}
