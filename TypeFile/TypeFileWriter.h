#pragma once

#include "RTTI/RTBaseType.h"
#include "TypeFile/WriteError.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Type files as bytes: writing them, and checking what the loader takes on trust.
namespace TypeFile {

class RecordEncoder;

/// Writes type files: a header, one record for each type in the order of the ids, an address table.
///
/// Types are run-time or `CT` objects of any class that the loader builds. They refer to one
/// another by id and may be added in any order; pointers between them are ignored. A class without
/// a base class and an array without an index type have the id 0xFFFFFFFF there; every other id
/// must have a type. A type is copied when it is added and need not exist afterwards. The same
/// types give the same bytes, whatever the order in which they are added, on every machine.
///
/// Anything that a file cannot hold is refused with a WriteError: by `add` if the type by itself is
/// at fault, else by the finishing call. The writer is then as it was before the call. A null name
/// is written as an empty one. The writer keeps the records in memory, which takes about as many
/// bytes as the file will have. The time of `add` is proportional to the record, that of a
/// finishing call to the file; if the ids were not added in ascending order, the records are sorted
/// first. Only one thread may use a writer at a time.
class TypeFileWriter {
public:
    /// The type file will begin at the absolute offset `baseOffset` of its storage.
    explicit TypeFileWriter(unsigned long long baseOffset = 0);
    TypeFileWriter(const TypeFileWriter&) = delete;
    TypeFileWriter& operator=(const TypeFileWriter&) = delete;
    ~TypeFileWriter();

    /// Sets a version text other than "Brakel Ovat TYPE FILE 001": at most 31 bytes without a zero
    /// byte, and not the text that marks a file without usable types.
    void setVersion(std::string_view version);

    /// Adds a type under the id that follows the largest one so far (0 at first); returns the id.
    unsigned int add(const RTTI::RTBaseType& type);

    /// Adds a type under the given id. When the writer finishes, every id from 0 up must have
    /// exactly one type.
    void add(unsigned int typeId, const RTTI::RTBaseType& type);

    /// One more than the largest id so far.
    unsigned int typeCount() const { return m_typeCount; }

    // A writer finishes once: after one of these has succeeded, adding to it or finishing it again
    // throws std::logic_error.

    /// Returns the bytes of the type file, which belong at the base offset of a storage.
    std::vector<char> finish();

    /// Writes the type file at the base offset of `image`, which grows if it is too short; its
    /// other bytes stay. After an exception the image is as it was.
    void finishInto(std::vector<char>& image);

    /// Writes the file `path`: zero bytes up to the base offset, then the type file. The bytes are
    /// read back and compared before the file gets its name, so it appears complete or not at all.
    /// Throws std::system_error if the operating system reports an error.
    void finishFile(const std::string& path);

    /// The same, but takes all bytes around the type file from the storage file `imagePath`, which
    /// may be the same as `path`.
    void finishFile(const std::string& path, const std::string& imagePath);

private:
    struct Record {
        unsigned int typeId;
        unsigned int size;
        std::size_t begin; ///< Its place in `m_bytes`.
    };
    struct Layout;
    class Pieces;

    Layout layOut();
    void copyTo(char* to, const Layout& layout) const;
    void checkIds() const;
    void checkReferences() const;
    const char* nameOf(unsigned int typeId) const;
    void checkOpen() const;

    unsigned long long m_baseOffset;
    std::string m_version;
    unsigned int m_typeCount = 0;
    std::vector<char> m_bytes;     ///< The records, in the order in which they were added.
    std::vector<Record> m_records; ///< In the same order until sorted by id.
    std::unique_ptr<RecordEncoder> m_encoder; ///< Appends to `m_bytes`.
    bool m_isSorted = true;
    bool m_isFinished = false;
};

} // namespace TypeFile
