"""A copy of the example repository that the tests of the program change and run it on."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["PROGRAM"]
EXAMPLE = pathlib.Path(os.environ["EXAMPLE"])
IS_ROOT, USER = os.geteuid() == 0, 65534  # and an ordinary user's number
SKILL, CONFIG, GUIDE, README, MCP = FILES = (
    "src/tesmo_sorvet/setup/skill_text.py", "src/tesmo_sorvet/setup/config.py",
    "docs/claude-instructions-template.md", "README.md", "docs/mcp-tools.md")

REGISTRY = "src/tesmo_sorvet/tool_registry.json"

# Changes: of which file, what, into what.
STALE = (README, "14 tools", "13 tools")
STALE_CONFIG = (CONFIG, "| --- | --- |", "|---|---|")
STALE_SKILL = (SKILL, "| --- | --- | --- |", "|---|---|---|")
RENAMED = (README, "registry:readme-tools -->", "registry:größe -->")
CR_LF = (README, "\n", "\r\n")
MARK = (README, "# Tesmo Sorvet\n\n", "\ufeff# Tesmo Sorvet\n\n")


class ExampleTest(unittest.TestCase):
    def setUp(self):
        self.directory = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.root = self.directory / "it's here"
        self.renew(STALE)

    def renew(self, *changes):
        """Makes the copy anew, with links and another owner in it, and changes it."""
        shutil.rmtree(self.root, ignore_errors=True)
        shutil.copytree(EXAMPLE, self.root)
        shutil.move(self.root / README, self.directory / "elsewhere")
        (self.root / README).symlink_to(self.directory / "elsewhere")
        os.link(self.root / SKILL, self.root / "another name")
        (self.root / CONFIG).chmod(0o640)
        if IS_ROOT:
            os.chown(self.root / CONFIG, USER, USER)
        self.change(*changes)

    def change(self, *changes):
        for file, old, new in changes:
            text = (self.root / file).read_bytes().decode()
            self.assertIn(old, text)
            (self.root / file).write_bytes(text.replace(old, new).encode())

    def expect(self, status, output, errors, directory, *arguments, **more):
        """Runs the program; without `errors`, what it says on standard error is free."""
        more = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "input": b"", **more}
        done = subprocess.run([PROGRAM, *arguments], cwd=directory, **more)
        said = b"" if errors is None else done.stderr or b""
        self.assertEqual((done.returncode, done.stdout or b"", said),
                         (status, output.encode(), (errors or "").encode()))
