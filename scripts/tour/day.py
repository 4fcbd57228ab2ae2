# SPDX-License-Identifier: GPL-3.0-or-later
"""The chapters of the day, in the order in which they are played; each builds on those before it."""

from chapters import changes, clients, consultations, end, lookups, powercut, reports, start, stations

CHAPTERS = (start, clients, changes, consultations, lookups, reports, stations, powercut, end)
