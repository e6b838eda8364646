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
using TypeFile::NamedValues;
using TypeFile::nameOf;
using TypeFile::ReadField;
using TypeFile::RecordFrame;
using TypeFile::StorageWindow;

namespace {

/// The fields that every record has, whatever its kind.
constexpr std::size_t SIZE_AND_KIND = 2;

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
        return fmt::format("does not fit into 32 bits: read as {}",
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
    /// Of the fields up to `end`. Bytes that are not in the storage are missing, whatever the
    /// record says.
    FieldTexts(StorageWindow& storage, unsigned long long begin, unsigned long long end,
               const DescribeType& describe, const TakeField& take)
        : m_describe(describe), m_take(take), m_storage(storage),
          m_begin(std::min(begin, storage.storageSize())),
          m_end(std::min(end, storage.storageSize())),
          m_isCutByStorage(end > storage.storageSize()) {}

    void read(std::span<const FieldLayout> layout) { m_reader.read(layout); }

    /// What the fields have left over.
    void readRest();

    unsigned long long end() const { return m_end; }

private:
    bool takeField(const ReadField& field, const std::string& name);
    bool takeCutRange(const ReadField& field);
    void fillName(const ReadField& field, RecordField& result);
    void fillVersion(const ReadField& field, RecordField& result);
    void fillRange(const ReadField& field, RecordField& result);
    void fillValue(const ReadField& field, RecordField& result);
    void fillWide(const ReadField& field, RecordField& result);
    void fillWord(const ReadField& field, RecordField& result);
    void fillRecordSize(int size, RecordField& result) const;
    void fillMissing(const ReadField& field, RecordField& result) const;
    const char* bytesOf(const ReadField& field) {
        return m_storage.at(field.offset, static_cast<std::size_t>(field.size));
    }

    const DescribeType& m_describe;
    const TakeField& m_take;
    StorageWindow& m_storage;
    unsigned long long m_begin;
    unsigned long long m_end;
    bool m_isCutByStorage;

    struct Take {
        FieldTexts& texts;
        bool operator()(const ReadField& field) const {
            return texts.takeField(field, nameOf(field));
        }
    };
    TypeFile::FieldReader<Take> m_reader{m_storage, m_begin, m_end, Take{*this}};
};

bool FieldTexts::takeField(const ReadField& field, const std::string& name) {
    const FieldForm form = field.layout->form;
    if (form == FieldForm::RANGE && !field.isWhole)
        return takeCutRange(field);
    RecordField result{field.isWhole     ? FieldState::WHOLE
                       : field.size != 0 ? FieldState::PARTIAL
                                         : FieldState::MISSING,
                       form,
                       name,
                       field.offset,
                       field.size,
                       "",
                       ""};
    if (field.missingItems > 1)
        result.lastItem = field.item + field.missingItems - 1;
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
    else if (field.width == sizeof field.word)
        fillWord(field, result);
    else
        fillWide(field, result);
    return m_take(result);
}

/// Of a range that is not there as a whole, the loader takes the numbers that are.
bool FieldTexts::takeCutRange(const ReadField& field) {
    const std::string range = nameOf(field) + '.';
    bool isWanted = true;
    TypeFile::FieldReader numbers(m_storage, field.offset, field.offset + field.size,
                                  [&](const ReadField& number) {
                                      return isWanted = takeField(number, range + nameOf(number));
                                  });
    numbers.read(TypeFile::Layout::RANGE_PARTS);
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
    const FullConstraints read = TypeFile::rangeAt(bytesOf(field));
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
            result.meaning = fmt::format("above {}: read as 0", field.layout->last);
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

void FieldTexts::fillRecordSize(int size, RecordField& result) const {
    const unsigned long long inStorage = m_storage.storageSize() - m_begin;
    if (size < static_cast<int>(RECORD_HEADER_SIZE))
        result.meaning = "less than the 8 bytes of size and kind";
    else if (static_cast<unsigned long long>(size) > inStorage)
        result.meaning = "the storage ends after " + counted(inStorage, "byte");
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

/// The name in quotes, of a long one the beginning; empty without a name.
std::string labelOf(StorageWindow& storage, const ReadField& name) {
    const auto length = static_cast<std::size_t>(name.size - (name.isWhole ? 1 : 0));
    const std::size_t shown = std::min(length, LONGEST_HEAD_NAME);
    return shown != 0 ? quoted({storage.at(name.offset, shown), shown}) : "";
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
    const RecordFrame frame = TypeFile::recordFrameAt(storage, address);
    FieldTexts texts(storage, address, address + frame.claimedBytes(), describe, take);
    const auto head = std::span(TypeFile::Layout::HEAD);
    texts.read(TypeFile::buildsType(frame.kind) ? head : head.first(SIZE_AND_KIND));
    texts.read(TypeFile::bodyLayout(frame.kind));
    texts.readRest();
    return texts.end();
}

unsigned long long readHeaderFields(StorageWindow& storage, unsigned long long address,
                                    const TakeField& take) {
    const DescribeType none;
    FieldTexts texts(storage, address, address + HEADER_SIZE, none, take);
    texts.read(TypeFile::Layout::HEADER);
    return texts.end();
}

RecordHead recordHeadAt(StorageWindow& storage, unsigned long long address) {
    const RecordFrame frame = TypeFile::recordFrameAt(storage, address);
    RecordHead head;
    if (!frame.hasHead())
        return head;
    head.isThere = true;
    head.kindCode = frame.kind;
    const auto takeField = [&](const ReadField& field) {
        if (field.layout->form == FieldForm::NAME)
            head.label = labelOf(storage, field);
        const NamedValues* const names = field.layout->names;
        if ((names == &TypeFile::arrayKinds || names == &TypeFile::recordKinds) && field.isWhole)
            head.detail = field.word;
        return true;
    };
    const auto end = address + std::min<unsigned long long>(frame.size(), RECORD_HEAD_BLOCK);
    TypeFile::FieldReader reader(storage, address, end, takeField);
    const auto body = TypeFile::bodyLayout(frame.kind);
    reader.read(TypeFile::Layout::HEAD);
    reader.read(body.first(std::min<std::size_t>(body.size(), 1))); // Where a kind has a detail.
    head.kind = kindOf(head.kindCode, head.detail.value_or(0));
    return head;
}

} // namespace Inspect
