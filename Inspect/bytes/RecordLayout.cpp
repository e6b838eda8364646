#include "Inspect/bytes/RecordLayout.h"

#include "RTTI/TypeFileFormat.h"

#include <cstddef>

namespace Inspect {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

using enum FieldForm;

/// In the order of the enumeration.
constexpr std::string_view FORM_WORDS[] = {
    "recordSize", "kind",   "name",      "flags",   "number", "unsigned", "offset",    "named",
    "flavour",    "typeId", "svTypeId",  "boolean", "long",   "real",     "direction", "range",
    "version",    "count",  "valueSize", "value",   "ranges", "list",     "endOfList"};
static_assert(std::size(FORM_WORDS) == static_cast<std::size_t>(END_OF_LIST) + 1);

constexpr FieldLayout HEADER[] = {
    {"version", VERSION}, {"type count", UNSIGNED}, {"address table offset", OFFSET}};

constexpr FieldLayout RECORD_HEAD[] = {
    {"record size", RECORD_SIZE}, {"kind", KIND}, {"name", NAME}, {"flags", FLAGS}};

constexpr FieldLayout END{nullptr, END_OF_LIST};
constexpr FieldLayout CONSTRAINTS{"constraint", RANGES};
constexpr FieldLayout OWN_SV_TYPE_ID{"SV type id", SV_TYPE_ID};
constexpr FieldLayout LAST_SV_TYPE_ID{"SV type id", SV_TYPE_ID, NO_SV_TYPE_ID};

constexpr FieldLayout SEQ_ENUM_BODY[] = {{"encoding", NAMED, 0, &valueEncodings},
                                         {"enum kind", NAMED, 0, &enumKinds},
                                         {"enumerator count", COUNT},
                                         {"enumerator", LIST},
                                         {"name", NAME},
                                         END,
                                         {"enumerator size", VALUE_SIZE, 1}};

constexpr FieldLayout DISCRETE_ENUM_BODY[] = {{"base type id", TYPE_ID},
                                              {"enumerator count", COUNT},
                                              {"enumerator size", VALUE_SIZE},
                                              {"enumerator", LIST},
                                              {"name", NAME},
                                              {"value", VALUE},
                                              END,
                                              CONSTRAINTS};

constexpr FieldLayout INT_BODY[] = {{"constraint", RANGE}};

constexpr FieldLayout FLOAT_BODY[] = {{"real kind", FLAVOUR, 0, nullptr, LAST_FLOAT_KIND},
                                      {"left bound", REAL},
                                      {"right bound", REAL},
                                      {"direction", DIRECTION}};

constexpr FieldLayout TYPEDEF_BODY[] = {{"data type id", TYPE_ID}, CONSTRAINTS};

constexpr FieldLayout REFERENCE_BODY[] = {
    {"referenced type id", TYPE_ID}, {"alignment", UNSIGNED}, {"value size", UNSIGNED}};

constexpr FieldLayout EVENT_BODY[] = {{"event kind", FLAVOUR, 0, nullptr, LAST_EVENT_KIND}};

constexpr FieldLayout PHYSICAL_BODY[] = {
    {"unit count", COUNT}, {"unit", LIST}, {"name", NAME}, {"value", LONG}, END};

constexpr FieldLayout ARRAY_BODY[] = {{"array kind", NAMED, 0, &arrayKinds},
                                      {"element type id", TYPE_ID},
                                      {"dimension count", COUNT},
                                      {"dimension", LIST},
                                      {"index type id", TYPE_ID},
                                      END,
                                      CONSTRAINTS,
                                      LAST_SV_TYPE_ID};

constexpr FieldLayout RECORD_BODY[] = {{"record kind", NAMED, 0, &recordKinds},
                                       {"member count", COUNT},
                                       {"member", LIST},
                                       {"name", NAME},
                                       {"type id", TYPE_ID},
                                       CONSTRAINTS,
                                       END,
                                       LAST_SV_TYPE_ID};

constexpr FieldLayout CONTAINER_BODY[] = {{"element type id", TYPE_ID}, OWN_SV_TYPE_ID};

constexpr FieldLayout ASSOC_ARRAY_BODY[] = {
    {"element type id", TYPE_ID}, OWN_SV_TYPE_ID, {"index type id", TYPE_ID}};

constexpr FieldLayout CLASS_BODY[] = {{"base class type id", TYPE_ID},
                                      OWN_SV_TYPE_ID,
                                      {"member count", COUNT},
                                      {"member", LIST},
                                      {"name", NAME},
                                      {"type id", TYPE_ID},
                                      CONSTRAINTS,
                                      {"flag", BOOLEAN},
                                      END};

} // namespace

std::string_view wordOf(FieldForm form) { return FORM_WORDS[static_cast<std::size_t>(form)]; }

std::span<const FieldLayout> headerLayout() { return HEADER; }

std::span<const FieldLayout> recordHeadLayout() { return RECORD_HEAD; }

std::span<const FieldLayout> bodyLayout(unsigned int kindCode) {
    switch (kindCode) {
    case ClassId::SEQ_ENUM: return SEQ_ENUM_BODY;
    case ClassId::DISCRETE_ENUM: return DISCRETE_ENUM_BODY;
    case ClassId::INT: return INT_BODY;
    case ClassId::FLOAT: return FLOAT_BODY;
    case ClassId::TYPEDEF: return TYPEDEF_BODY;
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE: return REFERENCE_BODY;
    case ClassId::EVENT: return EVENT_BODY;
    case ClassId::PHYSICAL: return PHYSICAL_BODY;
    case ClassId::ARRAY: return ARRAY_BODY;
    case ClassId::RECORD: return RECORD_BODY;
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE: return CONTAINER_BODY;
    case ClassId::ASSOC_ARRAY: return ASSOC_ARRAY_BODY;
    case ClassId::CLASS: return CLASS_BODY;
    default: return {};
    }
}

} // namespace Inspect
