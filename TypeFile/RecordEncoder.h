#pragma once

#include "RTTI/RTTypeVisitor.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/WriteError.h"

#include <string>
#include <string_view>
#include <vector>

namespace TypeFile {

/// A reference from one type to another, and where it stands.
struct Reference {
    unsigned int to = 0;
    unsigned int from = 0;
    FieldPlace place;
    bool exists = false;
};

/// Lays a type out as the record that the loader reads: one function a kind, one line a field, in
/// the order of the record. Throws WriteError for what a record cannot hold.
class RecordEncoder : private RTTI::RTTypeVisitor {
public:
    /// Records are appended to `bytes`, each at most `largestRecord` bytes long.
    explicit RecordEncoder(std::vector<char>& bytes,
                           std::size_t largestRecord = RTTI::TypeFileFormat::LARGEST_RECORD_SIZE);

    /// Appends the record of `type`. What it throws leaves `bytes` as it was.
    void encode(unsigned int typeId, const RTTI::RTBaseType& type);

    /// The largest type id that a record so far refers to, the first record that has it.
    const Reference& largestReference() const { return m_largest; }

private:
    bool visit(const RTTI::RTBaseType& type) override;
    bool visit(const RTTI::RTEnumType& type) override;
    bool visit(const RTTI::RTSeqEnumType& type) override;
    bool visit(const RTTI::RTDiscreteEnumType& type) override;
    bool visit(const RTTI::RTIntType& type) override;
    bool visit(const RTTI::RTFloatType& type) override;
    bool visit(const RTTI::RTTypedefType& type) override;
    bool visit(const RTTI::RTAccessType& type) override;
    bool visit(const RTTI::RTCHandle& type) override;
    bool visit(const RTTI::RTClassHandle& type) override;
    bool visit(const RTTI::RTEventType& type) override;
    bool visit(const RTTI::RTFileType& type) override;
    bool visit(const RTTI::RTPhysicalType& type) override;
    bool visit(const RTTI::RTLogicType& type) override;
    bool visit(const RTTI::RTBitType& type) override;
    bool visit(const RTTI::RTArrayType& type) override;
    bool visit(const RTTI::RTAbstractArrayType& type) override;
    bool visit(const RTTI::RTDynamicArrayType& type) override;
    bool visit(const RTTI::RTQueueType& type) override;
    bool visit(const RTTI::RTAssocArrayType& type) override;
    bool visit(const RTTI::RTAggregateType& type) override;
    bool visit(const RTTI::RTRecordType& type) override;
    bool visit(const RTTI::RTClassType& type) override;
    bool visit(const RTTI::RTStringType& type) override;

    /// Record size (to be filled in), kind code, name and flags.
    void begin(unsigned int kind);

    template <typename Type> bool designating(unsigned int kind, const Type& type);
    void literals(const RTTI::RTDiscreteEnumType& type);
    void memberHead(const RTTI::RTAggregateType::t_Member* member, std::size_t index);

    // Fields. `at` moves the place that an error names; the others write there.
    void at(const char* field);
    void at(const char* list, std::size_t index, const char* field);
    void append(const void* bytes, std::size_t count);
    template <typename T> void number(const char* field, T value);
    void count(const char* list, std::size_t value);
    void name(std::string_view text);
    void name(const char* text);
    void reference(unsigned int id);
    void referenceOrNone(unsigned int id);
    void constraints(const char* field, const std::vector<RTTI::FullConstraints>& ranges);
    void flavour(int value, int largest);
    [[noreturn]] void refuse(const std::string& reason) const;

    std::vector<char>& m_bytes;
    std::size_t m_largestRecord;
    std::size_t m_begin = 0; ///< Where the record begins in the bytes.
    unsigned int m_typeId = 0;
    const RTTI::RTBaseType* m_type = nullptr;
    FieldPlace m_place;
    Reference m_largest;
};

} // namespace TypeFile
