#include "OpenedFile.h"

#include "RTTI/TypeFileFormat.h"
#include "ReadProgress.h"
#include "TypeFile/TypeFileVerifier.h"

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr int FAULTY_FILE = 1;
constexpr int NOT_READABLE = 2;

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
    : m_path(arguments.file), m_storage(arguments.file),
      m_frame(m_storage, m_storage.size(), arguments.offset) {
    checkFrame();
    if (!arguments.force)
        verify(arguments.offset);
    m_manager.setupDeserializer(m_storage, arguments.offset);
}

Inspect::TypeTable OpenedFile::types() {
    return {typeCount(), [this](unsigned int id) { return m_manager.getRTType(id); }};
}

Inspect::TypeTable OpenedFile::loadedTypes() {
    Progress progress("loading " + m_path, typeCount());
    for (unsigned int id = 0; id < typeCount(); ++id) {
        m_manager.getRTType(id);
        progress.at(id);
    }
    return types();
}

void OpenedFile::checkId(const std::string& what, unsigned int id) const {
    if (id >= typeCount())
        throw CLI::ValidationError(what + " " + std::to_string(id) + ": the file has " +
                                   std::to_string(typeCount()) + " types");
}

void OpenedFile::checkFrame() const {
    const std::string offset = std::to_string(m_frame.baseOffset());
    if (!m_frame.hasHeader())
        throw UnusableFile(m_path,
                           "too short for a type file: " + std::to_string(m_storage.size()) +
                               " bytes, and the header takes " + std::to_string(HEADER_SIZE) +
                               " at offset " + offset,
                           NOT_READABLE);
    if (!m_frame.hasVersionText())
        throw UnusableFile(m_path, "no type file: there is no version text at offset " + offset,
                           NOT_READABLE);
    if (m_frame.isMarkedUnusable())
        throw UnusableFile(m_path,
                           "its writer marked it as holding no usable types (version \"" +
                               m_frame.version() + "\")",
                           FAULTY_FILE);
    if (!m_frame.hasTable())
        throw UnusableFile(m_path,
                           "too short for its " + std::to_string(m_frame.typeCount()) +
                               " types: the address table at " +
                               std::to_string(m_frame.tableOffset()) + " takes " +
                               std::to_string(m_frame.tableSize()) + " bytes, and the file has " +
                               std::to_string(m_storage.size()),
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

unsigned int OpenedFile::kindOf(unsigned int typeId) const { return recordOf(typeId).kind; }

unsigned int OpenedFile::recordSizeOf(unsigned int typeId) const {
    return static_cast<unsigned int>(std::max(0, recordOf(typeId).claimedSize));
}

TypeFile::RecordFrame OpenedFile::recordOf(unsigned int typeId) const {
    return m_frame.recordAt(m_frame.addressOf(typeId));
}
