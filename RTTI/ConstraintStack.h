#pragma once

#include "RTTI/RTBaseType.h"

#include <cstddef>
#include <new>
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
    /// The ranges of one level: a copy, in the stack's own room or in memory of its own.
    struct Frame {
        unsigned int m_cursor; ///< The entry that is used next.
        unsigned int m_count;
        Constraint* m_constraints;
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

    static bool isOpen(const Constraint& range) {
        return range.dir == RTTI::TypeFileFormat::UNCONSTRAINED_DIRECTION;
    }
    Frame& frameAt(std::size_t index) {
        return index < FRAMES_INSIDE ? m_frames[index] : m_moreFrames[index - FRAMES_INSIDE];
    }
    void pushOutside(const std::vector<Constraint>& own);
    void popOutside();
    void merge(Frame& own);
    const Constraint& findConstraint();

    std::size_t m_depth = 0;
    std::size_t m_outside = 0;       ///< Frames that are not wholly inside; those on top.
    std::vector<Frame> m_moreFrames; ///< Above those inside.
    Constraint* m_free = m_entries;  ///< Behind the entries in use.
    Frame m_frames[FRAMES_INSIDE];   ///< Bottom first.
    union {
        Constraint m_entries[ENTRIES_INSIDE]; ///< The bottom frame's first.
    };
};

template <typename Constraint>
inline void ConstraintStack<Constraint>::push(const std::vector<Constraint>& own) {
    if (m_outside != 0 || m_depth == FRAMES_INSIDE ||
        own.size() > static_cast<std::size_t>(m_entries + ENTRIES_INSIDE - m_free)) {
        pushOutside(own);
        return;
    }
    Frame& frame = m_frames[m_depth];
    frame = {0, static_cast<unsigned int>(own.size()), m_free};
    bool hasOpenEntries = false;
    for (const Constraint& range : own) {
        new (m_free++) Constraint(range);
        hasOpenEntries = hasOpenEntries || isOpen(range);
    }
    if (m_depth++ != 0 && hasOpenEntries)
        merge(frame);
}

template <typename Constraint> inline void ConstraintStack<Constraint>::pop() {
    if (m_outside != 0)
        popOutside();
    else
        m_free = m_frames[--m_depth].m_constraints;
}

template <typename Constraint>
inline const Constraint& ConstraintStack<Constraint>::getConstraint() {
    if (m_depth != 0 && m_outside == 0) {
        Frame& top = m_frames[m_depth - 1];
        if (top.m_cursor < top.m_count && !isOpen(top.m_constraints[top.m_cursor]))
            return top.m_constraints[top.m_cursor++];
    }
    return findConstraint();
}

template <typename Constraint> inline ConstraintStack<Constraint>::~ConstraintStack() {
    while (m_outside != 0)
        popOutside();
}

extern template class RTTI_EXPORT ConstraintStack<RTTI::FullConstraints>;

} // namespace Brakel_tolv
