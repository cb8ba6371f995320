"""A repository whose tools a server tells: asked live, or from a saved answer."""

import json
import os
import pathlib
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["PROGRAM"]
SERVER = pathlib.Path(__file__).parents[1] / "mcp_client/server.py"
ADD = {"name": "add", "description": "Adds.\nMore of it.", "inputSchema": {
    "type": "object", "required": ["a"], "properties": {
        "a": {"type": "integer", "minimum": 1}, "b": {"type": "number", "default": 1.0},
        "action": {"enum": ["sum", "mean"]}}}}
PING = {"name": "ping", "description": "Answers.", "inputSchema": {"type": "object"}}
FILES = [{"path": "README.md", "blocks": ["readme-tools"]},
         {"path": "docs/tools.md", "blocks": ["mcp-intro", "mcp-overview", "params:*"]},
         {"path": "skill.py", "blocks": ["skill-tools"], "encode": "template"}]
TEXTS = {"README.md": "# Sums\n\n[readme-tools]\n",
         "docs/tools.md": "[mcp-intro]\n\n[mcp-overview]\n\n[params:add]\n\n[params:ping]\n",
         "skill.py": 'SKILL = """\n[skill-tools]\n"""\n'}
PARAMS = """\
**Actions:** `sum` | `mean`

#### Parameters

| Parameter | Type    | Required | Default       | Actions | Description           |
| --------- | ------- | -------- | ------------- | ------- | --------------------- |
| `a`       | integer | Yes      | --            | all     | At least 1.           |
| `b`       | number  | No       | 1.0 (mean: 2) | mean    |                       |
| `action`  | string  | No       | --            | all     | One of `sum`, `mean`. |
"""
ADDED = [{"name": "add", "tier": "late", "summary": "Adds numbers", "params": [
    {"name": "b", "applies_to": ["mean"], "action_defaults": {"mean": 2}}]}]

REFUSED = {  # what the document holds besides, the arguments, the status and the message
    "a tool that is gone": ({"tools": [{"name": "sub"}]}, "--check", 2, "registry-docs.json: tools[0].name: "
                            'expected a tool that the server offers, found "sub"\n'),
    "a parameter that is gone": (
        {"tools": [{"name": "add", "params": [{"name": "c"}]}]}, "--check", 2,
        'registry-docs.json: tools[0].params[0].name: expected a parameter that the server offers, '
        'found "c"\n'),
    "a tool added to twice": ({"tools": [{"name": "add"}, {"name": "add"}]}, "--check", 2,
                              "registry-docs.json: tools[1].name: expected a name that no other tool "
                              'has, found "add" again\n'),
    "no such tier": ({"tools": [{"name": "add", "tier": "x"}]}, "--check", 2,
                     'registry-docs.json: tools[0].tier: expected one of the tiers, found "x"\n'),
    "nothing to save": ({"server": None, "tools": []}, "--check --save-tools x.json", 2,
                        "--save-tools: expected a server in the registry, or --tools, found neither\n"),
    "two standard inputs": ({}, "--check --tools - --registry -", 2,
                            "--registry --tools: expected one of them from standard input, found both\n"),
    "no time": ({}, "--check --timeout 0", 2, "--timeout: expected a number of seconds, found '0'\n"),
    "an answer that is none": ({}, "--check --tools skill.py", 2, "skill.py:1:1: expected a JSON value, "
                               "found 'S'\n"),
    "a link that leads out": ({"files": [{"path": "out/x.md", "blocks": ["mcp-intro"]}]}, "--check", 2,
                              "registry-docs.json: files[0].path: expected a file of the repository, "
                              "found a link to {outside}/x.md\n"),
    "a link to another file": (
        {"files": FILES + [{"path": "in/tools.md", "blocks": ["mcp-intro"]}]}, "--check", 2,
        'registry-docs.json: files[3].path: expected distinct files, found "in/tools.md" again\n'),
}


class Server(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())).resolve()
        self.outside = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())).resolve()
        (self.root / "docs").mkdir()
        (self.root / "out").symlink_to(self.outside)
        (self.root / "in").symlink_to("docs")
        for name, text in TEXTS.items():
            for block in ("readme-tools", "mcp-intro", "mcp-overview", "params:add", "params:ping",
                          "skill-tools"):
                text = text.replace(f"[{block}]", f"<!-- registry:{block} -->\n<!-- /registry:{block} -->")
            (self.root / name).write_text(text)
        self.declare()

    def declare(self, answer=(ADD, PING), **more):
        script = f"greet(); page({json.dumps(json.dumps(answer))})"
        document = {"product": {"name": "Sums", "purpose": "sums", "command": None},
                    "tiers": ["core", "late"], "files": FILES, "tools": ADDED,
                    "server": {"command": "python3", "args": [str(SERVER), script],
                               "env": {"VERSION": os.environ["VERSION"]}}} | more
        document = {name: value for name, value in document.items() if value is not None}
        (self.root / "registry-docs.json").write_text(json.dumps(document))

    def expect(self, arguments, status, output, errors, **more):
        done = subprocess.run([PROGRAM, *arguments.split()], cwd=self.root, capture_output=True,
                              text=True, check=False, **more)
        self.assertEqual((done.returncode, done.stdout), (status, output))
        self.assertEqual(done.stderr if errors is not None else None, errors)

    def test_lists_of_a_server(self):
        self.expect("--write --save-tools tools.json", 0, "README.md\ndocs/tools.md\nskill.py\n", "")
        texts = {name: (self.root / name).read_text() for name in TEXTS}
        self.assertIn("2 tools for sums, 1 core and 1 late. ", texts["README.md"])
        self.assertIn("| **Late** | `add`  | `sum`, `mean` | Adds numbers |", texts["README.md"])
        self.assertIn("**2 MCP tools** provided by Sums, 1 core and 1 late.", texts["docs/tools.md"])
        self.assertIn(PARAMS, texts["docs/tools.md"])
        self.assertIn("## Tool reference (2 tools)\n", texts["skill.py"])
        saved = (self.root / "tools.json").read_text()
        self.assertEqual(saved, json.dumps({"tools": [ADD, PING]}, indent=2) + "\n")
        self.declare(server=None)
        self.expect("--check --tools tools.json", 0, "", "")
        self.expect("--check --tools -", 0, "", "", input=saved)
        changed = saved.replace('"minimum": 1', '"minimum": 2')
        self.expect("--check --tools - --save-tools new.json", 1,
                    "docs/tools.md: blocks out of date: params:add\n",
                    "To bring the blocks up to date, run, with the tools as input:\n"
                    f"  {PROGRAM} --write --tools -\n", input=changed)
        self.assertEqual((self.root / "new.json").read_text(), changed)
        wide = saved.replace('"default": 1.0', '"default": 0e999')  # which not all readers take
        self.expect("--check --tools - --save-tools new.json", 1,
                    "docs/tools.md: blocks out of date: params:add\n", None, input=wide)
        self.assertEqual((self.root / "new.json").read_text(), wide)

    def test_tools_that_come_and_go(self):
        self.expect("--write --quiet", 0, "", "")
        self.declare([ADD, PING | {"name": "pong"}])
        self.expect("--check", 1, "README.md: blocks out of date: readme-tools\n"
                    "docs/tools.md: the markers do not match the blocks it holds (missing "
                    "['params:pong'], unknown ['params:ping'], repeated [])\n"
                    "skill.py: blocks out of date: skill-tools\n", None)

    def test_refusals(self):
        for name, (more, arguments, status, message) in REFUSED.items():
            with self.subTest(name):
                self.declare(**more)
                self.expect(arguments, status, "", message.format(outside=self.outside).replace(
                    "registry-docs.json:", f"{self.root}/registry-docs.json:"))

    def test_a_server_that_fails(self):
        script = "print('no\\x1b tools', file=sys.stderr); sys.exit(3)"
        self.declare(server={"command": "python3", "args": ["-c", "import sys; " + script]})
        self.expect("--check --timeout 20", 2, "",
                    "python3 -c import sys; print('no\\x1b tools', file=sys.stderr...: expected an "
                    "answer to initialize, found that it exited with code 3; its standard error ended "
                    "with:\n  no\\x1b tools\n")

    def test_times_as_they_are_given(self):
        self.declare(server={"command": "sleep", "args": ["60"]})
        for given, shown in {"0.5": "0.5", "1": "1", "0.0001": "0.001", "1.25": "1.25"}.items():
            self.expect(f"--check --timeout {given}", 2, "", "sleep 60: expected an answer to "
                        f"initialize within {shown} s, found none\n")

    def test_what_is_waited_for_at_a_terminal(self):
        script = "time.sleep(1.4); print('log'); greet(); page('[]')"
        self.declare(server={"command": "python3", "args": [str(SERVER), script],
                             "env": {"VERSION": os.environ["VERSION"]}}, tools=[])
        ours, theirs = os.openpty()
        done = subprocess.run([PROGRAM, "--print-model"], cwd=self.root, stderr=theirs, check=False,
                              stdout=subprocess.DEVNULL, env={**os.environ, "TERM": "xterm"})
        said = os.read(ours, 10_000).decode()
        said = said.replace(f"python3 {SERVER} {script}"[:60] + "...", "LABEL")
        os.close(ours), os.close(theirs)
        line, gone = "\x1b[?7lLABEL: waiting for the answer to initialize\x1b[?7h", "\r\x1b[K"
        log = "LABEL: expected a JSON-RPC message in every line, found 'log'\r\n"
        self.assertEqual((done.returncode, said), (0, line + gone + log + line + gone))


if __name__ == "__main__":
    unittest.main()
