#include "bench/peers/FlatTypes.h"
#include "bench/peers/VisitBenchmark.h"

namespace {

const int REGISTERED =
    Bench::measureEveryCount("Visit/FlatBuffers", Bench::openAndVisit<Bench::FlatTypes>);

} // namespace
