"""The dialogs as a host drives them: every form that opens, every control by name, every member of every kind."""

import collections
import gc
import unittest
from typing import Any

import brevant_canvas as bc
from dialog_host import BLOCK, FORMS, Asked, Checker, Editing, User, document_with, main_form

EVERY = {"Name", "Kind", "Visible", "Enabled", "HasFocus", "SetFocus", "BackColor"}
MEMBERS = {
    "text": {"Text", "SelStart", "SelLength", "Type", "DblClick", "Leave"},
    "label": {"Caption"},
    "button": {"Caption", "Click"},
    "check": {"Caption", "Value"},
    "option": {"Caption", "Value"},
    "combo": {"ListCount", "List", "ListIndex", "Text"},
    "list": {"ListCount", "List", "ListIndex", "Text", "DblClick"},
    "tabs": {"TabCount", "TabCaption", "TabEnabled", "Tab"},
    "tree": {"NodeCount", "NodeKey", "NodeText", "NodeParent", "NodeExpanded", "NodeClick"},
    "grid": {"Rows", "Cols", "Row", "Col", "Cell", "CellBackColor", "Edit", "Paste", "Cancel", "ButtonClick", "Click",
             "DblClick", "KeyDown", "RowSelection"},
}


class Walk:
    """Calls every member of every control of a form, and counts what it called."""

    def __init__(self, test: unittest.TestCase) -> None:
        self.test = test
        self.called: dict[str, set[str]] = collections.defaultdict(set)
        self.controls: dict[str, set[str]] = collections.defaultdict(set)
        self.inside = False

    def __call__(self, form: bc.Object) -> None:
        if self.inside:
            return  # a form that this walk opened: it closes at once
        self.inside = True
        try:
            self.form(form)
        finally:
            self.inside = False

    def form(self, form: bc.Object) -> None:
        test, names = self.test, form.ControlNames
        test.assertTrue(form.Visible)
        test.assertIsInstance(form.Caption, str)
        test.assertEqual(len(names), len({name.lower() for name in names}))
        buttons = []
        for name in names:
            with test.subTest(f"{form.Name}.{name}"):
                control = form.Control(name)
                test.assertEqual(control, getattr(form, name))
                test.assertEqual(control, form.Control(name.upper()))
                test.assertEqual(control.Name, name)
                self.every(control)
                self.controls[form.Name].add(name)
                buttons += [control] if control.Kind == "button" else []
                getattr(self, control.Kind)(control)
        with test.assertRaises(bc.RunTimeError):
            form.Control("nothingOfThatName")
        for button in buttons:  # last, since they close the form
            button.Click()
        form.Close()
        form.Close()
        test.assertFalse(form.Visible)
        test.assertEqual(form.ControlNames, names, "readable until the showing ends")

    def use(self, control: bc.Object, member: str, *arguments: Any) -> Any:
        self.called[control.Kind].add(member)
        found = getattr(control, member)
        return found(*arguments) if arguments or callable(found) and not isinstance(found, bc.Object) else found

    def put(self, control: bc.Object, member: str, value: Any) -> None:
        self.called[control.Kind].add(member)
        setattr(control, member, value)

    def every(self, control: bc.Object) -> None:
        test, kinds = self.test, {"Name": str, "Kind": str, "Visible": bool, "Enabled": bool, "HasFocus": bool}
        test.assertLessEqual(EVERY | MEMBERS[control.Kind], set(dir(control)))
        for member, kind in kinds.items():
            test.assertIsInstance(self.use(control, member), kind)
        test.assertGreaterEqual(self.use(control, "BackColor"), -1)
        self.use(control, "SetFocus")

    def text(self, control: bc.Object) -> None:
        self.put(control, "Text", "abc")
        self.test.assertEqual((control.Text, self.use(control, "SelStart")), ("abc", 0))
        self.put(control, "SelStart", 1)
        self.put(control, "SelLength", 1)
        if control.Visible and control.Enabled:
            self.use(control, "Type", "X")
        self.test.assertIsInstance(self.use(control, "Text"), str)
        self.use(control, "DblClick")
        self.use(control, "Leave")

    def label(self, control: bc.Object) -> None:
        self.test.assertIsInstance(self.use(control, "Caption"), str)

    def button(self, control: bc.Object) -> None:
        self.label(control)
        self.called["button"].add("Click")

    def check(self, control: bc.Object) -> None:
        self.label(control)
        before = self.use(control, "Value")
        self.put(control, "Value", not before)
        if control.HasFocus:
            self.test.assertNotEqual(control.Value, before)

    def option(self, control: bc.Object) -> None:
        self.label(control)
        self.put(control, "Value", True)
        before = self.use(control, "Value")
        control.Value = False
        self.test.assertEqual(control.Value, before, "an option goes out when another one is set")

    def combo(self, control: bc.Object) -> None:
        count = self.use(control, "ListCount")
        entries = [self.use(control, "List", i) for i in range(count)]
        with self.test.assertRaises(bc.RunTimeError) as raised:
            self.use(control, "List", count)
        self.test.assertEqual(raised.exception.number, 9)
        self.put(control, "ListIndex", count - 1)
        self.test.assertEqual(control.Text, entries[-1] if entries else "")
        control.ListIndex = -1
        self.test.assertEqual((self.use(control, "Text"), control.ListIndex), ("", -1))

    def list(self, control: bc.Object) -> None:
        self.combo(control)
        if control.ListCount == 0:
            self.called["list"].add("DblClick")
        else:
            self.use(control, "DblClick")

    def tabs(self, control: bc.Object) -> None:
        for i in range(self.use(control, "TabCount")):
            self.test.assertIsInstance(self.use(control, "TabCaption", i), str)
            enabled = self.use(control, "TabEnabled", i)
            self.put(control, "Tab", i)
            self.test.assertEqual(control.Tab == i, enabled)

    def tree(self, control: bc.Object) -> None:
        keys = [self.use(control, "NodeKey", i) for i in range(self.use(control, "NodeCount"))]
        for i, key in enumerate(keys):
            self.test.assertIsInstance(self.use(control, "NodeText", i), str)
            self.test.assertIn(self.use(control, "NodeParent", i), ["", *keys])
            self.test.assertIsInstance(self.use(control, "NodeExpanded", i), bool)
            self.use(control, "NodeClick", key)

    def grid(self, control: bc.Object) -> None:
        rows, columns = self.use(control, "Rows"), self.use(control, "Cols")
        for row in range(rows):
            for column in range(columns):
                self.test.assertIsInstance(self.use(control, "Cell", row, column), str)
                self.test.assertGreaterEqual(self.use(control, "CellBackColor", row, column), -1)
        for member in ("Edit", "Paste"):
            self.test.assertIsInstance(self.use(control, member, 1, 1, "speed"), bool)
            self.use(control, "Cancel", 1, 1)
        for member in ("Click", "DblClick", "ButtonClick"):
            self.use(control, member, 1, 1)
        self.put(control, "Row", 1)
        self.put(control, "Col", 2)
        self.test.assertEqual((control.Row, control.Col), (1, 2))
        self.use(control, "KeyDown", 40)
        self.test.assertIsInstance(self.use(control, "RowSelection"), bool)


class EveryForm(unittest.TestCase):
    def test_each_form_and_each_control_answers_by_name(self) -> None:
        walk = Walk(self)
        forms = [*FORMS.values(), "frmListSubroutine", "frmExpressionBuilder", "frmDataList", "frmEditNodeName"]
        user = User(**{name: walk for name in forms})
        host = main_form()
        with Asked(user):
            for kind, name in FORMS.items():
                with self.subTest(name):
                    shown = len(user.shown)
                    document_with(kind).ShowAttributeFormAndChanged(BLOCK, host)
                    self.assertEqual(user.shown[shown:shown + 1], [name])
            user.scripts["frmSuperBlock"] = lambda form: form.btnSelect.Click()
            document_with(25).ShowAttributeFormAndChanged(BLOCK, host)
            builder = bc.create("clsBVTExpressionBuilder")
            builder.Show_ExpressionBuilder(host.MPController, host.currentproject.Data, Checker())
            bc.create("clsBVTDataList").Show_Data(host.currentproject.Data, host.MPController, bc.Ref(""))
            bc.create("clsBVTEditNodeName").Show()
        self.assertEqual(user.failures, [])
        self.assertEqual(set(walk.controls), set(forms))
        for control, members in MEMBERS.items():
            self.assertEqual(walk.called[control], EVERY | members, control)


class Dialogs(Editing):
    def test_what_a_script_types_is_written_by_ok(self) -> None:
        def script(form: bc.Object) -> None:
            self.assertEqual((form.Caption, form.lblVelocityUnit.Caption), ("Move Axis", "mm/sec"))
            form.txbVelocity.SelLength = 3
            form.txbVelocity.Type("25.5")
            form.btnOK.Click()
            self.assertEqual((form.Visible, form.OKClicked), (False, True))

        self.assertEqual(self.edit(User(frmMoveAxis=script), Velocity="100").Velocity, "25.5")
        self.assertTrue(self.changed)

    def test_characters_of_every_plane_are_typed_and_written(self) -> None:
        every = "".join(chr(plane * 0x10000 + 0x100) for plane in range(17))

        def script(form: bc.Object) -> None:
            form.txbVelocity.Type(every)
            self.assertEqual((form.txbVelocity.Text, form.txbVelocity.SelStart), (every, 1 + 16 * 2))
            form.txbVelocity.Type("\b")
            self.assertEqual(form.txbVelocity.Text, every[:-1])
            form.btnOK.Click()

        user = User(frmMoveAxis=script)
        self.assertEqual(self.edit(user, Velocity="").Velocity, every[:-1])
        self.assertEqual(user.failures, [])

    def test_a_form_left_standing_counts_as_cancelled(self) -> None:
        def script(form: bc.Object) -> None:
            form.txbVelocity.Text = "25.5"

        self.assertEqual(self.edit(User(frmMoveAxis=script), Velocity="100").Velocity, "100")
        self.assertFalse(self.changed)

    def test_a_refused_text_stays_in_the_open_dialog(self) -> None:
        def script(form: bc.Object) -> None:
            form.txbVelocity.Text = "spede"
            form.btnOK.Click()
            self.assertEqual((form.Visible, form.txbVelocity.Text), (True, "spede"))

        user = User(frmMoveAxis=script)
        self.assertEqual(self.edit(user, main_form(Checker("spede")), Velocity="100").Velocity, "100")
        self.assertEqual(user.boxes, [("", "Velocity: spede is not defined")])

    def test_a_form_may_be_closed_while_one_opened_from_it_stands(self) -> None:
        outer: list[bc.Object] = []

        def script(form: bc.Object) -> None:
            outer.append(form)
            form.txbVelocity.DblClick()
            self.assertEqual(form.txbVelocity.Text, "100")
            self.assertFalse(form.Visible)
            form.btnOK.Click()

        def nested(form: bc.Object) -> None:
            outer[0].Close()
            self.assertFalse(outer[0].Visible)
            form.txbExpression.Text = "25.5"

        user = User(frmMoveAxis=script, frmExpressionBuilder=nested)
        attribute = self.edit(user, Velocity="100")
        self.assertEqual((user.shown, user.failures), (["frmMoveAxis", "frmExpressionBuilder"], []))
        self.assertEqual(attribute.Velocity, "100")

    def test_what_is_kept_of_a_closed_form_does_no_harm(self) -> None:
        kept: list[bc.Object] = []
        self.edit(User(frmSetVariable=lambda form: kept.extend([form, *map(form.Control, form.ControlNames)])), kind=23)
        form, *controls = kept
        del kept[:]
        self.assertEqual((form.Name, form.Visible), ("frmSetVariable", False))
        del form
        gc.collect()
        for control in controls:
            self.assertFalse(control.HasFocus)
            control.SetFocus()
            if control.Kind == "button":
                control.Click()
            if control.Kind == "grid":
                control.Edit(1, 1, "a")


if __name__ == "__main__":
    unittest.main()
