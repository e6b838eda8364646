#include "tests/support/TypeFileBuilder.h"

#include <cstring>

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

TypeFileBuilder& TypeFileBuilder::arrange(std::vector<std::size_t> order,
                                          std::vector<std::size_t> gaps) {
    m_order = std::move(order);
    m_gaps = std::move(gaps);
    return *this;
}

std::vector<unsigned long long> TypeFileBuilder::addresses() const {
    std::vector<unsigned long long> addresses(m_records.size() + 1);
    unsigned long long offset = m_base + HEADER;
    for (std::size_t place = 0; place < m_records.size(); ++place) {
        offset += gapAt(place);
        addresses[idAt(place)] = offset;
        offset += m_records[idAt(place)].bytes.size();
    }
    addresses.back() = offset + gapAt(m_records.size());
    return addresses;
}

std::string TypeFileBuilder::image() const {
    const std::vector<unsigned long long> addresses = this->addresses();
    std::string image(m_base, '?');
    image += m_version + std::string(32 - m_version.size(), '\0');
    image += littleEndian(m_hasCount ? m_count : m_records.size(), 4);
    image += littleEndian(addresses.back(), 4);
    image.resize(addresses.back(), '?');
    for (std::size_t id = 0; id < m_records.size(); ++id) {
        const Record& record = m_records[id];
        const int size = record.isClaimed ? record.claimed : static_cast<int>(record.bytes.size());
        image.replace(addresses[id], record.bytes.size(), record.bytes);
        image.replace(addresses[id], 4, littleEndian(static_cast<unsigned int>(size), 4));
    }
    for (std::size_t id = 0; id < m_records.size(); ++id)
        image += littleEndian(addresses[id], 8);
    return image;
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
