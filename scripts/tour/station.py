# SPDX-License-Identifier: GPL-3.0-or-later
"""One running program on the desk, and the user before it."""

from eyes import CHOSEN, GRID_ROW
from pulse import Pulse
from waiting import Broken, wait_equal, wait_for

MAIN = "Orvane - Gestión S.A.T. para Quenda Build 3.32.3009"
UNTITLED = "Orvane - Gestión S.A.T. para Quenda"  # as long as the start hasn't come to the title
CLIENTS = "Mantenimiento de Clientes S.A.T."
LOOKUP = "Búsqueda"
NOTICE = "Orvane"  # a box without a title of its own


class Station:
    def __init__(self, servants, hands, eyes, env):
        self._servants, self._hands, self._eyes, self._env = servants, hands, eyes, env
        self._pulse = Pulse(env["DISPLAY"])
        self.process = None
        self._main = None

    def start(self, program, root, *arguments):
        """Starts the program as the suite does: in the data root, with company and user."""
        self.process = self._servants.start("orvane", [program, *arguments], env=self._env, cwd=root)
        self._main = wait_for("the main window", self._main_window)
        return self

    def _main_window(self):
        if self.process.poll() is not None:
            raise Broken(f"the program ended with {self.process.returncode} at its start")
        return self._eyes.find(self.process.pid, MAIN) or self._eyes.find(self.process.pid, UNTITLED)

    def settle(self):
        """Returns when the program has dealt with every key and click so far."""
        if self.process.poll() is not None:
            raise Broken(f"the program has ended with {self.process.returncode}")
        self._pulse.wait(self._main)

    def press(self, *keys):
        """Presses one key after the other, each once the one before has done its work: a list that closes, or a
        window that opens, doesn't swallow the next one."""
        for key in keys:
            self._hands.press(key)
            self.settle()

    def send(self, *keys):
        """The same for keys that end the program, which then answers no more."""
        self._hands.press(*keys)

    def type(self, text):
        self._hands.type(text)
        self.settle()

    def fill(self, *fields):
        """Types each text over what the field holds, and goes on to the next field; None passes one by."""
        for text in fields:
            if text is not None:
                self.press("ctrl+a")
                self.type(text)
            self.press("Tab")

    def click(self, window, dx, dy, times=1):
        self._hands.click(self._eyes.place(window).at(dx, dy), times=times)
        self.settle()

    def click_row(self, window, colour=GRID_ROW, button=1, times=1):
        """Clicks on the row that has the cursor."""
        what = "the row with the cursor" if colour == GRID_ROW else "the chosen entry"
        self._hands.click(self._eyes.spot(window, colour, what), button=button, times=times)
        self.settle()

    def click_chosen(self, window, times=1):
        self.click_row(window, CHOSEN, times=times)

    def window(self, title):
        """The window with the title, once it is in front and ready for keys."""
        window = self._eyes.in_front(self.process.pid, title)
        self.settle()
        return window

    def gone(self, title):
        self._eyes.gone(self.process.pid, title)
        self.settle()

    def closed(self, window):
        """Waits for the end of one window, where another with the same title may follow."""
        self._eyes.closed(window)
        self.settle()

    def picture(self, name, window=None, place=None):
        self.settle()
        self._eyes.picture(name, window, place)

    def shown(self):
        """Text of the field that has the cursor."""
        return self._hands.copied("ctrl+a", "ctrl+c")

    def require_shown(self, what, expected):
        wait_equal(what, expected, self.shown)

    def to_front(self, title):
        self._eyes.activate(self._eyes.find(self.process.pid, title))
        self.settle()

    def await_end(self):
        wait_for("the end of the program", lambda: self.process.poll() is not None)
        if self.process.returncode != 0:
            raise Broken(f"the program ended with {self.process.returncode}")

    def cut_power(self):
        self._servants.kill(self.process)
