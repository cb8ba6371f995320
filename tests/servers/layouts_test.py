"""Lists in servers' own forms, made by templates and compared with what their maintainers keep;
and the reference, in which every change of an answer must show."""

import copy
import json
import os
import pathlib
import random
import re
import subprocess
import tempfile
import unittest

import shown_page

HERE = pathlib.Path(__file__).parent
MODULES = pathlib.Path(os.environ["SERVERS"])
SERVERS = {  # programs, what they are given, and what they want to be told before they start
    "@antv/mcp-server-chart/build/index.js": ([], {}),
    "@brave/brave-search-mcp-server/dist/index.js": ([], {"BRAVE_API_KEY": "none"}),
    "@hubspot/mcp-server/dist/index.js": ([], {"PRIVATE_APP_ACCESS_TOKEN": "none"}),
    "@kazuph/mcp-taskmanager/dist/index.js": ([], {"TASK_MANAGER_FILE_PATH": "tasks.json"}),
    "@mapbox/mcp-server/dist/index.js": ([], {"MAPBOX_ACCESS_TOKEN": "pk.eyJ1Ijoibm9uZSJ9.none"}),
    "@modelcontextprotocol/server-everything/dist/index.js": ([], {}),
    "@modelcontextprotocol/server-filesystem/dist/index.js": (["."], {}),
    "@modelcontextprotocol/server-memory/dist/index.js": ([], {"MEMORY_FILE_PATH": "memory.json"}),
    "@modelcontextprotocol/server-sequential-thinking/dist/index.js": ([], {}),
    "@notionhq/notion-mcp-server/bin/cli.mjs": ([], {"NOTION_TOKEN": "none"}),
    "@upstash/context7-mcp/dist/index.js": ([], {}),
    "airtable-mcp-server/dist/main.js": ([], {"AIRTABLE_API_KEY": "none"}),
    "figma-developer-mcp/dist/bin.js": (["--stdio"], {"FIGMA_API_KEY": "none"}),
    "firecrawl-mcp/dist/index.js": ([], {"FIRECRAWL_API_KEY": "none"}),
    "hostinger-api-mcp/src/servers/all.js": ([], {"API_TOKEN": "none"}),
    "tavily-mcp/build/index.js": ([], {"TAVILY_API_KEY": "none"}),
}
PLAYWRIGHT = ("@playwright/mcp/cli.js",
              ["--caps=config,network,storage,devtools,vision,pdf,testing"], {})
CHROME = ("chrome-devtools-mcp/build/src/bin/chrome-devtools-mcp.js",
          ["--experimentalVision", "--memoryDebugging", "--experimentalScreencast",
           "--categoryExperimentalWebmcp", "--categoryExtensions",
           "--categoryExperimentalThirdParty"], {"CHROME_DEVTOOLS_MCP_NO_USAGE_STATISTICS": "1"})
CATEGORIES = {
    "input": "Input automation", "navigation": "Navigation automation", "emulation": "Emulation",
    "performance": "Performance", "network": "Network", "debugging": "Debugging",
    "memory": "Memory", "extensions": "Extensions", "experimentalThirdParty": "Third-party",
    "experimentalWebmcp": "WebMCP"}

# What no list shows of an answer: what is no part of what the server offers, and what every
# input schema is.
UNSEEN = {"$schema", "$id", "$comment", "$defs", "definitions", "icons", "_meta", "execution",
          "id", "category", "conditions", "serverInfo", "instructions"}


def places(value, path=()):
    """Where a change must show: leaves, and lists of values and names."""
    if isinstance(value, dict):
        for name, member in value.items():
            is_keyword = not path or path[-1] != "properties"
            is_root = len(path) == 3 and name in ("type", "additionalProperties")
            is_other_title = path[-1:] == ("annotations",) and name == "title"
            if not (is_keyword and (name in UNSEEN or is_root or is_other_title)):
                yield from places(member, (*path, name))
    elif isinstance(value, list):
        for index, element in enumerate(value):
            yield from places(element, (*path, index))
        if path[-1] == "enum" and len(value) > 1:
            yield path
    else:
        yield path


def change(answer, path, rng):
    changed = copy.deepcopy(answer)
    parent = changed
    for step in path[:-1]:
        parent = parent[step]
    old = parent[path[-1]]
    if isinstance(old, bool):
        parent[path[-1]] = not old
    elif isinstance(old, list):
        old.pop()
    elif isinstance(old, str):
        words = list(re.finditer(r"\w+", old)) or [re.match("", old)]
        end = rng.choice(words).end() if path[-1] == "description" else len(old)
        parent[path[-1]] = old[:end] + "qx" + old[end:]
    else:
        parent[path[-1]] = 17 if old is None else old + 1
    return changed


class Layouts(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def run_program(self, *arguments):
        return subprocess.run([os.environ["PROGRAM"], *arguments], cwd=self.root, check=False,
                              capture_output=True, encoding="utf-8", stdin=subprocess.DEVNULL)

    def declare(self, server, block, **more):
        program, args, env = server
        document = {"server": {"command": "node", "args": [str(MODULES / program), *args], "env": env},
                    "files": [{"path": "README.md", "blocks": [block]}]} | more
        (self.root / "registry-docs.json").write_text(json.dumps(document))
        name = block if isinstance(block, str) else block["name"]
        (self.root / "README.md").write_text(
            f"<!-- registry:{name} -->\n<!-- /registry:{name} -->\n")

    def section(self, server, template, **more):
        """What a template makes of a server's live answer."""
        (self.root / "tools.mustache").write_text((HERE / "layouts" / template).read_text())
        self.declare(server, {"name": "tools", "layout": "tools.mustache"}, **more)
        done = self.run_program("--write")
        self.assertEqual((done.returncode, done.stdout), (0, "README.md\n"), done.stderr)
        text = (self.root / "README.md").read_text()
        return text.split("-->\n", 1)[1].rsplit("<!--", 1)[0].strip("\n")

    def test_an_index_by_category(self):
        groups = [{"name": name, "title": title} for name, title in CATEGORIES.items()]
        readme = (MODULES / "chrome-devtools-mcp/README.md").read_text()
        kept = readme.split("<!-- BEGIN AUTO GENERATED TOOLS -->")[1].split("<!-- END AUTO")[0]
        made = self.section(CHROME, "chrome-devtools.mustache", groups=groups,
                            group_by="/annotations/category")
        self.assertEqual(made, kept.strip("\n"))

    def test_a_section_in_details(self):
        readme = (MODULES / "@playwright/mcp/README.md").read_text()
        kept = readme.split("<!--- Tools generated by update-readme.js -->")[1]
        kept = kept.split("<!--- End of tools")[0].strip("\n")
        groups = json.loads((HERE / "layouts/playwright.json").read_text())
        made = self.section(PLAYWRIGHT, "playwright.mustache", groups=groups, order="name")
        wrong = [(old, new) for old, new in zip(kept.split("\n"), made.split("\n")) if old != new]
        self.assertEqual(len(kept.split("\n")), len(made.split("\n")))
        # In which that list is wrong about its server.
        self.assertEqual(set(wrong), {("  - Read-only: **false**", "  - Read-only: **true**")})
        self.assertLessEqual(len(wrong), 6)

    def test_all_is_seen_and_no_change_is_unseen(self):
        rng = random.Random(1)
        for program, (args, env) in SERVERS.items():
            with self.subTest(program):
                self.declare((program, args, env), "reference")
                done = self.run_program("--write", "--save-tools", "answer.json")
                self.assertEqual(done.returncode, 0, done.stderr)
                answer = json.loads((self.root / "answer.json").read_text())
                # The reference is of what a server offers, not of itself.
                answer.pop("serverInfo", None), answer.pop("instructions", None)
                (self.root / "answer.json").write_text(json.dumps(answer))
                self.assertEqual(self.run_program("--check", "--tools", "answer.json").stdout, "")
                page = (self.root / "README.md").read_text()
                self.assertEqual(shown_page.unseen(answer, page), [])
                for path in rng.sample(all_places := list(places(answer)), min(60, len(all_places))):
                    changed = self.root / "changed.json"
                    changed.write_text(json.dumps(change(answer, path, rng)))
                    done = self.run_program("--check", "--quiet", "--tools", changed.name)
                    self.assertEqual(done.returncode, 1, (path, done.stderr))


if __name__ == "__main__":
    unittest.main()
