#pragma once
// The variable report: a dump file with the variables of the failing procedure, of its object, and of the process.
//
//     intBlockID = "12" (Integer)
//     Array strName(0 To 1) As String
//         strName(0) = "Start" (String)
//         strName(1) = "End" (String)
//     **** clsBVTEdge objEdge ****
//         objEdge.fromID = "1" (Integer)
//
// Lines are UTF-8 and end in CR LF; `lTab` tab characters stand before each. What goes wrong while a variable is
// written takes the place of its value, and the report goes on: apart from those that open, close and write the file
// itself, nothing here raises an error.

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "host/errors.h"
#include "host/object.h"
#include "host/value.h"

namespace canvas::tracing {

/// Opens the dump file, over the report before; the error of the disk when that fails.
void vbwOpenDumpFile();
void vbwCloseDumpFile();
/// Writes one line to the open dump; error 52 when there is none.
void vbwReportToFile(std::string_view lString);

/// Writes one variable, with all that it holds. The name of an array may end in "()". A failure gives the line
/// `lName = {Variable Dumping Error}`.
void vbwReportVariable(std::string_view lName, const Value& lValue, int lTab) noexcept;
/// The same for a parameter; a failure gives `lName = {`, the error's text, and ": Parameter Dumping Error}".
void vbwReportParameter(std::string_view lName, const Value& lValue, int lTab) noexcept;
/// Writes an object's heading and, one level deeper, its variables under `lName.`. A form (an object with Controls)
/// adds its controls, each with its Value. An object inside itself is told, not followed.
void vbwReportObject(std::string_view lName, Ref<Object> lObject, int lTab) noexcept;

/// 0 for an array without dimensions, and for what is no array.
int GetArrayDimension(const Value& arg);

/// The text as a dump shows it: cut by vbwDumpStringMaxLength, line ends made visible, in double quotes. A text that
/// ends in "}" stands as it is.
std::string FormatString(std::string_view arg);

/// Writes the variables that come to it with vbwReportVariable.
class ReportSink final : public VariableSink {
public:
    explicit ReportSink(int tab, std::string_view prefix = {}) : m_tab(tab), m_prefix(prefix) {}
    void variable(std::string_view name, const Value& value) override;

private:
    int m_tab;
    std::string m_prefix;
};

namespace detail {

struct Context;

struct ByAddress {
    bool operator()(const Ref<Object>& a, const Ref<Object>& b) const noexcept {
        return std::less<>()(a.get(), b.get());
    }
};

/// While the outermost one lives on a thread, each object is shown once; its other places tell so. Holds what was shown,
/// so that no other object comes to live at its address.
class OneReport {
public:
    OneReport();
    ~OneReport();
    OneReport(const OneReport&) = delete;
    OneReport& operator=(const OneReport&) = delete;

private:
    std::set<Ref<Object>, ByAddress> m_shown;
    std::set<Ref<Object>, ByAddress>* m_before;
};

/// Writes a whole report about a procedure that failed with `error`. A dump that cannot be opened loses the report,
/// and no more.
void writeReport(const Context& context, const RuntimeError& error) noexcept;

/// The variables of an object, each name behind `prefix`.
void writeMembers(const Object& object, std::string_view prefix, int tab);

/// A line at its level, and the same for `name = {mark}`, which is dropped where even that cannot be written.
void writeLine(int tab, std::string_view line);
void writeMark(int tab, std::string_view name, std::string_view mark) noexcept;

inline constexpr std::string_view variableFailed = "Variable Dumping Error";

}  // namespace detail
}  // namespace canvas::tracing
