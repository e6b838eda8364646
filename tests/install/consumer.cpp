// A program of somebody else's: all it has are the public headers and the shared library.

#include <OVAT/IBlockManager.h>
#include <RTTI/CTType.h>
#include <RTTI/ConstraintStack.h>
#include <RTTI/RTType.h>
#include <RTTI/RTTypeManager.h>
#include <RTTI/RTTypeVisitor.h>
#include <RTTI/Version.h>

#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// Forty bytes of a type file without types.
class EmptyFile : public OVAT::IBlockManager {
public:
    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (offset != 0 || count != 40)
            throw std::out_of_range("nothing but a header");
        std::memset(buffer, 0, static_cast<std::size_t>(count));
        std::memcpy(buffer, "TYPES", 5);
        return true;
    }
};

/// Counts arrays and structs; everything else is "other".
class Counter : public RTTI::RTTypeVisitor {
public:
    bool visit(const RTTI::RTArrayType&) override { return ++m_arrays > 0; }
    bool visit(const RTTI::RTRecordType&) override { return ++m_records > 0; }
    bool visit(const RTTI::RTBaseType&) override { return false; }
    bool visit(const RTTI::RTEnumType&) override { return false; }
    bool visit(const RTTI::RTSeqEnumType&) override { return false; }
    bool visit(const RTTI::RTDiscreteEnumType&) override { return false; }
    bool visit(const RTTI::RTIntType&) override { return false; }
    bool visit(const RTTI::RTFloatType&) override { return false; }
    bool visit(const RTTI::RTTypedefType&) override { return false; }
    bool visit(const RTTI::RTAccessType&) override { return false; }
    bool visit(const RTTI::RTCHandle&) override { return false; }
    bool visit(const RTTI::RTClassHandle&) override { return false; }
    bool visit(const RTTI::RTEventType&) override { return false; }
    bool visit(const RTTI::RTFileType&) override { return false; }
    bool visit(const RTTI::RTPhysicalType&) override { return false; }
    bool visit(const RTTI::RTLogicType&) override { return false; }
    bool visit(const RTTI::RTBitType&) override { return false; }
    bool visit(const RTTI::RTAbstractArrayType&) override { return false; }
    bool visit(const RTTI::RTDynamicArrayType&) override { return false; }
    bool visit(const RTTI::RTQueueType&) override { return false; }
    bool visit(const RTTI::RTAssocArrayType&) override { return false; }
    bool visit(const RTTI::RTAggregateType&) override { return false; }
    bool visit(const RTTI::RTClassType&) override { return false; }
    bool visit(const RTTI::RTStringType&) override { return false; }

    int m_arrays = 0;
    int m_records = 0;
};

int failures = 0;

void expect(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "does not hold: " << what << '\n';
        ++failures;
    }
}

} // namespace

int main() {
    RTTI::CTSeqEnumType bit;
    bit.m_valueEncoding = RTTI::ENCODING_2_STATE;
    RTTI::CTArrayType word("word", RTTI::VLOG_FIXED_PACKED_ARRAY, 0, 3);
    word.m_elementType = &bit;
    word.m_constraints = {{31, 0, RTTI::TypeFileFormat::DOWNTO_DIRECTION}};
    RTTI::CTRecordType packet;
    packet.m_recordKind = RTTI::VLOG_PACKED_STRUCT;
    packet.m_members.push_back(new RTTI::RTAggregateType::t_Member);
    packet.m_memberTypes.push_back(&word);
    expect(packet.getValueEncoding() == RTTI::ENCODING_2_STATE, "a struct of bits is 2-State");

    Counter counter;
    expect(word.accept(counter) && packet.accept(counter), "the visitor's answers come back");
    expect(!bit.accept(counter), "and so does the answer for the enumeration");
    expect(counter.m_arrays == 1 && counter.m_records == 1, "each type is visited as its class");

    Brakel_tolv::ConstraintStack<RTTI::FullConstraints> stack;
    std::vector<RTTI::FullConstraints> ranges;
    packet.populateTypeConstraints(stack, ranges);
    expect(ranges.size() == 1 && ranges[0].si == 31, "the member's range is found");
    stack.push(ranges);
    expect(stack.getConstraint().si == 31, "the stack is the caller's to use");
    stack.pop();

    EmptyFile storage;
    RTTI::RTTypeManager manager;
    expect(manager.setupDeserializer(storage, 0), "setup succeeds");
    expect(manager.readAllRTTypes() == nullptr, "there are no types");
    expect(dynamic_cast<const RTTI::RTArrayType*>(static_cast<RTTI::RTBaseType*>(&word)) == &word,
           "the classes are the library's own");
    expect(RTTI::libraryVersion() == RTTI_VERSION, "the library is that of the headers");
    const std::string version = std::to_string(RTTI_VERSION_MAJOR) + "." +
                                std::to_string(RTTI_VERSION_MINOR) + "." +
                                std::to_string(RTTI_VERSION_PATCH);
    expect(RTTI::libraryVersionText() == version, "and says so");
    std::cout << (failures == 0 ? "all holds\n" : "not all holds\n");
    return failures;
}
