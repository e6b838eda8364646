#pragma once

namespace OVAT {

/// Throws std::out_of_range, with offset, count and size in its text, unless the `count` bytes at
/// `offset` lie inside a storage of `size` bytes. No bytes at the end of the storage are inside.
void checkBlockRange(unsigned long long offset, long long count, unsigned long long size);

} // namespace OVAT
