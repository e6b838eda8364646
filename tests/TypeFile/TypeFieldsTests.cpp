#include "TypeFile/TypeFields.h"

#include "TypeFile/RecordLayout.h"
#include "TypeFile/TypeBuilding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace RTTI;
using namespace TypeFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Words = std::vector<std::string>;

/// A field in words: its name, and what its form and its layout both say.
std::string described(const std::string& name, bool mayBeNone, int last) {
    return name + (mayBeNone ? " or none" : "") +
           (last != 0 ? " up to " + std::to_string(last) : "");
}

/// The fields of a class, and those of the entries of its lists behind them.
class Describer {
public:
    explicit Describer(Words& words, std::string list = "") : m_words(words), m_list(list) {}

    template <typename Class> void describe() {
        std::apply([this](const auto&... field) { (this->add(field.name, field.form), ...); },
                   FIELDS<Class>);
    }

private:
    template <typename FieldForm> void add(const std::string& name, const FieldForm&) {
        m_words.push_back(m_list + name);
    }
    template <typename Link> void add(const std::string& name, const Form::TypeId<Link>& form) {
        m_words.push_back(described(m_list + name, form.mayBeNone, 0));
    }
    void add(const std::string& name, Form::Flavour form) {
        m_words.push_back(described(m_list + name, false, form.last));
    }
    template <typename Item> void add(const std::string& name, const Form::Items<Item>& form) {
        m_words.push_back(name);
        Describer(m_words, name + '.').add("", form.item);
    }
    template <typename Entry> void add(const std::string& name, Form::Entries<Entry>) {
        m_words.push_back(name);
        Describer(m_words, name + '.').describe<Entry>();
    }

    Words& m_words;
    std::string m_list;
};

Words wordsOfLayout(unsigned int kind) {
    Words words;
    std::string list;
    for (const FieldLayout& field : bodyLayout(kind)) {
        if (field.form == FieldForm::END_OF_LIST)
            list.clear();
        else if (field.form != FieldForm::COUNT)
            words.push_back(
                described(list + field.name, Link::has(field.link, Link::OR_NONE), field.last));
        if (field.form == FieldForm::LIST)
            list = std::string(field.name) + '.';
    }
    return words;
}

TEST(TypeFields, AreThoseOfTheRecordInItsOrder) {
    for (unsigned int kind = ClassId::BASE_TYPE; kind < 0xA0000020; ++kind) {
        Words words;
        const bool isThere = withClass(kind, [&](auto tag) {
            EXPECT_EQ(decltype(tag)::CLASS_ID, kind);
            EXPECT_EQ(typename decltype(tag)::Class().GetClassId(), kind);
            Describer(words).describe<typename decltype(tag)::Class>();
        });
        EXPECT_EQ(isThere, buildsType(kind)) << kind;
        EXPECT_EQ(words, wordsOfLayout(kind)) << kind;
    }
}

TEST(TypeFields, CanBeChangedUnlessTheTypeIsConst) {
    RTFloatType real;
    forEachField(real, [](const char*, auto& value, const auto&) { value = 1; });
    EXPECT_EQ(real.m_direction, 1);
    EXPECT_EQ(real.m_right, 1.0);
    forEachField(std::as_const(real), [](const char*, auto& value, const auto&) {
        EXPECT_TRUE(std::is_const_v<std::remove_reference_t<decltype(value)>>);
    });
}

using Places = std::vector<std::pair<unsigned int, std::size_t>>;

Places referencesOf(const RTBaseType& type) {
    Places places;
    forEachReference(type, [&](const unsigned int& id, const auto&, std::size_t position) {
        places.emplace_back(id, position);
    });
    return places;
}

TEST(TypeFields, GiveReferencesWithTheirPositionsAlsoThoseToNoType) {
    RTClassType type;
    addMember(type, "a", 7);
    addMember(type, "b", 8, {}, true);
    EXPECT_THAT(referencesOf(type),
                ElementsAre(Pair(TypeFileFormat::NO_TYPE_ID, 0U), Pair(7U, 0U), Pair(8U, 1U)));
    RTArrayType array;
    array.m_elementTypeId = 1;
    array.m_indexTypeIds = {2, 3};
    EXPECT_THAT(referencesOf(array), ElementsAre(Pair(1U, 0U), Pair(2U, 0U), Pair(3U, 1U)));
}

TEST(TypeFields, LeaveOutMembersThatAreNotThere) {
    RTRecordType type;
    type.m_members.push_back(nullptr);
    EXPECT_THAT(referencesOf(type), IsEmpty());
    addMember(type, "b", 8);
    EXPECT_THAT(referencesOf(type), ElementsAre(Pair(8U, 1U)));
}

TEST(TypeFields, OfAMemberOfARecordInAClassAreThoseThatItHas) {
    RTClassType type;
    addMember(type, "a", 7);
    type.m_members.push_back(new RTAggregateType::t_Member);
    const Form::Entries<RTClassType::t_ClassMember> form;
    std::vector<Words> names(2);
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_TRUE(
            forEachField(form, type.m_members, i,
                         [&](const char* name, auto&, const auto&) { names[i].push_back(name); }));
    EXPECT_THAT(names[0], ElementsAre("name", "type", "constraints", "flag"));
    EXPECT_THAT(names[1], ElementsAre("name", "type", "constraints"));
}

} // namespace
