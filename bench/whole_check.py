#!/usr/bin/env python3
"""Times a whole `--check` of the example beside a static C program that only reads its files.

Prints medians and their ratio. The two run in turn, so that whatever else the machine
does falls on both.

usage: bench/whole_check.py [--runs N] [--program PATH]
"""

import argparse
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

TOP = pathlib.Path(__file__).resolve().parent.parent
EXAMPLE = TOP / "examples" / "tesmo-sorvet"
FILES = [
    "src/tesmo_sorvet/tool_registry.json",
    "src/tesmo_sorvet/setup/skill_text.py",
    "src/tesmo_sorvet/setup/config.py",
    "docs/claude-instructions-template.md",
    "README.md",
    "docs/mcp-tools.md",
]


def seconds(command):
    """The time of one run, which must succeed."""
    begin = time.perf_counter()
    pid = os.posix_spawn(command[0], command, os.environ)
    _, status = os.waitpid(pid, 0)
    end = time.perf_counter()
    if status != 0:
        sys.exit(f"{command[0]}: expected exit status 0, found {os.waitstatus_to_exitcode(status)}")
    return end - begin


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=2000)
    parser.add_argument("--program", default=str(TOP / "build/release/gen_registry_docs"))
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as directory:
        reader = os.path.join(directory, "read_files")
        source = str(TOP / "bench/read_files.c")
        subprocess.run(["cc", "-O2", "-static", "-o", reader, source], check=True)
        commands = {
            "read the six files": [reader] + [str(EXAMPLE / file) for file in FILES],
            "check": [options.program, "--check", "--root", str(EXAMPLE)],
        }
        times = {name: [] for name in commands}
        for _ in range(options.runs):
            for name, command in commands.items():
                times[name].append(seconds(command))
    medians = {name: statistics.median(taken) for name, taken in times.items()}
    for name, taken in times.items():
        low, _, high = statistics.quantiles(taken, n=4)
        print(f"{name}: median {medians[name] * 1e6:.0f} us (quartiles {low * 1e6:.0f} to {high * 1e6:.0f})")
    print(f"ratio: {medians['check'] / medians['read the six files']:.2f}")


if __name__ == "__main__":
    main()
