"""Whatever a schema says is found in the fields that are read of it, at its path.

completeness_test.py PRINT_FIELDS FILE... looks at answers to tools/list instead of its own."""

import collections
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

ANNOTATIONS = ("title", "description", "default")
SHOWN_OTHERWISE = {*ANNOTATIONS, "examples", "example", "deprecated", "enum", "const", "type",
                   "properties", "required", "items", "prefixItems", "anyOf", "oneOf", "allOf",
                   "$ref", "patternProperties", "additionalProperties"}
SILENT = {"$defs", "definitions", "$schema", "$id", "$comment", "$anchor"}
LARGEST = 9007199254740991


def spelled(value):
    """One text for each value; 1 and 1.0 differ, as do texts and numbers."""
    return json.dumps(value, sort_keys=True)


def says_nothing(keyword, given):
    return (given is False and keyword in ("uniqueItems", "readOnly", "writeOnly",
                                           "exclusiveMinimum", "exclusiveMaximum")
            or given in (True, {}) and keyword in ("propertyNames", "unevaluatedProperties",
                                                   "unevaluatedItems", "additionalItems")
            or keyword == "propertyNames" and given == {"type": "string"}
            or keyword.lower().endswith("minimum") and given == -LARGEST
            or keyword.lower().endswith("maximum") and given == LARGEST
            or keyword in ("maxLength", "maxItems", "maxProperties") and given == LARGEST
            or keyword in ("minLength", "minItems", "minProperties") and spelled(given) == "0")


class Schema:
    """Says what a schema says, and where."""

    def __init__(self, root):
        self.root = root
        self.facts = []  # path, kind, what
        self.walk(root, "", ())

    def target(self, reference):
        place = self.root
        for name in urllib.parse.unquote(reference[1:]).split("/")[1:]:
            name = name.replace("~1", "/").replace("~0", "~")
            place = place[int(name)] if isinstance(place, list) else place.get(name, {})
        return place

    def walk(self, schema, path, within):
        if not schema or not isinstance(schema, dict) or any(schema is each for each in within):
            return
        within = (*within, schema)
        for keyword, given in schema.items():
            if keyword in ANNOTATIONS:
                self.facts.append((path, keyword, spelled(given)))
            elif keyword in ("enum", "examples"):
                self.facts += [(path, keyword, spelled(each)) for each in given]
            elif keyword == "const":
                self.facts.append((path, "enum", spelled(given)))
            elif keyword == "example":
                self.facts.append((path, "examples", spelled(given)))
            elif keyword == "deprecated":
                self.facts.append((path, keyword, "true"))
            elif keyword == "required":
                self.facts += [(path, keyword, name) for name in given]
            elif keyword == "type" and "null" in given:  # the type, or one of them
                self.facts.append((path, "null", ""))
            elif keyword not in SHOWN_OTHERWISE | SILENT and not says_nothing(keyword, given):
                self.facts.append((path, "limit " + keyword, spelled(given)))
        self.walk_parts(schema, path, within)

    def walk_parts(self, schema, path, within):
        member = path + "." if path else ""
        for name, part in schema.get("properties", {}).items():
            self.facts.append((member + name, "path", ""))
            self.walk(part, member + name, within)
        for name, part in schema.get("patternProperties", {}).items():
            self.facts.append((f"{member}/{name}/", "path", ""))
            self.walk(part, f"{member}/{name}/", within)
        others = schema.get("additionalProperties", {})
        if others is False:
            self.facts.append((path, "limit additionalProperties", "false"))
        self.walk(others, member + "*", within)
        items = schema.get("items", {})
        positions = [*schema.get("prefixItems", []), *(items if isinstance(items, list) else [])]
        for place, part in enumerate(positions):
            self.facts.append((f"{path}[{place}]", "path", ""))
            self.walk(part, f"{path}[{place}]", within)
        self.walk(items, path + "[]", within)
        for keyword in ("allOf", "anyOf", "oneOf"):
            for part in schema.get(keyword, []):
                self.walk(part, path, within)
        if "$ref" in schema:
            self.walk(self.target(schema["$ref"]), path, within)


class Fields:
    """What fields say, and where."""

    def __init__(self, field):
        self.facts = collections.defaultdict(set)  # by path
        self.count = 0
        self.add(field)

    def add(self, field):
        self.count += 1
        facts, path = self.facts[field["path"]], field["path"]
        facts.add(("path", ""))
        for said in field, *field.get("remarks", []):
            facts |= {(keyword, spelled(said[keyword])) for keyword in ANNOTATIONS if keyword in said}
        facts |= {("enum", spelled(each)) for each in field.get("values", [])}
        facts |= {("examples", spelled(each)) for each in field.get("examples", [])}
        for limit in field.get("limits", []):
            place = path + "[]" if limit.pop("of_items") else path
            self.facts[place] |= {("limit " + name, spelled(given)) for name, given in limit.items()}
        if field.get("deprecated"):
            facts.add(("deprecated", "true"))
        if field.get("nullable") or "null" in field["type"]:
            facts |= {("null", ""), ("enum", "null")}
        if "each may be null" in field.get("words", []):
            self.facts[path + "[]"].add(("null", ""))
        if field.get("required") and "name" in field:
            around = path[:-len(field["name"])].removesuffix(".")
            self.facts[around].add(("required", field["name"]))
        self.notes = " ".join([getattr(self, "notes", ""), *field.get("notes", [])])
        for part in field.get("fields", []):
            self.add(part)

    def say(self, path, kind, what):
        """At the path, or for items at that of the array."""
        if kind == "required" and f"`{what}`" in self.notes:
            return True
        while (kind, what) not in self.facts.get(path, ()):
            if not path.endswith("[]") or kind.startswith("limit"):  # which say it themselves
                return False
            path = path[:-2]
        return True


def missing(print_fields, path, count=collections.Counter()):
    """What the schemas of an answer say and no field does."""
    tools = json.loads(pathlib.Path(path).read_text())["tools"]
    done = subprocess.run([print_fields, path], check=True, capture_output=True)
    for tool, read in zip(tools, json.loads(done.stdout), strict=True):
        count.update(tools=1, faults=len(read["faults"]))
        for kind in {"inputSchema", "outputSchema"} & {*tool}:
            said, fields = Schema(tool[kind]).facts, Fields(read[kind])
            count.update(schemas=1, fields=fields.count, facts=len(said))
            yield from (f"{tool['name']}: {' '.join(fact)}" for fact in said if not fields.say(*fact))


def random_value(chance):
    return chance.choice([chance.randrange(99), "", f"text {chance.randrange(99)}", None, True, [], {"a": [1.5]}])


def random_schema(chance, depth=0):
    """A schema with some of all keywords, in order of chance."""
    def schema():
        return random_schema(chance, depth + 1)

    def schemas():
        return [schema() for _ in range(chance.randrange(1, 4))]

    def members():
        return {chance.choice("abcde"): schema() for _ in range(chance.randrange(4))}

    keywords = {
        "type": lambda: chance.choice(["string", "integer", "object", "array", ["object", "array"]]),
        "title": lambda: f"Title {chance.randrange(999)}",
        "description": lambda: f"Description {chance.randrange(999)}",
        "default": lambda: random_value(chance), "const": lambda: 7,  # which other constants do not exclude

        "examples": lambda: [random_value(chance), random_value(chance)],
        "minimum": lambda: chance.randrange(9), "maxLength": lambda: chance.randrange(1, 9),
        "minItems": lambda: chance.randrange(9), "pattern": lambda: f"^{chance.randrange(99)}",
        "not": schema, "x-other": lambda: random_value(chance),
        "deprecated": lambda: chance.choice([True, "because"]),
        "required": lambda: chance.sample("abcde", 2), "properties": members,
        "patternProperties": members, "additionalProperties": lambda: chance.choice([False, schema()]),
        "items": schema, "prefixItems": schemas, "allOf": schemas, "anyOf": schemas, "oneOf": schemas,
        "$ref": lambda: chance.choice(["#/$defs/a", "#/$defs/b"])}
    nested = {"not", "properties", "patternProperties", "additionalProperties", "items", "prefixItems",
              "allOf", "anyOf", "oneOf"}
    names = [name for name in keywords if depth < 3 or name not in nested]
    return {name: keywords[name]() for name in chance.sample(names, chance.randrange(1, 5))}


class Completeness(unittest.TestCase):
    maxDiff = None

    def missing(self, schemas):
        tools = [{"name": name, "inputSchema": schema} for name, schema in schemas.items()]
        with tempfile.NamedTemporaryFile("w") as file:
            json.dump({"tools": tools}, file)
            file.flush()
            return [*missing(os.environ["PRINT_FIELDS"], file.name)]

    def test_schemas_of_the_table(self):
        cases = (pathlib.Path(__file__).parent / "fields.txt").read_text()
        schemas = {}
        for case in f"\n{cases}".split("\n# ")[1:]:
            name, _, schema = case.partition("\n=>\n")[0].partition("\n")
            if not name.startswith("what cannot be read"):
                schemas[name] = json.loads(schema)
        # What no value can be for another schema that holds.
        excluded = [f"all that holds at once: b enum {value}" for value in ('"x"', '"z"')]
        self.assertEqual(self.missing(schemas), excluded)

    def test_random_schemas(self):
        chance = random.Random(3)
        schemas = {}
        for number in range(200):
            schemas[str(number)] = random_schema(chance)
            schemas[str(number)]["$defs"] = {"a": random_schema(chance), "b": random_schema(chance)}
        self.assertEqual(self.missing(schemas), [])


if __name__ == "__main__":
    if len(sys.argv) < 3:
        unittest.main()
    counted = collections.Counter()
    for each in sys.argv[2:]:
        for line in missing(sys.argv[1], each, counted):
            print(f"{pathlib.Path(each).name}: {line}")
    print(dict(counted))
