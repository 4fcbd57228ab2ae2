# SPDX-License-Identifier: GPL-3.0-or-later
"""The start: what is refused, and what a good command line brings up."""

from eyes import Place
from station import MAIN, NOTICE
from tour import COMPANY

MENUS = Place(0, 0, 860, 110)


def play(tour):
    refuse(tour, "refused-company", "ABCDE", "ana")
    refuse(tour, "refused-user", COMPANY)
    station = tour.station = tour.start()
    station.window(MAIN)
    station.picture("main", place=MENUS)
    station.press("alt+a")
    station.picture("menu-archivo", place=MENUS)
    station.press("Right")
    station.picture("menu-listados", place=MENUS)
    station.press("Escape", "Escape")


def refuse(tour, picture, *words):
    """A command line that the program doesn't take: one box, then the end."""
    station = tour.start(*words)
    box = station.window(NOTICE)
    station.picture(picture, box)
    station.send("Return")
    station.await_end()
