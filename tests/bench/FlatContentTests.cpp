#include "PeerContentTests.h"
#include "bench/peers/FlatTypes.h"

namespace Bench {

INSTANTIATE_TYPED_TEST_SUITE_P(FlatContent, PeerContent, FlatTypes);

} // namespace Bench
