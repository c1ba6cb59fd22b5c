#pragma once
// The part of JSON Schema that this project's schemas use: type, required, properties, additionalProperties, items.

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "tests/host/scratch.h"

namespace canvas::schema {

using Json = nlohmann::json;

inline Json load(const std::string& name) {
    return Json::parse(scratch::bytesOf(std::string(CANVAS_SOURCE_DIR) + "/docs/" + name));
}

inline bool isOfType(const Json& value, const std::string& type) {
    if (type == "object") return value.is_object();
    if (type == "array") return value.is_array();
    if (type == "string") return value.is_string();
    if (type == "integer") return value.is_number_integer();
    if (type == "number") return value.is_number();
    if (type == "boolean") return value.is_boolean();
    return type == "null" && value.is_null();
}

inline bool isOfAnyType(const Json& value, const Json& types) {
    if (types.is_string()) return isOfType(value, types.get<std::string>());
    for (const Json& type : types)
        if (isOfType(value, type.get<std::string>())) return true;
    return false;
}

/// What of a value is not as its schema says, as paths with a reason; empty when all is.
inline void addFaults(const Json& value, const Json& schema, const std::string& path,
                      std::vector<std::string>& faults) {
    if (schema.contains("type") && !isOfAnyType(value, schema["type"])) faults.push_back(path + " has the wrong type");
    for (const Json& name : schema.value("required", Json::array()))
        if (!value.contains(name.get<std::string>())) faults.push_back(path + " lacks " + name.get<std::string>());
    const Json properties = schema.value("properties", Json::object());
    if (value.is_object())
        for (const auto& [name, inner] : value.items()) {
            if (properties.contains(name)) addFaults(inner, properties[name], path + '/' + name, faults);
            else if (!schema.value("additionalProperties", true)) faults.push_back(path + " has " + name);
        }
    if (value.is_array() && schema.contains("items"))
        for (std::size_t i = 0; i < value.size(); ++i)
            addFaults(value[i], schema["items"], path + '/' + std::to_string(i), faults);
}

inline std::vector<std::string> faults(const Json& value, const Json& schema) {
    std::vector<std::string> found;
    addFaults(value, schema, "", found);
    return found;
}

}  // namespace canvas::schema
