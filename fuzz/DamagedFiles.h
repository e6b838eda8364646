#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Fuzz {

/// How a file came to be another one.
enum class Damage {
    BYTES,  ///< One to eight bytes, or bits in them, changed wherever they lie.
    FIELDS, ///< One to four fields or records, as the layout of their kind says.
    SPLICE, ///< The types of a second file behind its own, or the second's bytes from a place on.
    REFERENCES, ///< A part of all references, each leading to any type.
    COUNT
};

/// The name of a damage, such as "bytes".
const char* nameOf(Damage damage);

/// Damaged files, made of whole ones: each by its number, the same for the same seed and files.
class DamagedFiles {
public:
    struct File {
        Damage damage;
        std::string bytes;
    };

    /// Reads the files and those below the folders, in the order of their names, but for files over
    /// `LARGEST` bytes and those that are no type files. Throws std::runtime_error if there is
    /// none.
    DamagedFiles(const std::vector<std::filesystem::path>& paths, std::uint64_t seed);

    /// The number of whole files.
    std::size_t size() const { return m_files.size(); }

    /// A damaged file.
    File operator[](std::uint64_t number) const;

    static constexpr std::size_t LARGEST = 8192;

private:
    std::vector<std::string> m_files;
    std::uint64_t m_seed;
};

} // namespace Fuzz
