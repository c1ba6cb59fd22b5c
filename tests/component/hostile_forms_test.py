"""Dialogs of hosts that do not behave: scripts, lists and checkers that fail or meddle, and errors with their answers."""

import unittest
from typing import Any

import brevant_canvas as bc
from dialog_host import CONTROLLER, DATA, Asked, Checker, Editing, User, lists, main_form


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
