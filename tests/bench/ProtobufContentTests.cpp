#include "PeerContentTests.h"
#include "bench/peers/ProtobufTypes.h"

namespace Bench {

using OnHeapAndArena = testing::Types<ProtobufTypes, ProtobufTypesOnArena>;
INSTANTIATE_TYPED_TEST_SUITE_P(ProtobufContent, PeerContent, OnHeapAndArena);

} // namespace Bench
