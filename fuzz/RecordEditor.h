#pragma once

#include "TypeFile/FieldReader.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace Fuzz {

/// A number from 0 up to one below `limit`.
inline std::size_t below(std::mt19937& random, std::size_t limit) { return random() % limit; }

/// The fields of a record as the layout of its kind has them, and changes that fit their forms.
/// What says how much follows stays in step with it: counts with their entries, the size of values
/// with the values, the record size with the record. A change that makes one of them wrong is
/// among those to choose from.
class RecordEditor {
public:
    /// Edits `record`, at least 8 bytes, in a file of `typeCount` types, at least one.
    RecordEditor(std::string& record, unsigned int typeCount, std::mt19937& random);

    /// Changes one field, each as likely as another.
    void changeField();

    /// Inserts an entry of the other's list into that of this one, if both have the same kind.
    void takeEntryOf(const RecordEditor& other);

    /// Replaces every type id below the type count by what `idOf` gives for it.
    template <typename IdOf> void renumber(IdOf idOf) {
        for (const TypeFile::ReadField& field : m_fields) {
            if (field.layout->form == TypeFile::FieldForm::TYPE_ID && field.isWhole &&
                field.word < m_typeCount)
                put(field, idOf(field.word));
        }
    }

private:
    using Fields = std::vector<TypeFile::ReadField>;

    /// The bytes of an entry of a list, or of several in a row.
    struct Entry {
        std::size_t at;
        std::size_t size;
    };

    void readFields();
    void changeWord(const TypeFile::ReadField& field);
    void changeName(const TypeFile::ReadField& field);
    void changeBytes(const TypeFile::ReadField& field);
    void changeRange(const TypeFile::ReadField& field);
    void changeCount(std::size_t place);
    void changeValueSize(const TypeFile::ReadField& field);
    std::vector<Entry> entriesBehind(std::size_t countPlace) const;
    unsigned int anyNumber();
    unsigned int anyTypeId();

    bool isOneIn(std::size_t count) { return below(m_random, count) == 0; }
    void put(const TypeFile::ReadField& field, unsigned int word);
    void replace(std::size_t at, std::size_t size, const std::string& bytes);

    std::string& m_record;
    unsigned int m_typeCount;
    std::mt19937& m_random;
    Fields m_fields;
};

} // namespace Fuzz
