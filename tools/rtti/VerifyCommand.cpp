#include "Subcommand.h"

#include "Inspect/json/PartJson.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"
#include "OpenedFile.h"
#include "RTTI/TypeFileFormat.h"
#include "Terminal.h"
#include "TypeFile/TypeFileVerifier.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <memory>

using TypeFile::Finding;
using TypeFile::Severity;

namespace {

/// `rtti verify`: which file, and how to print what is found.
struct VerifyOptions : StorageArguments, ColorArguments {
    bool json = false;
};

std::size_t count(const std::vector<Finding>& findings, Severity severity) {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [=](const Finding& finding) { return finding.severity == severity; }));
}

Inspect::Ink inkOf(Severity severity) {
    return severity == Severity::ERROR ? Inspect::Ink::ERROR : Inspect::Ink::WARNING;
}

/// A finding's line, its severity set off.
std::string paintedLine(const Finding& finding, const Inspect::TextStyle& style) {
    const std::string line = TypeFile::lineOf(finding);
    const std::size_t length = std::string_view(TypeFile::severityText(finding.severity)).size();
    return style.paint(inkOf(finding.severity), line.substr(0, length)) + line.substr(length);
}

/// "2 errors", set off if there are any.
std::string paintedCount(const std::vector<Finding>& findings, Severity severity,
                         const std::string& what, const Inspect::TextStyle& style) {
    const std::size_t number = count(findings, severity);
    const std::string text = Inspect::counted(number, what);
    return number == 0 ? text : style.paint(inkOf(severity), text);
}

void printText(const std::string& file, const std::vector<Finding>& findings,
               const Inspect::TextStyle& style) {
    for (const Finding& finding : findings)
        std::cout << paintedLine(finding, style) << '\n';
    std::cout << Inspect::escaped(file) << ": "
              << paintedCount(findings, Severity::ERROR, "error", style) << ", "
              << paintedCount(findings, Severity::WARNING, "warning", style) << '\n';
}

/// "id" is null for what belongs to the file.
void writeFinding(Inspect::JsonText& text, const Finding& finding) {
    text.openObject();
    text.member("severity", TypeFile::severityText(finding.severity));
    text.member("code", TypeFile::codeText(finding.code));
    text.key("id");
    if (finding.typeId != RTTI::TypeFileFormat::NO_TYPE_ID)
        text.value(finding.typeId);
    else
        text.value(nullptr);
    text.member("field", finding.field);
    text.member("offset", finding.offset);
    text.member("text", finding.text);
    text.closeObject();
}

void printJson(const std::string& file, const std::vector<Finding>& findings) {
    Inspect::JsonText text(Inspect::JsonText::Layout::INDENTED);
    Inspect::openDocument(text, "HDL simulator type file findings");
    text.member("file", file);
    text.member("errors", count(findings, Severity::ERROR));
    text.member("warnings", count(findings, Severity::WARNING));
    text.key("findings");
    text.openList();
    for (const Finding& finding : findings)
        writeFinding(text, finding);
    text.closeList();
    text.closeObject();
    text.endOfLines();
    text.writeTo(std::cout);
}

/// Prints the findings of a file to standard output and a summary after them. The exit status: 0,
/// or 1 if there are errors. Throws for a file that cannot be read.
int runVerify(const VerifyOptions& options) {
    InputStorage storage(options.file);
    const auto findings = findingsOf(storage, options.offset);
    if (options.json)
        printJson(storage.path(), findings);
    else
        printText(storage.path(), findings, options.style());
    return TypeFile::hasErrors(findings) ? ExitStatus::FAULTY : ExitStatus::DONE;
}

} // namespace

Subcommand addVerify(CLI::App& program) {
    const auto options = std::make_shared<VerifyOptions>();
    CLI::App* verify = program.add_subcommand("verify", "Report what is wrong with a type file");
    addStorageArguments(*verify, *options);
    verify->add_flag("--json", options->json, "Print the findings as JSON");
    addColorArgument(*verify, *options);
    verify->footer("Example:\n  rtti verify examples/typefiles/ibex_slang.typ");
    return {verify, [options] { return runVerify(*options); }};
}
