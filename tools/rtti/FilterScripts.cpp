#include "FilterScripts.h"

#include "OutputFile.h"

#include <string>
#include <string_view>

namespace fs = std::filesystem;

namespace {

/// A word that a shell takes as it is.
std::string shellWord(std::string_view text) {
    std::string word = "'";
    for (const char c : text)
        word += c == '\'' ? "'\\''" : std::string(1, c);
    return word + '\'';
}

/// This program, which need not be where the viewer looks for programs.
std::string programPath() {
    std::error_code error;
    const fs::path path = fs::read_symlink("/proc/self/exe", error);
    return error ? "rtti" : path.string();
}

/// All of the script but the type.
std::string commandOf(const FileArguments& file) {
    std::string command = "exec " + shellWord(programPath()) + " translate --filter";
    if (file.force)
        command += " --force";
    if (file.offset != 0)
        command += " --offset " + std::to_string(file.offset);
    return command + ' ' + shellWord(fs::absolute(file.file).string()) + ' ';
}

/// Whoever may read the file may run it.
void makeExecutable(const fs::path& path) {
    const fs::perms readable = fs::status(path).permissions();
    const auto bits = static_cast<unsigned int>(readable) & 0444U;
    fs::permissions(path, static_cast<fs::perms>(bits >> 2), fs::perm_options::add);
}

} // namespace

void writeFilterScripts(const fs::path& folder, const FileArguments& file,
                        const std::vector<Inspect::FilterType>& types) {
    const std::string command = commandOf(file);
    for (const Inspect::FilterType& type : types) {
        const fs::path path = folder / (type.file + ".sh");
        OutputFile script(path.string());
        script.stream() << "#!/bin/sh\n# " << type.name
                        << "\n# GTKWave: select its signals; Edit > Data Format > Translate Filter "
                           "Process >\n# Enable and Select; add this file. Data format: binary or "
                           "hexadecimal.\n"
                        << command << shellWord(type.argument) << '\n';
        script.commit();
        makeExecutable(path);
    }
}
