#include "bench/peers/FlatTypes.h"
#include "tests/bench/PeerContentTests.h"

namespace Bench {

INSTANTIATE_TYPED_TEST_SUITE_P(FlatContent, PeerContent, FlatTypes);

} // namespace Bench
