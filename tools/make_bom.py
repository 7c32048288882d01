#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the bill of materials of a release: what others made and the release holds, with versions
and licences, as CycloneDX JSON.

Usage: make_bom.py VERSION THIRD_PARTY_LIST BOM_FILE

The list is the one that CMake writes: a third-party target in each line, and the folder of its
headers. Versions are read from there, or asked of the package that a file came with. The date is
that which the environment gives in SOURCE_DATE_EPOCH, in seconds since 1970.
"""

import json
import os
import re
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[1]
COMPILER = "x86_64-w64-mingw32-g++-posix"


@dataclass(frozen=True)
class Material:
    """Something that others made. Its version stands in a file of its folder, after a pattern; where
    there is no such file, the version is that of the package."""

    title: str
    licence: str
    version_file: str = ""
    version_pattern: str = ""


# The third-party targets of CMake.
TARGETS = {
    "vst3sdk": Material("VST 3 SDK", "GPL-3.0-only", "pluginterfaces/vst/vsttypes.h",
                        r'kVstVersionString\s+"VST ([\d.]+)"'),
    "utfcpp": Material("UTF8-CPP", "BSL-1.0"),
    "cli11": Material("CLI11", "BSD-3-Clause", "Version.hpp", r'CLI11_VERSION "([\d.]+)"'),
    "nlohmann_json": Material("JSON for Modern C++", "MIT", "json.hpp", r"version ([\d.]+)"),
    "flite": Material("Flite", "MIT-Festival", "flite_version.h",
                      r'FLITE_PROJECT_VERSION "([\d.]+)"'),
    "pugixml": Material("pugixml", "MIT", "pugixml.hpp", r"PUGIXML_VERSION \d+ // ([\d.]+)"),
    "zlib": Material("zlib", "Zlib", "zlib.h", r'ZLIB_VERSION "([\d.]+)"'),
    "minizip": Material("minizip", "Zlib", "contrib/minizip/unzip.h", r"Version ([\d.]+)"),
}  # fmt: skip

# Targets that hold more than what they are named after.
ALSO_IN = {"minizip": ["zlib"]}

# What the compilers and the maker of the setup program add of their own, and a file that comes with it.
TOOLS = {
    "libstdc++": (Material("GNU C++ library and libgcc", "GPL-3.0-or-later WITH GCC-exception-3.1"),
                  "libstdc++.a"),
    "mingw-w64": (Material("MinGW-w64 runtime", "ZPL-2.1 AND MIT"), "libmingw32.a"),
    "winpthreads": (Material("winpthreads", "MIT AND BSD-3-Clause"), "libwinpthread.a"),
    "emscripten": (Material("Emscripten runtime with musl, libc++ and dlmalloc",
                            "MIT AND (Apache-2.0 WITH LLVM-exception) AND CC0-1.0"),
                   "/usr/share/emscripten/emcc.py"),
    "nsis": (Material("NSIS", "Zlib"), "/usr/bin/makensis"),
}  # fmt: skip

DICTIONARY = Material("CMU Pronouncing Dictionary", "LicenseRef-CMUdict")


def output_of(*command: str) -> str:
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()


def package_of(file: Path) -> tuple[str, str]:
    """Returns the name and the version of the Debian package that a file came with."""
    name = output_of("dpkg-query", "--search", str(file)).partition(":")[0]
    return name, output_of("dpkg-query", "--show", "--showformat=${Version}", name)


def component(reference: str, material: Material, version: str, package: str = "") -> dict:
    found = {
        "type": "data" if material is DICTIONARY else "library",
        "bom-ref": reference,
        "name": material.title,
        "version": version,
        "licenses": [{"expression": material.licence}],
    }
    if package:
        # What a package version may hold and an address may not is written as a number.
        found["purl"] = f"pkg:deb/debian/{package}@{version}".replace("+", "%2B")
    return found


def from_target(target: str, folder: Path) -> dict:
    if target not in TARGETS:
        raise SystemExit(f"make_bom: expected the third-party target '{target}' in TARGETS, found "
                         "none; say there how it is called and licensed.")  # fmt: skip
    material = TARGETS[target]
    if not material.version_file:
        package, version = package_of(folder.resolve())
        return component(target, material, version, package)
    file = folder / material.version_file
    version = re.search(material.version_pattern, file.read_text(encoding="utf-8"))
    if not version:
        raise SystemExit(f"make_bom: expected '{material.version_pattern}' in {file}, found none.")
    return component(target, material, version[1])


def from_tool(reference: str, material: Material, file: str) -> dict:
    path = Path(output_of(COMPILER, f"-print-file-name={file}")).resolve()
    package, version = package_of(path)
    return component(reference, material, version, package)


def dictionary() -> dict:
    (text,) = (PROJECT / "src/resources").glob("cmudict-*")
    return component("cmudict", DICTIONARY, text.name.split("-")[1])


def bill_of_materials(version: str, third_party: list[tuple[str, Path]]) -> dict:
    listed = [(target, folder) for name, folder in third_party
              for target in [name, *ALSO_IN.get(name, [])]]
    components = [from_target(*item) for item in listed]
    components += [from_tool(name, *tool) for name, tool in TOOLS.items()]
    components.append(dictionary())
    components.sort(key=lambda item: item["bom-ref"])
    date = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))
    return {
        "bomFormat": "CycloneDX",
        "specVersion": "1.5",
        "version": 1,
        "metadata": {
            "timestamp": time.strftime("%Y-%m-%dT%H:%M:%SZ", date),
            "component": {
                "type": "application",
                "bom-ref": "wy-beta",
                "name": "WY Beta",
                "version": version,
                "licenses": [{"expression": "GPL-3.0-or-later"}],
            },
        },
        "components": components,
        "dependencies": [
            {"ref": "wy-beta", "dependsOn": [item["bom-ref"] for item in components]}
        ],
    }


def main(version: str, third_party_list: str, bom_file: str) -> None:
    lines = Path(third_party_list).read_text(encoding="utf-8").splitlines()
    third_party = [(target, Path(folder)) for target, folder in (line.split("\t") for line in lines)]
    text = json.dumps(bill_of_materials(version, third_party), indent=2, ensure_ascii=False)
    Path(bom_file).write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
