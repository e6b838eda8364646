#include "FrontEnd.h"

#include "UnusableFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>

namespace {

using Words = std::vector<std::string>;

struct FrontEnd {
    const char* name;
    FrontEndRun (*run)(const Words& arguments, const std::string& folder);
};

constexpr FrontEnd FRONT_ENDS[] = {{"verilator", runVerilator}, {"ghdl", runGhdl}};

constexpr std::string_view TREE_END = "_width.tree";

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The options with which a release makes no model and dumps its trees. The older ones can dump the
/// one tree alone.
Words dumpOptions(const std::string& folder) {
    constexpr double FIRST_WITH_JSON = 5.032;
    const std::string versionPath = folder + "/version";
    runProgram({"verilator", "--version"}, "verilator", versionPath);
    std::istringstream words(contentOf(versionPath)); // "Verilator 5.006 2023-01-22"
    std::string name;
    double version = 0;
    words >> name >> version;
    if (version >= FIRST_WITH_JSON)
        return {"--json-only", "--dump-tree"};
    return {"--xml-only", "--dump-V3Width"};
}

Words treesIn(const std::string& folder) {
    Words trees;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string path = entry.path().string();
        if (path.size() > TREE_END.size() &&
            path.compare(path.size() - TREE_END.size(), TREE_END.size(), TREE_END) == 0)
            trees.push_back(path);
    }
    std::sort(trees.begin(), trees.end());
    return trees;
}

} // namespace

std::vector<std::string> frontEndNames() {
    Words names;
    for (const FrontEnd& known : FRONT_ENDS)
        names.emplace_back(known.name);
    return names;
}

FrontEndRun runFrontEnd(const std::string& name, const Words& arguments,
                        const std::string& folder) {
    return std::find_if(std::begin(FRONT_ENDS), std::end(FRONT_ENDS),
                        [&](const FrontEnd& known) { return known.name == name; })
        ->run(arguments, folder);
}

FrontEndRun runVerilator(const Words& arguments, const std::string& folder) {
    const std::string trees = folder + "/trees";
    // Else it puts a hash in place of what is longer.
    constexpr const char* LONGEST_NAME = "65536";
    Words words = {"verilator", "-Wno-fatal", "--timing", "--comp-limit-syms", LONGEST_NAME};
    const Words dump = dumpOptions(folder);
    words.insert(words.end(), dump.begin(), dump.end());
    words.insert(words.end(), arguments.begin(), arguments.end());
    words.insert(words.end(), {"-Mdir", trees});
    std::filesystem::create_directory(trees);
    const ProgramEnd end = runProgram(words, "verilator");

    FrontEndRun run;
    run.files = treesIn(trees);
    if (run.files.empty())
        throw UnusableFile("verilator",
                           end.isSuccess() ? "it wrote no tree of types" : "it " + end.text(),
                           ExitStatus::UNUSABLE);
    // A run that complains of a construct later than at the types has written them all.
    run.files = {run.files.back()};
    if (!end.isSuccess())
        run.complaint = "verilator " + end.text();
    return run;
}
