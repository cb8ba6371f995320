"""A copy of the example repository whose blocks are stale, for writes that are disturbed."""

import os
import pathlib
import re
import shutil
import subprocess

EXAMPLE = pathlib.Path(os.environ["EXAMPLE"])
FILES = ("src/tesmo_sorvet/setup/skill_text.py", "src/tesmo_sorvet/setup/config.py",
         "docs/claude-instructions-template.md", "README.md", "docs/mcp-tools.md")
BLOCK = re.compile(rb"(<!-- registry:(\S+) -->\n)(.*?)(<!-- /registry:\2 -->)", re.DOTALL)
# What a write does to a file, and how the bodies of its blocks stand before.
BODIES = {"grows": lambda body: b"", "shrinks": lambda body: body + b"stale\n" * 999,
          "stays as long": lambda body: body.replace(b"e", b"E")}


class Copy:
    """The copy; `old` and `new` are the bytes of its files before and after a write."""

    def __init__(self, directory, kinds, end=b""):
        self.root = pathlib.Path(directory).resolve() / "repository"
        shutil.copytree(EXAMPLE, self.root)
        self.new = [(EXAMPLE / file).read_bytes() + end for file in FILES]
        self.old = [BLOCK.sub(lambda m, kind=kind: m[1] + BODIES[kind](m[3]) + m[4], new)
                    for new, kind in zip(self.new, kinds)]
        self.renew()
        self.entries = self.listed()
        self.command = [os.environ["PROGRAM"], "--root", str(self.root)]

    def listed(self):
        return sorted((str(path), path.stat().st_ino) for path in self.root.rglob("*"))

    def bytes(self):
        return [(self.root / file).read_bytes() for file in FILES]

    def renew(self):
        for file, old, now in zip(FILES, self.old, self.bytes()):
            if now != old:
                (self.root / file).write_bytes(old)

    def expect_fixed_by_a_write(self):
        """A write that nothing disturbs succeeds, and nothing was left beside the files."""
        subprocess.run([*self.command, "--write"], stdout=subprocess.DEVNULL, check=True)
        assert subprocess.check_output([*self.command, "--check"]) == b"", "not current"
        assert self.bytes() == self.new, "a block is current, but the text around it changed"
        assert self.listed() == self.entries, "an entry came, went or was replaced"
