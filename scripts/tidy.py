#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""clang-tidy over the program and its tests, as many files at once as there are processors.

    tidy.py BUILD [FILE...]

BUILD is a folder configured and built by Ninja. A file found clean is looked at again only when it, one of
the project's headers that it includes, its compile command, the configuration or clang-tidy itself is another;
the signs of that lie in BUILD/tidy. Exit 1 when there are findings, with all of them printed.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

TIDY = "clang-tidy-14"
SOURCE = pathlib.Path(__file__).resolve().parents[1]
LOOKED_AT = ("src/*.cpp", "tests/*.cpp", ":!tests/fuzz")


def output_of(*command):
    return subprocess.run(command, cwd=SOURCE, check=True, capture_output=True, text=True).stdout


def committed_files():
    return [SOURCE / name for name in output_of("git", "ls-files", *LOOKED_AT).splitlines()]


def compile_commands(build):
    """Command by source file; of a file that several targets compile, the last one stands for all."""
    entries = json.loads((build / "compile_commands.json").read_text())
    return {pathlib.Path(entry["file"]): entry["command"] for entry in entries}


def object_of(command):
    words = shlex.split(command)
    return words[words.index("-o") + 1]


def own_headers(build):
    """What each object was made of, as far as it can change: files of the source tree and of the build."""
    headers, target = {}, None
    for line in output_of("ninja", "-C", str(build), "-t", "deps").splitlines():
        if line and not line.startswith(" "):
            target = line.split(": #deps")[0]
            headers[target] = []
        elif line.strip():
            path = pathlib.Path(os.path.normpath(build / line.strip()))
            if path.is_relative_to(SOURCE):
                headers[target].append(path)
    return headers


class Signs:
    """Which files were clean, by a sum over everything that the finding depends on."""

    def __init__(self, build):
        self.folder = build / "tidy"
        self.folder.mkdir(exist_ok=True)
        self.commands = compile_commands(build)
        self.headers = own_headers(build)
        self.sums = {}
        self.common = output_of(TIDY, "--version") + (SOURCE / ".clang-tidy").read_text()

    def sum_of_content(self, path):
        if path not in self.sums:
            self.sums[path] = hashlib.sha256(path.read_bytes()).hexdigest()
        return self.sums[path]

    def of(self, file):
        command = self.commands[file]
        parts = [self.common, command, self.sum_of_content(file)]
        parts += [self.sum_of_content(header) for header in self.headers[object_of(command)]]
        return self.folder / hashlib.sha256("\n".join(parts).encode()).hexdigest()


def findings_in(file, build, sign):
    run = subprocess.run([TIDY, "--quiet", "-p", str(build), str(file)], cwd=SOURCE, capture_output=True, text=True)
    if run.returncode == 0:
        sign.touch()
        return None
    return run.stdout + run.stderr


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    build = pathlib.Path(sys.argv[1]).resolve()
    files = [pathlib.Path(name).resolve() for name in sys.argv[2:]] or committed_files()
    signs = Signs(build)
    unknown = [file for file in files if file not in signs.commands]
    for file in unknown:
        print(f"{file.relative_to(SOURCE)}: is built by no target", file=sys.stderr)
    signed = {file: signs.of(file) for file in files if file not in unknown}
    todo = [file for file in signed if not signed[file].exists()]
    print(f"{len(signed) - len(todo)} files are clean as they were, {len(todo)} to look at", flush=True)
    faulty = len(unknown)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(lambda file: findings_in(file, build, signed[file]), todo):
            if found is not None:
                faulty += 1
                print(found, flush=True)
    print(f"{len(files) - faulty} of {len(files)} files are clean")
    return 1 if faulty else 0


if __name__ == "__main__":
    sys.exit(main())
