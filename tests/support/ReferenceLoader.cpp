#include "tests/support/ReferenceLoader.h"

#include <bit>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <utility>

namespace RTTITest {

namespace {

constexpr std::size_t RECORD_HEAD = 8;
constexpr long long FILE_HEAD = 40;
constexpr std::uint32_t NO_ID = 0xFFFFFFFF;

/// How often a record is open at most, stated a second time, so that a wrong number in the library
/// shows.
constexpr unsigned int MOST_OPENINGS = 16;

constexpr const char* ENCODING_NAMES[] = {"4-State", "2-State", "Byte", "Unpadded-Byte"};
constexpr const char* ENUM_KIND_NAMES[] = {"INVALID_ENUM",   "VLOG_BUILTIN_ENUM",
                                           "VHDL_BIT_ENUM",  "VHDL_STD_LOGIC_ENUM",
                                           "VHDL_CHAR_ENUM", "VHDL_OTHER_ENUM"};
constexpr const char* ARRAY_KIND_NAMES[] = {"ARRAY_KIND_INVALID",
                                            "VHDL_ARRAY",
                                            "VLOG_FIXED_UNPACKED_ARRAY",
                                            "VLOG_FIXED_PACKED_ARRAY",
                                            "VLOG_DYNAMIC_ARRAY",
                                            "VLOG_ASSOCIATIVE_ARRAY",
                                            "VLOG_QUEUE",
                                            "BYTE_UNPADDED_ARRAY"};
constexpr const char* RECORD_KIND_NAMES[] = {
    "RECORD_KIND_INVALID",        "VHDL_RECORD",
    "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
    "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
    "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
    "BYTE_UNPADDED_STRUCT"};

/// The name of a value in a table that begins at `first`; `other` for a value behind or before it.
template <std::size_t N>
std::string nameOf(const char* const (&names)[N], std::uint32_t value, std::uint32_t first,
                   const char* other) {
    return value >= first && value - first < N ? names[value - first] : other;
}

template <typename T> std::string textOf(T value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

template <typename T> std::string line(const char* field, T value) {
    return std::string(field) + "=" + textOf(value);
}

std::int32_t truncated(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);
}

} // namespace

std::string linkText(const Link& link) { return link ? "slot " + textOf(*link) : "null"; }

std::string hexText(const std::string& bytes) {
    std::string out;
    for (const char byte : bytes) {
        out += "0123456789abcdef"[(byte >> 4) & 15];
        out += "0123456789abcdef"[byte & 15];
    }
    return out;
}

std::string bitsText(double value) { return textOf(std::bit_cast<std::uint64_t>(value)); }

/// Hands out the tokens of a record in order, each with its default once the record has ended.
class ReferenceLoader::Fields {
public:
    explicit Fields(const ModelRecord& record) : m_record(record) {}

    std::uint32_t u32(std::uint32_t missing = 0) {
        const Token* token = take(TokenKind::U32);
        return token ? static_cast<std::uint32_t>(token->bits) : missing;
    }
    std::int32_t i32(std::int32_t missing = 0) {
        const Token* token = take(TokenKind::I32);
        return token ? static_cast<std::int32_t>(static_cast<std::uint32_t>(token->bits)) : missing;
    }
    std::int64_t i64() {
        const Token* token = take(TokenKind::I64);
        return token ? static_cast<std::int64_t>(token->bits) : 0;
    }
    double f64() {
        const Token* token = take(TokenKind::F64);
        return token ? std::bit_cast<double>(token->bits) : 0.0;
    }
    std::string name() {
        const Token* token = take(TokenKind::NAME);
        return token ? token->text : std::exchange(m_rest, {});
    }
    std::string raw(std::size_t count) {
        const Token* token = take(TokenKind::RAW);
        std::string bytes = token ? token->text : std::exchange(m_rest, {});
        bytes.resize(count, '\0');
        return bytes;
    }

private:
    const Token* take(TokenKind kind) {
        if (m_ended || m_next == m_record.tokens.size()) {
            m_ended = true;
            return nullptr;
        }
        const Token& token = m_record.tokens[m_next++];
        const std::size_t left = m_record.size - m_offset;
        if (left > 0 && token.kind != kind)
            throw std::logic_error("the fields of a model record are out of order");
        if (token.width() <= left) {
            m_offset += token.width();
            return &token;
        }
        m_ended = true;
        m_rest = token.text.substr(0, left);
        return nullptr;
    }

    const ModelRecord& m_record;
    std::size_t m_next = 0;
    std::size_t m_offset = RECORD_HEAD;
    std::string m_rest; ///< What is left of the name or the bytes that the end cuts.
    bool m_ended = false;
};

ReferenceLoader::ReferenceLoader(const ModelFile& file) : m_file(file) {
    m_types.resize(file.records.size());
    m_timesOpen.resize(file.records.size());
}

std::string ReferenceLoader::takeTrace() {
    std::string text = m_trace.str();
    m_trace.str({});
    return text;
}

void ReferenceLoader::setup() {
    m_reads.emplace_back(m_file.baseOffset, FILE_HEAD);
    for (std::size_t i = 0; i < m_types.size(); ++i)
        m_reads.emplace_back(m_file.addressTableOffset + 8 * i, 8);
}

Link ReferenceLoader::readAll() {
    Link last;
    for (std::uint32_t id = 0; id < m_types.size(); ++id) {
        last = get(id);
        if (!last)
            break;
    }
    return last;
}

Link ReferenceLoader::get(std::uint32_t id) {
    if (id >= m_types.size())
        return {};
    if (m_types[id])
        return id;
    if (isEndless(id)) {
        ++m_endlessReferences;
        return {};
    }
    if (m_timesOpen[id] == MOST_OPENINGS) {
        ++m_cutReferences;
        return {};
    }
    ++m_timesOpen[id];
    m_open.push_back({id, m_filled});
    readRecord(id);
    m_open.pop_back();
    --m_timesOpen[id];
    return m_types[id] ? Link(id) : Link();
}

/// Whether the record is open, and no slot was filled since it was opened.
bool ReferenceLoader::isEndless(std::uint32_t id) const {
    for (auto open = m_open.rbegin(); open != m_open.rend(); ++open) {
        if (open->filledBefore != m_filled)
            return false;
        if (open->id == id)
            return true;
    }
    return false;
}

void ReferenceLoader::readRecord(std::uint32_t id) {
    const ModelRecord& source = m_file.records[id];
    const std::uint64_t address = m_file.addresses[id];
    const std::string separator(47, '=');
    m_reads.emplace_back(address, 4);
    item("", separator, "", true);
    number("**** Type Id  = ", id, "  begin **** ", true);
    m_reads.emplace_back(address + 4, 4);
    m_reads.emplace_back(address, static_cast<long long>(source.size));
    Fields fields(source);
    dispatch(id, fields);
    number("**** Type Id  = ", id, "  end **** ", true);
    item("", separator, "", true);
}

void ReferenceLoader::dispatch(std::uint32_t id, Fields& fields) {
    Description out{line("kind", m_file.records[id].kind)};
    switch (m_file.records[id].kind) {
    case SEQ_ENUM_KIND: seqEnum(fields, out); break;
    case DISCRETE_ENUM_KIND: discreteEnum(fields, out); break;
    case INT_KIND: integer(fields, out); break;
    case FLOAT_KIND: real(fields, out); break;
    case TYPEDEF_KIND: typedefType(fields, out); break;
    case CHANDLE_KIND: common("** Built in String Type ", fields, out); break;
    case EVENT_KIND: event(fields, out); break;
    case FILE_KIND: file(fields, out); break;
    case PHYSICAL_KIND: physical(fields, out); break;
    case ARRAY_KIND: array(fields, out); break;
    case DYNAMIC_ARRAY_KIND: dynamicArray(fields, out); break;
    case QUEUE_KIND: queue(fields, out); break;
    case ASSOC_ARRAY_KIND: assocArray(fields, out); break;
    case STRING_KIND: common("** Built in String Type ", fields, out); break;
    case WILDCARD_KIND: common("** WildCard Type ", fields, out); break;
    case ACCESS_KIND: return access(id, fields);
    case RECORD_KIND: return record(id, fields);
    case CLASS_KIND: return classType(id, fields);
    default: return; // Builds nothing.
    }
    enter(id, std::move(out));
}

/// Fills the slot unless another reading of the same record was done first.
bool ReferenceLoader::enter(std::uint32_t id, Description description) {
    if (m_types[id]) {
        ++m_lostReads;
        return false;
    }
    m_types[id] = std::make_unique<Description>(std::move(description));
    ++m_filled;
    return true;
}

void ReferenceLoader::item(const std::string& label, const std::string& value,
                           const std::string& tail, bool end) {
    m_trace << label << ' ' << value << ' ' << tail << ' ';
    if (end)
        m_trace << '\n';
}

template <typename T>
void ReferenceLoader::number(const std::string& label, T value, const std::string& tail, bool end) {
    item(label, textOf(value), tail, end);
}

void ReferenceLoader::common(const char* heading, Fields& fields, Description& out) {
    item("", heading, "", false);
    const std::string name = fields.name();
    const std::uint32_t flags = fields.u32();
    item("Type name = ", name, "", false);
    number(", flags = ", flags, " ** ", true);
    out.push_back(line("m_name", name));
    out.push_back(line("m_flags", flags));
}

void ReferenceLoader::constraint(Fields& fields, Description& out) {
    const std::int32_t si = fields.i32();
    const std::int32_t ei = fields.i32();
    const std::int32_t dir = fields.i32();
    number("** constraints : si=", si, "", false);
    number(", ei=", ei, "", false);
    number(", dir=", dir, "", true);
    out.push_back("constraint=" + textOf(si) + " " + textOf(ei) + " " + textOf(dir));
}

void ReferenceLoader::constraintVector(Fields& fields, Description& out) {
    const std::uint32_t count = fields.u32();
    out.push_back(line("constraints", count));
    for (std::uint32_t i = 0; i < count; ++i) {
        number(" ++  constraint[ ", i, "]", false);
        constraint(fields, out);
    }
}

void ReferenceLoader::seqEnum(Fields& fields, Description& out) {
    common("** Sequential Enum ", fields, out);
    const std::int32_t encoding = fields.i32();
    item("  Encoding: ",
         nameOf(ENCODING_NAMES, static_cast<std::uint32_t>(encoding), 0, "<Bad Encoding>"), "",
         true);
    const std::int32_t kind = fields.i32();
    item("  Kind: ", nameOf(ENUM_KIND_NAMES, static_cast<std::uint32_t>(kind), 0, "<Bad Kind>"), "",
         true);
    out.push_back(line("m_valueEncoding", encoding));
    out.push_back(line("m_enumKind", kind));
    const std::int32_t count = fields.i32();
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string name = fields.name();
        number("** Enumerator[", i, "] = ", false);
        item("", name, "", true);
        out.push_back(line("enumerator", name));
    }
    const std::int32_t size = fields.i32(1);
    number("**  Size: ", size, "", true);
    out.push_back(line("m_valueSize", static_cast<std::uint32_t>(size)));
}

void ReferenceLoader::discreteEnum(Fields& fields, Description& out) {
    common("** Discrete Enum Type ", fields, out);
    const std::uint32_t baseId = fields.u32();
    out.push_back(line("m_baseTypeId", baseId));
    out.push_back("m_baseType=" + linkText(get(baseId)));
    const std::int32_t count = fields.i32();
    const std::int32_t size = fields.i32();
    const std::size_t stored = size > 0 ? static_cast<std::size_t>(size) : 0;
    number("** Base Type ID = ", baseId, " ** ", true);
    number("** Number of enumerators = ", static_cast<std::uint32_t>(count), " ** ", true);
    number("** Size of enumerators = ", size, " ** ", true);
    out.push_back(line("m_valueSize", stored));
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string name = fields.name();
        const std::string value = fields.raw(stored);
        number("** Enumerator[", i, "] = ", false);
        item("", name, " (value, byte by byte = ", false);
        for (const char byte : value)
            number("", static_cast<int>(static_cast<signed char>(byte)), " ", false);
        item("", ")", "", true);
        out.push_back("enumerator=" + name + " " + hexText(value));
    }
    constraintVector(fields, out);
}

void ReferenceLoader::integer(Fields& fields, Description& out) {
    common("** Built in Int Type ", fields, out);
    constraint(fields, out);
}

void ReferenceLoader::real(Fields& fields, Description& out) {
    common("** Built in Real Type ", fields, out);
    const std::int32_t flavour = fields.i32();
    const double left = fields.f64();
    const double right = fields.f64();
    const std::int32_t direction = truncated(fields.f64());
    number("** constraints : left=", left, "", false);
    number(", right=", right, "", false);
    number(", dir=", direction, "", true);
    out.push_back(line("m_floatKind", flavour <= 3 ? flavour : 0));
    out.push_back("m_left=" + bitsText(left));
    out.push_back("m_right=" + bitsText(right));
    out.push_back(line("m_direction", direction));
}

void ReferenceLoader::event(Fields& fields, Description& out) {
    common("** Built in Event Type ", fields, out);
    const std::int32_t flavour = fields.i32();
    out.push_back(line("m_eventKind", flavour <= 1 ? flavour : 0));
}

void ReferenceLoader::physical(Fields& fields, Description& out) {
    common("** Physical Type ", fields, out);
    const std::int32_t count = fields.i32();
    number("** Number of units = ", static_cast<std::uint32_t>(count), " ** ", true);
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string name = fields.name();
        const std::int64_t value = fields.i64();
        number("** Unit[", i, "] = ", false);
        item("", name, " value = ", false);
        number("", value, " ", false);
        out.push_back("unit=" + name + " " + textOf(value));
    }
}

void ReferenceLoader::typedefType(Fields& fields, Description& out) {
    common("** Typedef Type ", fields, out);
    const std::uint32_t dataId = fields.u32();
    number("** Data Type Id = ", dataId, " ** ", true);
    out.push_back(line("m_dataTypeId", dataId));
    out.push_back("m_dataType=" + linkText(get(dataId)));
    constraintVector(fields, out);
}

std::uint32_t ReferenceLoader::reference(const char* heading, Fields& fields, Description& out) {
    common(heading, fields, out);
    const std::uint32_t refId = fields.u32();
    const std::uint32_t alignment = fields.u32();
    const std::uint32_t size = fields.u32();
    number("** Ref Type Id = ", refId, " ** ", true);
    number("** Alignment = ", alignment, " ** ", true);
    number("** Value Size = ", size, " ** ", true);
    out.push_back(line("m_refTypeId", refId));
    out.push_back(line("m_alignment", alignment));
    out.push_back(line("m_valueSize", size));
    return refId;
}

void ReferenceLoader::file(Fields& fields, Description& out) {
    const std::uint32_t refId = reference("** File Type ", fields, out);
    out.push_back("m_refType=" + linkText(get(refId)));
}

void ReferenceLoader::access(std::uint32_t id, Fields& fields) {
    Description out{line("kind", m_file.records[id].kind)};
    const std::uint32_t refId = reference("** Access Type ", fields, out);
    if (enter(id, std::move(out)))
        resolve(id, "m_refType=", {refId});
}

void ReferenceLoader::array(Fields& fields, Description& out) {
    common("** Array Type ", fields, out);
    const std::uint32_t kind = fields.u32();
    item("** Array Kind = ", nameOf(ARRAY_KIND_NAMES, kind, 0xA00000, "ARRAY_KIND_UNKNOWN"), " ** ",
         true);
    const std::uint32_t elementId = fields.u32();
    number("** Element Type Id = ", elementId, " ** ", true);
    out.push_back(line("m_arrayKind", kind));
    out.push_back(line("m_elementTypeId", elementId));
    out.push_back("m_elementType=" + linkText(get(elementId)));
    const std::int32_t dimensions = fields.i32();
    for (std::int32_t i = 0; i < dimensions; ++i) {
        const std::uint32_t indexId = fields.u32();
        number("** indexId[", i, "] = ", false);
        number("", indexId, " ** ", true);
        out.push_back(line("indexId", indexId));
    }
    constraintVector(fields, out);
    const std::int32_t svTypeId = fields.i32(-99);
    if (svTypeId != -99)
        number("** Array SV Type Id = ", svTypeId, " ** ", true);
    out.push_back(line("m_svTypeId", svTypeId));
}

void ReferenceLoader::dynamicArray(Fields& fields, Description& out) {
    common("** SV Dynamic Array Type ", fields, out);
    const std::uint32_t elementId = fields.u32();
    number("** Element Type Id = ", elementId, "**", true);
    out.push_back(line("m_elementTypeId", elementId));
    out.push_back("m_elementType=" + linkText(get(elementId)));
    const std::int32_t svTypeId = fields.i32();
    number("** Dynamic Array SV Type Id = ", svTypeId, " ** ", true);
    out.push_back(line("m_svTypeId", svTypeId));
}

void ReferenceLoader::queue(Fields& fields, Description& out) {
    common("** SV Queue Type ", fields, out);
    const std::uint32_t elementId = fields.u32();
    const std::int32_t svTypeId = fields.i32();
    out.push_back(line("m_elementTypeId", elementId));
    out.push_back("m_elementType=" + linkText(get(elementId)));
    number("** Queue SV Type Id = ", svTypeId, " ** ", true);
    number("** Element Type Id = ", elementId, "**", true);
    out.push_back(line("m_svTypeId", svTypeId));
}

void ReferenceLoader::assocArray(Fields& fields, Description& out) {
    common("** SV Associative Array Type ", fields, out);
    const std::uint32_t elementId = fields.u32();
    out.push_back(line("m_elementTypeId", elementId));
    out.push_back("m_elementType=" + linkText(get(elementId)));
    number("** Element Type Id = ", elementId, "**", true);
    const std::int32_t svTypeId = fields.i32();
    number("** Associative Array SV Type Id = ", svTypeId, " ** ", true);
    out.push_back(line("m_svTypeId", svTypeId));
    const std::uint32_t indexId = fields.u32();
    out.push_back(line("m_indexTypeId", indexId));
    out.push_back("m_indexType=" + linkText(get(indexId)));
    number("** Index Type Id = ", indexId, "**", true);
}

/// Name, type id and constraints of a member; the answer is the type id.
std::uint32_t ReferenceLoader::member(Fields& fields, Description& out) {
    const std::string name = fields.name();
    const std::uint32_t typeId = fields.u32();
    item("** Member Name = ", name, "", false);
    number("Member Type Id = ", typeId, "", false);
    item("", "constraints ", " ** ", true);
    out.push_back("member=" + name + " " + textOf(typeId));
    constraintVector(fields, out);
    return typeId;
}

/// Follows what an object in its slot refers to.
void ReferenceLoader::resolve(std::uint32_t id, const char* field,
                              const std::vector<std::uint32_t>& typeIds) {
    for (const std::uint32_t typeId : typeIds)
        m_types[id]->push_back(field + linkText(get(typeId)));
}

void ReferenceLoader::record(std::uint32_t id, Fields& fields) {
    Description out{line("kind", m_file.records[id].kind)};
    common("** Record Type ", fields, out);
    const std::uint32_t kind = fields.u32();
    item("** Record Kind = ", nameOf(RECORD_KIND_NAMES, kind, 0xB0000, "RECORD_KIND_UNKNOWN"),
         " ** ", true);
    out.push_back(line("m_recordKind", kind));
    std::vector<std::uint32_t> memberTypes;
    const std::int32_t count = fields.i32();
    for (std::int32_t i = 0; i < count; ++i)
        memberTypes.push_back(member(fields, out));
    const std::int32_t svTypeId = fields.i32(-99);
    if (svTypeId != -99)
        number("** Struct with SV Type Id = ", svTypeId, " ** ", true);
    out.push_back(line("m_svTypeId", svTypeId));
    if (enter(id, std::move(out)))
        resolve(id, "memberType=", memberTypes);
}

void ReferenceLoader::classType(std::uint32_t id, Fields& fields) {
    Description out{line("kind", m_file.records[id].kind)};
    common("** Class Type ", fields, out);
    const std::uint32_t baseId = fields.u32();
    out.push_back(line("m_baseClassTypeId", baseId));
    out.push_back("m_baseClass=" + linkText(baseId == NO_ID ? Link() : get(baseId)));
    const std::int32_t svTypeId = fields.i32();
    number("** Class with SV Type Id = ", svTypeId, " ** ", true);
    number("** Class derived from ", baseId, " ** ", true);
    out.push_back(line("m_svTypeId", svTypeId));
    std::vector<std::uint32_t> memberTypes;
    const std::int32_t count = fields.i32();
    for (std::int32_t i = 0; i < count; ++i) {
        memberTypes.push_back(member(fields, out));
        out.push_back(line("m_memberFlag", fields.u32() != 0));
    }
    if (!enter(id, std::move(out)))
        return;
    m_classIds.push_back(id);
    resolve(id, "memberType=", memberTypes);
}

} // namespace RTTITest
