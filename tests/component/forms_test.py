"""The dialogs as a host drives them: every form that opens, every control by name, every member of every kind."""

import collections
import gc
import unittest
from typing import Any

import brevant_canvas as bc
from dialog_host import BLOCK, CONTROLLER, DATA, FORMS, Asked, Checker, User, attribute_of, document_with, lists, main_form

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
        for kind, members in MEMBERS.items():
            self.assertEqual(walk.called[kind], EVERY | members, kind)


class Editing(unittest.TestCase):
    """Opens Move Axis, unless a test says otherwise."""

    def edit(self, user: Any, host: Any = None, kind: int = 2, **settings: Any) -> bc.Object:
        document = document_with(kind, **settings)
        self.host = host or main_form()
        with Asked(user):
            self.changed = document.ShowAttributeFormAndChanged(BLOCK, self.host)
        return attribute_of(document)


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


class HostsThatFail(Editing):
    def test_a_script_that_raises_ends_the_showing_with_a_box(self) -> None:
        def script(form: bc.Object) -> None:
            form.txbVelocity.Text = "25.5"
            raise ValueError("the script is wrong")

        user = User(frmMoveAxis=script)
        self.assertEqual(self.edit(user, Velocity="100").Velocity, "100")
        self.assertEqual(user.boxes, [("", "Canvas::ShowAttributeFormChanged the script is wrong")])
        self.assertIs(self.changed, False)

    def test_an_error_in_a_script_is_the_scripts_to_catch(self) -> None:
        def script(form: bc.Object) -> None:
            with self.assertRaises(bc.RunTimeError) as raised:
                form.Show()
            self.assertEqual(raised.exception.number, 5)
            with self.assertRaises(bc.RunTimeError):
                form.txbVelocity.SelStart = -1
            with self.assertRaises(AttributeError):
                form.txbNothing
            with self.assertRaises(bc.Error):
                form.txbVelocity = "25"

        user = User(frmMoveAxis=script)
        self.edit(user)
        self.assertEqual((user.failures, user.boxes), ([], []))

    def test_a_host_that_lacks_a_member_is_told_by_a_box_and_the_attribute_stays(self) -> None:
        for owner, member in (("currentproject", "Data"), ("currentproject", "syntaxChecking"),
                              ("currentproject", "MachineUnits"), ("", "currentproject"), ("", "MPController")):
            with self.subTest(member):
                host = main_form()
                delattr(getattr(host, owner) if owner else host, member)
                user = User(frmMoveAxis=lambda form: form.btnOK.Click())
                self.assertEqual(self.edit(user, host, Velocity="100").Velocity, "100")
                self.assertEqual(user.boxes, [("", "Canvas::ShowAttributeFormChanged "
                                                   "Object doesn't support this property or method")])

    def test_lists_that_are_missing_or_raise_or_hold_no_text_leave_the_dialog_open(self) -> None:
        class Broken:
            def __iter__(self) -> Any:
                yield "speed"
                raise bc.RunTimeError(70, "Host", "locked")

        for broken in (Broken(), object(), None, bc.Collection([bc.Null]), bc.Collection([bc.create("clsBVTEdge")])):
            with self.subTest(type(broken)):
                def script(form: bc.Object) -> None:
                    form.txbVelocity.Text = "typed"
                    form.txbVelocity.DblClick()
                    self.assertEqual((form.Visible, form.txbVelocity.Text), (True, "typed"))

                data = lists(DATA)
                data.getuserdefinedvariablecol = broken
                user = User(frmMoveAxis=script,
                            frmExpressionBuilder=lambda form: [form.tvData.NodeClick(key) for key in ("Variables", "I/O")])
                self.assertEqual(self.edit(user, main_form(data=data), Velocity="100").Velocity, "100")
                self.assertEqual(user.failures, [])

    def test_texts_that_are_null_are_told(self) -> None:
        host = main_form()
        host.currentproject.MachineUnits.UserUnit = bc.Null
        user = User()
        self.edit(user, host)
        self.assertEqual(user.boxes, [("", "Canvas::ShowAttributeFormChanged Invalid use of Null")])
        self.assertEqual(user.shown, [])

    def test_ten_thousand_names_of_every_plane_come_through(self) -> None:
        planes = [chr(plane * 0x10000 + 0x100 + i) for plane in range(17) for i in range(3)]
        names = [f"{planes[i % len(planes)]}{i}" for i in range(10_000)]
        seen: list[str] = []

        def script(form: bc.Object) -> None:
            names_of = form.Control("lstVariable(0)")
            self.assertEqual(names_of.ListCount, len(names))
            seen.extend(names_of.List(i) for i in range(names_of.ListCount))
            names_of.ListIndex = 9_999
            form.cmdOK.Click()

        data, picked = lists(DATA, names), bc.Ref("")
        with Asked(User(frmDataList=script)):
            self.assertTrue(bc.create("clsBVTDataList").Show_Data(data, lists(CONTROLLER), picked))
        self.assertEqual(seen, names)
        self.assertEqual(picked.value, names[-1])


class Checkers(Editing):
    def test_a_checker_that_fails_is_asked_about_and_the_dialog_stays(self) -> None:
        class Failing(Checker):
            def ValidateUserInput(self, *arguments: Any) -> bool:
                raise bc.RunTimeError(1234, "Checker", "the dictionary is locked")

        def answer(form: bc.Object) -> None:
            self.assertIn("the dictionary is locked", form.lblErrorString.Caption)
            form.Control("cmdAction(2)").Click()

        user = User(frmMoveAxis=lambda form: form.btnOK.Click(), vbwFrmErrHandler=answer)
        self.edit(user, main_form(Failing()), Velocity="100")
        self.assertEqual(user.failures, [])
        self.assertEqual(user.shown, ["frmMoveAxis"] + ["vbwFrmErrHandler"] * 4, "one for each checked field")

    def test_a_checker_may_change_the_field_it_is_asked_about(self) -> None:
        class Correcting(Checker):
            def ValidateUserInput(self, control: Any, *arguments: Any) -> bool:
                control.Text = control.Text.upper()
                return True

        user = User(frmMoveAxis=lambda form: form.btnOK.Click())
        attribute = self.edit(user, main_form(Correcting()), Velocity="speed", Position="home")
        self.assertEqual((attribute.Velocity, attribute.Position), ("SPEED", "HOME"))

    def test_a_checker_may_open_another_form(self) -> None:
        class Asking(Checker):
            def ValidateUserInput(self, control: Any, *arguments: Any) -> bool:
                editor = bc.create("clsBVTEditNodeName")
                editor.OriginalName = control.Text
                editor.Show()
                control.Text = editor.OriginalName
                return True

        def rename(form: bc.Object) -> None:
            form.txbNewName.Text = form.txbOriginalName.Text + "2"
            form.btnOK.Click()

        user = User(frmMoveAxis=lambda form: form.btnOK.Click(), frmEditNodeName=rename)
        attribute = self.edit(user, main_form(Asking()), Velocity="speed")
        self.assertEqual((attribute.Velocity, user.failures), ("speed2", []))

    def test_a_checker_may_close_the_form(self) -> None:
        forms: list[bc.Object] = []

        class Closing(Checker):
            def ValidateUserInput(self, *arguments: Any) -> bool:
                forms[0].Close()
                return True

        def script(form: bc.Object) -> None:
            forms.append(form)
            form.txbVelocity.Text = "25"
            form.btnOK.Click()

        user = User(frmMoveAxis=script)
        self.edit(user, main_form(Closing()), Velocity="100")
        self.assertEqual(user.failures, [])


class Errors(unittest.TestCase):
    """`BlockName(99)` fails in the library."""

    def setUp(self) -> None:
        self.document = bc.create("clsBVTCanvas")

    def test_with_nobody_to_ask_the_error_reaches_the_caller(self) -> None:
        class Deaf:
            def MessageBox(self, *arguments: Any) -> str:
                raise AssertionError

            def Beep(self) -> None:
                raise AssertionError

        for nobody in (None, Deaf(), object()):
            with self.subTest(type(nobody)), Asked(nobody), self.assertRaises(bc.RunTimeError) as raised:
                self.document.BlockName(99)
            self.assertEqual(raised.exception.number, 9)

    def test_a_host_that_takes_no_forms_gets_the_error(self) -> None:
        class Polite(User):
            def ShowForm(self, form: bc.Object) -> bool:
                super().ShowForm(form)
                return False

        with Asked(Polite()) as user, self.assertRaises(bc.RunTimeError):
            self.document.BlockName(99)
        self.assertEqual(user.shown, ["vbwFrmErrHandler"])

    def test_true_without_an_answer_counts_as_ignore(self) -> None:
        with Asked(User()) as user:
            self.assertEqual(self.document.BlockName(99), "")
        self.assertEqual(user.shown, ["vbwFrmErrHandler"])

    def test_a_host_that_raises_gets_the_first_error(self) -> None:
        def script(form: bc.Object) -> None:
            raise ValueError

        with Asked(User(vbwFrmErrHandler=script)), self.assertRaises(bc.RunTimeError) as raised:
            self.document.BlockName(99)
        self.assertEqual(raised.exception.number, 9)

    def test_retry_repeats_the_failing_statement(self) -> None:
        calls: list[str] = []

        class Host:
            def WriteModelFile(self, name: str) -> None:
                calls.append(name)
                if len(calls) == 1:
                    raise bc.RunTimeError(70, "Disk", "write protected")

        with Asked(User(vbwFrmErrHandler=lambda form: form.Control("cmdAction(1)").Click())) as user:
            self.document.WriteModelFile(Host(), "a.bpg")
        self.assertEqual((calls, user.shown, user.failures), (["a.bpg"] * 2, ["vbwFrmErrHandler"], []))

    def test_the_texts_of_the_dialog_come_through(self) -> None:
        def script(form: bc.Object) -> None:
            self.assertEqual(form.ControlNames, ["Image1", "lblErrorString", "lblReport", "txtDescribe", "cmdSendMail",
                                                 "picButtons", "cmdAction(0)", "cmdAction(1)", "cmdAction(2)"])
            self.assertEqual([form.Control(f"cmdAction({i})").Caption for i in range(3)], ["&Abort", "&Retry", "&Ignore"])
            self.assertIn("Subscript out of range", form.lblErrorString.Caption)
            form.txtDescribe.SetFocus()
            self.assertEqual(form.txtDescribe.SelLength, len(form.txtDescribe.Text))

        with Asked(User(vbwFrmErrHandler=script)) as user:
            self.document.BlockName(99)
        self.assertEqual(user.failures, [])

    def test_an_error_inside_the_answer_is_asked_about_as_well(self) -> None:
        depth: list[int] = []

        def script(form: bc.Object) -> None:
            depth.append(len(depth))
            if len(depth) < 4:
                self.document.BlockName(98)

        with Asked(User(vbwFrmErrHandler=script)) as user:
            self.document.BlockName(99)
        self.assertEqual((len(depth), user.failures), (4, []))


if __name__ == "__main__":
    unittest.main()
