"""What the tests of packages have in common: packing, and what an installed program must do."""

import os
import pathlib
import subprocess
import sys

TOP = pathlib.Path(__file__).parents[2]
PROGRAMS = pathlib.Path(os.environ["PROGRAMS"])
VERSION = "1.2.3"
CAPTURED = {"capture_output": True, "text": True, "check": False}
FILES = {
    "README.md": "# Notes\n\n<!-- registry:tools -->\n<!-- /registry:tools -->\n",
    "registry-docs.json": '{"files": [{"path": "README.md", "blocks": ["tools"]}],'
                          ' "server": {"command": "./absent"}}\n',
}
TOOLS = '{"tools": [{"name": "note_add", "description": "Add a note."}]}'
RUNS = {  # in this order, on these files: the arguments, the input, the exit status, the output
    "out of date": (["--check", "--tools", "-"], TOOLS, 1, "README.md: blocks out of date: tools\n"),
    "written": (["--write", "--tools", "-"], TOOLS, 0, "README.md\n"),
    "current": (["--check", "--tools", "-"], TOOLS, 0, ""),
    "no JSON": (["--check", "--tools", "-"], "[", 2, ""),
    "an argument of many characters": (["--root", "a \"b\" $c `d` * \\"], "", 2, ""),
}


def pack(kind, programs, out, version=VERSION, **options):
    """Runs one of the packers; options are those of subprocess.run."""
    packer = [sys.executable, "-B", TOP / f"packaging/pack_{kind}.py", programs, version, out]
    return subprocess.run(packer, **CAPTURED | options)


def made(place, files):
    """A directory with these files, each with its text or, where its text is bytes, executable."""
    for name, text in files.items():
        path = place / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(text, str):
            path.write_text(text, encoding="utf-8")
        else:
            path.write_bytes(text)
            path.chmod(0o755)
    return place


def assert_runs(test, command, repository, env):
    """Everything that the program is told and tells passes through what runs it."""
    made(repository, FILES)
    for name, (arguments, given, status, output) in RUNS.items():
        with test.subTest(name, command=command):
            done = subprocess.run([*command, *arguments], input=given, cwd=repository, env=env, **CAPTURED)
            test.assertEqual((done.returncode, done.stdout), (status, output), done.stderr)
            test.assertEqual(done.stderr == "", status == 0, done.stderr)
