# SPDX-License-Identifier: GPL-3.0-or-later
"""The start: what is refused, and what a good command line brings up."""

from station import MAIN
from tour import COMPANY

TITLE = "Orvane"


def play(tour):
    refuse(tour, "refused-company", "ABCDE", "ana")
    refuse(tour, "refused-user", COMPANY)
    station = tour.station = tour.start()
    main = station.window(MAIN)
    station.picture("main", main)
    station.press("alt+a")
    station.picture("menu-archivo")
    station.press("Right")
    station.picture("menu-listados")
    station.press("Escape", "Escape")


def refuse(tour, picture, *words):
    """A command line that the program doesn't take: one box, then the end."""
    station = tour.start(*words)
    box = station.window(TITLE)
    station.picture(picture, box)
    station.send("Return")
    station.await_end()
