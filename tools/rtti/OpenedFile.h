#pragma once

#include "FileArguments.h"
#include "Inspect/model/TypeTable.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/Finding.h"
#include "TypeFile/TypeFileFrame.h"

#include <stdexcept>
#include <string>
#include <vector>

/// Why a file cannot be used, in one line that names it, and the exit status that says so.
class UnusableFile : public std::runtime_error {
public:
    UnusableFile(const std::string& file, const std::string& reason, int exitStatus)
        : std::runtime_error(file + ": " + reason), m_exitStatus(exitStatus) {}
    int exitStatus() const { return m_exitStatus; }

    /// The same with the exit status of a file that cannot be read.
    UnusableFile asNotReadable() const;

private:
    int m_exitStatus;
};

/// What the verifier finds in a storage, with progress; `path` is what the progress names.
std::vector<TypeFile::Finding> findingsOf(const std::string& path, OVAT::FileBlockManager& storage,
                                          unsigned long long offset);

/// A type file in a storage file, verified and ready to be asked.
class OpenedFile {
public:
    /// Throws UnusableFile for what is no type file, is too short or holds no usable types, for
    /// what the verifier finds an error in unless it is to be loaded by force, and what the storage
    /// throws.
    explicit OpenedFile(const FileArguments& arguments);

    unsigned int typeCount() const { return m_frame.typeCount(); }

    /// The version text in the file's header.
    const std::string& version() const { return m_frame.version(); }

    /// Where the address table begins in the storage.
    unsigned int tableOffset() const { return m_frame.tableOffset(); }
    RTTI::RTTypeManager& manager() { return m_manager; }
    OVAT::FileBlockManager& storage() { return m_storage; }

    /// The types, each loaded when it is asked for.
    Inspect::TypeTable types();

    /// Loads all types, with progress, and gives them.
    Inspect::TypeTable loadedTypes();

    /// Throws CLI::ValidationError for an id that the file does not have; `what` is the argument
    /// that gave it.
    void checkId(const std::string& what, unsigned int id) const;

    /// The kind code of a type's record, as the storage has it.
    unsigned int kindOf(unsigned int typeId) const;

    /// The bytes of a type's record, as its size field has it; 0 for a negative size.
    unsigned int recordSizeOf(unsigned int typeId) const;

private:
    void checkFrame() const;
    void verify(unsigned long long offset);
    TypeFile::RecordFrame recordOf(unsigned int typeId) const;

    std::string m_path;
    OVAT::FileBlockManager m_storage;
    TypeFile::TypeFileFrame m_frame;
    RTTI::RTTypeManager m_manager; ///< Reads from the storage.
};
