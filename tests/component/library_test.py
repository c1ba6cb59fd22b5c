"""The shared library as a file: its symbols, its identifiers, its classes, its registration, its going and coming."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import uuid
from collections.abc import Callable

import brevant_canvas as bc

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARY = os.environ["BREVANT_CANVAS"]
BASE = uuid.uuid5(uuid.NAMESPACE_URL, "urn:brevant:canvas")
EXPORTS = """DllGetClassObject DllCanUnloadNow DllRegisterServer DllUnregisterServer SysAllocString SysAllocStringLen
    SysFreeString SysStringLen VariantInit VariantClear VariantCopy SafeArrayCreate SafeArrayDestroy
    SafeArrayGetElement SafeArrayPutElement SafeArrayGetLBound SafeArrayGetUBound SafeArrayGetDim""".split()


# Every public class that the library will have in the end, and two of the boundary's own.
PUBLIC = set("""clsBVTCanvas clsBVTBlock clsBVTBlockCol clsBVTInPort clsBVTEdge clsBVTEdgeCol clsBVTNodePosition
    clsBVTUndoBuffer clsBVTGetBlockObject IBlockAttribute clsBVTDataValidation clsBVTAbortMotion clsBVTChangeDynamics
    clsBVTMoveAxis clsBVTJogAxis clsBVTHomeAxis clsBVTIncrementPosition clsBVTDefinePosition clsBVTTorque
    clsBVTGearRatio clsBVTGearingOnOff clsBVTAdvancedGearing clsBVTCAMOnOff clsBVTScaleCAM clsBVTCAMShift
    clsBVTAdvancedCAM clsBVTLatchOnOff clsBVTLatchTarget clsBVTIfEvent clsBVTOnTime clsBVTInput clsBVTServoOnOff
    clsBVTRestartProgram clsBVTSuspendProgram clsBVTSuperBlock clsBVTSetVariable clsBVTProgrammableLimitSwitch
    clsBVTStart clsBVTEnd clsBVTIfFault clsBVTResetFault clsBVTMessageIn clsBVTMessageOut clsBVTNodeText
    clsBVTExpressionBuilder clsBVTDataList clsBVTEditNodeName clsBVTKX410 clsBVTRVQD clsBVTCOM1 clsBVTCOM2
    clsBVTNetwork clsBVTRemoteIO clsBVTExternalEncoder clsBVTMasterEncoder clsBVTDX260 clsBVTOperatorInterface
    clsBVTPC clsBVTAxioLane Library""".split())
STANDARD = {"unordered_map", "string_view", "type_traits"}


def creatable() -> list[str]:
    return re.findall(r"^ +CLASS(?:_BY)?\((\w+)", (ROOT / "component/class_list.cpp").read_text(), re.MULTILINE)


def registration(**environment: str) -> Callable[[str], subprocess.CompletedProcess[str]]:
    code = "import brevant_canvas as bc, sys; getattr(bc, sys.argv[1])()"
    return lambda action: subprocess.run([sys.executable, "-B", "-c", code, action], capture_output=True, text=True,
                                         env={**os.environ, **environment}, check=False)


class Library(unittest.TestCase):
    def test_it_exports_its_functions_and_nothing_else(self) -> None:
        listing = subprocess.run(["nm", "-D", "--defined-only", LIBRARY], capture_output=True, text=True, check=True)
        self.assertEqual(sorted(line.split()[-1] for line in listing.stdout.splitlines()), sorted(EXPORTS))

    def test_identifiers_are_computed(self) -> None:
        self.assertEqual(subprocess.run([ROOT / "tools/identifiers", "--check"], check=False).returncode, 0)
        self.assertEqual(bc._BASE, BASE)

    def test_every_public_class_of_the_sources_is_listed(self) -> None:
        found = set()
        for folder in ("document", "attributes", "hardware", "editors"):
            for header in (ROOT / folder).glob("*.h"):
                found |= set(re.findall(r"^(?:struct|class) (clsBVT\w+)[^;]*\{", header.read_text(), re.MULTILINE))
        self.assertEqual(found - set(creatable()), set())

    def test_no_other_class_is_listed(self) -> None:
        self.assertEqual(set(creatable()) - PUBLIC, set())

    def test_one_line_adds_a_class(self) -> None:
        line = "    CLASS(clsBVTNewcomer),\n"
        source = (ROOT / "component/class_list.cpp").read_text().replace("    CLASS(clsBVTEdge),\n", line)
        with tempfile.TemporaryDirectory() as folder:
            for part in ("tools/identifiers", "component/class_list.cpp"):
                pathlib.Path(folder, part).parent.mkdir()
            tool = shutil.copy(ROOT / "tools/identifiers", pathlib.Path(folder, "tools"))
            pathlib.Path(folder, "component/class_list.cpp").write_text(source)
            subprocess.run([tool], check=True)
            table = pathlib.Path(folder, "component/identifiers.inc").read_text()
        self.assertIn('{"clsBVTNewcomer",', table)
        self.assertNotIn('{"clsBVTEdge",', table)

    def test_what_differs_between_platforms_has_a_folder_of_its_own(self) -> None:
        for file in [*(ROOT / "component").glob("*.h"), *(ROOT / "component").glob("*.cpp")]:
            with self.subTest(file.name):
                text = file.read_text()
                self.assertEqual(re.findall(r"^ *#\s*if.*", text, re.MULTILINE), [])
                self.assertEqual([name for name in re.findall(r"#include <(.*)>", text) if not name.isalnum()
                                  and name not in STANDARD], [])

    def test_every_class_answers(self) -> None:
        for name in creatable():
            with self.subTest(name):
                self.assertEqual(bool(dir(bc.create(name))), name != "clsBVTAxioLane", "one has no members")

    def test_a_class_that_is_not_there_is_refused(self) -> None:
        with self.assertRaises(bc.Error) as raised:
            bc.create("clsBVTNothing")
        self.assertEqual(raised.exception.code, 0x80040111)


class Registration(unittest.TestCase):
    def test_it_is_written_and_taken_away(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            run = registration(XDG_DATA_HOME=folder)
            file = pathlib.Path(folder, "brevant/components/Canvas.json")
            self.assertEqual(run("register").returncode, 0)
            written = json.loads(file.read_text())
            self.assertEqual(pathlib.Path(written["path"]), pathlib.Path(LIBRARY).resolve())
            self.assertEqual({c["progId"]: c["clsid"] for c in written["classes"]},
                             {f"Canvas.{name}": "{%s}" % str(uuid.uuid5(BASE, "class:" + name)).upper()
                              for name in creatable()})
            self.assertTrue(written["version"])
            self.assertEqual(run("register").returncode, 0, "again")
            self.assertEqual(run("unregister").returncode, 0)
            self.assertFalse(file.exists())
            self.assertEqual(run("unregister").returncode, 0, "nothing to take away is no failure")

    def test_the_default_folder_is_below_the_home(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(registration(XDG_DATA_HOME="relative", HOME=folder)("register").returncode, 0)
            self.assertTrue(pathlib.Path(folder, ".local/share/brevant/components/Canvas.json").exists())

    def test_a_failure_leaves_nothing_half_done(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            blocked = pathlib.Path(folder, "data")
            (blocked / "brevant").mkdir(parents=True)
            (blocked / "brevant/components").write_text("a file where a folder is due")
            run = registration(XDG_DATA_HOME=str(blocked))
            self.assertNotEqual(run("register").returncode, 0)
            self.assertIn("0x80040201", run("register").stderr)
            self.assertEqual([p.name for p in blocked.rglob("*")], ["brevant", "components"])
            (blocked / "brevant/components").unlink()
            (blocked / "brevant/components/Canvas.json").mkdir(parents=True)
            self.assertNotEqual(run("register").returncode, 0)
            self.assertEqual([p.name for p in (blocked / "brevant/components").rglob("*")], ["Canvas.json"])

    def test_a_user_who_may_not_write_changes_nothing(self) -> None:
        if os.getuid() != 0:
            self.skipTest("only root can become another user")
        with tempfile.TemporaryDirectory() as folder:
            os.chmod(folder, 0o755)
            library = shutil.copy(LIBRARY, folder)
            data = pathlib.Path(folder, "data")
            code = ("import brevant_canvas as bc, os, sys; bc.load(); os.setgroups([]); os.setgid(65534); "
                    "os.setuid(65534); getattr(bc, sys.argv[1])()")

            def run(action: str) -> subprocess.CompletedProcess[str]:
                return subprocess.run([sys.executable, "-B", "-c", code, action], capture_output=True, text=True,
                                      env={**os.environ, "BREVANT_CANVAS": library, "XDG_DATA_HOME": str(data)},
                                      check=False)
            data.mkdir(mode=0o755)
            refused = run("register")
            self.assertIn("0x80040201", refused.stderr)
            self.assertEqual(list(data.rglob("*")), [])
            known = data / "brevant/components/Canvas.json"
            known.parent.mkdir(parents=True)
            known.write_text("of another version")
            for action in ("register", "unregister"):
                self.assertIn("0x80040201", run(action).stderr)
                self.assertEqual(known.read_text(), "of another version")
                self.assertEqual(list(known.parent.iterdir()), [known])
            for owned in (known.parent, known):
                os.chown(owned, 65534, 65534)
            self.assertEqual(run("register").returncode, 0, "who may write")


if __name__ == "__main__":
    unittest.main()
