#pragma once

#include "Arguments.h"
#include "InputStorage.h"
#include "Inspect/model/TypeTable.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/Finding.h"
#include "TypeFile/TypeFileFrame.h"
#include "UnusableFile.h"

#include <string>
#include <vector>

/// What the verifier finds in a storage, with progress.
std::vector<TypeFile::Finding> findingsOf(InputStorage& storage, unsigned long long offset);

/// A type file in a storage file, verified and ready to be asked.
class OpenedFile {
public:
    /// Throws UnusableFile for what is no type file, is too short or holds no usable types, for
    /// what the verifier finds an error in, and what the storage throws. By force it takes all that
    /// the library loads.
    explicit OpenedFile(const FileArguments& arguments);

    unsigned int typeCount() const { return m_typeCount; }

    /// The version text in the file's header.
    const std::string& version() const { return m_frame.version(); }

    /// Where the address table begins in the storage.
    unsigned int tableOffset() const { return m_frame.tableOffset(); }
    RTTI::RTTypeManager& manager() { return m_manager; }
    InputStorage& storage() { return m_storage; }

    /// The types, each loaded when it is asked for.
    Inspect::TypeTable types();

    /// Loads all types, with progress, and gives them.
    Inspect::TypeTable loadedTypes();

    /// The id of a type that a call names, as typeIdOf finds it; a name takes a load of all types.
    unsigned int idOf(const std::string& what, const std::string& type);

    /// The kind code of a type's record, as the storage has it.
    unsigned int kindOf(unsigned int typeId) const;

    /// The bytes of a type's record, as its size field has it; 0 for a negative size.
    unsigned int recordSizeOf(unsigned int typeId) const;

private:
    void checkFrame() const;
    void verify(const StorageArguments& arguments);
    const RTTI::RTBaseType* load(unsigned int id);
    TypeFile::RecordFrame recordOf(unsigned int typeId) const;

    InputStorage m_storage;
    TypeFile::TypeFileFrame m_frame; ///< Reads from the storage.
    RTTI::RTTypeManager m_manager;   ///< Likewise.
    unsigned int m_typeCount;        ///< That the library loads.
};
