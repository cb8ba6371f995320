"""Installs the npm packages in the ways there are, from a registry that serves nothing else."""

import base64
import hashlib
import http.server
import io
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tarfile
import tempfile
import threading
import time
import unittest

from support import CAPTURED, FILES, PROGRAMS, VERSION, assert_runs, made, pack

PNPM = ["node", os.environ["PNPM"]]
PROJECT = {"package.json": '{"private": true, "scripts": {"docs": "registry-docs"}}'}
WORKSPACE = {"package.json": '{"private": true, "workspaces": ["server"]}',
             "server/package.json": '{"name": "server", "version": "1.0.0",'
                                    ' "scripts": {"docs": "registry-docs"},'
                                    ' "devDependencies": {"registry-docs": "1.2.3"}}'}
BIN = "node_modules/.bin/registry-docs"
INSTALL = ["npm", "install", "registry-docs"]
INSTALLS = {  # the files, how they are set up, where the program runs and how it is called
    "a project": (PROJECT, [INSTALL], ".", ["{0}/" + BIN]),
    "without scripts": (PROJECT, [INSTALL + ["--ignore-scripts"]], ".", ["{0}/" + BIN]),
    "a script": (PROJECT, [INSTALL], ".", ["npm", "run", "--silent", "docs", "--"]),
    "npx": (PROJECT, [INSTALL], ".", ["npx", "--no", "registry-docs", "--"]),
    "a lock file": (PROJECT, [INSTALL, ["rm", "-r", "node_modules"], ["npm", "ci"]], ".", ["{0}/" + BIN]),
    "global": ({}, [INSTALL + ["--global", "--prefix", "{0}/g h"]], ".", ["{0}/g h/bin/registry-docs"]),
    "a workspace": (WORKSPACE, [["npm", "install"]], "server", ["{0}/" + BIN]),
    "a workspace's script": (WORKSPACE, [["npm", "install"]], "server",
                             ["npm", "run", "--silent", "docs", "--"]),
    "pnpm": (PROJECT, [PNPM + ["add", "registry-docs"]], ".", ["{0}/" + BIN]),
    "pnpm's script": (PROJECT, [PNPM + ["add", "registry-docs"]], ".",
                      PNPM + ["run", "--silent", "docs"]),
}
OWN = "Set REGISTRY_DOCS_PROGRAM to the path of a program that you have built.\n"
LEFT_OUT = """\
registry-docs: expected the program for the platform linux-{cpu} in the package registry-docs-linux-{cpu}, \
which is not installed
Probably optional packages were left out (--omit=optional), or the lock file was made on another
platform and does not name it. Install with --include=optional; if that does not help, remove
node_modules and the lock file, and install again.
""" + OWN
UNKNOWN = ("registry-docs: expected a package for the platform linux-mips, "
           "found only registry-docs-darwin-{cpu}, registry-docs-linux-arm64, registry-docs-linux-x64\n" + OWN)
WITHOUT = {  # the environment, the options of node, what is said
    "left out": ({}, [], LEFT_OUT),
    "an unknown platform": ({}, ["--require", "{0}/mips.js"], UNKNOWN),
    "an absent program": ({"REGISTRY_DOCS_PROGRAM": "./absent"}, [],
                          "registry-docs: ./absent: expected a program that can be run, found ENOENT\n"),
    "no program": ({"REGISTRY_DOCS_PROGRAM": "./package.json"}, [],
                   "registry-docs: ./package.json: expected a program that can be run, found EACCES\n"),
}
STOPPING = b"""#!/bin/sh
trap 'echo stopping; read -r line; echo "$line"; exit 5' TERM
echo "running $*"
while :; do sleep 0.01; done
"""


def served(packages, port):
    """What a registry answers for each path: of each package its versions, and the package."""
    answers = {}
    for path in packages:
        with tarfile.open(path) as archive:
            manifest = json.load(archive.extractfile("package/package.json"))
        integrity = base64.b64encode(hashlib.sha512(path.read_bytes()).digest()).decode()
        manifest["dist"] = {"tarball": f"http://127.0.0.1:{port}/{path.name}",
                            "integrity": f"sha512-{integrity}"}
        answers[f"/{path.name}"] = path.read_bytes()
        answers[f"/{manifest['name']}"] = json.dumps({
            "name": manifest["name"], "dist-tags": {"latest": VERSION},
            "versions": {VERSION: manifest}}).encode()
    return answers


class Registry(http.server.BaseHTTPRequestHandler):
    """Answers from the table of its server."""

    def do_GET(self):
        answer = self.server.answers.get(self.path)
        self.send_response(404 if answer is None else 200)
        self.send_header("Content-Length", str(len(answer or b"")))
        self.end_headers()
        shutil.copyfileobj(io.BytesIO(answer or b""), self.wfile)

    def log_message(self, *_):
        pass


def child_of(process):
    """The process that another one has started; waits for it."""
    while process.poll() is None:
        children = pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children").read_text().split()
        if children:
            return int(children[0])
        time.sleep(0.01)
    raise AssertionError(f"ended with {process.returncode}")


class Npm(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """Serves the packages, with those of another system and of another processor."""
        cls.place = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        programs = shutil.copytree(PROGRAMS, cls.place / "programs")
        cls.platform, = (path.name for path in programs.iterdir())
        cls.cpu = cls.platform.removeprefix("linux-")
        other = {"x64": "arm64", "arm64": "x64"}[cls.cpu]
        made(programs, {f"{each}/registry-docs": b"none" for each in (f"darwin-{cls.cpu}", f"linux-{other}")})
        assert pack("npm", programs, cls.place / "packed").returncode == 0
        server = cls.enterClassContext(http.server.ThreadingHTTPServer(("127.0.0.1", 0), Registry))
        server.answers = served((cls.place / "packed").iterdir(), server.server_port)
        threading.Thread(target=server.serve_forever).start()
        cls.addClassCleanup(server.shutdown)
        cls.env = {
            "PATH": os.environ["PATH"], "HOME": str(cls.place / "home"),
            "npm_config_registry": f"http://127.0.0.1:{server.server_port}/",
            "npm_config_audit": "false", "npm_config_fund": "false",
            "npm_config_update_notifier": "false"}

    def installed(self, files, *setup):
        """A directory with these files, in which these commands were run."""
        place = made(pathlib.Path(tempfile.mkdtemp(dir=self.place)), files)
        for command in setup:
            command = [word.format(place) for word in command]
            done = subprocess.run(command, cwd=place, env=self.env, **CAPTURED)
            self.assertEqual(done.returncode, 0, done)
        return place

    def test_installs(self):
        for name, (files, setup, where, command) in INSTALLS.items():
            with self.subTest(name):
                place = self.installed(files, *setup)
                assert_runs(self, [word.format(place) for word in command], place / where, self.env)

    def test_only_this_platform_is_installed(self):
        modules = self.installed(PROJECT, INSTALL) / "node_modules"
        self.assertEqual({path.name for path in modules.glob("[!.]*")},
                         {"registry-docs", f"registry-docs-{self.platform}"})

    def test_without_a_program(self):
        place = self.installed(PROJECT, INSTALL + ["--omit=optional"])
        made(place, {"mips.js": "Object.defineProperty(process, 'arch', {value: 'mips'});"})
        for name, (env, options, message) in WITHOUT.items():
            with self.subTest(name):
                options = [option.format(place) for option in options]
                done = subprocess.run(["node", *options, place / BIN, "--check"], cwd=place,
                                      env=self.env | env, **CAPTURED)
                message = message.format(cpu=self.cpu)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (2, "", message))

    def test_a_signal_ends_the_program(self):
        place = self.installed(PROJECT | FILES, INSTALL)
        for number, status in ((signal.SIGINT, 130), (signal.SIGTERM, 143), (signal.SIGHUP, 129)):
            with self.subTest(number), subprocess.Popen(
                    [place / BIN, "--check", "--tools", "-"], env=self.env, cwd=place,
                    stdin=subprocess.PIPE) as running:
                program = child_of(running)
                running.send_signal(number)
                self.assertEqual(running.wait(), status)
                self.assertFalse(pathlib.Path(f"/proc/{program}").exists())

    def test_the_program_ends_first(self):
        place = made(self.installed(PROJECT, INSTALL), {"stopping": STOPPING})
        env = self.env | {"REGISTRY_DOCS_PROGRAM": "./stopping"}
        with subprocess.Popen([place / BIN, "--check"], env=env, cwd=place, text=True,
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE) as running:
            self.assertEqual(running.stdout.readline(), "running --check\n")
            running.terminate()
            self.assertEqual(running.stdout.readline(), "stopping\n")
            self.assertIsNone(running.poll())
            self.assertEqual(running.communicate("last words\n"), ("last words\n", None))
            self.assertEqual(running.returncode, 5)


if __name__ == "__main__":
    unittest.main()
