#!/usr/bin/env python3
"""Times whole processes on the example with hyperfine, and takes the most memory of a check of
a large repository. Prints both as JSON.

A round runs every command once, in an order of its own: what else the machine does, and what
ran before, falls on all alike. (Of ten runs in a row, nine find their own code in the caches,
which flatters the smallest program most.) What the commands print goes nowhere.

usage: processes.py BUILD ROUNDS TOOLS
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


def commands(build):
    """What is measured, by name."""
    program = [f"{build}/gen_registry_docs", "--root", str(EXAMPLE)]
    files = [str(EXAMPLE / file) for file in FILES]
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


def memory_per_byte(build, tools, directory):
    """Of a check of a repository of so many tools: its peak, to the bytes of its files."""
    root = pathlib.Path(directory, "root")
    subprocess.run([f"{build}/bench/make_repository", root, str(tools)], check=True)
    check = [f"{build}/gen_registry_docs", "--check", "--root", str(root)]
    _, status, usage = os.wait4(os.posix_spawn(check[0], check, os.environ), 0)
    if status != 0:
        sys.exit(f"{check}: expected exit status 0")
    return (usage.ru_maxrss << 10) / sum((root / file).stat().st_size for file in FILES)


def main():
    build, rounds, tools = sys.argv[1:]
    measured = commands(build)
    require_blocks_found(measured["regex"])
    with tempfile.TemporaryDirectory() as directory:
        times = [round_of(measured, f"{directory}/results") for _ in range(int(rounds))]
        memory = memory_per_byte(build, tools, directory)
    print(json.dumps({"rounds": times, "memory per byte": memory}))


if __name__ == "__main__":
    main()
