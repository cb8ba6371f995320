"""Blocks that layouts make of a saved answer: order, groups, templates of one's own, refusals."""

import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

import jsonschema

import hostile_texts
import shown_page
import visible_text

DOCS = pathlib.Path(__file__).parents[2] / "docs"
PROGRAM = os.environ["PROGRAM"]
ANSWER = {"serverInfo": {"name": "notes", "title": "Notes"}, "tools": [
    {"name": "write_note", "description": "\n  Writes `a|b` to <path>. More of it.\n",
     "annotations": {"destructiveHint": True, "kind": "change"},
     "inputSchema": {"type": "object", "required": ["edits"], "properties": {"edits": {
         "type": "array", "items": {"type": "object", "properties": {
             "oldText": {"type": "string", "maxLength": 9, "default": "", "pattern": "^a"}}}}}}},
    {"name": "read_note", "title": "Read", "annotations": {"readOnlyHint": True, "kind": "look"},
     "inputSchema": {"type": "object"}}],
    "prompts": [{"name": "tidy", "arguments": [{"name": "depth", "required": True}]}],
    "resources": [{"uri": "notes://all", "name": "all", "size": 12}],
    "resourceTemplates": [{"uriTemplate": "notes://{id}", "name": "one", "mimeType": "text/plain"}]}
GROUPS = [{"name": "look", "title": "Looking", "tools": ["read_*"]},
          {"name": "rest", "tools": ["*"], "extra": {"mark": "!"}}]
TABLE = """\
| Tool                                   | Description               | Effect      |
| -------------------------------------- | ------------------------- | ----------- |
| [`write_note`](docs/all.md#write_note) | Writes `a\\|b` to \\<path>. | destructive |
| [`read_note`](docs/all.md#read_note)   |                           | read-only   |
"""
GROUPED = """\
Looking: read_note.
rest!: write_note.
"""
REFERENCE = """\
- [`write_note`](#write_note)
- [`read_note`](#read_note)

## `write_note`

Writes `a|b` to \\<path>. More of it.

Hints: destructive

Parameters:

- `edits` (`object[]`, required)
  - `oldText` (`string`, at most 9 characters, matches `^a`, default `""`)

## `read_note`

Title: Read

Hints: read-only

## Prompts

- `tidy`
  - `depth` (required)

## Resources

- `notes://all` (all), 12 bytes

## Resource templates

- `notes://{id}` (one), `text/plain`
"""
SCOPES = {"tools": [
    {"name": "list_issues", "title": "List issues", "inputSchema": {
        "type": "object", "required": ["state"], "properties": {
            "state": {"type": "string", "description": "Which ones:\n- `open`\n- all"},
            "labels": {"type": "array", "items": {"type": "string"}, "description": "Its labels"}}}},
    {"name": "get_me", "title": "Who <I> am", "inputSchema": {"type": "object"}}]}
SCOPES_TEMPLATE = """{{#groups}}
<details>

<summary>{{{extra.icon}}} {{{title}}}</summary>

{{#tools | by_name}}
- **{{{name}}}** - {{{title}}}
{{#extra.scopes}}
{{#@first}}
  - **Scopes**: {{#extra.scopes}}`{{{.}}}`{{^@last}}, {{/@last}}{{/extra.scopes}}
{{/@first}}
{{/extra.scopes}}
{{^parameters}}
  - No parameters
{{/parameters}}
{{#parameters | by_name}}
  - `{{{name}}}`: {{#@indent}}{{{description}}}{{/@indent}} ({{{type}}}, {{#required}}required{{/required}}{{^required}}optional{{/required}})
{{/parameters}}

{{/tools}}
</details>

{{/groups}}
"""
SCOPES_LIST = """<details>

<summary><img src="a.png"> Issues</summary>

- **get_me** - Who <I> am
  - No parameters

- **list_issues** - List issues
  - **Scopes**: `repo`, `read:org`
  - `labels`: Its labels (string[], optional)
  - `state`: Which ones:
    - `open`
    - all (string, required)

</details>
"""
REFUSED = {  # what the registry holds besides, a template, and the message
    "a tool in no group": ({"groups": GROUPS[:1]}, "", "registry-docs.json: groups: expected a group for every "
                           'tool, found none for "write_note"'),
    "a group's tool that is gone": (
        {"groups": [{"name": "a", "tools": ["x", "*"]}]}, "", "registry-docs.json: groups[0].tools[0]: expected a "
        'tool that the server offers, found "x"'),
    "a pattern for nothing": ({"groups": [{"name": "a", "tools": ["x*", "*"]}]}, "", "registry-docs.json: "
                              'groups[0].tools[0]: expected a pattern that fits a tool, found "x*"'),
    "a member amiss": ({"groups": [{"name": "a", "titel": "A"}]}, "", "registry-docs.json: groups[0]: expected no "
                       'other members than name, title, tools, extra, found "titel", perhaps "title"'),
    "an order that there is not": ({"order": "size"}, "", 'registry-docs.json: order: expected "declared" or '
                                   '"name", found "size"'),
    "a place that is none": ({"group_by": "kind"}, "", "registry-docs.json: group_by: expected a JSON pointer into "
                             'a tool, as in "/annotations/category", found "kind"'),
    "a section left open": ({}, "{{#tools}}\n", "own.mustache:1: expected"),
    "a name that nothing has": ({}, "{{#tools}}\n{{descripton}}{{/tools}}", "own.mustache:2: expected a member of "
                                'tool or the model, found "descripton", perhaps "description"'),
    "a block's marker": ({}, "<!-- registry:own -->", "own.mustache: expected a text without a block's marker, "
                         'found "<!-- registry:own -->"'),
}


FITTED = {  # a template, and what it makes of a text
    "a.mdx": ("{{description}} <B c={1} />\n\n{{description | html}}\n\n{{description | blocks}}",
              "a \\<b> \\{c\\} import d <B c={1} />\n\na &lt;b&gt; &#123;c&#125;\n&#10;import d\n\n"
              "a \\<b> \\{c\\}\n\n&#105;mport d"),
    "a.html": ("<p>{{description}}", "<p>a &lt;b&gt; {c}\n&#10;import d"),
    "a.c": ("// {{description}}", "// a <b> {c} import d")}
ANY_FILES = [("a.py", ["#", ""], "    "), ("a.c", ["/*", "*/"], ""), ("a.mdx", ["{/*", "*/}"], "")]
NO_MARKDOWN = {  # of files with a block "tools"
    (("comment", ("#", "")),): 'registry-docs.json: files[0].blocks[0]: expected the layout count or a template of '
                               'your own in a file with comments of its own, found "tools", which is Markdown\n',
    (("path", "a.html"),): 'registry-docs.json: files[0].blocks[0]: expected the layout count or a template of '
                           'your own in HTML, found "tools", which is Markdown\n',
    (("comment", ("#",)),): 'registry-docs.json: files[0].comment: expected the beginning of a comment and its end, '
                            'as in ["#", ""], found 1 text\n',
    (("comment", ("", "")),): 'registry-docs.json: files[0].comment[0]: expected 1 to 20 characters of ASCII without '
                              'blanks at the ends, found ""\n',
    (("comment", ("#", " ")),): 'registry-docs.json: files[0].comment[1]: expected nothing or 1 to 20 characters of '
                                'ASCII without blanks at the ends, found " "\n',
}


def described(texts):
    """An answer that holds each text wherever there may be one."""
    def schema(text):
        inner = {"type": "object", "properties": {"b": {"type": "string", "description": text}}}
        return {"type": "object", "properties": {
            "a": {"type": "array", "description": text, "items": inner | {"description": text}},
            "c": {"anyOf": [{"type": "string", "description": text}, inner]}}}
    def entries(more):
        return [{"name": f"n{number}", "description": text} | more(text) for number, text in enumerate(texts)]
    return {"tools": entries(lambda text: {"inputSchema": schema(text)}),
            "prompts": entries(lambda text: {"arguments": [{"name": "a", "description": text}]}),
            "resources": entries(lambda _: {"uri": "notes://all"}),
            "resourceTemplates": entries(lambda _: {"uriTemplate": "notes://{id}"})}


class Layouts(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())).resolve()
        (self.root / "docs").mkdir()
        (self.root / "answer.json").write_text(json.dumps(ANSWER))

    def declare(self, files, **more):
        """Declares files by their blocks, with empty blocks of the names that blocks begin with."""
        listed = []
        for path, blocks in files.items():
            listed.append({"path": path, "blocks": blocks})
            names = [block if isinstance(block, str) else block["name"] for block in blocks]
            names = [each for name in names for each in (
                [name[:-1] + tool["name"] for tool in ANSWER["tools"]] if name[-1] == "*" else [name])]
            (self.root / path).write_text("".join(
                f"<!-- registry:{name} -->\n<!-- /registry:{name} -->\n" for name in names))
        (self.root / "registry-docs.json").write_text(json.dumps({"files": listed} | more))

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *arguments, "--tools", "answer.json"], cwd=self.root,
                              check=False, capture_output=True, text=True)

    def written(self, path):
        done = self.run_program("--write")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.run_program("--check").stdout, "")
        return (self.root / path).read_text()

    def test_layouts_of_the_program(self):
        self.declare({"README.md": ["tools", "count", "tool:*"],
                      "docs/all.md": [{"name": "all", "layout": "reference", "heading": 2}]})
        readme = self.written("README.md")
        self.assertIn(f"-->\n\n{TABLE}\n<!--", readme)
        self.assertIn("<!-- registry:count -->\n\n2\n", readme)
        self.assertIn("<!-- registry:tool:read_note -->\n\nTitle: Read\n\nHints: read-only\n\n<!--", readme)
        self.assertEqual((self.root / "docs/all.md").read_text().split("-->\n\n", 1)[1],
                         REFERENCE + "\n<!-- /registry:all -->\n")

    def test_a_template_of_one_s_own(self):
        (self.root / "own.mustache").write_text(
            "{{#groups}}\n{{title}}{{extra.mark}}: {{#tools}}{{> one}}{{/tools}}\n{{/groups}}\n")
        (self.root / "one.mustache").write_text("{{name}}.")
        own = {"name": "own", "layout": "own.mustache"}
        for more in ({"groups": GROUPS}, {"groups": [{"name": "look", "title": "Looking"}, GROUPS[1]],
                                          "group_by": "/annotations/kind", "order": "name"}):
            if "group_by" in more:
                more["groups"][1] = {"name": "change", "title": "rest", "extra": {"mark": "!"}}
            with self.subTest(more):
                self.declare({"README.md": [own]}, **more)
                self.assertIn(f"-->\n\n{GROUPED}\n<!--", self.written("README.md"))

    def test_scopes_and_html_of_the_maintainers(self):
        (self.root / "answer.json").write_text(json.dumps(SCOPES))
        (self.root / "own.mustache").write_text(SCOPES_TEMPLATE)
        self.declare({"README.md": [{"name": "own", "layout": "own.mustache"}]},
                     groups=[{"name": "issues", "title": "Issues", "tools": ["*"], "extra": {"icon": '<img src="a.png">'}}],
                     tools=[{"name": "list_issues", "extra": {"scopes": ["repo", "read:org"]}}])
        self.assertIn(f"-->\n\n{SCOPES_LIST}\n<!--", self.written("README.md"))

    def test_hostile_texts_at_every_place(self):
        texts = [text for text in hostile_texts.TEXTS if visible_text.of_blocks(text)]
        answer = described(texts)
        for layouts in (["reference"], ["list", "prompts", "resources"]):
            with self.subTest(layouts):
                (self.root / "answer.json").write_text(json.dumps(answer))
                self.declare({"README.md": layouts})
                self.assertEqual(shown_page.unseen(answer, self.written("README.md")), [])

    def test_blocks_in_files_of_any_kind(self):
        (self.root / "own.mustache").write_text("{{#tools}}\n{{{name}}}\n{{/tools}}\n")
        for path, comment, margin in ANY_FILES:
            with self.subTest(path):
                comment, (begin, end) = ({"comment": comment}, comment) if path[-1] != "x" else ({}, comment)
                names = [f"{begin} {sign}registry:own {end}".rstrip() for sign in ("", "/")]
                self.declare({path: [{"name": "own", "layout": "own.mustache"}]})
                document = json.loads((self.root / "registry-docs.json").read_text())
                document["files"][0] |= comment
                (self.root / "registry-docs.json").write_text(json.dumps(document))
                (self.root / path).write_bytes(b"a\r\n\nb\r")
                done = self.run_program("--check")
                self.assertIn("put these lines where the lists belong:\n" + "\n".join(names), done.stderr)
                (self.root / path).write_bytes(f"a\r\n{margin}{names[0]}\r\n{names[1]}\nb\r".encode())
                self.written(path)
                gap = "\r\n" if path[-1] == "x" else ""
                self.assertEqual((self.root / path).read_bytes().decode(), (
                    f"a\r\n{margin}{names[0]}\r\n{gap}{margin}write_note\r\n{margin}read_note\r\n{gap}{margin}"
                    f"{names[1]}\nb\r"))

    def test_examples_of_markers(self):
        self.declare({"README.md": ["count"]})
        example = "```html\n<!-- registry:count -->\n<!--/registry:count-->\n```\n"
        (self.root / "README.md").write_text(example)
        self.assertIn("README.md: missing count; put these lines where", self.run_program("--check").stderr)
        (self.root / "README.md").write_text(f"{example}<!--registry:count-->\n{example}")
        self.assertIn("README.md:5: this is almost a marker of count; write <!-- registry:count -->\nWhen",
                      self.run_program("--check").stderr)

    def test_texts_fit_their_file(self):
        text = "a <b> {c}\n\nimport d"
        (self.root / "answer.json").write_text(json.dumps({"tools": [{"name": "n", "description": text}]}))
        for path, (template, expected) in FITTED.items():
            with self.subTest(path):
                (self.root / "own.mustache").write_text(f"{{{{#tools}}}}\n{template}\n{{{{/tools}}}}\n")
                document = {"files": [{"path": path, "blocks": [{"name": "own", "layout": "own.mustache"}]}]}
                begin, end = {"x": ("{/*", "*/}"), "l": ("<!--", "-->")}.get(path[-1], ("/*", "*/"))
                document["files"][0]["comment"] = [begin, end]
                (self.root / "registry-docs.json").write_text(json.dumps(document))
                (self.root / path).write_text(f"{begin} registry:own {end}\n{begin} /registry:own {end}")
                self.assertEqual(self.written(path).split("\n", 1)[1].rsplit("\n", 1)[0].strip("\n"), expected)

    def test_files_that_take_no_markdown(self):
        for more, message in NO_MARKDOWN.items():
            with self.subTest(more):
                document = {"files": [{"path": "a.py", "blocks": ["tools"]} | dict(more)]}
                (self.root / "registry-docs.json").write_text(json.dumps(document))
                self.assertEqual(self.run_program("--check").stderr.replace(f"{self.root}/", ""), message)

    def test_refusals(self):
        for name, (more, template, message) in REFUSED.items():
            with self.subTest(name):
                (self.root / "own.mustache").write_text(template)
                self.declare({"README.md": [{"name": "own", "layout": "own.mustache"}]}, **more)
                done = self.run_program("--check")
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertTrue(done.stderr.replace(f"{self.root}/", "").startswith(message), done.stderr)

    def test_what_can_be_printed(self):
        self.declare({"README.md": ["count"]})
        model = json.loads(self.run_program("--print-model").stdout)
        self.assertEqual((model["server"]["title"], model["counts"]["tools"]), ("Notes", 2))
        tool = model["tools"][0]
        self.assertEqual((tool["summary"], tool["raw"]), ("Writes `a|b` to <path>.", ANSWER["tools"][0]))
        field = tool["all_parameters"][1]
        self.assertEqual((field["path"], field["depth"], field["default"]), ("edits[].oldText", 1, '""'))

    def test_the_model_is_what_its_documents_say(self):
        self.declare({"README.md": ["count"]}, groups=GROUPS)
        model = json.loads(self.run_program("--print-model").stdout)
        schema = json.loads((DOCS / "model.schema.json").read_text())
        jsonschema.Draft202012Validator.check_schema(schema)
        jsonschema.Draft202012Validator(schema).validate(model)
        objects = [schema, *schema["$defs"].values(), *schema["properties"].values()]
        members = {name for each in objects for name in each.get("properties", ())}
        named = set(re.findall(r"`(\w+)`", (DOCS / "model.md").read_text()))
        self.assertEqual(members - named, set())

    def test_layouts_that_are_printed(self):
        printed = subprocess.run([PROGRAM, "--print-layout", "tools"], check=True, capture_output=True, text=True)
        self.assertIn("{{#groups}}", printed.stdout)
        refused = subprocess.run([PROGRAM, "--print-layout", "x"], check=False, capture_output=True, text=True)
        self.assertEqual(refused.stderr, "--print-layout: expected one of count, list, prompts, reference, "
                         "resources, tool, tools, found 'x'\n")


if __name__ == "__main__":
    unittest.main()
