"""The program and the schema of the registry file accept and refuse the same registries."""

import json
import os
import pathlib
import re
import subprocess
import unittest

import jsonschema

TOP = pathlib.Path(__file__).parents[2]
EXAMPLE = pathlib.Path(os.environ["EXAMPLE"])
CASES = TOP / "tests/tesmo_sorvet"
SCHEMA = json.loads((TOP / "docs/registry.schema.json").read_text())

GENERAL = {  # what the registry of a server's repository says
    "product": {"name": "Notes", "purpose": "keeping notes", "command": "notes call"},
    "tools": [{"name": "add", "inputSchema": {"type": "object", "required": ["a"], "properties": {
        "a": {"type": ["string", "null"], "description": "A", "minimum": 1}, "b": {"enum": [1, "x"]},
        "c": {"type": "array", "items": {"type": "string"}}, "d": {"anyOf": [{"type": "integer"}]}}}}],
    "files": [{"path": "README.md", "blocks": ["readme-tools"], "encode": "none", "comment": ["<!--", "-->"]},
              {"path": "src/tesmo_sorvet/tool_registry.json", "member": "/a/b", "value": "names", "of": "tools"}],
    "claims": [{"path": "*.md", "text": "{tools} a", "allow": ["a"]}]}


def is_beyond_schemas(message, registry):
    """Whether no schema can refuse this: faults of the JSON text, told with line and column (its
    form, a member given twice, a number out of range, depth), names that depend on others, what
    references and branches come to, and a server that cannot be asked."""
    return (re.match(r"-:\d+:\d+: |[^-]", message) or "a name that no other tool has" in message
            or re.search("distinct (files|members of)|one of the (servers|groups)|no group|"
                         "a pattern that fits", message) or "servers" in message and "as in" in message
            or ("one of the tiers" in message and '"tiers"' in registry))


def changed(value, seen, path=()):
    """Puts each kind of value, and nothing, in every place that is not like one seen before."""
    is_object = isinstance(value, dict)
    for key in list(value) if is_object else range(len(value)):
        member, place = value[key], (*path, key if is_object else "[]")
        if place not in seen:
            seen.add(place)
            for kind in (None, True, 1, "", [], {}):
                value[key] = kind
                yield place, kind
            if is_object:
                del value[key]
                yield place, "nothing"
            value[key] = member
        if isinstance(member, (dict, list)):
            yield from changed(member, seen, place)


class Schema(unittest.TestCase):
    def agree(self, registry):
        """Whether the program accepts a registry; the schema has to say the same."""
        done = subprocess.run([os.environ["PROGRAM"], "--list", "--registry", "-"], cwd=EXAMPLE,
                              input=registry.encode(), capture_output=True, check=False)
        message = done.stderr.decode()
        self.assertIn(done.returncode, (0, 2), message)
        is_refused = done.returncode == 2
        if not (is_refused and is_beyond_schemas(message, registry)):
            validator = jsonschema.Draft202012Validator(SCHEMA)
            errors = [error.message for error in validator.iter_errors(json.loads(registry))]
            self.assertEqual(is_refused, bool(errors), (message, errors))
        return not is_refused

    def test_registries_that_are_accepted(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)
        registries = {path: path.read_text() for path in (
            EXAMPLE / "src/tesmo_sorvet/tool_registry.json", CASES / "accepted/tool_registry.json")}
        for path in (TOP / "README.md", *TOP.glob("docs/*.md")):
            for fence in re.findall(r"^```json\n(.*?)^```$", path.read_text(), re.M | re.S):
                if "tools" in json.loads(fence):
                    registries[f"{path}: {fence}"] = fence
        for name, registry in registries.items():
            with self.subTest(name):
                self.assertTrue(self.agree(registry))

    def test_registries_that_are_refused(self):
        for case in (CASES / "refused_registries.txt").read_text().split("\n# "):
            name, _, registry = case.partition("\n=>\n")[0].partition("\n")
            with self.subTest(name):
                self.assertFalse(self.agree(registry))

    def test_input_schemas(self):
        members, *rows = (CASES.parent / "json_schema/json_schemas.txt").read_text().splitlines()
        for row in rows:
            with self.subTest(row):
                tool = members.replace("SCHEMA", row.split(" => ")[0])
                self.agree(f'{{"tools": [{{"name": "t", {tool}}}]}}')

    def test_registries_with_one_change(self):
        accepted = json.loads((CASES / "accepted/tool_registry.json").read_text())
        for document in accepted, GENERAL:
            for place, kind in changed(document, set()):
                with self.subTest(place=place, kind=kind):
                    self.agree(json.dumps(document))


if __name__ == "__main__":
    unittest.main()
