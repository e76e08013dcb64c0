"""Says on what, and with what, the figures were measured."""

from __future__ import annotations

import os
import re
import subprocess
from datetime import datetime, timezone
from pathlib import Path

# Debian's packages; those that are not installed are left out.
_PACKAGES = {
    "yajl": "libyajl-dev",
    "nlohmann": "nlohmann-json3-dev",
    "JsonCpp": "libjsoncpp-dev",
    "json-c": "libjson-c-dev",
    "RapidJSON": "rapidjson-dev",
    "Boost.JSON": "libboost1.81-dev",
    "Google Benchmark": "libbenchmark-dev",
    "valgrind": "valgrind",
}
_BUILT_FROM = ("CMakeLists.txt", "CMakePresets.json", "bench", "cmake", "core", "include", "src")


def describe(build: Path) -> dict[str, str]:
    """Of this machine and a CMake build directory."""
    cache = _cmake_cache(build / "CMakeCache.txt")
    flags = " ".join(
        cache.get(name, "")
        for name in ("CMAKE_CXX_FLAGS", f"CMAKE_CXX_FLAGS_{cache['CMAKE_BUILD_TYPE'].upper()}")
    )
    load = os.getloadavg()[0]
    return {
        "date": datetime.now(timezone.utc).strftime("%Y-%m-%d"),
        "Tessera": _commit(),
        "processor": f"{_processor()}, {os.cpu_count()} cores",
        "load when it began": f"{load:.1f}",
        "system": f"{_system()}, {os.confstr('CS_GNU_LIBC_VERSION')}",
        "compiler": _output([cache["CMAKE_CXX_COMPILER"], "--version"]).partition("\n")[0],
        "build type": f"{cache['CMAKE_BUILD_TYPE']}, `{flags.strip()}`",
        "libraries": ", ".join(_versions()),
    }


def _cmake_cache(file: Path) -> dict[str, str]:
    entries = re.findall(r"^(\w+):\w+=(.*)$", file.read_text(encoding="utf-8"), re.MULTILINE)
    return dict(entries)


def _commit() -> str:
    commit = _output(["git", "rev-parse", "--short", "HEAD"])
    changed = _output(["git", "status", "--porcelain", "--", *_BUILT_FROM])
    return f"commit {commit or 'unknown'}{' and changes to it' if changed else ''}"


def _processor() -> str:
    for line in Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
        if line.startswith("model name"):
            return line.partition(":")[2].strip()
    return _output(["uname", "-m"])


def _system() -> str:
    match = re.search(
        r'^PRETTY_NAME="?(.*?)"?$', Path("/etc/os-release").read_text("utf-8"), re.MULTILINE
    )
    return match[1] if match else _output(["uname", "-sr"])


def _versions() -> list[str]:
    versions = []
    for title, package in _PACKAGES.items():
        found = _output(["dpkg-query", "-W", "-f", "${db:Status-Status} ${Version}", package])
        status, _, version = found.partition(" ")
        if status == "installed":
            versions.append(f"{title} {version}")
    return versions


def _output(command: list[str]) -> str:
    """What a program prints; nothing where it fails or is not there."""
    try:
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()
    except (OSError, subprocess.CalledProcessError):
        return ""
