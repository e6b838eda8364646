#include "PeerContentTests.h"
#include "bench/peers/BtfTypes.h"

namespace Bench {

INSTANTIATE_TYPED_TEST_SUITE_P(BtfContent, PeerContent, BtfTypes);

} // namespace Bench
