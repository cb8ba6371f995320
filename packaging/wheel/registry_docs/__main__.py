"""Runs the program that was installed together with this package."""

import importlib.metadata
import os
import pathlib
import subprocess
import sys
import sysconfig

NAME = "registry-docs" + (sysconfig.get_config_var("EXE") or "")


def places():
    """Where the program may be, the likeliest first."""
    yield pathlib.Path(__file__).parents[1] / "bin" / NAME  # pip install --target
    try:
        installed = importlib.metadata.distribution("registry-docs").files or []
    except importlib.metadata.PackageNotFoundError:
        installed = []
    yield from (pathlib.Path(each.locate()).resolve() for each in installed if each.name == NAME)
    yield pathlib.Path(sysconfig.get_path("scripts"), NAME)


def main():
    """Becomes the program, or runs it where no process can become another one."""
    looked = []
    for program in places():
        if program.is_file():
            command = [str(program), *sys.argv[1:]]
            if os.name == "posix":
                os.execv(command[0], command)
            sys.exit(subprocess.call(command))
        looked.append(str(program))
    print(f"registry_docs: expected the program at {' or '.join(dict.fromkeys(looked))}, found none; "
          "install registry-docs again", file=sys.stderr)
    sys.exit(2)


if __name__ == "__main__":
    main()
