#include "Inspect/words/NamedValues.h"

#include "RTTI/RTBaseType.h"

#include <iterator>

namespace Inspect {

namespace {

constexpr const char* encodingNames[] = {"4-State", "2-State", "Byte", "Unpadded-Byte"};
constexpr const char* arrayKindNames[] = {"ARRAY_KIND_INVALID",
                                          "VHDL_ARRAY",
                                          "VLOG_FIXED_UNPACKED_ARRAY",
                                          "VLOG_FIXED_PACKED_ARRAY",
                                          "VLOG_DYNAMIC_ARRAY",
                                          "VLOG_ASSOCIATIVE_ARRAY",
                                          "VLOG_QUEUE",
                                          "BYTE_UNPADDED_ARRAY"};
constexpr const char* recordKindNames[] = {
    "RECORD_KIND_INVALID",        "VHDL_RECORD",
    "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
    "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
    "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
    "BYTE_UNPADDED_STRUCT"};
constexpr const char* enumKindNames[] = {"INVALID_ENUM",   "VLOG_BUILTIN_ENUM",
                                         "VHDL_BIT_ENUM",  "VHDL_STD_LOGIC_ENUM",
                                         "VHDL_CHAR_ENUM", "VHDL_OTHER_ENUM"};

} // namespace

const NamedValues valueEncodings{encodingNames, std::size(encodingNames), RTTI::ENCODING_4_STATE};
const NamedValues arrayKinds{arrayKindNames, std::size(arrayKindNames), RTTI::ARRAY_KIND_INVALID};
const NamedValues recordKinds{recordKindNames, std::size(recordKindNames),
                              RTTI::RECORD_KIND_INVALID};
const NamedValues enumKinds{enumKindNames, std::size(enumKindNames), RTTI::INVALID_ENUM};

const char* NamedValues::nameOf(unsigned int value) const {
    const unsigned int index = value - first; // Wraps for what is below the first.
    return index < count ? names[index] : nullptr;
}

bool NamedValues::find(std::string_view name, unsigned int& value) const {
    for (std::size_t i = 0; i < count; ++i) {
        if (name == names[i]) {
            value = first + static_cast<unsigned int>(i);
            return true;
        }
    }
    return false;
}

} // namespace Inspect
