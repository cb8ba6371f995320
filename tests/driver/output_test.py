"""What a check shows of the problems that it finds, and what it says to do about them."""

import itertools
import json
import os
import pathlib
import pty
import random
import re
import shutil
import subprocess
import unittest

import jsonschema

from example import (CONFIG, CR_LF, EXAMPLE, FILES, MARK, MCP, PROGRAM, README, REGISTRY,
                     STALE, STALE_SKILL, ExampleTest)

SCHEMA = json.loads(pathlib.Path(os.environ["OUTPUT_SCHEMA"]).read_text(encoding="utf-8").replace(
    '"type": "object",', '"type": "object", "additionalProperties": false,'))
TOOLS, END = "<!-- registry:readme-tools -->", "<!-- /registry:readme-tools -->"
CONFLICT = "<<<<<<< ours\n{}\n=======\n{}\n>>>>>>> theirs\n"
UP_TO_DATE = "To bring the blocks up to date, run:\n  {} --write\n"
FIXED = "When that is fixed, bring the blocks up to date:\n  {} --write\n"


def drop(*names):
    """Changes that take the markers of blocks of the reference away."""
    return [(MCP, marker.format(name), "") for name in names
            for marker in ("<!-- registry:{} -->\n", "<!-- /registry:{} -->\n")]


def pair(name):
    return f"<!-- registry:{name} -->\n<!-- /registry:{name} -->\n"


ADVICE = {  # the changes, and what is said to be fixed by hand
    "stale": ([STALE], ""),
    "a conflict within a block": ([(README, "14 tools", CONFLICT.format("14", "15"))], ""),
    "a conflict across a marker": (
        [STALE, (README, END + "\n", CONFLICT.format(END, "x\n" + END))],
        "README.md:69: a merge conflict reaches across a marker, to line 74; choose a side of it "
        "by hand\n"),
    "conflicts within a conflict, without labels": (
        [(README, TOOLS, "<<<<<<<\n" + CONFLICT.format("x", "y") + TOOLS + "\n=======\n>>>>>>>"),
         STALE], "README.md:50: a merge conflict reaches across a marker, to line 58; choose a side "
        "of it by hand\n"),
    "a conflict without its end": (
        [(README, TOOLS, "<<<<<<< ours\n" + TOOLS), STALE],
        "README.md:50: a merge conflict reaches across a marker, to line 96; choose a side of it "
        "by hand\n"),
    "missing in the midst": (
        drop("params:file_tree", "params:call_paths", "mcp-cli"),
        "docs/mcp-tools.md: missing params:file_tree, params:call_paths; put these lines after "
        "line 150:\n" + pair("params:file_tree") + pair("params:call_paths") +
        "docs/mcp-tools.md: missing mcp-cli; put these lines after line 33:\n" + pair("mcp-cli")),
    "missing, and more in the line before it": (
        [(README, TOOLS, ""), (README, END, ""), *drop("mcp-overview"),
         (MCP, "<!-- /registry:mcp-intro -->", "<!-- /registry:mcp-intro --> x")],
        "".join(f"{file}: missing {name}; put these lines where the lists belong:\n" + pair(name)
                for file, name in ((README, "readme-tools"), (MCP, "mcp-overview")))),
    "unknown": ([(MCP, "registry:mcp-cli", "registry:größe")],
                "docs/mcp-tools.md:37: größe is no block of this file; remove its markers and what "
                "is between them, or fix its name\n"
                "docs/mcp-tools.md: missing mcp-cli; put these lines after line 33:\n" +
                pair("mcp-cli")),
    "unknown, but near": ([(README, "registry:readme-tools", "registry:readme_tool")],
                          "README.md:50: readme_tool is no block of this file; perhaps "
                          "readme-tools is meant\n"),
    "unknown, and near to one that is there": (
        [(README, "# Tesmo Sorvet\n", pair("readme-tool"))],
        "README.md:1: readme-tool is no block of this file; remove its markers and what is "
        "between them, or fix its name\n"),
    "one marker misspelt": ([(README, TOOLS, TOOLS.replace("tools", "tool"))],
                            "README.md:50: readme-tool is no block of this file; perhaps "
                            "readme-tools is meant\n"),
    "a name that no marker can hold": (
        [(REGISTRY, '"name": "file_tree"', '"name": "file.tree"')],
        "docs/mcp-tools.md:158: params:file_tree is no block of this file; remove its markers and "
        "what is between them, or fix its name\ndocs/mcp-tools.md: params:file.tree can be no "
        'block; rename the tool, with letters, numbers, "_", ":" and "-" alone\n'),
    "repeated": ([(README, "# Tesmo Sorvet\n", pair("readme-tools") * 2)],
                 "".join(f"README.md:{line}: readme-tools stands at line 1 already; keep one of "
                         "them\n" for line in (3, 53))),
    "a blank after an opening marker": (
        [(README, TOOLS, TOOLS + " ")],
        "README.md:50: the line must end with the opening marker of readme-tools; remove the "
        "blank after it\n"),
    "text after an opening marker": (
        [(README, TOOLS, TOOLS + "\u3000x")],
        "README.md:50: the line must end with the opening marker of readme-tools; move the text "
        "after it to the next line\n"),
    "never closed": ([(README, END, "")],
                     "README.md:50: readme-tools is opened and never closed; add "
                     "<!-- /registry:readme-tools --> where it ends\n"),
    "never opened": ([(README, TOOLS, "")],
                     "README.md:69: readme-tools is closed and was not opened; add <!-- registry:"
                     "readme-tools -->, on a line of its own, where it begins\n"),
    "within another block": (
        [(MCP, "<!-- /registry:mcp-intro -->\n", ""),
         (MCP, "<!-- /registry:mcp-overview -->\n",
          "<!-- /registry:mcp-overview -->\n<!-- /registry:mcp-intro -->\n")],
        "".join(f"docs/mcp-tools.md:{line}: the marker of mcp-overview stands within mcp-intro, "
                "which begins at line 3; move it out\n" for line in (10, 32))),
    "written carelessly": (
        [(README, TOOLS, "<!--registry: readme-tools-->")],
        "README.md:50: this is almost a marker of readme-tools; write " + TOOLS + "\n"),
    "markers that are only mentioned": (
        [(MCP, "## Command line\n", f"A block (`{TOOLS}`, `<!-- registry:mcp-cli -->`)\n"),
         *drop("params:workspace")],
        "docs/mcp-tools.md: missing params:workspace; put these lines after line 211:\n" +
        pair("params:workspace")),
}
FOLLOWED = (  # what is done, to the letter, about a line of advice: its form, and the change
    (r"perhaps (.*) is meant", lambda name, found, lines, at:
     [line.replace(f"registry:{name} ", f"registry:{found[1]} ") for line in lines]),
    (r"(after it|to the next line)$", lambda name, found, lines, at:
     lines[:at] + [lines[at].replace(" -->", " -->\n").replace("\n \n", "\n")] + lines[at + 1:]),
    (r"; write (.*)", lambda name, found, lines, at:
     lines[:at] + [re.sub("<!--.*-->", found[1], lines[at])] + lines[at + 1:]),
    (r"remove its markers", lambda name, found, lines, at:
     lines[:at] + lines[lines.index(f"<!-- /registry:{name} -->\n") + 1:]),
)


class Output(ExampleTest):
    def run_program(self, *arguments, **more):
        return subprocess.run([PROGRAM, *arguments], cwd=self.root, capture_output=True,
                              text=True, encoding="utf-8", check=False, **more)

    def follow(self, advice):
        """Does what is advised, to the letter and in its order; tells whether all can be done."""
        for step in re.findall(r"^[^<\n ].*\n(?:<.*\n)*", advice, re.M):
            said, _, pasted = step.partition("\n")
            file, line, name, said = re.match(r"(.*?):(\d*):? (\S*) (.*)", said).groups()
            path, at = self.root / file, int(line or 0) - 1
            lines = path.read_text(encoding="utf-8").splitlines(keepends=True)
            if after := re.search(r"after line (\d+):", said):
                lines.insert(int(after[1]), pasted)
            else:
                done = [change(name, found, lines, at) for form, change in FOLLOWED
                        if (found := re.search(form, said))]
                if not done:
                    return False
                lines, = done
            path.write_text("".join(lines), encoding="utf-8")
        return True

    def test_what_to_do_next(self):
        """What is said, that no write goes before it, and that it helps in one go."""
        for name, (changes, by_hand) in ADVICE.items():
            with self.subTest(name):
                self.renew(*changes)
                before = [(self.root / file).read_bytes() for file in FILES]
                expected = by_hand + (FIXED if by_hand else UP_TO_DATE).format(PROGRAM)
                self.assertEqual(self.run_program("--check").stderr, expected)
                refused = self.run_program("--write", "--quiet").returncode
                self.assertEqual(refused, int(by_hand != ""))
                if refused:
                    self.assertEqual([(self.root / file).read_bytes() for file in FILES], before)
                    if self.follow(by_hand):
                        self.assertEqual(self.run_program("--write").stderr, "")
                        self.assertEqual(self.run_program("--check").stdout, "")
        self.renew(STALE)
        said = self.run_program("--check", "--root", "../it's here", f"--registry={REGISTRY}").stderr
        self.assertEqual(said, UP_TO_DATE.format(PROGRAM)[:-1] +
                         f" --root '../it'\\''s here' --registry {REGISTRY}\n")
        self.assertEqual(self.run_program("--check", "--quiet").stderr, "")

    def test_diff(self):
        """Applied by either tool it makes what a write would make, the example."""
        overview = (EXAMPLE / MCP).read_text(encoding="utf-8").split("\n")[11:32]
        shuffled = [random.Random(seed).sample(overview, len(overview)) for seed in range(20)]
        many = "\n".join(map(str, range(4000)))
        cases = [[(MCP, "\n".join(overview), "\n".join(lines))] for lines in shuffled] + [
            [STALE, MARK], [STALE, CR_LF], [(README, "14 tools", many)],
            [STALE, (README, "Sorvet\n\n", "Sorvet\r\r")], [STALE, (README, "\n" + END, " " + END)],
            [(MCP, "\n| 1 ", "\n| 0 "), (MCP, "\n| 8 ", "\n| 0 "), (MCP, "6 extended", "")],
            [(CONFIG, "\n<!-- /registry:rules-routes", "<!-- /registry:rules-routes")]]
        for changes, tool in itertools.product(cases, (["patch", "-sp1"], ["git", "apply"])):
            with self.subTest(changes=str(changes)[:200], tool=tool):
                shutil.rmtree(self.root)
                shutil.copytree(EXAMPLE, self.root)
                self.change(*changes)
                diff = subprocess.run([PROGRAM, "--check", "--diff"], cwd=self.root, check=False,
                                      capture_output=True).stdout
                subprocess.run(tool, cwd=self.root, input=diff, check=True, capture_output=True)
                for file in FILES:
                    mark = b"\xef\xbb\xbf" if MARK in changes and file == README else b""
                    self.assertEqual((self.root / file).read_bytes(),
                                     mark + (EXAMPLE / file).read_bytes())

    def test_hunks(self):
        """Changes with six lines between them share a hunk, with seven they do not."""
        row = (MCP, "\n| 1 ", "\n| 0 ")
        between = "{}<!-- /registry:mcp-intro -->\n\n## Overview\n\n<!-- registry:mcp-overview -->\n{}"
        for change, expected in (
                ((MCP, "\n| 8 ", "\n| 0 "), ["-11,14 +11,14 @@ mcp-overview"]),
                ((MCP, "\n| 9 ", "\n| 0 "), ["-11,7 +11,7 @@ mcp-overview",
                                             "-19,7 +19,7 @@ mcp-overview"]),
                ((MCP, between.format("", ""), between.format("x", "x")), ["-4,14 +4,14 @@ mcp-intro, mcp-overview"]),
                (STALE, ["-48,7 +48,7 @@ readme-tools", "-11,7 +11,7 @@ mcp-overview"])):
            with self.subTest(change):
                self.renew(row, change)
                diff = self.run_program("--check", "--diff").stdout
                self.assertEqual(re.findall("^@@ (.*)", diff, re.M), expected)

    def test_colors(self):
        try:
            ours, theirs = pty.openpty()
        except OSError as error:
            self.skipTest(str(error))
        plain = self.run_program("--check", "--diff").stdout
        colored = self.run_program("--check", "--diff", "--color", "always").stdout
        self.assertIn("\n\x1b[36m@@ -48,7 +48,7 @@ readme-tools\x1b[m\n", colored)
        self.assertIn("\n\x1b[31m-13 tools", colored)
        for argument, variables, expected in (
                ("--color=auto", {}, colored), ("--diff", {"NO_COLOR": ""}, colored),
                ("--diff", {"NO_COLOR": "1"}, plain), ("--diff", {"TERM": "dumb"}, plain),
                ("--color=never", {}, plain)):
            with self.subTest(argument, variables=variables):
                subprocess.run([PROGRAM, "--check", "--diff", argument], cwd=self.root, check=False,
                               stdout=theirs, stderr=subprocess.DEVNULL, env=variables)
                shown = b""
                while len(shown) < len((expected.replace("\n", "\r\n")).encode()):
                    shown += os.read(ours, 99999)
                self.assertEqual(shown.decode().replace("\r\n", "\n"), expected)

    def test_json(self):
        self.renew(STALE, (CONFIG, "registry:rules-routes", "registry:größe"),
                   (MCP, "registry:mcp-cli", "registry:mcp-intro"))
        done = self.run_program("--check", "--format=json", "--diff")
        found = json.loads(done.stdout)
        jsonschema.validate(found, SCHEMA)
        self.assertEqual((done.returncode, [file["path"] for file in found["files"]]), (1, [*FILES]))
        text = self.run_program("--check", "--diff").stdout
        self.assertEqual("".join(f"{file['message']}\n{file['diff']}" for file in found["files"]
                                 if file["message"]), text)
        self.assertEqual([file["state"] for file in found["files"]],
                         ["current", "wrong markers", "current", "stale", "wrong markers"])
        names = [(file["missing"], file["unknown"], file["repeated"]) for file in found["files"]]
        self.assertEqual(names[1::3], [(["rules-routes"], ["größe"], []),
                                       (["mcp-cli"], [], ["mcp-intro"])])
        self.assertEqual(found["files"][4]["blocks"][:2], [
            {"name": "mcp-intro", "state": "repeated", "line": 3},
            {"name": "mcp-overview", "state": "current", "line": 11}])
        failed = self.run_program("--check", "--format", "json", "--registry", "a\nb.json")
        found = json.loads(failed.stdout)
        jsonschema.validate(found, SCHEMA)
        self.assertEqual((failed.returncode, found["error"] + "\n"), (2, failed.stderr))

    def test_github(self):
        self.renew(STALE, (MCP, "registry:mcp-cli", "registry:mcp-clx"))
        def annotations(root, **variables):
            done = self.run_program("--check", "--format=github", "--root", root, env=variables)
            self.assertEqual(done.returncode, 1)
            return done.stdout
        wrong = ("line=37::docs/mcp-tools.md: the markers do not match the blocks it holds (missing "
                 "['mcp-cli'], unknown ['mcp-clx'], repeated [])%0Adocs/mcp-tools.md:37: mcp-clx is "
                 "no block of this file; perhaps mcp-cli is meant\n")
        expected = ("::error file={0}README.md,line=50::README.md: blocks out of date: readme-tools\n"
                    "::error file={0}docs/mcp-tools.md," + wrong)
        self.assertEqual(annotations("."), expected.format(""))
        self.assertEqual(annotations(self.root, GITHUB_WORKSPACE=str(self.directory)),
                         expected.format("it's here/"))
        odd = self.root.rename(self.directory / "100%,a:b")
        self.root.mkdir()
        self.assertEqual(annotations(odd, GITHUB_WORKSPACE=str(self.directory)),
                         expected.format("100%25%2Ca%3Ab/"))
        odd.rename(self.root / "100%")
        (self.root / "100%" / REGISTRY).write_text("[\n x")
        for root, place, message in (
                ("100%", f" file=100%25/{REGISTRY},line=2", f"100%25/{REGISTRY}:2:2: expected a "
                 "JSON value, found 'x'"),
                ("100%\n", "", f"100%25\\n/{REGISTRY}: No such file or directory")):
            failed = self.run_program("--check", "--format", "github", "--root", root, env={})
            self.assertEqual(failed.stdout, f"::error{place}::{message}\n")


if __name__ == "__main__":
    unittest.main()
