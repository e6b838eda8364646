#pragma once

#include "OVAT/IBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/LoadLimits.h"
#include "RTTI/RTType.h"
#include "RTTI/RecordBuffers.h"
#include "RTTI/TypeFileFormat.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace RTTI {

/// The header of a type file, as the storage gave it.
struct TypeFileHeader {
    char bytes[TypeFileFormat::HEADER_SIZE] = {};

    /// Whether the version text is the marker of a file without usable types.
    bool isInvalid() const;
    unsigned int typeCount() const;
    unsigned int addressTableOffset() const;
};
static_assert(sizeof(TypeFileHeader) == TypeFileFormat::HEADER_SIZE);

/// Throws std::bad_alloc, as for any list that there is no memory for, if a vector of `count`
/// elements would be longer than a vector can be. A count in a file gets there only where sizes
/// have 32 bits.
template <typename T> void checkListSize([[maybe_unused]] std::size_t count) {
    // NOLINTNEXTLINE(bugprone-sizeof-expression): some lists are of pointers.
    constexpr std::size_t MOST = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T);
    if constexpr (MOST < std::numeric_limits<unsigned int>::max()) {
        if (count > MOST)
            throw std::bad_alloc();
    }
}

/// Turns the records of one type file into type objects, which it owns.
///
/// A record that refers to another has it read at once, as if reading recurred, but nothing nests
/// on the call stack: open records stand in a list, innermost last. A reader that needs a type
/// which is not there leaves behind what it has still to do (`follow`), and returns; `readRTType`
/// opens the wanted record and, once that is closed, has the reader taken up again where it
/// stopped. Members and designated types are followed in the same way, once their object is in its
/// slot. An open record owns its bytes and its unfinished object. A field that does not lie wholly
/// inside the record has its default, and nothing outside the bytes is ever touched.
class TypeDeserializer {
public:
    TypeDeserializer(OVAT::IBlockManager& blockManager, unsigned long long baseOffset);
    ~TypeDeserializer();

    /// Reads the header and, if the file holds types, the address table.
    void readHeader();

    /// Reads one address a type, with one storage read each.
    void readTypeAddressTable();

    /// `RTTypeManager::getRTType`: a whole call from outside, taken back if an exception ends it.
    RTBaseType* loadType(unsigned int typeId);

    /// `RTTypeManager::readAllRTTypes`, likewise.
    RTBaseType* loadAllTypes();

    void setDebugMode(bool debug);
    std::vector<unsigned int>& classTypeIds();

    /// Keeps the types of the deserializer that this one takes the place of.
    void keepAlive(std::unique_ptr<TypeDeserializer> previous);

    /// Writes one trace item, if the trace is on: label, value and tail, a space after each.
    void printDebugInfo(const char* label, const std::string& value, const char* tail,
                        bool newline);

    /// The decimal text of a number, in the stream's default format.
    template <typename T> static const std::string NumberToString(T number);

private:
    class LoadScope;

    /// What is left to do for a record once the type that it waits for is there: a closure of up
    /// to three pointers, held in place.
    class Rest {
    public:
        // cppcheck-suppress uninitMemberVar ; nobody reads the closure of an empty rest
        Rest() = default;
        template <typename Closure> Rest& operator=(const Closure& closure) {
            static_assert(sizeof(Closure) <= sizeof(m_closure));
            static_assert(std::is_trivially_copyable_v<Closure>);
            new (m_closure) Closure(closure);
            m_call = [](void* held) { (*static_cast<Closure*>(held))(); };
            return *this;
        }
        explicit operator bool() const { return m_call != nullptr; }
        void operator()() { m_call(m_closure); }

    private:
        void (*m_call)(void*) = nullptr;
        alignas(void*) unsigned char m_closure[3 * sizeof(void*)];
    };

    /// A record that is being read, or whose object's references are being followed.
    struct OpenRecord {
        // What is set when the record waits for a type, or is read, is not set before: each load
        // opens every record once.
        // cppcheck-suppress uninitMemberVar
        OpenRecord(unsigned int id, unsigned int times, unsigned int outer, std::size_t filled)
            : typeId(id), timesOpen(times), outerOpening(outer), filledBefore(filled) {}

        unsigned int typeId;
        unsigned int timesOpen;             ///< This time included.
        unsigned int outerOpening;          ///< What stood in m_openings before.
        unsigned int wanted;                ///< The type that is waited for,
        const RTBaseType** link;            ///< where it is to be stored,
        Rest rest;                          ///< and what follows; nothing while none is waited for.
        std::size_t cursor;                 ///< Where reading stopped, while a type is waited for.
        std::size_t size;                   ///< In bytes.
        std::size_t filledBefore;           ///< How many slots were filled when it was opened.
        char* bytes = nullptr;              ///< Until all are read.
        std::unique_ptr<RTBaseType> object; ///< Until it is in its slot.
    };

    // Record framing.
    RTBaseType* readRTType(unsigned int typeId);
    bool canBeOpened(unsigned int typeId) const;
    void openRecord(unsigned int typeId);
    unsigned int readBytes(unsigned int typeId);
    void readKind(unsigned int kind);
    void takeUpRecord();
    bool enterType();
    void closeRecord();
    void dropRecord();

    // References.
    bool isKnown(unsigned int typeId, const RTBaseType*& link);
    template <typename Closure>
    void follow(unsigned int typeId, const RTBaseType*& link, const Closure& rest);
    void followMembers(RTAggregateType& aggregate, std::size_t first);

    // Fields of a record.
    std::size_t bytesLeft() const { return m_limit - m_cursor; }
    template <typename T> T readField(T shortValue = 0);
    std::string_view readName();
    char* readOwnedName();
    void readRTBaseType(RTBaseType& type);
    void readBound(double& bound);
    void readConstraint(FullConstraints* constraint);
    void readConstraintVector(std::vector<FullConstraints>& constraints);
    void readConstraints(std::vector<FullConstraints>& constraints, unsigned int count);

    // One reader a kind. Each begins the innermost record's object, and finishes it unless it
    // waits.
    void readRTSeqEnumType();
    void readRTDiscreteEnumType();
    void readRTIntType();
    void readRTFloatType();
    void readRTTypedefType();
    void readRTAccessType();
    void readRTCHandle();
    void readRTEventType();
    void readRTFileType();
    void readRTPhysicalType();
    void readRTArrayType();
    void readRTRecordType();
    void readRTDynamicArrayType();
    void readRTQueueType();
    void readRTAssocArrayType();
    void readRTClassType();
    void readRTStringType();
    void readRTWildCardType();

    // What several kinds share.
    template <typename Type> Type& beginType(const char* heading);
    template <typename Type> Type& readReference(const char* heading);
    void readMemberHead(RTAggregateType::t_Member& member);
    void readEnumeratorNames(RTSeqEnumType& type);
    void readDimensions(RTArrayType& type);
    void readMembers(RTClassType& type);
    void readEnumerators(RTDiscreteEnumType& type, std::size_t count);
    void readEnumerator(t_enumNameAndValuePair& enumerator, std::size_t valueSize);

    // The trace. Nothing of it is made while it is off; where several items follow one another, one
    // test is enough for them all.
    bool isTracing() const;
    template <typename T> void trace(const char* label, T value, const char* tail, bool newline);
    template <typename T>
    [[gnu::noinline]] void printNumber(const char* label, T number, const char* tail, bool newline);
    [[gnu::noinline]] void printText(const char* label, std::string_view text, const char* tail,
                                     bool newline);
    void traceAddress(unsigned int typeId);
    void traceRecordBegin(unsigned int typeId);
    void traceRecordEnd(unsigned int typeId);
    void traceTypeHead(const char* heading, const RTBaseType& type);
    void traceConstraint(const FullConstraints& constraint);
    void traceConstraints(const std::vector<FullConstraints>& constraints);
    void traceFields(const RTSeqEnumType& type);
    void traceFields(const RTDiscreteEnumType& type, int count, int valueSize);
    void traceEnumerator(const t_enumNameAndValuePair& enumerator, unsigned int index,
                         std::size_t valueSize);
    void traceFields(const RTFloatType& type);
    void traceFields(const RTPhysicalType& type, int count);
    void traceReference(unsigned int typeId, unsigned int alignment, unsigned int valueSize);
    void traceKindAndElement(const RTArrayType& type);
    void traceDimensions(const RTArrayType& type);
    void traceKind(const RTRecordType& type);
    void traceMember(const RTAggregateType::t_Member& member);

    OVAT::IBlockManager& m_blockManager;
    unsigned long long m_baseOffset;
    TypeFileHeader m_header;
    std::vector<RTBaseType*> m_types; ///< Owned; null until the id is read.
    std::vector<unsigned int> m_classTypeIds;
    std::vector<unsigned long long> m_typeAddresses;
    bool m_debug = false;

    const char* m_record =
        nullptr;              ///< Bytes of the innermost open record, a zero byte behind them.
    std::size_t m_cursor = 0; ///< Position of the next one to be read; at most the limit.
    std::size_t m_limit = 0;  ///< How many there are.

    RecordBuffers m_recordBuffers;
    std::vector<OpenRecord> m_open;       ///< Can move wherever the storage or the trace is called.
    std::vector<unsigned int> m_openings; ///< By type id: 1 + index in m_open of the last, or 0.
    std::vector<unsigned int> m_filledSlots; ///< Filled by the call from outside that goes on.
    std::unique_ptr<TypeDeserializer> m_previous;
};

/// A number of list entries; none for a negative one.
inline std::size_t countOrNone(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

template <typename T> T TypeDeserializer::readField(T shortValue) {
    if (bytesLeft() < sizeof(T)) [[unlikely]] {
        m_cursor = m_limit;
        return shortValue;
    }
    const T value = littleEndianAt<T>(m_record + m_cursor);
    m_cursor += sizeof(T);
    return value;
}

/// A record that is open is opened once more only if a slot was filled in between: only then can
/// the second reading come to an end.
inline bool TypeDeserializer::canBeOpened(unsigned int typeId) const {
    const unsigned int opening = m_openings[typeId];
    if (opening == 0) [[likely]]
        return true;
    const OpenRecord& open = m_open[opening - 1];
    return open.filledBefore != m_filledSlots.size() && open.timesOpen < REOPEN_LIMIT;
}

/// Whether it is known what a reference leads to, which `link` then says; if not, the innermost
/// record waits for it, and its `rest` has to be given.
inline bool TypeDeserializer::isKnown(unsigned int typeId, const RTBaseType*& link) {
    link = typeId < m_types.size() ? m_types[typeId] : nullptr;
    if (link != nullptr || typeId >= m_types.size() || !canBeOpened(typeId)) [[likely]]
        return true;
    OpenRecord& record = m_open.back();
    record.cursor = m_cursor;
    record.wanted = typeId;
    record.link = &link;
    return false;
}

/// Does the rest once `link` leads to the type: at once, or when its record has been read.
template <typename Closure>
void TypeDeserializer::follow(unsigned int typeId, const RTBaseType*& link, const Closure& rest) {
    if (isKnown(typeId, link))
        rest();
    else
        m_open.back().rest = rest;
}

/// The innermost record has been read: puts its object into the slot, if that is free. An inner
/// reading of the same record may have filled it first; then this object is released, since other
/// types may already point at the one in the slot.
[[gnu::always_inline]] inline bool TypeDeserializer::enterType() {
    OpenRecord& record = m_open.back();
    m_recordBuffers.giveBack(std::exchange(record.bytes, nullptr));
    RTBaseType*& slot = m_types[record.typeId];
    if (slot != nullptr) {
        record.object.reset();
        return false;
    }
    m_filledSlots.push_back(record.typeId);
    slot = record.object.release();
    return true;
}

inline bool TypeDeserializer::isTracing() const { return m_debug; }

template <typename T>
void TypeDeserializer::trace(const char* label, T value, const char* tail, bool newline) {
    static_assert(std::is_trivially_copyable_v<T>, "nothing is copied while the trace is off");
    if (!isTracing()) [[likely]]
        return;
    if constexpr (std::is_arithmetic_v<T>)
        printNumber(label, value, tail, newline);
    else
        printText(label, value, tail, newline);
}

} // namespace RTTI
