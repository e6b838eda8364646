#pragma once

#include "OVAT/IBlockManager.h"
#include "RTTI/Export.h"
#include "RTTI/RTBaseType.h"
#include "RTTI/TypeFileFormat.h"

#include <memory>
#include <vector>

/// The run-time type information of a design: its types, how they are loaded, what they answer.
namespace RTTI {

class TypeDeserializer;

/// The types of one design: reads a type file out of block storage and owns every type read.
///
/// Construct, call `setupDeserializer`, then ask. Types are valid until the manager is destroyed.
/// One thread uses a manager at a time, and managers of different threads never disturb each other.
/// Once `readAllRTTypes` has given the last type, any number of threads may call `getRTType` and
/// ask the types at the same time. Exceptions come from the storage and the allocator alone. One
/// that leaves `getRTType` or `readAllRTTypes` takes back all that the call had read, so that the
/// call can be made again.
///
/// Types are read depth first: a type that another refers to is read, whole, where the reference
/// stands. However deep they nest, a stack of 1 MiB is enough, and no reference is left out for it.
/// A record can lead back to itself while it is read, and is then read again; at most 16 readings
/// (`TypeFileFormat::REOPEN_LIMIT`) of it go on at once, and a further reference to it is null. No
/// file of a real design comes near.
class RTTI_EXPORT RTTypeManager {
public:
    /// A manager without types; every question is answered as for an empty file.
    RTTypeManager();
    RTTypeManager(const RTTypeManager&) = delete;
    RTTypeManager& operator=(const RTTypeManager&) = delete;

    /// Sets `m_instance` to null, whichever manager it names, and deletes all types. Any number of
    /// threads may destroy managers at the same time; one that reads or sets `m_instance` meanwhile
    /// has to wait for them.
    ~RTTypeManager();

    /// Reads the header at the absolute storage offset `baseOffset`, and the address table with one
    /// read a type. Always true. `blockManager` must outlive the manager. After an exception the
    /// manager is as it was. Called again, the manager answers from the new file alone, and what
    /// the former one gave stays alive.
    bool setupDeserializer(OVAT::IBlockManager& blockManager, unsigned long long baseOffset);

    /// Reads every type in the order of the ids, up to the first whose record builds nothing. The
    /// last type, or null if there is none or a record built nothing.
    RTBaseType* readAllRTTypes();

    /// The type of an id, read now if it was not yet (with all that it refers to). Null for an id
    /// that is out of range, or whose record builds nothing; such a record is read at each call.
    /// The manager keeps the type. Constant time once the type is there.
    RTBaseType* getRTType(unsigned int typeId);

    /// The ids of the classes read so far, in the order of their reading; the list is the
    /// manager's.
    std::vector<unsigned int>& getRTClassTypeIds();

    /// Narrates every field that is read from now on, on the standard output. Without effect before
    /// `setupDeserializer`, which starts with the trace off.
    void setDebugMode();

    /// Ends the trace.
    void unsetDebugMode();

    /// For the embedding program, which may put the manager here that it wants to share.
    static RTTypeManager* m_instance;

private:
    std::unique_ptr<TypeDeserializer> m_deserializer;
};

} // namespace RTTI
