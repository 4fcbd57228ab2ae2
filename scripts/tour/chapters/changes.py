# SPDX-License-Identifier: GPL-3.0-or-later
"""A client typed in and saved, changed and saved, and a line deleted."""

from chapters.clientwindow import ADDITIONAL, FIRST_CELL, SAVE_IN_THE_BAR, open_clients, read_client, save, turn_to
from station import CLIENTS
from stores import TELEPHONES, quoted

NEW = "0000000318"
RIGHT = 3
HEAD = ("CliNombre", "CliCif", "CliPGC", "CliDireccion", "CliCodPostal", "CliCodPostalLocali", "CliCodPostalProvin",
        "CliCodPostalPais", "CliEMail", "ZonaCodigo", "ZonaDesc", "TipoClienteCodigo", "TipoClienteDesc")
CLIENT = f"FROM ClientesTabla WHERE CliCodigo = {quoted(NEW)}"
NUMBERS = f"FROM TELEFON WHERE TELECODIGOEMPRESA = '00012' AND TELECODIGO = {quoted(NEW)} ORDER BY TELETELEFONO"


def play(tour):
    window = open_clients(tour)
    type_client(tour, window)
    type_lines(tour, window)
    delete_line(tour, window)


def type_client(tour, window):
    """The code and the account are proposed; zone and type of client bring their descriptions."""
    station = tour.station
    station.press("alt+n")
    station.fill("Panadería Ibáñez, S.L.", "B50999888", None, "C/ Mayor, 12", "50001", "Zaragoza", "Zaragoza",
                 "España", "panaderia@ibanez.example", None, None, None, "1", None, "2", None)
    station.press(FIRST_CELL)
    station.type("976101010")
    station.press("Return", "Right", "Right")
    station.press("F4")
    station.picture("client-new-list", window)
    station.press("Home", "Return")
    station.press("Right")
    station.type("Tahona")
    station.press("Return")
    station.picture("client-new", window)
    save(tour)
    station.picture("client-saved", window)
    tour.stores.await_row("the new client", "Clientes.mdb", f"SELECT {', '.join(HEAD)} {CLIENT}",
                          "Panadería Ibáñez, S.L.|B50999888|430318.0|C/ Mayor, 12|50001|Zaragoza|Zaragoza|España|"
                          "panaderia@ibanez.example|0000000001|ZONA GENERAL|0002|Empresa")
    tour.stores.await_row("the new client's telephone", TELEPHONES,
                          f"SELECT TELETELEFONO, TELEFAX, TELECONTACTO {NUMBERS}", "976101010|01 Voz|Tahona")


def type_lines(tour, window):
    """A shipping address with the tick, an account, notes: read again and saved as a change."""
    station = tour.station
    read_client(tour, NEW)
    station.require_shown("the new client", "Panadería Ibáñez, S.L.")
    station.type("Horno Ibáñez, S.L.")
    turn_to(tour, ADDITIONAL)
    station.press(FIRST_CELL)
    type_cells(station, "Camino del Vado, 3", "50014", "Zaragoza")
    station.press("F4")
    station.press("End", "Return", "Right")
    type_cells(station, "Transportes Moncayo")
    station.press("space")
    station.press("Tab", FIRST_CELL)
    type_cells(station, "Caja de Aragón", "2086", "0010", "71", "0012345678", "57200001")
    station.press("space")
    station.picture("client-changed-lines", window)
    station.press("ctrl+Tab", "Tab")
    station.type("Llamar antes de las 9.")
    station.picture("client-changed-notes", window)
    station.click(window, *SAVE_IN_THE_BAR)
    tour.stores.await_row("the change of the name", "Clientes.mdb", f"SELECT CliNombre, Notas {CLIENT}",
                          "Horno Ibáñez, S.L.|Llamar antes de las 9.")
    tour.stores.await_row(
        "the shipping address", "Clientes.mdb", "SELECT CLIENVIDIRECCION, CLIENVICPOSTAL, CLIENVILOCALIDAD, "
        f"CLIENVIPORTES, CLIENVITRANSPORTISTA, CLIENVIACTIVA FROM CLIDIRENVIOS WHERE CLIENVICODIGO = {quoted(NEW)}",
        "Camino del Vado, 3|50014|Zaragoza|Pagados|Transportes Moncayo|1")
    tour.stores.await_row(
        "the account", "Clientes.mdb", "SELECT CLIBANCOSBANCO, CLIBANCOSENTIDAD, CLIBANCOSSUCURSAL, CLIBANCOSDIGITO, "
        f"CLIBANCOSCUENTA, CLIBANCOSACTIVA FROM CLIBANCOSDISP WHERE CLIBANCOSCODIGO = {quoted(NEW)}",
        "Caja de Aragón|2086|0010|71|0012345678|1")


def type_cells(station, *texts):
    """Types into the cells of a line, from the one with the cursor on to the right."""
    for text in texts:
        station.type(text)
        station.press("Return", "Right")


def delete_line(tour, window):
    """The line menu deletes the line with the cursor, at once."""
    station = tour.station
    read_client(tour, NEW)
    station.click_row(window)
    station.click_row(window, button=RIGHT)
    station.picture("line-menu", window)
    station.press("e")
    tour.stores.await_none("the telephone deleted", TELEPHONES, f"SELECT TELETELEFONO {NUMBERS}")
    station.picture("line-deleted", window)
    station.press("alt+s")
    station.gone(CLIENTS)
