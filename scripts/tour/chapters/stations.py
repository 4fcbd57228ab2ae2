# SPDX-License-Identifier: GPL-3.0-or-later
"""Two stations on one client: who saves last wins."""

from chapters.clientwindow import open_clients, read_client, save
from station import CLIENTS, MAIN
from stores import quoted
from tour import COMPANY

CLIENT = "0000000008"
COLLEAGUE = "luis"
NAME = f"SELECT CliNombre FROM ClientesTabla WHERE CliCodigo = {quoted(CLIENT)}"


def play(tour):
    ana = tour.station
    before = tour.stores.row("Clientes.mdb", NAME)
    hers = open_clients(tour, ana)
    read_client(tour, CLIENT, ana)
    luis = tour.start(COMPANY, COLLEAGUE)
    his = open_clients(tour, luis)
    read_client(tour, CLIENT, luis)
    luis.require_shown("the client at the other station", before)
    tour.eyes.move(hers, 10, 110)
    tour.eyes.move(his, 260, 130)
    luis.picture("two-stations")
    ana.to_front(CLIENTS)
    ana.press("ctrl+a")
    ana.type("Cafetería Nueva San Jorge")
    save(tour, ana)
    tour.stores.await_row("the name that Ana saved", "Clientes.mdb", NAME, "Cafetería Nueva San Jorge")
    luis.to_front(CLIENTS)
    save(tour, luis)
    tour.stores.await_row("the name on Luis' window, saved last", "Clientes.mdb", NAME, before)
    leave(luis)
    ana.to_front(CLIENTS)
    ana.press("alt+s")
    ana.gone(CLIENTS)
    ana.to_front(MAIN)


def leave(station):
    """Out of the client window, and out of the program by its menu."""
    station.press("alt+s")
    station.gone(CLIENTS)
    station.press("alt+a")
    station.send("s")
    station.await_end()
