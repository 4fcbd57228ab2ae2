# SPDX-License-Identifier: GPL-3.0-or-later
"""Both reports: on the screen, as PDF files, on paper."""

import os

import papers
from station import LOOKUP, NOTICE
from stores import quoted
from tour import QUEUES
from waiting import wait_for

REPORTS = "Impresión de documentos"
NOTES = "Albaranes de Mantenimiento"
SUMMARY = "Resumen gestión del S.A.T."
EXPORT = "Exportar"
ZONE = "0000000006"
MONTH = "05"
TABS_TO_EXPORT, TABS_TO_ZOOM = 6, 7


def play(tour):
    notes(tour)
    summary(tour)


def notes(tour):
    """The delivery notes of one zone, whose code is looked up."""
    station = tour.station
    station.press("alt+l")
    station.press("Down", "Return")
    window = station.window(REPORTS)
    station.picture("report-notes", window)
    station.press("Tab", "space")
    lookup = station.window(LOOKUP)
    station.picture("lookup-zones", lookup)
    station.type("RIB")
    station.picture("lookup-zones-typed", lookup)
    station.press("Down", "Return")
    station.window(REPORTS)
    # A zone chosen there stays there: its code is read in the list and typed.
    station.press("shift+Tab")
    station.fill(ZONE, None, ZONE)
    station.picture("report-notes-zone", window)
    paper = preview_and_export(tour, NOTES, "notes")
    zone_name = tour.stores.row("ZONAS.MDB", f"SELECT ZONDESCRIPCION FROM ZONATAB WHERE ZONCODIGO = {quoted(ZONE)}")
    papers.require(paper, NOTES, "ALBARÁN DE MANTENIMIENTO", zone_name)
    station.press("alt+F4")
    station.gone(NOTES)
    choose_printer(tour, station.window(REPORTS))
    station.press("alt+i")
    printed = papers.text_of(tour.printer.await_paper(1, QUEUES[1]), NOTES)
    papers.require(printed, NOTES, "ALBARÁN DE MANTENIMIENTO", zone_name)
    station.press("alt+s")
    station.gone(REPORTS)


def choose_printer(tour, window):
    """A double click makes another printer the one of this run."""
    station = tour.station
    station.click_chosen(window)
    station.press("Down")
    station.click_chosen(window, times=2)
    box = station.window(NOTICE)
    station.picture("report-printer", box)
    station.press("Return")
    station.window(REPORTS)


def summary(tour):
    """The consultations of a month, of all years."""
    station = tour.station
    station.press("alt+l")
    station.press("Return")
    window = station.window(REPORTS)
    station.press("Home", *["Down"] * (int(MONTH) - 1))
    station.picture("report-summary", window)
    paper = preview_and_export(tour, SUMMARY, "summary")
    papers.require(paper, SUMMARY, "Mayo de 2025")
    station.to_front(REPORTS)
    station.press("alt+i")
    papers.require(papers.text_of(tour.printer.await_paper(2, QUEUES[1]), SUMMARY), SUMMARY, "Mayo de 2025")
    station.press("alt+s")
    station.gone(REPORTS)
    station.gone(SUMMARY)  # a preview ends with its report window


def preview_and_export(tour, title, name):
    """Shows the report, keeps it as a PDF file by the preview's tool, and returns what the file says."""
    station = tour.station
    station.press("alt+v")
    preview = station.window(title)
    tour.eyes.resize(preview, 860, 740)
    station.settle()
    station.press(*["Tab"] * TABS_TO_ZOOM)
    station.press("alt+Down", "End", "Return")
    station.press(*["shift+Tab"] * (TABS_TO_ZOOM - TABS_TO_EXPORT))
    station.picture("preview-" + name, preview)
    station.press("space")
    dialog = station.window(EXPORT)
    station.picture("export-" + name, dialog)
    path = tour.exported(name)
    station.press("ctrl+a")
    station.type(path)
    station.press("Return")
    wait_for(f"the file {path}", lambda: os.path.exists(path))
    station.window(title)
    return papers.text_of(path, title)
