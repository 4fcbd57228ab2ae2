#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Every window and page over the accessibility bus: nothing that the keyboard reaches lacks a name, everything
is called what it is, the cells of grids bear their columns, and actions do what they say.

usage (in a session of privatesession.py): walk_windows.py PROGRAM DATA_TOOL [TESTS]
"""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import pyatspi

from rules import faults, in_view
from screen import FocusLog, Grid, Program, act, eventually, find, has_state, key, type_text

MAIN = {("menu item", "Archivo"), ("menu item", "Listados"), ("tool bar", "Herramientas"),
        ("push button", "Fichas de clientes"), ("push button", "Mensajería Interna")}
CLIENT = {("tool bar", "Clientes S.A.T."), ("text", "Código"), ("push button", "Buscar cliente"),
          ("text", "Nombre"), ("text", "Telef."), ("panel", "Páginas del cliente"),
          ("page tab", "Identificacion"), ("page tab", "Adicionales"), ("page tab", "Conceptos Períodicos"),
          ("page tab", "Consultas"), ("push button", "Nuevo"), ("push button", "Grabar"),
          ("push button", "Borrar"), ("push button", "Listado"), ("push button", "Salir")}
PAGES = {
    "Identificacion": {("text", "Cif"), ("text", "Código Postal"), ("push button", "Buscar código postal"),
                       ("push button", "Buscar representante"), ("push button", "Buscar zona"),
                       ("push button", "Buscar tipo de cliente"), ("table", "Teléfonos")},
    "Adicionales": {("table", "Direcciones de envío"), ("table", "Domiciliaciones"),
                    ("text", "Orden geográfico, primer valor"), ("text", "Orden geográfico, segundo valor")},
    "Conceptos Períodicos": {("table", "Conceptos periódicos"), ("text", "Notas")},
    "Consultas": {("tree", "Consultas del cliente"), ("text", "Código de la consulta"),
                  ("text", "Descripción"), ("table", "Datos de la consulta"), ("text", "Consulta"),
                  ("text", "Solución"), ("push button", "Grabar consulta"), ("push button", "Nueva consulta")},
}
LOOKUP = {("text", "Texto que se busca"), ("table", "Lista"), ("push button", "Salir")}
REPORT = {("tool bar", "Impresión"), ("text", "Selección desde"), ("text", "Selección hasta"),
          ("push button", "Buscar el primero"), ("push button", "Buscar el último"), ("tree", "Impresoras"),
          ("push button", "Visualizar"), ("push button", "Imprimir"), ("push button", "Enviar"),
          ("push button", "Salir")}
PREVIEW = {("tool bar", "Herramientas"), ("push button", "Página siguiente"), ("push button", "Última página"),
           ("spin button", "Ir a la página")}


class WindowsWalk(unittest.TestCase):
    def setUp(self):
        folder = tempfile.mkdtemp(prefix="orvane-a11y-data.")
        self.addCleanup(shutil.rmtree, folder)
        root = Path(folder, "data")
        subprocess.run([DATA_TOOL, "demo", root], check=True, stdout=subprocess.DEVNULL)
        self.program = Program(PROGRAM, root, "00012", "ana")
        self.addCleanup(self.program.stop)
        self.main = self.program.window("Orvane")

    def assert_sound(self, window, wanted):
        """Nothing in the window breaks a rule, and what must be there is, called what it is."""
        self.assertEqual(faults(window), [])
        there = {(node.getRoleName(), node.name) for node in in_view(window)}
        self.assertEqual(wanted - there, set())

    def open_client(self):
        act(find(self.main, "push button", "Fichas de clientes"), "Press")
        return self.program.window("Mantenimiento de Clientes")

    def open_known_client(self):
        """The client window with a client of the demo read into it."""
        window = self.open_client()
        code = find(window, "text", "Código")
        eventually(lambda: has_state(code, pyatspi.STATE_FOCUSED), "keyboard in the code")
        type_text("1")
        key("Tab")
        name = find(window, "text", "Nombre")
        eventually(lambda: name.queryText().getText(0, -1), "the client's name")
        return window

    def turn_to(self, window, page):
        """Turns to a page by its tab's action."""
        act(find(window, "page tab", page), "Press")
        for role, name in PAGES[page]:
            node = find(window, role, name)
            eventually(lambda: has_state(node, pyatspi.STATE_SHOWING), f"{role} «{name}» on the page")

    def open_report(self, entry):
        act(find(self.main, "menu item", entry), "Press")
        return self.program.window("Impresión de documentos")

    # --- every window and page

    def test_main_window(self):
        self.assert_sound(self.main, MAIN)

    def test_client_window_and_its_pages(self):
        window = self.open_known_client()

        for page, wanted in PAGES.items():
            with self.subTest(page):
                self.turn_to(window, page)
                self.assert_sound(window, CLIENT | wanted)

    def test_lookup(self):
        window = self.open_client()
        for button in ("Buscar cliente", "Buscar zona", "Buscar tipo de cliente", "Buscar representante"):
            with self.subTest(button):
                act(find(window, "push button", button), "Press")
                lookup = self.program.window("Búsqueda")
                self.assert_sound(lookup, LOOKUP)
                act(find(lookup, "push button", "Salir"), "Press")
                self.program.await_gone("Búsqueda")
                self.program.window("Mantenimiento de Clientes")

    def test_report_window(self):
        self.assert_sound(self.open_report("Albaranes de Revisión"), REPORT)

    def test_summary_in_the_report_window(self):
        window = self.open_report("Resumen Gestión Sat")

        self.assert_sound(window, {("tool bar", "Impresión"), ("push button", "Visualizar")})

    def test_preview(self):
        window = self.open_report("Albaranes de Revisión")

        act(find(window, "push button", "Visualizar"), "Press")

        preview = self.preview()
        self.assert_sound(preview, PREVIEW)
        page = next(node for node in in_view(preview) if node.name == "Página del informe")
        self.assertTrue(eventually(lambda: page.description, "the text of the page"))

    def preview(self):
        """The one window that is neither the main window nor the report window."""
        def look():
            self.program.require_alive()
            return next((window for window in self.program.windows()
                         if ("spin button", "Ir a la página") in
                         {(node.getRoleName(), node.name) for node in in_view(window)}), None)
        return eventually(look, "the preview")

    # --- actions

    def test_tick_by_the_action_of_its_cell(self):
        window = self.open_known_client()
        self.turn_to(window, "Adicionales")
        grid = Grid(find(window, "table", "Domiciliaciones"))
        tick = grid.cell(0, grid.headings.index("Pred."))
        before = has_state(tick, pyatspi.STATE_CHECKED)

        act(tick, "Toggle")

        eventually(lambda: has_state(tick, pyatspi.STATE_CHECKED) != before, "the tick turned")
        act(tick, "Toggle")
        eventually(lambda: has_state(tick, pyatspi.STATE_CHECKED) == before, "the tick turned back")

    def test_button_of_a_cell_by_its_action(self):
        window = self.open_known_client()
        self.turn_to(window, "Adicionales")
        grid = Grid(find(window, "table", "Direcciones de envío"))

        act(grid.cell(0, grid.headings.index("C. Postal")), "Press")

        self.program.window("Búsqueda")
        key("Escape")
        self.program.await_gone("Búsqueda")

    def test_cell_is_edited_by_its_action(self):
        window = self.open_known_client()
        self.turn_to(window, "Adicionales")
        grid = Grid(find(window, "table", "Direcciones de envío"))
        cell = grid.cell(0, grid.headings.index("Localidad"))

        focus = FocusLog()
        self.addCleanup(focus.close)

        act(cell, "Press")
        eventually(lambda: "Localidad" in focus.names, "the keyboard in the cell's editor")
        key("ctrl+a")
        type_text("Benasque")
        key("Return")

        eventually(lambda: cell.name == "Localidad: Benasque", "the town typed")

    def test_row_of_the_lookup_by_the_action_of_its_cell(self):
        window = self.open_client()
        act(find(window, "push button", "Buscar cliente"), "Press")
        grid = Grid(find(self.program.window("Búsqueda"), "table", "Lista"))
        code = grid.texts(2)[0]

        act(grid.cell(2, 1), "Press")

        self.program.await_gone("Búsqueda")
        field = find(window, "text", "Código")
        eventually(lambda: field.queryText().getText(0, -1) == code, f"client {code}")

    def test_row_of_the_lookup_is_chosen_by_the_table(self):
        window = self.open_client()
        act(find(window, "push button", "Buscar cliente"), "Press")
        grid = Grid(find(self.program.window("Búsqueda"), "table", "Lista"))

        self.assertTrue(grid.table.addRowSelection(7))

        eventually(lambda: grid.selected_row == 7, "row 7 chosen")

    def test_client_window_closes_by_the_action_of_its_side_bar(self):
        window = self.open_client()
        bar = find(window, "tool bar", "Clientes S.A.T.")

        act(find(bar, "push button", "Salir"), "Press")

        self.program.await_gone("Mantenimiento de Clientes")
        self.program.window("Orvane")


if __name__ == "__main__":
    PROGRAM, DATA_TOOL = sys.argv[1:3]
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2, warnings="ignore")
