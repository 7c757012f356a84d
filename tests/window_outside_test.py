#!/usr/bin/env python3
"""The desktop program from outside, as a user works it: a real window under
Xvfb with a window manager, worked by xdotool.  Argument: the folder of the
programs.  What a user would see is read from window titles, the screen and
the files that are saved.
"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

BIN = os.path.abspath(sys.argv[1])
HARD_GRID = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..",
                         "bench", "grids", "am21-01.txt")
# A lattice that fills at once: five clicks make it.
LATTICE_CLICKS = [(2, 2), (2, 4), (2, 6), (4, 2), (4, 4)]


def run(*command):
    done = subprocess.run(command, capture_output=True, text=True)
    return done.stdout.strip()


def wait_until(what, test, seconds=60):
    end = time.time() + seconds
    while time.time() < end:
        found = test()
        if found:
            return found
        time.sleep(0.1)
    run("import", "-window", "root", "/tmp/kelda-window-test.png")
    raise SystemExit(f"failed: {what} (see /tmp/kelda-window-test.png); "
                     f"windows: {titles()}")


def titles():
    return [run("xdotool", "getwindowname", w) for w in run(
        "xdotool", "search", "--onlyvisible", "--name", ".").split()]


def window(title):
    """The window whose title matches, with the keyboard, once it is there."""
    found = wait_until(
        f"window {title}", lambda: run("xdotool", "search", "--onlyvisible",
                                       "--name", title)).split()[-1]
    run("xdotool", "windowactivate", "--sync", found)
    return found


def box():
    """The message box or dialog in front of the main window."""
    def in_front():
        active = run("xdotool", "getactivewindow")
        return active if active and active != Program.main else None
    found = wait_until("a message box", in_front)
    time.sleep(0.2)
    return found


def no_box():
    wait_until("the main window in front", lambda: run(
        "xdotool", "getactivewindow") == Program.main)


def keys(*names):
    run("xdotool", "key", *names)
    time.sleep(0.3)


def type_text(text):
    run("xdotool", "type", text)
    time.sleep(0.2)


def close_box():
    box()
    keys("Return")
    no_box()


class Program:
    """A running kelda; Program.main is its window."""

    main = ""

    def __init__(self, *arguments, title="^Kelda"):
        self.process = subprocess.Popen([os.path.join(BIN, "kelda"),
                                         *arguments])
        Program.main = window(title)

    def quit(self):
        keys("ctrl+q")
        status = self.process.wait(timeout=30)
        assert status == 0, status


def grid_corner(window_id):
    """Where the first cell begins in a window: its black corner pixel."""
    image = subprocess.run(["import", "-window", window_id, "-depth", "8",
                            "ppm:-"], capture_output=True).stdout
    header = image.split(b"\n", 3)
    width, height = map(int, header[1].split())
    pixels = header[3]
    line = bytes([20, 20, 20]) * 28
    for y in range(height):
        at = pixels[y * width * 3:(y + 1) * width * 3].find(line)
        if at >= 0:
            return at // 3, y
    raise SystemExit("failed: no grid on the screen")


def shift_click(corner, row, col):
    x, y = corner[0] + col * 28 - 14, corner[1] + row * 28 - 14
    run("xdotool", "mousemove", "--window", Program.main, str(x), str(y),
        "keydown", "shift", "click", "1", "keyup", "shift")
    time.sleep(0.1)


def draw_fill_and_save(path):
    program = Program()
    keys("alt+s")
    keys("ctrl+a")
    type_text("7")
    keys("Return")
    corner = grid_corner(Program.main)
    for cell in LATTICE_CLICKS:
        shift_click(corner, *cell)
    keys("alt+o")
    keys("r")
    close_box()  # Solution completed
    keys("ctrl+s")
    box()
    type_text(path)
    keys("Return")
    close_box()  # Saved to
    window("^Puzzle File: " + path)
    program.quit()
    lines = open(path, encoding="latin-1").read().splitlines()
    assert lines[0] == "New Puzzle", lines
    assert lines[2][1] == lines[2][3] == lines[4][3] == "#", lines
    words = lines[1::2]
    assert len(lines) == 8 and all(w.isalpha() for w in words), lines


def look_up():
    program = Program()
    run("xdotool", "key", "alt+d")
    # Tab from the size box to the word box would pass the options.
    keys("alt+s")
    keys(*["Tab"] * 5)
    type_text("mice")
    keys("alt+m")
    window("^mice$")
    keys("Escape")
    no_box()
    program.quit()


def halt_and_resume(path):
    program = Program(path, title="^Puzzle File: ")
    keys("alt+o")
    keys("r")
    time.sleep(1)
    keys("Escape")  # Halt, or Abort when the program asks whether to go on
    time.sleep(0.5)
    keys("Escape")
    keys("ctrl+s")  # is refused while the fill runs
    box()
    keys("alt+y")
    no_box()
    program.quit()
    filled = open(path, encoding="latin-1").read()
    assert any(c.isalpha() for c in filled.split("\n", 1)[1]), filled


def power_cut_and_recover(path, state):
    program = Program(path, title="^Puzzle File: ")
    keys("alt+o")
    keys("r")
    wait_until("a recovery copy", lambda: any(
        name.endswith(".kdp") for name in os.listdir(state)), 10)
    program.process.send_signal(signal.SIGKILL)
    program.process.wait()
    program = Program()
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


def start_display(children):
    read, write = os.pipe()
    children.append(subprocess.Popen(
        ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x960x24",
         "-nolisten", "tcp"], pass_fds=[write], stderr=subprocess.DEVNULL))
    os.close(write)
    os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
    children.append(subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL))
    wait_until("a window manager", lambda: "window id" in run(
        "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))


def main():
    without_display()
    folder = tempfile.mkdtemp(prefix="kelda-window-")
    os.environ["XDG_STATE_HOME"] = folder
    os.environ["XDG_RUNTIME_DIR"] = folder
    os.environ.pop("QT_QPA_PLATFORM", None)
    # Under the sanitizers: what libraries never free is not the program's.
    os.environ["ASAN_OPTIONS"] = "detect_leaks=0"
    state = os.path.join(folder, "kelda")
    hard = os.path.join(folder, "hard.kdp")
    with open(hard, "w") as file:
        file.write("Hard\n" + open(HARD_GRID).read())
    children = []
    try:
        start_display(children)
        draw_fill_and_save(os.path.join(folder, "small.kdp"))
        look_up()
        halt_and_resume(hard)
        power_cut_and_recover(hard, state)
    finally:
        for child in reversed(children):
            child.terminate()
            child.wait()
        shutil.rmtree(folder)
    print("5 passed, 0 failed")


main()
