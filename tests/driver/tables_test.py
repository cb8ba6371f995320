"""Whatever texts a registry holds, all rows of its tables have a cell for each title."""

import json
import unittest

import tables
from example import MCP, README, ExampleTest

HOSTILE = (
    "", "|", "a|b", r"a\|b", r"a\\|b", r"a\\\|b", "\\", "a|\\", "|" * 5000, "\n|\n| --- |\n",
    "`", "`|", "`a|b`", r"`a\|b`", "``a|b`", "a`b|c", "```\na|b\n```", "[a](b|c)", "<http://a|b>",
    "a\nb", "a\n\nb", "a\r\nb", "a\rb", "\ta\tb\t", "a\fb\vc", "a\u2028b\u2029c\x85d", " a ",
    "<b>|", "</td></tr>", "<table>", "<!-- a|b -->", "<!--", "-->", "<pre>\n", "<a href='|'>",
    "# a\n# b", "- a\n- b", "    a", "\ufeffa", "\0a\x1b[0m", "&vert;", "x" * 100000,
)


def tool(number, text):
    params = [{"name": "described", "description": text},
              {"name": "with_default", "default": text, "action_defaults": {text: text}},
              {"name": "with_values", "values": [text, "|"]}]
    return {"name": f"t{number}", "summary": text, "description": text, "params": params}


class Tables(ExampleTest):
    def test_hostile_texts(self):
        tools = [tool(number, text) for number, text in enumerate(HOSTILE)]
        names = [each["name"] for each in tools]
        lists = dict.fromkeys(("mcp-overview", "mcp-cli"), names) | {"mcp-intro": []}
        lists |= {f"params:{name}": ["described", "with_default", "with_values"] for name in names}
        blocks = (f"<!-- registry:{name} -->\n<!-- /registry:{name} -->\n" for name in lists)
        (self.root / MCP).write_text("".join(blocks))
        registry = json.dumps({"tools": tools}).encode()
        self.expect(0, "", "", self.root, "--write", "--quiet", "--registry=-", input=registry)
        self.expect(0, "", "", self.root, "--check", "--registry=-", input=registry)
        texts = ((self.root / file).read_bytes().decode() for file in (README, MCP))
        self.assertEqual(tables.rows("".join(texts)), {"readme-tools": names, **lists})


if __name__ == "__main__":
    unittest.main()
