#pragma once

#include "RTTI/LittleEndian.h"
#include "RTTI/Ranges.h"
#include "TypeFile/RecordLayout.h"
#include "TypeFile/StorageWindow.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace TypeFile {

/// A field as its bytes have it, of which nothing is made yet.
struct ReadField {
    static constexpr unsigned int NO_ITEM = 0xFFFFFFFF;

    const FieldLayout* layout;
    const FieldLayout* list;   ///< The list that it is in, or null.
    unsigned int index;        ///< Of the list's entry.
    unsigned int item;         ///< Of a range among others; NO_ITEM elsewhere.
    unsigned int missingItems; ///< So many entries or ranges, from `item` on, are not there.
    unsigned long long offset; ///< In the storage.
    unsigned long long size;   ///< Of the bytes that are there.
    unsigned long long width;  ///< Of those that it should have; 0 where they do not say.
    bool isWhole;              ///< All of it is there; a name has its zero byte.
    unsigned int word;         ///< The number that a field of 4 bytes holds; 0 where it is cut.
};

/// The way to the field, such as "members[3].type"; of several that are missing, to the first.
std::string nameOf(const ReadField& field);

/// The range at these bytes.
inline RTTI::FullConstraints rangeAt(const char* bytes) {
    using RTTI::littleEndianAt;
    return {littleEndianAt<int>(bytes), littleEndianAt<int>(bytes + 4),
            littleEndianAt<int>(bytes + 8)};
}

/// Whether it is open.
inline bool isOpenRange(const char* bytes) { return RTTI::isOpen(rangeAt(bytes)); }

/// Reads the fields of a record or header along their layouts, as the loader does, anywhere in a
/// storage: what a count claims costs nothing, and nothing is kept. `Take` is called with each
/// ReadField in its order, and says whether more are wanted.
///
/// A list of which nothing is left is one field, and so is a range that is cut. A value without
/// bytes is none.
template <typename Take> class FieldReader {
public:
    FieldReader(StorageWindow& window, unsigned long long begin, unsigned long long end, Take take)
        : m_window(window), m_take(std::move(take)), m_at(begin), m_end(end) {}

    void read(std::span<const FieldLayout> layout) {
        for (std::size_t i = 0; i < layout.size() && m_isWanted; ++i) {
            if (layout[i].form == FieldForm::LIST) {
                const std::size_t last = endOfList(layout, i);
                readList(layout[i], layout.subspan(i + 1, last - i - 1));
                i = last;
            } else {
                readField(layout[i]);
            }
        }
    }

    unsigned long long at() const { return m_at; }
    bool isWanted() const { return m_isWanted; }

private:
    unsigned long long left() const { return m_end - m_at; }

    void readList(const FieldLayout& list, std::span<const FieldLayout> entry) {
        const unsigned int count = m_count;
        for (unsigned int i = 0; i < count && m_isWanted; ++i) {
            if (left() == 0)
                return giveMissing(list, i, count);
            m_list = &list;
            m_index = i;
            read(entry);
            m_list = nullptr;
        }
    }

    void readField(const FieldLayout& field) {
        switch (field.form) {
        case FieldForm::NAME: return readName(field);
        case FieldForm::RANGES: return readRanges(field);
        case FieldForm::VALUE:
            if (m_valueSize != 0)
                give(field, m_valueSize);
            return;
        default: return give(field, widthOf(field.form));
        }
    }

    void readName(const FieldLayout& field) {
        unsigned long long at = m_at;
        bool isEnded = false;
        while (at != m_end && !isEnded) {
            const char* piece = m_window.at(at, 1);
            const auto size = static_cast<std::size_t>(std::min(m_end, m_window.end()) - at);
            const void* zero = std::memchr(piece, '\0', size);
            isEnded = zero != nullptr;
            at += isEnded ? static_cast<std::size_t>(static_cast<const char*>(zero) - piece) + 1
                          : size;
        }
        give(field, at - m_at, 0, isEnded);
    }

    void readRanges(const FieldLayout& field) {
        give(Layout::RANGE_COUNT, widthOf(FieldForm::COUNT));
        const unsigned int count = m_count;
        for (unsigned int i = 0; i < count && m_isWanted; ++i) {
            if (left() == 0)
                return giveMissing(field, i, count);
            m_item = i;
            give(Layout::RANGE_IN_LIST, widthOf(FieldForm::RANGE));
            m_item = ReadField::NO_ITEM;
        }
    }

    void give(const FieldLayout& field, unsigned long long width) {
        const unsigned long long size = std::min(width, left());
        give(field, size, width, size == width);
    }

    void give(const FieldLayout& field, unsigned long long size, unsigned long long width,
              bool isWhole) {
        unsigned int word = 0;
        if (isWhole && width == sizeof word)
            word = RTTI::littleEndianAt<unsigned int>(m_window.at(m_at, sizeof word));
        const auto positive = static_cast<unsigned int>(std::max(static_cast<int>(word), 0));
        if (field.form == FieldForm::COUNT)
            m_count = positive;
        if (field.form == FieldForm::VALUE_SIZE)
            m_valueSize = positive;
        const unsigned long long offset = m_at;
        m_at += size;
        m_isWanted = m_take(
            ReadField{&field, m_list, m_index, m_item, 0, offset, size, width, isWhole, word});
    }

    void giveMissing(const FieldLayout& list, unsigned int first, unsigned int count) {
        m_isWanted =
            m_take(ReadField{&list, m_list, m_index, first, count - first, m_at, 0, 0, false, 0});
    }

    StorageWindow& m_window;
    Take m_take;
    unsigned long long m_at;
    unsigned long long m_end;
    bool m_isWanted = true;
    const FieldLayout* m_list = nullptr;
    unsigned int m_index = 0;
    unsigned int m_item = ReadField::NO_ITEM;

    // What fields said of those behind them.
    unsigned int m_count = 0;
    unsigned int m_valueSize = 0;
};

} // namespace TypeFile
