#include "FrontEnd.h"

#include "OpenedFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

namespace {

using Words = std::vector<std::string>;

constexpr const char* PACKAGE = "ghdl-mcode";

/// What a call asks GHDL for: options, sources to analyse first, the unit on top, and what comes
/// behind it, which is for the run.
struct GhdlCall {
    Words options;
    Words sources;
    std::string unit;
    Words runOptions;
};

bool isSource(const std::string& word) {
    std::string end = std::filesystem::path(word).extension().string();
    std::transform(end.begin(), end.end(), end.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return end == ".vhd" || end == ".vhdl";
}

GhdlCall parse(const Words& arguments) {
    GhdlCall call;
    for (const std::string& word : arguments) {
        if (!call.unit.empty())
            call.runOptions.push_back(word);
        else if (word[0] == '-')
            call.options.push_back(word);
        else if (isSource(word))
            call.sources.push_back(word);
        else
            call.unit = word;
    }
    if (call.unit.empty())
        throw UnusableFile(
            "ghdl", "the arguments name no top-level unit, such as tb in: -- --std=08 tb", 2);
    return call;
}

Words joined(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

void runOrFail(const Words& words, const char* what) {
    const ProgramEnd end = runProgram(words, PACKAGE);
    if (!end.isSuccess())
        throw UnusableFile("ghdl", std::string(what) + " failed: it " + end.text(), 2);
}

/// Builds of GHDL with a compiler make a program of the design, others run it at once.
bool makesPrograms(const std::string& folder) {
    const std::string path = folder + "/version";
    runProgram({"ghdl", "--version"}, PACKAGE, path);
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return text.find("mcode") == std::string::npos;
}

/// The words that run the design, up to its options.
Words design(GhdlCall& call, const std::string& folder) {
    if (!call.sources.empty()) {
        call.options.push_back("--workdir=" + folder);
        runOrFail(joined(joined({"ghdl", "-a"}, call.options), call.sources), "the analysis");
    }
    if (!makesPrograms(folder))
        return joined(joined(joined({"ghdl", "-r"}, call.options), {call.unit}), call.runOptions);
    const std::string program = folder + "/design";
    const bool hasArchitecture = !call.runOptions.empty() && call.runOptions[0][0] != '-';
    Words elaborate = joined(joined({"ghdl", "-e"}, call.options), {"-o", program, call.unit});
    if (hasArchitecture) {
        elaborate.push_back(call.runOptions[0]);
        call.runOptions.erase(call.runOptions.begin());
    }
    runOrFail(elaborate, "the elaboration");
    return joined({program}, call.runOptions);
}

/// GHDL ends a wave with words of its own, however the run ended.
bool isWholeWave(const std::string& path) {
    constexpr std::streamoff TAIL_SIZE = 12;
    std::ifstream file(path, std::ios::binary);
    char tail[3] = {};
    file.seekg(-TAIL_SIZE, std::ios::end);
    return file.read(tail, sizeof tail) && std::string_view(tail, sizeof tail) == "TAI";
}

} // namespace

FrontEndRun runGhdl(const Words& arguments, const std::string& folder) {
    GhdlCall call = parse(arguments);
    const Words run = design(call, folder);
    const std::string wave = folder + "/" + call.unit + ".ghw";
    const std::string listing = folder + "/" + call.unit + ".rti";
    const ProgramEnd waveEnd =
        runProgram(joined(run, {"--stop-time=0ns", "--wave=" + wave}), PACKAGE);
    std::error_code missing;
    const auto size = std::filesystem::file_size(wave, missing);
    // What fails before the design runs leaves no wave, and would fail again.
    if (!waveEnd.isSuccess() && (missing || size == 0))
        throw UnusableFile("ghdl", "the elaboration failed: it " + waveEnd.text(), 2);
    const ProgramEnd listingEnd =
        runProgram(joined(run, {"--stop-time=0ns", "--dump-rti"}), PACKAGE, listing);

    FrontEndRun result;
    if (isWholeWave(wave))
        result.files.push_back(wave);
    // A design that fails by itself does so in both runs, and the listing is whole.
    if (listingEnd.isSuccess() || !waveEnd.isSuccess())
        result.files.push_back(listing);
    if (result.files.empty())
        throw UnusableFile("ghdl", "the run failed: it " + listingEnd.text(), 2);
    if (!waveEnd.isSuccess() || !listingEnd.isSuccess())
        result.complaint = "ghdl " + (waveEnd.isSuccess() ? listingEnd : waveEnd).text();
    if (result.files.back() != listing)
        result.complaint += " before the type listing was complete";
    return result;
}
