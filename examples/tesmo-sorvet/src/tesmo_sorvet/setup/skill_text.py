"""The `sorvet` skill: what an agent reads before it works with the tools.

The skill is a template for `str.format`, so a brace that is meant is doubled. Its
two tables come from the tool registry and are kept current by the documentation
generator; everything around them is written here.
"""

from __future__ import annotations

from pathlib import Path

SKILL_DIR = Path(".claude") / "skills" / "sorvet"

SKILL_TEMPLATE = """\
---
name: sorvet
description: Answer questions about this codebase from the Tesmo Sorvet index. Use it to find symbols, follow calls, judge the impact of a change and search text, before opening files.
---

# Tesmo Sorvet {version}

The server keeps an index of the workspace and answers from it. Every answer names
places as `path:line`, so that a later call can start from them.

## How to work

1. Pick the call from the table below. One precise call beats three broad ones.
2. Give the narrowest argument you know: a qualified name (`Cart.total`), a file and a
   name (`billing/cart.py:Cart.total`), a directory in `scope`.
3. Read on from the places you were given. Open whole files only to edit them.
4. An answer that ends in `"truncated": true` held more. Narrow the question; raise
   `token_budget` only when there is nothing left to narrow.

Arguments are JSON. A regular expression keeps its backslashes, each doubled as JSON
wants it:

```json
{{"pattern": "\\\\bretry_(count|delay)\\\\b", "regex": true, "include": ["src/"]}}
```

## Route by need

<!-- registry:skill-routes -->
| Need | Call | Notes |
| --- | --- | --- |
| Where a name is defined | `symbol_lookup action=find query=<name>` | Finds near misses too; `min_score=1.0` asks for the exact name. |
| What a file holds | `symbol_lookup action=outline path=<file>` | A fraction of the tokens of reading it. |
| The source of one symbol | `read_source path=<file> symbol=<name>` | Add `lines` only when the symbol is not enough. |
| Text in any file, or a pattern such as `TODO\\|FIXME` | `text_search pattern=<pattern> regex=true` | Comments, strings, configuration. For names in code take `symbol_lookup`. |
| Who calls or uses a symbol | `reference_map action=callers symbol=<name>` | `usages` adds imports, reads and writes. |
| How one function comes to call another | `call_paths from_symbol=<name> to_symbol=<name>` |  |
| What a change to a symbol would break | `change_impact action=symbol symbol=<name>` | Ask before you edit, not after. |
| Which tests to run for the work in hand | `change_impact action=diff base=main tests_only=true` | `base` takes any commit, `@{{upstream}}` included. |
| The code behind a URL | `web_endpoints action=trace route=<route>` | Understands the routes of Django, Flask, FastAPI, Express, Spring, Rails. |
| Every endpoint, or those without a test | `web_endpoints action=list` | `gaps` keeps the untested ones. Frameworks read: Django, Flask, FastAPI, Express, Spring, Rails. |
| Import cycles | `import_graph action=cycles` | Each is shown as `a → b → a`. |
| Code that nothing uses | `unused_code` | Check a finding below 0.9 with `text_search` before you delete it. |
| The same edit in many places | `pattern_rewrite action=preview pattern=<pattern> template=<template>` | `{{name}}` captures an expression. Show the diff before `apply`. |
<!-- /registry:skill-routes -->

<!-- registry:skill-tools -->
## Tool reference (14 tools; MCP name = CLI `tesmo-sorvet query <tool>`)

| Tool | Actions | Use for |
| --- | --- | --- |
| `symbol_lookup` | `find`, `outline`, `describe` | Look up functions, classes, methods and constants in the index. `find` lists the symbols whose name matches `query`, best match first; `outline` gives the symbols of one file as a tree; `describe` returns one symbol's signature, documentation and place. Names are compared as Unicode text, so `Größe` and `解析_日本語` are found like any other. |
| `text_search` | *(one call)* | Search the indexed files line by line and return each match with its place. With `regex` the pattern is a regular expression: `\\b(TODO\\|FIXME)\\b` finds both words and `\\$\\{{\\w+\\}}` finds shell variables such as `${{HOME}}`. Without it every character stands for itself, so `C:\\Users` is searched as written. |
| `read_source` | *(one call)* | Return source text with its line numbers. Give `symbol` to get one definition whole, with the comments above it, or `lines` to get a stretch of the file; with neither, the file is returned from its start until `token_budget` is spent. |
| `reference_map` | `usages`, `callers`, `callees`, `implementations` | Follow the references of one symbol. `usages` lists every place that names it; `callers` lists the functions that call it and `callees` those it calls; `implementations` lists the classes and methods that implement or override it. Calls through a variable are resolved where its type is known and marked `?` where it is not. |
| `file_tree` | *(one call)* | List the files below a directory as a tree, with the language and the number of lines of each. Files that the workspace ignores are left out, and so is everything below a directory that was cut off at `depth`; their number is given in its place. |
| `call_paths` | *(one call)* | Find the chains of calls that lead from one function to another, shortest first, each written as `a → b → c` with the place of every call. The search walks from both ends at once, so a long chain costs far less than a naïve walk over all callees. |
| `change_impact` | `symbol`, `diff` | Say what depends on the code that changes. `symbol` takes one symbol you mean to change; `diff` takes every symbol that differs between the working tree and `base`. Both return the dependents by distance, the tests that reach them and a score from 0 to 1 for each. |
| `workspace` | `status`, `reindex`, `settings` | Look after the index itself. `status` says how many files are indexed and which have changed since; `reindex` brings them up to date; `settings` returns the settings in force, with the file that each comes from. The index stands in `.tesmo/` under the root. |
| `web_endpoints` | `list`, `trace`, `gaps` | List the HTTP endpoints of the workspace and follow them into the code. `list` names every endpoint with its method and handler; `trace` follows one endpoint from route → handler → data access; `gaps` reports the endpoints that no test calls. Path parameters are compared by position: `/users/{{id}}` and `/users/{{user_id}}` are one endpoint. |
| `import_graph` | `graph`, `cycles`, `layers` | Show how modules import one another. `graph` draws the imports below one directory; `cycles` lists every import cycle, shortest first; `layers` checks that no layer imports one above it. A cycle is written as `a → b → a`. |
| `unused_code` | *(one call)* | Report functions, classes and constants that nothing in the workspace uses. Whatever an entry point reaches counts as used, and so does a name in a module's `__all__`. Each finding carries a confidence: 1.0 when no text in the workspace holds the name, less when a string, a template or reflection might (`getattr(obj, f"on_{{event}}")`). |
| `near_duplicates` | *(one call)* | Find code that was copied, also where names, literals or layout were changed since. Returns groups of places, largest first, each with its similarity and the lines that differ. |
| `line_history` | `lines`, `churn`, `authors` | Read the version history of a file or directory. `lines` names the commit that last changed each line; `churn` counts the changes by function; `authors` lists who knows the code best, by changes that are still in it. Renames are followed (`old/{{a.py → b.py}}`). |
| `pattern_rewrite` | `preview`, `apply` | Replace every piece of code that matches a pattern. `preview` returns the changes as a diff and writes nothing; `apply` writes them and names the files. In the pattern `{{name}}` captures one expression and `{{...rest}}` any number of arguments; the template uses them by the same names, so `log({{level}}, {{...rest}})` becomes `logger.{{level}}({{...rest}})`. A brace that is meant is doubled: `{{{{` or `}}}}`. |
<!-- /registry:skill-tools -->

## When an answer looks wrong

- Ask `workspace` with `{{"action": "status"}}`. Files changed since the last run are
  listed there; `reindex` brings them up to date.
- A name that is built at run time (`getattr`, a template, a route table) has no
  reference in the index. Confirm with `text_search` before you call code unused.
- Version {version} answers for the languages that `workspace` lists under
  `languages`, and says so when a file is in none of them.
"""


def skill_text(version: str) -> str:
    """Return the skill as it is installed for the server's `version`."""
    return SKILL_TEMPLATE.format(version=version)


def write_skill(root: Path, version: str) -> Path:
    """Install the skill in the project at `root`."""
    path = root / SKILL_DIR / "SKILL.md"
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(skill_text(version), encoding="utf-8", newline="\n")
    return path
