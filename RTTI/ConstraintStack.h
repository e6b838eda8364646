#pragma once

#include "RTTI/RTBaseType.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Brakel_tolv {

/// The ranges of the levels around a type, innermost on top, while a type's ranges are flattened.
///
/// A level pushes the ranges that it adds; an array takes one range a dimension. Where a level
/// leaves a range open (direction -2), the next level below answers, and each level that was asked
/// has used up one of its entries. The stack owns its frames.
template <typename Constraint> class ConstraintStack {
public:
    /// The ranges of one level.
    struct Frame {
        unsigned int m_cursor = 0; ///< The entry that is used next.
        std::vector<Constraint> m_constraints;
    };

    /// Pushes a frame with a copy of `own`. Entries that stand open are first filled from the
    /// bottom frame, where both agree on the first entry of `own` that has bounds.
    void push(const std::vector<Constraint>& own);

    /// Removes the top frame; the stack must not be empty.
    void pop() { m_frames.pop_back(); }

    /// The next range, valid until the frame that gave it is popped. All zero where every level
    /// leaves it open or has no entry left.
    const Constraint& getConstraint();

private:
    static void merge(std::vector<Constraint>& own, const std::vector<Constraint>& bottom);

    std::vector<std::unique_ptr<Frame>> m_frames; ///< Bottom first.
};

extern template class RTTI_EXPORT ConstraintStack<RTTI::FullConstraints>;

} // namespace Brakel_tolv
