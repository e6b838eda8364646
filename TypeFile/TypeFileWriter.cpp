#include "TypeFile/TypeFileWriter.h"

#include "OVAT/Counted.h"
#include "OVAT/FileBlockManager.h"
#include "OVAT/WholeFile.h"
#include "RTTI/LittleEndian.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/RecordEncoder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <stdexcept>
#include <system_error>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr std::size_t COPIED_AT_ONCE = 1 << 16;

/// Copies a storage file's bytes into `file`, from the first to the last.
void copyInto(OVAT::WholeFile& file, const std::string& path) {
    OVAT::FileBlockManager image(path);
    std::vector<char> block(COPIED_AT_ONCE);
    for (unsigned long long offset = 0; offset < image.size(); offset += COPIED_AT_ONCE) {
        const auto count = std::min<unsigned long long>(COPIED_AT_ONCE, image.size() - offset);
        image.read(offset, block.data(), static_cast<long long>(count));
        file.write(offset, block.data(), count);
    }
    file.extend(image.size());
}

/// Throws unless the `count` bytes at `offset` of a storage are those at `expected`.
void checkWritten(OVAT::FileBlockManager& written, unsigned long long offset, const char* expected,
                  std::size_t count) {
    std::vector<char> block(std::min(count, COPIED_AT_ONCE));
    for (std::size_t done = 0; done < count; done += COPIED_AT_ONCE) {
        const std::size_t size = std::min(COPIED_AT_ONCE, count - done);
        written.read(offset + done, block.data(), static_cast<long long>(size));
        if (!std::equal(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size),
                        expected + done))
            throw std::system_error(std::make_error_code(std::errc::io_error),
                                    "what was written reads differently at offset " +
                                        std::to_string(offset + done));
    }
}

} // namespace

/// Where everything comes to lie; offsets count from the type file's beginning.
struct TypeFileWriter::Layout {
    std::array<char, HEADER_SIZE> header{};
    std::vector<char> table;
    unsigned long long tableOffset = 0;

    unsigned long long size() const { return tableOffset + table.size(); }

    /// Calls `put(offset, bytes, count)` for stretches of the file, first to last.
    template <typename Put> void forEachPiece(const TypeFileWriter& writer, Put put) const {
        put(0ULL, header.data(), header.size());
        unsigned long long offset = HEADER_SIZE;
        const std::vector<Record>& records = writer.m_records;
        for (std::size_t i = 0; i < records.size();) {
            const std::size_t begin = records[i].begin;
            std::size_t end = begin;
            for (; i < records.size() && records[i].begin == end; ++i)
                end += records[i].size;
            put(offset, writer.m_bytes.data() + begin, end - begin);
            offset += end - begin;
        }
        put(tableOffset, table.data(), table.size());
    }
};

TypeFileWriter::TypeFileWriter(unsigned long long baseOffset)
    : m_baseOffset(baseOffset), m_version(TYPE_FILE_VERSION),
      m_encoder(std::make_unique<RecordEncoder>(m_bytes)) {}

TypeFileWriter::~TypeFileWriter() = default;

void TypeFileWriter::setVersion(std::string_view version) {
    const auto refuse = [](const std::string& reason) {
        throw WriteError(NO_TYPE_ID, nullptr, Field::VERSION, reason);
    };
    if (version.size() >= VERSION_SIZE)
        refuse("the text has " + OVAT::counted(version.size(), "byte") +
               ", and there is room for " + std::to_string(VERSION_SIZE - 1));
    if (version.find('\0') != std::string_view::npos)
        refuse("there is a zero byte in the text");
    if (version == RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID)
        refuse("this text marks a file without usable types");
    m_version = version;
}

unsigned int TypeFileWriter::add(const RTBaseType& type) {
    const unsigned int typeId = m_typeCount;
    add(typeId, type);
    return typeId;
}

void TypeFileWriter::add(unsigned int typeId, const RTBaseType& type) {
    checkOpen();
    if (typeId == NO_TYPE_ID)
        throw WriteError(NO_TYPE_ID, type.m_name, Field::ID, "4294967295 stands for no type");
    const std::size_t begin = m_bytes.size();
    m_records.push_back({typeId, 0, begin});
    try {
        m_encoder->encode(typeId, type);
    } catch (...) {
        m_records.pop_back();
        throw;
    }
    m_records.back().size = static_cast<unsigned int>(m_bytes.size() - begin);
    m_isSorted = m_isSorted && typeId >= m_typeCount;
    m_typeCount = std::max(m_typeCount, typeId + 1);
}

void TypeFileWriter::checkOpen() const {
    if (m_isFinished)
        throw std::logic_error("a TypeFileWriter finishes once");
}

/// The name in the record that was added for an id.
const char* TypeFileWriter::nameOf(unsigned int typeId) const {
    const auto record = std::find_if(m_records.begin(), m_records.end(),
                                     [&](const Record& r) { return r.typeId == typeId; });
    return record != m_records.end() ? m_bytes.data() + record->begin + RECORD_HEADER_SIZE
                                     : nullptr;
}

/// The records are in the order of their ids: each id from 0 up has one.
void TypeFileWriter::checkIds() const {
    for (std::size_t i = 0; i < m_records.size(); ++i) {
        const unsigned int typeId = m_records[i].typeId;
        if (typeId < i)
            throw WriteError(typeId, nameOf(typeId), Field::ID, "two types have this id");
        if (typeId > i)
            throw WriteError(static_cast<unsigned int>(i), nullptr, Field::ID,
                             "there is no type with this id, and there is one with the id " +
                                 std::to_string(m_typeCount - 1));
    }
}

void TypeFileWriter::checkReferences() const {
    const Reference& reference = m_encoder->largestReference();
    if (!reference.exists || reference.to < m_typeCount)
        return;
    throw WriteError(reference.from, nameOf(reference.from), reference.place.text(),
                     "refers to the id " + std::to_string(reference.to) +
                         ", and the last type has the id " + std::to_string(m_typeCount - 1));
}

TypeFileWriter::Layout TypeFileWriter::layOut() {
    checkOpen();
    if (!m_isSorted)
        std::stable_sort(m_records.begin(), m_records.end(),
                         [](const Record& a, const Record& b) { return a.typeId < b.typeId; });
    m_isSorted = true;
    checkIds();
    checkReferences();

    Layout layout;
    layout.tableOffset = HEADER_SIZE + m_bytes.size();
    if (m_baseOffset > LARGEST_ADDRESS_TABLE_OFFSET ||
        layout.tableOffset > LARGEST_ADDRESS_TABLE_OFFSET - m_baseOffset)
        throw WriteError(NO_TYPE_ID, nullptr, Field::ADDRESS_TABLE_OFFSET,
                         "with the type file at " + std::to_string(m_baseOffset) + " and " +
                             OVAT::counted(m_bytes.size(), "byte") +
                             " of records the address table lies past 32 bits");

    std::copy(m_version.begin(), m_version.end(), layout.header.begin());
    putLittleEndian(layout.header.data() + TYPE_COUNT_OFFSET, m_typeCount);
    putLittleEndian(layout.header.data() + ADDRESS_TABLE_OFFSET,
                    static_cast<unsigned int>(m_baseOffset + layout.tableOffset));

    layout.table.resize(m_records.size() * ADDRESS_SIZE);
    unsigned long long address = m_baseOffset + HEADER_SIZE;
    for (std::size_t i = 0; i < m_records.size(); ++i) {
        putLittleEndian(layout.table.data() + i * ADDRESS_SIZE, address);
        address += m_records[i].size;
    }
    return layout;
}

void TypeFileWriter::copyTo(char* to, const Layout& layout) const {
    layout.forEachPiece(*this, [&](unsigned long long offset, const char* bytes,
                                   std::size_t count) { std::copy_n(bytes, count, to + offset); });
}

std::vector<char> TypeFileWriter::finish() {
    const Layout layout = layOut();
    std::vector<char> file(layout.size());
    copyTo(file.data(), layout);
    m_isFinished = true;
    return file;
}

void TypeFileWriter::finishInto(std::vector<char>& image) {
    const Layout layout = layOut();
    const unsigned long long size = m_baseOffset + layout.size();
    if (size > image.max_size())
        throw std::bad_alloc();
    if (image.size() < size)
        image.resize(static_cast<std::size_t>(size));
    copyTo(image.data() + m_baseOffset, layout);
    m_isFinished = true;
}

void TypeFileWriter::finishFile(const std::string& path) { finishFile(path, std::string()); }

void TypeFileWriter::finishFile(const std::string& path, const std::string& imagePath) {
    const Layout layout = layOut();
    OVAT::WholeFile file(path);
    if (!imagePath.empty())
        copyInto(file, imagePath);
    layout.forEachPiece(*this,
                        [&](unsigned long long offset, const char* bytes, std::size_t count) {
                            file.write(m_baseOffset + offset, bytes, count);
                        });
    OVAT::FileBlockManager written(file.temporaryPath(),
                                   OVAT::FileBlockManager::Access::POSITIONED_READS);
    layout.forEachPiece(*this,
                        [&](unsigned long long offset, const char* bytes, std::size_t count) {
                            checkWritten(written, m_baseOffset + offset, bytes, count);
                        });
    file.commit();
    m_isFinished = true;
}

} // namespace TypeFile
