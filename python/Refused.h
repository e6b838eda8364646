#pragma once

#include "TypeFile/Finding.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Bindings {

/// Why something was refused. Becomes the exception `rtti.Error`.
class Refused : public std::runtime_error {
public:
    /// File and place are empty where there is none.
    Refused(std::string file, std::string place, const std::string& reason,
            std::vector<TypeFile::Finding> findings = {})
        : std::runtime_error(reason), m_file(std::move(file)), m_place(std::move(place)),
          m_findings(std::move(findings)) {}

    const std::string& file() const { return m_file; }
    const std::string& place() const { return m_place; }
    const std::vector<TypeFile::Finding>& findings() const { return m_findings; }

private:
    std::string m_file;
    std::string m_place;
    std::vector<TypeFile::Finding> m_findings; ///< Those of the verifier, where it refused.
};

} // namespace Bindings
