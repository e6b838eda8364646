#include "tests/support/TypeTableModel.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <random>
#include <string_view>
#include <utility>

namespace RTTITest {

namespace {

constexpr std::size_t RECORD_HEAD = 8;
constexpr std::uint32_t NO_ID = 0xFFFFFFFF;

constexpr std::uint32_t BUILDING_KINDS[] = {
    SEQ_ENUM_KIND, DISCRETE_ENUM_KIND, INT_KIND,     FLOAT_KIND,       TYPEDEF_KIND,
    ACCESS_KIND,   CHANDLE_KIND,       EVENT_KIND,   FILE_KIND,        PHYSICAL_KIND,
    ARRAY_KIND,    RECORD_KIND,        QUEUE_KIND,   ASSOC_ARRAY_KIND, CLASS_KIND,
    STRING_KIND,   DYNAMIC_ARRAY_KIND, WILDCARD_KIND};
constexpr std::uint32_t LINKING_KINDS[] = {TYPEDEF_KIND, ACCESS_KIND, RECORD_KIND,     CLASS_KIND,
                                           CLASS_KIND,   ARRAY_KIND,  ASSOC_ARRAY_KIND};
constexpr std::uint32_t SLOT_KINDS[] = {ACCESS_KIND, RECORD_KIND, CLASS_KIND};
constexpr std::uint32_t READER_KINDS[] = {TYPEDEF_KIND,       FILE_KIND,  ARRAY_KIND,
                                          DYNAMIC_ARRAY_KIND, QUEUE_KIND, ASSOC_ARRAY_KIND,
                                          DISCRETE_ENUM_KIND};
constexpr std::uint32_t EMPTY_KINDS[] = {0xA000000A, 0xA000000E, 0xA000000F, 0xA0000012,
                                         0xA0000016, 0xA0000001, 0xA0000002, 0xA000001A,
                                         0,          0xFFFFFFFF};

void addToken(TypeFileBuilder& file, const Token& token) {
    switch (token.kind) {
    case TokenKind::NAME: file.str(token.text); break;
    case TokenKind::RAW: file.bytes(token.text); break;
    case TokenKind::U32:
    case TokenKind::I32: file.u32(static_cast<std::uint32_t>(token.bits)); break;
    default: file.i64(static_cast<long long>(token.bits)); break;
    }
}

/// How a file's references are drawn.
enum class Links { ANYWHERE, BACKWARD, FORWARD, NEAR, NEXT };

class FileMaker {
public:
    FileMaker(std::uint64_t seed, unsigned int maxTypes) : m_random(seed) {
        m_count = below(maxTypes) + 1;
        m_links = static_cast<Links>(below(4));
        m_emptyKinds = oneIn(3);
        m_mostlyLinks = oneIn(3);
    }

    FileMaker(std::uint64_t seed, unsigned int types, DeepKinds kinds)
        : m_random(seed), m_count(types), m_links(Links::NEXT), m_emptyKinds(false),
          m_mostlyLinks(true), m_deepKinds(kinds) {}

    ModelFile make();

private:
    // Draws.
    std::uint32_t below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(m_random() % limit);
    }
    bool oneIn(std::uint32_t n) { return below(n) == 0; }
    template <std::size_t N> std::uint32_t oneOf(const std::uint32_t (&list)[N]) {
        return list[below(N)];
    }
    std::uint32_t typeId();
    std::uint32_t nextTypeId();
    std::uint32_t kind();
    std::uint32_t number();
    std::uint32_t svTypeId() { return oneIn(2) ? static_cast<std::uint32_t>(-99) : number(); }
    double real();
    std::string text(std::uint32_t maxLength);

    // Tokens.
    void u32(std::uint32_t v) { m_tokens.push_back({TokenKind::U32, v, {}}); }
    void i32(std::uint32_t v) { m_tokens.push_back({TokenKind::I32, v, {}}); }
    void i64(std::uint64_t v) { m_tokens.push_back({TokenKind::I64, v, {}}); }
    void f64(double v) {
        m_tokens.push_back({TokenKind::F64, std::bit_cast<std::uint64_t>(v), {}});
    }
    void name() { m_tokens.push_back({TokenKind::NAME, 0, text(7)}); }
    void raw(std::size_t count);
    std::uint32_t count();
    void constraint();
    void constraintVector();

    // Bodies.
    void body(std::uint32_t kind);
    void linkBody(std::uint32_t kind);
    void seqEnum();
    void discreteEnum();
    void floatBody();
    void physical();
    void array();
    void record();
    void classBody();
    ModelRecord oneRecord(unsigned int id);
    void lay(ModelFile& file);

    std::mt19937_64 m_random;
    std::uint32_t m_count;
    Links m_links;
    bool m_emptyKinds;
    bool m_mostlyLinks;
    DeepKinds m_deepKinds = DeepKinds::ANY_THAT_LINK;
    bool m_isFirstLink = true;
    std::uint32_t m_id = 0;
    std::vector<Token> m_tokens;
};

/// The first reference of a record leads to the next one, but for a few that part the chain.
std::uint32_t FileMaker::nextTypeId() {
    if (std::exchange(m_isFirstLink, false))
        return oneIn(m_count / 2) ? below(m_count) : m_id + 1;
    if (m_deepKinds == DeepKinds::BASE_CLASSES_THAT_LEAD_BACK)
        return below(3);
    if (oneIn(3))
        return below(m_count + 2);
    return oneIn(2) ? m_id + 1 + below(3) : m_id - std::min(m_id, below(40));
}

std::uint32_t FileMaker::typeId() {
    if (m_links == Links::NEXT)
        return nextTypeId();
    if (oneIn(40))
        return oneIn(2) ? NO_ID : m_count + below(3);
    if (oneIn(8))
        return below(m_count);
    switch (m_links) {
    case Links::BACKWARD: return m_id == 0 ? below(m_count) : below(m_id);
    case Links::FORWARD: return m_id + below(m_count - m_id);
    case Links::NEAR: return (m_id + m_count + below(5) - 2 + m_count) % m_count;
    default: return below(m_count);
    }
}

std::uint32_t FileMaker::number() {
    constexpr std::uint32_t SPECIAL[] = {0, 1, 7, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0xFFFFFFFE};
    return oneIn(2)   ? oneOf(SPECIAL)
           : oneIn(2) ? below(100)
                      : static_cast<std::uint32_t>(m_random());
}

double FileMaker::real() {
    constexpr double SPECIAL[] = {0.0,
                                  -0.0,
                                  1.0,
                                  1.9,
                                  -0.5,
                                  1e300,
                                  -1e300,
                                  2147483647.5,
                                  -2147483648.5,
                                  2147483648.0,
                                  -2147483649.0,
                                  0.1234567,
                                  1e-5,
                                  std::numeric_limits<double>::quiet_NaN(),
                                  std::numeric_limits<double>::infinity()};
    if (oneIn(2))
        return SPECIAL[below(std::size(SPECIAL))];
    return (static_cast<double>(m_random() % 2000001) - 1000000.0) / (below(1000) + 1);
}

std::string FileMaker::text(std::uint32_t maxLength) {
    std::string out;
    for (std::uint32_t length = below(maxLength + 1); length > 0; --length)
        out.push_back(static_cast<char>(oneIn(20) ? 128 + below(128) : 33 + below(94)));
    return out;
}

void FileMaker::raw(std::size_t count) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes.push_back(static_cast<char>(below(256)));
    m_tokens.push_back({TokenKind::RAW, 0, bytes});
}

/// A count field; the answer says how many entries have to follow it.
std::uint32_t FileMaker::count() {
    if (m_links != Links::NEXT && oneIn(12)) {
        i32(static_cast<std::uint32_t>(-1) - below(5));
        return 0;
    }
    const std::uint32_t entries = m_links == Links::NEXT ? 1 + below(2) : below(4);
    i32(entries);
    return entries;
}

void FileMaker::constraint() {
    for (int i = 0; i < 3; ++i)
        i32(number());
}

void FileMaker::constraintVector() {
    const std::uint32_t entries = below(3);
    u32(entries);
    for (std::uint32_t i = 0; i < entries; ++i)
        constraint();
}

void FileMaker::seqEnum() {
    i32(below(6));
    i32(below(8));
    for (std::uint32_t entries = count(); entries > 0; --entries)
        name();
    i32(number());
}

void FileMaker::discreteEnum() {
    u32(typeId());
    std::uint32_t entries = count();
    const bool negative = oneIn(10);
    const std::uint32_t size = negative ? 0 : below(5);
    i32(negative ? static_cast<std::uint32_t>(-3) : size);
    for (; entries > 0; --entries) {
        name();
        raw(size);
    }
    constraintVector();
}

void FileMaker::floatBody() {
    i32(oneIn(4) ? number() : below(6));
    for (int i = 0; i < 3; ++i)
        f64(real());
}

void FileMaker::physical() {
    for (std::uint32_t entries = count(); entries > 0; --entries) {
        name();
        i64(oneIn(2) ? below(1000) : m_random());
    }
}

void FileMaker::array() {
    u32(oneIn(8) ? number() : 0xA00000 + below(10));
    u32(typeId());
    for (std::uint32_t entries = count(); entries > 0; --entries)
        u32(typeId());
    constraintVector();
    i32(svTypeId());
}

void FileMaker::record() {
    u32(oneIn(8) ? number() : 0xB0000 + below(11));
    for (std::uint32_t entries = count(); entries > 0; --entries) {
        name();
        u32(typeId());
        constraintVector();
    }
    i32(svTypeId());
}

void FileMaker::classBody() {
    const bool isBase = m_deepKinds != DeepKinds::BASE_CLASSES_THAT_LEAD_BACK && oneIn(3);
    u32(isBase ? NO_ID : typeId());
    i32(svTypeId());
    for (std::uint32_t entries = count(); entries > 0; --entries) {
        name();
        u32(typeId());
        constraintVector();
        u32(oneIn(2) ? 0 : number());
    }
}

void FileMaker::linkBody(std::uint32_t kind) {
    u32(typeId());
    if (kind == TYPEDEF_KIND)
        return constraintVector();
    if (kind == ACCESS_KIND || kind == FILE_KIND) {
        u32(below(0x7FFFFFFF));
        u32(below(64));
        return;
    }
    i32(svTypeId());
    if (kind == ASSOC_ARRAY_KIND)
        u32(typeId());
}

void FileMaker::body(std::uint32_t kind) {
    switch (kind) {
    case SEQ_ENUM_KIND: return seqEnum();
    case DISCRETE_ENUM_KIND: return discreteEnum();
    case INT_KIND: return constraint();
    case FLOAT_KIND: return floatBody();
    case EVENT_KIND: return i32(oneIn(4) ? number() : below(3));
    case PHYSICAL_KIND: return physical();
    case ARRAY_KIND: return array();
    case RECORD_KIND: return record();
    case CLASS_KIND: return classBody();
    case TYPEDEF_KIND:
    case ACCESS_KIND:
    case FILE_KIND:
    case DYNAMIC_ARRAY_KIND:
    case QUEUE_KIND:
    case ASSOC_ARRAY_KIND: return linkBody(kind);
    default: return;
    }
}

std::uint32_t FileMaker::kind() {
    if (m_links != Links::NEXT)
        return m_emptyKinds && oneIn(12)   ? oneOf(EMPTY_KINDS)
               : m_mostlyLinks && oneIn(2) ? oneOf(LINKING_KINDS)
                                           : oneOf(BUILDING_KINDS);
    switch (m_deepKinds) {
    case DeepKinds::RESOLVED_IN_THE_SLOT: return oneOf(SLOT_KINDS);
    case DeepKinds::RESOLVED_BY_THE_READER: return oneOf(READER_KINDS);
    case DeepKinds::BASE_CLASSES_THAT_LEAD_BACK: return CLASS_KIND;
    default: return oneOf(LINKING_KINDS);
    }
}

ModelRecord FileMaker::oneRecord(unsigned int id) {
    m_id = id;
    m_isFirstLink = true;
    m_tokens.clear();
    ModelRecord made;
    made.kind = kind();
    name();
    u32(number());
    body(made.kind);
    if (oneIn(12))
        raw(below(9)); // More bytes than the kind has fields.
    made.tokens = m_tokens;
    made.size = RECORD_HEAD;
    for (const Token& token : made.tokens)
        made.size += token.width();
    if (m_links != Links::NEXT && oneIn(4))
        made.size = RECORD_HEAD + m_random() % (made.size - RECORD_HEAD + 1);
    return made;
}

/// Places the records in any order and with gaps.
void FileMaker::lay(ModelFile& file) {
    file.baseOffset = below(64);
    std::vector<std::size_t> gaps{below(16)};
    std::vector<std::size_t> order(m_count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::shuffle(order.begin(), order.end(), m_random);
    for (std::uint32_t id = 0; id < m_count; ++id)
        gaps.push_back(below(4));
    const TypeFileBuilder built = builderOf(file)
                                      .version("TYPE FILE of the model")
                                      .base(file.baseOffset)
                                      .arrange(order, gaps);
    file.addresses = built.addresses();
    file.addressTableOffset = static_cast<std::uint32_t>(file.addresses.back());
    file.addresses.pop_back();
    const std::string image = built.image();
    file.bytes.assign(image.begin(), image.end());
}

ModelFile FileMaker::make() {
    ModelFile file;
    for (unsigned int id = 0; id < m_count; ++id)
        file.records.push_back(oneRecord(id));
    lay(file);
    return file;
}

} // namespace

std::size_t Token::width() const {
    switch (kind) {
    case TokenKind::U32:
    case TokenKind::I32: return 4;
    case TokenKind::F64:
    case TokenKind::I64: return 8;
    case TokenKind::NAME: return text.size() + 1;
    default: return text.size();
    }
}

TypeFileBuilder builderOf(const ModelFile& file) {
    TypeFileBuilder built;
    for (const ModelRecord& record : file.records) {
        const auto& tokens = record.tokens; // The name and the flags are the first two.
        built.record(record.kind, tokens[0].text, static_cast<unsigned int>(tokens[1].bits));
        for (std::size_t i = 2; i < tokens.size(); ++i)
            addToken(built, tokens[i]);
        built.cut(record.size);
    }
    return built;
}

ModelFile randomFile(std::uint64_t seed, unsigned int maxTypes) {
    return FileMaker(seed, maxTypes).make();
}

ModelFile deepFile(std::uint64_t seed, unsigned int types, DeepKinds kinds) {
    return FileMaker(seed, types, kinds).make();
}

} // namespace RTTITest
