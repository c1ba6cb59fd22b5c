#include "host/required.h"

#include <algorithm>
#include <iterator>

#include "host/object.h"

namespace canvas {
namespace {

constexpr std::string_view mainForm = "Main form", activeForm = "Active form", zoomForm = "Zoom form", zoom = "Zoom",
                           editor = "Editor", project = "Project", units = "Machine units", taskList = "Task list",
                           task = "Task", data = "Data", userTables = "User tables", camTable = "Cam table",
                           controller = "Controller", checker = "Syntax checker", memoryMap = "Memory map",
                           collection = "Collection";

constexpr std::uint32_t first = 1, second = 2, third = 4, fourth = 8, fifth = 16, sixth = 32;

constexpr RequiredMember table[] = {
    {.object = mainForm, .member = "currentproject", .gives = "the project"},
    {.object = mainForm, .member = "MPController", .gives = "the controller"},
    {.object = mainForm, .member = "ActiveForm", .gives = "the active document window, or Nothing"},
    {.object = mainForm, .member = "formCmbZoom", .gives = "the form with the zoom's combo box"},
    {.object = mainForm, .member = "fileopen", .arguments = 3, .gives = "opens a document: 0, file name, caption"},
    {.object = mainForm,
     .member = "mnuProjectAddSubroutineNew_Click",
     .gives = "adds a new subroutine and makes it active"},
    {.object = mainForm,
     .member = "SaveAs",
     .arguments = 1,
     .gives = "saves the active document under a new file name"},

    {.object = activeForm, .member = "Canvas", .gives = "the window's document"},
    {.object = activeForm, .member = "WindowState", .gives = "number: 0 is neither minimized nor maximized"},
    {.object = activeForm, .member = "Left", .gives = "number"},
    {.object = activeForm, .member = "Top", .gives = "number"},
    {.object = activeForm, .member = "Height", .gives = "number"},
    {.object = activeForm, .member = "Width", .gives = "number"},
    {.object = activeForm, .member = "editor", .gives = "the drawing surface"},
    {.object = activeForm, .member = "formCmbZoom", .gives = "the form with the zoom's combo box"},
    {.object = zoomForm, .member = "cmbZoom", .gives = "the combo box"},
    {.object = zoom, .member = "Text", .gives = "string: the zoom, such as 100%"},
    {.object = editor, .member = "xScrollPos", .gives = "number"},
    {.object = editor, .member = "yScrollPos", .gives = "number"},

    {.object = project, .member = "Data", .gives = "the data object"},
    {.object = project, .member = "syntaxChecking", .gives = "the syntax checker"},
    {.object = project, .member = "MachineUnits", .gives = "the machine units"},
    {.object = project, .member = "FileTitle", .gives = "string: the project file's title"},
    {.object = project, .member = "WorkingDirectory", .gives = "string: the project's folder"},
    {.object = project, .member = "GetTaskNameList", .gives = "the task names that launch blocks take as TaskName"},
    {.object = project, .member = "TaskList", .gives = "the task list"},
    {.object = project, .member = "SubroutineList", .gives = "collection: the project's subroutines"},
    {.object = project,
     .member = "IsASubroutine",
     .arguments = 1,
     .gives = "boolean: the file of that name is a subroutine"},
    {.object = project,
     .member = "IsWithinSubroutineList",
     .arguments = 1,
     .gives = "boolean: the subroutine of that name is in the project"},
    {.object = project, .member = "NeedsSaving", .use = Use::write, .gives = "boolean: marks the project as changed"},
    {.object = units, .member = "UserUnit", .gives = "string: the unit word"},
    {.object = taskList, .member = "GetTaskAt", .arguments = 1, .gives = "the task at an index from 0"},
    {.object = task, .member = "IsTaskDefined", .gives = "boolean"},
    {.object = task, .member = "TaskName", .gives = "string: the task's file"},
    {.object = task, .member = "TaskTitle", .gives = "string"},

    {.object = data, .member = "getuserdefinedvariablecol", .gives = "collection: user variables"},
    {.object = data, .member = "getuserdefinedbitvariablecol", .gives = "collection: user variables of the bit type"},
    {.object = data, .member = "GetUserDefinedNotBitVariableCol", .gives = "collection: user variables of other types"},
    {.object = data, .member = "GetUserDefinedConstantCol", .gives = "collection: user constants"},
    {.object = data, .member = "GetUserDefinedNetworkCol", .gives = "collection: user network data"},
    {.object = data, .member = "GetUserDefinedBitNetworkCol", .gives = "collection: bit network data"},
    {.object = data, .member = "GetUserDefinedNotBitNetworkCol", .gives = "collection: other network data"},
    {.object = data, .member = "GetUserDefinedTableCol", .gives = "collection: user tables"},
    {.object = data, .member = "GetUserDefinedTableNonConCol", .gives = "collection: tables that are not constant"},
    {.object = data, .member = "GetSystemIOCol", .gives = "collection: system I/O"},
    {.object = data, .member = "GetBitSystemIOCol", .gives = "collection: bit I/O"},
    {.object = data, .member = "GetNotBitSystemIOCol", .gives = "collection: other I/O"},
    {.object = data, .member = "GetSystemIOAddressCol", .gives = "collection: addresses of the I/O, keyed by name"},
    {.object = data,
     .member = "GetUserDefinedVariableAddress",
     .arguments = 1,
     .byReference = first,
     .gives = "string: the address of the variable of that name"},
    {.object = data,
     .member = "GetTableElementAddress",
     .arguments = 2,
     .byReference = first | second,
     .gives = "boolean; fills the address of the element"},
    {.object = data,
     .member = "GetTableRange",
     .arguments = 2,
     .byReference = second,
     .gives = "boolean: the table can be indexed; fills its number of elements (long)"},
    {.object = data, .member = "GetCAMTableNames", .gives = "collection: names of cam tables"},
    {.object = data, .member = "UserTable", .gives = "the user tables"},
    {.object = userTables, .member = "TableList", .gives = "collection of table objects"},
    {.object = camTable, .member = "TableName", .gives = "string"},
    {.object = camTable, .member = "tablebaseaddress", .gives = "the table's base address in the controller"},
    {.object = camTable, .member = "TableIncludeFilename", .gives = "string: the file that holds the table's points"},

    {.object = controller,
     .member = "GetReadableSystemVariablecol",
     .gives = "collection: system variables that can be read"},
    {.object = controller, .member = "GetReadableSystemBitVariablecol", .gives = "collection: readable bit variables"},
    {.object = controller,
     .member = "GetReadableSystemParameterCol",
     .gives = "collection: system parameters that can be read"},
    {.object = controller,
     .member = "GetWritableSystemVariableCol",
     .gives = "collection: system variables that can be written"},
    {.object = controller, .member = "getallsystembitvariablecol", .gives = "collection: all system bit variables"},
    {.object = controller, .member = "GetRWSystemVariableCol", .gives = "collection: read and write system variables"},
    {.object = controller, .member = "GetRWSystemBitVariableCol", .gives = "collection: the bit ones among them"},
    {.object = controller, .member = "GetRWSystemNotBitVariableCol", .gives = "collection: the others among them"},
    {.object = controller,
     .member = "GetAllSystemVariableAddressCol",
     .gives = "collection: addresses of system variables, keyed by name"},
    // File name, base address of the table; then first x, first y, last x, last y (long).
    {.object = controller,
     .member = "getCAMdata",
     .arguments = 6,
     .byReference = first | third | fourth | fifth | sixth,
     .gives = "boolean: the cam file was read; fills the four numbers"},

    // Text, block id (long), index of the property (integer).
    {.object = checker,
     .member = "checkexpression",
     .arguments = 3,
     .byReference = second | third,
     .gives = "number: 0 for a good text"},
    // Data type (long), can be assigned to (boolean), value, normal form of the text.
    {.object = checker,
     .member = "GetResult",
     .arguments = 4,
     .byReference = first | second | third | fourth,
     .gives = "fills all four for the last good text"},
    // Message, start from 1 (long), length (long).
    {.object = checker,
     .member = "GetErrorInfo",
     .arguments = 3,
     .byReference = first | second | third,
     .gives = "fills all three for the last bad text; its own number is not read"},
    // Control, field name, data type, a flag, message; and whether the text is no constant.
    {.object = checker,
     .member = "ValidateUserInput",
     .arguments = 6,
     .optional = 1,
     .byReference = fifth | sixth,
     .gives = "boolean; fills the message when False"},
    // Text, data type, message.
    {.object = checker,
     .member = "Validate",
     .arguments = 3,
     .byReference = third,
     .gives = "boolean; fills the message when False"},

    // Address letter, words (long), 0 on the input map and 1 on the output map.
    {.object = memoryMap,
     .member = "GetAddresses",
     .arguments = 3,
     .byReference = first,
     .gives = "string: base address of the block that it reserved, such as IW0256"},
    // Address, address letter, words.
    {.object = memoryMap, .member = "AllocateAddresses", .arguments = 3, .gives = "marks a known block as taken"},
    // Address, words.
    {.object = memoryMap, .member = "FreeAddresses", .arguments = 2, .gives = "releases a block"},
    {.object = memoryMap, .member = "EmptyMap", .gives = "releases everything"},

    {.object = collection,
     .member = "Item",
     .arguments = 1,
     .gives = "the string of that key; all can be walked in order"},
};

}  // namespace

std::span<const RequiredMember> requiredMembers() noexcept { return table; }

const RequiredMember* requiredMember(std::string_view object, std::string_view member) noexcept {
    const auto* row = std::find_if(std::begin(table), std::end(table), [&](const RequiredMember& r) {
        return sameName(r.object, object) && sameName(r.member, member);
    });
    return row == std::end(table) ? nullptr : row;
}

}  // namespace canvas
