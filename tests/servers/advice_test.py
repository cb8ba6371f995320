"""What maintainers of real servers wrote about their tools gives no cause for advice."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import layouts_test

MODULES = pathlib.Path(os.environ["SERVERS"])
PAGE = "<!-- registry:count -->\n<!-- /registry:count -->\n"
SERVERS = [*((program, *more) for program, more in layouts_test.SERVERS.items()), layouts_test.PLAYWRIGHT,
           layouts_test.CHROME]


def package_of(program):
    parts = pathlib.Path(program).parts
    return MODULES / pathlib.Path(*parts[:2 if parts[0].startswith("@") else 1])


class Advice(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def run_program(self, *arguments):
        return subprocess.run([os.environ["PROGRAM"], *arguments], cwd=self.root, check=False, capture_output=True,
                              encoding="utf-8", stdin=subprocess.DEVNULL)

    def check(self, declared):
        files = [{"path": path, "blocks": ["count"]} for path in declared]
        (self.root / "registry-docs.json").write_text(json.dumps({"files": files, "server": {"command": "none"}}))
        done = self.run_program("--write", "--tools", "answer.json")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return self.run_program("--check", "--tools", "answer.json").stderr

    def lay_out(self, program, args, env):
        """The package's documents, and what its server answers; says how many tools it has."""
        shutil.rmtree(self.root)
        shutil.copytree(package_of(program), self.root, ignore=lambda place, names: [
            name for name in names if name == "node_modules" or not (
                (pathlib.Path(place) / name).is_dir() or name.endswith((".md", ".mdx", ".json")))])
        (self.root / "list.md").write_text(PAGE)
        server = {"command": "node", "args": [str(MODULES / program), *args], "env": env}
        (self.root / "registry-docs.json").write_text(json.dumps({"files": [], "server": server}))
        self.run_program("--print-model", "--save-tools", "answer.json")
        return len(json.loads((self.root / "answer.json").read_text())["tools"])

    def test_servers(self):
        for server in SERVERS:
            with self.subTest(server[0]):
                count = self.lay_out(*server)
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
