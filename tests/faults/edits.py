"""Edits a file while it is rewritten: that is reported, and the edit stands."""

import os
import re
import signal
import subprocess
import tempfile
import time

from stale import FILES, Copy

AT, FILE = 3, FILES[3]
WRITTEN, READ = "the text that was written", "the text that was read before"


def append(path, text):
    with path.open("ab") as file:
        file.write(text)


def replace(path, text):
    path.with_suffix(".new").write_bytes(text)
    path.with_suffix(".new").rename(path)


def truncate(path, text):
    path.write_bytes(text)


# The edit, behind which call it comes, counted from the opening for writing on, and what the
# message says was expected.
EDITS = ((append, "close", -1, READ), (replace, "close", -1, READ),
         (replace, "openat", 0, READ), (append, "pwrite64", 0, WRITTEN),
         (replace, "pwrite64", 0, WRITTEN), (truncate, "fdatasync", 0, WRITTEN))


def write(copy, log, *injection):
    """A write, begun."""
    copy.renew()
    command = ["strace", "-f", "-y", "-s0", "-o", log.name, *injection, *copy.command, "--write"]
    return subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)


def count_before_opening(copy, call):
    """How often a write makes the call before it opens the file for writing."""
    with tempfile.NamedTemporaryFile("r") as log:
        write(copy, log).communicate()
        before = re.split(rf'openat\(.*{copy.root}/{FILE}", O_RDWR', log.read())[0]
    return len(re.findall(rf"^\d+ +{call}\(", before, re.MULTILINE))


def stopped(writing, log):
    """The program's process, as soon as the signal has stopped it."""
    while not (stop := re.search(r"^(\d+) +--- stopped by SIGSTOP", log.read(), re.MULTILINE)):
        assert writing.poll() is None, "it was not stopped"
        log.seek(0)
        time.sleep(0.001)
    return int(stop[1])


def expect_report(copy, edit, call, turn, expected):
    number = count_before_opening(copy, call) + 1 + turn
    with tempfile.NamedTemporaryFile("r") as log:
        writing = write(copy, log, f"--inject={call}:signal=SIGSTOP:when={number}")
        process = stopped(writing, log)
        edit(copy.root / FILE, b"Edited.\n")
        edited = (copy.root / FILE).read_bytes()
        os.kill(process, signal.SIGCONT)
        said = writing.communicate()[1]
    message = (f"{copy.root}/{FILE}: expected {expected}, found another: "
               "some other program writes it too\n")
    assert (writing.returncode, said) == (2, message), said
    assert copy.bytes() == [*copy.new[:AT], edited, *copy.old[AT + 1:]], "the edit is lost"
    print(f"{edit.__name__:9} behind {call:10} reported, and the edit stands")


with tempfile.TemporaryDirectory() as place:
    repository = Copy(place, ["stays as long"] * len(FILES))
    for case in EDITS:
        expect_report(repository, *case)
