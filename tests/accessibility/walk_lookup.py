#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The lookup window over the accessibility bus: a list of 100,000 rows, an empty one, and one that is closed
while it is read.

usage (in a session of privatesession.py): walk_lookup.py PROGRAM DATA_TOOL CROWD_TOOL [TESTS]
"""

import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import screen
from screen import FocusLog, Grid, Program, act, eventually, find, is_gone, key, type_text

CROWD = 100_000
COMPANY = "Empresa00012"
HEADINGS = ["Codigo", "Cliente", "Localidad"]
# The names that the crowd bears, in the traditional Spanish order.
TREES = ["Álamo", "Barranco", "Chopo", "Encina", "Llano", "Nogal", "Ñandú", "Olmo", "Robledo", "Zarza"]


class Data:
    """A data root with many clients, made once."""

    def __init__(self, data_tool, crowd_tool):
        self._folder = tempfile.mkdtemp(prefix="orvane-a11y-data.")
        self.root = Path(self._folder, "data")
        self.store = self.root / COMPANY / "Clientes.mdb"
        subprocess.run([data_tool, "demo", self.root], check=True, stdout=subprocess.DEVNULL)
        subprocess.run([crowd_tool, self.store, str(CROWD)], check=True)
        self.clients = self._clients()

    def _clients(self):
        """The clients as any other program reads them: code to the texts of its row in the list."""
        base = sqlite3.connect(f"{self.store.as_uri()}?mode=ro", uri=True)
        try:
            rows = base.execute("SELECT CliCodigo, CliNombre, CliCodPostalLocali FROM ClientesTabla")
            return {row[0]: [text or "" for text in row] for row in rows}
        finally:
            base.close()

    def remove(self):
        shutil.rmtree(self._folder)


def place_in_order(name):
    """What orders the clients of the crowd; None for the others."""
    tree, _, number = name.partition(" ")
    return (TREES.index(tree), int(number)) if tree in TREES and number.isdigit() else None


class LookupWalk(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.data = Data(DATA_TOOL, CROWD_TOOL)
        cls.addClassCleanup(cls.data.remove)

    def setUp(self):
        self.program = Program(PROGRAM, self.data.root, "00012", "ana")
        self.addCleanup(self.program.stop)
        main = self.program.window("Orvane")
        act(find(main, "push button", "Fichas de clientes"), "Press")
        self.client = self.program.window("Mantenimiento de Clientes")

    def look_up(self, button):
        """Presses a button of the client window; the lookup and its list."""
        act(find(self.client, "push button", button), "Press")
        window = self.program.window("Búsqueda")
        return window, Grid(find(window, "table", "Lista"))

    def leave(self):
        key("Escape")
        self.program.await_gone("Búsqueda")
        self.program.window("Mantenimiento de Clientes")

    def box(self, window):
        """The search box, with the keyboard on it."""
        box = find(window, "text", "Texto que se busca")
        eventually(lambda: screen.has_state(box, screen.pyatspi.STATE_FOCUSED), "keyboard in the search box")
        return box

    def search(self, window, text):
        self.box(window)
        type_text(text)
        key("Return")

    def texts_of_store(self, texts):
        return self.data.clients[texts[0]]

    # --- a list of 100,000 rows

    def test_every_row_counts_and_columns_have_names(self):
        _, grid = self.look_up("Buscar cliente")

        self.assertEqual(grid.rows, len(self.data.clients))
        self.assertGreaterEqual(grid.rows, CROWD)
        self.assertEqual(grid.headings, HEADINGS)

    def test_rows_at_beginning_middle_and_end_say_what_the_store_holds(self):
        _, grid = self.look_up("Buscar cliente")
        dice = random.Random(20)
        places = sorted({*range(25), *range(grid.rows // 2, grid.rows // 2 + 25),
                         *range(grid.rows - 25, grid.rows), *dice.sample(range(grid.rows), 100)})

        read = [grid.texts(row) for row in places]

        for texts in read:
            self.assertEqual(texts, self.texts_of_store(texts))
        self.assertEqual(len({texts[0] for texts in read}), len(places))
        order = [place for place in (place_in_order(texts[1]) for texts in read) if place is not None]
        self.assertGreater(len(order), 100)
        self.assertEqual(order, sorted(order))

    def test_keys_move_through_the_list_and_the_reader_hears_each_row(self):
        window, grid = self.look_up("Buscar cliente")
        self.box(window)
        focus = FocusLog()
        self.addCleanup(focus.close)

        key("Down")
        self.assert_reader_is_at(grid, focus, 0, 0)
        for row in (1, 2, 3):
            key("Down")
            self.assert_reader_is_at(grid, focus, row, 0)
        key("ctrl+End")
        self.assert_reader_is_at(grid, focus, grid.rows - 1, len(HEADINGS) - 1)
        key("Up")
        self.assert_reader_is_at(grid, focus, grid.rows - 2, len(HEADINGS) - 1)
        key("ctrl+Home")
        self.assert_reader_is_at(grid, focus, 0, 0)

    def assert_reader_is_at(self, grid, focus, row, column):
        said = f"{HEADINGS[column]}: {grid.texts(row)[column]}"
        eventually(lambda: focus.names and focus.names[-1] == said, f"«{said}» heard")
        eventually(lambda: grid.selected_row == row, f"row {row} selected")
        self.assertTrue(screen.has_state(grid.cell(row, column), screen.pyatspi.STATE_FOCUSED))

    def test_typed_search_leaves_the_rows_that_hold_the_text(self):
        window, grid = self.look_up("Buscar cliente")
        wanted = [row for row in self.data.clients.values() if "andú 0004" in row[1]]
        self.assertGreater(len(wanted), 5)

        self.search(window, "andú 0004")

        eventually(lambda: grid.rows == len(wanted), "rows found")
        read = [grid.texts(row) for row in range(grid.rows)]
        self.assertEqual(read, sorted(wanted, key=lambda row: place_in_order(row[1])))

    def test_row_chosen_by_key_reaches_the_client_window(self):
        window, grid = self.look_up("Buscar cliente")
        self.search(window, "Chopo 000012")
        eventually(lambda: grid.rows == 1, "the one row")
        code, name, _ = grid.texts(0)

        key("Down", "Return")

        self.program.await_gone("Búsqueda")
        self.assert_client_is(code, name)

    def test_other_order_by_the_action_of_its_box(self):
        window, grid = self.look_up("Buscar cliente")
        box = find(window, "check box", "Ordenar por número")

        act(box, "Toggle")

        # The list in the order of towns comes with its count.
        caption = f"  Búsqueda de Clientes  {len(self.data.clients)} Registros"
        find(window, "label", caption)
        self.assertTrue(screen.has_state(box, screen.pyatspi.STATE_CHECKED))
        towns = [grid.texts(row)[2] for row in (0, grid.rows // 2, grid.rows - 1)]
        self.assertEqual(towns[1], "Jaca")
        self.assertEqual(towns, sorted(towns, key=str.casefold))

    def assert_client_is(self, code, name):
        def field(label):
            return find(self.client, "text", label).queryText().getText(0, -1)
        eventually(lambda: field("Código") == code, f"client {code}")
        self.assertEqual(field("Nombre"), name)

    # --- an empty list

    def test_list_without_a_store_is_empty_and_harmless(self):
        window, grid = self.look_up("Buscar representante")

        self.assert_empty(grid)
        self.box(window)
        key("Down", "Down", "Up", "End", "Next", "Return")
        self.assert_empty(grid)
        self.leave()

    def test_search_that_finds_nothing_leaves_an_empty_list(self):
        window, grid = self.look_up("Buscar cliente")
        self.assertGreater(grid.rows, 0)

        self.search(window, "no hay ninguno")

        eventually(lambda: grid.rows == 0, "an empty list")
        self.assert_empty(grid)
        self.leave()

    def assert_empty(self, grid):
        self.assertEqual(grid.rows, 0)
        self.assertIsNone(grid.selected_row)
        self.assertIsNone(grid.cell(0, 0))
        self.program.require_alive()

    # --- a list that goes while it is read

    def test_questions_about_a_closed_list_are_answered_without_a_crash(self):
        window, grid = self.look_up("Buscar cliente")
        cells = [grid.cell(row, 1) for row in (0, 50_000, grid.rows - 1)]
        self.leave()

        for node in (window, grid.node, *cells):
            self.assertTrue(is_gone(node))
        self.program.require_alive()
        self.assert_lookup_works()

    def test_questions_about_rows_that_a_search_replaced_are_answered_without_a_crash(self):
        window, grid = self.look_up("Buscar cliente")
        cells = [grid.cell(row, 1) for row in (0, 50_000, grid.rows - 1)]

        self.search(window, "no hay ninguno")
        eventually(lambda: grid.rows == 0, "an empty list")

        for cell in cells:
            self.assertTrue(is_gone(cell))
        self.leave()
        self.assert_lookup_works()

    def test_lookup_closes_under_a_reader_that_never_stops(self):
        reader = subprocess.Popen([sys.executable, Path(__file__).with_name("readon.py"),
                                   str(self.program.process_id)],
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        try:
            self.assertEqual(reader.stdout.readline(), "reading\n")
            for _ in range(6):
                self.look_up("Buscar cliente")
                self.leave()
            self.look_up("Buscar representante")
            self.leave()
            self.assertIsNone(reader.poll())
        finally:
            said, _ = reader.communicate()
        self.assertGreater(int(said), 0)
        self.assert_lookup_works()

    def assert_lookup_works(self):
        _, grid = self.look_up("Buscar cliente")
        self.assertEqual(grid.rows, len(self.data.clients))
        texts = grid.texts(grid.rows - 1)
        self.assertEqual(texts, self.texts_of_store(texts))
        self.leave()


if __name__ == "__main__":
    PROGRAM, DATA_TOOL, CROWD_TOOL = sys.argv[1:4]
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]], verbosity=2, warnings="ignore")
