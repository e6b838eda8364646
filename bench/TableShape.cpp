// Checks that generated tables are what the benchmarks say they are, and the same every time.

#include "bench/GeneratedTable.h"

#include <cmath>
#include <iostream>

namespace {

bool isNear(const char* what, double found, double expected) {
    std::cout << what << " a type: " << found << ", expected about " << expected << '\n';
    return std::abs(found - expected) <= 0.02 * expected;
}

} // namespace

int main() {
    const std::vector<char> table = Bench::generatedTable(20000);
    const Bench::TableShape shape = Bench::shapeOf(table);
    const bool isShaped =
        isNear("bytes", shape.bytes, Bench::EXPECTED_SHAPE.bytes) &&
        isNear("parts", shape.parts, Bench::EXPECTED_SHAPE.parts) &&
        isNear("constraints", shape.constraints, Bench::EXPECTED_SHAPE.constraints);
    const bool isRepeatable = table == Bench::generatedTable(20000);
    return isShaped && isRepeatable ? 0 : 1;
}
