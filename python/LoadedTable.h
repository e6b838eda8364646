#pragma once

#include "Inspect/model/NameIndex.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/model/UseIndex.h"
#include "OVAT/IBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/Finding.h"
#include "TypeFile/TypeFileFrame.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Bindings {

class LoadedTable;

/// A type in its table. Python sees it as an object that keeps the table alive.
struct TypeEntry {
    LoadedTable* table;
    unsigned int id;
    const RTTI::RTBaseType* type; ///< Null for an id whose record builds no type.
};

/// Bytes that a type file may be in.
struct Source {
    std::string name; ///< The path, or empty for bytes in memory.
    std::unique_ptr<OVAT::IBlockManager> storage;
    unsigned long long size;
};

/// The header of the type file in a source. Throws Refused for what no types can be loaded from.
TypeFile::TypeFileFrame usableFrame(const Source& source, unsigned long long offset);

/// What the verifier finds in a source.
std::vector<TypeFile::Finding> findingsIn(const Source& source, unsigned long long offset);

/// All types of a type file, and what they are asked about as a whole. Loading needs no Python, so
/// that other threads can run meanwhile; everything after it is done by one thread at a time.
class LoadedTable : public std::enable_shared_from_this<LoadedTable> {
public:
    /// Loads every type. Throws Refused, with the place, for what is no type file, or has its table
    /// or records outside the source. A file that was not verified can take any memory.
    LoadedTable(const Source& source, unsigned long long offset);
    LoadedTable(const LoadedTable&) = delete;
    LoadedTable& operator=(const LoadedTable&) = delete;

    const std::string& name() const { return m_name; }
    /// What could not be kept, where the types were imported.
    const std::vector<std::string>& notes() const { return m_notes; }
    void setNotes(std::vector<std::string> notes) { m_notes = std::move(notes); }

    const std::string& version() const { return m_version; }
    const Inspect::TypeTable& types() const { return m_types; }
    unsigned int count() const { return m_types.count; }

    /// The entry of an id below `count()`.
    TypeEntry& entry(unsigned int id) { return m_entries[id]; }

    /// The entry of an id; null if there is no type.
    TypeEntry* find(unsigned int id);

    /// The types by name, and by those that they refer to. Made when first asked for, in time
    /// proportional to the table.
    /// @{
    const Inspect::NameIndex& names();
    const Inspect::UseIndex& uses();
    /// @}

private:
    std::string m_name;
    std::string m_version;
    std::vector<std::string> m_notes;
    RTTI::RTTypeManager m_manager;
    std::vector<TypeEntry> m_entries;
    Inspect::TypeTable m_types;
    std::optional<Inspect::NameIndex> m_names;
    std::optional<Inspect::UseIndex> m_uses;
};

} // namespace Bindings
