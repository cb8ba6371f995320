"""Edits a file while it is rewritten: that is reported, and the edit stands."""

import os
import signal
import subprocess
import tempfile

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


# The edit, behind the how-manieth of which call on the file it comes, and what the message
# says was expected.
EDITS = ((append, "close", 2, READ), (replace, "close", 2, READ), (replace, "openat", 3, READ),
         (append, "pwrite64", 1, WRITTEN), (replace, "pwrite64", 1, WRITTEN),
         (truncate, "fdatasync", 1, WRITTEN))


def expect_report(copy, edit, call, number, expected):
    copy.renew()
    path = copy.root / FILE
    writing = subprocess.Popen(
        ["strace", "-D", "-o", "/dev/null", "-P", path,
         f"--inject={call}:signal=SIGSTOP:when={number}", *copy.command, "--write"],
        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    os.waitid(os.P_PID, writing.pid, os.WSTOPPED | os.WEXITED | os.WNOWAIT)
    edit(path, b"Edited.\n")
    edited = path.read_bytes()
    writing.send_signal(signal.SIGCONT)
    said = writing.communicate()[1]
    message = f"{path}: expected {expected}, found another: some other program writes it too\n"
    assert (writing.returncode, said) == (2, message), said
    assert copy.bytes() == [*copy.new[:AT], edited, *copy.old[AT + 1:]], "the edit is lost"
    print(f"{edit.__name__:9} behind {call:10} reported, and the edit stands")


with tempfile.TemporaryDirectory() as place:
    repository = Copy(place, ["stays as long"] * len(FILES))
    for case in EDITS:
        expect_report(repository, *case)
