#!/usr/bin/env python3
"""How long the desktop program takes to start, under Xvfb with a window
manager.  Arguments: the folder of the programs, how often to start [20].

Visible: the window is on the screen.  Usable: Ctrl+Q, pressed as soon as it
is visible, has been answered: the dictionary is loaded and the window closes
again, so the time errs on the slow side.
"""

import os
import statistics
import subprocess
import sys
import time

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..",
                             "tests"))
import x_desktop  # noqa: E402

BIN = os.path.abspath(sys.argv[1])
TIMES = int(sys.argv[2]) if len(sys.argv) > 2 else 20


def wait_for(events, name):
    for line in events:
        if line.startswith(name):
            return time.monotonic()
    raise SystemExit("the display is gone")


def start_once(events):
    start = time.monotonic()
    program = subprocess.Popen([os.path.join(BIN, "kelda")])
    visible = wait_for(events, "MapNotify")
    x_desktop.run("xdotool", "key", "ctrl+q")
    usable = wait_for(events, "UnmapNotify")
    assert program.wait() == 0
    return (visible - start) * 1000, (usable - start) * 1000


def main():
    with x_desktop.desktop():
        watcher = subprocess.Popen(
            ["xev", "-root", "-event", "substructure"], text=True, bufsize=1,
            stdout=subprocess.PIPE)
        start_once(watcher.stdout)  # warms the disk cache
        times = [start_once(watcher.stdout) for _ in range(TIMES)]
        watcher.terminate()
        watcher.wait()
    for what, values in zip(("visible", "usable"), zip(*times)):
        print(f"{what}: median {statistics.median(values):.0f} ms, "
              f"longest {max(values):.0f} ms, of {TIMES} starts")


main()
