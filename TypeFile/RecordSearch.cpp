#include "TypeFile/RecordSearch.h"

#include "RTTI/LittleEndian.h"
#include "TypeFile/RecordScan.h"
#include "TypeFile/StorageWindow.h"

#include <algorithm>
#include <experimental/simd>
#include <string>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

/// Blocks that stay in a cache while they are searched.
constexpr std::size_t BLOCK = 1 << 17;

/// Calls `take` with each place from `at` to `end` where the bytes begin. Looks at StorageWindow's
/// READABLE_BEHIND bytes behind the last of them.
template <typename Take>
void findAll(std::string_view bytes, const char* at, const char* end, const Take& take) {
    namespace simd = std::experimental;
    using Vector = simd::fixed_size_simd<signed char, StorageWindow::READABLE_BEHIND>;
    const auto equals = [&](std::size_t i) {
        const std::size_t place = std::min(i, bytes.size() - 1);
        const Vector there(reinterpret_cast<const signed char*>(at + place), simd::element_aligned);
        return there == static_cast<signed char>(bytes[place]);
    };
    for (; at < end; at += Vector::size()) {
        auto begins = equals(0) && equals(1);
        if (simd::none_of(begins))
            continue;
        begins = begins && equals(2) && equals(3);
        if (simd::none_of(begins))
            continue;
        for (std::size_t i = 0; i < Vector::size() && at + i < end; ++i)
            if (begins[i] && std::equal(bytes.begin(), bytes.end(), at + i))
                take(at + i);
    }
}

/// Whether one of the references of a record is the one that is looked for.
struct ReferenceSink {
    unsigned int wanted;
    bool isFound = false;

    template <unsigned char LINK> bool reference(unsigned int target) {
        isFound = isFound || target == wanted;
        return true;
    }
    void ranges(const char*, unsigned int) {}
};

/// Whether a record refers to the type that its head was scanned for. True if that cannot be told.
struct ReferenceScan {
    const RecordScan<ReferenceSink>& head;

    template <const auto& LAYOUT> bool operator()() const {
        RecordScan<ReferenceSink> scan = head;
        return !scan.template read<LAYOUT>() || scan.sink().isFound;
    }
    bool none() const { return false; }
};

} // namespace

RecordSearch::RecordSearch(OVAT::IBlockManager& storage, unsigned long long storageSize,
                           unsigned long long baseOffset)
    : m_storage(storage), m_storageSize(storageSize),
      m_addresses(TypeFileFrame(storage, storageSize, baseOffset).addresses()),
      m_order(m_addresses) {}

/// The ids of the types for whose records `fits` is true. It is asked with a record's address, once
/// for each that has the bytes behind its size and kind, and with the first place of them.
template <typename Fits>
std::vector<unsigned int> RecordSearch::find(std::string_view bytes, const Fits& fits) const {
    std::vector<unsigned int> ids;
    StorageWindow window(m_storage, m_storageSize, BLOCK + bytes.size());
    std::size_t next = 0; // The place of the record behind the one that is looked at.
    unsigned long long lookedAt = ~0ULL;
    const auto hit = [&](unsigned long long offset) {
        while (next < m_order.size() && m_order.addressAt(next) <= offset)
            ++next;
        if (next == 0)
            return;
        const unsigned long long address = m_order.addressAt(next - 1);
        if (address == lookedAt || offset - address < RECORD_HEADER_SIZE)
            return;
        lookedAt = address;
        if (!fits(address, offset))
            return;
        for (std::size_t place = m_order.placeFrom(address); place < next; ++place)
            ids.push_back(m_order.idAt(place));
    };
    for (unsigned long long block = 0; block + bytes.size() <= m_storageSize; block += BLOCK) {
        const auto count = static_cast<std::size_t>(
            std::min<unsigned long long>(BLOCK, m_storageSize - bytes.size() + 1 - block));
        const char* const begin = window.at(block, count + bytes.size() - 1);
        findAll(bytes, begin, begin + count,
                [&](const char* at) { hit(block + static_cast<unsigned long long>(at - begin)); });
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::vector<unsigned int> RecordSearch::named(std::string_view name) const {
    const std::string bytes = std::string(name) + '\0';
    return find(bytes, [](unsigned long long address, unsigned long long offset) {
        return offset == address + RECORD_HEADER_SIZE;
    });
}

std::vector<unsigned int> RecordSearch::referringTo(unsigned int typeId) const {
    StorageWindow heads(m_storage, m_storageSize, RECORD_HEADER_SIZE);
    std::vector<char> record;
    char bytes[sizeof(typeId)];
    putLittleEndian(bytes, typeId);
    return find({bytes, sizeof(bytes)}, [&](unsigned long long address, unsigned long long) {
        const RecordFrame frame = recordFrameAt(heads, address);
        if (!frame.isWhole())
            return false;
        const auto size = static_cast<std::size_t>(frame.claimedSize);
        if (record.size() < size + StorageWindow::READABLE_BEHIND)
            record.resize(size + StorageWindow::READABLE_BEHIND);
        m_storage.read(address, record.data(), static_cast<long long>(size));
        RecordScan<ReferenceSink> scan(record.data(), record.data() + size, ReferenceSink{typeId});
        return !scan.read<Layout::HEAD>() || withLayout(frame.kind, ReferenceScan{scan});
    });
}

} // namespace TypeFile
