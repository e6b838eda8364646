#pragma once

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"

#include <stdexcept>
#include <string>

/// Why a file cannot be used, in one line, and the exit status that says so.
class UnusableFile : public std::runtime_error {
public:
    UnusableFile(const std::string& text, int exitStatus)
        : std::runtime_error(text), m_exitStatus(exitStatus) {}
    int exitStatus() const { return m_exitStatus; }

private:
    int m_exitStatus;
};

/// A type file in a storage file, verified and ready to be asked.
class OpenedFile {
public:
    /// Throws UnusableFile for what is no type file, is too short or holds no usable types, for
    /// what the verifier finds an error in unless it is to be loaded by force, and what the storage
    /// throws.
    OpenedFile(const std::string& path, unsigned long long offset, bool force);

    unsigned int typeCount() const { return m_typeCount; }

    /// The version text in the file's header.
    const std::string& version() const { return m_version; }
    RTTI::RTTypeManager& manager() { return m_manager; }

    /// The kind code of a type's record, as the storage has it.
    unsigned int kindOf(unsigned int typeId);

private:
    void checkHeader(unsigned long long offset);
    void verify(const std::string& path, unsigned long long offset);

    OVAT::FileBlockManager m_storage;
    RTTI::RTTypeManager m_manager; ///< Reads from the storage.
    std::string m_version;
    unsigned int m_typeCount = 0;
    unsigned int m_tableOffset = 0;
};
