"""A host in Python for tests of the dialogs: a project with data, controller and checker, a user who plays scripts."""

import unittest
from collections.abc import Callable, Iterable
from typing import Any

import brevant_canvas as bc

# Block types and the forms that open for them.
FORMS = {0: "frmChangeDynamics", 1: "frmHomeAxis", 2: "frmMoveAxis", 3: "frmGearRatio", 4: "frmJogAxis", 5: "frmScaleCAM",
         6: "frmCAMOnOff", 7: "frmServoOnOff", 8: "frmAbortMotion", 9: "frmGearingOnOff", 11: "frmDefinePosition",
         12: "frmIncrementPosition", 13: "frmLatchOnOff", 14: "frmIfEvent", 15: "frmOnTime", 16: "frmRestartProgram",
         19: "frmSuspendProgram", 21: "frmMessageOut", 22: "frmMessageIn", 23: "frmSetVariable",
         24: "frmProgrammableLimitSwitch", 25: "frmSuperBlock", 26: "frmLatchTarget", 27: "frmNodeText",
         30: "frmCAMShift", 31: "frmInput", 32: "frmTorque"}
BLOCK = 3

DATA = """getuserdefinedvariablecol getuserdefinedbitvariablecol GetUserDefinedNotBitVariableCol GetUserDefinedConstantCol
    GetUserDefinedNetworkCol GetUserDefinedBitNetworkCol GetUserDefinedNotBitNetworkCol GetUserDefinedTableCol
    GetUserDefinedTableNonConCol GetSystemIOCol GetBitSystemIOCol GetNotBitSystemIOCol GetCAMTableNames""".split()
CONTROLLER = """GetReadableSystemVariablecol GetReadableSystemBitVariablecol GetReadableSystemParameterCol
    GetWritableSystemVariableCol getallsystembitvariablecol GetRWSystemVariableCol GetRWSystemBitVariableCol
    GetRWSystemNotBitVariableCol""".split()


class Members:
    """An object with the members that it is given."""

    def __init__(self, **members: Any) -> None:
        for name, value in members.items():
            setattr(self, name, value)


def lists(names: Iterable[str], items: Iterable[Any] = ("speed", "limit")) -> Any:
    return Members(**{name: bc.Collection(list(items)) for name in names})


class Checker:
    """Takes every text, but for what `refused` says of it."""

    def __init__(self, refused: str = "") -> None:
        self.refused = refused

    def ValidateUserInput(self, control: Any, name: str, kind: int, flag: bool, error: bc.Ref,
                          more: bc.Ref | None = None) -> bool:
        if not self.refused or control.Text != self.refused:
            return True
        error.value = f"{name}: {self.refused} is not defined"
        return False

    def checkexpression(self, text: str, block: Any, index: Any) -> int:
        return 1 if not text or text == self.refused else 0

    def GetResult(self, kind: bc.Ref, assignable: bc.Ref, value: bc.Ref, text: bc.Ref) -> None:
        kind.value, assignable.value, value.value, text.value = 16, True, bc.Null, ""

    def GetErrorInfo(self, text: bc.Ref, start: bc.Ref, length: bc.Ref) -> None:
        text.value, start.value, length.value = "not defined", 1, 3


def main_form(checker: Any = None, data: Any = None, controller: Any = None) -> Any:
    project = Members(Data=data or lists(DATA), syntaxChecking=checker or Checker(), FileTitle="line.bpj",
                      MachineUnits=Members(UserUnit="mm"), WorkingDirectory="/job", NeedsSaving=False,
                      GetTaskNameList=bc.Collection(["one.bpg", "", "three.bpg", "", "", "", "", ""]),
                      SubroutineList=bc.Collection(["lift.bpg"]), IsASubroutine=lambda name: True,
                      IsWithinSubroutineList=lambda name: True)
    return Members(currentproject=project, MPController=controller or lists(CONTROLLER), ActiveForm=None,
                   fileopen=lambda *arguments: None, SaveAs=lambda name: None,
                   mnuProjectAddSubroutineNew_Click=lambda: None)


def document_with(kind: int, **settings: Any) -> bc.Object:
    """A document with one block of the type, under BLOCK."""
    document = bc.create("clsBVTCanvas")
    document.Clear()
    block = bc.create("clsBVTBlock")
    block.BlockID, block.BlockType = BLOCK, kind
    block.BVTAttribute = bc.create("clsBVTGetBlockObject").GetObject(kind)
    for name, value in settings.items():
        setattr(block.BVTAttribute, name, value)
    assert document.AddBlock(block)
    return document


def attribute_of(document: bc.Object) -> Any:
    return document.BlockList.GetBlockByBlockID(BLOCK).BVTAttribute


class User:
    """Plays a script for each form by its name, and keeps what is said. A script's exception is kept too."""

    def __init__(self, **scripts: Callable[[bc.Object], Any]) -> None:
        self.scripts = scripts
        self.shown: list[str] = []
        self.boxes: list[tuple[str, str]] = []
        self.failures: list[BaseException] = []
        self.reply, self.typed = "OK", ""

    def MessageBox(self, text: str, buttons: str, icon: str, title: str) -> str:
        self.boxes.append((title, text))
        return self.reply

    def InputBox(self, prompt: str, title: str, preset: str) -> str:
        return self.typed

    def ShowForm(self, form: bc.Object) -> bool:
        self.shown.append(form.Name)
        try:
            self.scripts.get(form.Name, lambda form: None)(form)
        except BaseException as failure:
            self.failures.append(failure)
            raise
        return True


class Asked:
    """Puts an Interaction in force for a block."""

    def __init__(self, interaction: Any) -> None:
        self.library = bc.create("Library")
        self.library.Interaction = interaction

    def __enter__(self) -> Any:
        return self.library.Interaction

    def __exit__(self, *_: object) -> None:
        self.library.Interaction = None


class Editing(unittest.TestCase):
    """Opens Move Axis, unless a test says otherwise."""

    def edit(self, user: Any, host: Any = None, kind: int = 2, **settings: Any) -> Any:
        document = document_with(kind, **settings)
        self.host = host or main_form()
        with Asked(user):
            self.changed = document.ShowAttributeFormAndChanged(BLOCK, self.host)
        return attribute_of(document)
