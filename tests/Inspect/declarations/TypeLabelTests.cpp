#include "Inspect/declarations/TypeLabel.h"
#include "RTTI/CTType.h"
#include "tests/support/WrittenTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace Inspect;
using RTTITest::WrittenTypes;

TEST(TypeLabel, SaysNoWordOfTheKindTwice) {
    WrittenTypes types;
    const auto logic = types.logic();
    const auto record = types.structure("", {{"a", logic}});
    CTDiscreteEnumType states;
    states.m_baseTypeId = logic;
    const auto enumeration = types.add(states);
    const auto array = types.array(VHDL_ARRAY, "", types.integer("i", {0, 3, 1}), {{0, 3, 1}});
    const TypeTable table = types.table();
    const auto label = [&](unsigned int id) {
        return labelOf(table, id, table.typeOf(id), TextStyle::plain());
    };
    EXPECT_EQ(label(record), "1 unpacked struct { logic a; }");
    EXPECT_EQ(label(enumeration), "2 discrete enumeration logic { }");
    EXPECT_EQ(label(array), "4 VHDL array (0 to 3) of i");
}

} // namespace
