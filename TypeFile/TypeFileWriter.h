#pragma once

#include "RTTI/RTBaseType.h"
#include "TypeFile/WriteError.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Type files as bytes: what compilers write them with, and the check of what a load takes on
/// trust.
namespace TypeFile {

class RecordEncoder;

/// Writes type files: header, one record a type in the order of the ids, address table.
///
/// Types are run-time or `CT` objects of every class that the loader builds. They refer to one
/// another by id, in whichever order they are added; links are not looked at. A class without a
/// base class and an array without an index type have 0xFFFFFFFF there; every other id has to have
/// a type. A type is copied when it is added and may be gone afterwards. The same types give the
/// same bytes, in whichever order they were added, on every machine.
///
/// What a file cannot hold is refused with a WriteError, by `add` where the type alone is at fault,
/// else by the finishing call; the writer is then as it was before the call. A null name is written
/// as the empty one. The writer holds the records: about the bytes of the file to be. An `add`
/// grows with its record, a finishing call with the file; where ids were not added in their order,
/// the records are sorted first. One thread uses a writer at a time.
class TypeFileWriter {
public:
    /// The type file will begin at the absolute offset `baseOffset` of its storage.
    explicit TypeFileWriter(unsigned long long baseOffset = 0);
    TypeFileWriter(const TypeFileWriter&) = delete;
    TypeFileWriter& operator=(const TypeFileWriter&) = delete;
    ~TypeFileWriter();

    /// Another version text than "Brakel Ovat TYPE FILE 001": at most 31 bytes, no zero byte among
    /// them, and not the one that marks a file without usable types.
    void setVersion(std::string_view version);

    /// Adds a type under the id after the largest so far (0 at first), and returns the id.
    unsigned int add(const RTTI::RTBaseType& type);

    /// Adds a type under an id of its own. In the end each id from 0 up has one type.
    void add(unsigned int typeId, const RTTI::RTBaseType& type);

    /// One more than the largest id so far.
    unsigned int typeCount() const { return m_typeCount; }

    // A writer finishes once: one of these succeeds, and nothing else is called afterwards
    // (std::logic_error).

    /// The bytes of the type file, to be put at the base offset of a storage.
    std::vector<char> finish();

    /// Puts the type file at the base offset of `image`, which grows where it is too short; its
    /// other bytes stay. An exception leaves the image as it was.
    void finishInto(std::vector<char>& image);

    /// Makes the file at `path`: as many zero bytes as the base offset says, then the type file.
    /// The bytes are read again before the file gets its name, whole or not at all. Throws
    /// std::system_error where the operating system refuses.
    void finishFile(const std::string& path);

    /// The same, with all bytes around the type file from the storage file at `imagePath` (which
    /// may be `path`).
    void finishFile(const std::string& path, const std::string& imagePath);

private:
    struct Record {
        unsigned int typeId;
        unsigned int size;
        std::size_t begin; ///< In `m_bytes`.
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
    std::vector<char> m_bytes;     ///< The records, in the order of their adding.
    std::vector<Record> m_records; ///< Likewise, until the finish puts them in order of their ids.
    std::unique_ptr<RecordEncoder> m_encoder; ///< Appends to the bytes.
    bool m_isSorted = true;
    bool m_isFinished = false;
};

} // namespace TypeFile
