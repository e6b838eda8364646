#pragma once

#include "tests/support/TypeFileBuilder.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace RTTITest {

/// Kind codes. They are stated here a second time, so that a wrong number in the library shows.
enum Kind : std::uint32_t {
    SEQ_ENUM_KIND = 0xA0000003,
    DISCRETE_ENUM_KIND = 0xA0000004,
    INT_KIND = 0xA0000005,
    FLOAT_KIND = 0xA0000006,
    TYPEDEF_KIND = 0xA0000007,
    ACCESS_KIND = 0xA0000008,
    CHANDLE_KIND = 0xA0000009,
    EVENT_KIND = 0xA000000B,
    FILE_KIND = 0xA000000C,
    PHYSICAL_KIND = 0xA000000D,
    ARRAY_KIND = 0xA0000010,
    RECORD_KIND = 0xA0000011,
    DYNAMIC_ARRAY_KIND = 0xA0000013,
    QUEUE_KIND = 0xA0000014,
    ASSOC_ARRAY_KIND = 0xA0000015,
    CLASS_KIND = 0xA0000017,
    STRING_KIND = 0xA0000018,
    WILDCARD_KIND = 0xA0000019
};

enum class TokenKind { U32, I32, F64, I64, NAME, RAW };

/// One field of a record: what the bytes are made from, and what they are checked against.
struct Token {
    TokenKind kind = TokenKind::U32;
    std::uint64_t bits = 0; ///< Numbers; a 32-bit one in the low half.
    std::string text;       ///< Names (without the terminating zero byte) and raw bytes.

    std::size_t width() const;
};

/// A record as its fields. The first 8 bytes (size and kind) are no tokens.
struct ModelRecord {
    std::uint32_t kind = 0;
    std::vector<Token> tokens;
    std::size_t size = 0; ///< What the size field says; the record is cut off there.
};

/// A type file with its place in the storage.
struct ModelFile {
    std::vector<ModelRecord> records;
    std::vector<unsigned long long> addresses; ///< Absolute, one a record.
    std::uint64_t baseOffset = 0;
    std::uint32_t addressTableOffset = 0;
    std::vector<char> bytes; ///< The whole storage.
};

/// The records of a file, one behind the other.
TypeFileBuilder builderOf(const ModelFile& file);

/// A well-formed type file of 1 to `maxTypes` types; the same seed gives the same file. References
/// go anywhere, also forward, in cycles and now and then past the table; some records are cut.
ModelFile randomFile(std::uint64_t seed, unsigned int maxTypes);

/// Which kinds the records of a deep file have.
enum class DeepKinds {
    ANY_THAT_LINK,
    RESOLVED_IN_THE_SLOT,
    RESOLVED_BY_THE_READER,
    BASE_CLASSES_THAT_LEAD_BACK ///< Members of each lead to the beginning of the chain.
};

/// A well-formed file of `types` types, most of which refer to the next one, so that records nest.
ModelFile deepFile(std::uint64_t seed, unsigned int types, DeepKinds kinds);

} // namespace RTTITest
