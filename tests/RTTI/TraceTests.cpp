// The trace of every kind, written out by hand.

#include "tests/support/TypeFileBuilder.h"

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <locale>
#include <streambuf>

namespace {

using namespace RTTI;

const std::string LINE = " ===============================================  \n";

std::string begin(int id) {
    return LINE + "**** Type Id  =  " + std::to_string(id) + "   begin ****  \n";
}

std::string end(int id) {
    return "**** Type Id  =  " + std::to_string(id) + "   end ****  \n" + LINE;
}

std::string block(int id, const std::string& fields) { return begin(id) + fields + end(id); }

TEST(Trace, NarratesScalars) {
    TypeFileBuilder file;
    file.record(0xA0000005, "int").range(-2147483647 - 1, 2147483647, 1);
    file.record(0xA0000006, "real", 5).i32(1).f64(-1e30).f64(0.123456789).f64(1.0);
    file.record(0xA0000009, "chandle");
    file.record(0xA000000B, "event").i32(1);
    file.record(0xA0000018, "string");
    file.record(0xA0000019, "any", 16);
    const std::string expected =
        block(0, " ** Built in Int Type   Type name =  int  , flags =  0  **  \n"
                 "** constraints : si= -2147483648  , ei= 2147483647  , dir= 1  \n") +
        block(1, " ** Built in Real Type   Type name =  real  , flags =  5  **  \n"
                 "** constraints : left= -1e+30  , right= 0.123457  , dir= 1  \n") +
        block(2, " ** Built in String Type   Type name =  chandle  , flags =  0  **  \n") +
        block(3, " ** Built in Event Type   Type name =  event  , flags =  0  **  \n") +
        block(4, " ** Built in String Type   Type name =  string  , flags =  0  **  \n") +
        block(5, " ** WildCard Type   Type name =  any  , flags =  16  **  \n");
    EXPECT_EQ(LoadedTypes(file, false).trace(), expected);
}

TEST(Trace, NarratesEnumerations) {
    TypeFileBuilder file;
    file.record(0xA0000003, "bit").i32(1).i32(2).i32(2).str("'0'").str("'1'").i32(1);
    file.record(0xA0000003, "odd").i32(4).i32(6).i32(0).i32(-1);
    file.record(0xA0000004, "e")
        .u32(0)
        .i32(1)
        .i32(2)
        .str("A")
        .bytes("\x01\xFF")
        .u32(1)
        .range(3, 0, 0);
    const std::string expected =
        block(0, " ** Sequential Enum   Type name =  bit  , flags =  0  **  \n"
                 "  Encoding:  2-State  \n"
                 "  Kind:  VHDL_BIT_ENUM  \n"
                 "** Enumerator[ 0 ] =   '0'  \n"
                 "** Enumerator[ 1 ] =   '1'  \n"
                 "**  Size:  1  \n") +
        block(1, " ** Sequential Enum   Type name =  odd  , flags =  0  **  \n"
                 "  Encoding:  <Bad Encoding>  \n"
                 "  Kind:  <Bad Kind>  \n"
                 "**  Size:  -1  \n") +
        block(2, " ** Discrete Enum Type   Type name =  e  , flags =  0  **  \n"
                 "** Base Type ID =  0  **  \n"
                 "** Number of enumerators =  1  **  \n"
                 "** Size of enumerators =  2  **  \n"
                 "** Enumerator[ 0 ] =   A  (value, byte by byte =   1    -1    )  \n"
                 " ++  constraint[  0 ] ** constraints : si= 3  , ei= 0  , dir= 0  \n");
    EXPECT_EQ(LoadedTypes(file, false).trace(), expected);
}

TEST(Trace, NarratesUnitsOnOneLine) {
    TypeFileBuilder file;
    file.record(0xA000000D, "time").i32(2).str("fs").i64(1).str("s").i64(-4294967296);
    file.record(0xA000000D, "none");
    const std::string expected =
        begin(0) +
        " ** Physical Type   Type name =  time  , flags =  0  **  \n"
        "** Number of units =  2  **  \n"
        "** Unit[ 0 ] =   fs  value =   1   ** Unit[ 1 ] =   s  value =   -4294967296   " +
        end(0) +
        block(1, " ** Physical Type   Type name =  none  , flags =  0  **  \n"
                 "** Number of units =  0  **  \n");
    EXPECT_EQ(LoadedTypes(file, false).trace(), expected);
}

TEST(Trace, NarratesReferencesInTheOrderOfTheirReading) {
    TypeFileBuilder file;
    file.record(0xA0000008, "ptr").u32(2).u32(8).u32(4);
    file.record(0xA000000C, "file").u32(3).u32(1).u32(2);
    file.record(0xA0000007, "alias").u32(3).u32(1).range(0, 15, 1);
    file.record(0xA0000018, "text");
    const std::string text =
        block(3, " ** Built in String Type   Type name =  text  , flags =  0  **  \n");
    const std::string expected =
        block(0, " ** Access Type   Type name =  ptr  , flags =  0  **  \n"
                 "** Ref Type Id =  2  **  \n"
                 "** Alignment =  8  **  \n"
                 "** Value Size =  4  **  \n" +
                     block(2, " ** Typedef Type   Type name =  alias  , flags =  0  **  \n"
                              "** Data Type Id =  3  **  \n" +
                                  text +
                                  " ++  constraint[  0 ] ** constraints : si= 0  , ei= 15  , "
                                  "dir= 1  \n")) +
        block(1, " ** File Type   Type name =  file  , flags =  0  **  \n"
                 "** Ref Type Id =  3  **  \n"
                 "** Alignment =  1  **  \n"
                 "** Value Size =  2  **  \n");
    EXPECT_EQ(LoadedTypes(file, false).trace(), expected);
}

TEST(Trace, ReadsAFilesElementTypeAfterTheFilesOwnLines) {
    TypeFileBuilder file;
    file.record(0xA000000C, "file").u32(1).u32(0).u32(0).record(0xA0000018, "text");
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_NE(trace.find("** Value Size =  0  **  \n" + begin(1)), std::string::npos) << trace;
}

TEST(Trace, NarratesArrays) {
    TypeFileBuilder file;
    file.record(0xA0000018, "s");
    file.record(0xA0000010, "a").u32(0xA00001).u32(0).i32(2).u32(7).u32(9).u32(0).i32(5);
    file.record(0xA0000013, "d").u32(0).i32(-99);
    file.record(0xA0000014, "q").u32(0).i32(8);
    file.record(0xA0000015, "m").u32(0).i32(9).u32(0);
    const std::string expected =
        block(0, " ** Built in String Type   Type name =  s  , flags =  0  **  \n") +
        block(1, " ** Array Type   Type name =  a  , flags =  0  **  \n"
                 "** Array Kind =  VHDL_ARRAY  **  \n"
                 "** Element Type Id =  0  **  \n"
                 "** indexId[ 0 ] =   7  **  \n"
                 "** indexId[ 1 ] =   9  **  \n"
                 "** Array SV Type Id =  5  **  \n") +
        block(2, " ** SV Dynamic Array Type   Type name =  d  , flags =  0  **  \n"
                 "** Element Type Id =  0 ** \n"
                 "** Dynamic Array SV Type Id =  -99  **  \n") +
        block(3, " ** SV Queue Type   Type name =  q  , flags =  0  **  \n"
                 "** Queue SV Type Id =  8  **  \n"
                 "** Element Type Id =  0 ** \n") +
        block(4, " ** SV Associative Array Type   Type name =  m  , flags =  0  **  \n"
                 "** Element Type Id =  0 ** \n"
                 "** Associative Array SV Type Id =  9  **  \n"
                 "** Index Type Id =  0 ** \n");
    EXPECT_EQ(LoadedTypes(file, false).trace(), expected);
}

TEST(Trace, NarratesAggregates) {
    TypeFileBuilder file;
    file.record(0xA0000018, "s");
    file.record(0xA0000011, "r").u32(0xB0008).i32(1).str("m").u32(0).u32(1).range(1, 0, 0).i32(0);
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(12).i32(1).str("").u32(0).u32(0).u32(7);
    const std::string expected =
        block(0, " ** Built in String Type   Type name =  s  , flags =  0  **  \n") +
        block(1, " ** Record Type   Type name =  r  , flags =  0  **  \n"
                 "** Record Kind =  BYTE_UNPADDED_STRUCT  **  \n"
                 "** Member Name =  m  Member Type Id =  0   constraints   **  \n"
                 " ++  constraint[  0 ] ** constraints : si= 1  , ei= 0  , dir= 0  \n"
                 "** Struct with SV Type Id =  0  **  \n") +
        block(2, " ** Class Type   Type name =  c  , flags =  0  **  \n"
                 "** Class with SV Type Id =  12  **  \n"
                 "** Class derived from  4294967295  **  \n"
                 "** Member Name =    Member Type Id =  0   constraints   **  \n");
    EXPECT_EQ(LoadedTypes(file, false).trace(), expected);
}

TEST(Trace, LeavesOutTheSVTypeIdOfArraysAndStructsThatHaveNone) {
    TypeFileBuilder file;
    file.record(0xA0000018, "s");
    file.record(0xA0000010, "a").u32(0xA00008).u32(0).i32(0).u32(0).i32(-99);
    file.record(0xA0000011, "r").u32(0xB0009).i32(0).i32(-99);
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_EQ(trace.find("SV Type Id"), std::string::npos) << trace;
    EXPECT_NE(trace.find("** Array Kind =  ARRAY_KIND_UNKNOWN  **  \n"), std::string::npos);
    EXPECT_NE(trace.find("** Record Kind =  RECORD_KIND_UNKNOWN  **  \n"), std::string::npos);
}

TEST(Trace, NarratesARecordThatBuildsNothingEachTime) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA000000E, "x"), false);
    const std::string once = types.trace();
    EXPECT_EQ(once, begin(0) + end(0));
    EXPECT_EQ(types.trace(), once);
}

/// Puts a point after every digit.
class Grouped : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\1"; }
};

TEST(Trace, IsTheSameInEveryLocale) {
    TypeFileBuilder file;
    file.record(0xA0000005, "int").range(1000, 2000, 1);
    const std::string expected = LoadedTypes(file, false).trace();
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new Grouped));
    const std::string trace = LoadedTypes(file, false).trace();
    std::locale::global(before);
    EXPECT_EQ(trace, expected);
    EXPECT_NE(trace.find("si= 1000  "), std::string::npos);
}

TEST(Trace, IsSilentWhenOff) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(1).i32(1).str("m").u32(1).u32(0).u32(1);
    file.integer("int");
    const CapturedOutput output;
    const LoadedTypes types(file);
    EXPECT_EQ(output.text(), "");
}

/// The standard output as one that takes nothing, and throws.
class FailingOutput : std::streambuf {
public:
    FailingOutput() : m_former(std::cout.rdbuf(this)) { std::cout.exceptions(std::ios::badbit); }
    FailingOutput(const FailingOutput&) = delete;
    FailingOutput& operator=(const FailingOutput&) = delete;
    ~FailingOutput() override {
        std::cout.exceptions(std::ios::goodbit);
        std::cout.rdbuf(m_former);
    }

private:
    std::streambuf* m_former;
};

TEST(Trace, LoadGoesOnWhereTheOutputFails) {
    TypeFileBuilder file;
    file.record(0xA0000018, "string");
    LoadedTypes types(file, false);
    types.manager().setDebugMode();
    const FailingOutput output;
    ASSERT_NE(types[0], nullptr);
    EXPECT_STREQ(types[0]->m_name, "string");
    EXPECT_TRUE(std::cout.bad());
}

/// Storage that runs an action just before the read with a given number.
class ActingStorage : public RecordingBlockManager {
public:
    ActingStorage(std::string image, std::size_t number, std::function<void()> action)
        : RecordingBlockManager(std::move(image)), m_number(number), m_action(std::move(action)) {}
    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (m_done++ == m_number)
            m_action();
        return RecordingBlockManager::read(offset, buffer, count);
    }

private:
    std::size_t m_number;
    std::size_t m_done = 0;
    std::function<void()> m_action;
};

TEST(TraceSwitch, TakesEffectInTheMiddleOfARecord) {
    RTTypeManager manager;
    TypeFileBuilder file;
    file.string("s"); // Two reads of the setup, then size, kind and record.
    ActingStorage storage(file.image(), 4, [&] { manager.setDebugMode(); });
    const CapturedOutput output;
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    EXPECT_EQ(output.text(), " ** Built in String Type   Type name =  s  , flags =  0  **  \n"
                             "**** Type Id  =  0   end ****  \n"
                             " ===============================================  \n");
}

TEST(TraceSwitch, FailedOutputDoesNotDisturbTheLoad) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(1).str("m").u32(1).u32(0).i32(4).integer("i");
    LoadedTypes types(file, false);
    const CapturedOutput output;
    std::cout.setstate(std::ios::badbit);
    types.manager().setDebugMode();
    const RTBaseType* last = types.manager().readAllRTTypes();
    std::cout.clear();
    EXPECT_EQ(last, types[1]);
    EXPECT_EQ(types[0]->getSVTypeId(), 4);
    EXPECT_EQ(output.text(), "");
}

} // namespace
