#pragma once

#include "RTTI/RTType.h"

#include <functional>
#include <string>
#include <vector>

namespace Bench {

/// A type of each kind that generated tables have, every field filled in.
struct SampleTypes {
    SampleTypes();

    /// The type file of all of them.
    std::vector<char> table() const;

    RTTI::RTSeqEnumType state;
    RTTI::RTDiscreteEnumType opcode;
    RTTI::RTIntType integer;
    RTTI::RTFloatType real;
    RTTI::RTStringType string;
    RTTI::RTPhysicalType time;
    RTTI::RTTypedefType alias;
    RTTI::RTAccessType access;
    RTTI::RTArrayType array;
    RTTI::RTQueueType queue;
    RTTI::RTDynamicArrayType dynamicArray;
    RTTI::RTAssocArrayType assocArray;
    RTTI::RTRecordType record;
    RTTI::RTClassType classType;
};

/// Another value for one field.
struct FieldChange {
    std::string field;
    std::function<void(SampleTypes&)> make;
};

/// A change for every field that the types have.
std::vector<FieldChange> changesOfEveryField();

} // namespace Bench
