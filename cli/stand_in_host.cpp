#include "cli/stand_in_host.h"

#include <algorithm>

#include "attributes/validation.h"
#include "document/catalogue.h"
#include "document/form_dispatch.h"
#include "editors/attribute_form.h"
#include "editors/data_list.h"
#include "editors/forms.h"
#include "host/collection.h"
#include "host/composed.h"

namespace canvas::cli {
namespace {

Value listOf(const std::vector<std::string>& names) {
    auto list = make<Collection>();
    for (const std::string& name : names) list->Add(Value(name));
    return Value(Ref<Object>(list));
}

bool delimits(std::string_view text, std::string& message) {
    if (text.find_first_of("\";") == text.npos) return false;
    message = "Double quotes and semicolons delimit values in program files and cannot stand within one.";
    return true;
}

/// A name, perhaps with an index: "Speed", "Table[3]".
bool isName(std::string_view text) {
    return !text.empty() && !(text.front() >= '0' && text.front() <= '9') &&
           text.find_first_of(" +-*/%&|!=<>()") == text.npos;
}

Ref<Object> makeChecker() {
    auto checker = make<Composed>("StandInChecker");
    const auto look = [](const std::string& text, std::int32_t type, std::string& message) {
        return !delimits(text, message) && validate(text, static_cast<brxDatatype>(type), message);
    };
    checker->method("ValidateUserInput", [look](Args args) {
        std::string message = args[4].toText();
        const bool good = look(args[0].toObject()->get("Text").toText(), args[2].toLong(), message);
        if (!good) args[4] = Value("'" + args[1].toText() + "': " + message);
        return Value(good);
    });
    checker->method("Validate", [look](Args args) {
        std::string message = args[2].toText();
        const bool good = look(args[0].toText(), args[1].toLong(), message);
        if (!good) args[2] = Value(message);
        return Value(good);
    });
    // the last text looked at, for the questions that follow
    const auto last = std::make_shared<std::string>();
    const auto complaint = std::make_shared<std::string>();
    checker->method("checkexpression", [last, complaint](Args args) {
        *last = args[0].toText();
        complaint->clear();
        return Value(std::int32_t{delimits(*last, *complaint) ? 1 : 0});
    });
    checker->method("GetResult", [last](Args args) {
        args[0] = Value(std::int32_t{brxFloat});
        args[1] = Value(isName(*last));
        args[2] = args[3] = Value(*last);
        return Value();
    });
    checker->method("GetErrorInfo", [last, complaint](Args args) {
        args[0] = Value(*complaint);
        args[1] = Value(std::int32_t{1});
        args[2] = Value(static_cast<std::int32_t>(last->size()));
        return Value();
    });
    return checker;
}

Ref<Object> makeData(const StandInNames& names) {
    auto data = make<Composed>("StandInData");
    std::vector<std::string> all = names.variables;
    all.insert(all.end(), names.bits.begin(), names.bits.end());
    data->property("getuserdefinedvariablecol", listOf(all));
    data->property("getuserdefinedbitvariablecol", listOf(names.bits));
    data->property("GetUserDefinedNotBitVariableCol", listOf(names.variables));
    data->property("GetUserDefinedConstantCol", listOf(names.constants));
    for (const char* member :
         {"GetUserDefinedNetworkCol", "GetUserDefinedBitNetworkCol", "GetUserDefinedNotBitNetworkCol"})
        data->property(member, listOf(names.network));
    for (const char* member : {"GetUserDefinedTableCol", "GetUserDefinedTableNonConCol", "GetCAMTableNames"})
        data->property(member, listOf(names.tables));
    for (const char* member : {"GetSystemIOCol", "GetBitSystemIOCol", "GetNotBitSystemIOCol"})
        data->property(member, listOf(names.io));
    data->method("GetTableRange", [](Args args) {
        args[1] = Value(std::int32_t{100});
        return Value(true);
    });
    return data;
}

Ref<Object> makeController(const StandInNames& names) {
    auto controller = make<Composed>("StandInController");
    for (const char* member : {"GetReadableSystemVariablecol", "GetReadableSystemBitVariablecol",
                               "GetWritableSystemVariableCol", "getallsystembitvariablecol", "GetRWSystemVariableCol",
                               "GetRWSystemBitVariableCol", "GetRWSystemNotBitVariableCol"})
        controller->property(member, listOf(names.system));
    controller->property("GetReadableSystemParameterCol", listOf(names.parameters));
    return controller;
}

Ref<Object> makeTaskList(const std::vector<std::string>& tasks) {
    auto list = make<Composed>("StandInTaskList");
    list->method("GetTaskAt", [tasks](Args args) {
        const std::int32_t at = args[0].toLong();
        const std::string title =
            at >= 0 && at < static_cast<std::int32_t>(tasks.size()) ? tasks[static_cast<std::size_t>(at)] : "";
        auto task = make<Composed>("StandInTask");
        task->property("IsTaskDefined", Value(!title.empty()));
        task->property("TaskName", Value(title));
        task->property("TaskTitle", Value(title));
        return Value(Ref<Object>(task));
    });
    return list;
}

Ref<Object> makeProject(const StandInNames& names) {
    auto units = make<Composed>("StandInUnits");
    units->property("UserUnit", Value(names.unit));
    auto project = make<Composed>("StandInProject");
    project->property("MachineUnits", Value(Ref<Object>(units)));
    project->property("Data", Value(makeData(names)));
    project->property("syntaxChecking", Value(makeChecker()));
    project->property("FileTitle", Value(std::string()));
    project->property("WorkingDirectory", Value(names.folder));
    std::vector<std::string> tasks = names.tasks;
    tasks.resize(8);
    project->property("GetTaskNameList", listOf(tasks));
    project->property("TaskList", Value(makeTaskList(tasks)));
    project->property("SubroutineList", listOf(names.subroutines));
    project->property("NeedsSaving", Value(false));
    const auto known = [all = names.subroutines](Args args) {
        return Value(std::find(all.begin(), all.end(), args[0].toText()) != all.end());
    };
    project->method("IsASubroutine", known);
    project->method("IsWithinSubroutineList", known);
    return project;
}

/// The dialogs that other dialogs open take their lists from the public classes that stand for them.
void openForNoBlock(editors::Form& form, const Ref<Object>& host) {
    const Ref<Object> project = host->get("currentproject").toObject();
    const Ref<Object> data = project->get("Data").toObject(), controller = host->get("MPController").toObject();
    std::string text;
    if (form.className() == "frmDataList") {
        make<editors::clsBVTDataList>()->Show_Data(data, controller, text);
    } else if (form.className() == "frmExpressionBuilder") {
        editors::buildExpression("Speed * 2", controller, data, project->get("syntaxChecking").toObject());
    } else if (form.className() == "frmListSubroutine") {
        forEach(*project->get("SubroutineList").toObject(), [&](const Value& name) {
            for (const char* list : {"lstItem", "lstItemInvisible"})
                form.the<editors::Choice>(list).AddItem(name.toText());
            return true;
        });
        form.Show();
    } else {
        if (form.className() == "frmEditNodeName") form.put("NodeLabel", Value("Untitled"));
        form.Show();
    }
}

}  // namespace

Ref<Object> standInHost(const StandInNames& names) {
    auto host = make<Composed>("StandInHost");
    host->property("currentproject", Value(makeProject(names)));
    host->property("MPController", Value(makeController(names)));
    auto document = make<Composed>("StandInDocument");
    document->property("Name", Value(std::string()));
    auto window = make<Composed>("StandInWindow");
    window->property("Canvas", Value(Ref<Object>(document)));
    host->property("ActiveForm", Value(Ref<Object>(window)));
    // there is nothing to open here, and no project to add to
    for (const char* member : {"fileopen", "mnuProjectAddSubroutineNew_Click", "SaveAs"})
        host->method(member, [](Args) { return Value(); });
    return host;
}

bool openForm(std::string_view name, const Ref<Object>& host, void (*prepare)(Object& attribute)) {
    for (std::int16_t type = 0; type < 64; ++type) {
        if (!sameName(formOf(type), name)) continue;
        auto block = make<clsBVTBlock>();
        block->intBlockType = type;
        block->intBlockID = 1;
        block->vntAttribute = newAttribute(static_cast<enuBlockType>(type));
        if (prepare) prepare(*block->vntAttribute);
        auto document = make<clsBVTCanvas>();
        document->adoptBlock(block);
        showAttributeForm(*document, 1, host);
        return true;
    }
    const Ref<editors::Form> form = editors::makeForm(name);
    if (form) openForNoBlock(*form, host);
    return static_cast<bool>(form);
}

}  // namespace canvas::cli
