"""What is generated outside of blocks: members of JSON files, and what claims say of a server."""

import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["PROGRAM"]
ANSWER = {"tools": [{"name": "search", "description": "Finds.", "inputSchema": {}}, {"name": "add", "inputSchema": {}}],
          "prompts": [{"name": "tidy", "description": "Tidies."}], "resources": [{"uri": "n://a", "name": "all"}]}
TOOLS = {"path": "m.json", "member": "/tools", "value": "names"}
COUNT = {"path": "R.md", "text": "**{tools} tools**"}
SKILL = {"path": "s/**/*.md", "text": "n__{tool}", "allow": ["n__old"]}
BLOCK = "<!-- registry:count -->\n\n%s\n\n<!-- /registry:count -->\n"
MDX_BLOCK = "{/* registry:count */}\n\n%s\n\n{/* /registry:count */}\n"
RUN = "To bring the blocks up to date, run:\n"
FIXED = "When that is fixed, bring the blocks up to date:\n"

# What the registry says; the files; what the check says, and on standard error; the files after.
ROWS = {
    "members": (
        {"files": [TOOLS, {"path": "m.json", "member": "/p", "value": "names-and-descriptions", "of": "prompts"},
                   {"path": "m.json", "member": "/r", "value": "answer", "of": "resources"}]},
        {"m.json": '{\r\n\t"tools": [],\r\n\t"r": {}\r\n}'},
        "m.json: out of date: /tools, /r, /p\n", RUN,
        {"m.json": '{\r\n\t"tools": [\r\n\t\t"search",\r\n\t\t"add"\r\n\t],\r\n\t"r": [\r\n\t\t{\r\n\t\t\t"uri": "n://a",'
                   '\r\n\t\t\t"name": "all"\r\n\t\t}\r\n\t],\r\n\t"p": [\r\n\t\t{\r\n\t\t\t"name": "tidy",\r\n\t\t\t'
                   '"description": "Tidies."\r\n\t\t}\r\n\t]\r\n}'}),
    "a member that is the same": (
        {"files": [TOOLS]}, {"m.json": '{"tools" : ["search",\n"\\u0061dd"]}'}, "", "", {}),
    "a member of no JSON": (
        {"files": [TOOLS], "claims": [{"path": "m.json", "text": "a {tools}"}]}, {"m.json": '{"tools": []\n"a": 1}'},
        "m.json:2:1: expected a comma or a closing brace, found '\"'\n", FIXED, None),
    "a member that is there twice": (
        {"files": [TOOLS]}, {"m.json": '{"tools": [], "tools": []}'},
        'm.json:1:16: expected each member once, found "tools" a second time\n', FIXED, None),
    "a name that a terminal would act on": (
        {"files": [TOOLS]}, {"m.json": r'{"\u001b[0m": 1, "\u001b[0m": 2}'},
        'm.json:1:19: expected each member once, found "\\x1b[0m" a second time\n', FIXED, None),
    "a member of no object": (
        {"files": [TOOLS | {"member": "/a/b"}]}, {"m.json": '{"a": []}'},
        "m.json: /a: expected an object that has b, or may have it, found an array\n", FIXED, None),
    "counts beside a block, but not within": (
        {"files": [{"path": "R.md", "blocks": ["count"]}], "claims": [COUNT]},
        {"R.md": "**3 tools**\n" + BLOCK % "**4 tools**" + "**3 tools**\n"},
        "R.md: blocks out of date: count; out of date: **{tools} tools**\n", RUN,
        {"R.md": "**2 tools**\n" + BLOCK % "2" + "**2 tools**\n"}),
    "counts beside a block of another syntax": (
        {"files": [{"path": "R.mdx", "blocks": ["count"]}], "claims": [COUNT | {"path": "R.mdx"}]},
        {"R.mdx": ("**3 tools**\n" + MDX_BLOCK % "**4 tools**" + "**3 tools**\n").replace("\n", "\r\n")},
        "R.mdx: blocks out of date: count; out of date: **{tools} tools**\n", RUN,
        {"R.mdx": ("**2 tools**\n" + MDX_BLOCK % "2" + "**2 tools**\n").replace("\n", "\r\n")}),
    "a count beside a current block": (
        {"files": [{"path": "R.md", "blocks": ["count"]}], "claims": [COUNT]},
        {"R.md": BLOCK % "2" + "**3 tools**\n"}, "R.md: out of date: **{tools} tools**\n", RUN,
        {"R.md": BLOCK % "2" + "**2 tools**\n"}),
    "a count beside wrong markers": (
        {"files": [{"path": "R.md", "blocks": ["count"]}], "claims": [COUNT]}, {"R.md": "**3 tools**\n"},
        "R.md: the markers do not match the blocks it holds (missing ['count'], unknown [], repeated [])\n",
        "R.md: missing count; put these lines where the lists belong:\n<!-- registry:count -->\n"
        "<!-- /registry:count -->\n" + FIXED, None),
    "a count in a file with its own line ends": (
        {"claims": [COUNT]}, {"R.md": "a\r\n**3 tools**\rb\n"}, "R.md: out of date: **{tools} tools**\n", RUN,
        {"R.md": "a\r\n**2 tools**\rb\n"}),
    "a count in a file with a member, but not within": (
        {"files": [TOOLS], "claims": [{"path": "m.json", "text": "has {tools}"}]},
        {"m.json": '{"tools": ["has 3"], "a": "has 3"}'}, "m.json: out of date: /tools, has {tools}\n", RUN,
        {"m.json": '{"tools": ["search", "add"], "a": "has 2"}'}),
    "a claim that is found nowhere": (
        {"claims": [COUNT]}, {"R.md": "**3 tool**\n"}, "R.md: claims that do not hold: **{tools} tools**\n",
        "R.md: expected the claim **{tools} tools**, found it nowhere\n" + FIXED, None),
    "names": (
        {"claims": [SKILL]}, {"s/a.md": "a\nn__serch, n__old\n", "s/b/c.md": "n__search n__x.\n", "s/x.txt": "n__x",
                              "s/n/.git/a.md": "n__x", ".gitignore": "/s/no", "s/no/a.md": "n__x"},
        "s/a.md: claims that do not hold: n__serch\ns/b/c.md: claims that do not hold: n__x\n",
        "s/a.md:2: n__serch names no tool; perhaps n__search\ns/b/c.md:1: n__x names no tool\n" + FIXED, None),
    "a claim of a file under another name": (
        {"files": [{"path": "R.md", "blocks": ["count"]}], "claims": [COUNT | {"path": "link.md"}]},
        {"R.md": BLOCK % "3" + "**3 tools**\n", "link.md": "R.md"},
        "R.md: blocks out of date: count; out of date: **{tools} tools**\n", RUN,
        {"R.md": BLOCK % "2" + "**2 tools**\n"}),
    "names in one of several files": (
        {"claims": [SKILL]}, {"s/a.md": "a", "s/b/c.md": "n__search"}, "", "", {}),
    "names in none of several files": (
        {"claims": [SKILL]}, {"s/a.md": "a", "s/b/c.md": "b"}, "s/a.md: claims that do not hold: n__{tool}\n",
        "s/a.md: expected the claim n__{tool} in one of s/**/*.md, found it in none\n" + FIXED, None),
}
# Two servers, of which one did not answer; what is listed.
LISTS = {
    "both": ({"a": ANSWER, "b": ANSWER}, ["a.json /t 1 current", "R.md **{tools} of all** 1 current",
                                          "R.md {tools} of b 1 stale"]),
    "one": ({"a": ANSWER}, ["a.json /t 1 current"]),
}


class Parts(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def lay_out(self, files):
        for path, text in files.items():
            (self.root / path).parent.mkdir(parents=True, exist_ok=True)
            if path == "link.md":
                (self.root / path).symlink_to(text)
                continue
            (self.root / path).write_bytes(text.encode())

    def run_program(self, *arguments):
        done = subprocess.run([PROGRAM, *arguments], cwd=self.root, capture_output=True, check=False)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def test_check_and_write(self):
        for name, (registry, files, checked, said, after) in ROWS.items():
            with self.subTest(name):
                self.setUp()
                self.lay_out(files | {"registry-docs.json": json.dumps(registry | {"server": {"command": "no"}}),
                                      "answer": json.dumps(ANSWER)})
                status, output, errors = self.run_program("--check", "--tools=answer")
                errors = errors.replace(f"  {PROGRAM} --write --tools answer\n", "")
                self.assertEqual((status, output, errors), (int(bool(checked)), checked, said))
                status, output, _ = self.run_program("--write", "--tools=answer")
                expected = files | (after or {})
                self.assertEqual((status, output), (int(after is None), "".join(f"{path}\n" for path in after or ())))
                self.assertEqual({path: (self.root / path).read_bytes().decode() for path in files
                                  if path != "link.md"}, {path: expected[path] for path in files if path != "link.md"})
                if after:
                    self.assertEqual(self.run_program("--check", "--tools=answer"), (0, "", ""))

    def test_several_servers(self):
        servers = {name: {"server": {"command": "no"}, "snapshot": f"{name}-answer.json"} for name in "ab"}
        registry = {"servers": servers, "files": [{"path": "a.json", "member": "/t", "value": "names", "server": "a"}],
                    "claims": [{"path": "R.md", "text": "**{tools} of all**"},
                               {"path": "R.md", "text": "{tools} of b", "server": "b"}]}
        for name, (answers, rows) in LISTS.items():
            with self.subTest(name):
                self.setUp()
                self.lay_out({"registry-docs.json": json.dumps(registry), "a.json": '{"t":["search","add"]}',
                              "R.md": "**4 of all** 4 of b"})
                self.lay_out({f"{server}-answer.json": json.dumps(answer) for server, answer in answers.items()})
                _, output, _ = self.run_program("--list", "--offline")
                self.assertEqual([" ".join(line.split()) for line in output.splitlines()[1:]], rows)

    def test_a_snapshot_is_no_file_of_claims(self):
        registry = {"server": {"command": "no"}, "snapshot": "a.json", "claims": [{"path": "a.json", "text": "{tools} t"}]}
        self.lay_out({"registry-docs.json": json.dumps(registry), "answer": json.dumps(ANSWER)})
        message = (f"{self.root}/registry-docs.json: claims[0].path: expected a file that is not generated as a whole, "
                   'found "a.json"\n')
        self.assertEqual(self.run_program("--check", "--tools=answer"), (2, "", message))

    def test_several_repositories(self):
        for name in "ab":
            self.lay_out({f"{name}/registry-docs.json": json.dumps({"tools": [{"name": "search"}], "files": [TOOLS],
                          "claims": [COUNT]}), f"{name}/R.md": "**3 tools**", f"{name}/m.json": "{" if name == "b" else "{}"})
        self.assertEqual(self.run_program("--check", "a", "b")[1],
                         "a/m.json: out of date: /tools\na/R.md: out of date: **{tools} tools**\n"
                         "b/m.json:1:2: expected a member's name between double quotes, found the end of the document\n"
                         "b/R.md: out of date: **{tools} tools**\n")

    def test_json_and_github(self):
        self.lay_out({"registry-docs.json": json.dumps(
            {"tools": [{"name": "search"}], "claims": [SKILL, COUNT, {"path": "R.md", "text": "# {tools}"}]}
            | {"product": {}}), "s/a.md": "\nn__serch", "R.md": "**2 tools** **2 tools**"})
        _, output, _ = self.run_program("--check", "--format=json")
        report = json.loads(output)
        self.assertEqual([(file["path"], file["state"], file["blocks"], file["repeated"]) for file in report["files"]], [
            ("s/a.md", "failed", [{"name": "n__serch", "state": "failed", "line": 2,
                                   "message": "n__serch names no tool; perhaps n__search"}], []),
            ("R.md", "failed", [{"name": "**{tools} tools**", "state": "stale", "line": 1}] * 2 + [
                {"name": "# {tools}", "state": "failed",
                 "message": "expected the claim # {tools}, found it nowhere"}], [])])
        _, output, _ = self.run_program("--check", "--format=github")
        self.assertEqual(output.splitlines(), [
            "::error file=s/a.md,line=2::s/a.md: claims that do not hold: n__serch%0A"
            "s/a.md:2: n__serch names no tool; perhaps n__search",
            "::error file=R.md,line=1::R.md: claims that do not hold: # {tools}%0A"
            "R.md: expected the claim # {tools}, found it nowhere"])

    def test_advice_on_what_is_not_declared(self):
        files = {"R.md": BLOCK % "1" + "**2 tools**, 3 tools, mcp__n__search. mcp__n__add mcp__o__x\n",
                 "README.md": "2 MCP tools\n", "CHANGELOG.md": "2 tools\n", "server.json": "1 tools, of 2 tools",
                 "skills/a/SKILL.md": "mcp__n__search", "manifest.json": '{"tools": []}'}
        registry = {"tools": [{"name": "search"}], "files": [{"path": "R.md", "blocks": ["count"]}]}
        member = {"path": "manifest.json", "member": "/tools", "value": "names-and-descriptions"}
        counts = {"R.md:6": "{tools} tools", "README.md:1": "{tools} MCP tools", "server.json:1": "{tools} tools"}
        names = {"R.md:6": "mcp__n__{tool}", "skills/a/SKILL.md:1": "mcp__n__{tool}"}
        claims = {text: [{"path": place.partition(":")[0], "text": claim} for place, claim in of.items()]
                  for text, of in (("counts", counts), ("names", names))}
        lines = sorted([f"{place}: {claim['text'].replace('{tools}', '2')}, but the server has 1; if all are meant, a "
                        f"claim keeps the number right: \"claims\": {json.dumps(claim)}\n"
                        for place, claim in zip(counts, claims["counts"])]
                       + [f"{place}: mcp__n__ stands before names of tools; a claim checks them: \"claims\": "
                          f"{json.dumps(claim)}\n" for place, claim in zip(names, claims["names"])])
        lines.append("manifest.json: its tools are kept by hand; a generated member keeps them right: \"files\": "
                     f"{json.dumps(member)}\n")
        self.lay_out(files | {"registry-docs.json": json.dumps(registry)})
        self.assertEqual(self.run_program("--check"), (0, "", "".join(lines)))
        self.assertEqual(self.run_program("--check", "--quiet"), (0, "", ""))
        declared = registry | {"files": [*registry["files"], member], "claims": sum(claims.values(), [])}
        self.lay_out({"registry-docs.json": json.dumps(declared)})
        _, _, errors = self.run_program("--check")
        self.assertNotIn("kept by hand", errors)
        self.assertNotIn("a claim ", errors)

    def test_advice_on_numbers_that_may_be_meant_for_all(self):
        for text, advised in {
            "19 tools": "19", "10 tools": "10", "40 tools": "40", "1,0 tools": None, "9 tools": None,
            "41 tools": None, "20 tools": None, "10+ tools": None, "21+ Tools": "21",
            "10 tools, 11 tools": None, "12 tools, of 20 tools": None, "10 tools, 11 tools, 24 tools": "24",
            "1.19 tools": None, "99999999999999999999 tools": None, "19 toolsets": None}.items():
            with self.subTest(text):
                self.lay_out({"README.md": BLOCK % "20" + text, "registry-docs.json": json.dumps(
                    {"tools": [{"name": f"t{i}"} for i in range(20)],
                     "files": [{"path": "README.md", "blocks": ["count"]}]})})
                status, output, errors = self.run_program("--check")
                self.assertEqual((status, output), (0, ""))
                self.assertEqual(re.findall(r"^README.md:6: (\d+) .*, but the server has 20;", errors),
                                 [advised] if advised else [], errors)

    def test_diff(self):
        self.lay_out({"registry-docs.json": json.dumps(
            {"tools": [{"name": "search"}], "files": [{"path": "R.md", "blocks": ["count"]}],
             "claims": [COUNT, {"path": "R.md", "text": "({tools})"}]}),
            "R.md": "a\n**2 tools** (2) (3)\n" + BLOCK % "2" + "(1)"})
        self.assertEqual(self.run_program("--check", "--diff")[1],
                         "R.md: blocks out of date: count; out of date: **{tools} tools**, ({tools})\n--- a/R.md\n+++ b/R.md\n"
                         "@@ -1,8 +1,8 @@ **{tools} tools**, ({tools}), count\n a\n-**2 tools** (2) (3)\n"
                         "+**1 tools** (1) (1)\n <!-- registry:count -->\n \n-2\n+1\n \n <!-- /registry:count -->\n"
                         " (1)\n\\ No newline at end of file\n")
        _, diff, _ = self.run_program("--check", "--diff")
        subprocess.run(["git", "apply"], cwd=self.root, input=diff.encode(), check=True)
        self.assertEqual(self.run_program("--check"), (0, "", ""))


if __name__ == "__main__":
    unittest.main()
