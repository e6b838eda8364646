#include "fuzz/RecordEditor.h"

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/TypeFileFormat.h"

#include <algorithm>
#include <iterator>

namespace Fuzz {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;
using TypeFile::FieldForm;
using TypeFile::ReadField;
using TypeFile::widthOf;

RecordEditor::RecordEditor(std::string& record, unsigned int typeCount, std::mt19937& random)
    : m_record(record), m_typeCount(typeCount), m_random(random) {
    readFields();
}

void RecordEditor::readFields() {
    OVAT::MemoryBlockManager storage(m_record.data(), m_record.size());
    TypeFile::StorageWindow window(storage, m_record.size(), m_record.size());
    TypeFile::FieldReader reader(window, 0, m_record.size(), [this](const ReadField& field) {
        m_fields.push_back(field);
        return true;
    });
    reader.read(TypeFile::Layout::HEAD);
    reader.read(TypeFile::bodyLayout(recordFrameAt(window, 0).kind));
}

void RecordEditor::changeField() {
    const std::size_t place = below(m_random, m_fields.size());
    const ReadField field = m_fields[place];
    if (!field.isWhole) // A name is not ended, anything else is short.
        return replace(field.offset + field.size, 0,
                       std::string(std::clamp<std::size_t>(field.width, 1, 64), '\0'));
    switch (field.layout->form) {
    case FieldForm::RECORD_SIZE: // The only change that leaves it wrong.
        return put(field, isOneIn(4) ? anyNumber() : field.word + anyNumber() % 16 - 8);
    case FieldForm::NAME: return changeName(field);
    case FieldForm::RANGE: return changeRange(field);
    case FieldForm::COUNT: return changeCount(place);
    case FieldForm::VALUE_SIZE: return changeValueSize(field);
    default: return widthOf(field.layout->form) == 4 ? changeWord(field) : changeBytes(field);
    }
}

void RecordEditor::changeWord(const ReadField& field) {
    const TypeFile::FieldLayout& layout = *field.layout;
    switch (layout.form) {
    case FieldForm::TYPE_ID: return put(field, anyTypeId());
    case FieldForm::KIND:
        return put(field, ClassId::BASE_TYPE + static_cast<unsigned int>(below(m_random, 26)));
    case FieldForm::NAMED: // One below and one above are no names.
        return put(field, layout.names->first - 1 +
                              static_cast<unsigned int>(below(m_random, layout.names->count + 2)));
    case FieldForm::FLAVOUR:
        return put(field, static_cast<unsigned int>(
                              below(m_random, static_cast<std::size_t>(layout.last) + 2)));
    default: return put(field, anyNumber());
    }
}

/// Shorter, longer, other bytes, and now and then one without its end.
void RecordEditor::changeName(const ReadField& field) {
    const std::size_t length = field.size - 1;
    const std::size_t at = field.offset + below(m_random, length + 1);
    const std::size_t left = field.offset + length - at;
    switch (below(m_random, 8)) {
    case 0: return replace(field.offset + length, 1, "");
    case 1: return replace(field.offset, length, "");
    case 2: return replace(at, 0, std::string(below(m_random, 300), 'n'));
    case 3: return replace(at, below(m_random, left + 1), "");
    default:
        return replace(at, std::min<std::size_t>(left, 1),
                       std::string(1, static_cast<char>(m_random())));
    }
}

void RecordEditor::changeBytes(const ReadField& field) {
    for (std::size_t changes = 1 + below(m_random, 4); changes != 0 && field.size != 0; --changes)
        m_record[field.offset + below(m_random, field.size)] = static_cast<char>(m_random());
}

void RecordEditor::changeRange(const ReadField& field) {
    constexpr int DIRECTIONS[] = {UNCONSTRAINED_DIRECTION, DOWNTO_DIRECTION, TO_DIRECTION};
    const std::size_t parts = std::size(TypeFile::Layout::RANGE_PARTS);
    const std::size_t part = below(m_random, parts);
    const bool isDirection = part == parts - 1;
    const auto direction = DIRECTIONS[below(m_random, std::size(DIRECTIONS))];
    putLittleEndian(m_record.data() + field.offset + part * widthOf(FieldForm::NUMBER),
                    isDirection ? static_cast<unsigned int>(direction) : anyNumber());
}

/// One entry more or less, and the count with it; now and then the count alone.
void RecordEditor::changeCount(std::size_t place) {
    const ReadField count = m_fields[place];
    const std::vector<Entry> entries = entriesBehind(place);
    if (isOneIn(4))
        return put(count, isOneIn(2) ? anyNumber() : count.word + 1);
    if (entries.empty() || entries.size() != count.word)
        return put(count, 0);
    const Entry entry = entries[below(m_random, entries.size())];
    const bool isTaken = isOneIn(2);
    put(count, isTaken ? count.word - 1 : count.word + 1);
    if (isTaken)
        replace(entry.at, entry.size, "");
    else
        replace(entry.at, 0, m_record.substr(entry.at, entry.size));
}

/// The ranges behind their count, or the entries of the record's list behind its own.
std::vector<RecordEditor::Entry> RecordEditor::entriesBehind(std::size_t countPlace) const {
    const bool isOfRanges = m_fields[countPlace].layout == &TypeFile::Layout::RANGE_COUNT;
    std::vector<Entry> entries;
    for (std::size_t i = countPlace + 1; i < m_fields.size(); ++i) {
        const ReadField& field = m_fields[i];
        if (isOfRanges && field.item == ReadField::NO_ITEM)
            break;
        if (!isOfRanges && (field.list == nullptr || field.missingItems != 0))
            continue;
        const std::size_t index = isOfRanges ? field.item : field.index;
        const auto offset = static_cast<std::size_t>(field.offset);
        if (index > entries.size())
            break; // Those before it are missing.
        if (index == entries.size())
            entries.push_back({offset, 0});
        entries.back().size = offset + field.size - entries.back().at;
    }
    return entries;
}

/// The values with it; now and then the size alone.
void RecordEditor::changeValueSize(const ReadField& field) {
    const std::size_t size = isOneIn(8) ? anyNumber() : below(m_random, 20);
    put(field, static_cast<unsigned int>(size));
    if (isOneIn(4) || size > 20)
        return;
    for (std::size_t i = m_fields.size(); i-- != 0;) { // From behind, so that places stay right.
        const ReadField& next = m_fields[i];
        const bool isBeforeValue = next.list != nullptr && next.layout->form == FieldForm::NAME &&
                                   next.layout[1].form == FieldForm::VALUE;
        if (!isBeforeValue)
            continue;
        const std::size_t at = next.offset + next.size;
        replace(at, std::min<std::size_t>(field.word, m_record.size() - at),
                std::string(size, '\1'));
    }
}

void RecordEditor::takeEntryOf(const RecordEditor& other) {
    const auto isCountOfList = [](const ReadField& field) {
        return field.layout->form == FieldForm::COUNT && field.list == nullptr && field.isWhole;
    };
    const auto own = std::find_if(m_fields.begin(), m_fields.end(), isCountOfList);
    const auto others = std::find_if(other.m_fields.begin(), other.m_fields.end(), isCountOfList);
    if (own == m_fields.end() || others == other.m_fields.end() || own->layout != others->layout)
        return;
    const auto entries =
        other.entriesBehind(static_cast<std::size_t>(others - other.m_fields.begin()));
    const auto ownEntries = entriesBehind(static_cast<std::size_t>(own - m_fields.begin()));
    if (entries.empty() || ownEntries.empty())
        return;
    const Entry entry = entries[below(m_random, entries.size())];
    put(*own, own->word + 1);
    replace(ownEntries[below(m_random, ownEntries.size())].at, 0,
            other.m_record.substr(entry.at, entry.size));
}

/// A number that means something in one field or another: a count, a marker, a bound, an id.
unsigned int RecordEditor::anyNumber() {
    constexpr unsigned int NUMBERS[] = {0,          1,
                                        2,          3,
                                        7,          UNPADDED_BYTE_FLAG,
                                        NO_TYPE_ID, NO_TYPE_ID - 1,
                                        0x7FFFFFFF, 0x80000000,
                                        0x01000000, static_cast<unsigned int>(NO_SV_TYPE_ID)};
    return isOneIn(4) ? anyTypeId() : NUMBERS[below(m_random, std::size(NUMBERS))];
}

/// Mostly that of a type.
unsigned int RecordEditor::anyTypeId() {
    if (isOneIn(16))
        return isOneIn(2) ? NO_TYPE_ID : m_typeCount;
    return static_cast<unsigned int>(below(m_random, m_typeCount));
}

void RecordEditor::put(const ReadField& field, unsigned int word) {
    putLittleEndian(m_record.data() + field.offset, word);
}

/// The record size follows, unless it was wrong before.
void RecordEditor::replace(std::size_t at, std::size_t size, const std::string& bytes) {
    const bool isInStep = littleEndianAt<unsigned int>(m_record.data()) == m_record.size();
    m_record.replace(at, size, bytes);
    if (isInStep)
        putLittleEndian(m_record.data(), static_cast<unsigned int>(m_record.size()));
}

} // namespace Fuzz
