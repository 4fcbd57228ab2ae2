# SPDX-License-Identifier: GPL-3.0-or-later
"""The other lookups, from the client window; and a periodic concept deleted."""

from chapters.clientwindow import CONCEPTS, FIRST_CELL, open_clients, read_client, turn_to
from station import CLIENTS, LOOKUP
from stores import quoted

CLIENT = "0000000121"
# The magnifiers of the first page come behind its fields and its grid.
TABS_TO_POSTAL_CODES, TABS_ON_TO_CLIENT_TYPES = 17, 3
TYPE = "Hostelería"
ARTICLE = "0000000009"
CONCEPT = (f"FROM clientescyctabla WHERE clientescyccliente = {quoted(CLIENT)} "
           f"AND clientescycarticulo = {quoted(ARTICLE)}")


def play(tour):
    window = open_clients(tour)
    read_client(tour, CLIENT)
    postal_codes(tour)
    client_types(tour)
    articles(tour)
    delete_concept(tour, window)
    tour.station.press("alt+s")
    tour.station.gone(CLIENTS)


def postal_codes(tour):
    """A catalogue that this program doesn't open: an empty list."""
    station = tour.station
    station.press(*["Tab"] * TABS_TO_POSTAL_CODES, "space")
    station.picture("lookup-postal-codes", station.window(LOOKUP))
    station.press("Escape")
    station.window(CLIENTS)


def client_types(tour):
    """The letters typed move the list; Enter there chooses."""
    station = tour.station
    station.press(*["Tab"] * TABS_ON_TO_CLIENT_TYPES, "space")
    lookup = station.window(LOOKUP)
    station.type(TYPE[:2])
    station.picture("lookup-types", lookup)
    station.press("Down", "Return")
    station.window(CLIENTS)
    station.require_shown("the type of client that was chosen", TYPE)


def articles(tour):
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
    station.press("shift+F10")
    station.picture("concept-menu", window)
    station.press("e")
    tour.stores.await_none("the concept deleted", "Clientes.mdb", "SELECT clientescycdescrip " + CONCEPT)
    station.picture("concept-deleted", window)
