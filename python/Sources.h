#pragma once

#include "LoadedTable.h"

#include <pybind11/pybind11.h>

#include <istream>
#include <memory>
#include <string>

namespace Bindings {

namespace py = pybind11;

/// Where the caller has something to read: a path, or an object with bytes. Made with Python's lock
/// held; opened without.
class SourceArgument {
public:
    /// A path is text or os.PathLike; anything else has to offer its bytes. Those of a `bytes`
    /// object are read where they are, all others are copied: they could change.
    explicit SourceArgument(const py::object& argument);

    /// The path, or empty.
    const std::string& name() const { return m_path; }

    /// Throws std::system_error for a file that cannot be opened.
    Source open() const;

    /// The same as a text or any other stream.
    std::unique_ptr<std::istream> openStream() const;

private:
    std::string m_path;
    py::bytes m_bytes; ///< Keeps them alive.
    const char* m_data = nullptr;
    std::size_t m_size = 0;
};

} // namespace Bindings
