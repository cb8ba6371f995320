"""Runs the hooks under pre-commit, and the steps of the action, on copies of the example."""

import functools
import hashlib
import http.server
import os
import pathlib
import platform
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
import threading
import unittest

import yaml

TOP = pathlib.Path(__file__).parents[2]
sys.path.insert(0, str(TOP / "packaging"))
from programs import project_version

VERSION = project_version()
PROGRAM, = pathlib.Path(os.environ["PROGRAMS"]).glob("linux-*/registry-docs")
CI, *GUIDES = ((TOP / "docs" / name).read_text(encoding="utf-8")
               for name in ("ci.md", "typescript.md", "python.md"))
README = (TOP / "examples/tesmo-sorvet/README.md").read_text(encoding="utf-8")
CURRENT, STALE = ("", ""), ("14 tools", "13 tools")  # changes of the README
RENAMED = ("registry:readme-tools -->", "registry:other -->")
CHECK, WRITE = "id: registry-docs-check", "id: registry-docs-write"

HOOKS = {  # the hook, where the example stands, what is changed and left, and what each run says
    "stale": (CHECK + ", args: [--root, its server]", "its server", STALE, STALE, [
        "- exit code: 1\n\nREADME.md: blocks out of date: readme-tools\n"]),
    "written": (WRITE, ".", STALE, CURRENT, [
        "- exit code: 1\n- files were modified by this hook\n\nREADME.md\n", "Passed\n"]),
    "wrong markers": (WRITE, ".", RENAMED, RENAMED, [
        "- exit code: 1\n\nREADME.md: the markers do not match the blocks it holds "]),
}
ARCHIVE = f"registry-docs-{VERSION}-linux-{platform.machine()}.tar.gz"
RELEASES = "someone/registry_docs/releases/download"
FETCHED = {  # the sums that are committed, where the release is said to be, what is said
    "the archive's sum": ("{0}  {1}\n", RELEASES, ""),
    "one sum of several": ("{2}  other.tar.gz\n{0}  {1}\n{2}  x{1}\n", RELEASES, ""),
    "another sum": ("{2}  {1}\n", RELEASES, "{1}: expected the SHA-256 {2}, found {0}\n"),
    "no archive": ("{0}  {1}\n", "absent", "{1}: expected it at {3}/absent/v{4}/{1}, "
                                           "found curl: (22) The requested URL returned error: 404\n"),
    "no sum of the archive": (
        "{0}  x{1}\n", RELEASES, "packaging/SHA256SUMS: expected a line for {1}, found none; there is "
                                 "no program for this machine, and with `build: true` the action builds it\n"),
    "no sums": (
        None, RELEASES, "packaging/SHA256SUMS: expected the sums of the release {4}, found no such file; "
                        "there is no release yet, and with `build: true` the action builds the program\n"),
}
FORK = ("github.event.pull_request.head.repo.full_name != "
        "github.event.pull_request.base.repo.full_name")
ACTION = {  # the inputs, where the example stands, what is changed, the exit status, what is said
    "current": ({}, ".", CURRENT, 0, ""),
    "root": ({"root": "$(its) server"}, "$(its) server", STALE, 1, "file=$(its) server/README.md"),
    "registry": ({"registry": "$(no).json"}, ".", CURRENT, 2, "$(no).json: No such file"),
    "a server": ({"registry": "asked.json"}, ".", CURRENT, 2, "./absent: expected a program that can be started"),
    "a server of a fork": ({"registry": "asked.json", FORK: "true"}, ".", CURRENT, 2,
                           "snapshot: expected this member to be given"),
    "a fork that is trusted": ({"registry": "asked.json", FORK: "true", "offline": "false"}, ".", CURRENT, 2,
                               "./absent: expected a program that can be started"),
    "told not to ask": ({"registry": "asked.json", "offline": "true"}, ".", CURRENT, 2,
                        "snapshot: expected this member to be given"),
    "told nothing clear": ({"registry": "asked.json", "offline": "True"}, ".", CURRENT, 2,
                           "offline: expected auto, true or false, found True\n"),
    "not told what to build": ({"build": "yes"}, ".", CURRENT, 2,
                               "build: expected true or false, found yes\n"),
}
HOSTILE = ("$(touch x)", "`touch x`", "; touch x", "& touch x #", "a\ntouch x", "a  b", "*",
           "--write", "-", '"; touch x; "', "'; touch x; '", "}; touch x; {", "${{ github.token }}")
ASKED = '{"server": {"command": "./absent"}, "files": [{"path": "README.md", "blocks": ["readme-tools"]}]}'
# Stands for the builds of another program, which take long and are tested by all other tests.
CMAKE = "#!/bin/sh\necho \"$*\" >>'{0}'\nmkdir -p build/release\ncp '{1}' build/release/registry-docs\n"
RUN_HOOK = ["pre-commit", "run", "--all-files", "--color=never"]
RUN_STEP = ["bash", "--noprofile", "--norc", "-eo", "pipefail", "-c"]
CAPTURED = {"capture_output": True, "text": True}


class Served(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


def files_of(*directories):
    """The files of some directories, and the sums of what they hold."""
    return {path: hashlib.sha256(path.read_bytes()).hexdigest()
            for each in directories for path in each.rglob("*") if path.is_file()}


class Hooks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """A wheel to install, a release to fetch, and a clone to be the action."""
        cls.place = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.clone = cls.place / "the action"
        subprocess.check_call(["git", "clone", "-q", TOP, cls.clone])
        subprocess.check_call(["git", "checkout", "-q", os.environ["REVISION"]], cwd=cls.clone)
        cls.sums = cls.clone / "packaging/SHA256SUMS"
        subprocess.check_call([
            sys.executable, "-B", TOP / "packaging/pack_wheel.py", os.environ["PROGRAMS"], VERSION,
            cls.place / "wheels"], stdout=subprocess.DEVNULL)
        os.environ.update(PRE_COMMIT_HOME=str(cls.place / "home"), PIP_NO_INDEX="1",
                          PIP_FIND_LINKS=str(cls.place / "wheels"))
        cls.release = cls.place / "served" / RELEASES / f"v{VERSION}" / ARCHIVE
        cls.release.parent.mkdir(parents=True)
        with tarfile.open(cls.release, "w:gz") as archive:
            archive.add(PROGRAM, f"registry-docs-{VERSION}/bin/registry-docs")
        serve = functools.partial(Served, directory=cls.place / "served")
        server = cls.enterClassContext(http.server.ThreadingHTTPServer(("127.0.0.1", 0), serve))
        threading.Thread(target=server.serve_forever).start()
        cls.addClassCleanup(server.shutdown)
        cls.address = f"http://127.0.0.1:{server.server_port}"

    @classmethod
    def repository(cls, hook, where, change):
        made = pathlib.Path(tempfile.mkdtemp(dir=cls.place))
        shutil.copytree(TOP / "examples/tesmo-sorvet", made / where, dirs_exist_ok=True)
        (made / where / "README.md").write_text(README.replace(*change), encoding="utf-8")
        (made / ".pre-commit-config.yaml").write_text(
            f"repos: [{{repo: {TOP}, rev: {os.environ['REVISION']}, hooks: [{{{hook}}}]}}]")
        subprocess.check_call("git init -q && git add --all", shell=True, cwd=made)
        return made

    def release_is(self, sums):
        """Commits these sums to the clone; returns what their texts and those of messages are made with."""
        digest = hashlib.sha256(self.release.read_bytes()).hexdigest()
        values = digest, ARCHIVE, "0" * 64, self.address, VERSION
        self.sums.unlink(missing_ok=True)
        if sums is not None:
            self.sums.write_text(sums.format(*values))
        return values

    def run_action(self, inputs, repository, env):
        """Runs the steps as a runner does: up to the first that fails, which is returned, or the last."""
        action = yaml.safe_load((self.clone / "action.yml").read_text())
        context = {f"inputs.{name}": each["default"] for name, each in action["inputs"].items()}
        context |= {"github.server_url": self.address, FORK: "false",
                    "github.action_repository": "someone/registry_docs"}
        context |= {key if key in context else f"inputs.{key}": text for key, text in inputs.items()}
        runner = {**os.environ, "GITHUB_WORKSPACE": repository, "GITHUB_ACTION_PATH": self.clone}
        for step in action["runs"]["steps"]:
            kinds = action["runs"]["using"], step["shell"], "${{" in step["run"]
            self.assertEqual(kinds, ("composite", "bash", False))
            values = {key: re.sub(r"\$\{\{ (.*?) \}\}", lambda found: context[found[1]], text)
                      for key, text in step["env"].items()}
            done = subprocess.run(RUN_STEP + [step["run"]], cwd=repository, env=runner | values | env,
                                  stdin=subprocess.DEVNULL, **CAPTURED)
            if done.returncode != 0:
                break
        return done

    def test_hooks(self):
        for name, (hook, where, change, left, said) in HOOKS.items():
            with self.subTest(name):
                made = self.repository(hook, where, change)
                for expected in said:
                    self.assertIn(expected, subprocess.run(RUN_HOOK, cwd=made, **CAPTURED).stdout)
                self.assertEqual((made / where / "README.md").read_text(), README.replace(*left))

    def test_fetch_release(self):
        for name, (sums, releases, message) in FETCHED.items():
            with self.subTest(name):
                values = self.release_is(sums)
                program = self.clone / "build/action/registry-docs"
                shutil.rmtree(self.clone / "build", ignore_errors=True)
                program.parent.mkdir(parents=True)
                program.write_text("the program of an earlier release")
                done = subprocess.run([self.clone / "scripts/fetch-release"], **CAPTURED,
                                      env=os.environ | {"RELEASES": f"{self.address}/{releases}"})
                said = done.returncode, done.stdout, done.stderr
                self.assertEqual(said, (2 if message else 0, "", message.format(*values)))
                sum_of_program = hashlib.sha256(PROGRAM.read_bytes()).hexdigest()
                self.assertEqual(files_of(self.clone / "build"),
                                 {} if message else {program: sum_of_program})
                self.assertEqual(os.access(program, os.X_OK), not message)

    def test_action(self):
        self.release_is("{0}  {1}\n")
        for name, (inputs, where, change, status, said) in ACTION.items():
            made = self.repository(CHECK, where, change)
            (made / "asked.json").write_text(ASKED)
            done = self.run_action(inputs, made, {})
            with self.subTest(name):
                shown = done.stdout + done.stderr
                self.assertEqual((done.returncode, said in shown), (status, True), done)
                self.assertEqual(shown == "", said == "")

    def test_action_builds_when_told(self):
        values = self.release_is(None)
        made, calls, tools = self.repository(CHECK, ".", STALE), self.place / "calls", self.place / "tools"
        tools.mkdir()
        (tools / "cmake").write_text(CMAKE.format(calls, PROGRAM))
        (tools / "cmake").chmod(0o755)
        env = {"PATH": f"{tools}:{os.environ['PATH']}"}
        done = self.run_action({}, made, env)
        self.assertEqual((done.returncode, done.stderr), (2, FETCHED["no sums"][2].format(*values)))
        done = self.run_action({"build": "true"}, made, env)
        self.assertEqual((done.returncode, "README.md" in done.stdout), (1, True), done)
        self.assertEqual(calls.read_text(), "--preset release\n--build --preset release\n")

    def test_no_input_of_the_action_is_run(self):
        self.release_is("{0}  {1}\n")
        made = self.repository(CHECK, ".", STALE)
        self.run_action({}, made, {})
        before = files_of(self.clone, made)
        for name in yaml.safe_load((self.clone / "action.yml").read_text())["inputs"]:
            for text in HOSTILE:
                with self.subTest(name, text=text):
                    self.assertEqual(self.run_action({name: text}, made, {}).returncode, 2)
                    self.assertEqual(files_of(self.clone, made), before)

    def test_documented_workflows(self):
        """What the documents show is of this version, and names what there is."""
        inputs = yaml.safe_load((TOP / "action.yml").read_text())["inputs"].keys()
        hooks = {each["id"] for each in yaml.safe_load((TOP / ".pre-commit-hooks.yaml").read_text())}
        used = set()
        for text in re.findall(r"^```yaml\n(.*?)^```$", "".join((CI, *GUIDES)), re.MULTILINE | re.DOTALL):
            document = yaml.safe_load(text)
            for job in document.get("jobs", {}).values():
                for step in job["steps"]:
                    if step.get("uses", "").startswith("OWNER/"):
                        used.add(step["uses"])
                        self.assertLessEqual(step.get("with", {}).keys(), inputs)
            for each in document.get("repos", []):
                used.add(each["rev"])
                self.assertEqual({hook["id"] for hook in each["hooks"]}, hooks)
        self.assertEqual(used, {f"OWNER/registry_docs@v{VERSION}", "OWNER/registry_docs@REV", f"v{VERSION}"})
        self.assertEqual(set(re.findall(r"^\| `(\w+)` \|", CI, re.MULTILINE)), inputs)

    def test_shellcheck_has_nothing_to_say(self):
        scripts = [path for path in (*TOP.glob("scripts/*"), TOP / ".ci/run", TOP / "tests/packages/options")
                   if path.name == "common.sh" or path.read_text().startswith("#!/usr/bin/env bash\n")]
        self.assertGreater(len(scripts), 10)
        done = subprocess.run(["shellcheck", *scripts], cwd=TOP, **CAPTURED)
        self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))
        for step in yaml.safe_load((TOP / "action.yml").read_text())["runs"]["steps"]:
            done = subprocess.run(["shellcheck", "--shell=bash", "-"], input=step["run"], cwd=TOP, **CAPTURED)
            self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""), step["name"])
