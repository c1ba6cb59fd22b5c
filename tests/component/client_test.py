"""The Python client: its types and texts, values in both directions, errors, hosts and events."""

import gc
import importlib.util
import inspect
import pathlib
import shutil
import subprocess
import tempfile
import unittest
from typing import Any

import brevant_canvas as bc

CLIENT = pathlib.Path(bc.__file__)


def own(member: Any) -> bool:
    return inspect.isfunction(member) and member.__module__ == bc.__name__ and member.__name__ != "<lambda>"


class Source(unittest.TestCase):
    def functions(self) -> list[Any]:
        found = [member for _, member in inspect.getmembers(bc, own)]
        for _, kind in inspect.getmembers(bc, inspect.isclass):
            if kind.__module__ == bc.__name__:
                found += [getattr(member, "__func__", getattr(member, "fget", member)) for member in vars(kind).values()
                          if own(getattr(member, "__func__", getattr(member, "fget", member)))]
        return found

    def test_every_function_is_typed(self) -> None:
        self.assertGreater(len(self.functions()), 50)
        for function in self.functions():
            with self.subTest(function.__qualname__):
                signature = inspect.signature(function)
                self.assertIsNot(signature.return_annotation, signature.empty)
                untyped = [p.name for p in signature.parameters.values() if p.annotation is p.empty]
                self.assertIn(untyped, ([], ["self"], ["cls"]))

    def test_every_public_name_has_a_text(self) -> None:
        self.assertTrue(bc.__doc__)
        for name in bc.__all__:
            with self.subTest(name):
                member = getattr(bc, name)
                if not callable(member):
                    continue  # Null and Empty are told below their lines
                self.assertTrue(inspect.getdoc(member))
                for inner, function in vars(member).items() if inspect.isclass(member) else ():
                    if not inner.startswith("_") and (own(function) or isinstance(function, property)):
                        self.assertTrue(inspect.getdoc(function), inner)

    @unittest.skipUnless(shutil.which("mypy"), "mypy is not installed")
    def test_its_types_hold(self) -> None:
        with tempfile.TemporaryDirectory() as cache:
            checked = subprocess.run(["mypy", "--strict", "--cache-dir", cache, CLIENT], capture_output=True, text=True,
                                     check=False)
        self.assertEqual(checked.returncode, 0, checked.stdout)

    def test_it_is_one_file_over_the_standard_library(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(shutil.copy(CLIENT, folder))
            origin = importlib.util.spec_from_file_location("copied", copy)
            assert origin and origin.loader
            module = importlib.util.module_from_spec(origin)
            origin.loader.exec_module(module)
            self.assertEqual(module.create("clsBVTCanvas").BlockName(2), "Move Axis")
            gc.collect()


class Values(unittest.TestCase):
    def setUp(self) -> None:
        self.collection = bc.create("clsBVTBlock").ColFromBlockID

    def through(self, value: Any) -> Any:
        """Into the library and out of it again."""
        self.collection.Add(value)
        return self.collection.Item(len(self.collection))

    def test_come_back_as_they_went_in(self) -> None:
        for value in (True, False, 7, -70000, 1.5, 5e9, "", "Grüße \U0001F600", "a\0b", bc.Null, None,
                      [1, "two", None], [[1, 2, 3], [4, 5, 6]], [[[1], [2]]], []):
            with self.subTest(value):
                given = self.through(value)
                self.assertEqual(given, value)
                self.assertIs(type(given), type(value))

    def test_empty_comes_back_as_no_result(self) -> None:
        self.assertIsNone(self.through(bc.Empty))

    def test_whole_numbers_beyond_32_bits_are_floats(self) -> None:
        self.assertEqual(self.through(5_000_000_000), 5e9)

    def test_objects_keep_their_identity(self) -> None:
        class Host:
            pass

        host = Host()
        self.assertIs(self.through(host), host)
        edge = bc.create("clsBVTEdge")
        self.assertEqual(self.through(edge), edge)
        self.assertNotEqual(self.through(edge), bc.create("clsBVTEdge"))
        self.assertEqual(len({edge, self.through(edge)}), 1)

    def test_arrays_go_by_value_and_by_reference(self) -> None:
        document = bc.create("clsBVTCanvas")
        self.assertIs(document.UpdateRestartProgram([True] * 8), False)
        self.assertIs(document.UpdateRestartProgram(bc.Ref([True] * 8)), False)
        variables = bc.create("clsBVTSetVariable")
        self.assertEqual(variables.ParseList("a;b;"), ["a", "b", ""])
        switches = bc.create("clsBVTProgrammableLimitSwitch")
        switches.Variable = "1,2,Out1,1;3,4,Out2,0;"
        switches.FillMatrix()
        self.assertEqual(switches.Switches, [["1", "2", "Out1", "1"], ["3", "4", "Out2", "0"]])

    def test_a_collection_is_walked_indexed_and_counted(self) -> None:
        self.collection.Add("a", "Key")
        self.collection.Add(2)
        self.assertEqual(list(self.collection), ["a", 2])
        self.assertEqual((self.collection["key"], self.collection(2), len(self.collection)), ("a", 2, 2))
        self.collection.Remove("key")
        self.assertEqual(list(self.collection), [2])


class Failures(unittest.TestCase):
    def setUp(self) -> None:
        self.document = bc.create("clsBVTCanvas")

    def test_an_unknown_name_is_an_attribute_error(self) -> None:
        with self.assertRaises(AttributeError):
            self.document.NoSuchName
        self.assertFalse(hasattr(self.document, "NoSuchName"))

    def test_a_refused_call_tells_its_code(self) -> None:
        refused = {0x8002000E: lambda: self.document.BlockName(), 0x80020005: lambda: self.document.BlockName("many"),
                   0x8002000A: lambda: self.document.BlockName(40000),
                   0x80020003: lambda: setattr(self.document, "BottomPortSelected", True)}
        for code, call in refused.items():
            with self.subTest(hex(code)), self.assertRaises(bc.Error) as raised:
                call()
            self.assertEqual(raised.exception.code, code)

    def test_a_run_time_error_tells_its_number(self) -> None:
        with self.assertRaises(bc.RunTimeError) as raised:
            self.document.BlockName(99)
        self.assertEqual((raised.exception.number, str(raised.exception)), (9, "[9] Subscript out of range"))

    def test_a_class_without_events_cannot_be_connected(self) -> None:
        with self.assertRaises(bc.Error):
            bc.connect(bc.create("clsBVTEdge"), object())


class Hosts(unittest.TestCase):
    def result(self, host: Any) -> bc.RunTimeError:
        with self.assertRaises(bc.RunTimeError) as raised:
            bc.create("clsBVTCanvas").WriteModelFile(host, "a.bpg")
        return raised.exception

    def test_a_missing_member_is_error_438(self) -> None:
        self.assertEqual(self.result(object()).number, 438)

    def test_an_exception_is_error_440_with_its_text(self) -> None:
        class Host:
            def writemodelfile(self, name: str) -> None:
                raise ValueError(f"not {name}")

        error = self.result(Host())
        self.assertEqual((error.number, error.source, error.description), (440, "ValueError", "not a.bpg"))

    def test_a_run_time_error_keeps_its_number(self) -> None:
        class Host:
            def WRITEMODELFILE(self, name: str) -> None:
                raise bc.RunTimeError(70, "Disk", "write protected")

        error = self.result(Host())
        self.assertEqual((error.number, error.source, error.description), (70, "Disk", "write protected"))

    def test_an_attribute_error_inside_a_member_is_not_a_missing_member(self) -> None:
        class Host:
            def WriteModelFile(self, name: str) -> None:
                getattr(None, name)

        self.assertEqual(self.result(Host()).number, 440)

    def test_collections_are_walked(self) -> None:
        class Walked:
            def __iter__(self) -> Any:
                yield from ("c:\\a.bpg", "b.bpg")

        class Broken:
            def __iter__(self) -> Any:
                yield "a.bpg"
                raise OSError

        block = bc.create("clsBVTSuperBlock")
        block.SubroutineFilename = Walked()
        titles = bc.Ref(None)
        block.GetComboItem(0, titles)
        self.assertEqual(list(titles.value), ["a.bpg", "b.bpg"])
        block.SubroutineFilename = bc.Collection(["d.bpg"])
        block.GetComboItem(0, titles)
        self.assertEqual(list(titles.value), ["d.bpg"])
        for wrong in (Broken(), object()):
            with self.subTest(type(wrong)), self.assertRaises(bc.RunTimeError):
                block.SubroutineFilename = wrong

    def test_a_collection_answers_by_place_and_by_key(self) -> None:
        collection = bc.Collection(["a", "b"], ["First", "Second"])
        collection.Add("c")
        collection.Add("d", "Last")
        self.assertEqual((collection.Count, collection.Item(2), collection.Item("SECOND"), collection.Item("last")),
                         (4, "b", "b", "d"))
        for wrong, number in ((0, 9), (5, 9), ("none", 5)):
            with self.subTest(wrong), self.assertRaises(bc.RunTimeError) as raised:
                collection.Item(wrong)
            self.assertEqual(raised.exception.number, number)


class Events(unittest.TestCase):
    def test_a_sink_may_end_its_connection_while_it_is_called(self) -> None:
        seen: list[str] = []

        class Once:
            def PreAddtoUndo(self, cancel: bc.Ref) -> None:
                seen.append("once")
                connection.close()

        document = bc.create("clsBVTCanvas")
        connection = bc.connect(document, Once())
        for _ in range(2):
            document.AddActionToUndoList(2, bc.create("clsBVTUndoBuffer"))
        self.assertEqual(seen, ["once"])
        connection.close()

    def test_each_event_reaches_the_method_of_its_name(self) -> None:
        seen: list[str] = []

        class Sink:
            def __getattr__(self, name: str) -> Any:
                raise AttributeError(name, name=name, obj=self)

        for name in ("PreAddtoUndo", "PostAddtoUndo", "PreUndo", "PostUndo", "PreRedo", "PostRedo"):
            setattr(Sink, name, lambda self, *arguments, name=name: seen.append(name))
        document = bc.create("clsBVTCanvas")
        with bc.connect(document, Sink()):
            document.AddActionToUndoList(2, bc.create("clsBVTUndoBuffer"))
            document.UndoPerformed()
            document.RedoPerformed()
        self.assertEqual(seen, ["PreAddtoUndo", "PostAddtoUndo", "PreUndo", "PostUndo", "PreRedo", "PostRedo"])


if __name__ == "__main__":
    unittest.main()
