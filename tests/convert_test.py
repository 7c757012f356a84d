"""kelda-cli convert and info: puzzles from one format to another."""

import io
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
import zipfile

BIN = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else "build/dev/bin")
CLI = str(BIN.resolve() / "kelda-cli")
MINI = {
    "version": "http://ipuz.org/v2",
    "kind": ["http://ipuz.org/crossword#1"],
    "title": "Mini", "author": "A. Setter", "publisher": "P",
    "dimensions": {"width": 3, "height": 3},
    "puzzle": [[1, 0, 2],
               [{"cell": 0, "style": {"shapebg": "circle"}}, "#", 0],
               [{"cell": 3, "style": {"barred": "T"}}, 0, 0]],
    "solution": [["C", "A", "T"], ["A", "#", "E"], ["R", "E", "D"]],
    "clues": {"Across": [[1, "Pet"], [3, "<i>Scarlet</i> & more"]],
              "Down": [[1, "Auto"], [2, "Talk"]]}}


class ConvertTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.mini = self.folder / "mini.ipuz"
        self.mini.write_text(json.dumps(MINI))

    def run_cli(self, *arguments, stdin=b"", status=0):
        done = subprocess.run([CLI, *map(str, arguments)], input=stdin,
                              capture_output=True, timeout=120)
        self.assertEqual(done.returncode, status,
                         (arguments, done.stdout, done.stderr))
        self.stderr = done.stderr.decode()
        return done.stdout

    def test_losses_are_told_and_strict_writes_nothing(self):
        out = self.folder / "mini.kdp"
        self.run_cli("convert", self.mini, out, "--strict", status=1)
        lost = ["lost: 1 bar, between row 2, column 1 and row 3, column 1",
                "lost: 1 circle, at row 2, column 1",
                'lost: the author "A. Setter"', "lost: 4 clues, first 1A",
                "lost: 1 further field, publisher"]
        told = self.stderr.splitlines()
        self.assertEqual(told, [
            "passed over: the markup of texts, such as italics", *lost,
            f"kelda-cli: {out}: nothing was written"])
        self.assertFalse(out.exists())
        self.run_cli("convert", self.mini, out)
        self.assertEqual(self.stderr.splitlines(), told[:-1])
        self.assertEqual(out.read_bytes(), b"Mini\r\nCAT\r\nA#E\r\nRED\r\n")

    def test_every_format_comes_back(self):
        for to in ("ipuz", "jpz"):
            there = self.run_cli("convert", self.mini, "-", "--to", to)
            back = json.loads(self.run_cli("convert", "-", "-", "--to",
                                           "ipuz", stdin=there))
            self.assertEqual(back["solution"], MINI["solution"])
            self.assertEqual(back["puzzle"], MINI["puzzle"])
            self.assertIn([3, "Scarlet & more"], back["clues"]["Across"])
            self.assertEqual("publisher" in back, to == "ipuz")

    def test_jpz_is_what_others_expect(self):
        out = self.run_cli("convert", self.mini, "-", "--to", "jpz")
        with zipfile.ZipFile(io.BytesIO(out)) as archive:
            root = xml.etree.ElementTree.fromstring(
                archive.read(archive.namelist()[0]))
        space = "{http://crossword.info/xml/rectangular-puzzle}"
        cells = root.findall(f".//{space}cell")
        self.assertEqual([c.get("solution") for c in cells],
                         ["C", "A", "T", "A", None, "E", "R", "E", "D"])
        self.assertEqual(cells[4].get("type"), "block")
        self.assertEqual(
            [c.text for c in root.findall(f".//{space}clue")],
            ["Pet", "Scarlet & more", "Auto", "Talk"])

    def test_refusals(self):
        wide = self.folder / "wide.ipuz"
        wide.write_text(json.dumps(
            {**MINI, "puzzle": [[0] * 12] * 10, "solution": None}))
        out = self.folder / "out.kdp"
        self.run_cli("convert", wide, out, status=1)
        self.assertIn("out.kdp: a kdp file holds odd squares only, and this "
                      "puzzle is 12 x 10 cells\n", self.stderr)
        self.run_cli("convert", wide, self.folder / "out", status=2)
        self.assertIn("the name tells no format", self.stderr)
        self.run_cli("convert", wide, "-", "--to", "pdf", status=2)
        broken = self.folder / "broken.ipuz"
        broken.write_text('{"kind":\n 5')
        self.run_cli("convert", broken, out, status=3)
        self.assertIn("broken.ipuz: line 2, column 3: ", self.stderr)
        self.run_cli("info", "-", status=3, stdin=b"Hello\n")
        self.assertEqual(self.stderr, "kelda-cli: -: this is no puzzle of a "
                                      "known format\n")
        self.assertFalse(out.exists())

    def test_classic_commands_take_every_format(self):
        ring = {**MINI, "dimensions": {"width": 5, "height": 5},
                "puzzle": [[1, 0, 0, 0, 2]] + [[0, "#", "#", "#", 0]] * 3 +
                          [[3, 0, 0, 0, 0]], "solution": None}
        path = self.folder / "ring.ipuz"
        path.write_text(json.dumps(ring))
        out = self.folder / "full.ipuz"
        self.assertEqual(self.run_cli("inspect", "numbers", path),
                         b"01,01 1\n01,05 2\n05,01 3\n")
        self.run_cli("fill", path, "-d", 1, "--seed", 1, "-o", out)
        full = json.loads(out.read_text())
        self.assertEqual(full["puzzle"], ring["puzzle"])
        self.assertTrue(all(full["solution"][0]))
        self.assertEqual(full["publisher"], "P")
        self.assertEqual(full["clues"]["Across"][0],
                         {"number": 1, "clue": "Pet", "org.kelda:answer": ""})
        self.run_cli("check", self.mini, status=1)
        self.assertIn("mini.ipuz: this command cannot take this puzzle: it "
                      "has 1 bar\n", self.stderr)

    def test_info(self):
        info = json.loads(self.run_cli("info", self.mini, "--json"))
        self.assertEqual(
            {key: info[key] for key in ("title", "width", "words", "blocks",
                                        "bars", "clues", "format")},
            {"title": "Mini", "width": 3, "words": 4, "blocks": 1, "bars": 1,
             "clues": 4, "format": "ipuz"})
        self.assertEqual(info["letters"]["E"], 2)
        text = self.run_cli("info", self.mini).decode().splitlines()
        self.assertIn("Words: 4, mean length 2.75", text)
        self.assertIn("Clues: 4 of 4", text)
        rows = self.run_cli("info", "-", stdin=b"#.AB\n....\n..#.\n").decode()
        self.assertIn("Size: 4 x 3\n", rows)


if __name__ == "__main__":
    unittest.main()
