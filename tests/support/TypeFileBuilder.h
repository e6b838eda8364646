#pragma once

#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/CapturedOutput.h"
#include "tests/support/Ranges.h"
#include "tests/support/RecordingBlockManager.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// A type file, made record by record: fields are appended to the record begun last.
class TypeFileBuilder {
public:
    TypeFileBuilder& record(unsigned int kind, const std::string& name, unsigned int flags = 0);

    TypeFileBuilder& u32(unsigned int value);
    TypeFileBuilder& i32(int value) { return u32(static_cast<unsigned int>(value)); }
    TypeFileBuilder& i64(long long value);
    TypeFileBuilder& f64(double value);
    TypeFileBuilder& str(const std::string& text); ///< With its zero byte.
    TypeFileBuilder& bytes(const std::string& raw);
    TypeFileBuilder& range(int si, int ei, int dir) { return i32(si).i32(ei).i32(dir); }

    /// Cuts the last record to its first `size` bytes; its size field says so.
    TypeFileBuilder& cut(std::size_t size);

    /// What the last record's size field says, whatever its bytes.
    TypeFileBuilder& claim(int size);

    TypeFileBuilder& version(const std::string& text);
    TypeFileBuilder& count(unsigned int typeCount);
    TypeFileBuilder& base(unsigned long long offset);

    TypeFileBuilder& integer(const std::string& name);
    TypeFileBuilder& string(const std::string& name);

    // Whole records; names have one character.
    TypeFileBuilder& alias(unsigned int type);
    TypeFileBuilder& packedArray(unsigned int element, int direction = 1); ///< 0 to 7.
    TypeFileBuilder& structure(const std::vector<unsigned int>& members);
    TypeFileBuilder& classType(unsigned int base, const std::vector<unsigned int>& members);

    /// Places the records in this order of their ids; `gaps` are the bytes in front of each, and in
    /// front of the address table.
    TypeFileBuilder& arrange(std::vector<std::size_t> order, std::vector<std::size_t> gaps = {});

    unsigned long long baseOffset() const { return m_base; }
    unsigned long long address(unsigned int id) const { return addresses().at(id); }
    unsigned long long tableOffset() const { return addresses().back(); }

    /// Of the records, then that of the table.
    std::vector<unsigned long long> addresses() const;
    std::string image() const;

private:
    struct Record {
        std::string bytes;
        int claimed;
        bool isClaimed;
    };
    std::size_t idAt(std::size_t place) const { return m_order.empty() ? place : m_order[place]; }
    std::size_t gapAt(std::size_t place) const { return m_gaps.empty() ? 0 : m_gaps[place]; }

    std::vector<Record> m_records;
    std::vector<std::size_t> m_order;
    std::vector<std::size_t> m_gaps;
    std::string m_version = "Brakel Ovat TYPE FILE 001";
    unsigned int m_count = 0;
    bool m_hasCount = false;
    unsigned long long m_base = 0;
};

/// A manager that has been set up over a built file; types are read when they are asked for.
class LoadedTypes {
public:
    explicit LoadedTypes(const TypeFileBuilder& file, bool readAll = true);

    RTTI::RTBaseType* operator[](unsigned int id) { return m_manager.getRTType(id); }
    template <typename Type> const Type& as(unsigned int id) {
        const auto* type = dynamic_cast<const Type*>(m_manager.getRTType(id));
        if (type == nullptr)
            throw std::logic_error("type " + std::to_string(id) + " has another class");
        return *type;
    }

    RTTI::RTTypeManager& manager() { return m_manager; }
    RecordingBlockManager& storage() { return m_storage; }

    /// The trace of everything that a whole load reads.
    std::string trace();

private:
    RecordingBlockManager m_storage;
    RTTI::RTTypeManager m_manager;
};
