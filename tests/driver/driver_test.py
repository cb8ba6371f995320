"""Runs the program on copies of the example repository, as a user does."""

import itertools
import os
import pathlib
import re
import resource
import shutil
import socket
import subprocess
import unittest

from example import (CONFIG, CR_LF, EXAMPLE, FILES, IS_ROOT, MARK, MCP, PROGRAM, README, REGISTRY,
                     RENAMED, SKILL, STALE, STALE_CONFIG, STALE_SKILL, USER, ExampleTest)

# The lines of a check.
README_LINE = "README.md: blocks out of date: readme-tools\n"
SKILL_LINE = f"{SKILL}: blocks out of date: skill-routes, skill-tools\n"
MCP_LINE = f"{MCP}: blocks out of date: mcp-intro, params:symbol_lookup\n"
CONFIG_LINE = f"{CONFIG}: blocks out of date: rules-routes\n"
WRONG_LINE = ("README.md: the markers do not match the blocks it holds "
              "(missing ['readme-tools'], unknown ['größe'], repeated [])\n")

CHANGES = {  # the changes, the lines of a check, and the files that a write writes
    "none": ([], "", []),
    "CR LF": ([CR_LF, (CONFIG, "\n", "\r\n")], "", []),
    "lone CR": ([(MCP, "\n", "\r")], "", []),
    "a byte-order mark": ([MARK], "", []),
    "stale": ([STALE], README_LINE, [README]),
    "stale, shorter": ([(README, "14 tools for", "")], README_LINE, [README]),
    "stale, longer": ([(README, "14 tools", "x" * 70000)], README_LINE, [README]),
    "stale, CR LF": ([STALE, CR_LF], README_LINE, [README]),
    "stale, byte-order mark": ([STALE, MARK], README_LINE, [README]),
    "many stale": ([(MCP, "200) | find", "20) | find"), (MCP, "**14 MCP", "**1 MCP"), STALE_SKILL,
                    STALE_CONFIG, STALE], SKILL_LINE + CONFIG_LINE + README_LINE + MCP_LINE,
                   [SKILL, CONFIG, README, MCP]),
    "wrong markers": ([RENAMED, STALE_CONFIG], CONFIG_LINE + WRONG_LINE, []),
}

NO_FILE = "No such file or directory"

def bind_socket(path):
    with socket.socket(socket.AF_UNIX) as listening:
        listening.bind(str(path))


NO_REGULAR = "expected a regular file, found a "
ODD = {  # messages about what may stand in a file's place, and how it is put there
    NO_FILE: lambda path: path.symlink_to("nowhere"),
    "Too many levels of symbolic links": lambda path: path.symlink_to(path.name),
    NO_REGULAR + "directory": pathlib.Path.mkdir,
    NO_REGULAR + "pipe": os.mkfifo,
    NO_REGULAR + "socket": bind_socket,
    NO_REGULAR + "device": lambda path: path.symlink_to("/dev/zero"),
    "expected UTF-8, found an ill-formed sequence at byte 4":
        lambda path: path.write_bytes(b"a\r\nb\xed\xa0\x80"),
}

REFUSED = {  # command lines, and the messages of their refusals
    "": "registry-docs: expected --check, --write, --list or init, found none; see --help",
    "--check --quiet=1": "--quiet: expected no value, found '1'",
    "--write --check": "--check --write: expected one of them, found both",
    "--list --check": "--check --list: expected one of them, found both",
    "--list --quiet": "--quiet: expected --check or --write beside it, found --list",
    "--exit-code --check": "--exit-code: expected --write beside it, found --check",
    "--check --root": "--root: expected a value, found nothing",
    "--check --registry=": "--registry: expected a value, found an empty one",
    "--root=. --check --root .": "--root: expected once, found again",
    "--check --roots=.": "'--roots=.': expected an option, perhaps --root, see --help",
    "--chekc": "'--chekc': expected an option, perhaps --check, see --help",
    "--check --quite": "'--quite': expected an option, perhaps --quiet, see --help",
    "--check --exit": "'--exit': expected an option, see --help",
    "--write --diff": "--diff: expected --check beside it, found --write",
    "--list --format json": "--format: expected --check beside it, found --list",
    "--write --color=never": "--color: expected --check beside it, found --write",
    "--check --format=xml": "--format: expected text, json or github, found 'xml'",
    "--check --color x": "--color: expected auto, always or never, found 'x'",
    "--check --diff --format github":
        "--diff: expected --format text or json beside it, found github",
    "--check --root /absent": f"/absent/src/tesmo_sorvet/tool_registry.json: {NO_FILE}",
    "--check --registry absent.json": f"absent.json: {NO_FILE}",
    "--check --registry -": "-:1:1: expected a JSON object, found the end of the document",
}


class Driver(ExampleTest):
    def state(self, file):
        """What stays of a file in every write, its bytes, and when they were written."""
        path = self.root / file
        now = path.stat()
        lasting = (now.st_ino, now.st_mode, now.st_uid, now.st_gid, now.st_nlink)
        return (*lasting, path.is_symlink()), path.read_bytes(), now.st_mtime_ns

    def test_check_and_write(self):
        for name, (changes, lines, written) in CHANGES.items():
            with self.subTest(name):
                self.renew(*changes)
                before = [self.state(file) for file in FILES]
                self.expect(int(lines != ""), lines, None if lines else "", self.root, "--check")
                self.assertEqual([self.state(file) for file in FILES], before)
                is_refused = WRONG_LINE in lines
                paths = "".join(f"{file}\n" for file in written)
                self.expect(int(is_refused), paths, None if is_refused else "", self.root, "--write")
                for file, old in zip(FILES, before):
                    if file not in written:
                        self.assertEqual(self.state(file), old)
                        continue
                    mark = b"\xef\xbb\xbf" if MARK in changes else b""
                    expected = (old[0], mark + (EXAMPLE / file).read_bytes())
                    self.assertEqual(self.state(file)[:2], expected)

    def test_files_that_cannot_be_read(self):
        for file, (message, put) in itertools.product((README, CONFIG, REGISTRY), ODD.items()):
            with self.subTest(message, file=file):
                self.renew(STALE_SKILL)
                path = self.root / file
                path.unlink()
                put(path)
                for option in ("--check", "--write"):
                    self.expect(2, "", f"{path}: {message}\n", "/", option, "--root", self.root)
                self.assertIn("|---|---|---|", (self.root / SKILL).read_text(encoding="utf-8"))

    def test_registries_that_are_named(self):
        read, write = os.pipe()
        os.write(write, (EXAMPLE / REGISTRY).read_bytes())
        os.close(write)
        named = ("--check", "--registry", f"/dev/fd/{read}")
        self.expect(1, README_LINE, None, self.root, *named, pass_fds=[read])
        for path, kind in (("/dev/zero", "device"), ("/", "directory")):
            message = f"{path}: expected a regular file or a pipe, found a {kind}\n"
            self.expect(2, "", message, self.root, "--write", "--registry", path)

    def test_what_a_terminal_would_act_on(self):
        name = "\x1b]0;x\a\u202e.json"
        (self.root / name).write_text('{"a\\n\x7f\u009b": 1, "tools": [], "a\\n\x7f\u009b": 2}')
        message = ("\\x1b]0;x\\x07\\u202e.json:1:28: expected each member once, "
                   'found "a\\n\\x7f\\x9b" a second time\n')
        self.expect(2, "", message, self.root, "--check", "--registry", name)
        self.expect(2, "", "'\\xff\\x0d': expected an option or a directory, see --help\n", "/", b"\xff\r")

    def test_what_is_read_only(self):
        self.renew(STALE_CONFIG, STALE)
        user = {}
        if IS_ROOT:  # who may write to anything: an ordinary user is to run the program
            program = shutil.copy(PROGRAM, self.directory)
            user = {"executable": program, "user": USER}
            for path in self.directory, *self.directory.rglob("*"):
                os.chown(path, USER, USER)
        (self.root / README).chmod(0o444)
        message = "./README.md: Permission denied\n"
        self.expect(2, "", message, self.root, "--write", "--root=.", **user)
        self.expect(1, README_LINE, None, self.root, "--check", **user)
        (self.root / README).chmod(0o644)
        self.directory.chmod(0o555)  # the file itself is what is written
        self.expect(0, "README.md\n", "", self.root, "--write", **user)

    def test_write_that_fails_half_way(self):
        self.renew((README, "14 tools", "x" * 70000))
        before, most = self.state(README), len((EXAMPLE / README).read_bytes()) - 1
        message = f"{self.root}/README.md: File too large\n"
        self.expect(2, "", message, "/", "--write", "--root", self.root,
                    preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (most, most)))
        self.assertEqual(self.state(README)[:2], before[:2])

    def test_command_line(self):
        for arguments, message in REFUSED.items():
            with self.subTest(arguments):
                self.expect(2, "", message + "\n", self.root, *arguments.split())
        version = subprocess.check_output([PROGRAM, "--version"], encoding="utf-8")
        self.assertRegex(version, rf"^registry-docs {re.escape(os.environ['VERSION'])}( \([0-9a-f]{{12}}(-dirty)?\))?\n$")
        text = subprocess.check_output([PROGRAM, "--check", "--help"]).decode()
        self.assertIn("(--check | --write | --list) [OPTION]... [DIR]...\n", text)
        lines = text.splitlines()
        self.assertTrue(len(lines) < 24 and max(map(len, lines)) <= 80, "one screen")
        message = ("/: expected src/tesmo_sorvet/tool_registry.json or registry-docs.json here or in a "
                   "directory above, found none; name the repository with --root DIR, or begin with "
                   "registry-docs init\n")
        self.expect(2, "", message, "/", "--check")
        self.expect(2, "", f"the current directory: {NO_FILE}\n", self.directory, "--check",
                    preexec_fn=lambda: (os.mkdir("x"), os.chdir("x"), os.rmdir("../x")))

    def test_root_and_registry(self):
        registry = self.root / REGISTRY
        declared = registry.read_bytes()
        self.expect(1, README_LINE, None, self.root / "docs", "--check")
        self.expect(1, README_LINE, None, self.directory, "--root=it's here", "--check")
        registry.rename(self.directory / "x.json")
        registry.write_text("no registry")
        self.expect(1, README_LINE, None, self.root, "--check", "--registry=-", input=declared)
        self.expect(1, README_LINE, None, self.root, "--check", "--registry", "../x.json")
        message = f"{registry}:1:2: expected a JSON value, found 'o'\n"
        self.expect(2, "", message, self.root, "--write")

    def test_list(self):
        self.renew(STALE, (CONFIG, "registry:rules-routes -->", "registry:größe -->"),
                   (MCP, "registry:mcp-cli", "registry:mcp-intro"))
        listed = subprocess.check_output([PROGRAM, "--list"], cwd=self.root)
        lines = listed.decode().splitlines()
        rows = {tuple(line.split()) for line in lines}
        expected = {
            ("FILE", "BLOCK", "LINE", "STATE"), (SKILL, "skill-routes", "43", "current"),
            (CONFIG, "größe", "34", "unknown"), (CONFIG, "rules-routes", "-", "missing"),
            (README, "readme-tools", "50", "stale"), (MCP, "mcp-intro", "3", "repeated"),
            (MCP, "mcp-intro", "37", "repeated"), (MCP, "mcp-cli", "-", "missing")}
        self.assertEqual(expected - rows, set())
        self.assertEqual(len({line.rindex("  ") for line in lines}), 1, "columns")

    def test_what_scripts_need(self):
        for arguments, status, output in (("--check --quiet", 1, ""), ("--write --quiet", 0, ""),
                                          ("--write --exit-code", 1, "README.md\n"),
                                          ("--write --exit-code --quiet", 1, "")):
            with self.subTest(arguments):
                self.renew(STALE)
                self.expect(status, output, "", self.root, *arguments.split())
        self.expect(0, "", "", self.root, "--write", "--exit-code")

    def test_output_that_cannot_be_written(self):
        for option in ("--check", "--list", "--help", "--version"):
            with self.subTest(option), open("/dev/full", "wb") as full:
                for reason, more in (("No space left on device", {"stdout": full}),
                                     ("Bad file descriptor", {"preexec_fn": lambda: os.close(1)})):
                    self.expect(2, "", f"standard output: {reason}\n", self.root, option, **more)


if __name__ == "__main__":
    unittest.main()
