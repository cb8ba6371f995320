"""Pages of real servers and of hostile texts stay as they are when formatters have seen them, and
show the same in MDX."""

import collections
import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

import hostile_texts
import real_servers
import shown_page
import visible_text

HERE = pathlib.Path(__file__).parent
COMMENTS = {"page.md": ("<!--", "-->"), "page.mdx": ("{/*", "*/}")}
# The lines of texts are as long as their authors made them.
RULES = {"MD013/line-length"}


def hostile_answer():
    texts = [text for text in hostile_texts.TEXTS if visible_text.of_blocks(text)]
    properties = {f"p{number}": {"description": text} for number, text in enumerate(texts)}
    return {"tools": [{"name": f"n{number}", "description": text} for number, text in enumerate(texts)]
            + [{"name": "all", "inputSchema": {"type": "object", "properties": properties}}]}


class Formatters(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def run_in_root(self, *command):
        return subprocess.run(command, cwd=self.root, check=False, capture_output=True, encoding="utf-8",
                              stdin=subprocess.DEVNULL)

    def run_module(self, name, *arguments):
        return self.run_in_root(real_servers.MODULES / ".bin" / name, *arguments)

    def run_program(self, *arguments):
        return self.run_in_root(os.environ["PROGRAM"], *arguments, "--tools", "answer.json")

    def declare(self, pages, blocks, **more):
        files = [{"path": page, "blocks": blocks} for page in pages]
        (self.root / "registry-docs.json").write_text(json.dumps({"files": files} | more))
        for page in pages:
            begin, end = COMMENTS[page]
            (self.root / page).write_text("# A server\n" + "".join(
                f"\n## The {name}\n\n{begin} registry:{name} {end}\n{begin} /registry:{name} {end}\n"
                for name in blocks))

    def write(self, answer):
        """Writes all that layouts make of an answer into a page of each kind."""
        (self.root / "answer.json").write_text(json.dumps(answer))
        offers = {"prompts": ["prompts"], "resources": ["resources", "resourceTemplates"]}
        self.declare(COMMENTS, ["tools", "list", "reference"] + [
            name for name, members in offers.items() if any(map(answer.get, members))],
            server={"command": "none"})
        done = self.run_program("--write")
        self.assertEqual(done.returncode, 0, done.stderr)

    def lines_changed(self, page):
        """Formats the page; says in how many lines that changed it."""
        before = (self.root / page).read_text().split("\n")
        done = self.run_module("prettier", "--write", page)
        self.assertEqual(done.returncode, 0, done.stderr)
        after = (self.root / page).read_text().split("\n")
        left = collections.Counter(before)
        left.subtract(collections.Counter(after))
        return sum(map(abs, left.values()))

    def look_at(self, answer):
        self.write(answer)
        done = self.run_in_root("node", HERE.resolve() / "mdx.mjs", real_servers.MODULES, "page.mdx")
        self.assertEqual(done.returncode, 0, done.stderr)
        shown = visible_text.collapsed(shown_page.Page(done.stdout).text)
        texts = set(map(visible_text.of_blocks, shown_page.descriptions(answer["tools"])))
        self.assertEqual([text for text in texts if text not in shown], [])
        return self.lines_changed("page.md"), self.lines_changed("page.mdx")

    def test_servers(self):
        for server in real_servers.ALL:
            with self.subTest(server[0]):
                self.assertEqual(self.look_at(real_servers.answer_of(server)), (0, 0))
                self.assertEqual(self.run_program("--check").stdout, "")
                done = self.run_module("markdownlint-cli2", "page.md")
                self.assertIn("Linting: 1 file(s)", done.stdout)
                self.assertLessEqual(set(re.findall(r"MD\d+/\S+", done.stderr)), RULES)

    def test_hostile_texts(self):
        # In MDX Prettier reads emphasis by older rules. In Markdown one row holds an emoji that no
        # standard lists.
        self.assertLessEqual(self.look_at(hostile_answer())[0], 2)


if __name__ == "__main__":
    unittest.main()
