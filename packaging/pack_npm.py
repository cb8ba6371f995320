"""Packs the programs for npm: a package for each platform, and the one that names them all.

pack_npm.py PROGRAMS VERSION OUT takes PROGRAMS/PLATFORM/registry-docs of each platform that is
there. Equal programs and an equal SOURCE_DATE_EPOCH give equal bytes.
"""

import gzip
import io
import json
import pathlib
import tarfile

from programs import DESCRIPTION, PLATFORMS, TOP, Program, main, notices, source_date

HERE = TOP / "packaging/npm"


def manifest(name: str, version: str, members: dict) -> bytes:
    """A package.json."""
    licence = "SEE LICENSE IN LICENSE" if (TOP / "LICENSE").exists() else "UNLICENSED"
    begin = {"name": name, "version": version, "description": DESCRIPTION, "license": licence}
    return (json.dumps(begin | members, indent=2) + "\n").encode()


def write_package(path: pathlib.Path, files: dict[str, bytes], executable: str) -> pathlib.Path:
    """Writes a package with these files, of which one may be run."""
    packed = io.BytesIO()
    with tarfile.open(fileobj=packed, mode="w", format=tarfile.USTAR_FORMAT) as archive:
        for name, content in sorted(files.items()):
            entry = tarfile.TarInfo(f"package/{name}")
            entry.size, entry.mtime = len(content), source_date()
            entry.mode = 0o755 if name == executable else 0o644
            archive.addfile(entry, io.BytesIO(content))
    path.write_bytes(gzip.compress(packed.getvalue(), mtime=0))
    return path


def package_of(program: Program) -> str:
    """The name of the package that holds a program."""
    return f"registry-docs-{program.platform}"


def pack_platform(program: Program, version: str, out: pathlib.Path) -> pathlib.Path:
    """The package of one platform, which npm installs there and nowhere else."""
    name, executable = package_of(program), f"bin/{program.name}"
    platform = PLATFORMS[program.platform]
    readme = f"# {name}\n\nThe program of the package `registry-docs` for {program.platform}.\n"
    files = notices("LICENSE") | {
        "README.md": readme.encode(),
        "package.json": manifest(name, version, {
            "os": [platform.os],
            "cpu": [platform.cpu],
            "preferUnplugged": True,  # a program cannot be run inside an archive
        }),
        executable: program.content,
    }
    return write_package(out / f"{name}-{version}.tgz", files, executable)


def pack(programs: list[Program], version: str, out: pathlib.Path) -> list[pathlib.Path]:
    """All packages."""
    executable = "bin/registry-docs.js"
    files = notices("LICENSE") | {
        "README.md": (HERE / "README.md").read_bytes(),
        "package.json": manifest("registry-docs", version, {
            "bin": {"registry-docs": executable},
            "engines": {"node": ">=18"},
            "optionalDependencies": {package_of(each): version for each in programs},
        }),
        executable: (HERE / "registry-docs.js").read_bytes(),
    }
    return [write_package(out / f"registry-docs-{version}.tgz", files, executable)] + [
        pack_platform(each, version, out) for each in programs]


if __name__ == "__main__":
    main(pack)
