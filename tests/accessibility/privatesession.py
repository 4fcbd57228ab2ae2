#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a script of tests in a desktop session of its own: a virtual X display with a window manager, a D-Bus
session bus and, behind it, the accessibility bus. Nothing of it outlives the run, however that ends.

usage: privatesession.py SCRIPT [ARGUMENTS OF THE SCRIPT]
"""

import contextlib
import ctypes
import os
import signal
import subprocess
import sys
import tempfile
import time

# Numbers of Linux' prctl(2).
PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
PATIENCE = 60.0

libc = ctypes.CDLL(None)


def dies_with_its_parent():
    libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def environment(display, folder):
    """The session's own; nothing that leads to another session's buses or settings."""
    result = {name: value for name, value in os.environ.items()
              if not name.startswith(("DBUS_", "AT_SPI_", "WAYLAND_", "XAUTHORITY", "QT_", "GTK_"))}
    result.pop("NO_AT_BRIDGE", None)
    result.update(
        DISPLAY=display,
        HOME=folder,
        XDG_RUNTIME_DIR=folder,
        XDG_CONFIG_HOME=folder,
        XDG_CACHE_HOME=folder,
        GSETTINGS_BACKEND="memory",
        LANG="C.UTF-8",
        LC_ALL="C.UTF-8",
        QT_QPA_PLATFORM="xcb",
        QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        PYTHONDONTWRITEBYTECODE="1",
    )
    return result


@contextlib.contextmanager
def display():
    """A virtual screen with a number that is free."""
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1600x1200x24", "-nolisten", "tcp", "-noreset"],
        pass_fds=[writing], preexec_fn=dies_with_its_parent, stderr=subprocess.DEVNULL)
    os.close(writing)
    try:
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()  # ends with the server, if that fails
        if not number:
            sys.exit("privatesession: Xvfb gives no display")
        yield ":" + number
    finally:
        server.terminate()
        server.wait()


@contextlib.contextmanager
def window_manager(env):
    manager = subprocess.Popen(["openbox", "--sm-disable"], env=env, preexec_fn=dies_with_its_parent,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        deadline = time.monotonic() + PATIENCE
        question = ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]
        while b"window id" not in subprocess.run(question, env=env, capture_output=True).stdout:
            if manager.poll() is not None or time.monotonic() > deadline:
                sys.exit("privatesession: the window manager doesn't come up")
            time.sleep(0.02)
        yield
    finally:
        manager.terminate()
        manager.wait()


def children():
    with open(f"/proc/self/task/{os.getpid()}/children", encoding="ascii") as numbers:
        return [int(number) for number in numbers.read().split()]


def end_orphans():
    """Ends what the bus started and left behind: orphans of this run come to this process."""
    while children():
        for child in children():
            with contextlib.suppress(ProcessLookupError):
                os.kill(child, signal.SIGKILL)
            with contextlib.suppress(ChildProcessError):
                os.waitpid(child, 0)


def main():
    libc.prctl(PR_SET_CHILD_SUBREAPER, 1)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    # The path of a bus' socket is short by nature.
    with tempfile.TemporaryDirectory(prefix="orvane-a11y.", dir="/tmp") as folder, display() as number:
        env = environment(number, folder)
        try:
            with window_manager(env):
                return subprocess.run(["dbus-run-session", "--", sys.executable, *sys.argv[1:]],
                                      env=env, preexec_fn=dies_with_its_parent, check=False).returncode
        finally:
            end_orphans()


if __name__ == "__main__":
    sys.exit(main())
