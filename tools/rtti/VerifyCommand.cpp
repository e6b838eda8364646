#include "VerifyCommand.h"

#include "Inspect/TypeText.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/TypeFileVerifier.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

using TypeFile::Finding;
using TypeFile::Severity;

namespace {

std::size_t count(const std::vector<Finding>& findings, Severity severity) {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [=](const Finding& finding) { return finding.severity == severity; }));
}

std::string counted(std::size_t number, const std::string& what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

void printText(const std::string& file, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings)
        std::cout << TypeFile::lineOf(finding) << '\n';
    std::cout << Inspect::escaped(file) << ": " << counted(count(findings, Severity::ERROR), "error") << ", "
              << counted(count(findings, Severity::WARNING), "warning") << '\n';
}

/// "type" is null for what belongs to the file.
nlohmann::ordered_json jsonOf(const Finding& finding) {
    nlohmann::ordered_json object;
    object["severity"] = TypeFile::severityText(finding.severity);
    object["code"] = TypeFile::codeText(finding.code);
    object["type"] = nullptr;
    if (finding.typeId != RTTI::TypeFileFormat::NO_TYPE_ID)
        object["type"] = finding.typeId;
    object["field"] = finding.field;
    object["offset"] = finding.offset;
    object["text"] = finding.text;
    return object;
}

void printJson(const std::string& file, const std::vector<Finding>& findings) {
    nlohmann::ordered_json report;
    report["file"] = file;
    report["errors"] = count(findings, Severity::ERROR);
    report["warnings"] = count(findings, Severity::WARNING);
    report["findings"] = nlohmann::ordered_json::array();
    for (const Finding& finding : findings)
        report["findings"].push_back(jsonOf(finding));
    // A file name need not be UTF-8: what is not becomes the replacement character.
    std::cout << report.dump(2, ' ', true, nlohmann::ordered_json::error_handler_t::replace)
              << '\n';
}

} // namespace

int runVerify(const VerifyOptions& options) {
    OVAT::FileBlockManager storage(options.file);
    const std::vector<Finding> findings = TypeFile::verify(storage, storage.size(), options.offset);
    if (options.json)
        printJson(options.file, findings);
    else
        printText(options.file, findings);
    return TypeFile::hasErrors(findings) ? 1 : 0;
}
