#pragma once

#include <memory>
#include <string>

/// Type tables from what front ends of hardware description languages write.
namespace Import {

/// Where in an input something stands: a line of a text, an offset in bytes of anything else, or
/// the file as a whole. Places share the name of their file; a copy is cheap.
class Place {
public:
    /// Nowhere.
    Place() = default;

    /// The file as a whole.
    explicit Place(std::shared_ptr<const std::string> file) : m_file(std::move(file)) {}

    /// A line, counted from 1.
    static Place line(std::shared_ptr<const std::string> file, unsigned long long number);

    /// A byte, counted from 0.
    static Place offset(std::shared_ptr<const std::string> file, unsigned long long number);

    /// "design.tree:12", "design.ghw: offset 36", "design.ghw", or empty for nowhere.
    std::string text() const;

private:
    enum class Unit : unsigned char { WHOLE, LINE, OFFSET };

    Place(std::shared_ptr<const std::string> file, unsigned long long number, Unit unit)
        : m_file(std::move(file)), m_number(number), m_unit(unit) {}

    std::shared_ptr<const std::string> m_file;
    unsigned long long m_number = 0;
    Unit m_unit = Unit::WHOLE;
};

} // namespace Import
