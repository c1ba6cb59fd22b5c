"""What is created is gone again: objects, documents, files, memory, and the library itself."""

import contextlib
import ctypes
import gc
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

import brevant_canvas as bc
from dialog_host import BLOCK, FORMS, Asked, User, document_with, main_form

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
MEGABYTE = 1 << 20


def resident() -> int:
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def open_files() -> int:
    return len(os.listdir("/proc/self/fd"))


class Leaks(unittest.TestCase):
    def check(self, work, warm: int, times: int, unloads: bool = True) -> None:
        library = bc.create("Library")
        live = library.LiveObjects
        for _ in range(warm):
            work()
        gc.collect()
        files, memory = open_files(), resident()
        for _ in range(times):
            work()
        gc.collect()
        grown = resident() - memory
        print(f"{self.id()}: {times} times, {library.LiveObjects - live} objects, {open_files() - files} files and "
              f"{grown // 1024} KB more than before")
        self.assertEqual(library.LiveObjects, live)
        self.assertEqual(open_files(), files)
        self.assertLess(grown, MEGABYTE)
        del library
        gc.collect()
        if unloads:
            self.assertTrue(bc.can_unload())

    def test_100000_objects_leave_nothing_behind(self) -> None:
        names = ["clsBVTCanvas", "clsBVTBlock", "clsBVTMoveAxis", "clsBVTEdge", "clsBVTUndoBuffer"]
        self.check(lambda: [bc.create(name) for name in names], 1000, 20_000)

    def test_10000_documents_leave_nothing_behind(self) -> None:
        name = str(EXAMPLES / "conveyor.bpg")

        def work() -> None:
            document = bc.create("clsBVTCanvas")
            assert document.Readfile(name)
            assert document.BlockList.Item(1).BVTAttribute is not None

        self.check(work, 300, 10_000)

    def test_documents_that_are_edited_and_saved_leave_nothing_behind(self) -> None:
        name = str(EXAMPLES / "conveyor.bpg")
        with tempfile.TemporaryDirectory() as folder:
            def work() -> None:
                document = bc.create("clsBVTCanvas")
                assert document.Readfile(name)
                record = bc.create("clsBVTUndoBuffer")
                record.Add(3, document.BlockList.Item(2))
                document.AddActionToUndoList(3, record)
                assert document.UndoPerformed() == record
                assert document.RemoveBlock(document.BlockList.Item(3).BlockID)
                document.CheckConnection(bc.Ref(""))
                document.WriteFile(os.path.join(folder, "saved.bpg"))
                assert not document.Changed

            self.check(work, 100, 1000)

    def test_10000_openings_of_a_dialog_leave_nothing_behind(self) -> None:
        def script(form: bc.Object) -> None:
            form.txbVelocity.Text = "2 5"
            form.txbPosition.DblClick()
            form.btnOK.Click()

        host, document = main_form(), document_with(2)
        with Asked(User(frmMoveAxis=script)) as user:
            def work() -> None:
                document.ShowAttributeFormAndChanged(BLOCK, host)
                del user.shown[:]

            self.check(work, 300, 10_000, unloads=False)
        self.assertEqual((user.failures, user.boxes), ([], []))

    def test_openings_of_every_dialog_leave_nothing_behind(self) -> None:
        host = main_form()
        documents = [document_with(kind) for kind in FORMS]
        with Asked(User()) as user:
            def work() -> None:
                for document in documents:
                    document.ShowAttributeFormAndChanged(BLOCK, host)
                with contextlib.suppress(bc.RunTimeError):
                    documents[0].BlockName(99)
                del user.shown[:]

            self.check(work, 30, 370, unloads=False)

    def test_host_objects_are_let_go(self) -> None:
        class Host:
            pass

        def work() -> None:
            document, host = bc.create("clsBVTCanvas"), Host()
            document.frmParentForm = host
            with bc.connect(document, host):
                document.AddActionToUndoList(2, host)

        self.check(work, 200, 3000)
        self.assertEqual(bc._Served._living, {})


class Unloading(unittest.TestCase):
    def mapped(self) -> bool:
        with open("/proc/self/maps", encoding="utf-8") as file:
            return "libCanvas.so" in file.read()

    def handlers(self) -> list[bytes]:
        """Addresses of the process's handlers of faults, as the C library tells them."""
        process = ctypes.CDLL(None)
        found = []
        for number in (signal.SIGSEGV, signal.SIGBUS, signal.SIGFPE, signal.SIGILL, signal.SIGTRAP):
            action = ctypes.create_string_buffer(256)
            process.sigaction(int(number), None, action)
            found.append(action.raw[:ctypes.sizeof(ctypes.c_void_p)])
        return found

    def test_it_goes_and_comes_in_one_process(self) -> None:
        gc.collect()
        bc.unload()
        before = self.handlers()
        for _ in range(20):
            self.assertFalse(self.mapped())
            bc.load()
            self.assertTrue(bc.can_unload())
            document = bc.create("clsBVTCanvas")
            self.assertEqual(document.BlockName(2), "Move Axis")
            with self.assertRaises(bc.RunTimeError):
                document.BlockName(99)
            self.assertFalse(bc.can_unload())
            with self.assertRaises(RuntimeError):
                bc.unload()
            del document
            gc.collect()
            bc.unload()
        self.assertFalse(self.mapped())
        self.assertEqual(self.handlers(), before)

    def test_it_goes_also_when_dialogs_and_errors_were_answered(self) -> None:
        gc.collect()
        bc.unload()
        before = self.handlers()
        for _ in range(5):
            with Asked(User()) as user:
                document = document_with(2)
                document.ShowAttributeFormAndChanged(BLOCK, main_form())
                document.BlockName(99)
                self.assertEqual(user.shown, ["frmMoveAxis", "vbwFrmErrHandler"])
            with self.assertRaises(bc.RunTimeError):
                document.BlockName(99)
            del document, user
            gc.collect()
            bc.unload()
            self.assertFalse(self.mapped())
            self.assertEqual(self.handlers(), before)

    def test_a_process_may_end_with_everything_held(self) -> None:
        code = """
import brevant_canvas as bc
class Host:
    def MessageBox(self, *a): return "OK"
host = Host()
library = bc.create("Library")
library.Interaction = host
document = bc.create("clsBVTCanvas")
document.frmParentForm = host
connection = bc.connect(document, host)
"""
        ended = subprocess.run([sys.executable, "-B", "-c", code], capture_output=True, text=True, check=False)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
