#include "bench/peers/BtfTypes.h"
#include "tests/bench/PeerContentTests.h"

namespace Bench {

INSTANTIATE_TYPED_TEST_SUITE_P(BtfContent, PeerContent, BtfTypes);

} // namespace Bench
