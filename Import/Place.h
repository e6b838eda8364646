#pragma once

#include <memory>
#include <string>

/// Type tables from the output of front ends of hardware description languages.
namespace Import {

/// A place in an input: a line of a text, a byte offset in anything else, or the file as a whole.
/// Places share the name of their file, so they are cheap to copy.
class Place {
public:
    /// No place.
    Place() = default;

    /// The file as a whole.
    explicit Place(std::shared_ptr<const std::string> file) : m_file(std::move(file)) {}

    /// A line, counted from 1.
    static Place line(std::shared_ptr<const std::string> file, unsigned long long number);

    /// A byte, counted from 0.
    static Place offset(std::shared_ptr<const std::string> file, unsigned long long number);

    /// Another line or byte of the same file.
    Place at(unsigned long long number) const { return {m_file, number, m_unit}; }

    /// As text: "design.tree:12", "design.ghw: offset 36" or "design.ghw"; empty for no place.
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
