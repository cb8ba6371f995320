"""Lets each system call of asking two servers fail in turn, and interrupts the asking of six at
random moments, and begins it in odd ways: each server that fails has one clear message, and no
process is left."""

import collections
import errno
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import tempfile
import time

ASK, SERVER = os.environ["ASK_SERVERS"], pathlib.Path(__file__).parents[1] / "mcp_client/server.py"
MARK, SEED, RUNS = f"asked-by-{os.getpid()}", 20, 100  # RUNS of each signal
SCRIPT = ("subprocess.Popen(['sleep', '60']); greet('prompts'); page('[1]'); "
          "page('[]', '', 'prompts/list')")
COMMAND = ["/usr/bin/python3", str(SERVER), SCRIPT]
ENV = {**os.environ, "VERSION": "0.1.0", "MARK": MARK}
ANSWER = '{"tools":[1],"prompts":[]}\n'
ERRORS = {  # a call that is not here ends the tests, so that somebody thinks about it
    "openat": "EMFILE ENFILE EACCES", "eventfd2": "EMFILE ENOMEM",
    "epoll_create1": "EMFILE ENFILE ENOMEM", "pipe2": "EMFILE ENFILE", "clone": "EAGAIN ENOMEM",
    "fcntl": "EINTR", "read": "EINTR EIO", "write": "EINTR EIO EPIPE", "epoll_wait": "EINTR",
    "wait4": "EINTR"}
# These cannot fail, or a system that cannot carry them out leaves nothing to be done. A call
# that strace keeps from a close or a kill would be what no system does: nothing happens then.
UNTRIED = {"close", "kill", "epoll_ctl", "rt_sigprocmask", "rt_sigaction", "rt_sigreturn", "futex",
           "brk", "mmap", "munmap", "mremap", "ioctl", "getpid", "gettid", "prlimit64"}
SERVERS = re.compile(r'read\(\d+, .*, 65536\)|write\(\d+, "\{')  # of a pipe to or from one
MESSAGE = re.compile(r"[12]: expected (.*), found (.*)\n")
BEGINNINGS = {  # what the program may find when it starts
    "ends of children ignored": lambda: signal.signal(signal.SIGCHLD, signal.SIG_IGN),
    "signals blocked": lambda: signal.pthread_sigmask(
        signal.SIG_BLOCK, [signal.SIGCHLD, signal.SIGPIPE, signal.SIGTERM]),
    "no standard input": lambda: os.close(0), "no standard error": lambda: os.close(2),
    "neither": lambda: (os.close(0), os.close(2))}
TABLE, CHANCE = collections.Counter(), random.Random(SEED)


def left():
    """The processes that servers were, or have started."""
    for place in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"MARK={MARK}".encode() in (place / "environ").read_bytes().split(b"\0"):
                yield int(place.name)
        except OSError:
            pass  # It is gone.


def kill_left():
    for number in left():
        os.kill(number, signal.SIGKILL)


def expect_nothing_left(what):
    """What was killed may take a moment to go."""
    end = time.monotonic() + 5
    while remaining := list(left()):
        if time.monotonic() > end:
            kill_left()
            raise AssertionError(f"{what}: processes are left: {remaining}")
        time.sleep(0.01)


def asked(*injections):
    with tempfile.NamedTemporaryFile("r") as log:
        done = subprocess.run(
            ["strace", "-s", "20", "-o", log.name, *(f"--inject={i}" for i in injections), ASK, "2", *COMMAND],
            env=ENV, capture_output=True, text=True, check=False, timeout=60)
        return done, log.read().splitlines()


def calls():
    """Those of asking: name, the how-manieth, and whether it surely is one on a server's pipe: from
    the first answer on, the order of calls differs from run to run."""
    done, lines = asked()
    assert (done.returncode, done.stdout) == (0, ANSWER * 2), done
    counts, is_asking, is_answered = collections.Counter(), False, False
    for line in lines:
        if re.match(r"\w+\(1, ", line):
            return  # what was asked is printed
        name = line.partition("(")[0]
        counts[name] += 1
        is_asking |= '"/dev/null"' in line
        if is_asking and name.isidentifier() and name not in UNTRIED:
            is_of_server = SERVERS.match(line) is not None
            yield name, counts[name], is_of_server and not is_answered
            is_answered |= is_of_server and name == "read"


def outcome(done, lines, error):
    reason = os.strerror(getattr(errno, error))
    if done.returncode == 0:
        assert done.stdout == ANSWER * 2, done
        return "answered"
    if done.returncode == -signal.SIGABRT:  # before the first server, by libuv or by an exception
        assert not any(line.startswith("clone(") for line in lines), done
        told = re.search(rf"what\(\):  \S+: {reason}\n", done.stderr)
        assert told or not done.stderr, done
        return "refused" if told else "ended by libuv"
    assert done.returncode == 1, done
    lines = [line for line in done.stdout.splitlines(keepends=True) if not line.startswith("  ")]
    assert len(lines) == 2 and all(MESSAGE.fullmatch(line) or line == ANSWER for line in lines), done
    return "one failed, the other answered" if ANSWER in lines else "both failed"


def try_out(name, number, error):
    done, lines = asked(f"{name}:error={error}:when={number}")
    hit = next((line for line in lines if "(INJECTED)" in line), "")
    if not hit:
        return expect_nothing_left(f"{name} {number} not reached")
    # What libuv reads and writes for itself, in pipes within the program, cannot fail.
    is_right = error == "EINTR" or name not in ("read", "write") or SERVERS.match(hit)
    assert is_right, f"{name} {number}: expected one on a server's pipe, found {hit}"
    TABLE[name, error, outcome(done, lines, error)] += 1
    expect_nothing_left(f"{name} {number} {error}")


def interrupt(number, delay):
    with subprocess.Popen([ASK, "6", *COMMAND], env=ENV, stdout=subprocess.DEVNULL) as asking:
        time.sleep(delay)
        asking.send_signal(number)
    expect_nothing_left(f"{number.name} after {delay:.6f} s")
    assert asking.returncode in (0, -number), asking.returncode
    TABLE[number.name, "", "interrupted" if asking.returncode else "too late"] += 1


for name, prepare in BEGINNINGS.items():
    done = subprocess.run([ASK, "2", *COMMAND], env=ENV, capture_output=True, text=True, check=False,
                          preexec_fn=prepare, timeout=60)
    assert (done.returncode, done.stdout) == (0, ANSWER * 2), (name, done)
    expect_nothing_left(name)
for each, nth, is_of_server in list(calls()):
    for way in ERRORS[each].split():
        if way == "EINTR" or each not in ("read", "write") or is_of_server:
            try_out(each, nth, way)
for interruption in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT):
    signal.signal(interruption, signal.default_int_handler)
start = time.perf_counter()
subprocess.run([ASK, "6", *COMMAND], env=ENV, stdout=subprocess.DEVNULL, check=True)
usual = time.perf_counter() - start
print(f"seed {SEED}: asking is interrupted, at random within {usual * 1000:.1f} ms")
for each in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT) * RUNS:
    interrupt(each, CHANCE.uniform(0, usual))
for row, times in sorted(TABLE.items()):
    print("{:16}{:8}{:5}  {}".format(*row[:2], times, row[2]))
hit = {row[:2] for row in TABLE}
missed = [(name, way) for name, ways in ERRORS.items() for way in ways.split() if (name, way) not in hit]
assert not missed, f"not hit: {missed}"
assert TABLE["SIGTERM", "", "interrupted"], "none came in time"
