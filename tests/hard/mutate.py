#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Changes one small thing at a time in the data access, the stores and the record procedures, and sees
whether a test notices.

    mutate.py BUILD [--count N] [--seed S] [--only PART_OF_A_PATH]

BUILD is a configured build folder of this source tree that no one else uses meanwhile. The sources themselves are
never touched: each mutant is compiled by the compile command of its file, with the changed text in a
file of its own, linked into copies of the tests, and those tests are run. A mutant is killed when it doesn't
compile into running tests, when a test fails, or when one takes ten times as long as before. Survivors are
printed with their place; each wants a test, or a word why it changes nothing that anyone can see.
"""

import argparse
import os
import pathlib
import random
import re
import shlex
import subprocess
import sys
import tempfile
import time

SOURCE = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("src/platform/dao", "src/stores", "src/clients/clientrecord.cpp",
           "src/assistance/consultationrecord.cpp")
# The tests that a change in a folder should make fail, quick ones first.
TESTS = {
    "src/platform/dao": ("tests/platform/dao", "tests/stores", "tests/platform/sql"),
    "src/stores": ("tests/stores",),
    "src/clients": ("tests/clients",),
    "src/assistance": ("tests/assistance",),
}

# What is looked for outside comments and literals, and what is put there.
RULES = [
    (r"==", ["!="]), (r"!=", ["=="]),
    (r"(?<=\s)<(?=\s)", ["<=", ">="]), (r"(?<=\s)>(?=\s)", [">=", "<="]),
    (r"<=", ["<"]), (r">=", [">"]),
    (r"&&", ["||"]), (r"\|\|", ["&&"]),
    (r"(?<=\s)\+(?=\s)", ["-"]), (r"(?<=\s)-(?=\s)", ["+"]),
    (r"\+\+", ["--"]),
    (r"(?<![\w.])0(?![\w.])", ["1"]), (r"(?<![\w.])1(?![\w.])", ["0", "2"]),
    (r"\btrue\b", ["false"]), (r"\bfalse\b", ["true"]),
    (r"(?<=[(\s])!(?=[\w(])", [""]),
    (r"(?m)^(\s+)return;$", [r"\1;"]),
    (r"(?m)^(\s+)attempt\(\[&?\] \{ [^\n]* \}\);$", [r"\1;"]),
    (r"\bcontinue;", ["break;"]), (r"\bbreak;", [";"]),
]


def blanked(text):
    """The text with comments, literals, includes and assertions blanked out, place for place."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'|^\s*#[^\n]*|'
                         r"template\s*<[^>]*>", re.S | re.M)
    return pattern.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def mutants_of(path):
    text = path.read_text()
    clean = blanked(text)
    for pattern, replacements in RULES:
        for found in re.finditer(pattern, clean):
            for replacement in replacements:
                new = found.expand(replacement)
                line = text.count("\n", 0, found.start()) + 1
                yield (path, line, found.start(), found.end(), new)


def sources():
    for folder in FOLDERS:
        place = SOURCE / folder
        if place.is_file():
            yield place
        else:
            yield from sorted(place.glob("*.cpp"))


class Build:
    """Compile and link commands of a build folder, as ninja tells them."""

    def __init__(self, folder):
        self.folder = folder
        self.commands = {}

    def of(self, target):
        if target not in self.commands:
            text = subprocess.run(["ninja", "-C", self.folder, "-t", "commands", target], check=True,
                                  capture_output=True, text=True).stdout
            self.commands[target] = [line for line in text.splitlines() if not line.startswith("ninja:")]
        return self.commands[target]

    def run(self, command, limit=600):
        return subprocess.run(["bash", "-c", command], cwd=self.folder, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=limit).returncode

    def compile_of(self, source, target):
        wanted = f" -c {source}"
        return next((c for c in self.of(target) if c.endswith(wanted)), None)

    def link_of(self, target):
        return next((c for c in reversed(self.of(target)) if f" -o tests/{target} " in c), None)


def tests_for(source):
    relative = str(source.relative_to(SOURCE))
    for prefix, folders in TESTS.items():
        if relative.startswith(prefix):
            for folder in folders:
                lists = (SOURCE / folder / "CMakeLists.txt").read_text()
                names = re.findall(r"orvane_test\((tst_\w+)", lists)
                names += ["tst_" + unit for group in re.findall(r"_TESTS ([\w\s]+)\)", lists)
                          for unit in group.split()]
                yield from names


def try_mutant(build, mutant, times):
    """The name of the test that killed the mutant, or None."""
    path, _, start, end, new = mutant
    text = path.read_text()
    with tempfile.TemporaryDirectory(prefix="mutant-", dir=os.environ.get("TMPDIR")) as folder:
        changed = pathlib.Path(folder) / path.name
        changed.write_text(text[:start] + new + text[end:])
        compiled = pathlib.Path(folder) / "mutant.o"
        for test in tests_for(path):
            link = build.link_of(test)
            if link is None or not (pathlib.Path(build.folder) / "tests" / test).exists():
                continue
            if not compiled.exists():
                command = build.compile_of(path, test)
                if command is None:
                    continue
                words = shlex.split(command)
                words[words.index("-o") + 1] = str(compiled)
                for flag in ("-MF", "-MT"):
                    place = words.index(flag)
                    del words[place:place + 2]
                words[-1] = str(changed)
                words = [w for w in words if w not in ("-MD",)]
                if build.run(shlex.join(words)) != 0:
                    return "the compiler"
            program = pathlib.Path(folder) / test
            # Before the libraries, so that the linker takes the mutant and leaves the member out.
            command = link.replace(f" -o tests/{test} ", f" {compiled} -o {program} ", 1)
            if build.run(command) != 0:
                continue
            if not passes(program, times.setdefault(test, measured(build, test))):
                return test
    return None


def measured(build, test):
    begin = time.monotonic()
    subprocess.run([str(pathlib.Path(build.folder) / "tests" / test)], stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=True, timeout=600)
    return time.monotonic() - begin


def passes(program, usual):
    try:
        return subprocess.run([str(program)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=20 + 10 * usual).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build")
    parser.add_argument("--count", type=int, default=200)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", default="", help="part of the path of the sources to change")
    options = parser.parse_args()
    os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
    build = Build(options.build)
    everything = [m for source in sources() if options.only in str(source) for m in mutants_of(source)]
    chosen = random.Random(options.seed).sample(everything, min(options.count, len(everything)))
    times = {}
    survivors = []
    for number, mutant in enumerate(chosen, 1):
        killer = try_mutant(build, mutant, times)
        path, line, start, end, new = mutant
        old = path.read_text()[start:end]
        place = f"{path.relative_to(SOURCE)}:{line}: {old.strip()!r} -> {new.strip()!r}"
        print(f"{number}/{len(chosen)} {'killed by ' + killer if killer else 'SURVIVED'}  {place}", flush=True)
        if killer is None:
            survivors.append(place)
    killed = len(chosen) - len(survivors)
    print(f"\n{killed} of {len(chosen)} killed ({100 * killed / max(1, len(chosen)):.1f} %), "
          f"{len(everything)} mutants possible")
    for place in survivors:
        print("survivor:", place)
    return 0 if killed >= 0.85 * len(chosen) else 1


if __name__ == "__main__":
    sys.exit(main())
