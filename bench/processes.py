#!/usr/bin/env python3
"""Times whole processes with hyperfine, on the example and on repositories of many tools, and
takes the most memory of a check of the largest. Prints all as JSON.

A round runs every command once, in an order of its own: what else the machine does, and what
ran before, falls on all alike. (Of ten runs in a row, nine find their own code in the caches,
which flatters the smallest program most.) What the commands print goes nowhere.

usage: processes.py BUILD ROUNDS
"""

import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile

BENCH = pathlib.Path(__file__).resolve().parent
EXAMPLE = BENCH.parent / "examples/tesmo-sorvet"
FILES = [
    "src/tesmo_sorvet/tool_registry.json",
    "src/tesmo_sorvet/setup/skill_text.py",
    "src/tesmo_sorvet/setup/config.py",
    "docs/claude-instructions-template.md",
    "README.md",
    "docs/mcp-tools.md",
]
SIZES = [1000, 10_000, 100_000]


def commands(build):
    """What is measured, by name."""
    program = [f"{build}/gen_registry_docs", "--root", str(EXAMPLE)]
    files = files_of(EXAMPLE)
    return {
        "check": [*program, "--check"],
        "write": [*program, "--write"],
        "read": [f"{build}/bench/read_files", *files],
        "cat": ["cat", *files],
        "regex": ["/usr/bin/python3", "-I", "-S", str(BENCH / "find_blocks.py"), *files],
    }


def round_of(commands, results):
    """The time of each command, in seconds."""
    names = random.sample(list(commands), len(commands))
    quoted = [subprocess.list2cmdline(commands[name]) for name in names]
    subprocess.run(["hyperfine", "--shell=none", "--style=none", "--runs=1",
                    f"--export-json={results}", *quoted],
                   check=True, stderr=subprocess.DEVNULL)
    measured = json.loads(pathlib.Path(results).read_text())["results"]
    return {name: one["times"][0] for name, one in zip(names, measured)}


def require_blocks_found(command):
    """The peer that searches for the blocks must find them."""
    tools = json.loads((EXAMPLE / FILES[0]).read_text("utf-8"))["tools"]
    found = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    expected = f"{len(tools) + 8}\n"
    if found != expected:
        sys.exit(f"find_blocks.py: expected {expected.strip()} blocks, found {found.strip()}")


def files_of(root):
    return [str(root / file) for file in FILES]


def commands_by_size(build, directory):
    """A check of a repository of so many tools, and the least that it can cost, by size."""
    for size in SIZES:
        root = pathlib.Path(directory, str(size))
        subprocess.run([f"{build}/bench/make_repository", root, str(size)], check=True)
        yield size, {"check": [f"{build}/gen_registry_docs", "--check", "--root", str(root)],
                     "parse": [f"{build}/bench/parse_files", *files_of(root)]}


def commands_of_layouts(build, directory):
    """A check of what layouts make of a saved answer, and the least that it can cost."""
    root = pathlib.Path(directory, "answered")
    subprocess.run([f"{build}/bench/make_repository", root, "1000", "answer"], check=True)
    files = [str(root / name) for name in ("answer.json", "registry-docs.json", "README.md")]
    program = [f"{build}/gen_registry_docs", "--root", str(root), "--tools", files[0]]
    subprocess.run([*program, "--write", "--quiet", "--save-tools", files[0]], check=True)
    return {"check": [*program, "--check"], "parse": [f"{build}/bench/parse_files", *files],
            "document": [f"{build}/bench/parse_document", *files]}


def offline(build, layouts):
    """The check of those layouts from the snapshot of the answer."""
    root = pathlib.Path(layouts["document"][1]).parent
    (root / "registry-docs.json").write_text(json.dumps({
        "files": [{"path": "README.md", "blocks": ["tools", "reference"]}],
        "server": {"command": "none"}, "snapshot": "answer.json"}))
    check = [f"{build}/gen_registry_docs", "--root", str(root), "--check", "--offline"]
    return {"offline": check, "document": layouts["document"]}


def recursion(build, directory):
    """A check of all repositories below a directory, and of the same ones when they are named."""
    top = pathlib.Path(directory, "sixty")
    tools = [{"name": f"tool_{i}", "description": "Does it.", "inputSchema": {
        "type": "object", "properties": {"a": {"type": "string", "description": "What"}}}} for i in range(20)]
    roots = [top / f"server_{i:02}" for i in range(60)]
    for root in roots:
        (root / "src").mkdir(parents=True)
        for i in range(30):
            (root / "src" / f"{i}.ts").touch()
        (root / "registry-docs.json").write_text(json.dumps({
            "tools": tools, "files": [{"path": "README.md", "blocks": ["tools", "reference"]}]}))
        (root / "README.md").write_text("".join(
            f"<!-- registry:{name} -->\n<!-- /registry:{name} -->\n" for name in ("tools", "reference")))
    program = f"{build}/gen_registry_docs"
    subprocess.run([program, "--write", "--quiet", "--recursive", str(top)], check=True)
    return {"recursive": [program, "--check", "--recursive", str(top)],
            "named": [program, "--check", *map(str, roots)]}


def asking(build, directory):
    """A live check and the least that asking its server can cost; and servers that take a second
    before they answer, one and twenty."""
    server = ["/usr/bin/python3", "-I", "-S", str(BENCH / "server.py")]
    root = pathlib.Path(directory, "live")
    root.mkdir()
    (root / "README.md").write_text("<!-- registry:count -->\n<!-- /registry:count -->\n")
    (root / "registry-docs.json").write_text(json.dumps({
        "files": [{"path": "README.md", "blocks": ["count"]}],
        "server": {"command": server[0], "args": [*server[1:], "0.3"]}}))
    requests = root / "requests"
    check = [f"{build}/gen_registry_docs", "--root", str(root), "--check"]
    subprocess.run([*check[:-1], "--write"], check=True, stdout=subprocess.DEVNULL,
                   env={**os.environ, "REQUESTS": str(requests)})
    several = f"{build}/bench/bench_ask_servers"
    live = {"live": check, "least": [f"{build}/bench/ask_once", str(requests), *server, "0.3"]}
    slow = {"one": [several, "1", *server, "1"], "twenty": [several, "20", *server, "1"]}
    return live, slow


def memory_per_byte(check):
    """The peak of a check, to the bytes of its files."""
    _, status, usage = os.wait4(os.posix_spawn(check[0], check, os.environ), 0)
    if status != 0:
        sys.exit(f"{check}: expected exit status 0")
    return (usage.ru_maxrss << 10) / sum(map(os.path.getsize, files_of(pathlib.Path(check[-1]))))


def main():
    build, rounds = sys.argv[1], int(sys.argv[2])
    with tempfile.TemporaryDirectory() as directory:
        results = f"{directory}/results"
        example = commands(build)
        require_blocks_found(example["regex"])
        measured = {"rounds": [round_of(example, results) for _ in range(rounds)], "sizes": {}}
        for size, both in commands_by_size(build, directory):
            # A check of few tools is over soon, and so must be measured more often.
            count = max(5, rounds * SIZES[0] // size)
            measured["sizes"][size] = [round_of(both, results) for _ in range(count)]
        layouts = commands_of_layouts(build, directory)
        measured["layouts"] = [round_of(layouts, results) for _ in range(rounds)]
        kept = offline(build, layouts)
        measured["offline"] = [round_of(kept, results) for _ in range(rounds)]
        below = recursion(build, directory)
        measured["recursive"] = [round_of(below, results) for _ in range(rounds)]
        live, slow = asking(build, directory)
        measured["live"] = [round_of(live, results)
                            for _ in range(max(5, rounds // 10))]
        measured["slow"] = [round_of(slow, results) for _ in range(max(3, rounds // 200))]
        measured["memory per byte"] = memory_per_byte(both["check"])
    print(json.dumps(measured))


if __name__ == "__main__":
    main()
