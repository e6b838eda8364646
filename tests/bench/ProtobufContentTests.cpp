#include "bench/peers/ProtobufTypes.h"
#include "tests/bench/PeerContentTests.h"

namespace Bench {

using OnHeapAndArena = testing::Types<ProtobufTypes, ProtobufTypesOnArena>;
INSTANTIATE_TYPED_TEST_SUITE_P(ProtobufContent, PeerContent, OnHeapAndArena);

} // namespace Bench
