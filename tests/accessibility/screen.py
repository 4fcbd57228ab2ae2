# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as a screen reader meets it: what the accessibility bus tells of its windows, keys as a user
presses them, and waiting for what must come. Nothing here knows a window of the program.

Every question goes to the program anew; the client library keeps no answers.
"""

import os
import signal
import subprocess
import tempfile
import time
import warnings

import pyatspi
from gi.repository import Atspi, GLib

warnings.filterwarnings("ignore", category=DeprecationWarning)

# Far above what a loaded machine with a sanitized program takes; passing never waits for it.
PATIENCE = 60.0
# An action that opens a modal window answers when that window is gone.
ACTION_PATIENCE_MS = 1500

Atspi.set_timeout(int(PATIENCE * 1000), int(PATIENCE * 1000))


def pump():
    """Hands out the events that have come."""
    context = GLib.MainContext.default()
    while context.pending():
        context.iteration(False)


def eventually(question, what):
    """The first answer of `question` that is true. An object that is gone counts as no answer."""
    deadline = time.monotonic() + PATIENCE
    while True:
        pump()
        try:
            answer = question()
        except GLib.Error:
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"{what}: not within {PATIENCE:.0f} s")
        time.sleep(0.01)


def key(*names):
    """Presses keys, by their X names, on whatever has the keyboard."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "5", text], check=True)


def has_state(node, state):
    return node.getState().contains(state)


def is_gone(node):
    """Whether an object that was read before answers as one that is no more. Any answer but a hang will do."""
    try:
        return has_state(node, pyatspi.STATE_DEFUNCT) or not node.getRoleName() or node.getRoleName() == "invalid"
    except (GLib.Error, LookupError, RuntimeError):
        return True


def keeps_rows(node):
    """Grids, lists and trees: their children are counted by the thousand and come and go."""
    return has_state(node, pyatspi.STATE_MANAGES_DESCENDANTS)


def walk(node):
    """The object and everything below it, but not the cells of grids, lists and trees."""
    yield node
    if keeps_rows(node):
        return
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None:
            yield from walk(child)


def find(window, role, name):
    """The object of a role with a name in a window, once it is there."""
    def look():
        return next((node for node in walk(window) if node.getRoleName() == role and node.name == name), None)
    return eventually(look, f"{role} «{name}»")


def actions(node):
    try:
        action = node.queryAction()
    except NotImplementedError:
        return []
    return [action.getName(index) for index in range(action.nActions)]


def act(node, name):
    """Runs an action by its name."""
    action = node.queryAction()
    index = actions(node).index(name)
    Atspi.set_timeout(ACTION_PATIENCE_MS, ACTION_PATIENCE_MS)
    try:
        action.doAction(index)
    except GLib.Error:
        pass  # it is in a modal window now; what it was to do is asked for by the caller
    finally:
        Atspi.set_timeout(int(PATIENCE * 1000), int(PATIENCE * 1000))


class Grid:
    """The table of an object. Rows and columns from 0, the headings apart."""

    def __init__(self, node):
        self.node = node
        self.table = node.queryTable()

    @property
    def rows(self):
        return self.table.nRows

    @property
    def headings(self):
        return [self.table.getColumnDescription(column) for column in range(self.table.nColumns)]

    def cell(self, row, column):
        return self.table.getAccessibleAt(row, column)

    def texts(self, row):
        """What a row says, each cell without its column's name."""
        result = []
        for column, heading in enumerate(self.headings):
            name = self.cell(row, column).name
            bears = f"{heading}: " if heading else ""
            if name != heading and not name.startswith(bears):
                raise AssertionError(f"cell {row}/{column} «{name}» doesn't bear its column «{heading}»")
            result.append(name[len(bears):])
        return result

    @property
    def selected_row(self):
        rows = self.table.getSelectedRows()
        return rows[0] if len(rows) == 1 else None


class FocusLog:
    """What a screen reader says as the focus moves: the objects that got it, and their names, in order."""

    def __init__(self):
        self.names = []
        self.objects = []
        pyatspi.Registry.registerEventListener(self.note, "object:state-changed:focused")

    def note(self, event):
        if event.detail1:
            try:
                self.names.append(event.source.name)
                self.objects.append(event.source)
            except GLib.Error:
                pass  # gone before it could be read

    def close(self):
        pyatspi.Registry.deregisterEventListener(self.note, "object:state-changed:focused")


def application_of(process):
    """The application of a process; none while it isn't on the bus."""
    desktop = pyatspi.Registry.getDesktop(0)
    for index in range(desktop.childCount):
        application = desktop.getChildAtIndex(index)
        if application is not None and application.get_process_id() == process:
            return application
    return None


class Program:
    """The program, started in a data root, and its windows."""

    def __init__(self, executable, root, *arguments):
        self._messages = tempfile.TemporaryFile()
        environment = dict(os.environ, UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1",
                           ASAN_OPTIONS="detect_leaks=0")
        self._process = subprocess.Popen([executable, *arguments], cwd=root, env=environment,
                                         stderr=self._messages)
        self.application = eventually(self._application, "the program on the accessibility bus")
        self.application.setCacheMask(Atspi.Cache.NONE)

    @property
    def process_id(self):
        return self._process.pid

    def _application(self):
        self.require_alive()
        return application_of(self.process_id)

    def require_alive(self):
        if self._process.poll() is not None:
            self._messages.seek(0)
            raise AssertionError(f"the program has ended with {self._process.returncode}:\n"
                                 + self._messages.read().decode(errors="replace"))

    def windows(self):
        children = [self.application.getChildAtIndex(index) for index in range(self.application.childCount)]
        return [child for child in children if child is not None and has_state(child, pyatspi.STATE_SHOWING)]

    def window(self, title):
        """The window whose title begins so, once it has the keyboard."""
        def look():
            self.require_alive()
            return next((window for window in self.windows()
                         if window.name.strip().startswith(title) and has_state(window, pyatspi.STATE_ACTIVE)),
                        None)
        return eventually(look, f"active window «{title}»")

    def dialog(self):
        """The box or dialog that has the keyboard, once one has."""
        def look():
            self.require_alive()
            return next((window for window in self.windows()
                         if window.getRoleName() in ("dialog", "alert") and has_state(window, pyatspi.STATE_ACTIVE)),
                        None)
        return eventually(look, "active dialog")

    def await_end(self, window):
        eventually(lambda: is_gone(window), "end of the window")
        self.require_alive()

    def await_gone(self, title):
        eventually(lambda: not any(window.name.strip().startswith(title) for window in self.windows()),
                   f"end of window «{title}»")
        self.require_alive()

    def stop(self):
        """Ends the program; one that has ended by itself is a failure."""
        try:
            self.require_alive()
        finally:
            self._process.send_signal(signal.SIGTERM)
            self._process.wait(PATIENCE)
            self._messages.close()
