"""Several servers, several repositories, snapshots, variables, and what each of them refuses."""

import json
import os
import pathlib
import resource
import subprocess
import tempfile
import unittest

import jsonschema

PROGRAM = os.environ["PROGRAM"]
SERVER = pathlib.Path(__file__).parents[1] / "mcp_client/server.py"
LIST = {"name": "list", "description": "Lists.", "annotations": {"destructiveHint": True}, "inputSchema": {
    "type": "object", "properties": {"limit": {"type": "integer", "maximum": 100}}}}
DROP = {"name": "drop", "description": "Drops.", "inputSchema": {"$schema": "x"}}
ENVIRONMENT = {"VERSION": os.environ["VERSION"]}


def server(*tools, before="", **more):
    script = f"{before}\ngreet('tools'); page({json.dumps(json.dumps(tools))})"
    return {"command": "python3", "args": [str(SERVER), script], "env": ENVIRONMENT} | more


def markers(*names):
    return "".join(f"<!-- registry:{name} -->\n<!-- /registry:{name} -->\n" for name in names)


class Several(unittest.TestCase):
    def setUp(self):
        self.top = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())).resolve()
        self.root = self.top

    def save(self, path, value):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(value if isinstance(value, str) else json.dumps(value))

    def declare(self, blocks=("tools",), **registry):
        names = [block if isinstance(block, str) else block["name"] for block in blocks]
        self.save("registry-docs.json", {"files": [{"path": "README.md", "blocks": list(blocks)}]} | registry)
        self.save("README.md", markers(*names))

    def run_program(self, *arguments, **variables):
        done = subprocess.run([PROGRAM, *arguments], cwd=self.root, check=False, capture_output=True, text=True,
                              env={**os.environ, "LC_ALL": "C.UTF-8"} | variables)
        return done.returncode, done.stdout, done.stderr.replace(f"{self.root}/", "")

    def expect(self, expected, *arguments, **variables):
        self.assertEqual(self.run_program(*arguments, **variables), expected)

    def declare_two(self, **more):
        self.declare(["one:tools", "two:count", {"name": "two:all", "layout": "list"}],
                     servers={"one": server(LIST), "two": server(DROP)} | more)

    def test_several_servers_in_one_file(self):
        self.declare_two()
        self.expect((0, "README.md\n", ""), "--write")
        self.expect((0, "", ""), "--check")
        readme = (self.root / "README.md").read_text()
        for part in ("| `list` | Lists.      |", "two:count -->\n\n1\n", "two:all -->\n\n- `drop`: Drops.\n"):
            self.assertIn(part, readme)

    def test_one_that_fails_does_not_hide_the_others(self):
        failures = {
            "exits": (server(before="sys.exit(3)"), "two: expected an answer to initialize, found that it "
                      "exited with code 3\n"),
            "hangs": (server(before="time.sleep(60)", timeout=0.5),
                      "two: expected an answer to initialize within 0.5 s, found none\n"),
            "lacks a variable": (server(env={"KEY": "${GONE}"}), "registry-docs.json: servers.two.env.KEY: "
                                 "expected the variable GONE to be set, found it is not\n"),
            "is no program": (server(command="./none"), "two: expected a program that can be started, found "
                              "'./none': No such file or directory\n"),
        }
        for name, (broken, message) in failures.items():
            with self.subTest(name):
                self.declare_two(two=broken)
                before = (self.root / "README.md").read_text()
                self.assertEqual(self.run_program("--check", "--quiet"), (2, "", message))
                self.assertEqual(self.run_program("--check")[:2],
                                 (2, "README.md: blocks out of date: one:tools\n"))
                found = json.loads(self.run_program("--check", "--format", "json")[1])
                self.assertEqual((found["error"].replace(f"{self.root}/", ""), found["files"][0]["state"]),
                                 (message[:-1], "stale"))
                self.assertEqual(self.run_program("--write"), (2, "", message))
                self.assertEqual((self.root / "README.md").read_text(), before)

    def test_what_is_waited_for_at_a_terminal(self):
        slow = {name: server(LIST, before="time.sleep(1.4)") for name in ("a", "b", "c", "d")}
        self.declare(["a:count"], servers=slow)
        ours, theirs = os.openpty()
        done = subprocess.run([PROGRAM, "--write"], cwd=self.root, check=False, stdout=subprocess.DEVNULL,
                              stderr=theirs, env={**os.environ, "TERM": "xterm"})
        said = os.read(ours, 10_000).decode()
        os.close(ours), os.close(theirs)
        self.assertEqual(done.returncode, 0)
        self.assertIn("asking 4 servers: 0 have answered; waiting for a, b and 2 more", said)
        self.assertTrue(said.endswith("\r\x1b[K"), said)

    def test_servers_of_the_clients_file_and_variables(self):
        self.save(".mcp.json", {"mcpServers": {"notes": server(
            before="assert sys.argv[2:] == ['a b', 'x', '${1}'] and os.environ['KEY'] == 'k-123'",
            args=[], autoApprove=[])}})
        entry = json.loads((self.root / ".mcp.json").read_text())["mcpServers"]["notes"]
        entry["args"] = server(LIST, before=(
            "assert sys.argv[2:] == ['a b', 'x', '${1}'] and os.environ['KEY'] == 'k-123', sys.argv"))["args"]
        entry["args"] += ["${BLANK} b", "${NONE:-x}", "${1}"]
        entry["env"] = ENVIRONMENT | {"KEY": "k-${NUMBER}"}
        self.save(".mcp.json", {"mcpServers": {"notes": entry}})
        self.declare(server="notes")
        self.expect((0, "README.md\n", ""), "--write", BLANK="a", NUMBER="123")
        status, output, said = self.run_program("--check", BLANK="a", NUMBER="77712")
        self.assertEqual((status, output), (2, ""))
        self.assertTrue(said.startswith("notes: expected an answer to initialize, found that it exited"), said)
        self.assertNotIn("77712", said)
        self.expect((2, "", ".mcp.json: mcpServers.notes.env.KEY: expected the variable NUMBER to be set, "
                     "found it is not\n"), "--check", BLANK="a")
        self.declare(server="note")
        self.expect((2, "", 'registry-docs.json: server: expected a server of .mcp.json, one of notes, found '
                     '"note"\n'), "--check")
        self.save(".mcp.json", {"mcpServers": {}})
        self.expect((2, "", "registry-docs.json: server: expected a server of .mcp.json, found none in it\n"), "--check")

    def test_values_of_variables_are_in_no_output(self):
        shown = "print(os.environ['KEY']); print(os.environ['KEY'], file=sys.stderr); sys.exit(1)"
        self.declare(server=server(before=shown, env=ENVIRONMENT | {"KEY": "${TOKEN}"}, command="${RUN}"))
        for variables in ({"RUN": "python3"}, {"RUN": "/no/s3cret"}):
            status, output, said = self.run_program("--check", TOKEN="s3cret", **variables)
            self.assertEqual((status, output), (2, ""))
            self.assertNotIn("s3cret", said)
            self.assertIn("${", said)

    def test_a_snapshot(self):
        self.declare(server=server(LIST), snapshot="docs/tools.json", blocks=["reference"])
        (self.root / "docs").mkdir()
        self.expect((2, "", "docs/tools.json: No such file or directory\n"), "--check", "--offline")
        self.assertEqual(self.run_program("--check")[:2], (
            1, "README.md: blocks out of date: reference\ndocs/tools.json: out of date: snapshot\n"))
        self.expect((0, "README.md\ndocs/tools.json\n", ""), "--write")
        self.expect((0, "", ""), "--check")
        kept = (self.root / "docs/tools.json").read_text()
        self.assertEqual(json.loads(kept)["tools"][0], {
            name: LIST[name] for name in ("name", "description", "inputSchema")})
        changed = json.loads(json.dumps(LIST).replace("100", "50").replace("Lists", "Shows"))
        self.save("registry-docs.json", json.loads((self.root / "registry-docs.json").read_text())
                  | {"server": server(changed, DROP)})
        self.expect((0, "", ""), "--check", "--offline")
        lines = ["README.md: blocks out of date: reference", "docs/tools.json: out of date: snapshot",
                 "docs/tools.json: words: tool list: its description changed",
                 "docs/tools.json: breaking: tool list, parameter limit: its maximum was 100, is 50",
                 "docs/tools.json: compatible: tool drop: is new"]
        status, output, said = self.run_program("--check")
        self.assertEqual((status, sorted(output.splitlines())), (1, sorted(lines)))
        self.assertEqual(said, f"To bring the blocks up to date, run:\n  {PROGRAM} --write\n")
        self.assertEqual(self.run_program("--check", "--fail-on", "breaking")[:2], (1, output))
        found = json.loads(self.run_program("--check", "--format", "json")[1])
        jsonschema.Draft202012Validator(json.loads(pathlib.Path(os.environ["OUTPUT_SCHEMA"]).read_text())).validate(found)
        self.assertIn({"path": "docs/tools.json", "verdict": "compatible", "place": "tool drop", "what": "is new"},
                      found["changes"])
        self.assertIn("::notice file=docs/tools.json,line=1,title=compatible::tool drop: is new\n",
                      self.run_program("--check", "--format", "github", GITHUB_WORKSPACE=str(self.root))[1])
        self.assertIn('-            "maximum": 100\n+            "maximum": 50\n', self.run_program("--check", "--diff")[1])
        self.expect((0, "README.md\ndocs/tools.json\n", ""), "--write")
        self.save("registry-docs.json", (self.root / "registry-docs.json").read_text().replace("Shows", "Prints"))
        self.assertEqual(self.run_program("--check", "--fail-on", "breaking", "--quiet"), (0, "", ""))

    def test_a_snapshot_replaces_nothing_else(self):
        for path, text, found in (("README.md", markers("tools"), "no JSON (README.md:1:1: expected a JSON value, "
                                   "found '<')"),
                                  ("package.json", "{}", "no answer of a server")):
            self.declare(server=server(LIST), snapshot=path)
            self.save(path, text)
            message = (f"{path}: expected a snapshot, which a write may replace, found {found}; take it away, and a "
                       "write makes it anew\n")
            self.expect((2, "", message), "--write")
            self.assertEqual((self.root / path).read_text(), text)

    def test_a_snapshot_that_cannot_be_written_whole_is_not_there(self):
        self.declare(["count"], server=server(LIST), snapshot="tools.json")
        self.run_program("--write")
        (self.root / "tools.json").unlink()
        limit = (100, 100)
        done = subprocess.run([PROGRAM, "--write"], cwd=self.root, check=False, capture_output=True, text=True,
                              preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, limit))
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertEqual(done.stderr, f"{self.root}/tools.json: File too large\n")
        self.assertFalse((self.root / "tools.json").exists())

    def test_nothing_is_emptied_by_accident(self):
        (self.root / "own.mustache").write_text("{{#tools}}{{name}}{{/tools}}")
        for block in ("tools", "count", "tool:*", "reference", "readme-tools",
                      {"name": "own", "layout": "own.mustache"}):
            with self.subTest(block):
                self.declare([block], server=server())
                status, output, said = self.run_program("--write")
                self.assertEqual((status, output), (2, ""))
                self.assertIn("tools: expected at least one tool, since ", said)
        self.declare(["prompts"], server=server())
        self.expect((0, "README.md\n", ""), "--write")

    def test_schemas_that_cannot_be_read(self):
        odd = {"name": "odd", "inputSchema": {"type": "object", "properties": {"a": {"$ref": "#/none"}}}}
        line = ('the answer of LABEL: tools[0].inputSchema.properties.a.$ref: expected a reference into this input '
                'schema, found "#/none" in the tool "odd"\n')
        for block in ("list", "params:*"):
            with self.subTest(block):
                self.declare([block], servers={"LABEL": server(odd)} if block == "list" else None,
                             server=server(odd))
                registry = json.loads((self.root / "registry-docs.json").read_text())
                if block == "list":
                    del registry["server"]
                    registry["files"][0]["blocks"] = ["LABEL:list"]
                    self.save("README.md", markers("LABEL:list"))
                else:
                    del registry["servers"]
                    self.save("README.md", markers("params:odd"))
                self.save("registry-docs.json", registry)
                label = " ".join(registry.get("server", {}).get("args", []))
                shown = ("python3 " + label).replace("\n", "\\n")[:60] + "..."
                expected = line if block == "list" else line.replace("LABEL", shown)
                self.expect((0, "README.md\n", expected), "--write")
                self.expect((0, "", expected), "--check")
                self.expect((2, "", expected), "--check", "--strict")

    def test_several_repositories(self):
        for name, blocks in {"a": ["list"], "b/c": ["count"], "node_modules/d": ["list"], "e": ["none"]}.items():
            self.root = self.top / name
            self.declare(blocks, tools=[LIST])
        self.root = self.top
        self.save(".gitignore", "/ignored\n")
        (self.top / ".git").mkdir()
        none = "e/registry-docs.json: files[0].blocks[0]: expected one of the blocks "
        status, output, said = self.run_program("--check", "--recursive")
        self.assertEqual((status, output), (2, "a/README.md: blocks out of date: list\n"
                                            "b/c/README.md: blocks out of date: count\n"))
        self.assertIn(none, said)
        self.assertEqual(self.run_program("--write", "--recursive")[:2], (2, ""))
        self.save("e/.gitignore", "registry-docs.json\n")
        status, output, said = self.run_program("--check", "--recursive", "b", "a")
        self.assertEqual((status, output), (1, "b/c/README.md: blocks out of date: count\n"
                                            "a/README.md: blocks out of date: list\n"))
        self.assertEqual(said, f"To bring the blocks up to date, run:\n  {PROGRAM} --write --recursive b a\n")
        self.expect((0, "a/README.md\nb/c/README.md\n", ""), "--write", "--recursive")
        self.expect((0, "", ""), "--check", f"{self.top}/a", "b/c/", "--quiet")
        self.assertIn("b/c/README.md  count", self.run_program("--list", "a", "b/c")[1])
        (self.top / "a/README.md").write_bytes(b"\xff")
        self.assertEqual(self.run_program("--check", "a", "b/c"), (
            2, "", "a/README.md: expected UTF-8, found an ill-formed sequence at byte 0\n"))

    def test_a_link_that_leads_out_of_a_directory_that_is_named(self):
        self.save("x.md", markers("list"))
        self.save("a/registry-docs.json", {"files": [{"path": "out/x.md", "blocks": ["list"]}], "tools": [LIST]})
        (self.top / "a/out").symlink_to("..")
        for root, name in ((self.top, "a"), (self.top / "a", ".")):
            self.root = root
            said = self.run_program("--write", name)[2].replace("a/reg", "reg").replace(f"{self.top}/", "")
            self.assertEqual(said, "registry-docs.json: files[0].path: expected a file of the repository, found a link "
                             "to x.md\n")
        self.assertEqual((self.top / "x.md").read_text(), markers("list"))

    def test_command_lines_that_are_refused(self):
        self.declare_two()
        (self.root / "empty").mkdir()
        for arguments, message in {
                "--check --root . .": "--root: expected no directory beside it, found '.'",
                "--check --tools x . .": "--tools: expected one repository beside it, found several",
                "--check --recursive --save-tools x": "--save-tools: expected one repository beside it, found several",
                "--check --offline --tools x": "--offline: expected neither --tools nor --save-tools beside it",
                "--write --fail-on breaking": "--fail-on: expected --check beside it, found --write",
                "--check --fail-on x": "--fail-on: expected any or breaking, found 'x'",
                "--check --jobs 0": "--jobs: expected a number from 1 to 1000, found '0'",
                "check": "'check': expected an option or a directory, perhaps --check, see --help",
                "--check empty": "empty: expected registry-docs.json or src/tesmo_sorvet/tool_registry.json in it, "
                                 "found neither",
                "--check --tools README.md": "--tools: expected one server in the registry, found 2",
                "--check --save-tools x.json": "--save-tools: expected one server in the registry, found 2",
                "--check --offline": None}.items():
            with self.subTest(arguments):
                status, output, said = self.run_program(*arguments.split())
                self.assertEqual(status, 2)
                if message:
                    self.assertEqual((output, said), ("", message + "\n"))
                else:
                    reason = "expected this member to be given, found nothing; --offline takes it in place of asking\n"
                    self.assertEqual(said, f"registry-docs.json: servers.one.snapshot: {reason}"
                                     f"registry-docs.json: servers.two.snapshot: {reason}")


if __name__ == "__main__":
    unittest.main()
