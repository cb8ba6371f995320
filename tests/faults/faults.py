"""Lets each system call on a file of the repository fail in turn, in every way it can."""

import collections
import errno
import itertools
import os
import re
import subprocess
import sys
import tempfile

from stale import FILES, Copy

SCENARIOS = (("grows", "shrinks", "stays as long", "grows", "shrinks"),
             ("stays as long", "stays as long", "grows", "shrinks", "grows"))
ERRORS = {  # a call that is not here ends the tests, so that somebody thinks about it
    "openat": "EACCES EROFS EIO EINTR EMFILE ENOMEM ENOSPC EDQUOT", "newfstatat": "EIO ENOMEM", "access": "EACCES EIO",
    "read": "EIO EINTR", "lseek": "EIO", "pwrite64": "EIO EINTR ENOSPC EDQUOT EFBIG",
    "fallocate": "EIO EINTR ENOSPC EDQUOT EFBIG EOPNOTSUPP ENOSYS", "ftruncate": "EIO EINTR EROFS",
    "fdatasync": "EIO EINTR ENOSPC EDQUOT EINVAL", "close": "EIO EINTR ENOSPC EDQUOT"}
HARMLESS = ("EINTR", "EINVAL", "EOPNOTSUPP", "ENOSYS")
CLAIMS = {"": (), ", no claim": ("fallocate:error=EOPNOTSUPP",)}  # of room, before a write
SHORT = re.compile(r"write\w*\(.*, (\d+), \d+\) += (?!\1$)\d+$")
FILL = ('head -c $((($(stat -fc %f .) - $0) * 4096)) /dev/zero >filler || exit; "$@"; status=$?; '
        'rm filler; exit $status')
# `file` is the one with the fault, `size` the limit of files, `free` the free pages of the disk.
Fault = collections.namedtuple("Fault", "what where error injections file size free",
                               defaults=(None, "unlimited", None))
TABLE = collections.Counter()


def written(copy, fault):
    """A write that meets the fault: its end, and its system calls."""
    with tempfile.NamedTemporaryFile("r") as log:
        done = subprocess.run(
            [*(["sh", "-c", FILL, str(fault.free)] if fault.free is not None else []),
             "strace", "-y", "-s0", "-o", log.name, *(f"--inject={i}" for i in fault.injections),
             "prlimit", f"--fsize={fault.size}", *copy.command, "--write"],
            cwd=copy.root.parent, capture_output=True, text=True, check=False)
        return done, log.read().splitlines()


def calls(copy):
    """What an undisturbed write calls for its files: name, where, the how-manieth, file."""
    counts, passes, later, opened = collections.Counter(), 0, {}, set()
    files = "|".join(("src/tesmo_sorvet/tool_registry.json", *FILES))
    path = re.compile(f'[<"]{copy.root}/({files})[>"]')
    for line in written(copy, Fault("", "", "", ()))[1]:
        counts[name := line.partition("(")[0]] += 1
        if match := path.search(line):
            passes += name == "openat" and match[1] == FILES[0]
            if re.search("O_RDWR|O_WRONLY", line):
                later[match[1]] = "rewriting"
            opened |= {match[1]} if name == "openat" else set()
            read = "first read" if passes < 2 else "second read"
            read = read if match[1] in opened else "unread"
            yield name, later.get(match[1], read), counts[name], match[1]
            if name == "fdatasync":
                later[match[1]] = "looking back"


def faults(copy):
    """Every error of every call, alone and with all later changes failing too; small limits."""
    changes = {"pwrite64": 1, "ftruncate": 1, "fdatasync": 1}  # the next one's number
    for name, where, number, file in calls(copy):
        for error in ERRORS[name].split():
            yield Fault(name, where, error, [f"{name}:error={error}:when={number}"], file)
        if not where.endswith("read"):
            later = {**changes, name: number}.items()
            rules = [f"{change}:error=EIO:when={nth}+" for change, nth in later]
            yield Fault(name, where, "EIO, later too", rules, file)
        if name in changes:
            changes[name] += 1
    sizes = {max(0, len(text) + more) for text in copy.old + copy.new for more in (-4096, -1, 0, 1)}
    for size, claim in itertools.product(sizes | {1 << 20}, CLAIMS):
        yield Fault("size limit", "rewriting", "EFBIG" + claim, CLAIMS[claim], size=size)


def outcome(copy, fault, done, lines):
    """What the write came to; fails unless each file is as it must be then."""
    now, old, new = copy.bytes(), copy.old, copy.new
    hit = next((line for line in lines if "(INJECTED)" in line), "")
    assert not fault.file or fault.what in hit and fault.file in hit, "it did not hit"
    is_harmless = (fault.error in HARMLESS or fault.where == "unread" or  # its size is but a hint
                   fault.what == "access" or  # what it looks for is read next
                   fault.what == "close" and "read" in fault.where)
    if is_harmless or (done.returncode == 0 and not fault.file):
        assert (done.returncode, done.stderr, now) == (0, "", new), "not all written"
        return "all written"
    file, _, reason = done.stderr.removeprefix(f"{copy.root}/").partition(": ")
    assert (done.returncode, done.stdout) == (2, ""), "not reported"
    assert file in ([fault.file] if fault.file else FILES), "another file named"
    at = FILES.index(file) if fault.where != "first read" else 0
    assert now[:at] == new[:at] and now[at + 1:] == old[at + 1:], "a wrong file changed"
    text = "old text" if now[at] == old[at] else "new text" if now[at] == new[at] else "TORN"
    said = os.strerror(getattr(errno, fault.error.partition(",")[0]))
    if re.fullmatch(f"{said}; .+: {said}\n", reason) and "later" in fault.error:
        return "both reported, " + text
    assert reason == said + "\n", "a wrong reason"
    assert text == "old text" or text == "new text" and fault.where == "looking back", text
    return "reported, " + text


def try_out(copy, fault):
    """Counts what the fault comes to; a file that it tears is torn for good."""
    copy.renew()
    done, lines = written(copy, fault)
    try:
        result = outcome(copy, fault, done, lines)
        if "TORN" not in result:
            copy.expect_fixed_by_a_write()
        result += ", after a short write" if any(map(SHORT.search, lines)) else ""
    except (AssertionError, subprocess.CalledProcessError) as error:
        result = "FAILED"
        print(f"FAILED, {error}: {fault}\n  {done}")
    TABLE[(*fault[:3], result)] += 1


for kinds in SCENARIOS:
    with tempfile.TemporaryDirectory() as place:
        repository = Copy(place, kinds)
        for each in faults(repository):
            try_out(repository, each)
with tempfile.TemporaryDirectory() as place:
    mount = ["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", place]
    is_mounted = subprocess.run(mount, check=False).returncode == 0
    try:
        repository = Copy(place, ["grows"] * len(FILES))
        for pages, way in itertools.product(range(12) if is_mounted else (), CLAIMS):
            each = Fault("full disk", "rewriting", "ENOSPC" + way, CLAIMS[way], free=pages)
            try_out(repository, each)
    finally:
        if is_mounted:
            subprocess.run(["umount", place], check=True)
for row, times in sorted(TABLE.items()):
    print("{:12}{:13}{:17}{:5}  {}".format(*row[:3], times, row[3]))
if not is_mounted:
    print("SKIPPED, SKIPPED, SKIPPED: the full disk; mounting is not permitted")
print(f"{TABLE.total()} faults, {sum(TABLE[row] for row in TABLE if row[3] == 'FAILED')} FAILED")
sys.exit("FAILED" in str(TABLE) or "both" not in str(TABLE) or "short" not in str(TABLE))
