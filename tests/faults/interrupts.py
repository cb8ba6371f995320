"""Interrupts writes at random moments, and looks at what became of the files."""

import collections
import os
import random
import signal
import subprocess
import tempfile
import time

from stale import Copy

SEED, RUNS, KILLS = 20, 667, 200  # RUNS of each kind
KINDS = ("grows", "shrinks", "stays as long", "grows", "shrinks")
END = b"# Text that is written by hand.\n" * 16384  # half a MiB behind the blocks of each file
INTERRUPTS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)
ROOM = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
TABLE, CHANCE = collections.Counter(), random.Random(SEED)


def ended(copy, number=0, delay=0.0):
    """A write that is sent the signal: how long it ran, how it ended, how each file stands."""
    copy.renew()
    start = time.perf_counter()
    with subprocess.Popen([*copy.command, "--write"], stdout=subprocess.DEVNULL) as write:
        time.sleep(delay)
        write.send_signal(number)
    return time.perf_counter() - start, write.returncode, [
        "old" if now == old else "new" if now == new else "TORN"
        for old, new, now in zip(copy.old, copy.new, copy.bytes())]


def interrupt(copy, number, delay):
    """Counts when it came, as the files show it. Only a kill tears one, the one in hand."""
    _, status, files = ended(copy, number, delay)
    news, what = files.count("new"), f"{number.name} after {delay:.6f} s: "
    torn = ["TORN"] if number == signal.SIGKILL and "TORN" in files else []
    when = "before" if not news and not torn else "in" if news < len(files) else "after"
    TABLE[number.name, f"{when} the writing" if status else "too late"] += 1
    expected = ["new"] * news + torn + ["old"] * (len(files) - news - len(torn))
    assert files == expected, what + str(files)
    assert status == -number or (status, news) == (0, len(files)), what + str(status)
    if not torn:
        copy.expect_fixed_by_a_write()


for interruption in INTERRUPTS:
    # A shell may have had it ignored, and what has a handler here has none in the program.
    signal.signal(interruption, signal.default_int_handler)
with tempfile.TemporaryDirectory(dir=ROOM) as place:
    repository = Copy(place, KINDS, END)
    usual = sorted(ended(repository)[0] for _ in range(21))[10]
    print(f"seed {SEED}: writes are interrupted, at random within {usual * 1000:.1f} ms")
    for each in (*INTERRUPTS * RUNS, *(signal.SIGKILL,) * KILLS):
        interrupt(repository, each, CHANCE.uniform(0, usual))
for row, times in sorted(TABLE.items()):
    print("{:8}{:5}  {}".format(row[0], times, row[1]))
assert all(TABLE[number.name, "in the writing"] for number in INTERRUPTS), "none came in time"
