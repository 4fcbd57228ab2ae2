# SPDX-License-Identifier: GPL-3.0-or-later
"""The client file: a client found by code, by name and by telephone."""

from chapters.clientwindow import open_clients, read_client, search_telephone, turn_to
from station import CLIENTS, LOOKUP
from stores import TELEPHONES, quoted

KNOWN = "0000000010"
UNKNOWN_NUMBER = "600000000"
UNKNOWN = "Orvane.- Servicio de asistencia técnica"


def play(tour):
    window = open_clients(tour)
    tour.station.picture("client-empty", window)
    by_code(tour, window)
    by_name(tour, window)
    by_telephone(tour, window)
    tour.station.press("alt+s")
    tour.station.gone(CLIENTS)


def name_of(tour, code):
    return tour.stores.row("Clientes.mdb", f"SELECT CliNombre FROM ClientesTabla WHERE CliCodigo = {quoted(code)}")


def by_code(tour, window):
    station = tour.station
    read_client(tour, KNOWN)
    station.require_shown("the client by its code", name_of(tour, KNOWN))
    station.picture("client-by-code", window)
    turn_to(tour, 1)
    station.picture("client-adicionales", window)
    station.press("ctrl+Tab")
    station.picture("client-conceptos", window)
    station.press("ctrl+Next")
    station.picture("client-consultas", window)


def by_name(tour, window):
    """Enter in an empty code brings the lookup; what is typed there narrows the list."""
    station = tour.station
    found = tour.stores.rows("Clientes.mdb", "SELECT CliNombre FROM ClientesTabla "
                                             "WHERE CliNombre LIKE '%autoescuela%' ORDER BY CliNombre")
    station.press("alt+n", "shift+Tab")
    station.press("Return")
    lookup = station.window(LOOKUP)
    station.picture("lookup-clients", lookup)
    station.type("autoescuela")
    station.press("Return")
    station.picture("lookup-clients-typed", lookup)
    station.press("Down", "Down")
    station.picture("lookup-clients-chosen", lookup)
    station.press("Return")
    station.window(CLIENTS)
    station.require_shown("the client by its name", found[1])
    station.picture("client-by-name", window)


def by_telephone(tour, window):
    station = tour.station
    number = tour.stores.rows(TELEPHONES, f"SELECT TELETELEFONO FROM TELEFON WHERE TELECODIGO = {quoted(KNOWN)} "
                                          "AND TELECODIGOEMPRESA = '00012' LIMIT 1")[0]
    search_telephone(tour, window, UNKNOWN_NUMBER)
    notice = station.window(UNKNOWN)
    station.picture("telephone-unknown", notice)
    station.press("Return")
    station.window(CLIENTS)
    search_telephone(tour, window, number)
    station.picture("client-by-telephone", window)
