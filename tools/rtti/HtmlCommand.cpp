#include "Subcommand.h"

#include "Inspect/html/HtmlPage.h"
#include "OVAT/WholeFile.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <streambuf>
#include <vector>

namespace {

/// `rtti html`: which file, and where the page goes.
struct HtmlOptions : FileArguments {
    std::string output;
};

/// A stream's bytes to a file that appears whole or not at all.
class WholeFileBuffer : public std::streambuf {
public:
    explicit WholeFileBuffer(OVAT::WholeFile& file) : m_file(file), m_bytes(1 << 16) {
        setp(m_bytes.data(), m_bytes.data() + m_bytes.size());
    }

protected:
    int_type overflow(int_type c) override {
        sync();
        return traits_type::eq_int_type(c, traits_type::eof()) ? traits_type::not_eof(c)
                                                               : sputc(static_cast<char>(c));
    }

    int sync() override {
        const auto count = static_cast<std::size_t>(pptr() - pbase());
        m_file.write(m_written, pbase(), count);
        m_written += count;
        setp(m_bytes.data(), m_bytes.data() + m_bytes.size());
        return 0;
    }

private:
    OVAT::WholeFile& m_file;
    std::vector<char> m_bytes;
    unsigned long long m_written = 0;
};

/// Writes the page of a file. The exit status is 0. Throws for a wrong call, an unusable file, and
/// a page that cannot be written.
int runHtml(const HtmlOptions& options) {
    OpenedFile file(options);
    OVAT::WholeFile page(options.output);
    WholeFileBuffer buffer(page);
    std::ostream out(&buffer);
    out.exceptions(std::ios::badbit); // What the file throws comes through.
    const Inspect::TypeTable types = file.loadedTypes();
    Progress progress("writing " + options.output, types.count);
    Inspect::writeHtmlPage(out,
                           {std::filesystem::path(options.file).filename().string(), file.version(),
                            file.storage(), file.storage().size(), options.offset, types},
                           [&](unsigned int done) { progress.at(done); });
    out.flush();
    page.commit();
    return 0;
}

} // namespace

Subcommand addHtml(CLI::App& program) {
    const auto options = std::make_shared<HtmlOptions>();
    CLI::App* html =
        program.add_subcommand("html", "Write a page that shows the types of a type file");
    addFileArguments(*html, *options);
    html->add_option("-o,--output", options->output, "HTML file to write")->required();
    html->footer("Example:\n  rtti html examples/typefiles/ibex_slang.typ -o ibex.html\n\n"
                 "The page needs no network and no other file.");
    return {html, options->file, [options] { return runHtml(*options); }};
}
