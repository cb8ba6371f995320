"""Runs the hooks under pre-commit, and the steps of the action, on copies of the example."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import yaml

TOP = pathlib.Path(__file__).parents[2]
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
UNBUILT = {  # the tools that are found where there is no source, and what was expected and found
    "g++ ninja": "the tools to build it with, found some missing; "
                 "sudo apt-get install cmake pkg-config libutf8proc-dev libuv1-dev\n",
    "g++ ninja cmake pkg-config": "to be built in {0}, found:\n"
                                  "CMake Error: Could not read presets from {0}: File not found\n",
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
}
ASKED = '{"server": {"command": "./absent"}, "files": [{"path": "README.md", "blocks": ["readme-tools"]}]}'
RUN_HOOK = ["pre-commit", "run", "--all-files", "--color=never"]
RUN_STEP = ["bash", "--noprofile", "--norc", "-eo", "pipefail", "-c"]
CAPTURED = {"capture_output": True, "text": True}


class Hooks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """Lets two repositories use a hook at once, for the first time, and notes the builds."""
        cls.place = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cmake, calls, home = (cls.place / name for name in ("cmake", "calls", "home"))
        cmake.write_text(f'#!/bin/sh\necho "$*" >>{calls}\n{shutil.which("cmake")} "$@"\n')
        cmake.chmod(0o755)
        os.environ.update(PATH=f"{cls.place}:{os.environ['PATH']}", PRE_COMMIT_HOME=str(home))
        both = [subprocess.Popen(RUN_HOOK, cwd=cls.repository(CHECK, ".", CURRENT),
                                 stdout=subprocess.DEVNULL) for _ in range(2)]
        cls.first_uses = [each.wait() for each in both], calls.read_text()
        cls.clone, = home.glob("repo*/")

    @classmethod
    def repository(cls, hook, where, change):
        made = pathlib.Path(tempfile.mkdtemp(dir=cls.place))
        shutil.copytree(TOP / "examples/tesmo-sorvet", made / where, dirs_exist_ok=True)
        (made / where / "README.md").write_text(README.replace(*change), encoding="utf-8")
        (made / ".pre-commit-config.yaml").write_text(
            f"repos: [{{repo: {TOP}, rev: {os.environ['REVISION']}, hooks: [{{{hook}}}]}}]")
        subprocess.check_call("git init -q && git add --all", shell=True, cwd=made)
        return made

    def test_two_first_uses_build_once(self):
        self.assertEqual(self.first_uses, ([0, 0], "--preset release\n--build --preset release\n"))

    def test_hooks(self):
        for name, (hook, where, change, left, said) in HOOKS.items():
            with self.subTest(name):
                made = self.repository(hook, where, change)
                for expected in said:
                    self.assertIn(expected, subprocess.run(RUN_HOOK, cwd=made, **CAPTURED).stdout)
                self.assertEqual((made / where / "README.md").read_text(), README.replace(*left))

    def test_what_cannot_be_built(self):
        for there, message in UNBUILT.items():
            with self.subTest(there), tempfile.TemporaryDirectory() as bare:
                hook = shutil.copytree(self.clone / "scripts", f"{bare}/scripts")
                for name in f"bash dirname flock mkdir {there}".split():
                    os.symlink(shutil.which(name), f"{bare}/{name}")
                done = subprocess.run([f"{hook}/pre-commit-hook"], env={"PATH": bare}, **CAPTURED)
                message = "gen_registry_docs: expected " + message.format(bare)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (2, "", message))

    def test_action(self):
        action = yaml.safe_load((self.clone / "action.yml").read_text())
        for name, (inputs, where, change, status, said) in ACTION.items():
            inputs = {FORK: "false"} | {
                key: each["default"] for key, each in action["inputs"].items()} | inputs
            made = self.repository(CHECK, where, change)
            (made / "asked.json").write_text(ASKED)
            runner = {**os.environ, "GITHUB_WORKSPACE": made, "GITHUB_ACTION_PATH": self.clone}
            for step in action["runs"]["steps"]:
                kinds = action["runs"]["using"], step["shell"], "${{" in step["run"]
                self.assertEqual(kinds, ("composite", "bash", False))
                env = {key: inputs[text.strip("${ }").removeprefix("inputs.")]
                       for key, text in step.get("env", {}).items()}
                done = subprocess.run(RUN_STEP + [step["run"]], cwd=made, env=runner | env,
                                      **CAPTURED)
                if done.returncode != 0:
                    break
            with self.subTest(name):
                shown = done.stdout + done.stderr
                self.assertEqual((done.returncode, said in shown), (status, True), done)
                self.assertEqual(shown == "", said == "")
