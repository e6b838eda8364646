#include "RTTI/ConstraintStack.h"

#include <algorithm>
#include <utility>

namespace Brakel_tolv {

using RTTI::FullConstraints;

template <typename Constraint> void ConstraintStack<Constraint>::makeRoom() {
    auto outside = std::make_unique<Frame[]>(2 * m_room);
    std::copy_n(m_frames, m_depth, outside.get());
    m_outside = std::move(outside);
    m_frames = m_outside.get();
    m_room *= 2;
}

template <typename Constraint>
void ConstraintStack<Constraint>::push(const std::vector<Constraint>& own) {
    pushFilled(own, true);
}

template <typename Constraint>
void ConstraintStack<Constraint>::pushFilled(const std::vector<Constraint>& own, bool copies) {
    if (m_depth == m_room)
        makeRoom();
    const Constraint* const filling = findFilling(own);
    if (filling == nullptr && !copies) {
        append(own, false);
        return;
    }
    auto copy = std::make_unique<std::vector<Constraint>>(own);
    if (filling != nullptr) {
        std::transform(own.begin(), own.end(), filling, copy->begin(),
                       [](const Constraint& range, const Constraint& bottom) {
                           return hasBounds(range) ? range : bottom;
                       });
    }
    append(*copy.release(), true);
    ++m_copies;
}

/// What the open entries of `own` are filled from: as many entries of the bottom frame as `own`
/// has. Null where nothing is filled.
template <typename Constraint>
const Constraint*
ConstraintStack<Constraint>::findFilling(const std::vector<Constraint>& own) const {
    return m_depth != 0 ? RTTI::alignedRanges(own, *m_frames[0].m_constraints) : nullptr;
}

template <typename Constraint> const Constraint& ConstraintStack<Constraint>::findConstraint() {
    static constexpr Constraint dummy{};
    for (std::size_t depth = m_depth; depth != 0;) {
        Frame& frame = m_frames[depth - 1];
        if (!isUsedUp(frame)) {
            const Constraint& next = (*frame.m_constraints)[frame.m_cursor++];
            if (!isOpen(next))
                return next;
        }
        depth = nextBelow(frame);
    }
    return dummy;
}

/// The depth of the next frame below that has entries left, 0 for none. A frame that has none will
/// not have any again while it is on the stack, so the ways past such frames are shortened as they
/// are gone: each new way past a million of them is a few steps.
template <typename Constraint> std::size_t ConstraintStack<Constraint>::nextBelow(Frame& frame) {
    std::size_t depth = frame.m_below;
    while (depth != 0 && isUsedUp(m_frames[depth - 1])) {
        Frame& passed = m_frames[depth - 1];
        depth = passed.m_below;
        if (depth != 0 && isUsedUp(m_frames[depth - 1]))
            depth = passed.m_below = m_frames[depth - 1].m_below;
    }
    frame.m_below = static_cast<unsigned int>(depth) & 0x7FFFFFFF;
    return depth;
}

template class ConstraintStack<FullConstraints>;

} // namespace Brakel_tolv
