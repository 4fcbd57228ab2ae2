# SPDX-License-Identifier: GPL-3.0-or-later
"""Ways through the client window that several chapters take."""

from station import CLIENTS

ADDITIONAL, CONCEPTS, CONSULTATIONS = 1, 2, 3  # pages, counted from "Identificacion"

FIRST_CELL = "ctrl+Home"  # of a grid that has the cursor

# Distances in pixels from the edges of the window; negative ones from the right and from the bottom.
TELEPHONE = (-60, 20)
SAVE_IN_THE_BAR = (60, 82)


def open_clients(tour, station=None):
    """Opens the client file from the menu; the window is empty. At the day's own station unless another is given."""
    station = station or tour.station
    station.press("alt+a", "f")
    return station.window(CLIENTS)


def read_client(tour, code, station=None):
    """Types the code, and goes on to the name. The window must be empty, with the cursor in the code."""
    (station or tour.station).fill(code.lstrip("0"))


def turn_to(tour, page):
    """From the name, which a client read leaves the cursor in, to a page."""
    tour.station.press("Tab", *["ctrl+Tab"] * page)


def save(tour, station=None):
    """The window goes empty, and the cursor is in the code."""
    (station or tour.station).press("alt+g")


def search_telephone(tour, window, number):
    tour.station.click(window, *TELEPHONE)
    tour.station.press("ctrl+a")
    tour.station.type(number)
    tour.station.press("Return")
