"""The library's own view of the dialogs: a file beside the library, tried once and only when there is something to show."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

LIBRARY = pathlib.Path(os.environ["BREVANT_CANVAS"])
VIEW = "libCanvasView.so"
PROLOGUE = """
import brevant_canvas as bc
from dialog_host import *

def mapped():
    return "libCanvasView.so" in open("/proc/self/maps").read()

def error_of_showing():
    try:
        bc.create("clsBVTEditNodeName").Show()
    except bc.RunTimeError as error:
        return error.number, error.description
"""


class OwnView(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "here")
        self.folder.mkdir()
        shutil.copy(LIBRARY, self.folder)

    def environment(self, **more: str) -> dict[str, str]:
        path = os.pathsep.join([str(pathlib.Path(__file__).parent), os.environ.get("PYTHONPATH", "")])
        return {**os.environ, "PYTHONPATH": path, "BREVANT_CANVAS": str(self.folder / LIBRARY.name), "DISPLAY": "",
                "WAYLAND_DISPLAY": "", "QT_QPA_PLATFORM": "", **more}

    def said(self, code: str) -> list[str]:
        ended = subprocess.run([sys.executable, "-B", "-c", PROLOGUE + code], capture_output=True, text=True, check=False,
                               env=self.environment(), cwd=self.folder, timeout=120)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        return ended.stdout.splitlines()

    def test_without_it_opening_a_form_is_a_clear_error(self) -> None:
        (said,) = self.said("print(error_of_showing())")
        self.assertRegex(said, r"^\(445, .*Nobody can show frmEditNodeName: the host's Interaction does not take forms")
        self.assertIn(VIEW, said)

    def test_the_canvas_tells_it_in_a_box(self) -> None:
        (said,) = self.said("""
class Deaf:
    def MessageBox(self, text, buttons, icon, title):
        print(text)
        return "OK"
with Asked(Deaf()):
    document_with(2).ShowAttributeFormAndChanged(BLOCK, main_form())
""")
        self.assertRegex(said, "^Canvas::ShowAttributeFormChanged Nobody can show frmMoveAxis: ")

    def test_it_is_loaded_for_something_to_show_and_not_before(self) -> None:
        shutil.copy(LIBRARY, self.folder / VIEW)  # loads, and offers no view
        self.assertEqual(self.said("""
document = document_with(2)
document.CheckConnection(bc.Ref(""))
with Asked(User()):
    document.ShowAttributeFormAndChanged(BLOCK, main_form())
    document.BlockName(99)
print(mapped())
print(error_of_showing()[0])
print(mapped())
"""), ["False", "445", "True"])

    def test_a_failed_load_is_not_tried_again(self) -> None:
        (self.folder / VIEW).write_text("no library, " * 100)
        self.assertEqual(self.said(f"""
print("invalid ELF header" in error_of_showing()[1])
import os, shutil
os.remove("{VIEW}")
shutil.copy("{LIBRARY.name}", "{VIEW}")
for _ in range(1000):
    number = error_of_showing()[0]
    try:
        bc.create("clsBVTCanvas").BlockName(99)
    except bc.RunTimeError:
        pass
print(number, mapped())
"""), ["True", "445 False"])

    def test_it_shows_what_a_host_leaves_to_the_library(self) -> None:
        view = LIBRARY.with_name(VIEW)
        if not view.exists():
            self.skipTest(f"there is no {VIEW} beside the library")
        shutil.copy(view, self.folder)
        code = PROLOGUE + "with Asked(object()): document_with(2).ShowAttributeFormAndChanged(BLOCK, main_form())"
        with subprocess.Popen([sys.executable, "-B", "-c", code], env=self.environment(QT_QPA_PLATFORM="offscreen"),
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as showing:
            try:
                maps = pathlib.Path(f"/proc/{showing.pid}/maps")
                deadline = time.monotonic() + 60
                while showing.poll() is None and time.monotonic() < deadline and "libQt6Widgets" not in maps.read_text():
                    time.sleep(0.1)
                with self.assertRaises(subprocess.TimeoutExpired):  # it waits for its user
                    showing.communicate(timeout=2)
                self.assertIn(VIEW, maps.read_text())
            finally:
                showing.kill()


if __name__ == "__main__":
    unittest.main()
