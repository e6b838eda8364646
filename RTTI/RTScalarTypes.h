#pragma once

#include "RTTI/RTBaseType.h"

#include <string>
#include <vector>

namespace RTTI {

/// An integer type and its range.
class RTTI_EXPORT RTIntType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    FullConstraints m_constraint; ///< The range of the type.
};

/// A real type and its range.
class RTTI_EXPORT RTFloatType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// "Byte" for flavour 0, "4-State" for all others.
    ValueEncoding getValueEncoding() const override;

    int m_floatKind = 0;  ///< The flavour, 0 to 3. Negative values are kept as the record has them.
    double m_left = 0.0;  ///< Left bound, as written in the source.
    double m_right = 0.0; ///< Right bound.
    int m_direction = 0;  ///< The double in the record, truncated towards zero.
};

/// The type of a wildcard index. A visitor receives it as an RTBaseType.
class RTTI_EXPORT RTWildCardType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
};

/// The SystemVerilog string.
class RTTI_EXPORT RTStringType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// Always "2-State".
    ValueEncoding getValueEncoding() const override;

    /// Always -5.
    int getSVTypeId() const override;
};

/// The SystemVerilog chandle.
class RTTI_EXPORT RTCHandle : public RTBaseType {
public:
    /// A chandle with a name; a null name stays null.
    using RTBaseType::RTBaseType;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
};

/// The SystemVerilog event.
class RTTI_EXPORT RTEventType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// Always "2-State".
    ValueEncoding getValueEncoding() const override;

    /// Always -7.
    int getSVTypeId() const override;

    int m_eventKind = 0; ///< The flavour, 0 or 1. Negative values are kept as the record has them.
};

/// A unit of a physical type.
struct t_unitNameAndValuePair {
    std::string unitName; ///< The unit, without its terminating zero byte.
    long long value = 0;  ///< In multiples of the primary unit.
};

/// A VHDL physical type.
class RTTI_EXPORT RTPhysicalType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    std::vector<t_unitNameAndValuePair> m_units; ///< In the order of the record.
};

} // namespace RTTI
