// Loading a table and visiting all of its content: what the peers stand beside.

#include "bench/peers/VisitBenchmark.h"

namespace {

const int REGISTERED = Bench::measureEveryCount("Visit", Bench::openAndVisit<Bench::LoadedTypes>);

} // namespace
