#pragma once

#include "TypeFile/FindingList.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFacts.h"

#include <cstddef>
#include <string>

namespace TypeFile {

/// Checks the bytes of one record after the other: what each field holds, and that it is there.
///
/// Reads like the loader's kind readers, a line a field. After the first field that is not there or
/// cannot be believed the rest of the record is passed over.
class RecordVerifier {
public:
    RecordVerifier(StorageWindow& window, TypeTable& types, FindingList& findings)
        : m_window(window), m_types(types), m_findings(findings) {}

    /// Checks the record of `size` bytes at the type's address, all of them in the storage, fills
    /// in the facts behind its kind and keeps its members if there is room.
    void verify(unsigned int typeId, unsigned int size);

private:
    // Fields, in the order of the record. Where one is missing the answer is 0.
    unsigned int word(const char* field);
    int number(const char* field) { return static_cast<int>(word(field)); }
    void name(const char* field);
    void skip(const char* field, std::size_t width);
    unsigned int count(const char* field, std::size_t smallestItem);
    void ownConstraints();
    bool constraints(unsigned int& ranges);
    void reference(const char* field);
    void flavour(const char* field, int last);

    // Bodies, one a kind or kinds that share theirs.
    void body(unsigned int kind);
    void seqEnum();
    void discreteEnum();
    void real();
    void physical();
    void array();
    void record();
    void classBody();
    void member(unsigned int index);
    void keepMembers(std::size_t first);

    void expect(bool holds, FindingCode code, const char* field, long long found,
                const char* expected);
    void isMissing(const char* field, std::size_t width);
    void add(FindingCode code, const char* field, unsigned long long offset, std::string text);
    unsigned int relative(unsigned long long offset) const {
        return static_cast<unsigned int>(offset - m_facts->address);
    }

    /// The fields that follow belong to this entry of a list.
    void item(const char* list, unsigned int index) {
        m_list = list;
        m_index = index;
    }
    void endOfItems() { m_list = nullptr; }

    StorageWindow& m_window;
    TypeTable& m_types;
    FindingList& m_findings;

    // The record that is being checked.
    unsigned int m_typeId = 0;
    TypeFacts* m_facts = nullptr;
    unsigned long long m_at = 0;
    unsigned long long m_end = 0;
    bool m_isWhole = true;
    const char* m_list = nullptr;
    unsigned int m_index = 0;
};

} // namespace TypeFile
