# SPDX-License-Identifier: GPL-3.0-or-later
"""What is to be seen on the desk: windows by their titles, pictures, places by their colour."""

import os
import re
import subprocess
from dataclasses import dataclass

from servants import answer, tool
from waiting import Broken, wait_for

# The program's colours for the row with the cursor, in a grid and in a tree or list.
GRID_ROW = (234, 242, 247)
CHOSEN = (43, 124, 175)

_FEW = 40  # pixels; less of a colour is a letter's edge
_TRIES = 40


@dataclass(frozen=True)
class Place:
    """A rectangle of the screen, in pixels."""

    x: int
    y: int
    width: int
    height: int

    def at(self, dx, dy):
        """A point of it; a negative distance counts from the right or from the bottom."""
        return (self.x + (dx if dx >= 0 else self.width + dx), self.y + (dy if dy >= 0 else self.height + dy))

    def grown(self, left, right, top, bottom):
        return Place(self.x - left, self.y - top, self.width + left + right, self.height + top + bottom)

    def within(self, other):
        left, top = max(self.x, other.x), max(self.y, other.y)
        right = min(self.x + self.width, other.x + other.width)
        bottom = min(self.y + self.height, other.y + other.height)
        return Place(left, top, right - left, bottom - top)

    def __str__(self):
        return f"{self.width}x{self.height}+{self.x}+{self.y}"


class Eyes:
    def __init__(self, env, pictures, screen):
        self._env = env
        self._pictures = pictures
        self._screen = Place(0, 0, *(int(side) for side in screen.split("x")))
        self.names = []
        self._writers = []
        os.makedirs(pictures, exist_ok=True)

    def find(self, process, title):
        """Number of the window of a process with exactly that title, blanks around it aside; None as long as none
        is to be seen."""
        seen = self._xdotool("search", "--all", "--onlyvisible", "--pid", str(process), "--name",
                             f"^ *{re.escape(title)} *$").split()
        return int(seen[-1]) if seen else None

    def in_front(self, process, title):
        """The same, once the window has the keyboard."""
        def state():
            window = self.find(process, title)
            return window is not None and window == self._active() and window
        return wait_for(f"the window «{title}»", state)

    def activate(self, window):
        self._xdotool("windowactivate", str(window))
        wait_for("the window's turn", lambda: self._active() == window)

    def gone(self, process, title):
        wait_for(f"the end of the window «{title}»", lambda: self.find(process, title) is None)

    def closed(self, window):
        def is_seen():
            return "IsViewable" in answer([tool("xwininfo"), "-id", str(window)], env=self._env, check=False)
        wait_for("the end of the window", lambda: not is_seen())

    def move(self, window, x, y):
        self._xdotool("windowmove", str(window), str(x), str(y))

    def place(self, window):
        """Inside of the window, without its frame."""
        said = answer([tool("xwininfo"), "-id", str(window)], env=self._env)
        measures = [re.search(label + r":\s+(-?\d+)", said)[1] for label in
                    ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return Place(*(int(measure) for measure in measures))

    def resize(self, window, width, height):
        self._xdotool("windowsize", str(window), str(width), str(height))
        wait_for("the window's new size", lambda: self.place(window).width == width)

    def spot(self, window, colour, what):
        """Middle of the area of the window that bears the colour."""
        place = self.place(window).within(self._screen)
        return wait_for(what, lambda: self._middle_of(place, colour))

    def picture(self, name, window=None, place=None):
        """Keeps what is to be seen of the window, frame included, else of the place, else of the whole desk. Two
        looks must agree, so that nothing is caught in the middle of a change."""
        if name in self.names:
            raise Broken(f"two pictures are called {name}")
        place = self._framed(window) if window else place or self._screen
        before = None
        for _ in range(_TRIES):
            now = self._look(place)
            if now == before:
                break
            before = now
        path = os.path.join(self._pictures, name + ".png")
        writer = subprocess.Popen([tool("convert"), "ppm:-", path], stdin=subprocess.PIPE, env=self._env)
        writer.stdin.write(now)
        writer.stdin.close()
        self._writers.append(writer)
        self.names.append(name)

    def finish(self):
        """Returns when every picture is in its file."""
        for writer in self._writers:
            if writer.wait() != 0:
                raise Broken("a picture can't be written")

    def _look(self, place):
        command = [tool("import"), "-silent", "-window", "root", "-crop", str(place), "+repage", "-depth", "8", "ppm:-"]
        return subprocess.run(command, env=self._env, capture_output=True, check=True).stdout

    def _framed(self, window):
        said = answer([tool("xprop"), "-id", str(window), "_NET_FRAME_EXTENTS"], env=self._env)
        sides = re.findall(r"\d+", said.partition("=")[2])
        left, right, top, bottom = (int(side) for side in sides) if len(sides) == 4 else (0, 0, 0, 0)
        return self.place(window).grown(left, right, top, bottom).within(self._screen)

    def _middle_of(self, place, colour):
        header, _, pixels = self._look(place).partition(b"\n255\n")
        width = int(header.split()[1])
        wanted = bytes(colour)
        found = []
        at = pixels.find(wanted)
        while at >= 0:
            if at % 3 == 0:
                found.append(at // 3)
            at = pixels.find(wanted, at + 1)
        if len(found) < _FEW:
            return None
        # The row is the one with the most of it; letters and lines interrupt it.
        rows = [pixel // width for pixel in found]
        row = sorted(rows)[len(rows) // 2]
        columns = sorted(pixel % width for pixel in found if pixel // width == row)
        return (place.x + columns[len(columns) // 2], place.y + row)

    def _active(self):
        said = self._xdotool("getactivewindow").strip()
        return int(said) if said.isdigit() else None

    def _xdotool(self, *words):
        return answer([tool("xdotool"), *words], env=self._env, check=False)
