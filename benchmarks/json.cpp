#include "benchmarks/json.h"

#include <simdjson.h>

namespace canvas::bench {
namespace {

void append(std::string& json, std::string_view text) {
    json += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') json += '\\';
        json += c;
    }
    json += '"';
}

void append(std::string& json, std::int32_t number) { json += std::to_string(number); }

void append(std::string& json, const PlainValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) append(json, std::string_view(*text));
    else append(json, std::get<std::int32_t>(value));
}

void append(std::string& json, const PlainBlock& block);

template <class Items>
void appendList(std::string& json, const Items& items) {
    json += '[';
    for (const auto& item : items) {
        if (json.back() != '[') json += ',';
        append(json, item);
    }
    json += ']';
}

void appendKey(std::string& json, std::string_view key) {
    json += json.back() == '{' ? "\"" : ",\"";
    json.append(key).append("\":");
}

void append(std::string& json, const PlainBlock& block) {
    const auto number = [&](std::string_view key, std::int32_t value) {
        appendKey(json, key);
        append(json, value);
    };
    const auto text = [&](std::string_view key, std::string_view value) {
        appendKey(json, key);
        append(json, value);
    };
    const auto flag = [&](std::string_view key, bool value) {
        appendKey(json, key);
        json += value ? "true" : "false";
    };
    json += '{';
    number("id", block.id);
    number("type", block.type);
    text("label", block.label);
    number("first", block.first);
    number("second", block.second);
    number("userId", block.userId);
    text("userName", block.userName);
    flag("dual", block.dual);
    flag("noIn", block.noIn);
    flag("noOut", block.noOut);
    appendKey(json, "sources");
    appendList(json, block.sources);
    appendKey(json, "values");
    appendList(json, block.values);
    json += '}';
}

using simdjson::ondemand::value;
using Item = simdjson::simdjson_result<value>;

std::int32_t number(Item item) { return static_cast<std::int32_t>(item.get_int64().value()); }

std::string text(Item item) { return std::string(item.get_string().value()); }

PlainBlock blockOf(simdjson::ondemand::object object) {
    PlainBlock block;
    block.id = number(object.find_field("id"));
    block.type = number(object.find_field("type"));
    block.label = text(object.find_field("label"));
    block.first = number(object.find_field("first"));
    block.second = number(object.find_field("second"));
    block.userId = number(object.find_field("userId"));
    block.userName = text(object.find_field("userName"));
    block.dual = object.find_field("dual").get_bool().value();
    block.noIn = object.find_field("noIn").get_bool().value();
    block.noOut = object.find_field("noOut").get_bool().value();
    for (Item source : object.find_field("sources").get_array()) block.sources.push_back(number(source));
    simdjson::ondemand::array values = object.find_field("values").get_array();
    block.values.reserve(values.count_elements());
    for (Item item : values) {
        if (item.type().value() == simdjson::ondemand::json_type::string) block.values.emplace_back(text(item));
        else block.values.emplace_back(number(item));
    }
    return block;
}

}  // namespace

std::string jsonOf(const PlainProgram& program) {
    std::string json = "{";
    appendKey(json, "version");
    append(json, program.version);
    appendKey(json, "window");
    appendList(json, program.window);
    appendKey(json, "blocks");
    appendList(json, program.blocks);
    return json + "}";
}

struct JsonReader::Parser {
    explicit Parser(std::string_view text) : json(text) {}
    simdjson::padded_string json;
    simdjson::ondemand::parser parser;
};

JsonReader::JsonReader(std::string_view json) : m_parser(std::make_unique<Parser>(json)) {}

JsonReader::~JsonReader() = default;

PlainProgram JsonReader::read() {
    simdjson::ondemand::document document = m_parser->parser.iterate(m_parser->json);
    PlainProgram program;
    program.version = number(document.find_field("version"));
    std::size_t place = 0;
    for (Item item : document.find_field("window").get_array()) program.window.at(place++) = number(item);
    for (Item item : document.find_field("blocks").get_array()) program.blocks.push_back(blockOf(item.get_object()));
    return program;
}

}  // namespace canvas::bench
