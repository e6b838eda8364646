#pragma once

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>
#include <vector>

/// Builds the bytes of a GHW file in either byte order. Names and types are numbered from 1 in the
/// order of their adding.
class GhwBuilder {
public:
    enum Order : char { LITTLE = 1, BIG = 2 };

    explicit GhwBuilder(Order order = LITTLE) : m_order(order) {}

    /// Adds names, which stand in the file as what they have more than the one in front.
    GhwBuilder& names(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            const auto differ =
                std::mismatch(name.begin(), name.end(), m_last.begin(), m_last.end());
            const auto shared = static_cast<unsigned>(differ.first - name.begin());
            if (m_nameCount++ > 0)
                m_names += sharedLength(shared);
            m_names.append(name, shared);
            m_nameLength += static_cast<unsigned>(name.size());
            m_last = name;
        }
        return *this;
    }

    /// Adds a type: its kind, then numbers of seven bits a byte.
    GhwBuilder& type(unsigned kind, const std::vector<unsigned>& numbers) {
        ++m_typeCount;
        m_lastType = m_types.size();
        m_types += static_cast<char>(kind);
        for (const unsigned value : numbers)
            m_types += number(value);
        return *this;
    }

    /// Appends a range of whole numbers to the type that was added last; 128 more is downto.
    GhwBuilder& range(unsigned kind, long long left, long long right) {
        m_types += static_cast<char>(kind);
        m_types += signedNumber(left) + signedNumber(right);
        return *this;
    }

    /// Appends a range of positions.
    GhwBuilder& positions(unsigned kind, unsigned left, unsigned right) {
        m_types += static_cast<char>(kind);
        m_types += static_cast<char>(left);
        m_types += static_cast<char>(right);
        return *this;
    }

    /// Appends a range of reals.
    GhwBuilder& reals(unsigned kind, double left, double right) {
        m_types += static_cast<char>(kind);
        m_types += real(left) + real(right);
        return *this;
    }

    /// Appends a number with a sign, such as the value of a unit.
    GhwBuilder& value(long long value) {
        m_types += signedNumber(value);
        return *this;
    }

    /// Appends numbers without one.
    GhwBuilder& then(const std::vector<unsigned>& numbers) {
        for (const unsigned value : numbers)
            m_types += number(value);
        return *this;
    }

    /// Where the file describes the type that was added last.
    std::size_t offsetOfLastType() const {
        return file().find(std::string("TYP") + '\0') + 12 + m_lastType;
    }

    /// A file without waves.
    std::string file() const {
        const std::string zero(4, '\0');
        std::string bytes = "GHDLwave\n";
        bytes += {16, 0, 1, m_order, 4, 1, 0};
        bytes += "STR" + std::string(1, '\0') + zero + word(m_nameCount) + word(m_nameLength);
        bytes += m_names + std::string(1, '\0') + "EOS" + std::string(1, '\0');
        bytes += "TYP" + std::string(1, '\0') + zero + word(m_typeCount) + m_types;
        bytes += std::string(1, '\0') + "TAI" + std::string(1, '\0');
        return bytes + std::string({m_order, 4, 1, 0}) + word(0);
    }

    static std::string number(unsigned value) {
        std::string bytes;
        for (; value >= 0x80; value >>= 7)
            bytes += static_cast<char>(value | 0x80);
        return bytes + static_cast<char>(value);
    }

    static std::string signedNumber(long long value) {
        std::string bytes;
        for (; value < -64 || value > 63; value >>= 7)
            bytes += static_cast<char>((value & 0x7F) | 0x80);
        return bytes + static_cast<char>(value & 0x7F);
    }

    std::string word(unsigned value) const { return ordered(&value, sizeof value); }

private:
    static std::string sharedLength(unsigned shared) {
        std::string bytes;
        for (; shared >= 32; shared >>= 5)
            bytes += static_cast<char>((shared & 31) | 0x80);
        return bytes + static_cast<char>(shared);
    }

    std::string real(double value) const { return ordered(&value, sizeof value); }

    std::string ordered(const void* value, std::size_t size) const {
        std::string bytes(static_cast<const char*>(value), size);
        if ((m_order == BIG) != (std::endian::native == std::endian::big))
            std::reverse(bytes.begin(), bytes.end());
        return bytes;
    }

    char m_order;
    std::string m_last;
    std::string m_names;
    std::string m_types;
    unsigned m_nameCount = 0;
    unsigned m_nameLength = 0;
    unsigned m_typeCount = 0;
    std::size_t m_lastType = 0; ///< Where it begins in `m_types`.
};
