#include "Inspect/model/LeafWalk.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using RTTITest::LinkedTypes;

/// The dimensions of a type, with a comma between them.
std::string dimensionsOf(LinkedTypes& types, unsigned int id) {
    std::string text;
    for (const auto& dimension : Inspect::dimensionsOf(id, types.table().typeOf(id)))
        text += (text.empty() ? "" : ", ") + dimensionText(dimension);
    return text;
}

TEST(Dimensions, AreThoseOfArraysThatLieDirectlyInOneAnother) {
    LinkedTypes types;
    const auto word = types.packed(types.logic(), {{7, 0, 0}});
    const auto alias = types.alias("word_t", word);
    const auto grid =
        types.array(RTTI::VLOG_FIXED_UNPACKED_ARRAY, "", alias, {{0, 3, 1}, {1, 2, 1}});
    EXPECT_EQ(dimensionsOf(types, types.queue(grid)), "queue, 0 to 3, 1 to 2, 7 downto 0");
}

TEST(Dimensions, OfAnArrayOfStructsEndAtTheStruct) {
    LinkedTypes types;
    const auto word = types.packed(types.logic(), {{7, 0, 0}});
    const auto pair = types.structure("pair_t", {{"a", word}});
    EXPECT_EQ(dimensionsOf(types, types.packed(pair, {{1, 0, 0}})), "1 downto 0");
}

TEST(Dimensions, OfAStructAreNone) {
    LinkedTypes types;
    const auto word = types.packed(types.logic(), {{7, 0, 0}});
    EXPECT_EQ(dimensionsOf(types, types.structure("pair_t", {{"a", word}})), "");
}

} // namespace
