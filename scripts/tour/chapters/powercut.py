# SPDX-License-Identifier: GPL-3.0-or-later
"""A power cut: what was saved is there, and a damaged store is mended."""

import os

from chapters.clientwindow import open_clients, read_client, save
from station import CLIENTS, MAIN, NOTICE
from stores import quoted
from tour import COMPANY, USER
from waiting import Broken

CLIENT = "0000000009"
STORE = "ASISTENCIAS.MDB"
KEPT = STORE + ".dañado-1"
FIRST_PAGE = 4096  # bytes; with it the file has lost its list of tables
NOTES = f"SELECT Notas, CliNombre FROM ClientesTabla WHERE CliCodigo = {quoted(CLIENT)}"


def play(tour):
    cut(tour)
    damage(tour)


def cut(tour):
    """The client saved before the cut is whole, what was on the window only is lost."""
    station = tour.station
    before = tour.stores.row("Clientes.mdb", NOTES)
    open_clients(tour)
    read_client(tour, CLIENT)
    station.type("Hermanos Lorenzo, S.L.")
    save(tour)
    saved = before.rpartition("|")[0] + "|Hermanos Lorenzo, S.L."
    tour.stores.await_row("the client saved before the cut", "Clientes.mdb", NOTES, saved)
    read_client(tour, CLIENT)
    station.type("Esto no llega a grabarse")
    station.cut_power()
    tour.require_sound()
    station = tour.station = tour.start()
    open_clients(tour)
    read_client(tour, CLIENT)
    station.require_shown("the client after the cut", "Hermanos Lorenzo, S.L.")
    station.press("alt+s")
    station.gone(CLIENTS)


def damage(tour):
    """A store that is no database any more: two notices, and it is mended; what was found is kept aside."""
    root = tour.demo_root("damaged")
    folder = os.path.join(root, "Empresa" + COMPANY)
    count = "SELECT COUNT(*) FROM CONS"
    before = tour.stores_of(root).row(STORE, count)
    with open(os.path.join(folder, STORE), "r+b") as file:
        file.write(bytes(FIRST_PAGE))
    station = tour.start(COMPANY, USER, root=root)
    for picture in ("damaged-store", None):
        box = station.window(NOTICE)
        if picture:
            station.picture(picture, box)
        station.press("Return")
        station.closed(box)
    station.to_front(MAIN)
    station.press("alt+a")
    station.send("s")
    station.await_end()
    if not os.path.exists(os.path.join(folder, KEPT)):
        raise Broken("the damaged store isn't kept aside")
    tour.require_sound(root)
    again = tour.start(COMPANY, USER, root=root)
    again.window(MAIN)  # and no notice before it
    again.cut_power()
    mended = tour.stores_of(root).row(STORE, count)
    if mended != before:
        raise Broken(f"{mended} of {before} consultations are left after the damage")
    tour.station.to_front(MAIN)
