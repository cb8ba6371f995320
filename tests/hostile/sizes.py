"""Checks repositories of hostile sizes: an answer or a refusal, whose time grows in proportion
to the size, and whose memory stays within a small multiple of it."""

import json
import multiprocessing
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

PROGRAM, EXAMPLE = sys.argv[1:]
REGISTRY, README, CONFIG = ("src/tesmo_sorvet/tool_registry.json", "README.md",
                            "src/tesmo_sorvet/setup/config.py")
GROWTH = 8  # of the size; a quadratic time grows 64 times
MOST_GROWTH = 24  # of the time
MOST_MEMORY = 32  # times the size
LEAST_MEMORY = 8 << 20  # what a program may take for nothing


def tool(**members):
    return json.dumps({"tools": [{"name": "t", **members}]})


def marker_error(text):
    return text.startswith("README.md: the markers do not match the blocks it holds (missing ")


def deepest(text):
    return text.endswith("expected at most 256 levels of nesting, found more\n")


def stale(text):
    return "docs/mcp-tools.md: the markers do not match" in text


CASES = {  # the largest size, the file, its text by size, and what must be said of it
    "nested arrays": (4_000_000, REGISTRY, lambda n: "[" * n + "]" * n, deepest),
    "nested objects": (4_000_000, REGISTRY, lambda n: '{"a":' * n + "1" + "}" * n, deepest),
    "members": (400_000, REGISTRY, lambda n: tool(inputSchema={
        "properties": {f"p{i}": {"type": "string"} for i in range(n)}, "required": []}), stale),
    "members, the last one twice": (400_000, REGISTRY,
        lambda n: "{" + "".join(f'"p{i}":1,' for i in range(n)) + f'"p{n - 1}":1}}',
        lambda text: text.endswith('9" a second time\n')),
    "a text": (200_000_000, REGISTRY, lambda n: tool(description="a|b " * (n // 4)), stale),
    "a number": (50_000_000, REGISTRY, lambda n: '{"tools": ' + "1" * n + "}",
        lambda text: text.endswith("111...\n") and len(text) < 999),
    "names": (1_000_000, REGISTRY, lambda n: tool(actions=[f"a{i}" for i in range(n)]), stale),
    "applies_to": (1_000_000, REGISTRY, lambda n: tool(
        actions=["a"], params=[{"name": "p", "applies_to": [f"a{i}" for i in range(n)]}]), stale),
    "backslashes": (50_000_000, CONFIG,
        lambda n: 'TESMO_INSTRUCTION_CONTENT = """' + "\\" * (n // 2 * 2) + '"""\n',
        lambda text: text.startswith(CONFIG + ": the markers do not match")),
    "opening markers": (1_000_000, README,
        lambda n: "".join(f"<!-- registry:n{i} -->\n" for i in range(n)), marker_error),
    "opening markers of one name": (1_000_000, README,
        lambda n: "<!-- registry:n -->\n" * n, marker_error),
    "opening and closing markers": (1_000_000, README,
        lambda n: "<!-- registry:n -->\n" * n + "".join(
            f"<!-- /registry:m{i} -->\n" for i in range(n)), marker_error),
    "blocks": (1_000_000, README, lambda n: "".join(
        f"<!-- registry:n{i} -->\n<!-- /registry:n{i} -->\n" for i in range(n)), marker_error),
    "comment openings": (20_000_000, README, lambda n: "<!-- " * (n // 5), marker_error),
}


def run(command):
    """The text that a command prints, its processor time, and its most memory in bytes."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(command, stdout=output, stderr=output)
        _, _, usage = os.wait4(process.pid, 0)
        process.returncode = 0
        output.seek(0)
        return output.read().decode(), usage.ru_utime + usage.ru_stime, usage.ru_maxrss << 10


def measure(path, root, text, size, is_right):
    before = path.read_bytes()
    # In a process of its own: the memory of this one would be counted as the program's.
    writing = multiprocessing.Process(target=lambda: path.write_text(text(size), "utf-8"))
    writing.start()
    writing.join()
    said, seconds, memory = run([PROGRAM, "--check", "--root", str(root)])
    size = path.stat().st_size
    path.write_bytes(before)
    assert is_right(said), said[:1000]
    return size, seconds, memory


def expect_refusal_without_memory(root):
    (root / REGISTRY).write_text(tool(description="a|b " * 9_999_999), encoding="utf-8")
    said, _, _ = run(["prlimit", "--as=99999999", PROGRAM, "--write", "--root", str(root)])
    assert said == "registry-docs: expected more memory, found none left\n", said


def main():
    failures = 0
    print(f"{'':30}{'bytes':>12}{'growth':>8}{'memory':>8}")
    with tempfile.TemporaryDirectory() as directory:
        root = pathlib.Path(directory) / "root"
        shutil.copytree(EXAMPLE, root)
        for name, (most, file, text, is_right) in CASES.items():
            _, fraction, _ = measure(root / file, root, text, most // GROWTH, is_right)
            size, seconds, memory = measure(root / file, root, text, most, is_right)
            growth = seconds / fraction
            is_small = memory <= LEAST_MEMORY + MOST_MEMORY * size
            # Times of a few milliseconds say nothing.
            failed = not is_small or (growth > MOST_GROWTH and seconds > 0.1)
            failures += failed
            print(f"{name:30}{size:12}{growth:8.1f}{memory / size:8.1f}"
                  + "  FAILED" * failed)
        expect_refusal_without_memory(root)
    sys.exit(failures != 0)


main()
