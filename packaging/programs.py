"""What the packers have in common: the programs there are, the version, and the date of files."""

import os
import pathlib
import re
import sys
import typing

TOP = pathlib.Path(__file__).resolve().parents[1]
DESCRIPTION = "Keeps the lists of a tool server's tools, in READMEs, references and skills, true"


class Platform(typing.NamedTuple):
    """A system and a processor: as Node.js calls them, and as wheels do."""

    os: str
    cpu: str
    wheel_tags: tuple[str, ...]


# The programs for Linux are static, so one wheel serves every libc. Those for macOS must be built
# for macOS 11.
PLATFORMS = {f"{each.os}-{each.cpu}": each for each in (
    Platform("linux", "x64", ("manylinux_2_17_x86_64", "manylinux2014_x86_64", "musllinux_1_1_x86_64")),
    Platform("linux", "arm64",
             ("manylinux_2_17_aarch64", "manylinux2014_aarch64", "musllinux_1_1_aarch64")),
    Platform("darwin", "x64", ("macosx_11_0_x86_64",)),
    Platform("darwin", "arm64", ("macosx_11_0_arm64",)),
    Platform("win32", "x64", ("win_amd64",)),
    Platform("win32", "arm64", ("win_arm64",)),
)}


class Refused(Exception):
    """What was given cannot be packed; says why."""


class Program(typing.NamedTuple):
    """The program of one platform."""

    platform: str
    name: str
    content: bytes


def programs_in(directory: pathlib.Path) -> list[Program]:
    """The programs DIRECTORY/PLATFORM/registry-docs, with .exe on Windows, by platform."""
    found = []
    for place in sorted(directory.iterdir()):
        if place.name not in PLATFORMS:
            raise Refused(f"{place}: expected one of {', '.join(PLATFORMS)}")
        program = place / ("registry-docs.exe" if place.name.startswith("win32") else "registry-docs")
        found.append(Program(place.name, program.name, program.read_bytes()))
    if not found:
        raise Refused(f"{directory}: expected a directory for each platform, found none")
    return found


def project_version() -> str:
    """The version that the sources are of."""
    build = (TOP / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"^project\(\w+ VERSION ([\d.]+)", build, re.MULTILINE)[1]


def notices(licence: str) -> dict[str, bytes]:
    """The file `copyright`, with the notices that go with every program, and the licence if the
    project has one, which is then called LICENCE."""
    files = {"copyright": (TOP / "packaging/copyright").read_bytes()}
    if (TOP / "LICENSE").exists():
        files[licence] = (TOP / "LICENSE").read_bytes()
    return files


def source_date() -> int:
    """The time of all files, in seconds; by default, and at least, the first that a zip can hold."""
    return max(int(os.environ.get("SOURCE_DATE_EPOCH", 0)), 315532800)


def main(pack: typing.Callable[[list[Program], str, pathlib.Path], list[pathlib.Path]]) -> None:
    """Packs as the command line says, PROGRAMS VERSION OUT, and prints the paths of the packages."""
    try:
        if len(sys.argv) != 4:
            raise Refused(f"usage: {sys.argv[0]} PROGRAMS VERSION OUT")
        programs, version, out = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])
        # npm and Python spell all other versions differently.
        if not re.fullmatch(r"(0|[1-9]\d*)(\.(0|[1-9]\d*)){2}", version):
            raise Refused(f"the version: expected three numbers such as 1.2.3, found {version}")
        found = programs_in(programs)
        out.mkdir(parents=True, exist_ok=True)
        for path in pack(found, version, out):
            print(path)
        return
    except Refused as refused:
        message = str(refused)
    except OSError as error:
        message = f"{error.filename}: {error.strerror}"
    print(message, file=sys.stderr)
    sys.exit(2)
