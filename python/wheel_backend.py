"""Builds a wheel of the package with CMake; pip calls it.

The module in the wheel contains the libraries, so that it needs none of them on the system.
"""

from __future__ import annotations

import base64
import hashlib
import os
import re
import subprocess
import sys
import sysconfig
import tempfile
import zipfile
from pathlib import Path
from typing import Any

ROOT = Path(__file__).resolve().parent.parent

METADATA = """Metadata-Version: 2.1
Name: rtti
Version: {version}
Summary: Types of HDL designs: loading, asking, comparing, importing and building type files
License: Apache-2.0
Requires-Python: >=3.10
"""

WHEEL = """Wheel-Version: 1.0
Generator: rtti
Root-Is-Purelib: false
Tag: {tag}
"""


def _version() -> str:
    header = (ROOT / "RTTI" / "Version.h").read_text()
    return ".".join(re.findall(r"^#define RTTI_VERSION_[A-Z]+ (\d+)$", header, re.MULTILINE))


def _tag() -> str:
    python = f"cp{sys.version_info.major}{sys.version_info.minor}"
    platform = sysconfig.get_platform().replace("-", "_").replace(".", "_")
    return f"{python}-{python}-{platform}"


def _install(folder: Path) -> None:
    """Builds the package and puts it into a folder."""
    with tempfile.TemporaryDirectory() as build:
        run = subprocess.check_call
        run(["cmake", "-S", ROOT, "-B", build, "-DCMAKE_BUILD_TYPE=Release",
             "-DBUILD_SHARED_LIBS=OFF", "-DBUILD_TESTING=OFF", "-DRTTI_BUILD_TOOLS=OFF",
             "-DRTTI_BUILD_PYTHON=ON", "-DRTTI_PYTHON_DIR=.",
             f"-DPython3_EXECUTABLE={sys.executable}"])
        run(["cmake", "--build", build, "--target", "rtti_python_package", "--parallel",
             str(os.cpu_count() or 1)])
        run(["cmake", "--install", build, "--component", "Python", "--strip", "--prefix", folder])


def _record(name: str, content: bytes) -> str:
    digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
    return f"{name},sha256={digest},{len(content)}\n"


def build_wheel(
    wheel_directory: str,
    config_settings: dict[str, Any] | None = None,
    metadata_directory: str | None = None,
) -> str:
    """Writes the wheel and returns its name."""
    version, tag = _version(), _tag()
    information = f"rtti-{version}.dist-info"
    files = {
        f"{information}/METADATA": METADATA.format(version=version).encode(),
        f"{information}/WHEEL": WHEEL.format(tag=tag).encode(),
        f"{information}/LICENSE": (ROOT / "LICENSE").read_bytes(),
    }
    with tempfile.TemporaryDirectory() as installed:
        folder = Path(installed)
        _install(folder)
        for path in sorted(folder.rglob("*")):
            if path.is_file():
                files[path.relative_to(folder).as_posix()] = path.read_bytes()
    record = "".join(_record(name, content) for name, content in files.items())
    files[f"{information}/RECORD"] = f"{record}{information}/RECORD,,\n".encode()
    wheel = f"rtti-{version}-{tag}.whl"
    with zipfile.ZipFile(Path(wheel_directory) / wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in files.items():
            archive.writestr(name, content)
    return wheel
