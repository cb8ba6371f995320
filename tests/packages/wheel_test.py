"""Installs the wheels with pip in the ways there are, and holds them to what wheels must be."""

import base64
import csv
import hashlib
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import zipfile

from support import CAPTURED, PROGRAMS, VERSION, assert_runs, made, pack

PYTHON = f"python{sys.version_info[0]}.{sys.version_info[1]}"
LIBRARY = f"lib/{PYTHON}/site-packages"
RECORD = f"{LIBRARY}/registry_docs-{VERSION}.dist-info/RECORD"
MODULE = ["{0}/bin/python", "-m", "registry_docs"]
INSTALLS = {  # options of venv and of pip, what else is set, what is removed, how it is called
    "a virtual environment": ([], [], {}, "", ["{0}/bin/registry-docs"]),
    "its module": ([], [], {}, "", MODULE),
    "without a record": ([], [], {}, RECORD, MODULE),
    "a user's": (["--system-site-packages"], ["--user"], {"PYTHONUSERBASE": "{0}/user"}, "", MODULE),
    "another directory": ([], ["--target", "{0}/t"], {"PYTHONPATH": "{0}/t"}, "", MODULE),
    "another prefix": ([], ["--prefix", "{0}/p"], {"PYTHONPATH": "{0}/p/" + LIBRARY}, "", MODULE),
    "the directory's program": ([], ["--target", "{0}/t"], {"PYTHONPATH": "{0}/t"}, "",
                                ["{0}/t/bin/registry-docs"]),
}
WHEELS = {  # the platforms that pip may run on, and the tags of the wheel that it takes
    "manylinux_2_17_x86_64": "manylinux_2_17_x86_64.manylinux2014_x86_64.musllinux_1_1_x86_64",
    "manylinux2014_x86_64": "manylinux_2_17_x86_64.manylinux2014_x86_64.musllinux_1_1_x86_64",
    "musllinux_1_1_aarch64": "manylinux_2_17_aarch64.manylinux2014_aarch64.musllinux_1_1_aarch64",
    "macosx_14_0_arm64": "macosx_11_0_arm64",
    "win_amd64": "win_amd64",
}
OTHERS = {"linux-x64/registry-docs": b"1", "linux-arm64/registry-docs": b"2",
          "darwin-arm64/registry-docs": b"3", "win32-x64/registry-docs.exe": b"4"}


class Wheel(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.packed = cls.place / "packed"
        assert pack("wheel", PROGRAMS, cls.packed).returncode == 0
        cls.env = {name: value for name, value in os.environ.items()
                   if not name.startswith(("PIP_", "PYTHON"))}
        cls.env |= {"HOME": str(cls.place), "PIP_CONFIG_FILE": os.devnull, "PIP_NO_INDEX": "1",
                    "PIP_FIND_LINKS": str(cls.packed), "PIP_DISABLE_PIP_VERSION_CHECK": "1"}

    def run_all(self, env, *commands):
        for command in commands:
            done = subprocess.run(command, env=env, cwd=self.place, **CAPTURED)
            self.assertEqual(done.returncode, 0, done)

    def installed(self, venv=(), pip=(), env=None):
        """A virtual environment in which, or from which, a wheel was installed."""
        place = tempfile.mkdtemp(prefix="a b", dir=self.place)
        env = self.env | {name: value.format(place) for name, value in (env or {}).items()}
        self.run_all(env, [sys.executable, "-m", "venv", *venv, place],
                     [f"{place}/bin/pip", "install", "-q", *(option.format(place) for option in pip),
                      "registry-docs"])
        return pathlib.Path(place), env

    def test_installs(self):
        for name, (venv, pip, env, removed, command) in INSTALLS.items():
            with self.subTest(name):
                place, env = self.installed(venv, pip, env)
                if removed:
                    (place / removed).unlink()
                assert_runs(self, [word.format(place) for word in command], place / "work", env)

    def test_removed_as_it_came(self):
        place, env = self.installed()
        self.run_all(env, [f"{place}/bin/pip", "uninstall", "-q", "-y", "registry-docs"])
        self.assertEqual(list(place.rglob("*registry*docs*")), [])

    def test_without_the_program(self):
        place, env = self.installed()
        (place / "bin/registry-docs").unlink()
        done = subprocess.run([f"{place}/bin/python", "-m", "registry_docs"], env=env, **CAPTURED)
        message = (f"registry_docs: expected the program at {place}/{LIBRARY}/bin/registry-docs or "
                   f"{place}/bin/registry-docs, found none; install registry-docs again\n")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (2, "", message))

    def test_each_platform_gets_its_wheel(self):
        programs, packed = made(self.place / "others", OTHERS), self.place / "for-others"
        self.assertEqual(pack("wheel", programs, packed).returncode, 0)
        place, env = self.installed()
        for platform, tags in WHEELS.items():
            with self.subTest(platform):
                self.run_all(env | {"PIP_FIND_LINKS": str(packed)}, [
                    f"{place}/bin/pip", "download", "-q", "--dest", place / platform,
                    "--only-binary=:all:", "--platform", platform, "registry-docs"])
                self.assertEqual(os.listdir(place / platform),
                                 [f"registry_docs-{VERSION}-py3-none-{tags}.whl"])

    def test_what_a_wheel_says_of_itself(self):
        path, = self.packed.iterdir()
        info = f"registry_docs-{VERSION}.dist-info"
        with zipfile.ZipFile(path) as wheel:
            record = list(csv.reader(wheel.read(f"{info}/RECORD").decode().splitlines()))
            contents = {name: wheel.read(name) for name in wheel.namelist()}
        self.assertEqual([name for name, _, _ in record], list(contents))
        self.assertEqual(record.pop(), [f"{info}/RECORD", "", ""])
        for name, digest, size in record:
            sha256 = base64.urlsafe_b64encode(hashlib.sha256(contents[name]).digest()).decode()
            self.assertEqual((digest, size),
                             ("sha256=" + sha256.rstrip("="), str(len(contents[name]))), name)
        tags = [line.removeprefix("Tag: py3-none-")
                for line in contents[f"{info}/WHEEL"].decode().splitlines() if line[:4] == "Tag:"]
        self.assertEqual(path.stem, f"registry_docs-{VERSION}-py3-none-" + ".".join(tags))


if __name__ == "__main__":
    unittest.main()
