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

from rules import faults, faults_of, in_view
from screen import FocusLog, Grid, Program, act, eventually, find, has_state, key, type_text, walk

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
EXPORT = {("text", "Nombre de fichero:"), ("list", "Ficheros de tipo:"), ("push button", "Guardar"),
          ("push button", "Cancelar"), ("push button", "Directorio superior")}
MENUS = {"Archivo": ["Fichas de Clientes", "Salir"],
         "Listados": ["Resumen Gestión Sat", "Albaranes de Revisión"]}
PREVIEW = {("tool bar", "Herramientas"), ("push button", "Página siguiente"), ("push button", "Última página"),
           ("spin button", "Ir a la página")}


class WindowsWalk(unittest.TestCase):
    def setUp(self):
        folder = tempfile.mkdtemp(prefix="orvane-a11y-data.")
        self.addCleanup(shutil.rmtree, folder)
        self.root = Path(folder, "data")
        subprocess.run([DATA_TOOL, "demo", self.root], check=True, stdout=subprocess.DEVNULL)
        self.program = Program(PROGRAM, self.root, "00012", "ana")
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

    # --- message boxes, menus and dialogs

    def test_message_box(self):
        window = self.open_client()
        self.give_focus(find(window, "text", "Telef."))
        type_text("699000000")
        key("Return")

        box = self.program.dialog()
        self.assert_sound(box, {("label", "El clientes a buscar no existe en la base de datos"),
                                ("push button", "Aceptar")})
        self.assertTrue(box.name.strip())
        act(find(box, "push button", "Aceptar"), "Press")

        self.program.await_end(box)

    def test_menus_of_the_main_window(self):
        for menu, entries in MENUS.items():
            with self.subTest(menu):
                bar_entry = find(self.main, "menu item", menu)
                self.assertEqual(faults(bar_entry), [])
                there = [node for node in walk(bar_entry) if node.getRoleName() == "menu item" and node.name]
                self.assertEqual([node.name for node in there if node.name != menu], entries)
                for node in there:
                    self.assertEqual(faults_of(node), [])

    def test_menu_of_the_main_window_is_heard_by_its_keys(self):
        focus = self.listen()

        key("alt+l")
        self.hear(focus, MENUS["Listados"], self.main)

    def test_line_menu(self):
        window = self.open_known_client()
        self.turn_to(window, "Adicionales")
        self.give_focus(find(window, "table", "Direcciones de envío"))
        focus = self.listen()

        key("shift+F10")
        self.hear(focus, ["Eliminar Linea", "Cancelar"], window)

    def test_context_menus_of_texts(self):
        window = self.open_known_client()
        self.turn_to(window, "Consultas")
        for label in ("Nombre", "Consulta"):
            with self.subTest(label):
                field = self.give_focus(find(window, "text", label))
                type_text("x")
                key("ctrl+a")
                focus = self.listen()

                key("Menu")
                self.hear(focus, ["Deshacer", "Cortar", "Copiar", "Borrar"], window)
                self.give_focus(field)

    def test_export_dialog(self):
        window = self.open_report("Albaranes de Revisión")
        act(find(window, "push button", "Visualizar"), "Press")
        preview = self.preview()

        act(find(preview, "push button", "Exportar"), "Press")

        dialog = self.program.dialog()
        self.assertEqual(dialog.name, "Exportar")
        self.assert_sound(dialog, EXPORT)
        act(find(dialog, "push button", "Cancelar"), "Press")
        self.program.await_end(dialog)

    def give_focus(self, node):
        node.queryComponent().grabFocus()
        eventually(lambda: has_state(node, pyatspi.STATE_FOCUSED), f"keyboard in «{node.name}»")
        return node

    def listen(self):
        focus = FocusLog()
        self.addCleanup(focus.close)
        return focus

    def hear(self, focus, entries, window):
        """Walks down the menu that is up: its entries in order, each sound, then leaves it."""
        heard = {}
        for entry in entries:
            # The first may be marked already.
            if entry not in heard and (heard or entry not in self.heard_by(focus)):
                key("Down")
            eventually(lambda: entry in self.heard_by(focus), f"entry «{entry}»")
            heard = self.heard_by(focus)
            self.assertEqual(heard[entry].getRoleName(), "menu item")
            self.assertEqual(faults_of(heard[entry]), [])
        self.assertEqual([name for name in heard if name in entries], entries)
        key("Escape")
        eventually(lambda: has_state(window, pyatspi.STATE_ACTIVE), "the window in front")

    @staticmethod
    def heard_by(focus):
        """The objects that got the focus, by the name that they begin with: a menu's entry goes on with its key."""
        return {name.partition("\t")[0]: node for name, node in zip(focus.names, focus.objects)}

    # --- the command line

    def test_user_of_the_command_line_in_a_new_consultation(self):
        user = "Begoña Žižek €"
        self.program = Program(PROGRAM, self.root, "00012", *user.split())
        self.addCleanup(self.program.stop)
        self.main = self.program.window("Orvane")
        window = self.open_known_client()
        self.turn_to(window, "Consultas")

        grid = Grid(find(window, "table", "Datos de la consulta"))

        self.assertEqual(grid.texts(0)[grid.headings.index("Técnico")], user)

    def test_tick_of_the_articles_says_what_it_does(self):
        window = self.open_known_client()
        self.turn_to(window, "Conceptos Períodicos")
        grid = Grid(find(window, "table", "Conceptos periódicos"))
        act(grid.cell(0, grid.headings.index("Artículo")), "Press")

        lookup = self.program.window("Búsqueda")
        find(lookup, "check box", "Volver a cargar la lista")
        self.assertEqual(faults(lookup), [])

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
