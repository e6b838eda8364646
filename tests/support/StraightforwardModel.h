#pragma once

#include "RTTI/RTType.h"

#include <cstddef>
#include <set>
#include <stdexcept>
#include <vector>

namespace RTTITest {

/// A walk over every path got too long.
class TooManySteps : public std::runtime_error {
public:
    TooManySteps() : std::runtime_error("too many steps") {}
};

/// Value encodings by plain recursion over every path. Reads fields alone; of the library's code it
/// calls nothing but GetClassId.
class EncodingModel {
public:
    explicit EncodingModel(std::size_t stepsPerQuestion) : m_limit(stepsPerQuestion) {}

    /// Answers in turn: classes that kept their mark answer accordingly from then on.
    RTTI::ValueEncoding ask(const RTTI::RTBaseType& type);

    std::size_t keptMarks() const { return m_marked.size(); }

private:
    RTTI::ValueEncoding encoding(const RTTI::RTBaseType* type, RTTI::ValueEncoding ifMissing);
    RTTI::ValueEncoding recordEncoding(const RTTI::RTRecordType& record);
    RTTI::ValueEncoding classEncoding(const RTTI::RTClassType& type);
    bool membersAreTwoState(const RTTI::RTAggregateType& aggregate);

    std::size_t m_limit;
    std::size_t m_steps = 0;
    std::set<const RTTI::RTBaseType*> m_marked;

    /// The structs on the path, one set for what came after each class on it.
    std::vector<std::set<const RTTI::RTBaseType*>> m_structs;
};

/// Flattened ranges by plain recursion over every path, with a stack of its own.
class ConstraintModel {
public:
    using Ranges = std::vector<RTTI::FullConstraints>;

    explicit ConstraintModel(std::size_t steps) : m_limit(steps) {}

    void push(const Ranges& own);
    void pop();
    RTTI::FullConstraints next();
    std::size_t depth() const { return m_frames.size(); }

    void walk(const RTTI::RTBaseType* type);
    const Ranges& output() const { return m_output; }

    /// How often an aggregate was walked below which there was a range.
    std::size_t fruitfulVisits() const { return m_fruitfulVisits; }

private:
    struct Level {
        Ranges ranges;
        std::size_t used;
    };

    void walkRecord(const RTTI::RTRecordType& record);
    void walkClass(const RTTI::RTClassType& type);
    void walkMembers(const RTTI::RTAggregateType& aggregate);

    std::size_t m_limit;
    std::size_t m_steps = 0;
    std::size_t m_fruitfulVisits = 0;
    std::vector<Level> m_frames;
    Ranges m_output;
    std::set<const RTTI::RTBaseType*> m_classes;
    std::vector<std::set<const RTTI::RTBaseType*>> m_structs{{}};
};

} // namespace RTTITest
