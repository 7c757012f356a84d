"""kelda-cli from outside: what it prints, what it writes, how it ends."""

import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

BIN = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else "build/dev/bin")
CLI = str(BIN.resolve() / "kelda-cli")
RING = "Ring\r\n.....\r\n.###.\r\n.###.\r\n.###.\r\n.....\r\n"
RING_WORDS = ("ABBEY\nABBOT\nEARTH\nTENTH\nTOTAL\nTRUST\nTUTOR\nYEAST\n"
              "YOUTH\n")


class CliTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.ring = self.write("ring.kdp", RING)
        self.words = self.write("words.txt", RING_WORDS)

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes)
                         else content.encode("latin-1"))
        return str(path)

    def run_cli(self, *arguments, stdin=b"", status=0):
        done = subprocess.run([CLI, *map(str, arguments)], input=stdin,
                              capture_output=True, timeout=120)
        self.assertEqual(done.returncode, status,
                         (arguments, done.stdout, done.stderr))
        self.stderr = done.stderr.decode("latin-1")
        return done.stdout.decode("latin-1")

    def test_fill_prints_message_grid_and_summary(self):
        out = self.folder / "out.kdp"
        printed = self.run_cli("fill", self.ring, "-d", 1,
                               "--start", "1a", "-o", out).splitlines()
        self.assertEqual(printed[0], "Solution completed")
        rows = printed[1:6]
        words = [rows[0], rows[4]] + ["".join(r[c] for r in rows)
                                      for c in (0, 4)]
        self.assertEqual(len(set(words)), 4)
        listed = (BIN / "L1Ascii.txt").read_text().split()
        self.assertLessEqual(set(words), set(listed))
        self.assertRegex(printed[6], r"^\d+ slots solved, \d+ candidates "
                                     r"tried, \d+ backtracks, \S+ seconds$")
        self.assertEqual(out.read_bytes().decode(),
                         "Ring\r\n" + "\r\n".join(rows) + "\r\n")

    def test_fill_that_is_not_completed(self):
        few = self.write("few.txt", "ABBEY\nYOUTH\n")
        printed = self.run_cli("fill", self.ring, "-d", few, "--log",
                               "--start", "1A",
                               "--tries", "retry", status=1)
        self.assertIn("Tried:YOUTH, mask failed: 2\nfound: 1 1 ABBEY\n",
                      printed)
        self.assertNotIn("completed", printed)
        open_grid = self.write("open.kdp", "\r\n" + ".....\r\n" * 5)
        out = self.folder / "none.kdp"
        printed = self.run_cli("fill", open_grid, "-o", out, status=1)
        self.assertTrue(printed.startswith("Place black sqaures first\n"))
        self.assertFalse(out.exists())
        printed = self.run_cli("fill", self.ring, "--start", "9Z", status=1)
        self.assertTrue(printed.startswith("No such clue: 9Z\n"))

    def test_fill_tells_of_sections_that_it_left_empty(self):
        section = "....#....\r\n.##.#.##.\r\n.##.#.##.\r\n....#....\r\n"
        grid = self.write("g.kdp", "\r\n" + section + "#" * 9 + "\r\n" +
                          section)
        out = self.folder / "out.kdp"
        printed = self.run_cli("fill", grid, "-d", 3, "--seed", 1, "-o", out,
                               status=1)
        self.assertIn("Solution completed", printed)
        empty = int(self.stderr.split()[1])
        self.assertIn("entries are still empty", self.stderr)
        self.assertIn(empty, (4, 8, 12))
        self.assertEqual(out.read_text().count("."), 12 * empty // 4)

    def test_interrupt_halts_and_writes_what_there_is(self):
        few = self.write("few.txt", "ABBEY\nYOUTH\n")
        out = self.folder / "out.kdp"
        process = subprocess.Popen(
            [CLI, "fill", self.ring, "-d", few, "--tries", "ignore",
             "-o", out], stdout=subprocess.PIPE)
        time.sleep(0.5)
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=60)
        self.assertEqual(process.returncode, 1)
        self.assertTrue(out.read_bytes().startswith(b"Ring\r\n"))

    def test_layouts_chain_into_check_and_fill(self):
        layout = self.run_cli("layout", "2x2", "--size", 9, "--seed", 3)
        self.assertEqual(layout, self.run_cli("layout", "2x2", "--size", 9,
                                              "--seed", 3))
        self.assertRegex(self.stderr, r"^ \d+ Squares and \d+ Clues Clues\n$")
        checked = self.run_cli("check", "-", stdin=layout.encode(), status=1)
        self.assertTrue(checked.endswith(
            "Cyan cells do not appear in both A and D clues\nStatus 2\n"))
        filled = self.run_cli("fill", "-", "-d", 1, "--seed", 1, "-o", "-",
                              stdin=layout.encode())
        self.assertIn("Solution completed", self.stderr)
        self.assertEqual(self.run_cli("check", "-", stdin=filled.encode(),
                                      status=1), checked)
        full = self.run_cli("layout", "random", "--size", 5, "--squares", 24,
                            status=1)
        self.assertIn("no further black square can be placed", self.stderr)
        self.assertIn("stopped short of 24 black squares", self.stderr)
        self.assertEqual(len(full.split("\r\n")), 7)
        self.run_cli("layout", "2x2", "--size", 9, "--no-split")
        self.run_cli("layout", "2x2", "--size", 9, "--no-split",
                     "--squares", 40, status=1)

    def test_check_names_painted_cells(self):
        grid = self.write("g.kdp", "\n" + "..#..\n" * 5)
        self.assertEqual(
            self.run_cli("check", grid, status=1).splitlines()[-3:],
            ["05,05 length",
             "Words at cells highlighted are of length <3 OR >20", "Status 1"])
        grid = self.write("g.kdp", "\n" + "...#...\n" * 7)
        printed = self.run_cli("check", grid, status=1)
        self.assertTrue(printed.startswith("01,01 shaded\n01,02 shaded\n"
                                           "01,03 shaded\n01,04 red\n"))
        self.assertTrue(printed.endswith("set black squares\nStatus 4\n"))

    def test_inspect_and_split(self):
        def inspect(what):
            return self.run_cli("inspect", what, self.ring, "-d", self.words)
        self.assertEqual(inspect("slots"), "05A 01,01\n05A 05,01\n05D 01,01\n"
                                           "05D 01,05\n")
        self.assertEqual(inspect("masks").splitlines()[0], "05A 01,01=?????")
        self.assertEqual(inspect("numbers"), "01,01 1\n01,05 2\n05,01 3\n")
        self.assertEqual(inspect("crossings").splitlines()[0],
                         "05A 01,01: 01,01 02,01 03,01 04,01 05,01 01,05 "
                         "02,05 03,05 04,05 05,05 ")
        # 9 words over 2 crossings: 4.5 rounds to 4.
        self.assertEqual(inspect("criticality").splitlines()[0],
                         "0000405A 01,01")
        # a = 4/5, b = 9/5, c = 1.2 * 136 / 25, d = 20 / 25: 2 becomes 3.
        self.assertEqual(inspect("gauge"), "90\n")
        grid = self.write("g.kdp", "\n" + ".........\n" * 9)
        out = self.folder / "split.kdp"
        message = self.run_cli("split", grid, "--seed", 1, "-o", out)
        row, col = map(int, message.split("at")[1].split())
        lines = out.read_text().splitlines()[1:]
        self.assertEqual(lines[row - 1][col - 1], "#")
        self.assertEqual(lines[9 - row][9 - col], "#")

    def test_dictionary_questions(self):
        self.assertEqual(self.run_cli("find", "total", "-d", self.words),
                         "TOTAL is word# 5 of  9 5-letter words\n")
        self.assertEqual(self.run_cli("find", "nope", "-d", self.words),
                         "NOPE not found\n")
        self.assertEqual(self.run_cli("match", "T?T?R", "-d", self.words),
                         "000034TUTOR\n")
        self.assertEqual(self.run_cli("words", self.words).splitlines()[-1],
                         ",  9 Words")
        packed = "60\t12 14 1d\r\nBR\r\n".replace(" ", "")
        self.assertEqual(
            self.run_cli("unpack", "-", stdin=packed.encode()),
            "1\nCAT\nCAR\n")

    def test_bad_files_get_a_clear_error(self):
        binary = pathlib.Path(CLI).read_bytes()[:100000]
        for content, text in ((b"", "the file is empty"),
                              (b"t\n....\n", "must be an odd number"),
                              (b"t\n" + b"." * 53 + b"\n", "53 cells wide"),
                              (binary, "not a text file"),
                              (b"x" * 1000000, "the line is too long")):
            path = self.write("bad.kdp", content)
            self.run_cli("inspect", "slots", path, status=3)
            self.assertTrue(self.stderr.startswith("kelda-cli: " + path))
            self.assertIn(text, self.stderr)
        self.run_cli("words", self.folder / "none", status=3)
        self.assertIn("No such file", self.stderr)
        self.run_cli("words", self.write("bad.txt", binary), status=3)
        self.run_cli("words", self.write("empty.txt", b""))
        self.assertIn("no word of 3 to 20 letters", self.stderr)
        self.run_cli("layout", "2x2", "-o", "/dev/full", status=3)
        self.assertIn("No space left", self.stderr)
        self.run_cli("layout", "2x2", "-o", self.folder / "no/such", status=3)

    def test_wrong_usage(self):
        for arguments in ((), ("fill",), ("layout", "3x3"),
                          ("layout", "2x2", "--size", "12"),
                          ("picture", self.ring, "-o", "-", "--scale", "nan"),
                          ("match", "C?+", "-d", "1"),
                          ("fill", "x", "--tries", "maybe"), ("frobnicate",)):
            self.run_cli(*arguments, status=2)
            self.assertTrue(self.stderr)
        for command in ("fill", "layout", "check", "split", "inspect", "find",
                        "match", "words", "unpack"):
            self.assertIn("Example: kelda-cli " + command,
                          self.run_cli(command, "--help"))


if __name__ == "__main__":
    unittest.main()
