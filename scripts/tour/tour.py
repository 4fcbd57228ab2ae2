# SPDX-License-Identifier: GPL-3.0-or-later
"""What the chapters of the day work with, set up once."""

import os

from desk import SCREEN, Desk
from eyes import Eyes
from hands import Hands
from printer import Printer
from servants import answer
from station import Station
from stores import Stores

COMPANY = "00012"
USER = "ana"
QUEUES = ("Oficina", "Taller")


class Tour:
    """Programs, data root, desk and printers of one tour, all below the folder `work`."""

    def __init__(self, servants, given, work, pictures):
        self.servants = servants
        self.programs, self.pictures, self.work = os.path.abspath(given.programs), pictures, work
        self._collation, self._preload = os.path.abspath(given.collation), given.preload
        home = self.folder("home")
        desk = Desk(servants, home)
        self.env = desk.env
        self.printer = Printer(servants, self.folder("printer"), self.env)
        self.printer.add_queue(QUEUES[0], default=True)
        self.printer.add_queue(QUEUES[1])
        self.root = self.demo_root("demo")
        self.stores = self.stores_of(self.root)
        self.hands = Hands(self.env)
        self.eyes = Eyes(self.env, pictures, SCREEN)
        self.station = None

    def folder(self, name):
        path = os.path.join(self.work, name)
        os.makedirs(path)
        return path

    def demo_root(self, name):
        """A data root that is always the same."""
        root = os.path.join(self.work, name)
        self.data("demo", root)
        return root

    def stores_of(self, root):
        return Stores(root, COMPANY, self.env, self._collation, self._preload)

    def data(self, *words):
        """Runs orvane-data, and returns what it says."""
        return answer([self.programs + "/orvane-data", *words], env=self.env)

    def require_sound(self, root=None):
        """Every store is whole, as orvane-data sees it."""
        self.data("check", root or self.root)

    def start(self, *arguments, root=None):
        """Starts the program on the desk; by default as the suite does for Ana."""
        station = Station(self.servants, self.hands, self.eyes, self.env)
        return station.start(self.programs + "/orvane", root or self.root, *(arguments or (COMPANY, USER)))

    def exported(self, name):
        return os.path.join(self.pictures, name + ".pdf")
