# SPDX-License-Identifier: GPL-3.0-or-later
"""Asks the program whether it has dealt with everything that was sent to it.

A window answers _NET_WM_PING from the same queue that brings it keys and clicks. So when it has answered, the
keys sent before have been taken off the queue; when it answers once more, they have been acted on.
"""

import ctypes
import select
import time

from waiting import PATIENCE, Broken

_CLIENT_MESSAGE = 33
_STRUCTURE_NOTIFY = 1 << 17
_ROUNDS = 3


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class _Event(ctypes.Union):
    _fields_ = [("client", _ClientMessage), ("pad", ctypes.c_long * 24)]


def _library():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XSelectInput.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_long]
    x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
    x11.XNextEvent.argtypes = [ctypes.c_void_p, ctypes.c_void_p]
    for name in ("XDefaultRootWindow", "XPending", "XFlush", "XConnectionNumber"):
        getattr(x11, name).argtypes = [ctypes.c_void_p]
    # A window that closes while it is asked is no reason to end.
    handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda display, error: 0)
    x11.XSetErrorHandler(handler)
    x11.keep = handler
    return x11


class Pulse:
    def __init__(self, display):
        self._x11 = _library()
        self._display = self._x11.XOpenDisplay(display.encode())
        if not self._display:
            raise Broken(f"no X server at {display}")
        self._root = self._x11.XDefaultRootWindow(self._display)
        self._protocols = self._x11.XInternAtom(self._display, b"WM_PROTOCOLS", 0)
        self._ping = self._x11.XInternAtom(self._display, b"_NET_WM_PING", 0)
        self._number = 0
        self._x11.XSelectInput(self._display, self._root, _STRUCTURE_NOTIFY)

    def wait(self, window):
        """Returns when the program behind the window has acted on all that was sent to it before."""
        for _ in range(_ROUNDS):
            self._number += 1
            self._ask(window)
            self._await_answer()

    def _ask(self, window):
        event = _Event()
        event.client.type = _CLIENT_MESSAGE
        event.client.window = window
        event.client.message_type = self._protocols
        event.client.format = 32
        event.client.data[:] = [self._ping, self._number, window, 0, 0]
        self._x11.XSendEvent(self._display, window, 0, 0, ctypes.byref(event))
        self._x11.XFlush(self._display)

    def _await_answer(self):
        deadline = time.monotonic() + PATIENCE
        event = _Event()
        while time.monotonic() < deadline:
            if not self._x11.XPending(self._display):
                select.select([self._x11.XConnectionNumber(self._display)], [], [], 0.2)
                continue
            self._x11.XNextEvent(self._display, ctypes.byref(event))
            message = event.client
            if (message.type == _CLIENT_MESSAGE and message.message_type == self._protocols
                    and message.data[0] == self._ping and message.data[1] == self._number):
                return
        raise Broken(f"the program doesn't answer within {PATIENCE:g} s")
