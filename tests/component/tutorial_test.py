"""The code of docs/tutorial.md, docs/hardware.md and docs/dialogs.md runs as it stands on the pages."""

import contextlib
import io
import os
import pathlib
import re
import tempfile
import unittest

DOCS = pathlib.Path(__file__).resolve().parents[2] / "docs"


def code_of(page: pathlib.Path) -> str:
    """Every line keeps its number on the page, so that a failure points there."""
    code, inside = [], False
    for line in page.read_text(encoding="utf-8").splitlines():
        fence = re.match(r"```(\w*)$", line)
        code.append(line if inside and not fence else "")
        inside = fence.group(1) == "python" if fence else inside
    return "\n".join(code)


class Pages(unittest.TestCase):
    def run_page(self, name: str) -> list[str]:
        """What the page leaves in its folder."""
        before = os.getcwd()
        with tempfile.TemporaryDirectory() as folder:
            os.chdir(folder)
            try:
                exec(compile(code_of(DOCS / name), str(DOCS / name), "exec"), {"__name__": "page"})
                return sorted(os.listdir(folder))
            finally:
                os.chdir(before)

    def test_the_tutorials_code_runs_from_top_to_bottom(self) -> None:
        self.assertEqual(self.run_page("tutorial.md"), ["tutorial.bpa"])

    def test_the_hardware_pages_code_runs_from_top_to_bottom(self) -> None:
        programs = pathlib.Path(os.environ["BREVANT_CANVAS"]).parents[1] / "bin"
        os.environ["PATH"] = f"{programs}:{os.environ['PATH']}"
        self.assertEqual(self.run_page("hardware.md"), ["controller.csv", "plant.db"])

    def test_the_dialogs_pages_code_runs_from_top_to_bottom(self) -> None:
        with contextlib.redirect_stdout(io.StringIO()) as said:
            self.assertEqual(self.run_page("dialogs.md"), [])
        self.assertIn("txbNewName           text", said.getvalue())


if __name__ == "__main__":
    unittest.main()
