#include "Inspect/declarations/TypeLabel.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;

TEST(TypeLabel, SaysNoWordOfTheKindTwice) {
    LinkedTypes types;
    const auto logic = types.logic();
    const auto record = types.structure("", {{"a", logic}});
    types.discreteEnum(logic);
    const auto enumeration = types.last();
    const auto array = types.array(VHDL_ARRAY, "", types.integer("i", 0, 3), {{0, 3, 1}});
    const TypeTable table = types.table();
    const auto label = [&](unsigned int id) {
        return labelOf(table, id, table.typeOf(id), TextStyle::plain());
    };
    EXPECT_EQ(label(record), "1 unpacked struct { logic a; }");
    EXPECT_EQ(label(enumeration), "2 discrete enumeration logic { }");
    EXPECT_EQ(label(array), "4 VHDL array (0 to 3) of i");
}

} // namespace
