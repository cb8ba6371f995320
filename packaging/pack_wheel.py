"""Packs the programs for pip: a wheel for each platform, which needs no compiler and no Python library.

pack_wheel.py PROGRAMS VERSION OUT takes PROGRAMS/PLATFORM/registry-docs of each platform that is
there. Equal programs and an equal SOURCE_DATE_EPOCH give equal bytes.
"""

import base64
import hashlib
import pathlib
import time
import typing
import zipfile

from programs import DESCRIPTION, PLATFORMS, TOP, Program, main, notices, source_date

HERE = TOP / "packaging/wheel"


class Wheel(typing.NamedTuple):
    """What is in a wheel besides the list of its files."""

    name: str
    version: str
    platforms: tuple[str, ...]
    metadata: list[str]  # lines behind those that every wheel has
    description: str
    files: dict[str, bytes]  # by their paths; {data} and {info} are the wheel's own directories


def _record(name: str, content: bytes) -> str:
    digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).decode().rstrip("=")
    return f"{name},sha256={digest},{len(content)}\n"


def _files_of(wheel: Wheel, stem: str) -> dict[str, bytes]:
    metadata = ["Metadata-Version: 2.1", f"Name: {wheel.name}", f"Version: {wheel.version}",
                "Requires-Python: >=3.9", *wheel.metadata, "", wheel.description]
    kind = ["Wheel-Version: 1.0", f"Generator: registry-docs ({wheel.version})",
            f"Root-Is-Purelib: {str(wheel.platforms == ('any',)).lower()}"]
    kind += [f"Tag: py3-none-{each}" for each in wheel.platforms]
    files = {name.format(data=f"{stem}.data", info=f"{stem}.dist-info"): content
             for name, content in wheel.files.items()}
    files[f"{stem}.dist-info/METADATA"] = "\n".join(metadata).encode()
    files[f"{stem}.dist-info/WHEEL"] = ("\n".join(kind) + "\n").encode()
    record = f"{stem}.dist-info/RECORD"
    lines = [_record(*each) for each in files.items()] + [f"{record},,\n"]
    return files | {record: "".join(lines).encode()}


def write_wheel(wheel: Wheel, out: pathlib.Path) -> pathlib.Path:
    """Writes a wheel, whose scripts can be run."""
    stem = f"{wheel.name.replace('-', '_')}-{wheel.version}"
    path = out / f"{stem}-py3-none-{'.'.join(wheel.platforms)}.whl"
    with zipfile.ZipFile(path, "w") as archive:
        for name, content in _files_of(wheel, stem).items():
            entry = zipfile.ZipInfo(name, time.gmtime(source_date())[:6])
            entry.create_system = 3  # the system that has modes
            entry.external_attr = (0o100755 if ".data/scripts/" in name else 0o100644) << 16
            archive.writestr(entry, content, zipfile.ZIP_DEFLATED)
    return path


def wheel_of(program: Program, version: str) -> Wheel:
    """The wheel of one platform."""
    sources = sorted((HERE / "registry_docs").glob("*.py"))
    files = {f"registry_docs/{each.name}": each.read_bytes() for each in sources}
    files[f"{{data}}/scripts/{program.name}"] = program.content
    copied = notices("LICENSE")
    return Wheel("registry-docs", version, PLATFORMS[program.platform].wheel_tags,
                 [f"Summary: {DESCRIPTION}", "Description-Content-Type: text/markdown",
                  *(f"License-File: {name}" for name in copied)],
                 (HERE / "README.md").read_text(encoding="utf-8"),
                 files | {f"{{info}}/{name}": content for name, content in copied.items()})


def pack(programs: list[Program], version: str, out: pathlib.Path) -> list[pathlib.Path]:
    """All wheels."""
    return [write_wheel(wheel_of(each, version), out) for each in programs]


if __name__ == "__main__":
    main(pack)
