#include "Import/TypeTable.h"

#include "Import/ImportError.h"
#include "Import/TypeSource.h"
#include "TypeFile/TypeBuilding.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace Import;
using namespace RTTI;

/// Queues, each of the type with the id in front of its own.
class Queues final : public TypeSource {
public:
    Queues(unsigned int firstId, std::vector<std::string> names)
        : m_firstId(firstId), m_names(std::move(names)) {
        for (unsigned int number = 0; number < count(); ++number) {
            m_references.addId(firstId + number - 1, true);
            m_references.endType();
        }
    }

    unsigned int count() const override { return static_cast<unsigned int>(m_names.size()); }
    std::string_view nameOf(unsigned int number) const override { return m_names[number]; }
    Place placeOf(unsigned int number) const override {
        return Place::line(std::make_shared<const std::string>("q"), number);
    }
    References takeReferences() override { return std::move(m_references); }
    RTBaseType& object(unsigned int number) override {
        RTQueueType& type = *m_made.emplace_back(std::make_unique<RTQueueType>());
        TypeFile::setName(type, m_names[number]);
        type.m_elementTypeId = m_firstId + number - 1;
        return type;
    }

    /// How many have been made. They are kept.
    std::size_t made() const { return m_made.size(); }

private:
    unsigned int m_firstId;
    std::vector<std::string> m_names;
    References m_references;
    std::vector<std::unique_ptr<RTQueueType>> m_made;
};

/// A table, and what it left out.
class TypeTableTest : public testing::Test {
protected:
    unsigned int string(const char* name = "string") {
        auto type = std::make_unique<RTStringType>();
        TypeFile::setName(*type, name);
        return table.add(std::move(type), Place());
    }

    unsigned int queue(unsigned int element, const char* name = "") {
        auto type = std::make_unique<RTQueueType>();
        TypeFile::setName(*type, name);
        type->m_elementTypeId = element;
        return table.add(std::move(type), Place());
    }

    std::unique_ptr<RTClassType> classType(const char* name, unsigned int member) {
        auto type = std::make_unique<RTClassType>();
        TypeFile::setName(*type, name);
        TypeFile::addMember(*type, "m", member);
        return type;
    }

    /// The names of the types in the result, in its order.
    std::vector<std::string> finish(const std::vector<std::string>& packages = {}) {
        std::vector<std::string> names;
        table.finish(packages, notes, [&](const RTBaseType& type) {
            types.push_back(&type);
            names.emplace_back(type.m_name == nullptr ? "" : type.m_name);
        });
        return names;
    }

    using Names = std::vector<std::string>;

    TypeTable table;
    std::vector<std::string> texts;
    Notes notes{[this](const Place& place, const std::string& text) {
        texts.push_back(place.text() + ": " + text);
    }};
    std::vector<const RTBaseType*> types; ///< The result.
};

TEST_F(TypeTableTest, ATypeComesAfterWhatItNeeds) {
    const unsigned int element = table.reserve();
    const unsigned int user = queue(element, "q");
    table.fill(element, std::make_unique<RTStringType>(), Place());
    TypeFile::setName(*table.find(element), "s");
    table.want(user, "");
    EXPECT_EQ(finish(), (Names{"s", "q"}));
    EXPECT_EQ(static_cast<const RTQueueType&>(*types[1]).m_elementTypeId, 0u);
}

TEST_F(TypeTableTest, WhatNobodyWantsOrNeedsIsDropped) {
    queue(string("dropped"));
    table.want(string("kept"), "");
    EXPECT_EQ(finish(), Names{"kept"});
}

TEST_F(TypeTableTest, EqualTypesOfTwoInputsBecomeOne) {
    for (int input = 0; input < 2; ++input)
        table.want(queue(queue(string())), "");
    EXPECT_EQ(finish(), (Names{"string", "", ""}));
}

TEST_F(TypeTableTest, TypesThatDifferInANameAloneStayApart) {
    const unsigned int element = string();
    table.want(queue(element, "a"), "");
    table.want(queue(element, "b"), "");
    EXPECT_EQ(finish(), (Names{"string", "a", "b"}));
}

TEST_F(TypeTableTest, EqualClassesThatHoldThemselvesBecomeOne) {
    for (int input = 0; input < 2; ++input) {
        const unsigned int id = table.reserve();
        table.fill(id, classType("node", queue(id)), Place());
        table.want(id, "");
    }
    EXPECT_EQ(finish(), (Names{"", "node"}));
    EXPECT_EQ(static_cast<const RTQueueType&>(*types[0]).m_elementTypeId, 1u);
    EXPECT_EQ(static_cast<const RTClassType&>(*types[1]).m_members[0]->m_typeId, 0u);
}

TEST_F(TypeTableTest, CirclesThatDifferFarAwayStayApart) {
    for (const char* last : {"x", "y"}) {
        const unsigned int id = table.reserve();
        auto type = classType("node", queue(queue(string(last))));
        TypeFile::addMember(*type, "self", id);
        table.fill(id, std::move(type), Place());
        table.want(id, "");
    }
    EXPECT_EQ(finish().size(), 8u);
}

TEST_F(TypeTableTest, ATypeThatNeverComesLeavesOutItsUsers) {
    const unsigned int missing = table.reserve();
    table.leaveOut(missing, "class p::gone");
    auto file = std::make_shared<const std::string>("a.tree");
    table.want(string("kept"), "");
    auto user = classType("p::user", queue(missing));
    table.want(table.add(std::move(user), Place::line(file, 7)), "p");
    EXPECT_EQ(finish(), Names{"kept"});
    EXPECT_EQ(texts, Names{"a.tree:7: p::user is left out: it needs class p::gone"});
    EXPECT_EQ(notes.count(), 1u);
}

TEST_F(TypeTableTest, APackageBringsWhatItNeeds) {
    const unsigned int element = string("q::element");
    table.want(element, "q");
    table.want(string("q::other"), "q");
    table.want(queue(element, "p::list"), "p");
    EXPECT_EQ(finish({"p"}), (Names{"q::element", "p::list"}));
}

TEST_F(TypeTableTest, AnUnknownPackageIsToldWithTheKnownOnes) {
    table.want(string(), "p");
    table.want(string(), "");
    table.want(string(), "q");
    try {
        finish({"r"});
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_STREQ(error.what(), "there are no types of a package r; those with types: p, q");
    }
}

TEST_F(TypeTableTest, SystemVerilogTypesAreNumberedFromOne) {
    auto array = std::make_unique<RTArrayType>();
    array->m_arrayKind = VHDL_ARRAY;
    array->m_elementTypeId = queue(string());
    table.want(queue(table.add(std::move(array), Place())), "");
    finish();
    std::vector<int> ids;
    for (const auto& type : types)
        ids.push_back(type->getSVTypeId());
    EXPECT_EQ(ids, (std::vector<int>{-5, 1, -99, 2})); // string, queue, VHDL array, queue
}

TEST_F(TypeTableTest, AnAbsentIndexTypeStaysAbsent) {
    auto array = std::make_unique<RTArrayType>();
    array->m_elementTypeId = string();
    array->m_indexTypeIds = {TypeFileFormat::NO_TYPE_ID};
    table.want(table.add(std::move(array), Place()), "");
    finish();
    EXPECT_EQ(static_cast<const RTArrayType&>(*types[1]).m_indexTypeIds[0],
              TypeFileFormat::NO_TYPE_ID);
}

TEST_F(TypeTableTest, TypesOfASourceReferToThoseOfTheTable) {
    table.want(string("unneeded"), "p");
    string();
    table.addSource(std::make_unique<Queues>(2, Names{"a", "b"}));
    EXPECT_EQ(table.size(), 4u);
    table.want(3, "q");
    EXPECT_EQ(finish({"q"}), (Names{"string", "a", "b"}));
    EXPECT_EQ(static_cast<const RTQueueType&>(*types[1]).m_elementTypeId, 0u);
    EXPECT_EQ(static_cast<const RTQueueType&>(*types[2]).m_elementTypeId, 1u);
}

TEST_F(TypeTableTest, ATypeOfASourceThatEqualsOneOfTheTableBecomesOneWithIt) {
    table.want(queue(string(), "a"), "");
    table.want(string(), "");
    table.addSource(std::make_unique<Queues>(3, Names{"a", "b"}));
    table.want(4, "");
    EXPECT_EQ(finish(), (Names{"string", "a", "b"}));
    EXPECT_EQ(static_cast<const RTQueueType&>(*types[2]).m_elementTypeId, 1u);
}

TEST_F(TypeTableTest, ATypeOfASourceIsMadeOnlyWhenTheOneBeforeHasBeenTaken) {
    string();
    auto source = std::make_unique<Queues>(1, Names{"a", "b", "c"});
    const Queues& queues = *source;
    table.addSource(std::move(source));
    table.want(3, "");
    std::vector<std::size_t> made;
    table.finish({}, notes, [&](const auto&) { made.push_back(queues.made()); });
    EXPECT_EQ(made, (std::vector<std::size_t>{0, 1, 2, 3}));
}

TEST_F(TypeTableTest, NotesOfASourceArePlacedAndComeBeforeTheFirstType) {
    table.want(string(), "");
    table.leaveOut(table.reserve(), "class p::gone");
    table.addSource(std::make_unique<Queues>(2, Names{"a", ""}));
    table.want(3, "");
    bool isNotedFirst = false;
    table.finish({}, notes, [&](const auto&) { isNotedFirst = !texts.empty(); });
    EXPECT_TRUE(isNotedFirst);
    EXPECT_EQ(texts, Names{"q:1: a type without a name is left out: it needs class p::gone"});
}

TEST_F(TypeTableTest, AChainOfAMillionTypesNeedsNoDeepStack) {
    unsigned int id = string();
    for (int i = 0; i < 1000000; ++i)
        id = queue(id);
    table.want(id, "");
    EXPECT_EQ(finish().size(), 1000001u);
}

} // namespace
