#pragma once

namespace RTTI {

/// A record that leads back to itself while it is being read is read again. This is how many
/// readings of one record may be in progress at once; a further reference to it becomes null.
/// Without a limit, a chain of records whose members lead back to its beginning would be read once
/// for each of them.
inline constexpr unsigned int REOPEN_LIMIT = 16;

} // namespace RTTI
