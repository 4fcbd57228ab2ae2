# SPDX-License-Identifier: GPL-3.0-or-later
"""A consultation opened, answered and closed."""

from chapters.clientwindow import CONSULTATIONS, open_clients, read_client, turn_to
from station import CLIENTS
from stores import quoted
from tour import USER

CLIENT = "0000000121"
NUMBER = 1201  # the demo's consultations end at 1200
STORE = "ASISTENCIAS.MDB"
QUESTION = "La caldera de la sala 2 se apaga a los diez minutos."
ANSWER = "Sonda de humos cambiada. Probada una hora."
STATE_COLUMN = 5
PENDING_BEFORE = 5
PENDING = (250, 91)  # the root of the pending ones, in pixels from the window's corner


def play(tour):
    window = open_clients(tour)
    open_one(tour, window)
    close_it(tour, window)
    tour.station.press("alt+s")
    tour.station.gone(CLIENTS)


def consultation(columns):
    return f"SELECT {columns} FROM CONS WHERE ORDEN = {NUMBER} AND CLICONSULTA = {quoted(CLIENT)}"


def open_one(tour, window):
    station = tour.station
    read_client(tour, CLIENT)
    turn_to(tour, CONSULTATIONS)
    station.picture("consultation-prepared", window)
    station.type("Caldera que se apaga")
    station.press("Tab", "Tab", "Tab")
    station.type(QUESTION)
    station.picture("consultation-written", window)
    station.press("alt+r")
    tour.stores.await_row("the consultation", STORE, consultation("TEMA, TECNICO, ESTADO, DESCRIPCION"),
                          f"Caldera que se apaga|{USER}|01 Abierta|{QUESTION}")
    station.picture("consultation-saved", window)


def close_it(tour, window):
    """The node in the tree brings it back; the state in its cell, the answer below, and saved again."""
    station = tour.station
    station.click(window, *PENDING)
    station.press("Right", *["Down"] * (PENDING_BEFORE + 1))
    station.click_chosen(window)
    station.picture("consultation-read", window)
    station.click_row(window)
    station.press("ctrl+Home", *["Right"] * STATE_COLUMN, "F4")
    station.picture("consultation-state", window)
    station.press("End", "Return", "Tab", "Tab")
    station.type(ANSWER)
    station.picture("consultation-answered", window)
    station.press("alt+r")
    tour.stores.await_row("the closed consultation", STORE, consultation("TEMA, ESTADO, DESCRIPCION, SOLUCION"),
                          f"Caldera que se apaga|02 Cerrada|{QUESTION}|{ANSWER}")
    station.click(window, *PENDING)
    station.press("Right", "Down", "Left", "Down", "Right")
    station.picture("consultation-closed", window)
    station.press("alt+u")
    station.picture("consultation-new", window)
