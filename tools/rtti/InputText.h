#pragma once

#include <fstream>
#include <istream>
#include <string>

/// A text to read, opened: a file, or standard input. Throws std::system_error; directories, which
/// open like files, cannot be read.
class InputText {
public:
    explicit InputText(const std::string& path);

    /// As messages name it.
    const std::string& name() const { return m_name; }
    static std::string nameOf(const std::string& path);

    std::istream& stream();

private:
    bool m_isStandardInput;
    std::string m_name;
    std::ifstream m_file;
};
