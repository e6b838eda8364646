// The writer of types in the JSON form: its two forms, and the values that JSON has no form for.

#include "Inspect/json/TypeJsonWriter.h"
#include "RTTI/RTType.h"
#include "TypeFile/TypeBuilding.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>

namespace {

using namespace Inspect;
using namespace RTTI;

template <typename Type> struct Named : Type {
    explicit Named(const char* name) { TypeFile::setName(*this, name); }
};

/// A type as a line, without the head that comes first.
std::string lineOf(const RTBaseType& type) {
    std::ostringstream out;
    TypeJsonWriter writer(out, JsonForm::LINES, "");
    out.str("");
    writer.type(7, type);
    return out.str();
}

/// A real with these bounds, and the JSON of the bounds.
std::string boundsOf(double left, double right) {
    Named<RTFloatType> type("r");
    type.m_left = left;
    type.m_right = right;
    const std::string line = lineOf(type);
    const std::size_t begin = line.find("\"left\"");
    return line.substr(begin, line.find(",\"direction\"") - begin);
}

TEST(TypeJsonWriter, WritesOneDocumentWithATypeALine) {
    std::ostringstream out;
    TypeJsonWriter writer(out, JsonForm::DOCUMENT, "V 1");
    writer.type(3, Named<RTStringType>("s"));
    writer.noType(9, 0xA000000E);
    writer.end();
    EXPECT_EQ(out.str(),
              "{\"format\":\"HDL simulator types\",\"formatVersion\":1,\"version\":\"V 1\","
              "\"types\":[\n"
              "{\"id\":3,\"kind\":\"string\",\"name\":\"s\",\"flags\":0},\n"
              "{\"id\":9,\"kind\":\"none\",\"kindCode\":2684354574}\n"
              "]}\n");
}

TEST(TypeJsonWriter, WritesAnObjectALine) {
    std::ostringstream out;
    TypeJsonWriter writer(out, JsonForm::LINES, "V 1");
    writer.type(3, Named<RTStringType>("s"));
    writer.type(4, Named<RTStringType>("t"));
    writer.end();
    EXPECT_EQ(out.str(),
              "{\"format\":\"HDL simulator types\",\"formatVersion\":1,\"version\":\"V 1\"}\n"
              "{\"id\":3,\"kind\":\"string\",\"name\":\"s\",\"flags\":0}\n"
              "{\"id\":4,\"kind\":\"string\",\"name\":\"t\",\"flags\":0}\n");
}

TEST(TypeJsonWriter, SaysThatNotAllTypesFollow) {
    std::ostringstream out;
    TypeJsonWriter(out, JsonForm::DOCUMENT, "", true).end();
    EXPECT_EQ(out.str(), "{\"format\":\"HDL simulator types\",\"formatVersion\":1,\"version\":\"\","
                         "\"isPart\":true,\"types\":[\n]}\n");
}

TEST(TypeJsonWriter, WritesAsciiAlone) {
    EXPECT_EQ(lineOf(Named<RTStringType>("caf\xC3\xA9 \"\x1B\\")),
              "\n{\"id\":7,\"kind\":\"string\",\"name\":\"caf\\u00e9 \\\"\\u001b\\\\\","
              "\"flags\":0}");
}

TEST(TypeJsonWriter, WritesCharactersBehindTheFirst65536AsTwoUnits) {
    // U+1F600, and the first and last of them all.
    const std::string line =
        lineOf(Named<RTStringType>("\xF0\x9F\x98\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
    EXPECT_NE(line.find("\"name\":\"\\ud83d\\ude00\\ud800\\udc00\\udbff\\udfff\""),
              std::string::npos)
        << line;
}

TEST(TypeJsonWriter, EscapesTheCharactersThatJsonTextMustNotHave) {
    for (char c = 1; c > 0; c = static_cast<char>(c + 1)) {
        const bool isEscaped = c < ' ' || c == '"' || c == '\\' || c == '\x7F';
        const std::string line = lineOf(Named<RTStringType>((std::string("a") + c).c_str()));
        EXPECT_EQ(line.find(std::string("\"a") + c + '"') == std::string::npos, isEscaped) << line;
        EXPECT_EQ(nlohmann::json::parse(line)["name"], std::string("a") + c) << line;
        if (c == '\x7F')
            break;
    }
}

TEST(TypeJsonWriter, WritesTheNumbersAtTheEndsOfTheirRanges) {
    Named<RTPhysicalType> type("p");
    type.m_flags = 0xFFFFFFFF;
    TypeFile::addUnit(type, "low", std::numeric_limits<long long>::min());
    TypeFile::addUnit(type, "high", std::numeric_limits<long long>::max());
    EXPECT_EQ(lineOf(type), "\n{\"id\":7,\"kind\":\"physical\",\"name\":\"p\",\"flags\":4294967295,"
                            "\"units\":[{\"name\":\"low\",\"value\":-9223372036854775808},"
                            "{\"name\":\"high\",\"value\":9223372036854775807}]}");
    Named<RTIntType> integer("i");
    integer.m_constraint = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), -1};
    EXPECT_NE(lineOf(integer).find("{\"si\":-2147483648,\"ei\":2147483647,\"dir\":-1}"),
              std::string::npos);
}

TEST(TypeJsonWriter, WritesAMemberThatIsNotThereWithoutFields) {
    Named<RTRecordType> type("r");
    type.m_members = {nullptr, nullptr};
    EXPECT_NE(lineOf(type).find("\"members\":[{},{}],"), std::string::npos) << lineOf(type);
}

TEST(TypeJsonWriter, WritesNamesThatAreNoUtf8InHexadecimal) {
    // Cut short, overlong, a surrogate, past the last character, a byte that begins nothing.
    for (const char* const name :
         {"\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"}) {
        EXPECT_NE(lineOf(Named<RTStringType>(name)).find("\"name\":{\"hex\":\""), std::string::npos)
            << testing::PrintToString(name);
    }
    EXPECT_NE(lineOf(Named<RTStringType>("\xED\xA0\x80")).find("{\"hex\":\"eda080\"}"),
              std::string::npos);
}

TEST(TypeJsonWriter, WritesBoundsThatReadBackBitForBit) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    EXPECT_EQ(boundsOf(0.1, -0.0), "\"left\":0.1,\"right\":-0.0");
    EXPECT_EQ(boundsOf(INFINITE, -INFINITE), "\"left\":\"Infinity\",\"right\":\"-Infinity\"");
    const std::uint64_t bits = 0x7FF8000000000123;
    double notANumber = 0;
    std::memcpy(&notANumber, &bits, sizeof bits);
    EXPECT_EQ(boundsOf(5e-324, notANumber), "\"left\":5e-324,\"right\":\"7ff8000000000123\"");
}

TEST(TypeJsonWriter, WritesValuesOutsideTheirTablesAsNumbers) {
    Named<RTSeqEnumType> type("e");
    type.m_valueEncoding = static_cast<ValueEncoding>(-1);
    type.m_enumKind = VHDL_STD_LOGIC_ENUM;
    TypeFile::addLiteral(type, "'U'");
    EXPECT_EQ(lineOf(type), "\n{\"id\":7,\"kind\":\"seqEnum\",\"name\":\"e\",\"flags\":0,"
                            "\"encoding\":-1,\"enumKind\":\"VHDL_STD_LOGIC_ENUM\","
                            "\"literals\":[\"'U'\"],\"valueSize\":" +
                                std::to_string(type.m_valueSize) + "}");
    Named<RTRecordType> record("r");
    record.m_recordKind = static_cast<RecordKind>(0xB0009);
    EXPECT_NE(lineOf(record).find("\"recordKind\":720905,"), std::string::npos);
}

TEST(TypeJsonWriter, WritesReferencesToNoTypeAsNull) {
    Named<RTClassType> type("c");
    type.m_baseClassTypeId = 0xFFFFFFFF;
    type.m_svTypeId = 5;
    TypeFile::addMember(type, "m", 8, {{3, 0, 0}}, true);
    EXPECT_EQ(lineOf(type),
              "\n{\"id\":7,\"kind\":\"class\",\"name\":\"c\",\"flags\":0,\"baseClass\":null,"
              "\"svTypeId\":5,\"members\":[{\"name\":\"m\",\"type\":8,\"constraints\":[{\"si\":3,"
              "\"ei\":0,\"dir\":0}],\"flag\":true}]}");
    Named<RTArrayType> array("a");
    array.m_indexTypeIds = {0xFFFFFFFF, 2};
    EXPECT_NE(lineOf(array).find("\"indexTypes\":[null,2]"), std::string::npos);
}

} // namespace
