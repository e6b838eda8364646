// The bits of leaves agree with a layout by plain recursion, bit by bit.

#include "Inspect/model/LeafWalk.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>
#include <set>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;

/// The values that have a bit: their paths, and the positions in the packed arrays on the way.
using Owners = std::set<std::string>;
using Layout = std::vector<Owners>; ///< The least significant bit first.

/// A packed type with its layout. The paths in it begin behind the name of the type.
struct Packed {
    unsigned int id;
    Layout layout;
};

/// Makes packed types at random, each together with its layout.
class PackedMaker {
public:
    explicit PackedMaker(unsigned int seed) : m_random(seed), m_logic(types.logic()) {}

    Packed make(int depth) {
        const unsigned int choice = depth == 0 ? 0 : below(8);
        if (choice >= 6)
            return array(make(depth - 1));
        if (choice >= 4)
            return aggregate(VLOG_PACKED_UNTAGGED_UNION, "u", depth);
        if (choice >= 2)
            return aggregate(VLOG_PACKED_STRUCT, "s", depth);
        return scalar();
    }

    LinkedTypes types;

private:
    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(m_random() % limit); }

    FullConstraints range(unsigned int length) {
        const int first = static_cast<int>(below(9)) - 4;
        const int last = first + static_cast<int>(length) - 1;
        return below(2) == 0 ? FullConstraints{last, first, 0} : FullConstraints{first, last, 1};
    }

    Packed scalar() {
        const unsigned int width = 1 + below(5);
        unsigned int id = types.packed(m_logic, {range(width)});
        if (below(3) == 0) {
            types.discreteEnum(id);
            id = types.alias("e", types.last());
        }
        return {id, Layout(width, Owners{"@"})};
    }

    /// One or two dimensions. The element with the last index has the least significant bits.
    Packed array(const Packed& element) {
        std::vector<FullConstraints> ranges;
        std::vector<unsigned int> lengths;
        for (unsigned int i = 0; i <= below(2); ++i) {
            lengths.push_back(1 + below(3));
            ranges.push_back(range(lengths.back()));
        }
        Layout layout = element.layout;
        const bool isOfValues = layout.front().count("@") != 0;
        for (auto length = lengths.rbegin(); length != lengths.rend(); ++length)
            layout = repeated(layout, *length, isOfValues);
        return {types.packed(element.id, ranges), layout};
    }

    /// Copies side by side, each with its position from the right in front of those within. All
    /// elements of an array of values are one leaf.
    static Layout repeated(const Layout& element, unsigned int count, bool isOfValues) {
        Layout all;
        for (unsigned int position = 0; position < count; ++position) {
            for (const Owners& owners : element) {
                Owners copies;
                for (const std::string& owner : owners) {
                    const std::size_t at = owner.find('@') + 1;
                    copies.insert(isOfValues ? owner
                                             : owner.substr(0, at) + std::to_string(position) +
                                                   ',' + owner.substr(at));
                }
                all.push_back(copies);
            }
        }
        return all;
    }

    Packed aggregate(RecordKind kind, const std::string& name, int depth) {
        std::vector<LinkedTypes::Member> members;
        std::vector<Layout> layouts;
        const unsigned int count = 1 + below(3);
        for (unsigned int i = 0; i < count; ++i) {
            const Packed member = make(depth - 1);
            const std::string memberName = "m" + std::to_string(i);
            members.push_back({memberName, member.id});
            layouts.emplace_back();
            for (const Owners& owners : member.layout) {
                Owners named;
                for (const std::string& owner : owners)
                    named.insert("." + memberName + owner);
                layouts.back().push_back(named);
            }
        }
        return {types.structure(name, members, kind),
                kind == VLOG_PACKED_STRUCT ? sideBySide(layouts) : onTopOfOneAnother(layouts)};
    }

    static Layout sideBySide(const std::vector<Layout>& members) {
        Layout all;
        for (auto member = members.rbegin(); member != members.rend(); ++member)
            all.insert(all.end(), member->begin(), member->end());
        return all;
    }

    static Layout onTopOfOneAnother(const std::vector<Layout>& members) {
        Layout all;
        for (const Layout& member : members) {
            all.resize(std::max(all.size(), member.size()));
            for (std::size_t bit = 0; bit < member.size(); ++bit)
                all[bit].insert(member[bit].begin(), member[bit].end());
        }
        return all;
    }

    std::mt19937 m_random;
    unsigned int m_logic;
};

/// Adds a leaf to the bits that it says are its own.
void enter(Layout& layout, const std::string& path, const BitPlace& place, std::size_t stride,
           std::uint64_t offset, const std::string& positions) {
    if (stride == place.strides.size()) {
        for (std::uint64_t bit = offset; bit < offset + place.width; ++bit) {
            layout.resize(std::max<std::size_t>(layout.size(), bit + 1));
            layout[bit].insert(path + '@' + positions);
        }
        return;
    }
    for (std::uint64_t i = 0; i < place.strides[stride].count; ++i)
        enter(layout, path, place, stride + 1, offset + i * place.strides[stride].bits,
              positions + std::to_string(i) + ',');
}

/// A leaf's path behind the name of the type, without ranges.
std::string wayTo(const LeafWalk& leaf) {
    const std::string path =
        std::regex_replace(std::string(leaf.path()), std::regex("\\[[^\\]]*\\]"), "");
    return path.substr(std::min(path.find('.'), path.size()));
}

TEST(BitPlaces, OfLeavesAreThoseOfALayoutByRecursion) {
    std::size_t bits = 0;
    std::size_t strides = 0;
    for (unsigned int seed = 0; seed < 1500; ++seed) {
        PackedMaker maker(seed);
        const Packed packed = maker.make(4);
        const TypeTable table = maker.types.table();
        LeafWalk leaf(packed.id, table.typeOf(packed.id), *table.widths);
        Layout layout;
        while (leaf.next()) {
            ASSERT_TRUE(leaf.bits()) << "seed " << seed << ", " << leaf.path();
            enter(layout, wayTo(leaf), *leaf.bits(), 0, leaf.bits()->offset, "");
            strides += leaf.bits()->strides.size();
        }
        ASSERT_EQ(layout, packed.layout) << "seed " << seed;
        EXPECT_EQ(table.widths->of(table.typeOf(packed.id)), packed.layout.size());
        bits += layout.size();
    }
    EXPECT_GT(bits, 30000u);
    EXPECT_GT(strides, 2000u);
}

TEST(BitPlaces, CountFromTheOutermostPackedValue) {
    LinkedTypes types;
    const auto nibble = types.packed(types.logic(), {{3, 0, 0}});
    const auto pair =
        types.structure("pair_t", {{"high", nibble}, {"low", nibble}}, VLOG_PACKED_STRUCT);
    const auto list = types.array(VLOG_FIXED_UNPACKED_ARRAY, "", pair, {{0, 9, 1}});
    const auto both = types.structure("both_t", {{"first", nibble}, {"list", list}});
    const TypeTable table = types.table();
    LeafWalk leaf(both, table.typeOf(both), *table.widths);
    for (const std::uint64_t offset : {0, 4, 0}) {
        ASSERT_TRUE(leaf.next());
        EXPECT_EQ(leaf.bits()->offset, offset);
        EXPECT_EQ(leaf.bits()->width, 4u);
        EXPECT_TRUE(leaf.bits()->strides.empty());
    }
    EXPECT_FALSE(leaf.next());
}

} // namespace
