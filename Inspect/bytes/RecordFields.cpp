#include "Inspect/bytes/RecordFields.h"

#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/LittleEndian.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace Inspect {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;
using TypeFile::StorageWindow;

namespace {

constexpr std::size_t WORD_SIZE = 4;
constexpr std::size_t LONG_SIZE = 8;

/// Names are shown up to here.
constexpr std::size_t LONGEST_TEXT = 1024;

/// Those of other types, which a field refers to, are shown up to here.
constexpr std::size_t LONGEST_HEAD_NAME = 256;

/// Values up to here are shown as numbers.
constexpr std::size_t LONGEST_NUMBER = 8;

constexpr char MISSING_VALUE[] = "(missing)";

/// What the bounds of a range and its direction are called where it is not there as a whole.
constexpr const char* RANGE_PARTS[] = {"left bound", "right bound", "direction"};

std::string realText(double value) { return fmt::format("{}", value); }

/// What the loader makes of the direction of a real type.
std::string directionMeaning(double direction) {
    const double truncated = std::trunc(direction);
    if (!(truncated >= std::numeric_limits<int>::min() &&
          truncated <= std::numeric_limits<int>::max()))
        return fmt::format("no 32-bit number: {} stands instead", std::numeric_limits<int>::min());
    if (truncated == TO_DIRECTION)
        return "to";
    if (truncated == DOWNTO_DIRECTION)
        return "downto";
    return truncated == direction ? "" : fmt::format("truncated to {:.0f}", truncated);
}

std::string svTypeIdMeaning(int id) {
    return id == NO_SV_TYPE_ID       ? "none"
           : id == STRING_SV_TYPE_ID ? "string"
           : id == EVENT_SV_TYPE_ID  ? "event"
                                     : "";
}

/// Reads one layout after the other over the bytes of a record or header.
class FieldReader {
public:
    FieldReader(StorageWindow& storage, unsigned long long begin, unsigned long long end,
                const DescribeType& describe, const TakeField& take)
        : m_storage(storage), m_describe(describe), m_take(take), m_begin(begin), m_at(begin) {
        endAt(end);
    }

    void read(std::span<const FieldLayout> layout);
    void readRest();

    unsigned int kindCode() const { return m_kindCode; }
    unsigned long long end() const { return m_end; }

private:
    /// Those that are not in the storage are missing, whatever the record says.
    void endAt(unsigned long long end) {
        m_isCutByStorage = end > m_storage.storageSize();
        m_end = std::min(end, m_storage.storageSize());
        m_at = std::min(m_at, m_end);
    }

    unsigned long long bytesLeft() const { return m_end - m_at; }

    // What a layout is made of.
    std::size_t readList(std::span<const FieldLayout> layout, std::size_t first);
    void readField(const FieldLayout& field);
    void readName(const FieldLayout& field);
    void readVersion(const FieldLayout& field);
    void readRange(const std::string& name);
    void readRanges(const FieldLayout& field);
    void readValue(const FieldLayout& field);
    void readReal(const FieldLayout& field);
    void readFixed(const FieldLayout& field, std::size_t width);
    void readWord(const FieldLayout& field, RecordField& result);
    void readRecordSize(RecordField& result, int size);
    void readCount(RecordField& result, int count);

    const char* bytes(std::size_t count) { return m_storage.at(m_at, count); }

    // What is given.
    RecordField begin(std::string_view name, FieldForm form) const {
        return {FieldState::WHOLE, form, m_prefix + std::string(name), m_at, 0, "", "", NO_TYPE_ID};
    }
    void giveWhole(RecordField& field, unsigned long long size);
    void giveMissing(std::string_view name, FieldForm form, std::size_t width,
                     const std::string& instead);
    void giveMissingEntries(const char* list, unsigned int first, unsigned int count);
    void give(const RecordField& field) { m_isWanted = m_isWanted && m_take(field); }

    StorageWindow& m_storage;
    const DescribeType& m_describe;
    const TakeField& m_take;
    unsigned long long m_begin;
    unsigned long long m_at;
    unsigned long long m_end = 0;
    bool m_isCutByStorage = false;
    bool m_isWanted = true;
    std::string m_prefix; ///< Of the names of fields in a list: "member[3].".

    // What fields said of those behind them.
    unsigned int m_kindCode = 0;
    unsigned int m_count = 0;
    std::size_t m_valueSize = 0;
};

void FieldReader::read(std::span<const FieldLayout> layout) {
    for (std::size_t i = 0; i < layout.size() && m_isWanted; ++i) {
        if (layout[i].form == FieldForm::LIST)
            i = readList(layout, i);
        else
            readField(layout[i]);
    }
}

/// The answer is the index of the list's end in the layout.
std::size_t FieldReader::readList(std::span<const FieldLayout> layout, std::size_t first) {
    std::size_t last = first;
    while (layout[last].form != FieldForm::END_OF_LIST)
        ++last;
    const auto entry = layout.subspan(first + 1, last - first - 1);
    const unsigned int count = m_count;
    for (unsigned int i = 0; i < count && m_isWanted; ++i) {
        if (bytesLeft() == 0) {
            giveMissingEntries(layout[first].name, i, count);
            break;
        }
        m_prefix = fmt::format("{}[{}].", layout[first].name, i);
        read(entry);
        m_prefix.clear();
    }
    return last;
}

void FieldReader::readField(const FieldLayout& field) {
    switch (field.form) {
    case FieldForm::NAME: return readName(field);
    case FieldForm::VERSION: return readVersion(field);
    case FieldForm::RANGE: return readRange(m_prefix + field.name);
    case FieldForm::RANGES: return readRanges(field);
    case FieldForm::VALUE: return readValue(field);
    case FieldForm::REAL:
    case FieldForm::DIRECTION:
    case FieldForm::LONG: return readFixed(field, LONG_SIZE);
    default: return readFixed(field, WORD_SIZE);
    }
}

/// Ends at its zero byte, or with the record.
void FieldReader::readName(const FieldLayout& field) {
    if (bytesLeft() == 0)
        return giveMissing(field.name, field.form, 0, "read as empty");
    RecordField result = begin(field.name, field.form);
    std::string text;
    unsigned long long at = m_at;
    bool isEnded = false;
    while (at != m_end && !isEnded) {
        const char* piece = m_storage.at(at, 1);
        const auto left = static_cast<std::size_t>(std::min(m_end, m_storage.end()) - at);
        const void* zero = std::memchr(piece, '\0', left);
        isEnded = zero != nullptr;
        const std::size_t size =
            isEnded ? static_cast<std::size_t>(static_cast<const char*>(zero) - piece) : left;
        text.append(piece, std::min(size, LONGEST_TEXT - text.size()));
        at += size;
    }
    const unsigned long long length = at - m_at;
    result.value = quoted(text);
    if (length > text.size())
        result.meaning = fmt::format("the first {} of {} bytes", text.size(), length);
    if (!isEnded) {
        result.state = FieldState::PARTIAL;
        result.meaning += result.meaning.empty() ? "" : "; ";
        result.meaning += m_isCutByStorage ? "no zero byte: the storage ends here"
                                           : "no zero byte: ends with the record";
    }
    giveWhole(result, length + (isEnded ? 1 : 0));
}

void FieldReader::readVersion(const FieldLayout& field) {
    if (bytesLeft() < VERSION_SIZE)
        return giveMissing(field.name, field.form, VERSION_SIZE, "");
    RecordField result = begin(field.name, field.form);
    const char* text = bytes(VERSION_SIZE);
    const char* end = std::find(text, text + VERSION_SIZE, '\0');
    result.value = quoted({text, static_cast<std::size_t>(end - text)});
    if (std::string_view(text, static_cast<std::size_t>(end - text)) ==
        RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID)
        result.meaning = "marks a file without usable types";
    giveWhole(result, VERSION_SIZE);
}

void FieldReader::readRange(const std::string& name) {
    if (bytesLeft() < CONSTRAINT_SIZE) {
        for (const char* part : RANGE_PARTS)
            readFixed({(name.substr(m_prefix.size()) + '.' + part).c_str(), FieldForm::NUMBER},
                      WORD_SIZE);
        return;
    }
    RecordField result = begin(name.substr(m_prefix.size()), FieldForm::RANGE);
    const char* range = bytes(CONSTRAINT_SIZE);
    const FullConstraints read{littleEndianAt<int>(range), littleEndianAt<int>(range + 4),
                               littleEndianAt<int>(range + 8)};
    result.value = rangeText(read);
    if (read.dir == UNCONSTRAINED_DIRECTION)
        result.meaning = "filled in by an enclosing type";
    giveWhole(result, CONSTRAINT_SIZE);
}

/// The list keeps a count that is negative as a signed number, and nothing is read then.
void FieldReader::readRanges(const FieldLayout& field) {
    readFixed({"constraint count", FieldForm::COUNT}, WORD_SIZE);
    const unsigned int count = m_count;
    const std::string list = m_prefix + field.name;
    for (unsigned int i = 0; i < count && m_isWanted; ++i) {
        if (bytesLeft() == 0)
            return giveMissingEntries(field.name, i, count);
        readRange(fmt::format("{}[{}]", list, i));
    }
}

/// Bytes behind the record's end are 0. A value without bytes is no field.
void FieldReader::readValue(const FieldLayout& field) {
    if (m_valueSize == 0)
        return;
    if (bytesLeft() == 0)
        return giveMissing(field.name, field.form, 0, "read as 0");
    RecordField result = begin(field.name, field.form);
    const unsigned long long size = std::min<unsigned long long>(m_valueSize, bytesLeft());
    if (size < m_valueSize) {
        result.state = FieldState::PARTIAL;
        result.meaning = fmt::format("{} of {} bytes, the others are read as 0", size, m_valueSize);
    } else if (size <= LONGEST_NUMBER) {
        char number[LONGEST_NUMBER] = {};
        std::memcpy(number, bytes(static_cast<std::size_t>(size)), static_cast<std::size_t>(size));
        result.value = std::to_string(littleEndianAt<unsigned long long>(number));
        result.meaning = "as a little-endian number";
    } else {
        result.meaning = fmt::format("{} bytes", size);
    }
    giveWhole(result, size);
}

/// A field of 4 or 8 bytes.
void FieldReader::readFixed(const FieldLayout& field, std::size_t width) {
    if (bytesLeft() < width) {
        if (field.form == FieldForm::COUNT)
            m_count = 0;
        if (field.form == FieldForm::VALUE_SIZE)
            m_valueSize = 0;
        return giveMissing(field.name, field.form, width, fmt::format("read as {}", field.missing));
    }
    RecordField result = begin(field.name, field.form);
    if (width == WORD_SIZE) {
        readWord(field, result);
    } else if (field.form == FieldForm::LONG) {
        result.value = std::to_string(littleEndianAt<long long>(bytes(width)));
    } else {
        const auto real = littleEndianAt<double>(bytes(width));
        result.value = realText(real);
        if (field.form == FieldForm::DIRECTION)
            result.meaning = directionMeaning(real);
    }
    giveWhole(result, width);
}

void FieldReader::readWord(const FieldLayout& field, RecordField& result) {
    const auto word = littleEndianAt<unsigned int>(bytes(WORD_SIZE));
    const auto number = static_cast<int>(word);
    result.value = std::to_string(number);
    switch (field.form) {
    case FieldForm::RECORD_SIZE: return readRecordSize(result, number);
    case FieldForm::KIND:
        m_kindCode = word;
        result.value = fmt::format("{:#x}", word);
        result.meaning = kindOf(word);
        return;
    case FieldForm::FLAGS:
        result.value = fmt::format("{:#x}", word);
        result.meaning = (word & UNPADDED_BYTE_FLAG) != 0 ? "values in unpadded bytes" : "";
        return;
    case FieldForm::OFFSET:
        result.value = std::to_string(word);
        result.meaning = fmt::format("{:#x}", word);
        return;
    case FieldForm::NAMED: {
        if (field.names->first != 0)
            result.value = fmt::format("{:#x}", word);
        const char* name = field.names->nameOf(word);
        result.meaning = name != nullptr ? name : "unknown";
        return;
    }
    case FieldForm::FLAVOUR:
        if (number > field.last)
            result.meaning = fmt::format("above {}: 0 stands instead", field.last);
        return;
    case FieldForm::TYPE_ID:
        result.value = std::to_string(word);
        result.typeId = word;
        result.meaning = word == NO_TYPE_ID ? "none" : m_describe ? m_describe(word) : "";
        return;
    case FieldForm::SV_TYPE_ID: result.meaning = svTypeIdMeaning(number); return;
    case FieldForm::BOOLEAN:
        result.value = std::to_string(word);
        result.meaning = word != 0 ? "true" : "false";
        return;
    case FieldForm::COUNT: return readCount(result, number);
    case FieldForm::VALUE_SIZE:
        m_valueSize = static_cast<std::size_t>(std::max(number, 0));
        result.meaning = number < 0 ? "negative" : "bytes of a value";
        return;
    case FieldForm::UNSIGNED: result.value = std::to_string(word); return;
    default: return;
    }
}

void FieldReader::readRecordSize(RecordField& result, int size) {
    const unsigned long long inStorage = m_storage.storageSize() - m_begin;
    if (size < static_cast<int>(RECORD_HEADER_SIZE))
        result.meaning = "less than the 8 bytes of size and kind";
    else if (static_cast<unsigned long long>(size) > inStorage)
        result.meaning = fmt::format("the storage ends after {} bytes", inStorage);
    endAt(m_begin + std::max<unsigned long long>(RECORD_HEADER_SIZE,
                                                 static_cast<unsigned int>(std::max(size, 0))));
}

void FieldReader::readCount(RecordField& result, int count) {
    m_count = static_cast<unsigned int>(std::max(count, 0));
    if (count < 0)
        result.meaning = "negative: nothing is read";
}

void FieldReader::giveWhole(RecordField& field, unsigned long long size) {
    field.size = size;
    m_at += size;
    give(field);
}

/// A field of which not all bytes are there takes those that are: no field is read behind it.
void FieldReader::giveMissing(std::string_view name, FieldForm form, std::size_t width,
                              const std::string& instead) {
    RecordField result = begin(name, form);
    result.value = MISSING_VALUE;
    result.meaning = m_isCutByStorage ? "the storage ends here" : instead;
    result.state = FieldState::MISSING;
    if (bytesLeft() != 0) {
        result.state = FieldState::PARTIAL;
        result.meaning = fmt::format("{} of {} bytes{}{}", bytesLeft(), width,
                                     result.meaning.empty() ? "" : ": ", result.meaning);
    }
    giveWhole(result, bytesLeft());
}

/// All of a list that is not there: the count may claim any number.
void FieldReader::giveMissingEntries(const char* list, unsigned int first, unsigned int count) {
    RecordField result = begin(fmt::format("{}[{}]", list, first), FieldForm::LIST);
    if (count - first > 1)
        result.name += fmt::format(" to [{}]", count - 1);
    result.state = FieldState::MISSING;
    result.value = MISSING_VALUE;
    result.meaning = m_isCutByStorage    ? "the storage ends here"
                     : count - first > 1 ? fmt::format("{} entries, read as empty", count - first)
                                         : "read as empty";
    give(result);
}

/// What the fields have left over.
void FieldReader::readRest() {
    if (bytesLeft() == 0)
        return;
    RecordField result = begin("left-over bytes", FieldForm::END_OF_LIST);
    result.state = FieldState::UNREAD;
    result.meaning = fmt::format("{} bytes that are not read", bytesLeft());
    giveWhole(result, bytesLeft());
}

} // namespace

std::string_view wordOf(FieldState state) {
    constexpr std::string_view WORDS[] = {"whole", "partial", "missing", "unread"};
    return WORDS[static_cast<std::size_t>(state)];
}

unsigned long long readRecordFields(StorageWindow& storage, unsigned long long address,
                                    const DescribeType& describe, const TakeField& take) {
    FieldReader reader(storage, address, address + RECORD_HEADER_SIZE, describe, take);
    const auto head = recordHeadLayout();
    reader.read(head.first(2)); // Size and kind, which say what follows.
    if (TypeFile::buildsType(reader.kindCode())) {
        reader.read(head.subspan(2));
        reader.read(bodyLayout(reader.kindCode()));
    }
    reader.readRest();
    return reader.end();
}

unsigned long long readHeaderFields(StorageWindow& storage, unsigned long long address,
                                    const TakeField& take) {
    const DescribeType none;
    FieldReader reader(storage, address, address + HEADER_SIZE, none, take);
    reader.read(headerLayout());
    return reader.end();
}

RecordHead recordHeadAt(StorageWindow& storage, unsigned long long address) {
    RecordHead head;
    if (address > storage.storageSize() || storage.storageSize() - address < RECORD_HEADER_SIZE)
        return head;
    const auto size = static_cast<std::size_t>(
        std::min<unsigned long long>(RECORD_HEAD_BLOCK, storage.storageSize() - address));
    const char* const bytes = storage.at(address, size);
    const auto claimed = static_cast<std::size_t>(std::max(littleEndianAt<int>(bytes), 0));
    head.isThere = true;
    head.kindCode = littleEndianAt<unsigned int>(bytes + RECORD_KIND_OFFSET);
    std::string_view rest(bytes, std::clamp(claimed, RECORD_HEADER_SIZE, size));
    rest.remove_prefix(RECORD_HEADER_SIZE);
    const std::string_view name = rest.substr(0, rest.find('\0'));
    head.name = quoted(name.substr(0, LONGEST_HEAD_NAME));
    rest.remove_prefix(std::min(name.size() + 1 + WORD_SIZE, rest.size())); // The flags, too.
    head.kind = kindOf(head.kindCode,
                       rest.size() >= WORD_SIZE ? littleEndianAt<unsigned int>(rest.data()) : 0);
    return head;
}

} // namespace Inspect
