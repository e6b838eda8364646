#include "RTTI/ConstraintStack.h"

#include <algorithm>
#include <limits>

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

template <typename Constraint>
void ConstraintStack<Constraint>::merge(std::vector<Constraint>& own,
                                        const std::vector<Constraint>& bottom) {
    if (std::none_of(own.begin(), own.end(), isUnconstrained))
        return;
    const auto anchor = std::find_if(own.begin(), own.end(), hasBounds);
    if (anchor == own.end())
        return;
    const auto match = std::find_if(bottom.begin(), bottom.end(), [&](const Constraint& range) {
        return range.si == anchor->si && range.ei == anchor->ei && range.dir == anchor->dir;
    });
    const auto shift = (match - bottom.begin()) - (anchor - own.begin());
    if (match == bottom.end() || shift < 0 ||
        bottom.end() - bottom.begin() - shift < own.end() - own.begin())
        return;
    for (std::size_t i = 0; i < own.size(); ++i) {
        if (!hasBounds(own[i]))
            own[i] = bottom[i + static_cast<std::size_t>(shift)];
    }
}

template <typename Constraint>
void ConstraintStack<Constraint>::push(const std::vector<Constraint>& own) {
    auto frame = std::make_unique<Frame>();
    frame->m_constraints = own;
    if (!m_frames.empty())
        merge(frame->m_constraints, m_frames.front()->m_constraints);
    m_frames.push_back(std::move(frame));
}

template <typename Constraint> const Constraint& ConstraintStack<Constraint>::getConstraint() {
    static const Constraint dummy{};
    for (auto frame = m_frames.rbegin(); frame != m_frames.rend(); ++frame) {
        const std::vector<Constraint>& constraints = (*frame)->m_constraints;
        const unsigned int next = (*frame)->m_cursor;
        if (next >= constraints.size())
            continue;
        (*frame)->m_cursor = next + 1;
        if (!isUnconstrained(constraints[next]))
            return constraints[next];
    }
    return dummy;
}

template class ConstraintStack<FullConstraints>;

} // namespace Brakel_tolv
