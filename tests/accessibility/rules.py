# SPDX-License-Identifier: GPL-3.0-or-later
"""What holds for every object of every window: it bears a name if the keyboard can reach it, it is called what
it is, it offers the actions of its kind, and the cells of a grid bear the names of their columns."""

import pyatspi

from screen import Grid, actions, has_state, keeps_rows

# What each kind of control must be able to do by itself.
ACTIONS = {
    "push button": "Press",
    "menu item": "Press",
    "check box": "Toggle",
    "page tab": "Press",
    "text": "SetFocus",
    "combo box": "ShowMenu",
    "spin button": "Increase",
}
# Nothing that the keyboard reaches may be called one of these: they say nothing of what it is.
MEANINGLESS = {"filler", "frame", "unknown", "invalid", "unspecified", "redundant object"}
ROWS_READ = 5


def in_view(node):
    """The objects of a window that are on the screen, and the lists that its combos would drop."""
    yield node
    if keeps_rows(node):
        return
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None and (has_state(child, pyatspi.STATE_SHOWING) or node.getRoleName() == "combo box"):
            yield from in_view(child)


def is_labelled(node):
    if node.name.strip():
        return True
    return any(relation.getRelationType() == pyatspi.RELATION_LABELLED_BY and relation.getTarget(0).name
               for relation in node.getRelationSet())


def faults(window):
    """All that is wrong in a window, one text a fault."""
    found = []
    for node in in_view(window):
        found += faults_of(node)
    return found


def faults_of(node):
    role, name = node.getRoleName(), node.name
    about = f"{role} «{name}»"
    found = []
    if has_state(node, pyatspi.STATE_FOCUSABLE):
        if not is_labelled(node):
            found.append(f"{about} has no name")
        if role in MEANINGLESS:
            found.append(f"{about} isn't called what it is")
    if "&" in name:
        found.append(f"{about} shows the mark of its key")
    wanted = "ShowMenu" if role == "menu item" and node.childCount else ACTIONS.get(role)
    if wanted and has_state(node, pyatspi.STATE_SENSITIVE) and wanted not in actions(node):
        found.append(f"{about} lacks the action {wanted}")
    if role == "table":
        found += grid_faults(about, Grid(node))
    elif role == "tree":
        columns = max(1, node.queryTable().nColumns)  # those behind the first may be empty
        found += [f"{about} has a node without a name" for place, child in enumerate(children(node))
                  if child.getRoleName() == "table cell" and place % columns == 0 and not child.name]
    return found


def children(node):
    return [child for child in map(node.getChildAtIndex, range(node.childCount)) if child is not None]


def grid_faults(about, grid):
    headings = grid.headings
    found = []
    if not headings:
        found.append(f"{about} has no columns")
    rows = sorted({*range(min(ROWS_READ, grid.rows)), *range(max(0, grid.rows - ROWS_READ), grid.rows)})
    for row in rows:
        for column, heading in enumerate(headings):
            found += [f"{about}, row {row}, column {column}: {fault}"
                      for fault in cell_faults(grid, grid.cell(row, column), row, column, heading)]
    return found


def cell_faults(grid, cell, row, column, heading):
    if cell is None:
        return ["no cell"]
    if cell.getRoleName() != "table cell":
        return [f"is a {cell.getRoleName()}"]
    if not has_state(cell, pyatspi.STATE_FOCUSABLE):
        return []  # its column is hidden
    found = []
    name = cell.name
    if not heading or not (name == heading or name.startswith(heading + ": ")):
        found.append(f"«{name}» doesn't bear its column «{heading}»")
    header = grid.table.getColumnHeader(column)
    if header is None or header.getRoleName() != "table column header" or header.name != heading:
        found.append("has no column header")
    wanted = "Toggle" if has_state(cell, pyatspi.STATE_CHECKABLE) else None
    if not actions(cell) or (wanted and wanted not in actions(cell)):
        found.append(f"can't be worked: {actions(cell)}")
    place = grid.table.getIndexAt(row, column)
    if (grid.table.getRowAtIndex(place), grid.table.getColumnAtIndex(place)) != (row, column):
        found.append("doesn't know its place")
    return found
