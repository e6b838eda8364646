#pragma once

#include "RTTI/TruncatedDirection.h"
#include "TypeFile/FieldReader.h"

#include <experimental/simd>
#include <iterator>
#include <type_traits>
#include <utility>

namespace TypeFile {

/// The zero byte that ends a name, or any place from `end` on that has one byte more. Looks at
/// StorageWindow's READABLE_BEHIND bytes: names are searched in steps of so many.
[[gnu::always_inline]] inline const char* endOfName(const char* at, const char* end) {
    namespace simd = std::experimental;
    using Bytes = simd::fixed_size_simd<signed char, StorageWindow::READABLE_BEHIND>;
    do {
        const Bytes bytes(reinterpret_cast<const signed char*>(at), simd::element_aligned);
        if (const auto isZero = bytes == 0; simd::any_of(isZero))
            return at + simd::find_first_set(isZero);
        at += Bytes::size();
    } while (at < end);
    return end;
}

/// Reads a record that is in memory along its layouts, which the compiler unrolls, and hands its
/// references to a sink. It only says whether all is well: where it is not, whoever asks reads the
/// record again, field by field.
///
/// Sink: bool reference<LINK>(typeId) and void ranges(const char* first, unsigned int count), the
/// latter for the reference before it. The scan holds it by value, so that all of its numbers can
/// be in registers.
template <typename Sink> class RecordScan {
public:
    RecordScan(const char* begin, const char* end, const Sink& sink)
        : m_at(begin), m_end(end), m_sink(sink) {}

    /// Whether the fields of a layout are all there and hold what they should.
    template <const auto& LAYOUT> [[gnu::always_inline]] bool read() {
        return fields<LAYOUT, 0, std::size(LAYOUT)>();
    }

    bool isAtEnd() const { return m_at == m_end; }
    const Sink& sink() const { return m_sink; }

private:
    /// Whether so many bytes are left. Behind a name without an end there are not even none.
    bool has(unsigned long long count) const {
        return m_end - m_at >= static_cast<long long>(count);
    }

    /// Where the fields of fixed width that begin at FIRST end.
    template <const auto& LAYOUT, std::size_t FIRST>
    static constexpr std::size_t endOfRun(std::size_t last) {
        std::size_t next = FIRST;
        while (next < last && widthOf(LAYOUT[next].form) != 0)
            ++next;
        return next;
    }

    template <const auto& LAYOUT>
    static constexpr std::size_t widthBetween(std::size_t first, std::size_t last) {
        std::size_t width = 0;
        for (; first < last; ++first)
            width += widthOf(LAYOUT[first].form);
        return width;
    }

    /// Those of fixed width take one look at the bounds together.
    template <const auto& LAYOUT, std::size_t FIRST, std::size_t LAST>
    [[gnu::always_inline]] bool fields() {
        if constexpr (FIRST == LAST) {
            return true;
        } else if constexpr (constexpr std::size_t NEXT = endOfRun<LAYOUT, FIRST>(LAST);
                             NEXT != FIRST) {
            constexpr std::size_t WIDTH = widthBetween<LAYOUT>(FIRST, NEXT);
            if (!has(WIDTH) || !run<LAYOUT, FIRST>(std::make_index_sequence<NEXT - FIRST>()))
                return false;
            m_at += WIDTH;
            return fields<LAYOUT, NEXT, LAST>();
        } else if constexpr (LAYOUT[FIRST].form == FieldForm::LIST) {
            constexpr std::size_t END = endOfList(LAYOUT, FIRST);
            return list<LAYOUT, FIRST + 1, END>() && fields<LAYOUT, END + 1, LAST>();
        } else if constexpr (LAYOUT[FIRST].form == FieldForm::NAME) {
            m_at = endOfName(m_at, m_end) + 1;
            if constexpr (FIRST + 1 == LAST)
                return has(0);
            return fields<LAYOUT, FIRST + 1, LAST>(); // Whatever follows looks at the bounds.
        } else {
            return variable<LAYOUT[FIRST].form>() && fields<LAYOUT, FIRST + 1, LAST>();
        }
    }

    template <const auto& LAYOUT, std::size_t FIRST, std::size_t... I>
    [[gnu::always_inline]] bool run(std::index_sequence<I...>) {
        return (fixed<LAYOUT, FIRST + I>(m_at + widthBetween<LAYOUT>(FIRST, FIRST + I)) && ...);
    }

    template <const auto& LAYOUT, std::size_t I>
    [[gnu::always_inline]] bool fixed(const char* bytes) {
        constexpr const FieldLayout& FIELD = LAYOUT[I];
        [[maybe_unused]] const auto word = RTTI::littleEndianAt<unsigned int>(bytes);
        if constexpr (FIELD.form == FieldForm::TYPE_ID) {
            return m_sink.template reference<FIELD.link>(word);
        } else if constexpr (FIELD.form == FieldForm::NAMED) {
            return word - FIELD.names->first < FIELD.names->count;
        } else if constexpr (FIELD.form == FieldForm::FLAVOUR) {
            return word <= static_cast<unsigned int>(FIELD.last);
        } else if constexpr (FIELD.form == FieldForm::COUNT) {
            m_count = word;
            return static_cast<int>(word) >= 0;
        } else if constexpr (FIELD.form == FieldForm::VALUE_SIZE) {
            m_valueSize = word;
            return static_cast<int>(word) >= 0;
        } else if constexpr (FIELD.form == FieldForm::DIRECTION) {
            return RTTI::truncatedDirection(RTTI::littleEndianAt<double>(bytes)).has_value();
        } else {
            return true;
        }
    }

    template <const auto& LAYOUT, std::size_t FIRST, std::size_t LAST>
    [[gnu::always_inline]] bool list() {
        using Least =
            std::integral_constant<std::size_t,
                                   leastOf(std::span(LAYOUT).subspan(FIRST, LAST - FIRST))>;
        const unsigned int count = m_count;
        if (!has(static_cast<unsigned long long>(count) * Least::value))
            return false;
        for (unsigned int i = 0; i < count; ++i)
            if (!fields<LAYOUT, FIRST, LAST>())
                return false;
        return true;
    }

    template <FieldForm FORM> [[gnu::always_inline]] bool variable() {
        if constexpr (FORM == FieldForm::VALUE) {
            if (!has(m_valueSize))
                return false;
            m_at += m_valueSize;
            return true;
        } else {
            static_assert(FORM == FieldForm::RANGES);
            return ranges();
        }
    }

    [[gnu::always_inline]] bool ranges() {
        constexpr std::size_t COUNT_SIZE = widthOf(FieldForm::COUNT);
        if (!has(COUNT_SIZE))
            return false;
        const auto count = RTTI::littleEndianAt<unsigned int>(m_at);
        m_at += COUNT_SIZE;
        if (!has(static_cast<unsigned long long>(count) * RTTI::TypeFileFormat::CONSTRAINT_SIZE))
            return false;
        m_sink.ranges(m_at, count);
        m_at += count * RTTI::TypeFileFormat::CONSTRAINT_SIZE;
        return true;
    }

    const char* m_at;
    const char* m_end;
    Sink m_sink;
    unsigned int m_count = 0;
    unsigned int m_valueSize = 0;
};

} // namespace TypeFile
