"""The code of docs/tutorial.md runs as it stands on the page."""

import os
import pathlib
import re
import tempfile
import unittest

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs/tutorial.md"


class Tutorial(unittest.TestCase):
    def test_its_code_runs_from_top_to_bottom(self) -> None:
        page = PAGE.read_text(encoding="utf-8")
        # Every line keeps its number on the page, so that a failure points there.
        code, inside = [], False
        for line in page.splitlines():
            fence = re.match(r"```(\w*)$", line)
            code.append(line if inside and not fence else "")
            inside = fence.group(1) == "python" if fence else inside
        before = os.getcwd()
        with tempfile.TemporaryDirectory() as folder:
            os.chdir(folder)
            try:
                exec(compile("\n".join(code), str(PAGE), "exec"), {"__name__": "tutorial"})
                self.assertEqual(os.listdir(folder), ["tutorial.bpa"])
            finally:
                os.chdir(before)


if __name__ == "__main__":
    unittest.main()
