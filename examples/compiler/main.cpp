// The compiler's side: builds the types of a small design and writes them to a type file.
//
//   write_types FILE

#include <RTTI/CTType.h>
#include <TypeFile/TypeBuilding.h>
#include <TypeFile/TypeFileWriter.h>

#include <exception>
#include <iostream>

using namespace RTTI;
using namespace TypeFile;

namespace {

// The ids of the design's types. A type may refer to one that comes later.
enum TypeId : unsigned int { LOGIC, INTEGER, BYTE, STATE, PACKET, PACKETS, FIFO, DRIVER };

constexpr FullConstraints BYTE_RANGE{7, 0, TypeFileFormat::DOWNTO_DIRECTION};

void addTypes(TypeFileWriter& file) {
    CTSeqEnumType logic;
    setName(logic, "logic");
    logic.m_valueEncoding = ENCODING_4_STATE;
    logic.m_enumKind = VLOG_BUILTIN_ENUM;
    logic.m_valueSize = 1;
    for (const char* literal : {"0", "1", "z", "x"})
        addLiteral(logic, literal);
    file.add(LOGIC, logic);

    CTIntType integer;
    setName(integer, "integer");
    integer.m_constraint = {-2147483647 - 1, 2147483647, TypeFileFormat::TO_DIRECTION};
    file.add(INTEGER, integer);

    CTArrayType byte("byte_t", VLOG_FIXED_PACKED_ARRAY, LOGIC, INTEGER);
    byte.m_constraints = {BYTE_RANGE};
    file.add(BYTE, byte);

    // enum logic [7:0] {IDLE, BUSY}: a value for each literal, the least significant byte first.
    CTDiscreteEnumType state;
    setName(state, "state_e");
    state.m_baseTypeId = BYTE;
    addLiteral(state, "IDLE", std::string_view("\0", 1));
    addLiteral(state, "BUSY", std::string_view("\1", 1));
    file.add(STATE, state);

    CTRecordType packet;
    setName(packet, "packet_t");
    packet.m_recordKind = VLOG_UNPACKED_STRUCT;
    addMember(packet, "length", BYTE);
    addMember(packet, "state", STATE);
    file.add(PACKET, packet);

    file.add(PACKETS, CTDynamicArrayType("packets", PACKET));
    file.add(FIFO, CTQueueType("fifo", PACKET));

    // There is no compile-time class for classes: the run-time class does.
    RTClassType driver;
    setName(driver, "driver");
    addMember(driver, "next", DRIVER);
    addMember(driver, "queue", FIFO);
    addMember(driver, "sent", PACKETS);
    file.add(DRIVER, driver);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: write_types FILE\n";
        return 2;
    }
    try {
        TypeFileWriter file;
        addTypes(file);
        file.finishFile(argv[1]);
        std::cout << argv[1] << ": " << file.typeCount() << " types\n";
        return 0;
    } catch (const WriteError& error) { // The table is at fault.
        std::cerr << error.what() << '\n';
        return 1;
    } catch (const std::exception& error) { // The file could not be written.
        std::cerr << error.what() << '\n';
        return 2;
    }
}
