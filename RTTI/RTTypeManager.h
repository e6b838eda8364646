#pragma once

#include "OVAT/IBlockManager.h"
#include "RTTI/Export.h"
#include "RTTI/LoadLimits.h"
#include "RTTI/RTBaseType.h"
#include "RTTI/TypeFileFormat.h"

#include <memory>
#include <vector>

/// Run-time type information of a design: loading its types and querying them.
namespace RTTI {

class TypeDeserializer;

/// The types of one design: reads a type file from block storage and owns every type that it reads.
///
/// Construct a manager, call `setupDeserializer`, then ask for types. They are valid until the
/// manager is destroyed. Only one thread may use a manager at a time; managers in different threads
/// do not affect one another. Once `readAllRTTypes` has returned the last type, any number of
/// threads may call `getRTType` and query the types at the same time. Exceptions come only from the
/// storage and the allocator. An exception that leaves `getRTType` or `readAllRTTypes` discards
/// everything that the call had read, so the call can be repeated.
///
/// Types are read depth first: at each reference, the type referred to is read completely before
/// reading continues. However deeply types nest, a stack of 1 MiB is enough, and no reference is
/// dropped because of depth. A record that leads back to itself while it is being read is read
/// again, up to `REOPEN_LIMIT`. No file of a real design comes close to that limit.
class RTTI_EXPORT RTTypeManager {
public:
    /// A manager without types, which answers every call as for an empty file.
    RTTypeManager();
    RTTypeManager(const RTTypeManager&) = delete;
    RTTypeManager& operator=(const RTTypeManager&) = delete;

    /// Sets `m_instance` to null, whichever manager it points to, and deletes all types. Any number
    /// of threads may destroy managers at the same time, but no thread may read or set `m_instance`
    /// meanwhile.
    ~RTTypeManager();

    /// Reads the header at the absolute storage offset `baseOffset`, then the address table with
    /// one read for each type. Always returns true. `blockManager` must exist for as long as types
    /// may still be read. After an exception the manager is as it was before the call. After a
    /// second call the manager answers only from the new file; types from the first one stay valid.
    bool setupDeserializer(OVAT::IBlockManager& blockManager, unsigned long long baseOffset);

    /// Reads all types in the order of their ids and returns the last one. Stops and returns null
    /// at the first record that builds no type; returns null as well if the file has no types.
    RTBaseType* readAllRTTypes();

    /// The type with this id. The first call reads it together with everything that it refers to;
    /// later calls take constant time. Null if the id is out of range or its record builds no type;
    /// such a record is read again by each call. The type belongs to the manager.
    RTBaseType* getRTType(unsigned int typeId);

    /// The ids of the classes read so far, in the order in which they were read. The list belongs
    /// to the manager.
    std::vector<unsigned int>& getRTClassTypeIds();

    /// Turns the trace on: every field that is read is also printed to standard output. Has no
    /// effect before `setupDeserializer`, which turns the trace off.
    void setDebugMode();

    /// Turns the trace off.
    void unsetDebugMode();

    /// For the embedding program, which may store a manager here to share it.
    static RTTypeManager* m_instance;

private:
    std::unique_ptr<TypeDeserializer> m_deserializer;
};

} // namespace RTTI
