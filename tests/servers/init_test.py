"""From the repositories of real servers, as their maintainers have them, to a check that passes."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

MODULES = pathlib.Path(os.environ["SERVERS"])
BEGIN, END = "<!-- registry:tools -->\n", "<!-- /registry:tools -->\n"
SERVERS = {  # packages, the heading of their lists, what is started, and the variables that it wants
    "@antv/mcp-server-chart": (None, ["build/index.js"], {}),
    "@brave/brave-search-mcp-server": ("Tools", ["dist/index.js"], {"BRAVE_API_KEY": "none"}),
    "@hubspot/mcp-server": ("Tools", ["dist/index.js"], {"PRIVATE_APP_ACCESS_TOKEN": "none"}),
    "@kazuph/mcp-taskmanager": (None, ["dist/index.js"], {"TASK_MANAGER_FILE_PATH": "tasks.json"}),
    "@mapbox/mcp-server": ("Tools", ["dist/index.js"], {"MAPBOX_ACCESS_TOKEN": "pk.eyJ1Ijoibm9uZSJ9.none"}),
    "@modelcontextprotocol/server-everything": (None, ["dist/index.js"], {}),
    "@modelcontextprotocol/server-memory": ("Tools", ["dist/index.js"], {"MEMORY_FILE_PATH": "memory.json"}),
    "@modelcontextprotocol/server-sequential-thinking": ("Tool", ["dist/index.js"], {}),
    "@notionhq/notion-mcp-server": (None, ["bin/cli.mjs"], {"NOTION_TOKEN": "none"}),
    "@upstash/context7-mcp": ("🔨 Available Tools", ["dist/index.js"], {}),
    "airtable-mcp-server": ("Tools", ["dist/main.js"], {"AIRTABLE_API_KEY": "none"}),
    "firecrawl-mcp": ("Available Tools", ["dist/index.js"], {"FIRECRAWL_API_KEY": "none"}),
    "hostinger-api-mcp": ("Available Tools", ["src/servers/all.js"], {"API_TOKEN": "none"}),
    "tavily-mcp": (None, ["build/index.js"], {"TAVILY_API_KEY": "none"}),
    # Of which package.json does not say all.
    "@modelcontextprotocol/server-filesystem": ("Tools", ["dist/index.js", "."], {}),
    "figma-developer-mcp": (None, ["dist/bin.js", "--stdio"], {"FIGMA_API_KEY": "none"}),
}


class Init(unittest.TestCase):
    def checkout(self, package):
        """A repository of what the package holds, built."""
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for path in (MODULES / package).iterdir():
            if path.name in ("README.md", "package.json"):
                shutil.copy(path, self.root)
            else:
                (self.root / path.name).symlink_to(path)
        return (self.root / "README.md").read_bytes().decode()

    def run_program(self, *arguments, **variables):
        done = subprocess.run([os.environ["PROGRAM"], *arguments], cwd=self.root, check=False, capture_output=True,
                              encoding="utf-8", stdin=subprocess.DEVNULL, env=os.environ | variables)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def test_three_commands_to_a_check_that_passes(self):
        for package, (heading, args, variables) in SERVERS.items():
            with self.subTest(package):
                before = self.checkout(package)
                below = ["--heading", heading] if heading else []
                command = ["--", "node", *args] if len(args) > 1 else []
                self.assertEqual(self.run_program("init", "--markers", "README.md", *below, *command, **variables),
                                 "registry-docs.json\nREADME.md\n")
                self.assertEqual(json.loads((self.root / "registry-docs.json").read_text())["server"],
                                 {"command": "node", "args": args})
                self.assertEqual(self.run_program("--write", **variables), "README.md\n")
                self.assertEqual(self.run_program("--check", "--save-tools", "answer.json", **variables), "")
                answer = json.loads((self.root / "answer.json").read_text())
                after = (self.root / "README.md").read_bytes().decode()
                head, rest = after.split(BEGIN)
                made, tail = rest.split(END)
                self.assertEqual(re.findall(r"^\| `(.+?)` ", made, re.M), [tool["name"] for tool in answer["tools"]])
                if heading:
                    self.assertRegex(head, rf"\n#+ {heading}\n\n$")
                    tail = tail.removeprefix("\n")
                    self.assertIn(before, (head + tail, head.removesuffix("\n") + tail))
                else:
                    self.assertEqual((head.rstrip("\n"), tail), (before.rstrip("\n"), ""))


if __name__ == "__main__":
    unittest.main()
