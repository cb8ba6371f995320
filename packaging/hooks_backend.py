"""Builds what pip installs of this repository: an empty wheel that depends on the program's wheel of
the same version, so that the hooks need no compiler."""

import pathlib

from pack_wheel import Wheel, write_wheel
from programs import project_version


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    """Called by pip, as build backends are; there is nothing that could be set."""
    del config_settings, metadata_directory
    version = project_version()
    wheel = Wheel("registry-docs-hooks", version, ("any",), [
        "Summary: The hooks of registry-docs for pre-commit", f"Requires-Dist: registry-docs=={version}"], "", {})
    return write_wheel(wheel, pathlib.Path(wheel_directory)).name
