#include "RTTI/ConstraintStack.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace Brakel_tolv {

namespace {

using RTTI::FullConstraints;

bool isUnconstrained(const FullConstraints& range) {
    return range.dir == RTTI::TypeFileFormat::UNCONSTRAINED_DIRECTION;
}

/// The full range of a 32-bit index: open for the merge, a range like any other for the rest.
bool isOpenRange(const FullConstraints& range) {
    return range.si == std::numeric_limits<int>::min() &&
           range.ei == std::numeric_limits<int>::max() &&
           range.dir == RTTI::TypeFileFormat::TO_DIRECTION;
}

bool hasBounds(const FullConstraints& range) {
    return !isUnconstrained(range) && !isOpenRange(range);
}

} // namespace

/// A frame that finds no room has entries of its own, and so has every frame above it.
template <typename Constraint>
void ConstraintStack<Constraint>::pushOutside(const std::vector<Constraint>& own) {
    auto entries = std::make_unique<Constraint[]>(own.size());
    std::copy(own.begin(), own.end(), entries.get());
    const Frame frame{0, static_cast<unsigned int>(own.size()), entries.get()};
    if (m_depth < FRAMES_INSIDE)
        m_frames[m_depth] = frame;
    else
        m_moreFrames.push_back(frame);
    entries.release(); // The frame has it.
    ++m_outside;
    if (m_depth++ != 0)
        merge(frameAt(m_depth - 1));
}

template <typename Constraint> void ConstraintStack<Constraint>::popOutside() {
    delete[] frameAt(--m_depth).m_constraints;
    --m_outside;
    if (m_depth >= FRAMES_INSIDE)
        m_moreFrames.pop_back();
}

template <typename Constraint> void ConstraintStack<Constraint>::merge(Frame& own) {
    Constraint* const begin = own.m_constraints;
    Constraint* const end = begin + own.m_count;
    if (std::none_of(begin, end, isUnconstrained))
        return;
    const Constraint* const anchor = std::find_if(begin, end, hasBounds);
    if (anchor == end)
        return;
    const Constraint* const bottom = m_frames[0].m_constraints;
    const Constraint* const bottomEnd = bottom + m_frames[0].m_count;
    const Constraint* const match = std::find_if(bottom, bottomEnd, [&](const Constraint& range) {
        return range.si == anchor->si && range.ei == anchor->ei && range.dir == anchor->dir;
    });
    const auto shift = (match - bottom) - (anchor - begin);
    if (match == bottomEnd || shift < 0 || bottomEnd - bottom - shift < end - begin)
        return;
    for (std::size_t i = 0; i < own.m_count; ++i) {
        if (!hasBounds(begin[i]))
            begin[i] = bottom[i + static_cast<std::size_t>(shift)];
    }
}

template <typename Constraint> const Constraint& ConstraintStack<Constraint>::findConstraint() {
    static const Constraint dummy{};
    for (std::size_t depth = m_depth; depth > 0; --depth) {
        Frame& frame = frameAt(depth - 1);
        if (frame.m_cursor >= frame.m_count)
            continue;
        const Constraint& next = frame.m_constraints[frame.m_cursor++];
        if (!isUnconstrained(next))
            return next;
    }
    return dummy;
}

template class ConstraintStack<FullConstraints>;

} // namespace Brakel_tolv
