#include "OpenedFile.h"

#include "RTTI/LittleEndian.h"
#include "RTTI/TypeFileFormat.h"
#include "ReadProgress.h"
#include "TypeFile/TypeFileVerifier.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr int FAULTY_FILE = 1;
constexpr int NOT_READABLE = 2;

bool isPrintable(char c) { return c >= ' ' && c <= '~'; }

} // namespace

UnusableFile UnusableFile::asNotReadable() const {
    UnusableFile error = *this;
    error.m_exitStatus = NOT_READABLE;
    return error;
}

std::vector<TypeFile::Finding> findingsOf(const std::string& path, OVAT::FileBlockManager& storage,
                                          unsigned long long offset) {
    Progress progress("verifying " + path, storage.size());
    ReadProgress reads(storage, storage.size(), progress);
    return TypeFile::verify(reads, storage.size(), offset);
}

OpenedFile::OpenedFile(const FileArguments& arguments)
    : m_path(arguments.file), m_storage(arguments.file) {
    checkHeader(arguments.offset);
    if (!arguments.force)
        verify(arguments.offset);
    m_manager.setupDeserializer(m_storage, arguments.offset);
}

Inspect::TypeTable OpenedFile::types() {
    return {m_typeCount, [this](unsigned int id) { return m_manager.getRTType(id); }};
}

Inspect::TypeTable OpenedFile::loadedTypes() {
    Progress progress("loading " + m_path, m_typeCount);
    for (unsigned int id = 0; id < m_typeCount; ++id) {
        m_manager.getRTType(id);
        progress.at(id);
    }
    return types();
}

void OpenedFile::checkId(const std::string& what, unsigned int id) const {
    if (id >= m_typeCount)
        throw CLI::ValidationError(what + " " + std::to_string(id) + ": the file has " +
                                   std::to_string(m_typeCount) + " types");
}

void OpenedFile::checkHeader(unsigned long long offset) {
    const unsigned long long size = m_storage.size();
    if (offset > size || size - offset < HEADER_SIZE)
        throw UnusableFile(m_path,
                           "too short for a type file: " + std::to_string(size) +
                               " bytes, and the header takes " + std::to_string(HEADER_SIZE) +
                               " at offset " + std::to_string(offset),
                           NOT_READABLE);
    char header[HEADER_SIZE];
    m_storage.read(offset, header, HEADER_SIZE);
    const std::string_view version(header, std::find(header, header + VERSION_SIZE, '\0') - header);
    m_version = version;
    m_typeCount = littleEndianAt<unsigned int>(header + TYPE_COUNT_OFFSET);
    m_tableOffset = littleEndianAt<unsigned int>(header + ADDRESS_TABLE_OFFSET);
    const bool isBlank = std::all_of(header, header + HEADER_SIZE, [](char c) { return c == 0; });
    if (isBlank || version.size() == VERSION_SIZE ||
        !std::all_of(version.begin(), version.end(), isPrintable))
        throw UnusableFile(
            m_path, "no type file: there is no version text at offset " + std::to_string(offset),
            NOT_READABLE);
    if (version == RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID)
        throw UnusableFile(m_path,
                           "its writer marked it as holding no usable types (version \"" +
                               std::string(version) + "\")",
                           FAULTY_FILE);
    const unsigned long long tableSize =
        m_typeCount * static_cast<unsigned long long>(ADDRESS_SIZE);
    if (m_typeCount != 0 && (m_tableOffset > size || size - m_tableOffset < tableSize))
        throw UnusableFile(m_path,
                           "too short for its " + std::to_string(m_typeCount) +
                               " types: the address table at " + std::to_string(m_tableOffset) +
                               " takes " + std::to_string(tableSize) + " bytes, and the file has " +
                               std::to_string(size),
                           NOT_READABLE);
}

void OpenedFile::verify(unsigned long long offset) {
    const auto findings = findingsOf(m_path, m_storage, offset);
    const auto error = std::find_if(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.severity == TypeFile::Severity::ERROR;
    });
    if (error == findings.end())
        return;
    const std::string place = offset == 0 ? "" : " --offset " + std::to_string(offset);
    throw UnusableFile(m_path,
                       TypeFile::lineOf(*error) + " (see `rtti verify " + m_path + place +
                           "`; --force loads it all the same)",
                       FAULTY_FILE);
}

unsigned int OpenedFile::kindOf(unsigned int typeId) {
    return wordOfRecord(typeId, RECORD_KIND_OFFSET);
}

unsigned int OpenedFile::recordSizeOf(unsigned int typeId) {
    return static_cast<unsigned int>(std::max(0, static_cast<int>(wordOfRecord(typeId, 0))));
}

unsigned int OpenedFile::wordOfRecord(unsigned int typeId, unsigned long long offset) {
    char address[ADDRESS_SIZE];
    m_storage.read(m_tableOffset + typeId * static_cast<unsigned long long>(ADDRESS_SIZE), address,
                   ADDRESS_SIZE);
    char word[sizeof(unsigned int)];
    m_storage.read(littleEndianAt<unsigned long long>(address) + offset, word, sizeof word);
    return littleEndianAt<unsigned int>(word);
}
