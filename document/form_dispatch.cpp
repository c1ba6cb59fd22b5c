#include "document/form_dispatch.h"

#include "document/attribute_calls.h"
#include "document/catalogue.h"
#include "host/ports.h"

namespace canvas {
namespace {

/// What a form is given once it is loaded.
enum class Prepared { nothing, data, dataWithoutChecker, listAndData, taskNames, cam, limitSwitch, subroutine };

struct FormRow {
    enuBlockType type;
    std::string_view form;
    Prepared prepared;
};

constexpr FormRow rows[] = {
    {CHANGEDYNAMICS, "frmChangeDynamics", Prepared::data},
    {HOMEAXIS, "frmHomeAxis", Prepared::listAndData},
    {MOVEAXIS, "frmMoveAxis", Prepared::data},
    {GEARRATIO, "frmGearRatio", Prepared::data},
    {JOGAXIS, "frmJogAxis", Prepared::data},
    {SCALECAM, "frmScaleCAM", Prepared::data},
    {CAMONOFF, "frmCAMOnOff", Prepared::cam},
    {SERVOONOFF, "frmServoOnOff", Prepared::nothing},
    {ABORTMOTION, "frmAbortMotion", Prepared::data},
    {GEARINGONOFF, "frmGearingOnOff", Prepared::data},
    {DEFINEPOSITION, "frmDefinePosition", Prepared::data},
    {INCREMENTPOSITION, "frmIncrementPosition", Prepared::listAndData},
    {LATCHONOFF, "frmLatchOnOff", Prepared::nothing},
    {IFEVENT, "frmIfEvent", Prepared::data},
    {ONTIME, "frmOnTime", Prepared::listAndData},
    {RESTARTPROGRAM, "frmRestartProgram", Prepared::taskNames},
    {SUSPENDPROGRAM, "frmSuspendProgram", Prepared::taskNames},
    {MESSAGEOUT, "frmMessageOut", Prepared::dataWithoutChecker},
    {MESSAGEIN, "frmMessageIn", Prepared::dataWithoutChecker},
    {SETVARIABLE, "frmSetVariable", Prepared::data},
    {PROGRAMMABLELIMITSWITCH, "frmProgrammableLimitSwitch", Prepared::limitSwitch},
    {SUPERBLOCK, "frmSuperBlock", Prepared::subroutine},
    {LATCHTARGET, "frmLatchTarget", Prepared::data},
    {NodeText, "frmNodeText", Prepared::nothing},
    {CAMSHIFT, "frmCAMShift", Prepared::listAndData},
    {InputBlock, "frmInput", Prepared::data},
    {Torque, "frmTorque", Prepared::data},
};

const FormRow* rowOf(std::int16_t type) noexcept {
    for (const FormRow& row : rows)
        if (row.type == type) return &row;
    return nullptr;
}

/// One showing: the form, the block, and the host's main window.
struct Showing {
    clsBVTCanvas& canvas;
    clsBVTBlock& block;
    Object& host;
    Ref<Object> form;

    Ref<Object> project() const { return objectAt(host, "currentproject"); }
    Ref<Object> data() const { return objectAt(*project(), "Data"); }
    Value controller() const { return host.get("MPController"); }
    Value checker() const { return project()->get("syntaxChecking"); }

    void giveCopy() const { form->put("BVTAttribute", Value(attribute_calls::copy(block.vntAttribute))); }
    void giveData() const {
        Value objects[] = {controller(), Value(data()), checker()};  // in braces, so that the host is asked in this order
        form->call("SetData", objects);
    }
    void giveDataWithoutChecker() const {
        Value objects[] = {controller(), Value(data())};
        form->call("SetData", objects);
    }
    void giveList() const { form->put("VariableNameList", data()->get("getuserdefinedvariablecol")); }

    void prepare(Prepared how) const;
    void giveTaskNames() const;
    void giveCam() const;
    void giveLimitSwitchLists() const;
    void openSubroutine() const;
};

/// The live attribute takes the names first, so that the copy has them.
void Showing::giveTaskNames() const {
    required(block.vntAttribute).put("TaskName", project()->get("GetTaskNameList"));
    giveCopy();
}

void Showing::giveCam() const {
    const Ref<Object> profiles = objectAt(*form, "cmbCAMProfileTable"), speeds = objectAt(*form, "cmbSpeedFFAddress");
    forEach(*objectAt(*data(), "GetCAMTableNames"), [&](const Value& name) {
        invoke(*profiles, "AddItem", name);
        invoke(*speeds, "AddItem", name);
        return true;
    });
    giveList();
    form->put("tableNameList", data()->get("GetUserDefinedTableCol"));
    giveData();
    form->call("SetCAMProfileTable");
}

void Showing::giveLimitSwitchLists() const {
    giveCopy();
    const Ref<Object> variables = data(), system = objectAt(host, "MPController");
    Value lists[] = {
        variables->get("getuserdefinedvariablecol"),
        variables->get("GetUserDefinedConstantCol"),
        variables->get("GetUserDefinedNetworkCol"),
        system->get("GetReadableSystemVariablecol"),
        system->get("GetReadableSystemBitVariablecol"),
        system->get("GetWritableSystemVariableCol"),
        system->get("GetReadableSystemParameterCol"),
        variables->get("getuserdefinedbitvariablecol"),
        variables->get("GetUserDefinedBitNetworkCol"),
        system->get("getallsystembitvariablecol"),
        system->get("GetRWSystemVariableCol"),
        variables->get("GetSystemIOCol"),
        variables->get("GetBitSystemIOCol"),
        checker(),
    };
    form->call("SetData", lists);
}

void Showing::prepare(Prepared how) const {
    switch (how) {
        case Prepared::nothing: return;
        case Prepared::data: return giveData();
        case Prepared::dataWithoutChecker: return giveDataWithoutChecker();
        case Prepared::listAndData: return giveList(), giveData();
        case Prepared::taskNames: return giveTaskNames();
        case Prepared::cam: return giveCam();
        case Prepared::limitSwitch: return giveLimitSwitchLists();
        case Prepared::subroutine:
            form->put("MainForm", Value(Ref<Object>(&host)));
            form->put("CanvasName", Value(canvas.strName));
            return;
    }
}

/// Behind the dialog of a subroutine block: opens the subroutine that was chosen, or has the host make a new one.
void Showing::openSubroutine() const {
    if (!form->get("OKClicked").toBoolean()) return;
    const Ref<Object> attribute = objectAt(*form, "BVTAttribute");
    const std::string subroutine = attribute->get("Name").toText();
    if (!subroutine.empty() && !form->get("CreateNew").toBoolean()) {
        const std::string caption =
            "(" + project()->get("FileTitle").toText() + ") Subroutine - " + attribute->get("title").toText();
        invoke(host, "fileopen", std::int16_t{0}, subroutine, caption);
        return;
    }
    host.call("mnuProjectAddSubroutineNew_Click");
    objectAt(*objectAt(host, "ActiveForm"), "Canvas")->put("Name", Value(subroutine));
    invoke(host, "SaveAs", subroutine);
}

/// Unloads a form at the end of its showing, however that ends.
struct Unloading {
    Ref<Object> form;
    ~Unloading() {
        try {
            form->call("Unload");
        } catch (const RuntimeError&) {  // the showing has ended; nobody waits for it
        }
    }
};

}  // namespace

std::string_view formOf(std::int16_t blockType) noexcept {
    const FormRow* row = rowOf(blockType);
    return row ? row->form : std::string_view{};
}

bool showAttributeForm(clsBVTCanvas& canvas, std::int16_t blockId, const Ref<Object>& host) {
    const Ref<clsBVTBlock> block(&canvas.BlockCollection->byKey(blockId));  // the host may remove it meanwhile
    const FormRow* row = rowOf(block->intBlockType);
    if (!row) return false;
    if (!environment().forms) raise(Error::actionNotSupported, "No dialogs are linked into this program.");
    const Showing showing{canvas, *block, required(host), environment().forms->make(row->form)};
    const Unloading unloading{Ref<Object>(&required(showing.form))};
    showing.giveCopy();
    showing.form->put("UserUnit", objectAt(*showing.project(), "MachineUnits")->get("UserUnit"));
    showing.form->call("Load");
    showing.prepare(row->prepared);
    showing.form->call("Show");
    if (row->prepared == Prepared::subroutine) showing.openSubroutine();
    const Ref<Object> edited = objectAt(*showing.form, "BVTAttribute");
    const bool changed = !invoke(required(block->vntAttribute), "SameAs", edited).toBoolean();
    block->setBVTAttribute(edited);
    return changed;
}

}  // namespace canvas
