#pragma once

#include "Import/Place.h"
#include "Import/References.h"
#include "RTTI/RTType.h"

#include <string_view>

namespace Import {

/// Types of a table that are objects one at a time, when they are needed: memory goes only into
/// what tells them apart. They have numbers from 0 on.
class TypeSource {
public:
    virtual ~TypeSource() = default;

    virtual unsigned int count() const = 0;

    /// Empty where the input gives it none. Valid as long as the source.
    virtual std::string_view nameOf(unsigned int number) const = 0;

    virtual Place placeOf(unsigned int number) const = 0;

    /// The references of each type: the ids in its object, in that order. Called once.
    virtual References takeReferences() = 0;

    /// The type, until the next call. Its ids may be changed; it has the same ones each time.
    virtual RTTI::RTBaseType& object(unsigned int number) = 0;
};

} // namespace Import
