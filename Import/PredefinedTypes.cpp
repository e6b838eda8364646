#include "Import/PredefinedTypes.h"

#include "TypeFile/TypeBuilding.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace Import {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

struct Vector {
    std::string_view word;
    unsigned int bits;
    bool isFourState;
    bool isSigned;
};

constexpr std::array VECTORS = {
    Vector{"byte", 8, false, true},    Vector{"shortint", 16, false, true},
    Vector{"int", 32, false, true},    Vector{"longint", 64, false, true},
    Vector{"integer", 32, true, true}, Vector{"time", 64, true, false},
};

/// The flavour of real that reals of SystemVerilog have.
constexpr int REAL_KIND = 1;

const Vector* findVector(std::string_view word) {
    const auto* const found = std::find_if(VECTORS.begin(), VECTORS.end(),
                                           [=](const Vector& v) { return v.word == word; });
    return found == VECTORS.end() ? nullptr : found;
}

bool isFourStateBit(std::string_view word) {
    return word == "logic" || word == "LOGIC_IMPLICIT" || word == "reg";
}

std::unique_ptr<RTBaseType> bitType(bool isFourState) {
    auto type = std::make_unique<RTSeqEnumType>();
    TypeFile::setName(*type, isFourState ? "logic" : "bit");
    type->m_enumKind = VLOG_BUILTIN_ENUM;
    type->m_valueEncoding = isFourState ? ENCODING_4_STATE : ENCODING_2_STATE;
    type->m_valueSize = 1;
    for (const char* const literal : {"0", "1"})
        TypeFile::addLiteral(*type, literal);
    if (isFourState) {
        TypeFile::addLiteral(*type, "X");
        TypeFile::addLiteral(*type, "Z");
    }
    return type;
}

std::unique_ptr<RTBaseType> vectorType(const Vector& vector, const NeedType& need) {
    auto type = std::make_unique<RTArrayType>();
    TypeFile::setName(*type, vector.word);
    type->m_arrayKind = VLOG_FIXED_PACKED_ARRAY;
    type->m_elementTypeId = need(vector.isFourState ? "logic" : "bit");
    const bool isIndexType = vector.word == "int"; // It would need itself.
    addDimension(*type, static_cast<int>(vector.bits) - 1, 0,
                 isIndexType ? NO_TYPE_ID : need("int"));
    return type;
}

std::unique_ptr<RTBaseType> realType() {
    auto type = std::make_unique<RTFloatType>();
    type->m_floatKind = REAL_KIND;
    type->m_left = std::numeric_limits<double>::lowest();
    type->m_right = std::numeric_limits<double>::max();
    type->m_direction = TO_DIRECTION;
    return type;
}

} // namespace

bool isPredefined(const std::string& word) {
    constexpr std::array<std::string_view, 6> OTHERS = {"bit",   "string",  "real",
                                                        "event", "chandle", "*"};
    return isFourStateBit(word) || findVector(word) != nullptr ||
           std::find(OTHERS.begin(), OTHERS.end(), word) != OTHERS.end();
}

bool hasOwnRange(const std::string& word) { return !isFourStateBit(word) && word != "bit"; }

unsigned int bitsOf(const std::string& word) {
    const Vector* const vector = findVector(word);
    return vector == nullptr ? 0 : vector->bits;
}

bool isSignedByItself(const std::string& word) {
    const Vector* const vector = findVector(word);
    return vector != nullptr && vector->isSigned;
}

bool isFourState(const std::string& word) {
    const Vector* const vector = findVector(word);
    return vector == nullptr ? isFourStateBit(word) : vector->isFourState;
}

std::unique_ptr<RTBaseType> predefinedType(const std::string& word, const NeedType& need) {
    if (word == "bit" || isFourStateBit(word))
        return bitType(word != "bit");
    if (const Vector* const vector = findVector(word))
        return vectorType(*vector, need);
    std::unique_ptr<RTBaseType> type;
    if (word == "string")
        type = std::make_unique<RTStringType>();
    else if (word == "real")
        type = realType();
    else if (word == "event")
        type = std::make_unique<RTEventType>();
    else if (word == "chandle")
        type = std::make_unique<RTCHandle>();
    else
        type = std::make_unique<RTWildCardType>();
    TypeFile::setName(*type, word);
    return type;
}

void addDimension(RTArrayType& array, int left, int right, unsigned int indexTypeId) {
    array.m_indexTypeIds.push_back(indexTypeId);
    array.m_constraints.push_back({left, right, left > right ? DOWNTO_DIRECTION : TO_DIRECTION});
}

} // namespace Import
