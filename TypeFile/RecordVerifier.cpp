#include "TypeFile/RecordVerifier.h"

#include "OVAT/Counted.h"
#include "TypeFile/RecordScan.h"

#include <algorithm>
#include <utility>

namespace TypeFile {

using namespace RTTI::TypeFileFormat;
using OVAT::counted;
using RTTI::littleEndianAt;

namespace {

/// Collects the parts of a record that is scanned, and gives them to `record` in the end.
class PartSink {
public:
    PartSink(const char* begin, std::size_t size, unsigned long long address,
             unsigned int typeCount, RecordParts& record)
        : m_begin(begin), m_address(address), m_typeCount(typeCount), m_record(&record),
          m_first(record.roomFor(size)), m_next(m_first) {}

    template <unsigned char LINK> bool reference(unsigned int target) {
        if constexpr (!Link::has(LINK, Link::LINKED)) {
            ++m_dimensions;
            return target < m_typeCount || target == NO_TYPE_ID;
        }
        if constexpr (Link::has(LINK, Link::OR_NONE)) {
            if (target == NO_TYPE_ID)
                return true;
        }
        *m_next++ = {target, LINK, false, 0, 0};
        return true;
    }

    [[gnu::always_inline]] void ranges(const char* first, unsigned int count) {
        Part& part = m_next[-1];
        if (count > Part::MOST_RANGES) {
            part.rangeCount = Part::MANY;
            m_record->addLongList(static_cast<std::size_t>(&part - m_first), count,
                                  m_address + static_cast<std::size_t>(first - m_begin));
            return;
        }
        part.rangeCount = static_cast<unsigned char>(count);
        // Few lists are longer. Bytes behind one that is shorter are looked at in vain.
        static_assert(2 * CONSTRAINT_SIZE <= StorageWindow::READABLE_BEHIND);
        unsigned int bounded = boundedBit(first, 0) | boundedBit(first, 1);
        for (unsigned int i = 2; i < count; ++i)
            bounded |= boundedBit(first, i);
        part.bounded = static_cast<unsigned char>(bounded & ((1U << count) - 1));
    }

    [[gnu::always_inline]] void finish() const {
        m_record->setEnd(m_next);
        m_record->setDimensions(m_dimensions);
    }

private:
    [[gnu::always_inline]] static unsigned int boundedBit(const char* first, unsigned int range) {
        return (isOpenRange(first + range * CONSTRAINT_SIZE) ? 0U : 1U) << range;
    }

    const char* m_begin;
    unsigned long long m_address;
    unsigned int m_typeCount;
    unsigned int m_dimensions = 0;
    RecordParts* m_record;
    Part* m_first;
    Part* m_next;
};

/// Whether the field is a part: a reference that must lead to an object, if there is one.
bool isPart(const ReadField& field) {
    const unsigned char link = field.layout->link;
    return field.layout->form == FieldForm::TYPE_ID && Link::has(link, Link::LINKED) &&
           (field.word != NO_TYPE_ID || !Link::has(link, Link::OR_NONE));
}

/// Collects the parts of a record that is read field by field.
void addPart(const ReadField& field, StorageWindow& window, RecordParts& record) {
    if (isPart(field)) {
        record.add({field.word, field.layout->link, false, 0, 0});
    } else if (field.layout == &Layout::RANGE_COUNT && field.word > Part::MOST_RANGES) {
        record.last().rangeCount = Part::MANY;
        record.addLongList(record.all().parts.size() - 1, field.word, field.offset + field.size);
    } else if (field.layout == &Layout::RANGE_COUNT) {
        record.last().rangeCount = static_cast<unsigned char>(field.word);
    } else if (field.layout == &Layout::RANGE_IN_LIST && record.last().rangeCount != Part::MANY) {
        record.last().setBounded(field.item,
                                 !isOpenRange(window.at(field.offset, CONSTRAINT_SIZE)));
    } else if (field.layout->form == FieldForm::TYPE_ID &&
               !Link::has(field.layout->link, Link::LINKED)) {
        record.addDimension();
    }
}

/// "Found 4": ids have no sign, codes are written as the format does.
std::string foundText(const ReadField& field) {
    const FieldLayout& layout = *field.layout;
    const bool isCode = layout.names != nullptr && layout.names->first != 0;
    if (isCode)
        return "Found " + hexText(field.word);
    return "Found " + (layout.form == FieldForm::TYPE_ID
                           ? std::to_string(field.word)
                           : std::to_string(static_cast<int>(field.word)));
}

std::string valueText(const NamedValues& names, unsigned int value) {
    return names.first != 0 ? hexText(value) : std::to_string(value);
}

/// Scans the body of a record, behind what all kinds have. Whether all is well, up to its end.
struct BodyScan {
    const RecordScan<PartSink>& head;

    template <const auto& LAYOUT> [[gnu::always_inline]] bool operator()() const {
        RecordScan<PartSink> scan = head;
        if (!scan.template read<LAYOUT>() || !scan.isAtEnd())
            return false;
        scan.sink().finish();
        return true;
    }
    bool none() const { return head.isAtEnd(); }
};

} // namespace

/// Words are made where there is room for them.
template <typename Words>
void RecordVerifier::add(FindingCode code, const ReadField& field, Words words) {
    if (m_findings.hasRoom(code))
        m_findings.add(code, m_typeId, nameOf(field), field.offset, words());
    else
        m_findings.leaveOut(code);
}

[[gnu::always_inline]] inline bool RecordVerifier::scan(unsigned int typeId, unsigned int size,
                                                        unsigned int kind, RecordParts& record) {
    if (size > m_sweep.blockSize())
        return false;
    const unsigned long long address = m_types.addresses[typeId];
    const char* const begin = m_sweep.at(address, size);
    RecordScan scan(begin, begin + size, PartSink(begin, size, address, m_types.size(), record));
    return scan.read<Layout::HEAD>() && withLayout(kind, BodyScan{scan});
}

void RecordVerifier::verify(unsigned int typeId, unsigned int size, unsigned int kind,
                            RecordParts& record) {
    if (scan(typeId, size, kind, record))
        return;
    record.clear();
    m_typeId = typeId;
    readFields(size, kind, record);
    if (!m_isBelieved)
        record.clear();
}

void RecordVerifier::readFields(unsigned int size, unsigned int kind, RecordParts& record) {
    const unsigned long long address = m_types.addresses[m_typeId];
    m_end = address + size;
    m_body = bodyLayout(kind);
    m_isBelieved = true;
    FieldReader reader(m_sweep, address, m_end, [&](const ReadField& field) {
        check(field);
        if (m_isBelieved)
            addPart(field, m_sweep, record);
        return m_isBelieved;
    });
    reader.read(Layout::HEAD);
    reader.read(m_body);
    if (m_isBelieved && reader.at() != m_end)
        m_findings.add(FindingCode::LEFTOVER_BYTES, m_typeId, Layout::HEAD[0].name, address,
                       "The last field ends " + counted(m_end - reader.at(), "byte") +
                           " before the record.");
}

/// Says what is wrong with a field. Behind one that is not believed, nothing can be read.
void RecordVerifier::check(const ReadField& field) {
    const FieldLayout& layout = *field.layout;
    if (!field.isWhole)
        return addMissing(field);
    switch (layout.form) {
    case FieldForm::COUNT: return checkCount(field);
    case FieldForm::TYPE_ID: return checkTypeId(field);
    case FieldForm::DIRECTION: return checkDirection(field);
    case FieldForm::VALUE_SIZE:
        if (static_cast<int>(field.word) < 0)
            add(FindingCode::SIZE_NEGATIVE, field,
                [&] { return foundText(field) + ", expected a number of bytes."; });
        return;
    case FieldForm::NAMED: {
        const NamedValues& names = *layout.names;
        if (names.nameOf(field.word) == nullptr)
            add(layout.code, field, [&] {
                return foundText(field) + ", expected one of " + valueText(names, names.first) +
                       " to " +
                       valueText(names, names.first + static_cast<unsigned int>(names.count) - 1) +
                       ".";
            });
        return;
    }
    case FieldForm::FLAVOUR:
        if (field.word > static_cast<unsigned int>(layout.last))
            add(layout.code, field, [&] {
                return foundText(field) + ", expected " +
                       (layout.last == 1 ? "0 or " : "one of 0 to ") + std::to_string(layout.last) +
                       ".";
            });
        return;
    default: return;
    }
}

/// The ranges are counted without a sign: the loader makes room for as many as the count says.
void RecordVerifier::checkCount(const ReadField& field) {
    const bool isOfRanges = field.layout == &Layout::RANGE_COUNT;
    if (!isOfRanges && static_cast<int>(field.word) < 0)
        return add(FindingCode::COUNT_NEGATIVE, field,
                   [&] { return foundText(field) + ", expected 0 for an empty list."; });
    const unsigned long long left = m_end - (field.offset + field.size);
    const std::size_t smallest = isOfRanges ? CONSTRAINT_SIZE : smallestEntryBehind(field);
    if (static_cast<unsigned long long>(field.word) * smallest <= left)
        return;
    m_isBelieved = false;
    add(FindingCode::COUNT_TOO_LARGE, field, [&] {
        return "The list has " + counted(field.word, isOfRanges ? "range" : "entry") +
               (isOfRanges ? " of " : " of at least ") + counted(smallest, "byte") +
               ", and there is room for " + counted(left, "byte") + " in the record.";
    });
}

/// The least that an entry of the list behind its count takes.
std::size_t RecordVerifier::smallestEntryBehind(const ReadField& count) const {
    auto list = static_cast<std::size_t>(count.layout - m_body.data());
    while (m_body[list].form != FieldForm::LIST)
        ++list;
    return leastOf(m_body.subspan(list + 1, endOfList(m_body, list) - list - 1));
}

/// Where parts lead is looked at when all kinds are known.
void RecordVerifier::checkTypeId(const ReadField& field) {
    const bool isFollowed = Link::has(field.layout->link, Link::LINKED);
    if (!isFollowed && field.word >= m_types.size() && field.word != NO_TYPE_ID)
        add(FindingCode::INDEX_TYPE_ID_OUTSIDE_TABLE, field,
            [&] { return foundText(field) + ", expected the id of a type of this file."; });
}

void RecordVerifier::checkDirection(const ReadField& field) {
    const auto direction = littleEndianAt<double>(m_sweep.at(field.offset, sizeof(double)));
    if (!RTTI::truncatedDirection(direction))
        add(FindingCode::REAL_DIRECTION_UNUSABLE, field, [&] {
            return "The direction " + std::to_string(direction) + " does not fit into 32 bits.";
        });
}

/// Every list of which nothing is left, though its count was believed, begins with a name.
void RecordVerifier::addMissing(const ReadField& field) {
    m_isBelieved = false;
    const unsigned long long left = m_end - field.offset;
    const FieldForm form = field.layout->form;
    if (form != FieldForm::NAME && form != FieldForm::LIST)
        return add(FindingCode::FIELD_MISSING, field, [&] {
            return "The field takes " + counted(field.width, "byte") + ", and the record has " +
                   std::to_string(left) + " left.";
        });
    ReadField name = field;
    if (form == FieldForm::LIST)
        name = {field.layout + 1,
                field.layout,
                field.item,
                ReadField::NO_ITEM,
                0,
                field.offset,
                0,
                0,
                false,
                0};
    add(FindingCode::NAME_NOT_TERMINATED, name, [&] {
        return "There is no zero byte up to the end of the record, " + counted(left, "byte") +
               " on.";
    });
}

/// Calls `take` with the fields of a record.
template <typename Take> void RecordVerifier::readAgain(unsigned int typeId, Take take) {
    const unsigned long long address = m_types.addresses[typeId];
    const RecordFrame frame = recordFrameAt(m_jumps, address);
    m_typeId = typeId;
    FieldReader reader(m_jumps, address, address + frame.size(), std::move(take));
    reader.read(Layout::HEAD);
    reader.read(bodyLayout(frame.kind));
}

void RecordVerifier::addBrokenLinks(unsigned int typeId) {
    readAgain(typeId, [&](const ReadField& field) {
        if (isPart(field) && m_types.isBroken(field.word, field.layout->link))
            addBrokenLink(field);
        return true;
    });
}

void RecordVerifier::addBrokenLink(const ReadField& field) {
    const std::string target = std::to_string(field.word);
    if (field.word >= m_types.size())
        add(FindingCode::TYPE_ID_OUTSIDE_TABLE, field, [&] {
            return "Found type " + target + ", and the file has " +
                   counted(m_types.size(), "type") + ".";
        });
    else if (!m_types.isLinked(field.word))
        add(FindingCode::LINK_TO_NO_TYPE, field,
            [&] { return "Type " + target + " has a kind that builds no type."; });
    else
        add(FindingCode::BASE_IS_NO_CLASS, field,
            [&] { return "Type " + target + " is not a class."; });
}

void RecordVerifier::addAtPart(FindingCode code, unsigned int typeId, std::size_t place,
                               std::string text) {
    addAt(nullptr, code, typeId, place, std::move(text));
}

void RecordVerifier::addAtRanges(FindingCode code, unsigned int typeId, std::size_t place,
                                 std::string text) {
    addAt(&Layout::RANGE_COUNT, code, typeId, place, std::move(text));
}

/// At the field of this layout that belongs to the part; null for its type id.
void RecordVerifier::addAt(const FieldLayout* layout, FindingCode code, unsigned int typeId,
                           std::size_t place, std::string text) {
    std::size_t parts = 0;
    readAgain(typeId, [&](const ReadField& field) {
        parts += isPart(field) ? 1 : 0;
        if (parts != place + 1 || (layout != nullptr && field.layout != layout))
            return true;
        add(code, field, [&] { return std::move(text); });
        return false;
    });
}

} // namespace TypeFile
