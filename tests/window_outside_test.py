#!/usr/bin/env python3
"""The desktop program from outside, as a user works it: a real window under
Xvfb with a window manager, worked by xdotool.  Argument: the folder of the
programs.  What a user would see is read from window titles, the screen and
the files that are saved.
"""

import os
import signal
import subprocess
import sys

from x_desktop import (Program, box, click_cell, close_box, desktop,
                       grid_corner, keys, no_box, pixels_of, run, type_text,
                       wait_until, window)

BIN = os.path.abspath(sys.argv[1])
HARD_GRID = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..",
                         "bench", "grids", "am21-01.txt")
# A lattice that fills at once: five clicks make it.
LATTICE_CLICKS = [(2, 2), (2, 4), (2, 6), (4, 2), (4, 4)]


def draw_lattice():
    keys("alt+s")
    keys("ctrl+a")
    type_text("7")
    keys("Return")
    corner = grid_corner(Program.main)
    for cell in LATTICE_CLICKS:
        click_cell(corner, *cell, "shift")


def save_as(path):
    keys("ctrl+s")
    box()
    type_text(path)
    keys("Return")
    close_box()  # Saved to
    window("^Puzzle File: " + path)


def blue_is_seen():
    blue = bytes([0, 0, 255]) * 20
    return any(blue in row for row in pixels_of(Program.main))


def draw_fill_and_save(path):
    program = Program(BIN)
    draw_lattice()
    keys("alt+o")
    keys("r")
    close_box()  # Solution completed
    save_as(path)
    program.quit()
    lines = open(path, encoding="latin-1").read().splitlines()
    assert lines[0] == "New Puzzle", lines
    assert lines[2][1] == lines[2][3] == lines[4][3] == "#", lines
    words = lines[1::2]
    assert len(lines) == 8 and all(w.isalpha() for w in words), lines


def load_and_check(path):
    program = Program(BIN)
    keys("ctrl+o")
    box()
    type_text(path)
    box_id = box()
    keys("Return")
    wait_until("the next box", lambda: run(
        "xdotool", "getactivewindow") != box_id)
    close_box()  # loaded
    # Two blocks that leave slots of two cells, which the check paints blue.
    click_cell(grid_corner(Program.main), 1, 3, "shift")
    assert not blue_is_seen()
    keys("alt+h")
    box()
    while run("xdotool", "getactivewindow") != Program.main:
        keys("Return")
    wait_until("blue cells", blue_is_seen, 10)
    keys("ctrl+q")
    box()
    keys("alt+d")  # Discard
    assert program.process.wait(timeout=30) == 0


def look_up():
    program = Program(BIN)
    keys("alt+w")
    type_text("mice")
    keys("alt+m")
    window("^mice$")
    keys("Escape")
    no_box()
    program.quit()


def halt_and_resume(path, words):
    # Two words are too few for a lattice of eight, so the fill never ends.
    with open(words, "w") as file:
        file.write("CHANCEL\nNOMADIC\n")
    program = Program(BIN)
    draw_lattice()
    keys("alt+u")
    box()
    type_text(words)
    keys("Return")
    close_box()  # Read 2 words
    keys("alt+o")
    keys("r")
    box()  # Tried 28 times
    keys("alt+i")  # Ignore
    no_box()
    keys("ctrl+s")  # is refused while the fill runs
    assert run("xdotool", "getactivewindow") == Program.main
    keys("alt+a")  # Halt
    keys("alt+2")
    close_box()  # Read
    keys("alt+o")
    keys("e")  # Resume
    close_box()  # Solution completed
    save_as(path)
    program.quit()
    lines = open(path, encoding="latin-1").read().splitlines()
    assert all(line.isalpha() for line in lines[1::2]), lines


def power_cut_and_recover(path, state):
    program = Program(BIN, path, title="^Puzzle File: ")
    keys("alt+o")
    keys("r")
    wait_until("a recovery copy", lambda: any(
        name.endswith(".ipuz") for name in os.listdir(state)), 10)
    program.process.send_signal(signal.SIGKILL)
    program.process.wait()
    program = Program(BIN)
    box()
    keys("Return")  # Recover
    window("^Puzzle File: " + path)
    keys("ctrl+q")
    box()
    keys("Return")  # Save
    assert program.process.wait(timeout=30) == 0
    assert not os.listdir(state), os.listdir(state)
    assert open(path, encoding="latin-1").read().count("#") > 10


def without_display():
    environment = {k: v for k, v in os.environ.items() if k != "DISPLAY"}
    for arguments, status, text in [(["--version"], 0, "Kelda 1.0\n"),
                                    (["--help"], 0, "Usage: kelda"),
                                    (["--nonsense"], 2, ""),
                                    (["--seed", "x7"], 2, ""),
                                    ([], 1, "")]:
        done = subprocess.run([os.path.join(BIN, "kelda"), *arguments],
                              env=environment, capture_output=True, text=True)
        assert done.returncode == status, (arguments, done)
        assert done.stdout.startswith(text), (arguments, done)
    assert "no display" in done.stderr and done.stderr.count("\n") == 1, done
    environment["DISPLAY"] = ":987"
    done = subprocess.run([os.path.join(BIN, "kelda")], env=environment,
                          capture_output=True, text=True)
    assert done.returncode == 1 and done.stderr.count("\n") == 1, done


def main():
    without_display()
    with desktop() as folder:
        small = os.path.join(folder, "small.kdp")
        hard = os.path.join(folder, "hard.kdp")
        with open(hard, "w") as file:
            file.write("Hard\n" + open(HARD_GRID).read())
        draw_fill_and_save(small)
        load_and_check(small)
        look_up()
        halt_and_resume(os.path.join(folder, "resumed.kdp"),
                        os.path.join(folder, "words.txt"))
        power_cut_and_recover(hard, os.path.join(folder, "kelda"))
    print("6 passed, 0 failed")


main()
