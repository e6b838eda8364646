#include "Inspect/bytes/RecordFields.h"

#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/Ranges.h"
#include "RTTI/TruncatedDirection.h"
#include "TypeFile/FieldReader.h"
#include "TypeFile/StorageWindow.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>

namespace Inspect {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;
using TypeFile::FieldLayout;
using TypeFile::keyOf;
using TypeFile::NamedValues;
using TypeFile::nameOf;
using TypeFile::ReadField;
using TypeFile::StorageWindow;

namespace {

constexpr std::size_t WORD_SIZE = 4;

/// Names are shown up to here.
constexpr std::size_t LONGEST_TEXT = 1024;

/// Those of other types, which a field refers to, are shown up to here.
constexpr std::size_t LONGEST_HEAD_NAME = 256;

/// Values up to here are shown as numbers.
constexpr std::size_t LONGEST_NUMBER = 8;

constexpr char MISSING_VALUE[] = "(missing)";

/// In the order of the enumeration.
constexpr std::string_view FORM_WORDS[] = {
    "recordSize", "kind",   "name",      "flags",   "number", "unsigned", "offset",    "named",
    "flavour",    "typeId", "svTypeId",  "boolean", "long",   "real",     "direction", "range",
    "version",    "count",  "valueSize", "value",   "ranges", "list",     "endOfList"};
static_assert(std::size(FORM_WORDS) == static_cast<std::size_t>(FieldForm::END_OF_LIST) + 1);

std::string realText(double value) { return fmt::format("{}", value); }

/// What the loader makes of the direction of a real type.
std::string directionMeaning(double direction) {
    const std::optional<int> truncated = truncatedDirection(direction);
    if (!truncated)
        return fmt::format("does not fit into 32 bits: {} stands instead",
                           std::numeric_limits<int>::min());
    if (truncated == TO_DIRECTION)
        return "to";
    if (truncated == DOWNTO_DIRECTION)
        return "downto";
    return truncated == direction ? "" : fmt::format("truncated to {}", *truncated);
}

/// Words for the fields of one record or header, one after the other.
class FieldTexts {
public:
    FieldTexts(StorageWindow& storage, unsigned long long begin, const DescribeType& describe,
               const TakeField& take)
        : m_storage(storage), m_describe(describe), m_take(take), m_begin(begin),
          m_end(std::min(begin, storage.storageSize())) {}

    /// Reads up to `end`, and no further than the storage goes: bytes that are not in it are
    /// missing, whatever the record says.
    void read(std::span<const FieldLayout> layout, unsigned long long end) {
        m_isCutByStorage = end > m_storage.storageSize();
        m_reader.endAt(m_end = std::min(end, m_storage.storageSize()));
        m_reader.read(layout);
    }

    /// What the fields have left over.
    void readRest();

    unsigned int kindCode() const { return m_kindCode; }

    /// Where the record says that it ends.
    unsigned long long claimedEnd() const { return m_claimedEnd; }
    unsigned long long end() const { return m_end; }

private:
    bool takeField(const ReadField& field);
    bool takeCutRange(const ReadField& field);
    void fillName(const ReadField& field, RecordField& result);
    void fillVersion(const ReadField& field, RecordField& result);
    void fillRange(const ReadField& field, RecordField& result);
    void fillValue(const ReadField& field, RecordField& result);
    void fillWide(const ReadField& field, RecordField& result);
    void fillWord(const ReadField& field, RecordField& result);
    void fillRecordSize(int size, RecordField& result);
    void fillMissing(const ReadField& field, RecordField& result) const;
    const char* bytesOf(const ReadField& field) {
        return m_storage.at(field.offset, static_cast<std::size_t>(field.size));
    }

    StorageWindow& m_storage;
    const DescribeType& m_describe;
    const TakeField& m_take;
    unsigned long long m_begin;
    unsigned long long m_end;
    unsigned long long m_claimedEnd = 0;
    bool m_isCutByStorage = false;
    unsigned int m_kindCode = 0;

    struct Take {
        FieldTexts& texts;
        bool operator()(const ReadField& field) const { return texts.takeField(field); }
    };
    TypeFile::FieldReader<Take> m_reader{m_storage, m_end, m_end, Take{*this}};
};

bool FieldTexts::takeField(const ReadField& field) {
    const FieldForm form = field.layout->form;
    if (form == FieldForm::RANGE && !field.isWhole)
        return takeCutRange(field);
    RecordField result{field.isWhole     ? FieldState::WHOLE
                       : field.size != 0 ? FieldState::PARTIAL
                                         : FieldState::MISSING,
                       form,
                       nameOf(field),
                       field.offset,
                       field.size,
                       "",
                       "",
                       NO_TYPE_ID,
                       keyOf(field)};
    if (form == FieldForm::NAME && field.size != 0)
        fillName(field, result);
    else if (form == FieldForm::VALUE && field.size != 0)
        fillValue(field, result);
    else if (!field.isWhole)
        fillMissing(field, result);
    else if (form == FieldForm::VERSION)
        fillVersion(field, result);
    else if (form == FieldForm::RANGE)
        fillRange(field, result);
    else if (field.width == WORD_SIZE)
        fillWord(field, result);
    else
        fillWide(field, result);
    return m_take(result);
}

/// Of a range that is not there as a whole, the loader takes the numbers that are.
bool FieldTexts::takeCutRange(const ReadField& field) {
    const std::string name = nameOf(field);
    unsigned long long left = field.size;
    ReadField part = field;
    bool isWanted = true;
    for (const FieldLayout& number : TypeFile::Layout::RANGE_PARTS) {
        part.layout = &number;
        part.width = WORD_SIZE;
        part.size = std::min<unsigned long long>(left, WORD_SIZE);
        part.isWhole = part.size == WORD_SIZE;
        RecordField result{part.isWhole     ? FieldState::WHOLE
                           : part.size != 0 ? FieldState::PARTIAL
                                            : FieldState::MISSING,
                           number.form,
                           name + '.' + number.name,
                           part.offset,
                           part.size,
                           "",
                           "",
                           NO_TYPE_ID,
                           keyOf(field) + '.' + number.key};
        if (part.isWhole)
            result.value = std::to_string(littleEndianAt<int>(bytesOf(part)));
        else
            fillMissing(part, result);
        isWanted = isWanted && m_take(result);
        part.offset += part.size;
        left -= part.size;
    }
    return isWanted;
}

/// Of a long name the beginning.
void FieldTexts::fillName(const ReadField& field, RecordField& result) {
    const unsigned long long length = field.size - (field.isWhole ? 1 : 0);
    const auto shown = static_cast<std::size_t>(std::min<unsigned long long>(length, LONGEST_TEXT));
    result.value = quoted({m_storage.at(field.offset, shown), shown});
    if (shown < length)
        result.meaning = fmt::format("the first {} of {}", shown, counted(length, "byte"));
    if (!field.isWhole)
        result.meaning +=
            fmt::format("{}no zero byte: {}", result.meaning.empty() ? "" : "; ",
                        m_isCutByStorage ? "the storage ends here" : "ends with the record");
}

void FieldTexts::fillVersion(const ReadField& field, RecordField& result) {
    const char* text = bytesOf(field);
    const std::string_view version(
        text, static_cast<std::size_t>(std::find(text, text + VERSION_SIZE, '\0') - text));
    result.value = quoted(version);
    if (version == RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID)
        result.meaning = "marks a file without usable types";
}

void FieldTexts::fillRange(const ReadField& field, RecordField& result) {
    const char* range = bytesOf(field);
    const FullConstraints read{littleEndianAt<int>(range), littleEndianAt<int>(range + 4),
                               littleEndianAt<int>(range + 8)};
    result.value = rangeText(read);
    if (RTTI::isOpen(read))
        result.meaning = "filled in by an enclosing type";
}

/// Bytes behind the record's end are 0.
void FieldTexts::fillValue(const ReadField& field, RecordField& result) {
    if (!field.isWhole) {
        result.meaning = fmt::format("{} of {}, the others are read as 0", field.size,
                                     counted(field.width, "byte"));
    } else if (field.size <= LONGEST_NUMBER) {
        char number[LONGEST_NUMBER] = {};
        std::memcpy(number, bytesOf(field), static_cast<std::size_t>(field.size));
        result.value = std::to_string(littleEndianAt<unsigned long long>(number));
        result.meaning = "as a little-endian number";
    } else {
        result.meaning = counted(field.size, "byte");
    }
}

void FieldTexts::fillWide(const ReadField& field, RecordField& result) {
    const char* const bytes = bytesOf(field);
    if (result.form == FieldForm::LONG) {
        result.value = std::to_string(littleEndianAt<long long>(bytes));
        return;
    }
    const auto real = littleEndianAt<double>(bytes);
    result.value = realText(real);
    if (result.form == FieldForm::DIRECTION)
        result.meaning = directionMeaning(real);
}

void FieldTexts::fillWord(const ReadField& field, RecordField& result) {
    const unsigned int word = field.word;
    const auto number = static_cast<int>(word);
    result.value = std::to_string(number);
    switch (result.form) {
    case FieldForm::RECORD_SIZE: return fillRecordSize(number, result);
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
        const NamedValues& names = *field.layout->names;
        if (names.first != 0)
            result.value = fmt::format("{:#x}", word);
        const char* name = names.nameOf(word);
        result.meaning = name != nullptr ? name : "unknown";
        return;
    }
    case FieldForm::FLAVOUR:
        if (number > field.layout->last)
            result.meaning = fmt::format("above {}: 0 stands instead", field.layout->last);
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
    case FieldForm::COUNT: result.meaning = number < 0 ? "negative: nothing is read" : ""; return;
    case FieldForm::VALUE_SIZE:
        result.meaning = number < 0 ? "negative" : "bytes of a value";
        return;
    case FieldForm::UNSIGNED: result.value = std::to_string(word); return;
    default: return;
    }
}

void FieldTexts::fillRecordSize(int size, RecordField& result) {
    const unsigned long long inStorage = m_storage.storageSize() - m_begin;
    if (size < static_cast<int>(RECORD_HEADER_SIZE))
        result.meaning = "less than the 8 bytes of size and kind";
    else if (static_cast<unsigned long long>(size) > inStorage)
        result.meaning = "the storage ends after " + counted(inStorage, "byte");
    m_claimedEnd = m_begin + std::max(size, 0);
}

/// A field of which not all bytes are there takes those that are: no field is read behind it.
void FieldTexts::fillMissing(const ReadField& field, RecordField& result) const {
    result.value = MISSING_VALUE;
    const FieldForm form = field.layout->form;
    if (m_isCutByStorage)
        result.meaning = "the storage ends here";
    else if (field.missingItems > 1)
        result.meaning = fmt::format("{} entries, read as empty", field.missingItems);
    else if (form == FieldForm::NAME || field.missingItems == 1)
        result.meaning = "read as empty";
    else if (form != FieldForm::VERSION)
        result.meaning = fmt::format("read as {}", field.layout->missing);
    if (field.size != 0)
        result.meaning = fmt::format("{} of {}{}{}", field.size, counted(field.width, "byte"),
                                     result.meaning.empty() ? "" : ": ", result.meaning);
}

void FieldTexts::readRest() {
    const unsigned long long left = m_end - m_reader.at();
    if (left != 0 && m_reader.isWanted())
        m_take({FieldState::UNREAD, FieldForm::END_OF_LIST, "left-over bytes", m_reader.at(), left,
                "", counted(left, "byte") + " that are not read", NO_TYPE_ID});
}

} // namespace

std::string_view wordOf(FieldForm form) { return FORM_WORDS[static_cast<std::size_t>(form)]; }

std::string_view svTypeIdMeaning(int id) {
    return id == NO_SV_TYPE_ID       ? "none"
           : id == STRING_SV_TYPE_ID ? "string"
           : id == EVENT_SV_TYPE_ID  ? "event"
                                     : "";
}

std::string_view wordOf(FieldState state) {
    constexpr std::string_view WORDS[] = {"whole", "partial", "missing", "unread"};
    return WORDS[static_cast<std::size_t>(state)];
}

unsigned long long readRecordFields(StorageWindow& storage, unsigned long long address,
                                    const DescribeType& describe, const TakeField& take) {
    FieldTexts texts(storage, address, describe, take);
    const auto head = std::span(TypeFile::Layout::HEAD);
    const unsigned long long behindKind = address + RECORD_HEADER_SIZE;
    texts.read(head.first(2), behindKind); // Size and kind, which say what follows.
    const unsigned long long end = std::max(texts.claimedEnd(), behindKind);
    const bool hasBody = TypeFile::buildsType(texts.kindCode());
    texts.read(hasBody ? head.subspan(2) : head.first(0), end);
    texts.read(TypeFile::bodyLayout(texts.kindCode()), end);
    texts.readRest();
    return texts.end();
}

unsigned long long readHeaderFields(StorageWindow& storage, unsigned long long address,
                                    const TakeField& take) {
    const DescribeType none;
    FieldTexts texts(storage, address, none, take);
    texts.read(TypeFile::Layout::HEADER, address + HEADER_SIZE);
    return texts.end();
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
    if (!name.empty())
        head.label = quoted(name.substr(0, LONGEST_HEAD_NAME));
    rest.remove_prefix(std::min(name.size() + 1 + WORD_SIZE, rest.size())); // The flags, too.
    if (rest.size() >= WORD_SIZE)
        head.detail = littleEndianAt<unsigned int>(rest.data());
    head.kind = kindOf(head.kindCode, head.detail.value_or(0));
    return head;
}

} // namespace Inspect
