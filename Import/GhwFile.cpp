#include "Import/GhwFile.h"

#include "Import/ImportError.h"
#include "Import/VhdlTypes.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string_view>

namespace Import {

namespace {

constexpr std::string_view MAGIC("GHDLwave\n", 9);
constexpr std::string_view DIRECTORY("DIR\0", 4);
constexpr std::string_view TAIL("TAI\0", 4);
constexpr std::size_t TAIL_SIZE = 12; ///< "TAI", byte order, place of the directory.

/// The bytes of a file, in order, and the numbers that are made of them.
class GhwBytes {
public:
    explicit GhwBytes(Input& input) : m_input(input) {}

    unsigned long long offset() const { return m_input.offset() + m_at; }

    [[noreturn]] void fail(const std::string& reason) const { fail(offset(), reason); }

    [[noreturn]] void fail(unsigned long long offset, const std::string& reason) const {
        throw ImportError(m_input.offsetPlace(offset), reason);
    }

    bool isAtEnd() {
        if (m_at == m_window.size()) {
            m_input.skip(m_at);
            m_at = 0;
            m_window = m_input.peek(WINDOW);
        }
        return m_window.empty();
    }

    std::uint8_t byte() {
        if (isAtEnd())
            fail("the file ends in the middle: GHDL was stopped, or is still writing it");
        return static_cast<std::uint8_t>(m_window[m_at++]);
    }

    /// Whether these few bytes follow, close to the beginning of the file.
    bool areNext(std::string_view bytes) {
        return !isAtEnd() && m_window.substr(m_at, bytes.size()) == bytes;
    }

    void expect(std::string_view bytes, const char* what) {
        for (const char expected : bytes) {
            if (byte() != static_cast<std::uint8_t>(expected)) {
                --m_at;
                fail(std::string(what) + " expected");
            }
        }
    }

    void setBigEndian(bool isBigEndian) { m_isBigEndian = isBigEndian; }

    std::uint64_t word(unsigned int size) {
        std::uint64_t value = 0;
        for (unsigned int i = 0; i < size; ++i) {
            const std::uint64_t next = byte();
            value = m_isBigEndian ? value << 8 | next : value | next << (8 * i);
        }
        return value;
    }

    double real() { return std::bit_cast<double>(word(8)); }

    /// Seven bits a byte, the low ones first.
    std::uint32_t number() {
        std::uint64_t value = 0;
        for (unsigned int shift = 0; shift < 35; shift += 7) {
            const std::uint64_t next = byte();
            value |= (next & 0x7F) << shift;
            if (next < 0x80 && value <= std::numeric_limits<std::uint32_t>::max())
                return static_cast<std::uint32_t>(value);
        }
        fail("a number has more than 32 bits");
    }

    /// The same with a sign, which the last byte's bit 6 gives.
    std::int64_t signedNumber() {
        std::uint64_t value = 0;
        for (unsigned int shift = 0; shift < 70; shift += 7) {
            const std::uint64_t next = byte();
            value |= (next & 0x7F) << shift;
            if (next >= 0x80)
                continue;
            if ((next & 0x40) != 0 && shift + 7 < 64)
                value |= ~std::uint64_t(0) << (shift + 7);
            return static_cast<std::int64_t>(value);
        }
        fail("a number has more than 64 bits");
    }

    /// Passes over the rest of the file. The answer is its end: at most `count` bytes.
    std::string_view passToEnd(std::size_t count) {
        m_input.skip(m_at);
        m_at = 0;
        for (m_window = m_input.peek(WINDOW); m_window.size() == WINDOW;
             m_window = m_input.peek(WINDOW))
            m_input.skip(WINDOW - count);
        m_at = m_window.size();
        return m_window.substr(m_at - std::min(m_at, count));
    }

private:
    static constexpr std::size_t WINDOW = 1 << 16;

    Input& m_input;
    std::string_view m_window; ///< What lies in front, from the input's position on.
    std::size_t m_at = 0;
    bool m_isBigEndian = false;
};

/// Names stand in the order of their bytes, each as what it has more than the one in front of it;
/// no real one shares so much.
constexpr std::uint64_t MOST_SHARED = 256;

/// Whether the byte is not one of a name but ends it.
bool endsName(std::uint8_t byte) { return byte < 0x20 || (byte >= 0x80 && byte < 0xA0); }

/// Kinds whose value ranges stand in the file as whole numbers.
bool isCounted(GhwKind kind) {
    return kind == GhwKind::INTEGER || kind == GhwKind::LONG_INTEGER || kind == GhwKind::PHYSICAL ||
           kind == GhwKind::LONG_PHYSICAL;
}

/// Reads a file from its first byte to its last.
class GhwScan {
public:
    explicit GhwScan(Input& input) : m_bytes(input) {}

    GhwFile read() {
        readHeader();
        readStrings();
        readTypes();
        checkTail();
        return std::move(m_file);
    }

private:
    /// How many ranges are to come for a type.
    struct Open {
        std::uint64_t now = 0;    ///< Where it is an element or a member.
        std::uint64_t inBase = 0; ///< In the type that it is a subtype of, or itself.
    };

    void readHeader() {
        if (m_bytes.isAtEnd())
            m_bytes.fail("the file is empty: the elaboration by GHDL has failed");
        const std::uint8_t first = m_bytes.byte();
        if (first == static_cast<std::uint8_t>(DIRECTORY[0]))
            m_bytes.fail("the file has no types: GHDL was told not to run the design (--no-run)");
        if (first != static_cast<std::uint8_t>(MAGIC[0]))
            m_bytes.fail("not a GHW file");
        m_bytes.expect(MAGIC.substr(1), "the first line of a GHW file");
        if (m_bytes.byte() != 16 || m_bytes.byte() != 0 || m_bytes.byte() > 1)
            m_bytes.fail("an unknown version of GHW");
        const std::uint8_t order = m_bytes.byte();
        if (order != 1 && order != 2)
            m_bytes.fail("the byte order is neither 1 (little) nor 2 (big endian)");
        m_bytes.setBigEndian(order == 2);
        m_bytes.word(3); // The size of a word, that of an offset, and zero.
    }

    void readStrings() {
        if (m_bytes.areNext(DIRECTORY))
            m_bytes.fail("the file has no types: GHDL failed before it wrote any");
        m_bytes.expect({"STR\0\0\0\0\0", 8}, "the section of the names");
        const std::uint64_t begin = m_bytes.offset();
        const std::uint64_t count = m_bytes.word(4);
        const std::uint64_t length = m_bytes.word(4);
        std::uint64_t total = 0;
        std::string name;
        std::uint64_t shared = 0;
        m_file.strings.emplace_back();
        for (std::uint64_t i = 0; i < count; ++i) {
            std::uint8_t next = appendName(name, shared);
            total += name.size();
            if (total > (m_bytes.offset() - begin) * MOST_SHARED)
                m_bytes.fail("the names are damaged: they share too much");
            m_file.strings.push_back(m_file.texts.keep(name));
            shared = sharedLength(next);
        }
        if (count == 0 ? m_bytes.byte() != 0 : shared != 0)
            m_bytes.fail("the names are damaged: there are more of them than the file says");
        m_bytes.expect({"EOS\0", 4}, "the end of the names");
        if (total != length)
            m_bytes.fail("the names are damaged: they do not have the length that the file says");
    }

    /// Cuts the name to what the next one shares with it, and appends what that has more. The
    /// answer is the byte behind it.
    std::uint8_t appendName(std::string& name, std::uint64_t shared) {
        if (shared > name.size())
            m_bytes.fail("a name is damaged: it shares more with the one before than that has");
        name.resize(static_cast<std::size_t>(shared));
        std::uint8_t next = m_bytes.byte();
        for (; !endsName(next); next = m_bytes.byte())
            name += static_cast<char>(next);
        return next;
    }

    /// Five bits a byte, the low ones first.
    std::uint64_t sharedLength(std::uint8_t next) {
        std::uint64_t length = next & 0x1F;
        for (unsigned int shift = 5; next >= 0x80; shift += 5) {
            next = m_bytes.byte();
            if (!endsName(next) || shift > 30)
                m_bytes.fail("a name is damaged");
            length |= std::uint64_t(next & 0x1F) << shift;
        }
        return length;
    }

    void readTypes() {
        m_bytes.expect({"TYP\0\0\0\0\0", 8}, "the section of the types");
        const std::uint64_t count = m_bytes.word(4);
        m_file.types.emplace_back();
        m_open.emplace_back();
        for (std::uint64_t i = 0; i < count; ++i) {
            const GhwType type = readType();
            m_open.push_back(openRanges(type));
            if (m_open.back().inBase > MOST_OPEN_RANGES)
                m_bytes.fail(type.offset, "the type leaves more ranges open than any design does");
            m_file.types.push_back(type);
        }
        if (m_bytes.byte() != 0)
            m_bytes.fail("there are more types than the file says");
    }

    GhwType readType() {
        GhwType type;
        type.offset = m_bytes.offset();
        type.kind = static_cast<GhwKind>(m_bytes.byte());
        type.name = stringNumber();
        switch (type.kind) {
        case GhwKind::ENUM_OF_TWO:
        case GhwKind::ENUM_OF_BYTES:
        case GhwKind::ENUM_OF_WORDS: readParts(type, false, false); break;
        case GhwKind::INTEGER:
        case GhwKind::LONG_INTEGER:
        case GhwKind::REAL: break;
        case GhwKind::PHYSICAL:
        case GhwKind::LONG_PHYSICAL: readParts(type, false, true); break;
        case GhwKind::ARRAY: readArray(type); break;
        case GhwKind::RECORD: readParts(type, true, false); break;
        case GhwKind::SCALAR_SUBTYPE:
            type.base = typeNumber();
            readRanges(type, 1);
            break;
        case GhwKind::ARRAY_SUBTYPE:
        case GhwKind::RECORD_SUBTYPE:
            type.base = typeNumber();
            readRanges(type, m_open[type.base].inBase);
            break;
        case GhwKind::OPEN_ARRAY_SUBTYPE:
        case GhwKind::OPEN_RECORD_SUBTYPE: type.base = typeNumber(); break;
        default:
            m_bytes.fail(type.offset, "a type of the kind " +
                                          std::to_string(static_cast<unsigned>(type.kind)) +
                                          ", which is not known");
        }
        return type;
    }

    /// As many elements as will be appended next.
    template <typename T>
    Slice sliceBehind(const std::vector<T>& items, std::uint64_t count) const {
        if (items.size() > std::numeric_limits<std::uint32_t>::max())
            m_bytes.fail("there are more than 4294967295 literals, units, members or ranges");
        return {static_cast<std::uint32_t>(items.size()), static_cast<std::uint32_t>(count)};
    }

    /// Literals, units or members.
    void readParts(GhwType& type, bool areMembers, bool areUnits) {
        type.items = sliceBehind(m_file.parts, m_bytes.number());
        for (std::uint32_t i = 0; i < type.items.count; ++i) {
            GhwPart part;
            part.name = stringNumber();
            if (areMembers)
                part.type = typeNumber();
            if (areUnits)
                part.value = m_bytes.signedNumber();
            m_file.parts.push_back(part);
        }
    }

    void readArray(GhwType& type) {
        type.base = typeNumber();
        type.items = sliceBehind(m_file.indexes, m_bytes.number());
        for (std::uint32_t i = 0; i < type.items.count; ++i)
            m_file.indexes.push_back(typeNumber());
    }

    void readRanges(GhwType& type, std::uint64_t count) {
        type.items = sliceBehind(m_file.ranges, count);
        for (std::uint64_t i = 0; i < count; ++i)
            m_file.ranges.push_back(readRange());
    }

    GhwRange readRange() {
        const std::uint64_t at = m_bytes.offset();
        const std::uint8_t kindAndDirection = m_bytes.byte();
        const GhwKind kind = static_cast<GhwKind>(kindAndDirection & 0x7F);
        GhwRange range;
        range.isDownto = kindAndDirection >= 0x80;
        range.isReal = kind == GhwKind::REAL;
        if (range.isReal) {
            range.realLeft = m_bytes.real();
            range.realRight = m_bytes.real();
        } else if (isCounted(kind)) {
            range.left = m_bytes.signedNumber();
            range.right = m_bytes.signedNumber();
        } else if (kind == GhwKind::ENUM_OF_TWO || kind == GhwKind::ENUM_OF_BYTES) {
            range.left = m_bytes.byte();
            range.right = m_bytes.byte();
        } else {
            m_bytes.fail(at, "a range of the kind " + std::to_string(kindAndDirection & 0x7F) +
                                 ", which is not known");
        }
        return range;
    }

    std::uint32_t stringNumber() {
        const std::uint64_t at = m_bytes.offset();
        const std::uint32_t number = m_bytes.number();
        if (number >= m_file.strings.size())
            m_bytes.fail(at, "there is no name with the number " + std::to_string(number));
        return number;
    }

    std::uint32_t typeNumber() {
        const std::uint64_t at = m_bytes.offset();
        const std::uint32_t number = m_bytes.number();
        if (number == 0 || number >= m_file.types.size())
            m_bytes.fail(at,
                         "there is no type with the number " + std::to_string(number) + " so far");
        return number;
    }

    /// How many ranges a type leaves open, its elements' and members' included.
    Open openRanges(const GhwType& type) const {
        std::uint64_t count = 0;
        switch (type.kind) {
        case GhwKind::ARRAY:
            count = type.items.count + m_open[type.base].now;
            return {count, count};
        case GhwKind::RECORD:
            for (const GhwPart& member : m_file.partsOf(type))
                count += m_open[member.type].now;
            return {count, count};
        case GhwKind::ARRAY_SUBTYPE:
        case GhwKind::RECORD_SUBTYPE: return {0, m_open[type.base].inBase};
        case GhwKind::OPEN_ARRAY_SUBTYPE:
        case GhwKind::OPEN_RECORD_SUBTYPE:
            return {m_open[type.base].inBase, m_open[type.base].inBase};
        default: return {0, 0};
        }
    }

    /// GHDL's last word, by which a file that was cut is known.
    void checkTail() {
        const std::string_view tail = m_bytes.passToEnd(TAIL_SIZE);
        if (tail.size() < TAIL_SIZE || tail.substr(0, TAIL.size()) != TAIL)
            m_bytes.fail(
                "the file has no end: GHDL was stopped, or is still writing it (--stop-time=0ns "
                "ends a run of which only the types are wanted)");
    }

    GhwBytes m_bytes;
    GhwFile m_file;
    std::vector<Open> m_open; ///< Of each type.
};

} // namespace

GhwFile readGhw(Input& input) { return GhwScan(input).read(); }

} // namespace Import
