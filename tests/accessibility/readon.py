#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen reader that never stops: reads the rows of every grid in the program's windows, over and over, also
while they come and go. Ends when its input does, and says how many cells it has read.

usage: readon.py PROCESS_ID
"""

import random
import select
import sys

import pyatspi
from gi.repository import Atspi, GLib

import screen
from screen import Grid, keeps_rows, walk


def goes_on():
    return not select.select([sys.stdin], [], [], 0)[0]


def read_grid(node, dice):
    """Reads rows all over a grid; what is gone meanwhile fails and is left."""
    grid = Grid(node)
    read = 0
    for _ in range(20):
        rows = grid.rows
        if rows < 1 or not goes_on():
            break
        row = dice.randrange(rows)
        for column in range(grid.table.nColumns):
            cell = grid.cell(row, column)
            read += bool(cell and cell.name)
    return read


def main():
    dice = random.Random(1)
    application = screen.application_of(int(sys.argv[1]))
    application.setCacheMask(Atspi.Cache.NONE)
    print("reading", flush=True)
    read = 0
    while goes_on():
        try:
            for node in walk(application):
                if keeps_rows(node) and node.getRoleName() == "table":
                    read += read_grid(node, dice)
                if not goes_on():
                    break
        except (GLib.Error, NotImplementedError, AttributeError, LookupError):
            continue
    print(read, flush=True)


if __name__ == "__main__":
    main()
