#include "Sources.h"

#include "FileSnapshot.h"
#include "OVAT/MemoryBlockManager.h"

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

namespace Bindings {

SourceArgument::SourceArgument(const py::object& argument) {
    if (!PyObject_CheckBuffer(argument.ptr())) {
        PyObject* path = nullptr;
        if (PyUnicode_FSConverter(argument.ptr(), &path) == 0)
            throw py::error_already_set();
        m_path = py::reinterpret_steal<py::bytes>(path);
        return;
    }
    PyObject* const bytes = PyBytes_FromObject(argument.ptr()); // The same object for `bytes`.
    if (bytes == nullptr)
        throw py::error_already_set();
    m_bytes = py::reinterpret_steal<py::bytes>(bytes);
    m_data = PyBytes_AS_STRING(bytes);
    m_size = static_cast<std::size_t>(PyBytes_GET_SIZE(bytes));
}

Source SourceArgument::open() const {
    if (m_data != nullptr)
        return {"", std::make_unique<OVAT::MemoryBlockManager>(m_data, m_size), m_size};
    auto file = std::make_unique<FileSnapshot>(m_path);
    const unsigned long long size = file->size();
    return {m_path, std::move(file), size};
}

std::unique_ptr<std::istream> SourceArgument::openStream() const {
    if (m_data != nullptr)
        return std::make_unique<std::istringstream>(std::string(m_data, m_size));
    auto file = std::make_unique<std::ifstream>(m_path, std::ios::binary);
    if (!*file)
        throw std::system_error(errno, std::generic_category(), m_path);
    return file;
}

} // namespace Bindings
