"""The example's own modules read back the texts that the program wrote into them."""

import io
import json
import os
import pathlib
import random
import runpy
import shutil
import subprocess
import tempfile
import tokenize
import unittest

AWKWARD = (' "q" \'s\' \\ \\\\n \\x41 {version} {{x}} {} {0!r} }{ $1 ${HOME} | \\| %s é日 '
           '`\\N{DASH}` \\u0041 \\\u2028" \\')
PIECES = [*"\"'\\\\\\\\\n#xé {7", '\\"', "\\'", '""', "\\\n", "\\n", "\\x4", "\\x41", "\\101",
          "\\8", "\\777", "\\u00e9", "\\u12", "\\U0001F600", "\\U00110000", "\\q", "\\0", "\\t\\v\\a"]


def python_value(literal):
    """The value of one plain literal, or nothing for what Python or the host refuses."""
    try:
        value = eval(literal, {"x": 7})
        tokens = list(tokenize.generate_tokens(io.StringIO(literal).readline))
    except (SyntaxError, NameError):
        return None
    is_plain = literal[0] not in "bfr" and sum(t.type == tokenize.STRING for t in tokens) == 1
    return value if is_plain else None


class Literals(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())) / "copy"
        shutil.copytree(os.environ["EXAMPLE"], self.root)
        self.registry = self.root / "src/tesmo_sorvet/tool_registry.json"
        self.config = self.root / "src/tesmo_sorvet/setup/config.py"

    def printed(self, name):
        """What the host and the renderers hold, or nothing when the host is refused."""
        done = subprocess.run([os.environ["PRINT_BLOCK"], self.root, self.registry, name],
                              capture_output=True)
        return done.stdout.decode() if done.returncode == 0 else None

    def expect_texts_read_back(self):
        config = runpy.run_path(str(self.config))
        rules = config["TESMO_INSTRUCTION_CONTENT"]
        skill = runpy.run_path(str(self.config.with_name("skill_text.py")))["skill_text"]("1.2")
        for text, name in (rules, "rules-routes"), (skill, "skill-routes"), (skill, "skill-tools"):
            body = text.partition(f"<!-- registry:{name} -->\n")[2]
            self.assertEqual(body.partition(f"\n<!-- /registry:{name} -->")[0], self.printed(name))
        self.assertEqual(rules, self.printed("rules-text"))
        self.assertEqual(config["without_markers"](rules).strip(), self.printed("rules-block"))

    def test_example(self):
        self.expect_texts_read_back()

    def test_awkward_texts(self):
        declared = json.loads(self.registry.read_text(encoding="utf-8"))
        for record in declared["tools"] + declared["routes"]:
            for key in ("description", "need", "call", "note"):
                record[key] = record.get(key, "") + AWKWARD
        declared["endpoint_frameworks"]["x"] = AWKWARD
        self.registry.write_text(json.dumps(declared), encoding="utf-8")
        subprocess.run([os.environ["PROGRAM"], "--write", "--root", self.root], check=True)
        self.expect_texts_read_back()

    def test_literals_are_read_as_python_reads_them(self):
        chance = random.Random(7)
        accepted = 0
        for _ in range(300):
            quote = chance.choice(['"', "'", '"""', "'''"])
            literal = chance.choice(["", "", "", "u", "b", "f", "r"]) + quote
            literal += "".join(chance.choices(PIECES, k=chance.randrange(8))) + quote
            self.config.write_bytes(f"TESMO_INSTRUCTION_CONTENT = {literal} # and\n".encode())
            value = python_value(literal)
            accepted += value is not None
            with self.subTest(literal):
                self.assertEqual(self.printed("rules-text"), value)
        self.assertGreater(accepted, 60)


if __name__ == "__main__":
    unittest.main(warnings="ignore")  # of backslashes that begin no escape
