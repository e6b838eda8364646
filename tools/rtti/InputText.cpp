#include "InputText.h"

#include "InputStorage.h"

#include <cerrno>
#include <iostream>
#include <system_error>

#include <sys/stat.h>

std::string InputText::nameOf(const std::string& path) {
    return path == STANDARD_STREAM ? "standard input" : path;
}

InputText::InputText(const std::string& path)
    : m_isStandardInput(path == STANDARD_STREAM), m_name(nameOf(path)) {
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

std::istream& InputText::stream() { return m_isStandardInput ? std::cin : m_file; }
