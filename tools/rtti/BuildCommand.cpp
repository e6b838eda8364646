#include "BuildCommand.h"

#include "Inspect/TypeJsonReader.h"
#include "TypeFile/TypeFileWriter.h"

#include <cerrno>
#include <fstream>
#include <iostream>
#include <system_error>

#include <sys/stat.h>

namespace {

/// The text, opened. Directories open like files and cannot be read.
class InputText {
public:
    explicit InputText(const std::string& path) : m_isStandardInput(path == "-") {
        if (m_isStandardInput)
            return;
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0)
            throw std::system_error(errno, std::generic_category(), path);
        if (S_ISDIR(status.st_mode))
            throw std::system_error(EISDIR, std::generic_category(), path);
        m_file.open(path, std::ios::binary);
        if (!m_file)
            throw std::system_error(errno, std::generic_category(), path);
    }

    std::istream& stream() { return m_isStandardInput ? std::cin : m_file; }

private:
    bool m_isStandardInput;
    std::ifstream m_file;
};

} // namespace

int runBuild(const BuildOptions& options) {
    InputText text(options.file);
    TypeFile::TypeFileWriter writer(options.offset);
    Inspect::TypeJsonReader reader(
        [&](unsigned int id, const RTTI::RTBaseType& type) { writer.add(id, type); },
        [&](std::string_view version) { writer.setVersion(version); });
    if (options.ndjson)
        reader.readLines(text.stream());
    else
        reader.readDocument(text.stream());
    if (text.stream().bad())
        throw std::system_error(EIO, std::generic_category(), options.file);
    try {
        writer.finishFile(options.output, options.image);
    } catch (const TypeFile::WriteError& error) {
        throw Inspect::JsonError(reader.placeOf(error.typeId(), error.field()), error.reason());
    }
    return 0;
}
