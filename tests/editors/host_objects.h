#pragma once
// A host's main window with project, data and controller, all members there; each list holds one name made from its own.

#include <string>

#include "host/collection.h"
#include "tests/editors/playing.h"

namespace canvas::editors {

inline Ref<Collection> listOf(std::initializer_list<std::string_view> names) {
    auto list = make<Collection>();
    for (const std::string_view name : names) list->Add(Value(name));
    return list;
}

struct Host {
    Ref<Composed> form = make<Composed>("frmMain");
    Ref<Composed> project = make<Composed>("Project");
    Ref<Composed> data = make<Composed>("Data");
    Ref<Composed> controller = make<Composed>("Controller");
    Ref<Composed> checking = checker();
    Ref<Composed> units = make<Composed>("MachineUnits");
    std::vector<std::string> calls;  ///< what the library had the main window do

    Host() {
        units->property("UserUnit", Value("mm"));
        for (const auto* name :
             {"getuserdefinedvariablecol", "getuserdefinedbitvariablecol", "GetUserDefinedNotBitVariableCol",
              "GetUserDefinedConstantCol", "GetUserDefinedNetworkCol", "GetUserDefinedBitNetworkCol",
              "GetUserDefinedNotBitNetworkCol", "GetUserDefinedTableCol", "GetUserDefinedTableNonConCol",
              "GetSystemIOCol", "GetBitSystemIOCol", "GetNotBitSystemIOCol", "GetCAMTableNames"})
            data->property(name, Value(listOf({std::string("of ") + name})));
        for (const auto* name : {"GetReadableSystemVariablecol", "GetReadableSystemBitVariablecol",
                                 "GetReadableSystemParameterCol", "GetWritableSystemVariableCol",
                                 "getallsystembitvariablecol", "GetRWSystemVariableCol", "GetRWSystemBitVariableCol",
                                 "GetRWSystemNotBitVariableCol"})
            controller->property(name, Value(listOf({std::string("of ") + name})));
        project->property("Data", Value(data));
        project->property("syntaxChecking", Value(checking));
        project->property("MachineUnits", Value(units));
        project->property("FileTitle", Value("line.bpj"));
        project->property("WorkingDirectory", Value("/tmp"));
        project->property("GetTaskNameList", Value(listOf({"one.bpg", "", "three.bpg", "", "", "", "", ""})));
        project->property("SubroutineList", Value(listOf({})));
        project->property("NeedsSaving", Value(false));
        form->property("currentproject", Value(project));
        form->property("MPController", Value(controller));
        for (const auto* name : {"fileopen", "mnuProjectAddSubroutineNew_Click", "SaveAs"})
            form->method(name, [this, name = std::string(name)](Args args) {
                std::string call = name;
                for (const Value& argument : args) call += "|" + argument.toText();
                calls.push_back(call);
                return Value();
            });
    }
    Host(const Host&) = delete;
};

}  // namespace canvas::editors
