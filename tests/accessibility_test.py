#!/usr/bin/env python3
"""What a screen reader is told: the real program under Xvfb, its tree read
through AT-SPI on a session bus of its own.  Argument: the folder of the
programs.
"""

import os
import sys

from x_desktop import Program, box, desktop, keys, type_text, wait_until

if os.environ.get("KELDA_TEST_BUS") != "own":
    os.environ["KELDA_TEST_BUS"] = "own"  # and the Python that has Atspi
    os.execvp("dbus-run-session",
              ["dbus-run-session", "--", "/usr/bin/python3", *sys.argv])

import gi  # noqa: E402

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

BIN = os.path.abspath(sys.argv[1])
ROWS = ["HOUSE", "A#R#A", "..A.T", "V#S#E", "ENEMY"]


def tree(node):
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child and child.get_role_name() != "table cell":
            yield from tree(child)


def program():
    found = Atspi.get_desktop(0)
    for i in range(found.get_child_count()):
        child = found.get_child_at_index(i)
        if child and child.get_name().lower() == "kelda":
            return child
    return None


def find(role, name):
    return wait_until(f"{role} {name}", lambda: next(
        (node for node in tree(program()) if node.get_role_name() == role and
         node.get_name().startswith(name)), None) if program() else None, 30)


def cell_at(grid, row, col):
    return Atspi.Table.get_accessible_at(grid, row - 1, col - 1)


def check_grid():
    grid = find("table", "Grid")
    size = Atspi.Table.get_n_rows(grid), Atspi.Table.get_n_columns(grid)
    assert size == (5, 5), size
    assert grid.get_child_count() == 25
    names = {(1, 1): "row 1, column 1: H, number 1",
             (2, 2): "row 2, column 2: block",
             (3, 1): "row 3, column 1: empty, number 4",
             (5, 5): "row 5, column 5: Y"}
    for (row, col), name in names.items():
        told = cell_at(grid, row, col).get_name()
        assert told == name, (told, name)
    assert grid.get_child_at_index(6).get_name() == names[2, 2]
    # A cell is where it is on the screen.
    here, below = (Atspi.Component.get_extents(
        cell_at(grid, row, 1), Atspi.CoordType.SCREEN) for row in (1, 2))
    assert (below.x, below.y) == (here.x, here.y + 28), (here.y, below.y)


def check_keyboard():
    grid = find("table", "Grid")
    Atspi.Component.grab_focus(grid)
    keys("Home", "ctrl+Home", "Right", "Down", "Down", "space")
    wait_until("the new block", lambda: cell_at(
        grid, 3, 2).get_name().endswith(": block"), 10)
    assert cell_at(grid, 3, 4).get_name() == "row 3, column 4: block"
    states = cell_at(grid, 3, 2).get_state_set()
    assert states.contains(Atspi.StateType.FOCUSED)
    assert not cell_at(grid, 1, 1).get_state_set().contains(
        Atspi.StateType.FOCUSED)


def check_message():
    keys("alt+w")
    keys("ctrl+a")
    type_text("house")
    keys("alt+f")
    box()
    find("label", "HOUSE is word#")
    keys("Return")


def main():
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    with desktop() as folder:
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
        path = os.path.join(folder, "small.kdp")
        with open(path, "w") as file:
            file.write("\n".join(["Small", *ROWS, ""]))
        running = Program(BIN, path, title="^Puzzle File: ")
        check_grid()
        check_keyboard()
        check_message()
        keys("ctrl+q")
        box()
        keys("alt+d")  # Discard
        assert running.process.wait(timeout=30) == 0
    print("3 passed, 0 failed")


main()
