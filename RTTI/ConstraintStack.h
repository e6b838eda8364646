#pragma once

#include "RTTI/RTBaseType.h"

#include <cstddef>
#include <memory>
#include <vector>

/// What walks over types carry along, apart from the types themselves.
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
        const std::vector<Constraint>* m_constraints; ///< The entries.
        unsigned int m_cursor;                        ///< The entry that is used next.
        unsigned int m_below : 31; ///< The depth at which a question goes on below this frame.
        unsigned int
            m_isCopy : 1; ///< Then the ranges belong to the frame, else to the level's type.
    };

    /// Empty. Constant time; nothing is allocated.
    // cppcheck-suppress uninitMemberVar
    ConstraintStack() {} // Leaves the room for frames as it is.
    ConstraintStack(const ConstraintStack&) = delete;
    ConstraintStack& operator=(const ConstraintStack&) = delete;

    /// Removes the frames that are left.
    ~ConstraintStack() { popTo(0); }

    /// Pushes a frame with a copy of `own`. Entries that stand open are first filled from the
    /// bottom frame, where both agree on the first entry of `own` that has bounds. Grows with the
    /// entries of both frames; throws std::bad_alloc alone, and then nothing was pushed.
    void push(const std::vector<Constraint>& own);

    /// The same without a copy where nothing is filled: `own` must not change until its frame is
    /// popped. Grows with the entries where some stand open; throws as `push` does.
    void pushLasting(const std::vector<Constraint>& own);

    /// Removes the top frame; the stack must not be empty. Constant time.
    void pop() { popTo(m_depth - 1); }

    /// Removes the frames above the lowest `depth`, of which there must be that many. Constant time
    /// where none has ranges of its own, else linear in the frames removed.
    void popTo(std::size_t depth);

    /// Frames on the stack.
    std::size_t depth() const { return m_depth; }

    /// Whether a level leaves this range to the levels below it.
    static bool isOpen(const Constraint& range) {
        return range.dir == RTTI::TypeFileFormat::UNCONSTRAINED_DIRECTION;
    }

    /// Whether a level with these ranges leaves one of them to the levels below it.
    static bool hasOpenEntries(const std::vector<Constraint>& ranges) {
        for (const Constraint& range : ranges) {
            if (isOpen(range))
                return true;
        }
        return false;
    }

    /// The next range, valid until the frame that gave it is popped. All zero where every level
    /// leaves it open or has no entry left. Grows with the levels that have an entry left: those
    /// that have none are passed over for good.
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
    std::size_t m_copies = 0; ///< Frames with ranges of their own.
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
