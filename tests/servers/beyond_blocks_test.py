"""What stands outside of blocks, in files as real servers have them: each is declared, drifts, is checked and
written."""

import copy
import json
import pathlib
import tempfile
import unittest

import real_servers

HOSTINGER = ("hostinger-api-mcp/src/servers/all.js", [], {})
SKILLS = "skills/**/SKILL.md"
BADGE = "![{tools} tools](https://img.example/badge/tools-{tools}-blue)"
MDX = ("---\ntitle: Tools\n---\nimport {Tabs} from '@theme/Tabs'\n\n<Tabs>\n\n{/* registry:tools */}\n"
       "{/* /registry:tools */}\n\n</Tabs>\n")


def of_package(package, pattern):
    place = real_servers.MODULES / package
    return {str(path.relative_to(place)): path.read_text() for path in place.glob(pattern)}


class BeyondBlocks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.answers = {server[0]: real_servers.answer_of(server) for server in (HOSTINGER, real_servers.CHROME)}

    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def declare(self, server, texts, **more):
        """Lays the texts out, and has what is declared written; `before` is what they hold then."""
        registry = {"server": {"command": "none"}} | more
        (self.root / "registry-docs.json").write_text(json.dumps(registry))
        for path, text in texts.items():
            (self.root / path).parent.mkdir(parents=True, exist_ok=True)
            (self.root / path).write_text(text)
        self.answer = copy.deepcopy(self.answers[server[0]])
        self.run_program("--write")
        self.expect("", "--check")
        self.before = {path: (self.root / path).read_text() for path in texts}

    def run_program(self, *arguments):
        (self.root / "answer.json").write_text(json.dumps(self.answer))
        return real_servers.run_program(self.root, *arguments, "--tools", "answer.json")

    def expect(self, output, *arguments):
        done = self.run_program(*arguments)
        self.assertEqual((done.returncode, done.stdout), (int(bool(output) and "--check" in arguments), output),
                         done.stderr)

    def expect_written(self, *changes):
        """A write makes of each file what the changes, path, old and new, make of it, and is enough."""
        self.assertEqual(self.run_program("--write").returncode, 0)
        after = dict(self.before)
        for path, old, new in changes:
            self.assertIn(old, after[path])
            after[path] = after[path].replace(old, new)
        self.assertEqual({path: (self.root / path).read_text() for path in after}, after)
        self.expect("", "--check")

    def test_readme_with_count_and_badge(self):
        claims = [{"path": "README.md", "text": text} for text in ("every tool ({tools} total)", BADGE)]
        texts = of_package("hostinger-api-mcp", "README.md")
        texts["README.md"] += BADGE.replace("{tools}", "1,401")
        self.declare(HOSTINGER, texts, claims=claims)
        count = len(self.answer["tools"])
        del self.answer["tools"][7]
        self.expect(f"README.md: out of date: {claims[0]['text']}, {BADGE}\n", "--check")
        self.expect_written(*(("README.md", str(count).join(around), str(count - 1).join(around)) for around in (
            ("every tool (", " total)"), ("![", " tools"), ("tools-", "-blue"))))

    def test_server_description(self):
        texts = of_package("hostinger-api-mcp", "server.json")
        sentence = "MCP server for Hostinger API"
        texts["server.json"] = texts["server.json"].replace(sentence, sentence + ", with 390+ tools")
        self.declare(HOSTINGER, texts, claims=[{"path": "server.json", "text": "with {tools} tools"}])
        count = len(self.answer["tools"])
        del self.answer["tools"][-1]
        self.expect("server.json: out of date: with {tools} tools\n", "--check")
        self.expect_written(("server.json", f"{count}+ tools", f"{count - 1}+ tools"))

    def test_manifest_of_a_bundle(self):
        manifest = {"manifest_version": "0.3", "name": "notes", "server": {"type": "node", "mcp_config": {"args": []}},
                    "tools": [], "license": "MIT"}
        self.declare(real_servers.CHROME, {"manifest.json": json.dumps(manifest, indent=4) + "\n"}, files=[
            {"path": "manifest.json", "member": "/tools", "value": "names-and-descriptions"}])
        self.assertEqual(json.loads(self.before["manifest.json"]) | {"tools": []}, manifest)
        gone = self.answer["tools"].pop()
        entry = json.dumps({"name": gone["name"], "description": gone["description"]}, indent=4, ensure_ascii=False)
        self.expect("manifest.json: out of date: /tools\n", "--check")
        self.expect_written(("manifest.json", ",\n        " + entry.replace("\n", "\n        "), ""))

    def test_skills(self):
        texts = of_package("chrome-devtools-mcp", SKILLS)
        self.declare(real_servers.CHROME, texts, claims=[
            {"path": SKILLS, "text": "Use `{tool}`", "allow": ["Use `filePath`", "Use `--help`"]}])
        self.answer["tools"] = [{**tool, "name": tool["name"].replace("list_pages", "list_tabs")}
                                for tool in self.answer["tools"]]
        said = "skills/chrome-devtools/SKILL.md: claims that do not hold: Use `list_pages`\n"
        self.expect(said, "--check")
        done = self.run_program("--write")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("SKILL.md:14: Use `list_pages` names no tool", done.stderr)
        skill = self.root / "skills/chrome-devtools/SKILL.md"
        skill.write_text(texts["skills/chrome-devtools/SKILL.md"].replace("list_pages", "list_tabs"))
        self.expect("", "--check")

    def test_mdx_page(self):
        self.declare(real_servers.CHROME, {"tools.mdx": MDX}, files=[{"path": "tools.mdx", "blocks": ["tools"]}])
        self.answer["tools"][0] = {**self.answer["tools"][0], "description": "Takes {a} <b>."}
        self.expect("tools.mdx: blocks out of date: tools\n", "--check")
        self.run_program("--write")
        text = (self.root / "tools.mdx").read_text()
        self.assertIn("Takes \\{a\\} \\<b>.", text)
        begin, end = MDX.split("{/* /")
        self.assertTrue(text.startswith(begin) and text.endswith("{/* /" + end), text)
        self.expect("", "--check")


if __name__ == "__main__":
    unittest.main()
