#pragma once

#include "RTTI/Ranges.h"

#include <cstddef>
#include <memory>
#include <vector>

/// The state that a walk over types carries along.
namespace Brakel_tolv {

/// The ranges of the levels around a type, innermost on top, while the type's ranges are flattened.
///
/// Each level pushes a frame with the ranges that it adds; an array takes one range for each of its
/// dimensions. If a level leaves a range open (direction -2), the next level below supplies it, and
/// each level that was asked has used up one of its entries. The stack owns its frames. The first
/// few are stored in the stack object itself, so walks of ordinary types allocate nothing for them.
template <typename Constraint> class ConstraintStack {
public:
    /// The ranges of one level.
    struct Frame {
        const std::vector<Constraint>* m_constraints; ///< The entries.
        unsigned int m_cursor;                        ///< The next entry to use.
        unsigned int m_below : 31; ///< The depth at which the search continues below this frame.
        unsigned int
            m_isCopy : 1; ///< Whether the frame owns its ranges; if not, the level's type does.
    };

    /// An empty stack. Constant time; nothing is allocated.
    // cppcheck-suppress uninitMemberVar
    ConstraintStack() {} // Leaves the storage for frames uninitialised.
    ConstraintStack(const ConstraintStack&) = delete;
    ConstraintStack& operator=(const ConstraintStack&) = delete;

    /// Removes any remaining frames.
    ~ConstraintStack() { popTo(0); }

    /// Pushes a frame with a copy of `own`. Open entries are first filled in from the bottom frame,
    /// provided that both agree on the first entry of `own` that has bounds. Takes time
    /// proportional to the entries of both frames; throws only std::bad_alloc, and then nothing has
    /// been pushed.
    void push(const std::vector<Constraint>& own);

    /// Like `push`, but makes no copy unless an entry has to be filled in: `own` must not change
    /// until its frame is popped. Takes time proportional to the entries if some are open, else
    /// constant time; throws like `push`.
    void pushLasting(const std::vector<Constraint>& own);

    /// Removes the top frame; the stack must not be empty. Constant time.
    void pop() { popTo(m_depth - 1); }

    /// Removes all but the lowest `depth` frames; there must be at least that many. Constant time
    /// if no frame owns its ranges, else linear in the number of frames removed.
    void popTo(std::size_t depth);

    /// The number of frames on the stack.
    std::size_t depth() const { return m_depth; }

    /// Whether a level leaves this range to the levels below.
    static bool isOpen(const Constraint& range) { return RTTI::isOpen(range); }

    /// Whether a level with these ranges leaves any of them to the levels below.
    static bool hasOpenEntries(const std::vector<Constraint>& ranges) {
        return RTTI::hasOpenRanges(ranges);
    }

    /// The next range, valid until the frame that it comes from is popped. All fields are zero if
    /// every level leaves the range open or has no entry left. Takes time proportional to the
    /// levels that have an entry left: a level without one is skipped from then on.
    const Constraint& getConstraint();

private:
    static constexpr std::size_t FRAMES_INSIDE = 12;

    static bool isUsedUp(const Frame& frame) {
        return frame.m_cursor >= frame.m_constraints->size();
    }

    void makeRoom();
    void append(const std::vector<Constraint>& ranges, bool isCopy) {
        m_frames[m_depth] = {&ranges, 0, static_cast<unsigned int>(m_depth) & 0x7FFFFFFF, isCopy};
        ++m_depth;
    }
    void pushFilled(const std::vector<Constraint>& own, bool copies);
    const Constraint* findFilling(const std::vector<Constraint>& own) const;
    const Constraint& findConstraint();
    std::size_t nextBelow(Frame& frame);

    Frame* m_frames = m_inside; ///< Bottom first.
    std::size_t m_depth = 0;
    std::size_t m_room = FRAMES_INSIDE;
    std::size_t m_copies = 0; ///< The number of frames that own their ranges.
    std::unique_ptr<Frame[]> m_outside;
    union {
        Frame m_inside[FRAMES_INSIDE];
    };
};

template <typename Constraint>
inline void ConstraintStack<Constraint>::pushLasting(const std::vector<Constraint>& own) {
    if (m_depth == m_room || (m_depth != 0 && hasOpenEntries(own)))
        pushFilled(own, false);
    else
        append(own, false);
}

template <typename Constraint> inline void ConstraintStack<Constraint>::popTo(std::size_t depth) {
    for (; m_copies != 0 && m_depth > depth; --m_depth) {
        if (m_frames[m_depth - 1].m_isCopy) {
            delete m_frames[m_depth - 1].m_constraints;
            --m_copies;
        }
    }
    m_depth = depth;
}

template <typename Constraint>
inline const Constraint& ConstraintStack<Constraint>::getConstraint() {
    if (m_depth != 0) {
        Frame& top = m_frames[m_depth - 1];
        const Constraint* const first = top.m_constraints->data();
        const Constraint* const next = first + top.m_cursor;
        if (next != first + top.m_constraints->size() && !isOpen(*next)) {
            ++top.m_cursor;
            return *next;
        }
    }
    return findConstraint();
}

extern template class RTTI_EXPORT ConstraintStack<RTTI::FullConstraints>;

} // namespace Brakel_tolv
