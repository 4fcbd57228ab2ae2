#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Changes one small thing at a time in the data access, the stores and the record procedures, and sees
whether a test notices.

    cmake --preset dev -B build/mutants -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld
    cmake --build build/mutants
    tests/hard/mutate.py build/mutants [--count N] [--seed S] [--jobs J] [--road ROAD]
    tests/hard/mutate.py build/mutants --again OUTPUT_OF_A_FORMER_RUN

The build folder must be up to date and used by no one else meanwhile; without optimisation and with a fast
linker it goes quickest. The sources themselves are never touched: each mutant is compiled by the compile
command of its file, with the changed text in a file of its own, linked into copies of the tests ahead of the
library that holds the original, and those tests are run, up to the first failure.

A mutant is killed when a test fails, crashes, or takes much more of the processor than without it. Since a
busy machine can bring a failure about, too, it must come twice, and a test that hangs must not hang without
the mutant. What the compiler refuses is no mutant, and neither is what compiles to the same optimised code as
the original: another one is drawn in its place. Each road (data access, stores, clients, assistance) gets its
share of the sample by the number of its mutants, and within it all mutants of all files are drawn alike; the
same seed draws the same ones. So the roads may be run apart and added up.

The includes of a library's files are compiled ahead, once. The times of the tests are kept in the build
folder, in mutate.times.

Survivors are printed with their place; each wants a test, or a word why it changes nothing that anyone can
see. `--again` tries the survivors of a former run once more, after the tests that they wanted were written.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import json
import math
import os
import pathlib
import random
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

SOURCE = pathlib.Path(__file__).resolve().parents[2]
LEAST_KILLED = 0.85

# What is changed, and the folders of the tests that should notice, nearest first.
ROADS = {
    "dao": (["src/platform/dao"], ["tests/platform/dao", "tests/support"]),
    "stores": (["src/stores"], ["tests/stores"]),
    "clients": (["src/clients/clientrecord.cpp", "src/clients/concepts.cpp", "src/clients/detaillines.cpp",
                 "src/clients/elplan.cpp", "src/clients/fieldrules.cpp", "src/clients/linegrids.cpp",
                 "src/clients/search.cpp"],
                ["tests/clients", "tests/assistance", "tests/lookup"]),
    "assistance": (["src/assistance/consultationrecord.cpp", "src/assistance/consultationtree.cpp",
                    "src/assistance/consultaspage.cpp", "src/assistance/longitudes.cpp"],
                   ["tests/assistance", "tests/clients"]),
}

# Tests that take long and would notice little that the others don't.
LEFT_OUT = ("tests/tst_manystations", "tests/tst_typedtexts")

# What is looked for outside comments and literals, and what is put there. Statements come on top of these.
RULES = [
    (r"==", ["!="]), (r"!=", ["=="]),
    (r"(?<=\s)<(?=\s)", ["<=", ">="]), (r"(?<=\s)>(?=\s)", [">=", "<="]),
    (r"<=", ["<"]), (r">=", [">"]),
    (r"&&", ["||"]), (r"\|\|", ["&&"]),
    (r"(?<=\s)\+(?=\s)", ["-"]), (r"(?<=\s)-(?=\s)", ["+"]),
    (r"\+\+", ["--"]), (r"\+=", ["-="]),
    (r"(?<![\w.])0(?![\w.])", ["1"]), (r"(?<![\w.])1(?![\w.])", ["0", "2"]),
    (r"\btrue\b", ["false"]), (r"\bfalse\b", ["true"]),
    (r"(?<=[(\s=])!(?=[\w(])", [""]),
    (r"(?<=\bif )\((?=holds\()", ["(!"]),
    (r"\bcontinue;", ["break;"]), (r"\bbreak;", [";"]),
]

# The beginning of a statement that declares something, or can't be left out alone.
NOT_REMOVED = re.compile(r"(?!throw\b)(?:(?:return\b(?!;)|if|else|for|while|do|switch|case|default|using|const|"
                         r"constexpr|auto|static|struct|class|enum|friend|namespace|template|typedef|break|"
                         r"continue|public|private)\b|[\w:]+(?:<[^;=]*>)?[&*]* [&*]?\w+(?: = |;|\(|\{))")


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: pathlib.Path
    start: int
    end: int
    new: str

    def text(self):
        original = self.path.read_text()
        # As many lines as before, so that an assertion's line number doesn't tell the two apart.
        lines = "\n" * original.count("\n", self.start, self.end)
        return original[:self.start] + self.new + lines + original[self.end:]

    def place(self):
        original = self.path.read_text()
        line = original.count("\n", 0, self.start) + 1
        column = self.start - original.rfind("\n", 0, self.start)
        old = " ".join(original[self.start:self.end].split())
        return f"{self.path.relative_to(SOURCE)}:{line}:{column}: {old!r} -> {self.new!r}"


def blanked(text):
    """The text with comments, literals, includes and template heads blanked out, place for place."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'|^\s*#[^\n]*|'
                         r"template\s*<[^>]*>", re.S | re.M)
    return pattern.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def statements(clean):
    """Start and end of each statement that stands on lines of its own and can be left out alone."""
    for found in re.finditer(r"(?m)^ {4,}(?=[\w*(])", clean):
        if NOT_REMOVED.match(clean, found.end()):
            continue
        depth = 0
        for place in range(found.end(), len(clean)):
            character = clean[place]
            depth += (character in "([{") - (character in ")]}")
            # A brace outside brackets opens a block or a list; a bracket too many closes an outer one.
            if depth < 0 or (character == "{" and depth == 1):
                break
            if character == ";" and depth == 0:
                yield found.end(), place + 1
                break


def mutants_of(path):
    clean = blanked(path.read_text())
    for pattern, replacements in RULES:
        for found in re.finditer(pattern, clean):
            for replacement in replacements:
                yield Mutant(path, found.start(), found.end(), replacement)
    for start, end in statements(clean):
        yield Mutant(path, start, end, ";")


def sources(road):
    for name in ROADS[road][0]:
        place = SOURCE / name
        yield from [place] if place.is_file() else sorted(place.glob("*.cpp"))


def road_of(path):
    return next(road for road in ROADS if path in sources(road))


class Build:
    """A build folder: its compile and link commands, as ninja tells them, and its test programs."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.prepared = {}  # compiled includes by library and options
        self.preparing = threading.Lock()
        lines = subprocess.run(["ninja", "-C", str(self.folder), "-t", "commands", "all"], check=True,
                               capture_output=True, text=True).stdout.splitlines()
        self.compiles = {}  # by source
        self.links = {}  # by test program
        self.test_folders = {}
        for line in lines:
            if found := re.search(r" -c (\S+)$", line):
                self.compiles[found.group(1)] = line
            elif found := re.search(r" -o (tests/tst_\w+) ", line):
                test = found.group(1)
                folder = re.search(r"(\S+)/CMakeFiles/" + test.split("/")[1] + r"\.dir/", line).group(1)
                if (self.folder / test).exists() and test not in LEFT_OUT:
                    self.links[test] = line
                    self.test_folders[test] = folder

    def run(self, command):
        """True when the shell command succeeds."""
        return subprocess.run(["bash", "-c", command], cwd=self.folder, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def library_of(self, path):
        return re.search(r" -o \S*/CMakeFiles/(\w+)\.dir/", self.compiles[str(path)]).group(1)

    def words(self, path, source, compiled, *options):
        """The compile command of the file, for another source and object, without warnings."""
        words = shlex.split(self.compiles[str(path)])
        for flag in ("-MF", "-MT"):
            place = words.index(flag)
            del words[place:place + 2]
        words.remove("-MD")
        words[words.index("-o") + 1] = str(compiled)
        words[-2:] = ["-w", "-g0", *options, "-c", str(source)]
        return words

    def includes(self, path, *options):
        """A header of all that the changed files of the file's library include, compiled."""
        library = self.library_of(path)
        with self.preparing:
            if (library, options) not in self.prepared:
                folder = pathlib.Path(tempfile.mkdtemp(prefix="includes-"))
                header = folder / "includes.h"
                lines = {line for road in ROADS for other in sources(road) if self.library_of(other) == library
                         for line in re.findall(r"(?m)^#include .*$", other.read_text())}
                header.write_text("\n".join(sorted(lines)) + "\n")
                words = self.words(path, header, f"{header}.gch", *options)
                words[-2:] = ["-x", "c++-header", str(header)]
                if not self.run(shlex.join(words)):
                    raise RuntimeError(f"the includes of {library} can't be compiled")
                self.prepared[library, options] = header
            return self.prepared[library, options]

    def forget_includes(self):
        for header in self.prepared.values():
            shutil.rmtree(header.parent)

    def compile(self, path, text, folder, compiled, *options):
        """True when the text compiles in place of the file; the object is `compiled` then."""
        changed = folder / path.name
        changed.write_text(text)
        header = self.includes(path, *options)
        return self.run(shlex.join(self.words(path, changed, compiled, *options, "-include", str(header))))

    def link(self, test, compiled, program):
        # Before the libraries, so that the linker takes the mutant and leaves the original's object out.
        return self.run(self.links[test].replace(f" -o {test} ", f" {compiled} -o {program} ", 1))

    def tests_of(self, path):
        """The tests that hold the file's library and stand in the folders of its road, nearest first."""
        library = self.library_of(path)
        folders = ROADS[road_of(path)][1]
        tests = [test for test, link in self.links.items()
                 if f"lib{library}.a" in link and self.test_folders[test] in folders]
        return sorted(tests, key=lambda test: folders.index(self.test_folders[test]))


def end_group(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


@dataclasses.dataclass
class Run:
    failure: str | None  # the test function that failed first, or CRASH, ENDLESS, HANGING
    seconds: float  # of the processor


CRASH, ENDLESS, HANGING = "a crash", "no end", "a hang"


def run_test(program, most_seconds, *functions):
    """Runs a test program, or some functions of it, up to the first failure."""
    with tempfile.TemporaryDirectory(prefix="run-") as folder:
        os.chmod(folder, 0o755)  # some tests work as another user
        command = ["bash", "-c", 'ulimit -St "$0"; exec "$@"', str(math.ceil(most_seconds)), program, *functions]
        process = subprocess.Popen(command, cwd=folder, env=os.environ | {"TMPDIR": folder},
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   text=True, errors="replace", start_new_session=True)
        late = threading.Event()
        timer = threading.Timer(60 + 20 * most_seconds, lambda: (late.set(), end_group(process)))
        timer.start()
        failure = None
        for line in process.stdout:
            if found := re.match(r"(?:FAIL!|XPASS)\s*: \w+::(\w+)", line):
                failure = found.group(1)
                break
        if failure:
            end_group(process)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = code = os.waitstatus_to_exitcode(status)
        timer.cancel()
        end_group(process)  # stations that it started
        process.stdout.close()
    if failure is None and code != 0:
        failure = HANGING if late.is_set() else ENDLESS if code == -signal.SIGXCPU else CRASH
    return Run(failure, usage.ru_utime + usage.ru_stime)


@dataclasses.dataclass
class Outcome:
    mutant: Mutant
    kind: str  # "killed", "survived", "refused", "same code"
    killer: str = ""


class Trials:
    """Tries mutants; remembers how long the tests take and which ones killed."""

    def __init__(self, build):
        self.build = build
        self.killers = collections.defaultdict(list)  # tests by file, the one that killed last in front
        self.lock = threading.Lock()
        self.record = build.folder / "mutate.times"
        # Seconds of a test without a mutant, by test and the program's time.
        self.usual = json.loads(self.record.read_text()) if self.record.exists() else {}

    def key(self, test):
        return f"{test} {(self.build.folder / test).stat().st_mtime_ns}"

    def seconds(self, test):
        """Processor time of the test without a mutant; None when it fails without one."""
        key = self.key(test)
        if key not in self.usual:
            run = run_test(self.build.folder / test, 600)
            if run.failure:
                print(f"left out: {test} fails without a mutant ({run.failure})", flush=True)
            with self.lock:
                self.usual[key] = None if run.failure else run.seconds
                self.record.write_text(json.dumps(self.usual, indent=1))
        return self.usual[key]

    def order(self, path):
        """The tests of a file: those that killed mutants of it, the nearest folder, quick ones first."""
        tests = self.build.tests_of(path)
        folders = self.build.test_folders
        with self.lock:
            last = {test: place for place, test in enumerate(self.killers[path])}
            known = {test: self.usual.get(self.key(test)) or 0 for test in tests}
        return sorted(tests, key=lambda test: (last.get(test, len(tests)),
                                               folders[test] != folders[tests[0]], known[test]))

    def kills(self, test, program):
        """What failed first, when the mutant is the cause; else None."""
        usual = self.seconds(test)
        if usual is None:
            return None
        most = 5 + 4 * usual
        failure = run_test(program, most).failure
        if failure in (None, ENDLESS):
            return failure
        if failure == HANGING:
            return None if run_test(self.build.folder / test, most).failure else failure
        if failure != CRASH and run_test(program, most, failure).failure:
            return failure
        return run_test(program, most).failure

    def is_same_code(self, mutant, folder):
        objects = [folder / "changed.o", folder / "original.o"]
        for compiled, text in zip(objects, (mutant.text(), mutant.path.read_text())):
            self.build.compile(mutant.path, text, folder, compiled, "-O2")
        return objects[0].read_bytes() == objects[1].read_bytes()

    def outcome(self, mutant):
        with tempfile.TemporaryDirectory(prefix="mutant-") as name:
            folder = pathlib.Path(name)
            os.chmod(folder, 0o755)
            compiled = folder / "mutant.o"
            if not self.build.compile(mutant.path, mutant.text(), folder, compiled):
                return Outcome(mutant, "refused")
            for test in self.order(mutant.path):
                program = folder / pathlib.Path(test).name
                if not self.build.link(test, compiled, program):
                    raise RuntimeError(f"{test} can't be linked with {mutant.place()}")
                failure = self.kills(test, program)
                program.unlink()
                if failure:
                    with self.lock:
                        killers = self.killers[mutant.path]
                        if test in killers:
                            killers.remove(test)
                        killers.insert(0, test)
                    return Outcome(mutant, "killed", f"{pathlib.Path(test).name}: {failure}")
            return Outcome(mutant, "same code" if self.is_same_code(mutant, folder) else "survived")


def try_all(trials, drawn, count, jobs):
    """Outcomes of the first `count` real mutants of `drawn`, told as they come."""
    outcomes = []
    drawn = iter(drawn)
    real = 0
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        running = set()
        while True:
            while len(running) < min(jobs, count - real) and (mutant := next(drawn, None)):
                running.add(pool.submit(trials.outcome, mutant))
            if not running:
                return outcomes
            done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
            for outcome in (future.result() for future in done):
                outcomes.append(outcome)
                real += outcome.kind in ("killed", "survived")
                told = f"killed by {outcome.killer}" if outcome.killer else outcome.kind
                print(f"{real}/{count} {told}  {outcome.mutant.place()}", flush=True)


def tell(outcomes, possible):
    """Prints the figures and the survivors. True when enough were killed."""
    kinds = collections.Counter((road_of(outcome.mutant.path), outcome.kind) for outcome in outcomes)
    print(f"\n{possible} mutants possible; of those drawn the compiler refused "
          f"{sum(kinds[road, 'refused'] for road in ROADS)}, and "
          f"{sum(kinds[road, 'same code'] for road in ROADS)} compiled to the same code")
    for road in ROADS:
        killed, survived = kinds[road, "killed"], kinds[road, "survived"]
        print(f"  {road:11} {killed:4} of {killed + survived:4} killed")
    killed = sum(kinds[road, "killed"] for road in ROADS)
    real = killed + sum(kinds[road, "survived"] for road in ROADS)
    print(f"{killed} of {real} killed ({100 * killed / max(1, real):.1f} %)")
    for outcome in outcomes:
        if outcome.kind == "survived":
            print("survivor:", outcome.mutant.place())
    return killed >= LEAST_KILLED * real


def main():
    parser = argparse.ArgumentParser(description="Sees whether the tests notice small changes.")
    parser.add_argument("build")
    parser.add_argument("--count", type=int, default=200)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--road", choices=ROADS, help="tries the share of one road only")
    parser.add_argument("--again", type=pathlib.Path, help="output of a former run, whose survivors are tried")
    options = parser.parse_args()
    os.environ |= {"QT_QPA_PLATFORM": "offscreen", "CCACHE_DISABLE": "1"}

    possible = {road: [mutant for path in sources(road) for mutant in mutants_of(path)] for road in ROADS}
    total = sum(map(len, possible.values()))
    wanted = None
    if options.again:
        wanted = set(re.findall(r"(?m)^survivor: (.*)$", options.again.read_text()))
    trials = Trials(Build(options.build))
    outcomes = []
    try:
        for road in [options.road] if options.road else ROADS:
            drawn = possible[road]
            count = round(options.count * len(drawn) / total)
            random.Random(options.seed).shuffle(drawn)
            if wanted is not None:
                drawn = [mutant for mutant in drawn if mutant.place() in wanted]
                count = len(drawn)
            outcomes += try_all(trials, drawn, count, options.jobs)
    finally:
        trials.build.forget_includes()
    if wanted is not None and len(outcomes) < len(wanted):
        print(f"{len(wanted) - len(outcomes)} survivors of the former run are no longer in the sources")
    return 0 if tell(outcomes, total) else 1


if __name__ == "__main__":
    sys.exit(main())
