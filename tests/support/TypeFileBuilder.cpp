#include "tests/support/TypeFileBuilder.h"

#include <cstring>
#include <iostream>
#include <sstream>

namespace {

std::string littleEndian(unsigned long long value, int width) {
    std::string bytes;
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
}

constexpr std::size_t HEADER = 40;

} // namespace

TypeFileBuilder& TypeFileBuilder::record(unsigned int kind, const std::string& name,
                                         unsigned int flags) {
    m_records.push_back({littleEndian(0, 4) + littleEndian(kind, 4), 0, false});
    return str(name).u32(flags);
}

TypeFileBuilder& TypeFileBuilder::u32(unsigned int value) { return bytes(littleEndian(value, 4)); }

TypeFileBuilder& TypeFileBuilder::i64(long long value) {
    return bytes(littleEndian(static_cast<unsigned long long>(value), 8));
}

TypeFileBuilder& TypeFileBuilder::f64(double value) {
    unsigned long long bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bytes(littleEndian(bits, 8));
}

TypeFileBuilder& TypeFileBuilder::str(const std::string& text) { return bytes(text + '\0'); }

TypeFileBuilder& TypeFileBuilder::bytes(const std::string& raw) {
    m_records.back().bytes += raw;
    return *this;
}

TypeFileBuilder& TypeFileBuilder::cut(std::size_t size) {
    m_records.back().bytes.resize(size);
    return *this;
}

TypeFileBuilder& TypeFileBuilder::claim(int size) {
    m_records.back().claimed = size;
    m_records.back().isClaimed = true;
    return *this;
}

TypeFileBuilder& TypeFileBuilder::version(const std::string& text) {
    m_version = text;
    return *this;
}

TypeFileBuilder& TypeFileBuilder::count(unsigned int typeCount) {
    m_count = typeCount;
    m_hasCount = true;
    return *this;
}

TypeFileBuilder& TypeFileBuilder::base(unsigned long long offset) {
    m_base = offset;
    return *this;
}

TypeFileBuilder& TypeFileBuilder::integer(const std::string& name) {
    return record(0xA0000005, name).range(0, 7, 1);
}

TypeFileBuilder& TypeFileBuilder::string(const std::string& name) {
    return record(0xA0000018, name);
}

TypeFileBuilder& TypeFileBuilder::alias(unsigned int type) {
    return record(0xA0000007, "t").u32(type).u32(0);
}

TypeFileBuilder& TypeFileBuilder::packedArray(unsigned int element, int direction) {
    record(0xA0000010, "a").u32(RTTI::VLOG_FIXED_PACKED_ARRAY).u32(element);
    return u32(1).u32(0).u32(1).range(0, 7, direction).i32(-99);
}

TypeFileBuilder& TypeFileBuilder::structure(const std::vector<unsigned int>& members) {
    record(0xA0000011, "s").u32(RTTI::VLOG_UNPACKED_STRUCT);
    u32(static_cast<unsigned int>(members.size()));
    for (const unsigned int member : members)
        str("m").u32(member).u32(0);
    return i32(-99);
}

TypeFileBuilder& TypeFileBuilder::classType(unsigned int base,
                                            const std::vector<unsigned int>& members) {
    record(0xA0000017, "c").u32(base).i32(1).u32(static_cast<unsigned int>(members.size()));
    for (const unsigned int member : members)
        str("m").u32(member).u32(0).u32(0);
    return *this;
}

unsigned long long TypeFileBuilder::address(unsigned int id) const {
    unsigned long long offset = m_base + HEADER;
    for (unsigned int i = 0; i < id; ++i)
        offset += m_records[i].bytes.size();
    return offset;
}

unsigned long long TypeFileBuilder::tableOffset() const {
    return address(static_cast<unsigned int>(m_records.size()));
}

std::string TypeFileBuilder::image() const {
    const auto records = static_cast<unsigned int>(m_records.size());
    std::string image(m_base, '?');
    image += m_version + std::string(32 - m_version.size(), '\0');
    image += littleEndian(m_hasCount ? m_count : records, 4) + littleEndian(tableOffset(), 4);
    for (const Record& record : m_records) {
        std::string bytes = record.bytes;
        const int size = record.isClaimed ? record.claimed : static_cast<int>(bytes.size());
        bytes.replace(0, 4, littleEndian(static_cast<unsigned int>(size), 4));
        image += bytes;
    }
    unsigned long long offset = address(0);
    for (const Record& record : m_records) {
        image += littleEndian(offset, 8);
        offset += record.bytes.size();
    }
    return image;
}

bool RecordingBlockManager::read(unsigned long long offset, void* buffer, long long count) {
    if (m_done++ == m_failAt)
        throw std::runtime_error("the storage fails");
    m_reads.emplace_back(offset, count);
    if (count < 0 || offset > m_image.size() ||
        static_cast<unsigned long long>(count) > m_image.size() - offset)
        throw std::out_of_range("outside the image");
    std::memcpy(buffer, m_image.data() + offset, static_cast<std::size_t>(count));
    return true;
}

LoadedTypes::LoadedTypes(const TypeFileBuilder& file, bool readAll) : m_storage(file.image()) {
    m_manager.setupDeserializer(m_storage, file.baseOffset());
    m_storage.takeReads();
    if (readAll)
        m_manager.readAllRTTypes();
}

std::string LoadedTypes::trace() {
    const CapturedOutput output;
    m_manager.setDebugMode();
    m_manager.readAllRTTypes();
    return output.text();
}

struct CapturedOutput::State {
    std::ostringstream text;
    std::streambuf* before = nullptr;
};

CapturedOutput::CapturedOutput() : m_state(new State) {
    m_state->before = std::cout.rdbuf(m_state->text.rdbuf());
}

CapturedOutput::~CapturedOutput() {
    std::cout.rdbuf(m_state->before);
    delete m_state;
}

std::string CapturedOutput::text() const { return m_state->text.str(); }

std::vector<std::vector<int>> numbersOf(const std::vector<RTTI::FullConstraints>& constraints) {
    std::vector<std::vector<int>> numbers;
    for (const RTTI::FullConstraints& range : constraints)
        numbers.push_back({range.si, range.ei, range.dir});
    return numbers;
}
