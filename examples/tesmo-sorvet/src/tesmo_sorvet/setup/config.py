"""Settings of a workspace, and the rules block that `tesmo-sorvet init` writes.

The settings come from `tesmo.toml` at the workspace root. The rules block tells
an AI agent when to ask the server instead of reading files; `init` keeps it in
the project's instruction file, between two lines of its own, and leaves the rest
of that file alone.
"""

from __future__ import annotations

import re
import tomllib
from dataclasses import dataclass, fields
from pathlib import Path

SETTINGS_FILE = "tesmo.toml"
INSTRUCTION_FILE = "CLAUDE.md"

RULES_BEGIN = "<!-- tesmo-sorvet rules: written by `tesmo-sorvet init`, edits are lost -->"
RULES_END = "<!-- end of tesmo-sorvet rules -->"

# The markers fence the table that the documentation generator keeps current.
_BLOCK_MARKER = re.compile(r"<!-- /?registry:[\w:-]+ -->\n?")

TESMO_INSTRUCTION_CONTENT = """\
## Code intelligence: Tesmo Sorvet

This project is indexed by Tesmo Sorvet. Its tools answer questions about the code
from the index, in a fraction of the tokens that reading files costs. Use them first
and open a file only to edit it.

### Which call answers which need

<!-- registry:rules-routes -->
| Need | Call |
| --- | --- |
| Where a name is defined | `symbol_lookup action=find query=<name>` |
| What a file holds | `symbol_lookup action=outline path=<file>` |
| The source of one symbol | `read_source path=<file> symbol=<name>` |
| Text in any file, or a pattern such as `TODO\\|FIXME` | `text_search pattern=<pattern> regex=true` |
| Who calls or uses a symbol | `reference_map action=callers symbol=<name>` |
| How one function comes to call another | `call_paths from_symbol=<name> to_symbol=<name>` |
| What a change to a symbol would break | `change_impact action=symbol symbol=<name>` |
| Which tests to run for the work in hand | `change_impact action=diff base=main tests_only=true` |
| The code behind a URL | `web_endpoints action=trace route=<route>` |
| Import cycles | `import_graph action=cycles` |
| The same edit in many places | `pattern_rewrite action=preview pattern=<pattern> template=<template>` |
<!-- /registry:rules-routes -->

### Working rules

1. Look before you read: `symbol_lookup` \u2192 `read_source` with `symbol`, not the whole file.
2. Before you change a signature, run `change_impact` and name the dependents in your plan.
3. A name in code belongs to `symbol_lookup`. Comments, docstrings (\"\"\") and settings
   belong to `text_search`, where a regular expression keeps its backslashes: `\\bretry_\\w+`.
4. When an answer says \"index out of date\", call `workspace` with `action=reindex` once
   and ask again. Do not fall back to searching by hand.
5. Report places as `path:line`, as the tools do. Paths keep the spelling of the
   file system (`src/größe.py`, not an ASCII rendering of it).

### From a shell

The same tools run without MCP; every parameter is an option in kebab-case:

```sh
tesmo-sorvet query symbol-lookup --action find --query 'Cart.*'
tesmo-sorvet query text-search --pattern '\\$\\{\\w+\\}' --regex
```
"""


@dataclass(frozen=True)
class Settings:
    """The settings of one workspace; every one may be left out of the file."""

    index_dir: str = ".tesmo"
    ignore: tuple[str, ...] = ("node_modules/", ".venv/", "dist/")
    max_file_kib: int = 512
    watch: bool = True


def load_settings(root: Path) -> Settings:
    """Read the settings of the workspace at `root`; refuse names that are not settings."""
    path = root / SETTINGS_FILE
    if not path.is_file():
        return Settings()
    given = tomllib.loads(path.read_text(encoding="utf-8"))
    unknown = sorted(given.keys() - {field.name for field in fields(Settings)})
    if unknown:
        raise ValueError(f"{path}: unknown settings: {', '.join(unknown)}")
    if "ignore" in given:
        given["ignore"] = tuple(given["ignore"])
    return Settings(**given)


def without_markers(text: str) -> str:
    """Return `text` without the generator's block markers."""
    return _BLOCK_MARKER.sub("", text)


def rules_text() -> str:
    """Return the rules block as `init` writes it, fenced by its own two lines."""
    body = without_markers(TESMO_INSTRUCTION_CONTENT).strip()
    return f"{RULES_BEGIN}\n{body}\n{RULES_END}\n"


def with_rules(instructions: str) -> str:
    """Return the text of an instruction file with its rules block current.

    A block that is there is replaced where it stands; otherwise the block is
    added at the end.
    """
    before, begin, rest = instructions.partition(RULES_BEGIN)
    _, end, after = rest.partition(RULES_END)
    if begin and end:
        return before + rules_text() + after.removeprefix("\n")
    lead = instructions.rstrip("\n")
    return f"{lead}\n\n{rules_text()}" if lead else rules_text()


def write_rules(root: Path) -> Path:
    """Write the rules block into the instruction file of the project at `root`."""
    path = root / INSTRUCTION_FILE
    old = path.read_text(encoding="utf-8") if path.is_file() else ""
    new = with_rules(old)
    if new != old:
        path.write_text(new, encoding="utf-8", newline="\n")
    return path
