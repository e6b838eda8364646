#include "TypeFile/RecordLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <set>
#include <string>
#include <utility>

namespace {

using TypeFile::FieldForm;
using TypeFile::FieldLayout;
using Keys = std::set<std::string>;

/// JSON has no field that follows from others.
bool isLeftOut(const FieldLayout& field) {
    return field.form == FieldForm::RECORD_SIZE || field.form == FieldForm::COUNT;
}

/// The keys of a layout's fields, and "list.field" for those of a list's entries.
Keys keysOf(std::span<const FieldLayout> layout) {
    Keys keys;
    std::string list;
    for (const FieldLayout& field : layout) {
        if (field.form == FieldForm::END_OF_LIST)
            list.clear();
        else if (!isLeftOut(field) && *field.name != '\0')
            keys.insert(list + field.name);
        if (field.form == FieldForm::LIST)
            list = std::string(field.name) + '.';
    }
    return keys;
}

/// The properties that the schema has for a kind, and those of the objects in its lists.
Keys schemaKeys(const nlohmann::json& kind) {
    Keys keys;
    for (const auto& [name, property] : kind.at("properties").items()) {
        keys.insert(name);
        if (property.contains("items") && property["items"].contains("properties"))
            for (const auto& entry : property["items"]["properties"].items())
                keys.insert(name + '.' + entry.key());
    }
    keys.erase("id"); // The place in the address table.
    return keys;
}

TEST(RecordLayout, HasTheFieldsOfTheJsonSchemaUnderTheirNames) {
    using namespace RTTI::ClassId;
    std::ifstream file(TYPES_SCHEMA);
    const auto kinds = nlohmann::json::parse(file).at("$defs");
    const std::pair<const char*, unsigned int> names[] = {
        {"seqEnum", SEQ_ENUM}, {"discreteEnum", DISCRETE_ENUM},
        {"integer", INT},      {"real", FLOAT},
        {"typedef", TYPEDEF},  {"access", ACCESS},
        {"file", FILE_TYPE},   {"chandle", CHANDLE},
        {"string", STRING},    {"wildcard", WILDCARD},
        {"event", EVENT},      {"physical", PHYSICAL},
        {"array", ARRAY},      {"dynamicArray", DYNAMIC_ARRAY},
        {"queue", QUEUE},      {"assocArray", ASSOC_ARRAY},
        {"record", RECORD},    {"class", CLASS}};
    for (const auto& [name, code] : names) {
        Keys keys = keysOf(TypeFile::Layout::HEAD);
        keys.merge(keysOf(TypeFile::bodyLayout(code)));
        EXPECT_EQ(keys, schemaKeys(kinds.at(std::string("kind_") + name))) << name;
    }
}

TEST(RecordLayout, OfAKindThatBuildsNoTypeIsEmpty) {
    for (unsigned int kind = RTTI::ClassId::BASE_TYPE; kind < 0xA0000020; ++kind)
        EXPECT_TRUE(TypeFile::buildsType(kind) || TypeFile::bodyLayout(kind).empty()) << kind;
}

} // namespace
