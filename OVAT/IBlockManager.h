#pragma once

/// Storages that type files lie in, and files that appear whole. Nothing here knows of types.
namespace OVAT {

/// The simulator's block storage: bytes that are read by absolute offset.
///
/// The embedding program implements this interface (or takes MemoryBlockManager or
/// FileBlockManager) and keeps the object alive for as long as a manager may read from it. The
/// order of the virtual operations is a binary interface; new ones go to the end.
class
#if defined(__GNUC__)
    __attribute__((visibility("default")))
#endif
    IBlockManager {
public:
    virtual ~IBlockManager() = default;

    /// Keeps its place in the virtual table; never called.
    virtual void reserved() {}

    /// Copies `count` bytes that begin at the absolute storage offset `offset` into `buffer`.
    ///
    /// The result is ignored by every caller: an implementation that cannot deliver all `count`
    /// bytes must throw, and the exception reaches whoever asked for the type. `buffer` belongs to
    /// the caller. A load makes three reads a type: size, kind, record; and one for its address
    /// before.
    virtual bool read(unsigned long long offset, void* buffer, long long count) = 0;
};

} // namespace OVAT
