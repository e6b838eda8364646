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
        m_frames[m_depth++] = {&own, 0, false};
        return;
    }
    auto copy = std::make_unique<std::vector<Constraint>>(own);
    if (filling != nullptr) {
        std::transform(own.begin(), own.end(), filling, copy->begin(),
                       [](const Constraint& range, const Constraint& bottom) {
                           return hasBounds(range) ? range : bottom;
                       });
    }
    m_frames[m_depth++] = {copy.release(), 0, true};
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
    static const Constraint dummy{};
    for (std::size_t depth = m_depth; depth > 0; --depth) {
        Frame& frame = m_frames[depth - 1];
        if (frame.m_cursor >= frame.m_constraints->size())
            continue;
        const Constraint& next = (*frame.m_constraints)[frame.m_cursor++];
        if (!isOpen(next))
            return next;
    }
    return dummy;
}

template class ConstraintStack<FullConstraints>;

} // namespace Brakel_tolv
