# SPDX-License-Identifier: GPL-3.0-or-later
"""Waiting for a state with a deadline: nothing here sleeps for a fixed time and hopes."""

import time

# A desk under a sanitizer, on a machine with other work, is some ten times slower than usual.
PATIENCE = 60.0
PAUSE = 0.03


class Broken(Exception):
    """What a user would complain about, in one line."""


def wait_for(what, state, patience=PATIENCE):
    """Asks `state` until its answer is true, and returns the answer; after `patience` seconds `what` is missing."""
    deadline = time.monotonic() + patience
    while True:
        answer = state()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise Broken(f"{what}: not within {patience:g} s")
        time.sleep(PAUSE)


def wait_equal(what, expected, state, patience=PATIENCE):
    """Asks `state` until it answers `expected`; a failure says what came last."""
    deadline = time.monotonic() + patience
    while True:
        found = state()
        if found == expected:
            return
        if time.monotonic() > deadline:
            raise Broken(f"{what}: {found!r} instead of {expected!r}")
        time.sleep(PAUSE)
