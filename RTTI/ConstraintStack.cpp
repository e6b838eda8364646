#include "RTTI/ConstraintStack.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Brakel_tolv {

namespace {

using RTTI::FullConstraints;

/// The full range of a 32-bit index: open for the merge, a range like any other for the rest.
bool isOpenRange(const FullConstraints& range) {
    return range.si == std::numeric_limits<int>::min() &&
           range.ei == std::numeric_limits<int>::max() &&
           range.dir == RTTI::TypeFileFormat::TO_DIRECTION;
}

bool hasBounds(const FullConstraints& range) {
    return range.dir != RTTI::TypeFileFormat::UNCONSTRAINED_DIRECTION && !isOpenRange(range);
}

} // namespace

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
    if (m_depth == 0 || !hasOpenEntries(own))
        return nullptr;
    const auto anchor = std::find_if(own.begin(), own.end(), hasBounds);
    if (anchor == own.end())
        return nullptr;
    const std::vector<Constraint>& bottom = *m_frames[0].m_constraints;
    const auto match = std::find_if(bottom.begin(), bottom.end(), [&](const Constraint& range) {
        return range.si == anchor->si && range.ei == anchor->ei && range.dir == anchor->dir;
    });
    const auto shift = (match - bottom.begin()) - (anchor - own.begin());
    if (match == bottom.end() || shift < 0 ||
        bottom.end() - bottom.begin() - shift < own.end() - own.begin())
        return nullptr;
    return bottom.data() + shift;
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
