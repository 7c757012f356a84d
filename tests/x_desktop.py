"""A desktop without a screen (Xvfb and a window manager) and a hand on its
mouse and keyboard (xdotool), for tests, benchmarks and pictures of the real
program.
"""

import contextlib
import os
import shutil
import subprocess
import tempfile
import time


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
    picture = os.path.join(tempfile.gettempdir(),
                           f"kelda-window-{os.getpid()}.png")
    take_picture("root", picture)
    raise SystemExit(f"failed: {what} (see {picture}); windows: {titles()}")


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


def take_picture(window_id, path):
    run("import", "-window", window_id, path)


class Program:
    """A running kelda; Program.main is its window."""

    main = ""

    def __init__(self, folder, *arguments, title="^Kelda"):
        self.process = subprocess.Popen([os.path.join(folder, "kelda"),
                                         *arguments])
        Program.main = window(title)

    def quit(self):
        keys("ctrl+q")
        status = self.process.wait(timeout=30)
        assert status == 0, status


def pixels_of(window_id):
    """The rows of a window's pixels, three bytes each."""
    image = subprocess.run(["import", "-window", window_id, "-depth", "8",
                            "ppm:-"], capture_output=True).stdout
    header = image.split(b"\n", 3)
    width, height = map(int, header[1].split())
    return [header[3][y * width * 3:(y + 1) * width * 3]
            for y in range(height)]


def grid_corner(window_id):
    """Where the first cell begins in a window: its black corner pixel."""
    for y, row in enumerate(pixels_of(window_id)):
        at = row.find(bytes([20, 20, 20]) * 28)
        if at >= 0:
            return at // 3, y
    raise SystemExit("failed: no grid on the screen")


def click_cell(corner, row, col, *held_keys):
    x, y = corner[0] + col * 28 - 14, corner[1] + row * 28 - 14
    down = [word for key in held_keys for word in ("keydown", key)]
    up = [word for key in held_keys for word in ("keyup", key)]
    run("xdotool", "mousemove", "--window", Program.main, str(x), str(y),
        *down, "click", "1", *up)
    time.sleep(0.1)


@contextlib.contextmanager
def desktop(size="1280x960"):
    """Starts the desktop; gives a folder for files, the state of programs
    among them, which goes when the desktop does."""
    folder = tempfile.mkdtemp(prefix="kelda-desktop-")
    os.environ["XDG_STATE_HOME"] = folder
    os.environ["XDG_RUNTIME_DIR"] = folder
    os.environ.pop("QT_QPA_PLATFORM", None)
    # Under the sanitizers: what libraries never free is not the program's.
    here = os.path.dirname(os.path.abspath(__file__))
    os.environ["LSAN_OPTIONS"] = ("print_suppressions=0:suppressions=" +
                                  os.path.join(here, "leaks_of_libraries.txt"))
    children = []
    try:
        read, write = os.pipe()
        children.append(subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24",
             "-nolisten", "tcp"], pass_fds=[write],
            stderr=subprocess.DEVNULL))
        os.close(write)
        with os.fdopen(read) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        children.append(subprocess.Popen(["openbox"],
                                         stderr=subprocess.DEVNULL))
        wait_until("a window manager", lambda: "window id" in run(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        yield folder
    finally:
        for child in reversed(children):
            child.terminate()
            child.wait()
        shutil.rmtree(folder)
