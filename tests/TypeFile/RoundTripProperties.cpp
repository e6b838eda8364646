// What goes into a type file comes out of it again, for any table of types. A failing table is
// shrunk to a small one and printed.
//
// RC_PARAMS="max_success=100000" runs as many tables; seed=... repeats a run.

#include "Inspect/json/TypeJsonReader.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeBuilding.h"
#include "TypeFile/TypeFileWriter.h"
#include "tests/support/TypeDescription.h"

#include <rapidcheck.h>

#include <algorithm>
#include <bit>
#include <iostream>
#include <limits>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace RTTI;

/// What a type is made of: more than any one kind needs. Ids are taken modulo the number of types.
struct TypeParts {
    unsigned int kind = 0;
    std::string name;
    unsigned int flags = 0;
    std::vector<unsigned int> ids;
    std::vector<int> numbers;
    std::vector<std::string> names;
    std::vector<long long> wide;
};

std::ostream& operator<<(std::ostream& out, const TypeParts& parts) {
    return out << "kind " << parts.kind % 18 << ' ' << rc::toString(parts.name) << " flags "
               << parts.flags << " ids " << rc::toString(parts.ids) << " numbers "
               << rc::toString(parts.numbers) << " names " << rc::toString(parts.names) << " wide "
               << rc::toString(parts.wide);
}

using Table = std::vector<std::unique_ptr<RTBaseType>>;

/// Makes the type that some parts stand for.
class Maker {
public:
    Maker(const TypeParts& parts, std::size_t count) : m_parts(parts), m_count(count) {}

    std::unique_ptr<RTBaseType> make() {
        std::unique_ptr<RTBaseType> type = ofKind();
        TypeFile::setName(*type, m_parts.name);
        type->m_flags = m_parts.flags;
        return type;
    }

private:
    using Pointer = std::unique_ptr<RTBaseType>;

    unsigned int id(std::size_t i = 0) const {
        const auto& ids = m_parts.ids;
        return i < ids.size() ? ids[i] % static_cast<unsigned int>(m_count) : 0;
    }
    unsigned int idOrNone(std::size_t i) const {
        return i < m_parts.ids.size() && m_parts.ids[i] % 3 == 0 ? 0xFFFFFFFF : id(i);
    }
    int number(std::size_t i) const {
        return i < m_parts.numbers.size() ? m_parts.numbers[i] : -99;
    }
    long long wide(std::size_t i) const { return i < m_parts.wide.size() ? m_parts.wide[i] : 0; }

    std::vector<FullConstraints> ranges(std::size_t first) const {
        std::vector<FullConstraints> result;
        for (std::size_t i = first; i + 2 < m_parts.numbers.size(); i += 3)
            result.push_back({number(i), number(i + 1), number(i + 2)});
        return result;
    }

    Pointer seqEnum() const {
        auto type = std::make_unique<RTSeqEnumType>();
        type->m_valueEncoding = static_cast<ValueEncoding>(number(0));
        type->m_enumKind = static_cast<EnumKind>(number(1) % 8);
        type->m_valueSize = static_cast<unsigned int>(number(2));
        for (const std::string& name : m_parts.names)
            TypeFile::addLiteral(*type, name);
        return type;
    }

    Pointer discreteEnum() const {
        auto type = std::make_unique<RTDiscreteEnumType>();
        type->m_baseTypeId = id();
        const std::size_t size = m_parts.flags % 10;
        type->m_valueSize = static_cast<unsigned int>(size);
        for (std::size_t i = 0; i < m_parts.names.size(); ++i) {
            std::string value(size, static_cast<char>(number(i)));
            std::reverse(value.begin(), value.end());
            if (size != 0)
                value[0] = static_cast<char>(i * 31);
            TypeFile::addLiteral(*type, m_parts.names[i], value);
        }
        type->m_constraints = ranges(0);
        return type;
    }

    Pointer integer() const {
        auto type = std::make_unique<RTIntType>();
        type->m_constraint = {number(0), number(1), number(2)};
        return type;
    }

    Pointer real() const {
        auto type = std::make_unique<RTFloatType>();
        type->m_floatKind = std::min(number(0), 3);
        type->m_left = std::bit_cast<double>(wide(0));
        type->m_right = std::bit_cast<double>(wide(1));
        type->m_direction = number(1);
        return type;
    }

    Pointer typedefType() const {
        auto type = std::make_unique<RTTypedefType>();
        type->m_dataTypeId = id();
        type->m_constraints = ranges(0);
        return type;
    }

    template <typename Type> Pointer designating() const {
        auto type = std::make_unique<Type>();
        type->m_refTypeId = id();
        type->m_alignment = static_cast<unsigned int>(number(0));
        type->m_valueSize = static_cast<unsigned int>(number(1));
        return type;
    }

    Pointer event() const {
        auto type = std::make_unique<RTEventType>();
        type->m_eventKind = std::min(number(0), 1);
        return type;
    }

    Pointer physical() const {
        auto type = std::make_unique<RTPhysicalType>();
        for (std::size_t i = 0; i < m_parts.names.size(); ++i)
            TypeFile::addUnit(*type, m_parts.names[i], wide(i));
        return type;
    }

    Pointer array() const {
        auto type = std::make_unique<RTArrayType>();
        type->m_arrayKind = static_cast<ArrayKind>(0xA00000 + number(0) % 10);
        type->m_elementTypeId = id();
        for (std::size_t i = 1; i < m_parts.ids.size(); ++i)
            type->m_indexTypeIds.push_back(idOrNone(i));
        type->m_constraints = ranges(2);
        type->m_svTypeId = number(1);
        return type;
    }

    template <typename Type> std::unique_ptr<Type> container() const {
        auto type = std::make_unique<Type>();
        type->m_elementTypeId = id();
        type->m_svTypeId = number(0);
        return type;
    }

    Pointer assocArray() const {
        auto type = container<RTAssocArrayType>();
        type->m_indexTypeId = id(1);
        return type;
    }

    Pointer record() const {
        auto type = std::make_unique<RTRecordType>();
        type->m_recordKind = static_cast<RecordKind>(0xB0000 + number(0) % 12);
        for (std::size_t i = 0; i < m_parts.names.size(); ++i)
            TypeFile::addMember(*type, m_parts.names[i], id(i), ranges(i));
        type->m_svTypeId = number(1);
        return type;
    }

    Pointer classType() const {
        auto type = std::make_unique<RTClassType>();
        type->m_baseClassTypeId = idOrNone(0);
        for (std::size_t i = 0; i < m_parts.names.size(); ++i)
            TypeFile::addMember(*type, m_parts.names[i], id(i), ranges(i), number(i) % 2 == 0);
        type->m_svTypeId = number(1);
        return type;
    }

    Pointer ofKind() const {
        switch (m_parts.kind % 18) {
        case 0: return integer();
        case 1: return seqEnum();
        case 2: return discreteEnum();
        case 3: return real();
        case 4: return typedefType();
        case 5: return designating<RTAccessType>();
        case 6: return designating<RTFileType>();
        case 7: return event();
        case 8: return physical();
        case 9: return array();
        case 10: return container<RTDynamicArrayType>();
        case 11: return container<RTQueueType>();
        case 12: return assocArray();
        case 13: return record();
        case 14: return classType();
        case 15: return std::make_unique<RTCHandle>("chandle");
        case 16: return std::make_unique<RTStringType>();
        default: return std::make_unique<RTWildCardType>();
        }
    }

    const TypeParts& m_parts;
    std::size_t m_count;
};

Table tableOf(const std::vector<TypeParts>& parts) {
    Table table;
    for (const TypeParts& part : parts)
        table.push_back(Maker(part, parts.size()).make());
    return table;
}

/// A generator that draws from its whole range, whatever the size of the case.
template <typename T> rc::Gen<T> wholeRange(rc::Gen<T> generator) {
    return rc::gen::resize(rc::kNominalSize, std::move(generator));
}

/// Any bytes but zero, ASCII or not.
rc::Gen<std::string> names() {
    return rc::gen::container<std::string>(
        rc::gen::oneOf(rc::gen::inRange<char>('a', 'z'), wholeRange(rc::gen::nonZero<char>())));
}

template <typename T> rc::Gen<std::vector<T>> numbers() {
    return rc::gen::container<std::vector<T>>(rc::gen::oneOf(
        rc::gen::arbitrary<T>(),
        rc::gen::element<T>(0, 1, static_cast<T>(-2), static_cast<T>(-99),
                            std::numeric_limits<T>::min(), std::numeric_limits<T>::max())));
}

/// Bit patterns of doubles with infinities and NaNs among them.
rc::Gen<std::vector<long long>> wideNumbers() {
    return rc::gen::container<std::vector<long long>>(rc::gen::oneOf(
        rc::gen::map(wholeRange(rc::gen::arbitrary<double>()),
                     [](double value) { return std::bit_cast<long long>(value); }),
        wholeRange(rc::gen::arbitrary<long long>()),
        rc::gen::element<long long>(0x7FF0000000000000, -0x0010000000000000, 0x7FF8000000000001,
                                    0x7FF0000000000001, -1, std::numeric_limits<long long>::min(),
                                    std::numeric_limits<long long>::max())));
}

rc::Gen<std::vector<TypeParts>> tables() {
    return rc::gen::container<std::vector<TypeParts>>(rc::gen::build<TypeParts>(
        rc::gen::set(&TypeParts::kind, wholeRange(rc::gen::inRange(0U, 18U))),
        rc::gen::set(&TypeParts::name, names()),
        rc::gen::set(&TypeParts::flags, wholeRange(rc::gen::arbitrary<unsigned int>())),
        rc::gen::set(&TypeParts::ids, rc::gen::container<std::vector<unsigned int>>(
                                          wholeRange(rc::gen::arbitrary<unsigned int>()))),
        rc::gen::set(&TypeParts::numbers, numbers<int>()),
        rc::gen::set(&TypeParts::names, rc::gen::container<std::vector<std::string>>(names())),
        rc::gen::set(&TypeParts::wide, wideNumbers())));
}

std::vector<char> written(const Table& table, unsigned long long baseOffset) {
    TypeFile::TypeFileWriter writer(baseOffset);
    for (const auto& type : table)
        writer.add(*type);
    std::vector<char> image;
    writer.finishInto(image);
    return image;
}

/// A type file in memory, loaded.
class Loaded {
public:
    Loaded(std::vector<char> image, unsigned long long baseOffset) : m_storage(std::move(image)) {
        m_manager.setupDeserializer(m_storage, baseOffset);
        m_manager.readAllRTTypes();
    }
    const RTBaseType* operator[](std::size_t id) {
        return m_manager.getRTType(static_cast<unsigned int>(id));
    }

private:
    OVAT::OwningMemoryBlockManager m_storage;
    RTTypeManager m_manager;
};

void objectsComeBack(const Table& table, unsigned long long baseOffset) {
    Loaded loaded(written(table, baseOffset), baseOffset);
    for (std::size_t id = 0; id < table.size(); ++id) {
        RC_ASSERT(loaded[id] != nullptr);
        RC_ASSERT(RTTITest::describeFields(*loaded[id]) == RTTITest::describeFields(*table[id]));
    }
    RC_ASSERT(loaded[table.size()] == nullptr);
}

std::vector<char> throughJson(const Table& table, Inspect::JsonForm form,
                              unsigned long long baseOffset) {
    Loaded loaded(written(table, baseOffset), baseOffset);
    std::stringstream text;
    Inspect::TypeJsonWriter json(text, form, TypeFileFormat::TYPE_FILE_VERSION);
    for (std::size_t id = 0; id < table.size(); ++id)
        json.type(static_cast<unsigned int>(id), *loaded[id]);
    json.end();

    TypeFile::TypeFileWriter writer(baseOffset);
    Inspect::TypeJsonReader reader(
        [&](unsigned int id, const RTBaseType& type) { writer.add(id, type); },
        [&](std::string_view version) { writer.setVersion(version); });
    if (form == Inspect::JsonForm::DOCUMENT)
        reader.readDocument(text);
    else
        reader.readLines(text);
    std::vector<char> image;
    writer.finishInto(image);
    return image;
}

} // namespace

int main() {
    const bool objects = rc::check("Objects come back from a file as they were", [] {
        const auto table = tableOf(*tables());
        objectsComeBack(table, *rc::gen::inRange<unsigned long long>(0, 100));
    });
    const bool json = rc::check("A file comes back from JSON byte for byte", [] {
        const auto table = tableOf(*tables());
        const auto baseOffset = *rc::gen::inRange<unsigned long long>(0, 100);
        const auto form = *rc::gen::element(Inspect::JsonForm::DOCUMENT, Inspect::JsonForm::LINES);
        RC_ASSERT(throughJson(table, form, baseOffset) == written(table, baseOffset));
    });
    const bool order = rc::check("The order of adding leaves no trace", [] {
        const auto table = tableOf(*tables());
        std::vector<unsigned int> ids(table.size());
        for (std::size_t i = 0; i < ids.size(); ++i)
            ids[i] = static_cast<unsigned int>(i);
        std::mt19937 random(*rc::gen::arbitrary<unsigned int>());
        std::shuffle(ids.begin(), ids.end(), random);
        TypeFile::TypeFileWriter writer;
        for (const unsigned int id : ids)
            writer.add(id, *table[id]);
        RC_ASSERT(writer.finish() == written(table, 0));
    });
    return objects && json && order ? 0 : 1;
}
