#pragma once

#include "Import/Place.h"
#include "Import/References.h"
#include "RTTI/RTType.h"

#include <memory>
#include <string_view>

namespace Import {

/// Types of a table that are made one by one, when they are needed: as long as none is, memory goes
/// only into what tells them apart. They have numbers from 0 on.
class TypeSource {
public:
    virtual ~TypeSource() = default;

    virtual unsigned int count() const = 0;

    /// Empty where the input gives it none. Valid as long as the source.
    virtual std::string_view nameOf(unsigned int number) const = 0;

    virtual Place placeOf(unsigned int number) const = 0;

    /// The references of each type: the ids in the object that `make` makes, in that order.
    virtual const References& references() const = 0;

    /// Makes the type; the same one each time.
    virtual std::unique_ptr<RTTI::RTBaseType> make(unsigned int number) const = 0;
};

} // namespace Import
