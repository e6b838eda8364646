#pragma once

#include "TypeFile/TypeFields.h"
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

/// Lays a type out as the record that the loader reads: in the order and form of RecordLayout, with
/// the values of the members that TypeFields has under the same names. Throws WriteError for what a
/// record cannot hold.
class RecordEncoder {
public:
    /// Records are appended to `bytes`, each at most `largestRecord` bytes long.
    explicit RecordEncoder(std::vector<char>& bytes,
                           std::size_t largestRecord = RTTI::TypeFileFormat::LARGEST_RECORD_SIZE);

    /// Appends the record of `type`. What it throws leaves `bytes` as it was.
    void encode(unsigned int typeId, const RTTI::RTBaseType& type);

    /// The largest type id that a record so far refers to, the first record that has it.
    const Reference& largestReference() const { return m_largest; }

private:
    /// Writes the fields of a `Layout` from AT to END, END left out, with the values of an object.
    template <typename Layout, std::size_t AT, std::size_t END, typename Object>
    void fields(const Object& object);
    template <typename Layout, std::size_t AT, typename Object> void field(const Object& object);
    template <typename Layout, std::size_t AT, typename List, typename Item>
    void list(const List& list, const Form::Items<Item>& form);
    template <typename Layout, std::size_t AT, typename List, typename Entry>
    void list(const List& list, const Form::Entries<Entry>& form);
    template <typename Entry, typename Item> const Entry& entryOf(const Item& item);
    template <typename Layout, std::size_t AT, typename Value> void put(const Value& value);

    /// Refuses what no record of a class holds.
    /// @{
    void check(const RTTI::RTBaseType&) const {}
    void check(const RTTI::RTSeqEnumType& type);
    void check(const RTTI::RTDiscreteEnumType& type);
    void check(const RTTI::RTArrayType& type);
    /// @}

    // Bytes of the field at m_place.
    void append(const void* bytes, std::size_t count);
    template <typename T> void number(T value);
    void name(std::string_view text);
    void range(const RTTI::FullConstraints& range);
    void refersTo(unsigned int id);
    [[noreturn]] void refuse(const std::string& reason) const;
    [[noreturn]] void refuseSize() const;

    std::vector<char>& m_bytes;
    std::size_t m_largestRecord;
    std::size_t m_begin = 0; ///< Where the record begins in the bytes.
    unsigned int m_typeId = 0;
    const RTTI::RTBaseType* m_type = nullptr;
    std::size_t m_valueSize = 0; ///< Of the type's literals.
    FieldPlace m_place;
    Reference m_largest;
};

} // namespace TypeFile
