#pragma once

#include "bench/GeneratedTable.h"
#include "bench/peers/ContentSum.h"
#include "bench/peers/LoadedTypes.h"
#include "tests/bench/SampleTypes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace Bench {

/// What a visit reports, a text for each type.
class ContentTexts {
public:
    explicit ContentTexts(bool withDetails) : m_withDetails(withDetails) {}

    void nextType() { m_types.emplace_back(); }
    void name(std::string_view bytes) { out() << '"' << bytes << "\" "; }
    void number(long long value) { out() << value << ' '; }
    void range(int left, int right, int direction) {
        out() << '(' << left << ' ' << right << ' ' << direction << ") ";
    }
    void detail(long long value) {
        if (m_withDetails)
            out() << "detail " << value << ' ';
    }

    std::vector<std::string> texts() const {
        std::vector<std::string> texts;
        for (const std::ostringstream& type : m_types)
            texts.push_back(type.str());
        return texts;
    }

private:
    std::ostringstream& out() { return m_types.back(); }

    bool m_withDetails;
    std::vector<std::ostringstream> m_types;
};

inline std::vector<std::string> contentOf(const std::vector<char>& table, bool withDetails) {
    ContentTexts content(withDetails);
    LoadedTypes(table).visit(content);
    return content.texts();
}

/// A table in the form of a peer.
template <typename Peer> std::vector<char> encodedBy(const std::vector<char>& table) {
    OVAT::MemoryBlockManager storage(table.data(), table.size());
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    return Peer::encode(allTypes(manager));
}

template <typename Peer> class PeerContent : public testing::Test {};
TYPED_TEST_SUITE_P(PeerContent);

TYPED_TEST_P(PeerContent, IsThatOfAGeneratedTable) {
    const std::vector<char> table = generatedTable(2000);
    const std::vector<char> encoded = encodedBy<TypeParam>(table);
    ContentTexts content(TypeParam::HAS_DETAILS);
    TypeParam(encoded).visit(content);
    EXPECT_EQ(content.texts(), contentOf(table, TypeParam::HAS_DETAILS));
}

TYPED_TEST_P(PeerContent, AddsUpToTheSameSum) {
    const std::vector<char> table = generatedTable(2000);
    const std::vector<char> encoded = encodedBy<TypeParam>(table);
    ContentSum<TypeParam::HAS_DETAILS> content;
    TypeParam(encoded).visit(content);
    ContentSum<TypeParam::HAS_DETAILS> expected;
    LoadedTypes(table).visit(expected);
    EXPECT_EQ(content.sum(), expected.sum());
}

TYPED_TEST_P(PeerContent, FollowsEveryField) {
    for (const FieldChange& change : changesOfEveryField()) {
        SCOPED_TRACE(change.field);
        SampleTypes samples;
        change.make(samples);
        const std::vector<char> encoded = encodedBy<TypeParam>(samples.table());
        ContentTexts content(TypeParam::HAS_DETAILS);
        TypeParam(encoded).visit(content);
        EXPECT_EQ(content.texts(), contentOf(samples.table(), TypeParam::HAS_DETAILS));
    }
}

REGISTER_TYPED_TEST_SUITE_P(PeerContent, IsThatOfAGeneratedTable, AddsUpToTheSameSum,
                            FollowsEveryField);

} // namespace Bench
