#pragma once

/// Storages that hold type files, and files that are written completely or not at all. Nothing in
/// this namespace knows about types.
namespace OVAT {

/// The simulator's block storage: bytes that are read by absolute offset.
///
/// The embedding program implements this interface, or uses MemoryBlockManager or
/// FileBlockManager, and keeps the object alive for as long as a manager may read from it. The
/// order of the virtual functions is part of the binary interface; new ones are added at the end.
class
#if defined(__GNUC__)
    __attribute__((visibility("default")))
#endif
    IBlockManager {
public:
    virtual ~IBlockManager() = default;

    /// Occupies a slot in the virtual table; never called.
    virtual void reserved() {}

    /// Copies `count` bytes that begin at the absolute storage offset `offset` into `buffer`.
    ///
    /// All callers ignore the result: an implementation that cannot deliver all `count` bytes must
    /// throw, and the exception reaches the code that asked for the type. `buffer` belongs to the
    /// caller. Loading takes four reads for each type: its address, then the size, the kind and the
    /// whole of its record.
    virtual bool read(unsigned long long offset, void* buffer, long long count) = 0;
};

} // namespace OVAT
