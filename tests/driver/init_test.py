"""The first registry of a repository: how its server is found, where markers are put, what is refused."""

import json
import os
import pathlib
import resource
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["PROGRAM"]
SERVER = """\
import json, sys
assert sys.argv[1:] in ([], ["stdio"]), sys.argv
TOOL = {"name": "add", "description": "Adds.", "inputSchema": {"type": "object"}}
RESULTS = {"initialize": {"protocolVersion": "2025-06-18", "capabilities": {"tools": {}},
                          "serverInfo": {"name": "s", "version": "1"}},
           "tools/list": {"tools": [TOOL]}}
for line in sys.stdin:
    message = json.loads(line)
    if "id" in message:
        print(json.dumps({"jsonrpc": "2.0", "id": message["id"], "result": RESULTS[message["method"]]}), flush=True)
"""
PYTHON = {"command": "python3", "args": ["server.py"]}
ENTRY = PYTHON | {"env": {"KEY": "${KEY:-none}"}}
NODE = {"command": "node", "args": ["dist/index.js"]}
SCRIPTS = '[project]\nname = "notes"\n[project.scripts]\n'
COMMAND = ("--", "python3", "server.py")
MARKERS = ("--markers", "README.md")
TOOLS = "<!-- registry:tools -->\n<!-- /registry:tools -->\n"
REFERENCE = TOOLS.replace("tools", "reference")

SOURCES = {  # the repository's files, the arguments, the server that is declared, and what is said of it
    "a command": ({}, COMMAND, PYTHON, ""),
    "a command before all files": ({"package.json": {"bin": "no.js"}}, COMMAND, PYTHON, ""),
    "a command with arguments": ({}, (*COMMAND, "stdio"), PYTHON | {"args": ["server.py", "stdio"]}, ""),
    "a client's entry": ({".mcp.json": {"mcpServers": {"notes": ENTRY}}, "package.json": {"bin": "no.js"}}, (), "notes",
                         ".mcp.json: started notes, which offers 1 tool\n"),
    "one of several entries": ({".mcp.json": {"mcpServers": {"other": {"command": "no"}, "notes": ENTRY}}},
                               ("--server", "notes"), "notes", ".mcp.json: started notes, which offers 1 tool\n"),
    "entries without a command": (
        {".mcp.json": {"mcpServers": {"far": {"url": "x"}}}, "package.json": {"bin": "./dist/index.js"}}, (), NODE,
        "package.json: started node dist/index.js, which offers 1 tool\n"),
    "the package's program": ({"package.json": {"name": "@us/notes", "bin": {
        "other": "no.js", "notes": "dist/index.js"}}}, (), NODE,
        "package.json: started node dist/index.js, which offers 1 tool\n"),
    "two names of a program": ({"package.json": {"bin": {"a": "dist/index.js", "b": "./dist/index.js"}}}, (), NODE,
                               "package.json: started node dist/index.js, which offers 1 tool\n"),
    "one that a later file names": (
        {"package.json": {"bin": {"a": "no.js"}}, "pyproject.toml": SCRIPTS + 'b = "b:main"\nnotes-mcp = "n:main"\n'},
        ("--server", "notes-mcp"), {"command": "notes-mcp"},
        "pyproject.toml: started notes-mcp, which offers 1 tool\n"),
    "the project's script": ({"package.json": {"name": "site"}, "pyproject.toml": SCRIPTS.replace("notes", "notes-mcp")
                              + "\"notes-mcp\" = 'n:main'\nb = 'b:main'\n"}, (), {"command": "notes-mcp"},
                             "pyproject.toml: started notes-mcp, which offers 1 tool\n"),
    "a script of uv": ({"pyproject.toml": SCRIPTS + 'notes-mcp = "n:main"\n', "uv.lock": ""}, (),
                       {"command": "uv", "args": ["run", "notes-mcp"]},
                       "pyproject.toml: started uv run notes-mcp, which offers 1 tool\n"),
}

PLACES = {  # a file's text, the arguments behind --markers README.md, and the text with markers
    "at the end": ("# A\n\nText.\n", (), f"# A\n\nText.\n\n{TOOLS}"),
    "behind a blank line": ("# A\n \n", (), f"# A\n \n{TOOLS}"),
    "in an empty file": ("", (), TOOLS),
    "behind a line without an end": ("# A\r\nText", (), f"# A\nText\n\n{TOOLS}".replace("\n", "\r\n")),
    "below a heading": ("# A\n\n## Tools\n\nText.\n", ("--heading", "Tools"), f"# A\n\n## Tools\n\n{TOOLS}\nText.\n"),
    "without blank lines": ("# Tools #\nText.\n", ("--heading", "Tools"), f"# Tools #\n\n{TOOLS}\nText.\n"),
    "with several blank lines": ("# A\r\n\r\n\r\nText.\r\n", ("--heading", "A"),
                                 f"# A\r\n\r\n{TOOLS.replace(chr(10), chr(13) + chr(10))}\r\nText.\r\n"),
    "below an underlined heading": ("Tools\n-----\n* * *\n", ("--heading", "Tools"),
                                    f"Tools\n-----\n\n{TOOLS}\n* * *\n"),
    "below the last heading": ("# A\n### Tools", ("--heading=Tools",), f"# A\n### Tools\n\n{TOOLS}"),
    "not below examples": (
        "---\n# T\n---\n```\n# T\n```\n<!--\n# T\n-->\n    # T\n<!-- registry:list -->\n# T\n<!-- /registry:list -->\n"
        "#T\n####### T\n- T\n---\n## T\n", ("--heading", "T"), None),
    "two in one place": ("# A\n", ("--markers", "README.md:reference"), f"# A\n\n{TOOLS}\n{REFERENCE}"),
    "two in a file": ("# A\n\nB\n=\nText.\n", ("--markers", "./README.md:reference", "--heading", "A"),
                      f"# A\n\n{REFERENCE}\nB\n=\nText.\n\n{TOOLS}"),
}

REFUSED = {  # what is there, the arguments, and the message
    "a registry": ({"registry-docs.json": "{}"}, COMMAND,
                   "registry-docs.json: expected no registry yet, found one; edit it instead\n"),
    "the first host's registry": ({"src/tesmo_sorvet/tool_registry.json": "{}"}, COMMAND, (
        "src/tesmo_sorvet/tool_registry.json: expected no registry yet, found one; edit it instead\n")),
    "no server": ({}, (), ".: expected a server in .mcp.json, in \"bin\" of package.json or in [project.scripts] of "
                  "pyproject.toml, found none; give its command: registry-docs init -- COMMAND ARG...\n"),
    "no such server": ({".mcp.json": {"mcpServers": {"a": PYTHON}}, "package.json": {"bin": {"b": "x"}}},
                       ("--server", "c"), "--server: expected one of a, b, found 'c'\n"),
    "a server of no file": ({}, ("--server", "c"), "--server: expected a file that names servers, see --help, "
                            "found 'c'\n"),
    "several entries": ({".mcp.json": {"mcpServers": {"a": PYTHON, "b": ENTRY | {"command": "x"}}}}, (),
                        ".mcp.json: mcpServers: expected one server, found a, b; name one with --server NAME\n"),
    "several programs": ({"package.json": {"name": "@us/notes", "bin": {"a": "x.js", "b": "y.js"}}}, (), (
        "package.json: bin: expected one server, or one that is called notes, found a, b; name one with "
        "--server NAME\n")),
    "several scripts": ({"pyproject.toml": SCRIPTS + 'b = "b:main"\na = "a:main"\n'}, (), (
        "pyproject.toml: project.scripts: expected one server, or one that is called notes, found a, b; name one with "
        "--server NAME\n")),
    "a program that must be built": ({"package.json": {"bin": {"a": "build/x.js"}, "scripts": {"build": "tsc"}}}, (), (
        "package.json: bin.a: expected a file that is there, found build/x.js, which is not; npm run build may make "
        "it\n")),
    "a program that is not there": ({"package.json": {"bin": "x.js"}}, (), (
        "package.json: bin: expected a file that is there, found x.js, which is not\n")),
    "a package that is none": ({"package.json": "["}, (), "package.json:1:2: expected a JSON value, found the end of the document\n"),
    "programs that are none": ({"package.json": {"bin": ["x"]}}, (),
                               "package.json: bin: expected an object, found an array\n"),
    "a project that is none": ({"pyproject.toml": "[project]\nname = \n"}, (), (
        "pyproject.toml:2:8: expected TOML, found none: Error while parsing key-value pair: expected value, saw "
        "'\\n'\n")),
    "a server that ends": ({"package.json": {"bin": "end.js"}, "end.js": "exit(3)"}, ("--markers", "README.md"), (
        "node end.js: expected an answer to initialize, found that it exited with code 3\n"
        "This is how package.json starts it. If that is another server, or lacks arguments, give the command:\n"
        f"  {PROGRAM} init --markers README.md:tools -- COMMAND ARG...\n")),
    "a command that ends": ({}, ("--", "python3", "-c", "exit(3)"), (
        "python3 -c exit(3): expected an answer to initialize, found that it exited with code 3\n")),
    "a server that hangs": ({}, ("--timeout", "0.5", "--", "sleep", "9"), (
        "sleep 9: expected an answer to initialize within 0.5 s, found none\n")),
    "a server without tools": ({"no.py": SERVER.replace("[TOOL]", "[]")}, ("--", "python3", "no.py"), (
        "the answer of python3 no.py: tools: expected at least one tool, since README.md lists them, found none\n")),
    "no README": ({"README.md": None}, COMMAND, (
        "--markers: expected a file for the list of tools, found none given and no README.md\n")),
    "a marker that is there": ({"README.md": f"# A\n\n{TOOLS}"}, MARKERS,
                               "README.md: expected no marker of tools yet, found one in line 3\n"),
    "half a marker": ({"README.md": "<!-- /registry:tools -->"}, MARKERS,
                      "README.md: expected no marker of tools yet, found one in line 1\n"),
    "a place in code": ({"README.md": "```\n"}, MARKERS, (
        "README.md: expected a place where a block can stand, found one within fenced code or another block\n")),
    "a heading that is not there": ({"README.md": "# A\n## B\n"}, (*MARKERS, "--heading", "Tools"),
                                    'README.md: expected the heading "Tools", found "A", "B"\n'),
    "a heading that is misspelt": ({"README.md": "# A\n## Tools\n"}, (*MARKERS, "--heading", "Tool"),
                                   'README.md: expected the heading "Tool", found "Tools"\n'),
    "a heading in a new file": ({}, ("--markers", "new.md", "--heading", "A"),
                                'new.md: expected the heading "A", found none\n'),
    "a heading that is there twice": ({"README.md": "# A\n\nA\n=\n"}, (*MARKERS, "--heading", "A"), (
        'README.md: expected the heading "A" once, found it in lines 1 and 4\n')),
    "a directory that is not there": ({}, ("--markers", "doc/tools.md"),
                                      "doc/tools.md: expected its directory to be there, found none\n"),
    "a directory": ({"doc.md/x": ""}, ("--markers", "doc.md"),
                    "doc.md: expected a regular file, found a directory\n"),
    "no text": ({"README.md": b"# A\n\xff"}, MARKERS,
                "README.md: expected UTF-8, found an ill-formed sequence at byte 4\n"),
    "a source file": ({}, ("--markers", "x.py"), "x.py: expected the name of a file of Markdown or HTML, found "
                      "another; registry-docs.json can declare such a file with its comments\n"),
    "a table in HTML": ({}, ("--markers", "x.html"), "x.html: expected the layout count in HTML, found tools\n"),
    "a heading in HTML": ({}, ("--markers", "x.html:count", "--heading", "A"),
                          "x.html: expected Markdown, whose headings --heading names, found HTML\n"),
    "a link that leads out": ({"out": pathlib.Path("..")}, ("--markers", "out/x.md"), (
        "registry-docs.json: files[0].path: expected a file of the repository, found a link to {top}/x.md\n")),
    "a path that leads out": ({}, ("--markers", "docs/../../x.md"), (
        "--markers: expected a file within the repository, as in docs/tools.md, found 'docs/../../x.md'\n")),
    "no path": ({}, ("--markers", ":tools"),
                "--markers: expected a file within the repository, as in docs/tools.md, found ''\n"),
    "no such layout": ({}, ("--markers", "README.md:table"), (
        "--markers: expected one of the layouts count, list, prompts, reference, resources, tools behind the colon, "
        "found 'table'\n")),
    "a block twice": ({}, (*MARKERS, "--markers", "./README.md:tools"),
                      "--markers: expected distinct blocks, found 'README.md:tools' again\n"),
    "a heading of nothing": ({}, ("--heading", "A", *MARKERS), "--heading: expected --markers before it, found none\n"),
    "two headings": ({}, (*MARKERS, "--heading", "A", "--heading", "B"),
                     "--heading: expected one for each --markers, found a second for 'README.md'\n"),
    "no command": ({}, ("--",), "--: expected a command behind it, found nothing\n"),
    "a command and a name": ({}, ("--server", "a", *COMMAND), "--server: expected no command beside it, found "
                             "'python3'\n"),
    "a command without dashes": ({}, ("python3", "server.py"),
                                 "'python3': expected an option of init, or -- before a command\n"),
    "a misspelt option": ({}, ("--marker=x",), "'--marker=x': expected an option of init, perhaps --markers, see "
                          "--help\n"),
    "another's option": ({}, ("--quiet",), "'--quiet': expected an option of init, see --help\n"),
    "no UTF-8": ({}, ("--", b"\xff"), "'\\xff': expected UTF-8, found an ill-formed sequence at byte 0\n"),
    "no root": ({}, ("--root", "none"), "none: expected a directory, found none\n"),
}


class Init(unittest.TestCase):
    def setUp(self):
        self.top = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())).resolve()
        for name, script in {"node": 'exec python3 "$@"', "uv": 'shift; exec "$@"',
                             "notes-mcp": "exec python3 server.py"}.items():
            self.save(self.top / "bin" / name, f"#!/bin/sh\n{script}\n")
            (self.top / "bin" / name).chmod(0o755)
        self.begin({})

    @staticmethod
    def save(path, content):
        path.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, pathlib.Path):
            path.symlink_to(content)
        elif content is None:
            path.unlink(missing_ok=True)
        elif isinstance(content, bytes):
            path.write_bytes(content)
        else:
            path.write_text(content if isinstance(content, str) else json.dumps(content), newline="")

    def begin(self, files):
        """A new repository of these files, with a README and a server."""
        self.root = pathlib.Path(tempfile.mkdtemp(dir=self.top))
        for path, content in ({"README.md": "# Notes\n", "server.py": SERVER, "dist/index.js": SERVER} | files).items():
            self.save(self.root / path, content)

    def run_program(self, *arguments, **more):
        done = subprocess.run([PROGRAM, *arguments], check=False, capture_output=True,
                              **{"cwd": self.root, "env": os.environ | {"PATH": f"{self.top}/bin:{os.environ['PATH']}"}}
                              | more)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def expect(self, expected, *arguments, **more):
        self.assertEqual(self.run_program(*arguments, **more), expected)

    def state(self):
        return {path.relative_to(self.root): path.read_bytes() for path in self.root.rglob("*") if path.is_file()}

    def registry(self):
        return json.loads((self.root / "registry-docs.json").read_text())

    def test_servers_that_are_found(self):
        for name, (files, arguments, server, said) in SOURCES.items():
            with self.subTest(name):
                self.begin(files)
                said += f"To fill the blocks, run:\n  {PROGRAM} --write\n"
                self.expect((0, "registry-docs.json\nREADME.md\n", said), "init", *MARKERS, *arguments)
                self.assertEqual(self.registry(), {"files": [{"path": "README.md", "blocks": ["tools"]}],
                                                   "server": server})
                self.expect((0, "README.md\n", ""), "--write")
                self.expect((0, "", ""), "--check")
                self.assertIn("| `add` | Adds.       |", (self.root / "README.md").read_text())

    def test_places_of_markers(self):
        for name, (before, arguments, after) in PLACES.items():
            with self.subTest(name):
                self.begin({"README.md": before})
                status, output, said = self.run_program("init", *MARKERS, *arguments, *COMMAND)
                self.assertEqual((status, output), (0, "registry-docs.json\nREADME.md\n"), said)
                after = after or before + f"\n{TOOLS}"
                self.assertEqual((self.root / "README.md").read_bytes().decode(), after)
                if "list" not in before:
                    self.expect((0, "README.md\n", ""), "--write")
                    self.expect((0, "", ""), "--check")

    def test_what_a_person_would_write(self):
        self.begin({"docs/tools.md": "# A\n\n## B\n\nText.\n", "docs/deep.mdx": "# A\n", "page.html": "<p>\n"})
        self.run_program(
            "init", *MARKERS, "--markers", "docs/tools.md", "--heading", "B", "--markers", "docs/deep.mdx", "--markers",
            "page.html:count", "--markers", "new.md:list", "--markers", "README.md:prompts", "--", "python3", "server.py")
        self.assertEqual((self.root / "registry-docs.json").read_text(), """\
{
  "files": [
    {"path": "README.md", "blocks": ["tools", "prompts"]},
    {"path": "docs/tools.md", "blocks": ["reference"]},
    {"path": "docs/deep.mdx", "blocks": [{"name": "reference", "heading": 2}]},
    {"path": "page.html", "blocks": ["count"]},
    {"path": "new.md", "blocks": ["list"]}
  ],
  "server": {"command": "python3", "args": ["server.py"]}
}
""")
        self.assertEqual((self.root / "docs/deep.mdx").read_text(),
                         "# A\n\n{/* registry:reference */}\n{/* /registry:reference */}\n")
        self.assertEqual((self.root / "new.md").read_text(), TOOLS.replace("tools", "list"))
        self.expect((0, "README.md\ndocs/tools.md\ndocs/deep.mdx\npage.html\nnew.md\n", ""), "--write")
        self.expect((0, "", ""), "--check")
        self.begin({"long.py": SERVER.replace("[], ", "[chr(34) * 80], ")})
        self.run_program("init", "--", "python3", "long.py", '"' * 80)
        self.assertIn('  "server": {\n    "command": "python3",\n    "args": [\n      "long.py",\n      "\\"',
                      (self.root / "registry-docs.json").read_text())

    def test_without_markers_no_other_file_is_touched(self):
        before = self.state()
        said = f"To see which markers README.md lacks, run:\n  {PROGRAM} --check --root {self.root}\n"
        self.expect((0, "registry-docs.json\n", said), "init", "--root", self.root, *COMMAND, cwd="/")
        self.assertEqual(self.registry(), {"files": [{"path": "README.md", "blocks": ["tools"]}], "server": PYTHON})
        after = self.state()
        del after[pathlib.Path("registry-docs.json")]
        self.assertEqual(after, before)

    def test_a_dry_run_shows_all_and_writes_nothing(self):
        self.begin({"README.md": "# A\r\nText.\r\n", "docs/x": ""})
        before = self.state()
        markers = (*MARKERS, "--heading", "A", "--markers", "docs/tools.md")
        status, output, said = self.run_program("init", "--dry-run", *markers, *COMMAND)
        self.assertEqual((status, said), (0, ""))
        self.assertEqual(self.state(), before)
        shown = output.split("--- a/README.md\n", 1)
        self.run_program("init", *markers, *COMMAND)
        written = self.state()
        self.assertEqual(shown[0], "registry-docs.json:\n" + (self.root / "registry-docs.json").read_text())
        self.assertIn("@@ -1,2 +1,6 @@ tools\n # A\r\n+\r\n+<!-- registry:tools -->\r\n", shown[1])
        for path, content in written.items():
            self.save(self.root / path, before.get(path))
        subprocess.run(["git", "apply", "-p1", "--whitespace=nowarn"], cwd=self.root, input=output.encode(), check=True)
        self.assertEqual({**self.state(), pathlib.Path("registry-docs.json"): shown[0].split(":\n", 1)[1].encode()},
                         written)

    def test_what_is_refused_and_that_nothing_is_written(self):
        for name, (files, arguments, message) in REFUSED.items():
            with self.subTest(name):
                self.begin(files)
                before = self.state()
                is_of_files = "--markers" in arguments and "--" not in arguments and "package.json" not in files
                if is_of_files and not message.startswith("--"):
                    # Beside a file that could be marked.
                    self.save(self.root / "good.md", "")
                    before = self.state()
                    arguments = ("--markers", "good.md", *arguments, *COMMAND)
                    message = message.replace("files[0]", "files[1]").replace("{top}", str(self.top))
                self.expect((2, "", message), "init", *arguments)
                self.assertEqual(self.state(), before)

    def test_all_is_written_or_nothing(self):
        self.begin({"README.md": "# A\n", "big.md": "x" * 2000})
        before = self.state()
        self.expect((2, "", "big.md: File too large\n"), "init", *MARKERS, "--markers", "new.md", "--markers", "big.md",
                    *COMMAND, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000)))
        self.assertEqual(self.state(), before)

    def test_help(self):
        self.assertEqual(self.run_program("init", "--help"), self.run_program("--help"))


if __name__ == "__main__":
    unittest.main()
