# SPDX-License-Identifier: GPL-3.0-or-later
"""The stores as another program sees them: through the sqlite3 tool, while the program has them open."""

import os

from servants import answer, tool
from waiting import Broken, wait_equal

TELEPHONES = "TELEFONOS DE CLIENTES.MDB"
_SEPARATOR = "|"


def quoted(text):
    return "'" + str(text).replace("'", "''") + "'"


class Stores:
    """`collation` is the extension with the stores' order of text, `preload` a library that must come before it."""

    def __init__(self, root, company, env, collation, preload=None):
        self._root = root
        self._folder = os.path.join(root, "Empresa" + company)
        self._env = dict(env)
        if preload:
            self._env["LD_PRELOAD"] = preload
        self._load = ["-cmd", ".load " + os.path.splitext(collation)[0]]
        self._sqlite3 = tool("sqlite3")

    def path(self, store):
        return os.path.join(self._root if store == TELEPHONES else self._folder, store)

    def rows(self, store, query):
        """Rows of a query, each as its texts in one line."""
        said = answer([self._sqlite3, "-readonly", "-batch", *self._load, "-separator", _SEPARATOR, self.path(store),
                       query], env=self._env)
        return said.splitlines()

    def row(self, store, query):
        found = self.rows(store, query)
        if len(found) != 1:
            raise Broken(f"{len(found)} rows instead of one: {query}")
        return found[0]

    def await_row(self, what, store, query, expected):
        """The program has saved once the row is there: a save tells nothing to the outside but this."""
        wait_equal(what, [expected], lambda: self.rows(store, query))

    def await_none(self, what, store, query):
        wait_equal(what, [], lambda: self.rows(store, query))
