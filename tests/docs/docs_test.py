"""Runs the commands that the documents of docs/ show, and compares what comes out.

The console blocks of a document are run in order in one shell. A line that begins
with "$ " is a command, which lines that begin with "> " continue; everything else is what the
commands print, on either output. UPDATE_DOCS=1 writes what comes out into the document.
"""

import difflib
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

TOP = pathlib.Path(__file__).parents[2]
BLOCK = re.compile(r"(?<=^```console\n).*?(?=^```$)", re.MULTILINE | re.DOTALL)
COMMAND = re.compile(r"^\$ .*\n(?:>(?: .*)?\n)*", re.MULTILINE)
# Ends what a command printed, and leaves its status to the next one.
SHOWN = r"""shown() {
  local status=$?
  [ "$status" -eq 0 ] || echo "(exit status $status)"
  printf '\0'
  return "$status"
}
"""


def environment(directory):
    """Nothing of the user's, and commits that have the same name everywhere."""
    program = pathlib.Path(os.environ["PROGRAM"]).parent
    made = {"PATH": f"{program}:{os.environ['PATH']}", "HOME": directory, "LC_ALL": "C.UTF-8",
            "GIT_CONFIG_NOSYSTEM": "1", "GIT_PAGER": "cat", "GIT_CONFIG_COUNT": "1",
            "GIT_CONFIG_KEY_0": "init.defaultBranch", "GIT_CONFIG_VALUE_0": "main"}
    for who in ("AUTHOR", "COMMITTER"):
        made |= {f"GIT_{who}_NAME": "Maintainer", f"GIT_{who}_EMAIL": "maintainer@localhost",
                 f"GIT_{who}_DATE": "2024-01-01T00:00:00Z"}
    return made


def outputs_of(commands):
    """What each command prints, in a directory with the examples and the schema."""
    with tempfile.TemporaryDirectory() as directory:
        here = pathlib.Path(directory)
        shutil.copytree(TOP / "examples", here / "examples")
        (here / "docs").mkdir()
        shutil.copy(TOP / "docs/registry.schema.json", here / "docs")
        lines = (re.sub(r"^(\$|>) ?", "", command, flags=re.MULTILINE) for command in commands)
        script = SHOWN + "".join(f"{line}shown\n" for line in lines)
        done = subprocess.run(["bash", "-c", script], cwd=here, env=environment(directory),
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False)
    return done.stdout.decode().split("\0")


def renewed(text):
    """The document with what its commands print now."""
    commands = [command for block in BLOCK.findall(text) for command in COMMAND.findall(block)]
    outputs = iter(outputs_of(commands))
    return BLOCK.sub(lambda block: "".join(
        command + next(outputs, "(was not run)\n") for command in COMMAND.findall(block[0])), text)


class Documents(unittest.TestCase):
    def test_commands_print_what_is_shown(self):
        for path in sorted(TOP.glob("docs/*.md")):
            text = path.read_text()
            if "```console" not in text:
                continue
            if path.name == "typescript.md" and shutil.which("node") is None:
                continue  # scripts/test-servers has one
            new, name = renewed(text), str(path.relative_to(TOP))
            if os.environ.get("UPDATE_DOCS"):
                path.write_text(new)
                continue
            with self.subTest(name):
                difference = difflib.unified_diff(text.splitlines(), new.splitlines(), name,
                                                  "what its commands print", lineterm="")
                if text != new:
                    self.fail("\n".join(["", *difference]))


if __name__ == "__main__":
    unittest.main()
