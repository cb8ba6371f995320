"""Documents real MCP servers, and finds every change in what they answer."""

import copy
import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

import tables

SERVERS = {  # programs, and what they want to be told before they start
    "@antv/mcp-server-chart/build/index.js": {},
    "@kazuph/mcp-taskmanager/dist/index.js": {"TASK_MANAGER_FILE_PATH": "tasks.json"},
    "@modelcontextprotocol/server-everything/dist/index.js": {},
    "@notionhq/notion-mcp-server/bin/cli.mjs": {"NOTION_TOKEN": "none"},
    "airtable-mcp-server/dist/main.js": {"AIRTABLE_API_KEY": "none"},
    "hostinger-api-mcp/src/servers/all.js": {},
    "tavily-mcp/build/index.js": {"TAVILY_API_KEY": "none"},
}
README, TOOLS = "README.md", "docs/tools.md"
FILES = {README: ["readme-tools"], TOOLS: ["mcp-intro", "mcp-overview", "params:*"]}
HANDWRITTEN = "# A server\n\nIts maintainers wrote this.\n\n## Tools\n\n"
ADVICE = re.compile(r"^(\S+): missing .*; put these lines where .*:\n((?:<!-- .* -->\n)+)", re.M)


def properties_of(tool):
    return tool["inputSchema"].get("properties", {})


def stale(file, *blocks):
    return f"{file}: blocks out of date: {', '.join(blocks)}\n"


def wrong(missing, unknown):
    return (f"{TOOLS}: the markers do not match the blocks it holds "
            f"(missing {missing}, unknown {unknown}, repeated [])\n")


def changes(tools):
    """Lists of tools with one change each, and what a check says of them."""
    first, *middle, last = tools
    old, new = [f"params:{last['name']}"], ["params:a_new_one"]
    renamed, counted = {**last, "name": "a_new_one"}, stale(README, "readme-tools")
    listed = counted + stale(TOOLS, "mcp-overview")
    yield "what no list shows", [{**first, "_meta": {"new": 1}}, *middle, last], ""
    yield "a tool removed", [first, *middle], counted + wrong([], old)
    yield "a tool added", [*tools, renamed], counted + wrong(new, [])
    yield "a tool renamed", [first, *middle, renamed], counted + wrong(new, old)
    yield "a tool moved", [last, first, *middle], listed
    yield "a tool described", [{**first, "description": "New."}, *middle, last], listed
    for change in ({"description": "New."}, {"default": 17}, {"type": "null"}, {"enum": ["new"]}):
        changed = copy.deepcopy(tools)
        tool = next(tool for tool in changed if properties_of(tool))
        list(properties_of(tool).values())[-1].update(change)
        yield str(change), changed, stale(TOOLS, f"params:{tool['name']}")


class Servers(unittest.TestCase):
    def renew(self, program, env):
        """Makes a repository whose lists are still to be made."""
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (self.root / "docs").mkdir()
        files = [{"path": file, "blocks": FILES[file], "encode": "none"} for file in FILES]
        server = {"command": "node", "args": [f"{os.environ['SERVERS']}/{program}"], "env": env}
        product = {"name": "A server", "purpose": "serving", "command": None}
        self.save("registry-docs.json", {"product": product, "files": files, "server": server})
        for file in FILES:
            (self.root / file).write_text(HANDWRITTEN)

    def save(self, file, value):
        (self.root / file).write_text(json.dumps(value))

    def expect(self, output, *arguments):
        """Runs the program; returns what it says on standard error. None is any output."""
        done = subprocess.run([os.environ["PROGRAM"], *arguments], cwd=self.root, check=False,
                              capture_output=True, encoding="utf-8", stdin=subprocess.DEVNULL)
        status = int(output != "" and "--check" in arguments)
        output = done.stdout if output is None else output
        self.assertEqual((done.returncode, done.stdout), (status, output), done.stderr)
        return done.stderr

    def first_tools(self):
        """Asks the server, and pastes the markers as the program says."""
        advice = self.expect(None, "--check", "--save-tools", "tools.json")
        for file, lines in ADVICE.findall(advice):
            with (self.root / file).open("a") as opened:
                opened.write(lines)
        return json.loads((self.root / "tools.json").read_text())

    def test_servers(self):
        for program, env in SERVERS.items():
            with self.subTest(program):
                self.renew(program, env)
                self.document()

    def document(self):
        answer = self.first_tools()
        self.expect("".join(f"{file}\n" for file in FILES), "--write")
        self.expect("", "--check")
        text = "".join((self.root / file).read_bytes().decode() for file in FILES)
        self.assertEqual(text.count(HANDWRITTEN), len(FILES))
        names = [tool["name"] for tool in answer["tools"]]
        rows = {f"params:{tool['name']}": list(properties_of(tool)) for tool in answer["tools"]}
        rows |= {"readme-tools": names, "mcp-overview": names, "mcp-intro": []}
        self.assertEqual(tables.rows(text), rows)
        self.expect("", "--check", "--tools", "tools.json")
        for name, tools, output in changes(answer["tools"]):
            with self.subTest(name):
                self.save("changed.json", {**answer, "tools": tools})
                self.expect(output, "--check", "--tools", "changed.json")


if __name__ == "__main__":
    unittest.main()
