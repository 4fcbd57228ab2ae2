#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays a user's day at the built program: real windows, keys and clicks on an X server of its own. Checks what
the day leaves in the stores and on paper, and keeps pictures of it. Ends with 1 and one line at the first thing
that isn't as a user expects."""

import argparse
import os
import shutil
import signal
import sys
import tempfile
import time

from day import CHAPTERS
from servants import Servants
from tour import Tour
from waiting import Broken

LEAST_PICTURES = 30


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--programs", required=True, help="folder of orvane and orvane-data")
    parser.add_argument("--collation", required=True, help="the sqlite3 tool's extension with the stores' order")
    parser.add_argument("--preload", help="library that the sqlite3 tool needs before that extension")
    parser.add_argument("--pictures", required=True, help="folder for pictures and exported reports")
    return parser.parse_args()


def play(tour):
    for chapter in CHAPTERS:
        begun = time.monotonic()
        print(f"== {chapter.__doc__.splitlines()[0]}", end=" ", flush=True)
        chapter.play(tour)
        print(f"({time.monotonic() - begun:.1f} s)", flush=True)
    if len(tour.eyes.names) < LEAST_PICTURES:
        raise Broken(f"only {len(tour.eyes.names)} pictures")


def failed(tour, broken, logs, pictures):
    """Leaves what helps to see why: the desk as it is, and what the programs said."""
    if tour:
        tour.eyes.picture("failed")
        tour.eyes.finish()
    shutil.copytree(logs, os.path.join(pictures, "logs"))
    print(f"\ntour: {broken}", file=sys.stderr)
    return 1


def main():
    given = arguments()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # so that the processes end with the tour
    pictures = os.path.abspath(given.pictures)
    shutil.rmtree(pictures, ignore_errors=True)
    os.makedirs(pictures)
    tour = None
    with tempfile.TemporaryDirectory(prefix="orvane-tour-") as work:
        logs = os.path.join(work, "logs")
        servants = Servants(logs)
        try:
            tour = Tour(servants, given, work, pictures)
            play(tour)
            tour.eyes.finish()
        except Broken as broken:
            return failed(tour, broken, logs, pictures)
        finally:
            servants.end_all()
    print(f"{len(tour.eyes.names)} pictures in {pictures}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
