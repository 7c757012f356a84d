"""kelda-cli autofill and suggest from outside: lines, files, exit statuses.

    autofill_test.py BIN_DIR
"""

import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

CLI = pathlib.Path(sys.argv[1]) / "kelda-cli"
GRIDS = pathlib.Path(__file__).parent.parent / "bench" / "grids"


def run(*arguments, status=0):
    done = subprocess.run([CLI, *(a if isinstance(a, bytes) else str(a)
                                  for a in arguments)], capture_output=True,
                          text=True, timeout=300)
    assert done.returncode == status, (arguments, done)
    return done


def puzzle(folder, name, rows):
    path = folder / name
    path.write_text("\r\n".join(["A title", *rows]) + "\r\n", newline="")
    return path


def check_files(folder):
    names = ["theme-am15-01", "am15-03"]
    puzzles = [puzzle(folder, f"{name}.kdp",
                      (GRIDS / f"{name}.txt").read_text().split())
               for name in names]
    out = folder / "out"
    done = run("autofill", *puzzles, "--json", "-o", out)
    for path, line in zip(puzzles, done.stdout.splitlines(), strict=True):
        report = json.loads(line)
        assert report["puzzle"] == str(path)
        assert report["status"] == "filled"
        filled = (out / path.name).read_bytes().decode().split("\r\n")
        assert filled[0] == "A title"
        assert filled[1:-1] == report["fills"][0]["rows"]
        before = path.read_bytes().decode().split("\r\n")
        for old, new in zip(before[1:], filled[1:], strict=True):
            assert all(a == b or a == "." and b.isalpha()
                       for a, b in zip(old, new, strict=True))
    # A single puzzle goes into a folder too, as the last one of a job may be.
    alone = folder / "alone"
    run("autofill", puzzles[0], "-o", f"{alone}/")
    assert (alone / puzzles[0].name).read_bytes() == (
        out / puzzles[0].name).read_bytes()

    # Only the rows of the grid do as well; the first is no title.
    bare = run("autofill", GRIDS / f"{names[0]}.txt", "--json")
    titled = run("autofill", puzzles[0], "--json")
    assert (json.loads(bare.stdout)["fills"] ==
            json.loads(titled.stdout)["fills"])


def check_outcomes(folder):
    words = folder / "words.txt"
    words.write_text("cat;90\nC.O.T;40\nten;70\nZOO;x\n")
    path = puzzle(folder, "cross.kdp",
                  ["C.T##", "##.##", "##N##", "#####", "#####"])
    done = run("autofill", path, "-w", words, "--best")
    assert "lowest score 70; 71 is impossible" in done.stdout, done
    assert "CAT##" in done.stdout and "1 refused" in done.stderr, done
    done = run("autofill", path, "-w", f"{words}:80", status=1)
    assert "impossible: 2D (T?N) has no word of 80 or more;" in done.stdout
    done = run("autofill", path, "-w", words, "--count", 2, "--differ", 1,
               "-o", folder / "full.kdp")
    assert "filled 2 times, lowest score 70" in done.stdout, done
    assert "CAT##" in (folder / "full.kdp").read_text()
    assert "COT##" in (folder / "full-2.kdp").read_text()
    done = run("suggest", path, "1a", "-w", words)
    assert done.stdout == "CAT 90 1\nCOT 40 1\n", done
    done = run("suggest", path, "9D", "-w", words, status=1)
    assert "there is no entry 9D" in done.stderr, done

    # What is no letter stays, and the entry with it.
    odd = puzzle(folder, "odd.kdp",
                 ["+.T##", "##.##", "##N##", "#####", "#####"])
    done = run("autofill", odd, "-w", words, status=1)
    assert 'odd.kdp: 1A is left as it is: it holds "+"' in done.stderr, done
    assert done.stdout.splitlines()[1:4] == ["+.T##", "##E##", "##N##"], done


def check_formats(folder):
    """Any format goes in, that of the output's ending comes out."""
    path = puzzle(folder, "a.kdp", ["C..", ".#.", "..."])
    run("convert", path, folder / "a.ipuz")
    report = json.loads(run("autofill", path, "--json").stdout)
    rows = report["fills"][0]["rows"]
    run("autofill", folder / "a.ipuz", "-o", folder / "full.kdp")
    assert (folder / "full.kdp").read_text().split()[2:] == rows
    run("autofill", path, "-o", folder / "full.ipuz")
    full = json.loads((folder / "full.ipuz").read_text())
    assert ["".join(row) for row in full["solution"]] == rows, full
    out = folder / "out"
    run("autofill", folder / "a.ipuz", "-o", f"{out}/")
    assert json.loads((out / "a.ipuz").read_text())["title"] == "A title"
    done = run("suggest", folder / "a.ipuz", "1A", "--limit", 1)
    assert done.stdout.startswith("C"), done

    # A rectangle fills, but is no .kdp file.
    full["dimensions"] = {"width": 3, "height": 4}
    full["solution"] = full["puzzle"] = [[0] * 3] * 4
    wide = folder / "wide.ipuz"
    wide.write_text(json.dumps(full))
    assert len(run("autofill", wide).stdout.split("\n")) > 4
    done = run("autofill", wide, "-o", folder / "wide.kdp", status=3)
    assert "3 x 4 cells" in done.stderr, done


def check_errors(folder):
    path = puzzle(folder, "a.kdp", ["...", "...", "..."])
    run("autofill", status=2)
    run("autofill", "x.kdp", "-w", "2:101", status=2)
    for option, values in {"--time": ["nan", "-1", "inf", "1e7"],
                           "--seed": ["-1", "18446744073709551616", "1.5"],
                           }.items():
        for value in values:
            run("autofill", path, f"{option}={value}", status=2)
    run("layout", "random", "--seed=99999999999999999999", status=2)
    run("autofill", folder / "none.kdp", status=3)
    empty = folder / "empty.txt"
    empty.write_text("")
    run("autofill", path, "-w", empty, status=3)


def check_batch(folder):
    """Nobody's fill is lost, whatever becomes of the others."""
    rows = ["...", "...", "..."]
    first = puzzle(folder, "p.kdp", rows)
    second = puzzle(folder, "p-2.kdp", rows)
    other = folder / "other"
    other.mkdir()
    out = folder / "out"
    for twins in ([first, puzzle(other, "p.kdp", rows)],
                  [first, second, "--count", 2]):
        done = run("autofill", *twins, "-o", out, status=3)
        assert "would have the same name" in done.stderr, done
        assert not list(out.iterdir()), done
    (out / "p.kdp").write_text("mine")
    done = run("autofill", second, first, "-o", out, status=3)
    assert "--force replaces it" in done.stderr, done
    assert [path.name for path in out.iterdir()] == ["p.kdp"], done
    run("autofill", second, first, "-o", out, "--force")
    assert (out / "p.kdp").read_text().startswith("A title"), done

    strange = bytes(folder) + b"/caf\xe9.kdp"
    pathlib.Path(strange.decode(errors="surrogateescape")).write_bytes(
        first.read_bytes())
    done = run("autofill", strange, folder / "none.kdp", first, "--json",
               status=3)
    reports = [json.loads(line) for line in done.stdout.splitlines()]
    statuses = [report["status"] for report in reports]
    assert statuses == ["filled", "failed", "filled"], done
    assert reports[0]["puzzle"].endswith("/caf\\xE9.kdp"), reports[0]


def check_interrupt(folder):
    path = puzzle(folder, "hard.kdp",
                  (GRIDS / "am15-09.txt").read_text().split())
    process = subprocess.Popen([CLI, "autofill", path], text=True,
                               stdout=subprocess.PIPE)
    time.sleep(2)
    begin = time.monotonic()
    process.send_signal(signal.SIGINT)
    out, _ = process.communicate(timeout=60)
    assert process.returncode == 1 and "stopped" in out, out
    # In 100 ms as it ships; the checked builds are slower.
    assert time.monotonic() - begin < 5, out

    # While a list, a puzzle or standard input is read, it ends at once.
    waiting = folder / "waiting.txt"
    os.mkfifo(waiting)
    for command in (["autofill", path, "-w", waiting], ["autofill", waiting],
                    ["autofill", "-"], ["suggest", path, "1A", "-w", waiting],
                    ["check", "-"], ["fill", "-"], ["words", waiting]):
        process = subprocess.Popen([CLI, *map(str, command)],
                                   stdin=subprocess.PIPE,
                                   stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        time.sleep(0.5)
        assert process.poll() is None, command
        begin = time.monotonic()
        process.send_signal(signal.SIGINT)
        process.wait(timeout=60)
        assert process.returncode == -signal.SIGINT, (command, process)
        # The slack is for the checked builds on a busy machine.
        assert time.monotonic() - begin < 2, command
        process.stdin.close()


with tempfile.TemporaryDirectory() as name:
    for check in (check_files, check_outcomes, check_formats, check_errors,
                  check_batch, check_interrupt):
        folder = pathlib.Path(name) / check.__name__
        folder.mkdir()
        check(folder)
