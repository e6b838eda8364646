#include "TypeFile/TypeFileFrame.h"

#include "OVAT/Counted.h"
#include "RTTI/LittleEndian.h"
#include "TypeFile/StorageWindow.h"

#include <algorithm>
#include <stdexcept>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;
using OVAT::counted;

namespace {

bool isPrintable(char c) { return c >= ' ' && c <= '~'; }

} // namespace

TypeFileFrame::TypeFileFrame(OVAT::IBlockManager& storage, unsigned long long storageSize,
                             unsigned long long baseOffset)
    : m_storage(storage), m_storageSize(storageSize), m_baseOffset(baseOffset),
      m_hasHeader(baseOffset <= storageSize && storageSize - baseOffset >= HEADER_SIZE) {
    if (!m_hasHeader)
        return;
    char header[HEADER_SIZE];
    storage.read(baseOffset, header, HEADER_SIZE);
    m_version.assign(header, std::find(header, header + VERSION_SIZE, '\0'));
    m_typeCount = littleEndianAt<unsigned int>(header + TYPE_COUNT_OFFSET);
    m_tableOffset = littleEndianAt<unsigned int>(header + ADDRESS_TABLE_OFFSET);
    // A header of zeros is no text of length 0.
    const bool isBlank = std::all_of(header, header + HEADER_SIZE, [](char c) { return c == 0; });
    m_hasVersionText = !isBlank && m_version.size() < VERSION_SIZE &&
                       std::all_of(m_version.begin(), m_version.end(), isPrintable);
}

bool TypeFileFrame::isMarkedUnusable() const {
    return m_version == RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID;
}

std::string TypeFileFrame::reasonUnusable() const {
    const std::string offset = std::to_string(m_baseOffset);
    if (!m_hasHeader)
        return "too short for a type file: " + counted(m_storageSize, "byte") +
               ", and the header takes " + std::to_string(HEADER_SIZE) + " at offset " + offset;
    if (!m_hasVersionText)
        return "not a type file: there is no version text at offset " + offset;
    if (isMarkedUnusable())
        return "its writer marked it as holding no usable types (version \"" + m_version + "\")";
    if (!hasTable())
        return "too short for its " + counted(m_typeCount, "type") + ": the address table at " +
               std::to_string(m_tableOffset) + " takes " + counted(tableSize(), "byte") +
               ", and the file has " + std::to_string(m_storageSize);
    return "";
}

unsigned long long TypeFileFrame::tableSize() const {
    return m_typeCount * static_cast<unsigned long long>(ADDRESS_SIZE);
}

unsigned int TypeFileFrame::entryCount() const {
    const unsigned long long room =
        m_tableOffset < m_storageSize ? (m_storageSize - m_tableOffset) / ADDRESS_SIZE : 0;
    return static_cast<unsigned int>(std::min<unsigned long long>(m_typeCount, room));
}

unsigned long long TypeFileFrame::entryOffset(unsigned int typeId) const {
    return m_tableOffset + typeId * static_cast<unsigned long long>(ADDRESS_SIZE);
}

unsigned long long TypeFileFrame::addressOf(unsigned int typeId) const {
    if (typeId >= entryCount())
        throw std::out_of_range("there is no address of type " + std::to_string(typeId) +
                                " in the storage");
    char entry[ADDRESS_SIZE];
    m_storage.read(entryOffset(typeId), entry, ADDRESS_SIZE);
    return littleEndianAt<unsigned long long>(entry);
}

std::vector<unsigned long long> TypeFileFrame::addresses() const {
    std::vector<unsigned long long> addresses(entryCount());
    if (addresses.empty())
        return addresses;
    char* const bytes = reinterpret_cast<char*>(addresses.data());
    const std::size_t size = addresses.size() * ADDRESS_SIZE;
    m_storage.read(m_tableOffset, bytes, static_cast<long long>(size));
    for (std::size_t i = 0; i < addresses.size(); ++i)
        addresses[i] = littleEndianAt<unsigned long long>(bytes + i * ADDRESS_SIZE);
    return addresses;
}

RecordFrame TypeFileFrame::recordAt(unsigned long long address) const {
    StorageWindow window(m_storage, m_storageSize, RECORD_HEADER_SIZE);
    return recordFrameAt(window, address);
}

} // namespace TypeFile
