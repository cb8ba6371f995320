"""Packs made-up programs: equal ones into equal bytes, and refuses what cannot be packed."""

import os
import pathlib
import tempfile
import time
import unittest

from support import VERSION, made, pack

PACKERS = ("npm", "wheel")
PROGRAMS = {"win32-x64/registry-docs.exe": b"1", "linux-x64/registry-docs": b"2",
            "darwin-arm64/registry-docs": b"3", "linux-arm64/registry-docs": b"4"}
PACKED = {
    "registry-docs-1.2.3.tgz",
    "registry-docs-darwin-arm64-1.2.3.tgz",
    "registry-docs-linux-arm64-1.2.3.tgz",
    "registry-docs-linux-x64-1.2.3.tgz",
    "registry-docs-win32-x64-1.2.3.tgz",
    "registry_docs-1.2.3-py3-none-macosx_11_0_arm64.whl",
    "registry_docs-1.2.3-py3-none-manylinux_2_17_aarch64.manylinux2014_aarch64.musllinux_1_1_aarch64.whl",
    "registry_docs-1.2.3-py3-none-manylinux_2_17_x86_64.manylinux2014_x86_64.musllinux_1_1_x86_64.whl",
    "registry_docs-1.2.3-py3-none-win_amd64.whl",
}
REFUSED = {  # the programs, the version, what is said
    "no programs": ({}, VERSION, "{0}: expected a directory for each platform, found none\n"),
    "no such platform": ({"linux-x86/registry-docs": b""}, VERSION,
                         "{0}/linux-x86: expected one of linux-x64, linux-arm64, darwin-x64, "
                         "darwin-arm64, win32-x64, win32-arm64\n"),
    "another program": ({"win32-x64/registry-docs": b""}, VERSION,
                        "{0}/win32-x64/registry-docs.exe: No such file or directory\n"),
    "a version of npm alone": (PROGRAMS, "1.2.3-rc.1",
                               "the version: expected three numbers such as 1.2.3, found 1.2.3-rc.1\n"),
    "a version that npm lacks": (PROGRAMS, "1.2",
                                 "the version: expected three numbers such as 1.2.3, found 1.2\n"),
}


class Pack(unittest.TestCase):
    def setUp(self):
        self.place = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def packed(self, name, umask, when, programs, date="1700000000"):
        """All packages, by their names, with one date, of programs with another one."""
        source, out = made(self.place / name, programs), self.place / f"{name}-out"
        for path in source.rglob("*"):
            os.utime(path, (when, when))
        env = {**os.environ, "SOURCE_DATE_EPOCH": date}
        for kind in PACKERS:
            done = pack(kind, source, out, env=env, umask=umask)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
        return {path.name: path.read_bytes() for path in out.iterdir()}

    def test_equal_programs_give_equal_bytes(self):
        one = self.packed("one", 0o022, 1, PROGRAMS)
        time.sleep(2.1)  # no archive tells times apart that are nearer
        other = self.packed("other", 0o077, 1234567890, dict(reversed(PROGRAMS.items())))
        later = self.packed("later", 0o022, 1, PROGRAMS, "1800000000")
        self.assertEqual(one.keys(), PACKED)
        self.assertEqual([name for name in one if one[name] != other[name]], [])
        self.assertEqual([name for name in one if one[name] == later[name]], [])

    def test_refusals(self):
        for name, (programs, version, message) in REFUSED.items():
            source = made(self.place / name, programs)
            source.mkdir(exist_ok=True)
            for kind in PACKERS:
                with self.subTest(name, kind=kind):
                    out = self.place / f"{name}-out"
                    done = pack(kind, source, out, version)
                    said = done.returncode, done.stdout, done.stderr, out.exists()
                    self.assertEqual(said, (2, "", message.format(source), False))


if __name__ == "__main__":
    unittest.main()
