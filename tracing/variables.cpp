#include "host/array.h"
#include "host/numbers.h"
#include "tracing/branch.h"
#include "tracing/options.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

constexpr std::size_t mostDimensions = 4;

std::string bounds(const Array& array) {
    std::string text;
    for (const Bounds& b : array.dimensions) {
        if (!text.empty()) text += ',';
        text += numbers::textOf(b.lower) + " To " + numbers::textOf(b.upper);
    }
    return text;
}

/// Writes the elements under the indexes chosen so far: the last index runs fastest.
void writeElements(std::string_view name, const Array& array, std::vector<std::int32_t>& indexes, int tab) {
    if (indexes.size() < array.dimensions.size()) {
        const Bounds& range = array.dimensions[indexes.size()];
        for (std::int64_t i = range.lower; i <= range.upper; ++i) {
            indexes.push_back(static_cast<std::int32_t>(i));
            writeElements(name, array, indexes, tab);
            indexes.pop_back();
        }
        return;
    }
    std::string element(name);
    char before = '(';
    for (const std::int32_t index : indexes) {
        element += before + numbers::textOf(index);
        before = ',';
    }
    vbwReportVariable(element + ')', array.at(indexes), tab);
}

void writeArray(std::string_view name, const Value& value, int tab) {
    if (name.ends_with("()")) name.remove_suffix(2);
    const Array& array = value.toArray();
    const int dimensions = GetArrayDimension(value);
    const std::string start = "Array " + std::string(name) + '(';
    if (dimensions == 0) return detail::writeLine(tab, start + ") (Undimensioned Array)");
    if (static_cast<std::size_t>(dimensions) > mostDimensions)
        return detail::writeLine(tab, start + ") not processed: " + numbers::textOf(dimensions) + " dimensions");
    detail::writeLine(tab, start + bounds(array) + ") As " + array.elementType);
    std::vector<std::int32_t> indexes;
    writeElements(name, array, indexes, tab + 1);
}

void writeVariable(std::string_view name, const Value& value, int tab) {
    if (value.is(Kind::object)) return vbwReportObject(name, value.toObject(), tab);
    if (value.is(Kind::array)) return writeArray(name, value, tab);
    const std::string text = value.is(Kind::empty) ? vbwCommon.VBW_EMPTY : value.toText();  // Null has no text
    detail::writeLine(tab, std::string(name) + " = " + FormatString(text) + " (" + value.typeName() + ')');
}

/// The text of the exception in flight, for a line of the report.
std::string textOfFailure() {
    try {
        return caught().description;
    } catch (...) {
        return "Unknown Exception";
    }
}

}  // namespace

namespace detail {

void writeLine(int tab, std::string_view line) {
    vbwReportToFile(std::string(static_cast<std::size_t>(tab), '\t').append(line));
}

void writeMark(int tab, std::string_view name, std::string_view mark) noexcept {
    try {
        writeLine(tab, std::string(name).append(" = {").append(mark) + '}');
    } catch (...) {
    }
}

}  // namespace detail

void vbwReportVariable(std::string_view lName, const Value& lValue, int lTab) noexcept {
    try {
        const InLibrary inside;
        writeVariable(lName, lValue, lTab);
    } catch (...) {
        detail::writeMark(lTab, lName, detail::variableFailed);
    }
}

void vbwReportParameter(std::string_view lName, const Value& lValue, int lTab) noexcept {
    try {
        const InLibrary inside;
        writeVariable(lName, lValue, lTab);
    } catch (...) {
        detail::writeMark(lTab, lName, textOfFailure() + ": Parameter Dumping Error");
    }
}

int GetArrayDimension(const Value& arg) {
    return arg.is(Kind::array) ? static_cast<int>(arg.toArray().dimensions.size()) : 0;
}

void ReportSink::variable(std::string_view name, const Value& value) {
    vbwReportVariable(m_prefix + std::string(name), value, m_tab);
}

}  // namespace canvas::tracing
