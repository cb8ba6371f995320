#!/usr/bin/env python3
"""Prints docs/performance.md from what was measured, and writes what its plot is drawn from.

usage: report.py SUITES.json PROCESSES.json GROWTH.dat
"""

import json
import math
import pathlib
import platform
import re
import statistics
import subprocess
import sys
from collections import defaultdict

HEAD = """# Performance

`scripts/bench` wrote this file and the plot; no figure in it was typed by hand. It measured on
{machine}.

Every figure is the ratio of two times, of what stands first to what stands beside it, both
taken in every round of one run, in random order: the median of the rounds, and the range from
their tenth to their ninetieth percentile. Whole processes are timed by the clock, everything
else in processor time. Beside a size, the figure is the exponent with which the time grows: 1
is linear, 2 quadratic.

| what | beside | target | measured | range | met |
| --- | --- | --- | --- | --- | --- |
"""
FOOT = """
![Time by size](performance.svg)
"""


class Measured:
    """Times by benchmark and size, one for each round, and by process."""

    def __init__(self, suites, processes):
        self.suites = defaultdict(lambda: defaultdict(list))
        for run in suites["benchmarks"]:
            if run["run_type"] == "iteration":
                name, _, size = run["run_name"].rpartition("/")
                self.suites[name][int(size)].append(run["cpu_time"])  # in nanoseconds
        self.suites = {name: dict(sorted(self.suites[name].items()))
                       for name in sorted(self.suites)}
        self.processes = processes["rounds"]
        self.sizes = {int(size): rounds for size, rounds in processes["sizes"].items()}
        self.layouts = processes["layouts"]
        self.live, self.slow = processes["live"], processes["slow"]
        self.offline, self.recursive = processes["offline"], processes["recursive"]
        self.memory = processes["memory per byte"]

    def process_ratio(self, ours, peer):
        return [times[ours] / times[peer] for times in self.processes]

    def ratio(self, ours, peer, size):
        pairs = zip(self.suites[ours][size], self.suites[peer][size], strict=True)
        return [one / other for one, other in pairs]

    def growth(self, name):
        return growth(self.suites[name])

    def growth_of_processes(self, name):
        # There are fewer rounds of the larger sizes.
        return growth({size: [times[name] for times in rounds]
                       for size, rounds in self.sizes.items()})


def growth(times_by_size):
    """The exponent with which the time grows, of each round."""
    sizes = [math.log(size) for size in times_by_size]
    return [statistics.linear_regression(sizes, list(map(math.log, times))).slope
            for times in zip(*times_by_size.values())]


def rows(measured):
    """What is measured, the peer, the target ("<" or ">", and a limit) if any, the figures."""
    process, ratio, growth = measured.process_ratio, measured.ratio, measured.growth
    example, whole = "`--check` of the example, whole process", 100_000_000
    yield example, "a C program that reads its files", "<1.3", process("check", "read")
    yield "`cat` of those files", "the same", None, process("cat", "read")
    yield "python3 with `re` on those files", example, ">12", process("regex", "check")
    yield "`--write` with nothing to change", example, "<1.5", process("write", "check")
    yield ("PCRE2 (JIT), 100 MB with 100,000 blocks", "the scan", ">10",
           ratio("pcre2/blocks", "scan/blocks", whole))
    for text, limit in {"blocks": 3, "prose": 1.15, "html": 20}.items():
        yield (f"scan of 100 MB of {text}", "`memchr`", f"<{limit}",
               ratio(f"scan/{text}", f"memchr/{text}", whole))
    for name in measured.suites:
        if name.startswith("scan/") and len(measured.suites[name]) > 1:
            what = name.removeprefix("scan/").replace("_", " ")
            yield f"scan of {what}", "its size", "<1.1", growth(name)
    for size, rounds in measured.sizes.items():
        yield (f"`--check` of {size:,} tools, whole process", "RapidJSON alone, and reading",
               "<3", [times["check"] / times["parse"] for times in rounds])
    yield ("`--check` of `tools` and `reference`, an answer of 1,000 tools, whole process",
           "RapidJSON's document of the answer, and reading", "<3",
           [times["check"] / times["document"] for times in measured.layouts])
    yield ("the same", "RapidJSON alone, and reading", None,
           [times["check"] / times["parse"] for times in measured.layouts])
    yield ("the same with `--offline`, from a snapshot",
           "RapidJSON's document of the answer, and reading", "<3",
           [times["offline"] / times["document"] for times in measured.offline])
    yield ("`--check --recursive` of 60 repositories", "the same ones, named", "<1.2",
           [times["recursive"] / times["named"] for times in measured.recursive])
    yield ("`--check` of 1,000 to 100,000 tools, whole process", "its tools", "<1.1",
           measured.growth_of_processes("check"))
    yield ("peak memory of a check of 100,000 tools", "the bytes of its files", "<4",
           [measured.memory])
    yield ("`--check` with a live server that takes 0.3 s", "a C program that sends it the same", "<1.05",
           [times["live"] / times["least"] for times in measured.live])
    yield ("asking 20 servers that take a second each", "asking one", "<2",
           [times["twenty"] / times["one"] for times in measured.slow])
    for text in ("ascii", "prose", "no_ascii"):
        yield (f"UTF-8 validation, {text.replace('_', ' ')}", "utf8proc alone", None,
               ratio(f"utf8/find_ill_formed/{text}", f"utf8/utf8proc/{text}", 1_000_000))
    yield ("reading a registry of 10,000 tools", "RapidJSON alone", None,
           ratio("registry/document", "registry/rapidjson", 10_000))
    yield ("spelling of 10,000 doubles", "std::to_chars", None,
           ratio("value/list", "value/to_chars", 10_000))
    for name in measured.suites:
        if name.startswith("render/") and not name.startswith("render/params"):
            yield f"rendering of `{name.removeprefix('render/')}`", "its tools", None, growth(name)


def line(what, beside, target, figures):
    median = statistics.median(figures)
    limits = statistics.quantiles(figures, n=10, method="inclusive") if len(figures) > 1 else [median]
    met, said = "", ""
    if target:
        limit = float(target[1:])
        met = "yes" if (median <= limit if target[0] == "<" else median >= limit) else "**no**"
        said = target.replace("<", "at most ").replace(">", "at least ")
    spread = f"{limits[0]:.2f} to {limits[-1]:.2f}"
    return f"| {what} | {beside} | {said} | {median:.2f} | {spread} | {met} |"


def machine():
    processor = re.search("model name\\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())[1]
    compiler = subprocess.run(["c++", "--version"], check=True, capture_output=True, text=True)
    return f"{processor}, Linux {platform.release()},\n{compiler.stdout.splitlines()[0]}"


def growth_data(measured):
    """Size and median time in seconds of each benchmark and process, as gnuplot reads them by
    name."""
    for name, times in measured.suites.items():
        yield f"# {name}"
        yield from (f"{size} {statistics.median(times[size]) / 1e9}" for size in times)
        yield "\n"
    for name in ("check", "parse"):
        yield f"# process/{name}"
        yield from (f"{size} {statistics.median(times[name] for times in rounds)}"
                    for size, rounds in measured.sizes.items())
        yield "\n"


def main():
    suites, processes, growth = map(pathlib.Path, sys.argv[1:])
    measured = Measured(json.loads(suites.read_text()), json.loads(processes.read_text()))
    growth.write_text("\n".join(growth_data(measured)))
    print(HEAD.format(machine=machine()), end="")
    for row in rows(measured):
        print(line(*row))
    print(FOOT, end="")


if __name__ == "__main__":
    main()
