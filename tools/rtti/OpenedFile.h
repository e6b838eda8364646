#pragma once

#include "Arguments.h"
#include "InputStorage.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/views/TypeStatistics.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/Finding.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeFile/TypeFileVerifier.h"
#include "UnusableFile.h"

#include <optional>
#include <string>
#include <vector>

/// What the verifier finds in a storage, with progress.
std::vector<TypeFile::Finding> findingsOf(InputStorage& storage, unsigned long long offset);

/// A type file in a storage file, verified and ready to be asked.
class OpenedFile {
public:
    /// What of the file is verified: all of it when it is opened, or each type, with what it leads
    /// to, when it is asked for.
    enum class Verified { WHOLE, AS_ASKED };

    /// Throws UnusableFile for what is no type file, is too short or holds no usable types, for
    /// what the verifier finds an error in, and what the storage throws. By force it takes all that
    /// the library loads.
    explicit OpenedFile(const FileArguments& arguments, Verified verified = Verified::WHOLE);
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;

    unsigned int typeCount() const { return m_typeCount; }

    /// The version text in the file's header.
    const std::string& version() const { return m_frame.version(); }

    /// Where the address table begins in the storage.
    unsigned int tableOffset() const { return m_frame.tableOffset(); }
    RTTI::RTTypeManager& manager() { return m_manager; }
    InputStorage& storage() { return m_storage; }

    /// The types, each loaded when it is asked for. That throws UnusableFile where types are
    /// verified as they are asked for, and this one or one that it leads to has an error.
    Inspect::TypeTable types();

    /// The ids of the types that refer to a type, in ascending order. All types are loaded where
    /// that is forced; else the file is searched, with progress.
    std::vector<unsigned int> referringTo(unsigned int typeId);

    /// Loads all types, with progress, and gives them.
    Inspect::TypeTable loadedTypes();

    /// The id of a type that a call names, as typeIdOf finds it. For a name, all types are loaded
    /// where that is forced; else the file is searched, with progress.
    unsigned int idOf(const std::string& what, const std::string& type);

    /// The kind code of a type's record, as the storage has it.
    unsigned int kindOf(unsigned int typeId) const;

    /// Counts all types. They are loaded where that is forced; else their records are read alone.
    /// With progress.
    Inspect::TypeStatistics statistics(unsigned int top);

private:
    void checkFrame() const;
    void refuseErrors(const std::vector<TypeFile::Finding>& findings) const;
    template <typename Find> std::vector<unsigned int> search(const Find& find);
    const RTTI::RTBaseType* load(unsigned int id);
    TypeFile::RecordFrame recordOf(unsigned int typeId) const;

    const FileArguments m_arguments;
    InputStorage m_storage;
    TypeFile::TypeFileFrame m_frame;                  ///< Reads from the storage.
    std::optional<TypeFile::TypeVerifier> m_verifier; ///< Where types are verified as asked.
    RTTI::RTTypeManager& m_manager;                   ///< Likewise; nobody releases it.
    unsigned int m_typeCount;                         ///< That the library loads.
};
