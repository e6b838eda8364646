#pragma once

#include "RTTI/RTType.h"
#include "tests/support/Ranges.h"

#include <cstddef>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace RTTITest {

using Ranges = std::vector<RTTI::FullConstraints>;
using Links = std::vector<const RTTI::RTBaseType*>;

/// A range that stands open until an enclosing level gives its bounds.
inline constexpr RTTI::FullConstraints OPEN{0, 0, -2};

/// The full range of a 32-bit index.
inline constexpr RTTI::FullConstraints FULL_RANGE{-2147483647 - 1, 2147483647, 1};

/// Types that are linked by hand, as a loader would leave them. The graph owns every type that it
/// makes; links may lead anywhere in it, cycles included.
class TypeGraph {
public:
    template <typename Type, typename... Arguments> Type& add(Arguments&&... arguments) {
        auto type = std::make_unique<Type>(std::forward<Arguments>(arguments)...);
        Type& added = *type;
        m_types.push_back(std::move(type));
        return added;
    }

    RTTI::RTSeqEnumType& seqEnum(RTTI::ValueEncoding encoding);
    RTTI::RTDiscreteEnumType& discreteEnum(const RTTI::RTBaseType* base, Ranges ranges = {});
    RTTI::RTTypedefType& alias(const RTTI::RTBaseType* type, Ranges ranges = {});
    RTTI::RTArrayType& array(RTTI::ArrayKind kind, const RTTI::RTBaseType* element,
                             std::size_t dimensions, Ranges ranges);

    /// A VHDL array with one dimension for each range.
    RTTI::RTArrayType& array(const RTTI::RTBaseType* element, Ranges ranges);
    template <typename Container> Container& container(const RTTI::RTBaseType* element) {
        auto& type = add<Container>();
        type.m_elementType = element;
        return type;
    }

    RTTI::RTRecordType& record(RTTI::RecordKind kind, const Links& members = {});
    RTTI::RTRecordType& structure(const Links& members = {});
    RTTI::RTClassType& classType(const Links& members = {}, const RTTI::RTBaseType* base = nullptr);

    std::size_t size() const { return m_types.size(); }
    const RTTI::RTBaseType& operator[](std::size_t index) const { return *m_types[index]; }
    RTTI::RTBaseType& operator[](std::size_t index) { return *m_types[index]; }

private:
    std::vector<std::unique_ptr<RTTI::RTBaseType>> m_types;
};

void addMember(RTTI::RTRecordType& record, const RTTI::RTBaseType* type, Ranges ranges = {});
void addMember(RTTI::RTClassType& type, const RTTI::RTBaseType* memberType, Ranges ranges = {});

/// A few types of every kind with links at random, now and then null. Every cycle of links leads
/// through a struct or a class, and none through base classes alone.
TypeGraph randomGraph(std::mt19937& random);

/// Up to three ranges, few enough different ones that levels often agree.
Ranges randomRanges(std::mt19937& random);

} // namespace RTTITest
