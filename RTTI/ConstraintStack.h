#pragma once

#include "RTTI/RTBaseType.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace Brakel_tolv {

/// The ranges of the levels around a type, innermost on top, while a type's ranges are flattened.
///
/// A level pushes the ranges that it adds; an array takes one range a dimension. Where a level
/// leaves a range open (direction -2), the next level below answers, and each level that was asked
/// has used up one of its entries. The stack owns its frames. The first few lie in the stack
/// itself, so that walks of ordinary types allocate nothing for them.
template <typename Constraint> class ConstraintStack {
public:
    /// The ranges of one level.
    struct Frame {
        unsigned int m_cursor;     ///< The entry that is used next.
        bool m_isOutside;          ///< Whether its entries lie outside the stack.
        std::size_t m_count;       ///< How many entries it has.
        Constraint* m_constraints; ///< Its own copies.
    };

    ConstraintStack() {} // Leaves the room for frames as it is.
    ConstraintStack(const ConstraintStack&) = delete;
    ConstraintStack& operator=(const ConstraintStack&) = delete;
    ~ConstraintStack();

    /// Pushes a frame with a copy of `own`. Entries that stand open are first filled from the
    /// bottom frame, where both agree on the first entry of `own` that has bounds.
    void push(const std::vector<Constraint>& own);

    /// Removes the top frame; the stack must not be empty.
    void pop();

    /// The next range, valid until the frame that gave it is popped. All zero where every level
    /// leaves it open or has no entry left.
    const Constraint& getConstraint();

private:
    static constexpr std::size_t FRAMES_INSIDE = 12;
    static constexpr std::size_t ENTRIES_INSIDE = 24;

    Frame& frameAt(std::size_t index) {
        return index < FRAMES_INSIDE ? m_frames[index] : m_moreFrames[index - FRAMES_INSIDE];
    }
    void pushOutside(const Frame& frame, const std::vector<Constraint>& own);
    void merge(Frame& own);

    std::size_t m_depth = 0;
    std::size_t m_entriesUsed = 0;   ///< Of those inside.
    std::vector<Frame> m_moreFrames; ///< Above those inside.
    Frame m_frames[FRAMES_INSIDE];   ///< Bottom first.
    union {
        Constraint m_entries[ENTRIES_INSIDE]; ///< Bottom frame's first.
    };
};

template <typename Constraint>
inline void ConstraintStack<Constraint>::push(const std::vector<Constraint>& own) {
    const Frame frame{0, false, own.size(), m_entries + m_entriesUsed};
    if (m_depth >= FRAMES_INSIDE || frame.m_count > ENTRIES_INSIDE - m_entriesUsed) {
        pushOutside(frame, own);
    } else {
        std::uninitialized_copy(own.begin(), own.end(), frame.m_constraints);
        m_frames[m_depth++] = frame;
        m_entriesUsed += frame.m_count;
    }
    if (m_depth > 1 && !own.empty())
        merge(frameAt(m_depth - 1));
}

template <typename Constraint> inline void ConstraintStack<Constraint>::pop() {
    const Frame& top = frameAt(--m_depth);
    if (top.m_isOutside)
        delete[] top.m_constraints;
    else
        m_entriesUsed -= top.m_count;
    if (m_depth >= FRAMES_INSIDE)
        m_moreFrames.pop_back();
}

template <typename Constraint> inline ConstraintStack<Constraint>::~ConstraintStack() {
    while (m_depth != 0)
        pop();
}

extern template class RTTI_EXPORT ConstraintStack<RTTI::FullConstraints>;

} // namespace Brakel_tolv
