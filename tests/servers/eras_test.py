"""Asks servers made by the protocol's own libraries, of either era and of both."""

import json
import os
import pathlib
import subprocess
import tempfile
import unittest

SERVER = pathlib.Path(__file__).parent / "sdk_server.cjs"
NAMES = {"tools": ["add"], "prompts": ["explain"], "resources": ["last"], "resourceTemplates": ["any"]}


class Eras(unittest.TestCase):
    def answer(self, era):
        root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (root / "registry-docs.json").write_text(json.dumps({
            "files": [{"path": "README.md", "blocks": ["reference"]}],
            "server": {"command": "node", "args": [str(SERVER), era]}}))
        (root / "README.md").write_text("<!-- registry:reference -->\n<!-- /registry:reference -->\n")
        done = subprocess.run([os.environ["PROGRAM"], "--write", "--save-tools", "answer.json"],
                              cwd=root, capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "README.md\n", ""))
        return json.loads((root / "answer.json").read_text())

    def test_every_era_tells_all(self):
        for era in ("legacy", "modern", "both"):
            with self.subTest(era):
                answer = self.answer(era)
                self.assertEqual(list(answer), ["serverInfo", "instructions", *NAMES])
                self.assertEqual((answer["serverInfo"]["name"], answer["serverInfo"]["version"],
                                  answer["instructions"]), ("sums", "1.2.3", "Adds."))
                self.assertEqual(
                    {member: [entry["name"] for entry in answer[member]] for member in NAMES}, NAMES)
                self.assertEqual(list(answer["tools"][0]["inputSchema"]["properties"]), ["a", "b"])


if __name__ == "__main__":
    unittest.main()
