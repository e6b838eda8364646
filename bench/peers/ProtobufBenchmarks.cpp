#include "bench/peers/ProtobufTypes.h"
#include "bench/peers/VisitBenchmark.h"

namespace {

using namespace Bench;

const int REGISTERED[] = {
    measureEveryCount("Visit/protobuf", openAndVisit<ProtobufTypes>),
    measureEveryCount("Visit/protobuf on an arena", openAndVisit<ProtobufTypesOnArena>),
};

} // namespace
