#!/usr/bin/env python3
"""Checks where programs and libraries look for the libraries that they need.

    check_search_paths.py FOLDER ...

Looks at every ELF file below the folders. Each entry of a search path must begin at the file's own place: an empty or
relative entry is the current folder, from which whoever fills that folder would be loaded, and an absolute one does not
outlive the machine that it was built on.
"""
import pathlib
import re
import subprocess
import sys

PATH = re.compile(r"\((?:RPATH|RUNPATH)\)\s+Library (?:rpath|runpath): \[(.*)\]")


def is_elf(path):
    with path.open("rb") as file:
        return file.read(4) == b"\x7fELF"


def main():
    files = sorted(path for folder in sys.argv[1:] for path in pathlib.Path(folder).rglob("*")
                   if path.is_file() and not path.is_symlink() and is_elf(path))
    faults = []
    with_path = 0
    for path in files:
        text = subprocess.run(["readelf", "-d", str(path)], check=True, capture_output=True, text=True).stdout
        for found in PATH.findall(text):
            with_path += 1
            faults += [f"{path}: entry {entry!r} of {found!r}" for entry in found.split(":")
                       if not re.fullmatch(r"\$ORIGIN(/[\w./-]+)?", entry)]
    print("\n".join(faults))
    print(f"{len(files)} files, {with_path} with a search path")
    return 1 if faults or not with_path else 0


if __name__ == "__main__":
    sys.exit(main())
