"""What maintainers of real servers wrote about their tools gives no cause for advice."""

import json
import pathlib
import shutil
import tempfile
import unittest

import real_servers

PAGE = "<!-- registry:count -->\n<!-- /registry:count -->\n"

def package_of(program):
    parts = pathlib.Path(program).parts
    return real_servers.MODULES / pathlib.Path(*parts[:2 if parts[0].startswith("@") else 1])


class Advice(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def check(self, declared):
        files = [{"path": path, "blocks": ["count"]} for path in declared]
        (self.root / "registry-docs.json").write_text(json.dumps({"files": files, "server": {"command": "none"}}))
        done = real_servers.run_program(self.root, "--write", "--tools", "answer.json")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return real_servers.run_program(self.root, "--check", "--tools", "answer.json").stderr

    def lay_out(self, server):
        """The package's documents, and what its server answers; says how many tools it has."""
        shutil.rmtree(self.root)
        shutil.copytree(package_of(server[0]), self.root, ignore=lambda place, names: [
            name for name in names if name == "node_modules" or not (
                (pathlib.Path(place) / name).is_dir() or name.endswith((".md", ".mdx", ".json")))])
        (self.root / "list.md").write_text(PAGE)
        answer = real_servers.answer_of(server)
        (self.root / "answer.json").write_text(json.dumps(answer))
        return len(answer["tools"])

    def test_servers(self):
        for server in real_servers.ALL:
            with self.subTest(server[0]):
                count = self.lay_out(server)
                self.assertEqual(self.check(["list.md"]), "")
                pages = [path for path in self.root.rglob("*.md") if path.name != "list.md"]
                for page in pages:
                    page.write_bytes(page.read_bytes() + f"\n\n{PAGE}".encode())
                self.assertEqual(self.check([str(path.relative_to(self.root)) for path in pages]), "")
                readme = next(page for page in pages if page.name.lower() == "readme.md" and page.parent == self.root)
                readme.write_bytes(readme.read_bytes() + f"All {count + 1} tools\n".encode())
                self.assertIn(f": {count + 1} tools, but the server has {count}; ", self.check(["list.md"]))


if __name__ == "__main__":
    unittest.main()
