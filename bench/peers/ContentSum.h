#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace Bench {

/// What every visit of a table does with the content: adds up all fields, and all bytes of names as
/// words, so that nothing is left unread at little cost, and two visits can be compared.
///
/// A visit reports each type in the order of the ids: `nextType`, then its fields. Details are the
/// fields that not every peer has a place for; they count unless `WithDetails` is false.
template <bool WithDetails> class ContentSum {
public:
    void nextType() {}
    /// The last word of a name overlaps the one before: no loop over the rest, whose length no
    /// processor guesses.
    void name(std::string_view bytes) {
        const char* const begin = bytes.data();
        const char* const end = begin + bytes.size();
        if (bytes.size() >= 8) {
            for (const char* at = begin; at < end - 8; at += 8)
                add<std::uint64_t>(at);
            add<std::uint64_t>(end - 8);
        } else if (bytes.size() >= 4) {
            add<std::uint32_t>(begin);
            add<std::uint32_t>(end - 4);
        } else if (!bytes.empty()) {
            add<std::uint8_t>(begin);
            add<std::uint8_t>(begin + bytes.size() / 2);
            add<std::uint8_t>(end - 1);
        }
    }
    void number(long long value) { m_sum += static_cast<std::uint64_t>(value); }
    void range(int left, int right, int direction) {
        number(left);
        number(right);
        number(direction);
    }
    void detail(long long value) {
        if constexpr (WithDetails)
            number(value);
    }

    std::uint64_t sum() const { return m_sum; }

private:
    template <typename Word> void add(const char* bytes) {
        Word word;
        std::memcpy(&word, bytes, sizeof(word));
        m_sum += word;
    }

    std::uint64_t m_sum = 0;
};

} // namespace Bench
