#pragma once

#include "RTTI/RTType.h"

#include <unordered_map>
#include <vector>

namespace Inspect {

/// The value encodings that types answer when each is asked before all others.
///
/// A class that answers "4-State" because of its base class answers "2-State" from then on, and so
/// may every type that leads to it: the answers of `getValueEncoding` depend on earlier calls.
/// These do not, and asking here leaves no mark. An object of this class remembers its results:
/// asking for all types of a table takes time and memory proportional to the table. The types must
/// stay alive, and each thread needs an object of its own.
class TypeEncodings {
public:
    /// The encoding of a type. Calls `getValueEncoding` only on types that lead to no class.
    RTTI::ValueEncoding of(const RTTI::RTBaseType& type);

private:
    /// What decides about a type: an aggregate, or itself.
    const RTTI::RTBaseType& endOf(const RTTI::RTBaseType& type);
    bool isTwoState(const RTTI::RTAggregateType& aggregate);
    void explore(const RTTI::RTAggregateType& first);

    /// At the end of a chain of types that answer for one another.
    std::unordered_map<const RTTI::RTBaseType*, const RTTI::RTBaseType*> m_ends;

    /// Of the aggregates that were reached, with everything below them.
    std::unordered_map<const RTTI::RTBaseType*, bool> m_isTwoState;
};

} // namespace Inspect
