#!/usr/bin/env python3
"""Takes the pictures of the help page anew, from the real program under Xvfb.
Run it after the window has changed, and look at what it made.

    take_help_pictures.py BIN_FOLDER
"""

import os
import re
import sys
import time

SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
sys.path.append(os.path.join(SOURCE, "tests"))
from x_desktop import (Program, box, click_cell, close_box,  # noqa: E402
                       desktop, grid_corner, keys, no_box, run, type_text,
                       window)

BIN = os.path.abspath(sys.argv[1])
PICTURES = os.path.join(SOURCE, "data", "help")


def take(name, window_id, width=None, crop=None):
    """A picture of a window, or of the part `crop` of the screen; shrunk to a
    width, in few colours."""
    time.sleep(0.4)
    shrink = ["-filter", "Lanczos", "-resize", str(width)] if width else []
    cut = ["-crop", crop, "+repage"] if crop else []
    run("import", "-window", window_id, *cut, *shrink, "-colors", "64",
        "-strip", "png8:" + os.path.join(PICTURES, name + ".png"))


def part_of_main(x, y, width, height):
    """A part of the main window, as a part of the screen."""
    about = run("xwininfo", "-id", Program.main)
    left, top = (int(n) for n in re.findall(r"Absolute upper-left .: +(\d+)",
                                            about))
    return f"{width}x{height}+{left + x}+{top + y}"


def menu():
    """The pop-up menu that is open."""
    shown = run("xdotool", "search", "--onlyvisible", "--class", "kelda")
    return next(w for w in shown.split() if w != Program.main)


def answer_boxes():
    while run("xdotool", "getactivewindow") != Program.main:
        keys("Return")


def take_layout():
    keys("alt+s")
    keys("Return")
    keys("alt+i")
    take("insert", menu())
    keys("2")
    box()
    keys("Return")
    time.sleep(0.5)
    answer_boxes()


def take_check():
    corner = grid_corner(Program.main)
    click_cell(corner, 1, 3, "shift")
    keys("alt+h")
    box()
    take("check-box", "root", crop=part_of_main(0, 44, 560, 430), width=420)
    answer_boxes()
    click_cell(corner, 1, 3, "shift")


def take_fill():
    keys("alt+o")
    take("compile", menu())
    keys("r")
    close_box()
    take("window", Program.main, width=567)


def take_small_windows():
    keys("alt+k", "o")
    take("overview", window("^Puzzle Overview$"), width=200)
    keys("Escape")
    keys("alt+w")
    type_text("lattice")
    keys("alt+m")
    take("meaning", window("^lattice$"), width=420)
    keys("Escape")
    no_box()
    keys("ctrl+shift+p")
    time.sleep(1)
    take("preview", window("^Print Preview$"), width=380)
    keys("Escape")
    no_box()
    keys("alt+k", "t")
    take("picture", window("^Save as Picture$"))
    keys("Escape")
    no_box()


def take_recovery(state):
    program = Program(BIN)
    take("recover", box())
    keys("Escape")
    no_box()
    program.quit()
    assert os.listdir(state)


def main():
    with desktop() as folder:
        program = Program(BIN, "--seed", "7")
        take_layout()
        take_check()
        take_fill()
        take_small_windows()
        time.sleep(3)  # until a recovery copy is kept
        program.process.kill()
        program.process.wait()
        take_recovery(os.path.join(folder, "kelda"))


main()
