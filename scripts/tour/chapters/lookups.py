# SPDX-License-Identifier: GPL-3.0-or-later
"""The other lookups, from the client window; and a periodic concept deleted."""

from chapters.clientwindow import CONCEPTS, open_clients, read_client, turn_to
from station import CLIENTS
from stores import quoted

CLIENT = "0000000121"
LOOKUP = "Búsqueda"
RIGHT = 3
FIRST_CELL = "ctrl+Home"
# The magnifiers of the first page, in pixels from the window's left or right edge and from its top.
POSTAL_CODES, CLIENT_TYPES = (314, 164), (-229, 192)
TYPE = "Hostelería"
ARTICLE = "0000000009"
CONCEPT = (f"FROM clientescyctabla WHERE clientescyccliente = {quoted(CLIENT)} "
           f"AND clientescycarticulo = {quoted(ARTICLE)}")


def play(tour):
    window = open_clients(tour)
    read_client(tour, CLIENT)
    postal_codes(tour, window)
    client_types(tour, window)
    articles(tour, window)
    delete_concept(tour, window)
    tour.station.press("alt+s")
    tour.station.gone(CLIENTS)


def postal_codes(tour, window):
    """A catalogue that this program doesn't open: an empty list."""
    station = tour.station
    station.click(window, *POSTAL_CODES)
    station.picture("lookup-postal-codes", station.window(LOOKUP))
    station.press("Escape")
    station.window(CLIENTS)


def client_types(tour, window):
    """The letters typed move the list; Enter there chooses."""
    station = tour.station
    station.click(window, *CLIENT_TYPES)
    lookup = station.window(LOOKUP)
    station.type(TYPE[:2])
    station.picture("lookup-types", lookup)
    station.press("Down", "Return")
    station.window(CLIENTS)
    station.require_shown("the type of client that was chosen", TYPE)


def articles(tour, window):
    station = tour.station
    station.press("alt+n", "shift+Tab")
    read_client(tour, CLIENT)
    turn_to(tour, CONCEPTS)
    station.press(FIRST_CELL, "Down", "F4")
    lookup = station.window(LOOKUP)
    station.type("cal")
    station.picture("lookup-articles", lookup)
    station.press("Escape")
    station.window(CLIENTS)


def delete_concept(tour, window):
    station = tour.station
    tour.stores.row("Clientes.mdb", "SELECT clientescycdescrip " + CONCEPT)
    station.press(FIRST_CELL)
    station.picture("client-concept-line", window)
    station.click_row(window, button=RIGHT)
    station.picture("concept-menu", window)
    station.press("e")
    tour.stores.await_none("the concept deleted", "Clientes.mdb", "SELECT clientescycdescrip " + CONCEPT)
    station.picture("concept-deleted", window)
