#include "cli/store_import.h"

#include <algorithm>
#include <map>
#include <set>

#include "hardware/csv.h"
#include "hardware/memory_map.h"
#include "hardware/modules.h"
#include "host/encoding.h"
#include "host/numbers.h"

namespace canvas::cli {
namespace {

constexpr std::string_view nodesTag = "RemoteIO";
constexpr std::size_t propertyFields = 4, nodeFields = 7;

/// A line that the module cannot take: nothing behind it has a meaning.
struct BadLine {
    int line;
    std::string reason;
};

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::optional<std::string> textOf(const Value& field) {
    if (field.is(Kind::null)) return std::nullopt;
    return field.toText();
}

std::string textOrEmpty(const Value& field) { return textOf(field).value_or(""); }

mtModuleType moduleOfGroup(std::string_view group) {
    for (const mtModuleType module : modules())
        if (numbers::parse(group) == static_cast<double>(module)) return module;
    return mtNone;
}

/// The module takes field after field and minds no line ends, so a line with a field too few moves all that follow.
/// People want to know which line it is.
class Lines {
public:
    explicit Lines(std::string text) : m_fields(std::move(text)) {}

    bool atEnd() const noexcept { return m_fields.atEnd(); }
    int line() const noexcept { return m_line; }

    std::vector<Value> next(std::size_t count) {
        std::vector<Value> fields;
        while (fields.size() < count) {
            if (m_fields.atEnd())
                throw BadLine{std::max(m_line, 1), fewFields(fields.size(), count) + ", and the file ends"};
            fields.push_back(nextField(fields.size(), count));
            if (fields.size() == 1) begin();
            else if (m_fields.line() != m_end) throw BadLine{m_line, fewFields(fields.size() - 1, count)};
            m_end = m_fields.line() + lineBreaksIn(fields.back());
        }
        return fields;
    }

private:
    /// Blanks alone, behind the last line's end, are no field.
    Value nextField(std::size_t found, std::size_t due) {
        try {
            return m_fields.next();
        } catch (const RuntimeError& error) {
            if (error.number != static_cast<int>(Error::inputPastEnd)) throw;
            const int line = found > 0 ? m_line : std::max(m_end, m_line) + 1;
            throw BadLine{line, fewFields(found, due) + ", and the file ends"};
        }
    }
    void begin() {
        if (m_fields.line() == m_end) throw BadLine{m_end, "the line has more fields than are due"};
        m_line = m_fields.line();
    }
    static std::string fewFields(std::size_t found, std::size_t due) {
        return "the line has " + std::to_string(found) + " of " + std::to_string(due) + " fields";
    }
    static int lineBreaksIn(const Value& field) {
        const std::string* text = field.text();
        return text ? static_cast<int>(std::count(text->begin(), text->end(), '\n')) : 0;
    }

    CsvReader m_fields;
    int m_line = 0;  ///< where the present line begins
    int m_end = 0;   ///< where its last field ended
};

class Planner {
public:
    Planner(mtModuleType module, const std::string& store, std::string text)
        : m_class(moduleClass(module)), m_store(store), m_lines(std::move(text)) {}

    ImportPlan run() {
        propertiesOfModule(m_class.group);  // without a store no line has a meaning
        try {
            tag(m_class.tag);
            m_lines.next(propertyFields);
            const bool limited = m_class.fileLines > 0;
            for (int i = 0; !m_lines.atEnd() && (!limited || i < m_class.fileLines); ++i) property();
            if (limited) nodes();
        } catch (const BadLine& bad) {
            m_plan.readable = false;
            m_plan.findings.push_back(
                {.line = bad.line, .module = m_class.group, .rule = rule::unreadable, .reason = bad.reason});
        }
        return std::move(m_plan);
    }

private:
    void tag(std::string_view due) {
        const std::string where = " where " + std::string(moduleName(m_class.group)) + " wants " + quoted(due);
        if (m_lines.atEnd()) throw BadLine{std::max(m_lines.line(), 1), "the file ends" + where};
        const std::string found = textOrEmpty(m_lines.next(1).front());
        if (found != due) throw BadLine{m_lines.line(), quoted(found) + " stands" + where};
    }

    void property() {
        const auto fields = m_lines.next(propertyFields);
        const std::string group = textOrEmpty(fields[0]), number = textOrEmpty(fields[1]);
        const mtModuleType module = moduleOfGroup(group);
        if (module == mtNone) return find(m_class.group, rule::unknown, "there is no module " + quoted(group));
        auto& known = propertiesOfModule(module);
        const auto found = std::find_if(known.begin(), known.end(), [&](const StoredProperty& p) {
            return numbers::parse(number) == static_cast<double>(p.number);
        });
        if (found == known.end()) return find(module, rule::unknown, "there is no property " + quoted(number));
        if (module != m_class.fileGroup) find(module, rule::otherModule, "the line changes another module", &*found);
        const std::string dirty = textOrEmpty(fields[3]);
        if (dirty != "0" && dirty != "1")
            find(module, rule::type, "the mark " + quoted(dirty) + " is neither 0 nor 1", &*found);
        value(module, *found, textOf(fields[2]));
    }

    void value(mtModuleType module, StoredProperty& property, const std::optional<std::string>& stored) {
        if (!stored && module == mtRVQD)
            find(module, rule::type, "the module cannot read a row without a value", &property);
        else if (const auto fault = faultOf(property, stored.value_or("")))
            find(module, fault->rule, fault->reason, &property);
        const auto shown = stored ? std::optional(shownText(property, *stored)) : std::nullopt;
        if (shown == property.value) return;
        if (property.readOnly) find(module, rule::readOnly, "the property may not be set", &property);
        m_plan.changes.push_back({module, property.number, property.name, property.value, shown, m_lines.line()});
        property.value = shown;
    }

    void nodes() {
        tag(nodesTag);
        m_lines.next(nodeFields);
        m_networkType = networkTypeOf(m_store);
        m_plan.nodes.emplace();
        while (!m_lines.atEnd()) node();
    }

    void node() {
        const auto fields = m_lines.next(nodeFields);
        const auto text = [&](std::size_t i) { return textOrEmpty(fields[i]); };
        RemoteNode node{.node = text(0),
                        .name = text(1),
                        .type = text(2),
                        .inputWords = text(3),
                        .outputWords = text(4),
                        .typeCode = text(5),
                        .dirty = text(6) != "0"};
        if (node.node.empty()) return find(node, rule::node, "the line has no node number and is passed over");
        if (!m_numbers.insert(node.node).second) find(node, rule::node, "the number stands twice");
        if (!node.name.empty() && !m_names.insert(node.name).second)
            find(node, rule::node, "the name " + quoted(node.name) + " stands twice");
        node.inputAddress = address(node, node.inputWords, *m_inputs, 0);
        node.outputAddress = address(node, node.outputWords, *m_outputs, 1);
        m_plan.nodes->push_back(std::move(node));
    }

    std::optional<std::string> address(const RemoteNode& node, const std::string& words, MemoryMap& map,
                                       std::int16_t kind) {
        const auto count = numbers::parse(words);
        if (!count && !words.empty()) find(node, rule::node, quoted(words) + " is no count of words");
        if (!count || *count <= 0) return std::nullopt;
        try {
            std::string letter = addressLetter(m_networkType);
            return map.GetAddresses(letter, numbers::roundToLong(*count), kind);
        } catch (const RuntimeError& error) {
            find(node, rule::address, error.description);
            return std::nullopt;
        }
    }

    std::vector<StoredProperty>& propertiesOfModule(mtModuleType module) {
        auto& properties = m_properties[module];
        if (properties.empty()) properties = propertiesOf(*openModule(module, m_store));
        return properties;
    }

    void find(mtModuleType module, std::string_view rule, std::string reason,
              const StoredProperty* property = nullptr) {
        m_plan.findings.push_back({.line = m_lines.line(),
                                   .module = module,
                                   .number = property ? property->number : std::int16_t{0},
                                   .name = property ? property->name : "",
                                   .rule = rule,
                                   .reason = std::move(reason)});
    }
    void find(const RemoteNode& node, std::string_view rule, std::string reason) {
        m_plan.findings.push_back({.line = m_lines.line(),
                                   .module = mtRemoteIO,
                                   .node = node.node,
                                   .rule = rule,
                                   .reason = std::move(reason)});
    }

    const ModuleClass& m_class;
    const std::string& m_store;
    Lines m_lines;
    ImportPlan m_plan;
    std::map<mtModuleType, std::vector<StoredProperty>> m_properties;  ///< as the lines so far leave them
    std::int16_t m_networkType = unknownNetwork;
    Ref<MemoryMap> m_inputs = make<MemoryMap>(inputArea), m_outputs = make<MemoryMap>(outputArea);
    std::set<std::string> m_numbers, m_names;
};

}  // namespace

ImportPlan planImport(mtModuleType module, const std::string& store, std::string bytes) {
    return Planner(module, store, encoding::decode(std::move(bytes))).run();
}

}  // namespace canvas::cli
