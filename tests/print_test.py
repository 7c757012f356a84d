"""Prints for real: kelda-cli sheet --print through a print service of the
test's own, to printers that print, fail, stand still, refuse or are not
there.

    print_test.py BIN_DIR
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

from private_cups import PrivateCups

BIN = pathlib.Path(sys.argv.pop(1) if sys.argv[1:] else "build/dev/bin")
TITLE = f"Kelda print test {os.getpid()}"
PUZZLE = TITLE + "\r\nABC\r\nD#E\r\nFGH\r\n"
CUPS_PDF_OUT = pathlib.Path("/var/spool/cups-pdf/ANONYMOUS")


class PrintTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.cups = cls.enterClassContext(PrivateCups(cls.folder.name))
        cls.puzzle = os.path.join(cls.folder.name, "puzzle.kdp")
        pathlib.Path(cls.puzzle).write_bytes(PUZZLE.encode("latin-1"))

    @classmethod
    def tearDownClass(cls):
        cls.addClassCleanup(cls.folder.cleanup)

    def sheet(self, *options, **env):
        """Prints; returns the exit status and what was said."""
        # A user whom the system does not know: nobody's home is written to.
        done = subprocess.run(
            [BIN / "kelda-cli", "sheet", self.puzzle, *options],
            env=dict(self.cups.env, CUPS_USER="kelda-test", **env),
            capture_output=True, text=True, timeout=60, check=False)
        return done.returncode, (done.stdout + done.stderr).strip()

    def use(self, name, device, *options):
        self.cups.add_queue(name, device, *options)
        self.cups.run("lpadmin", "-d", name)

    def test_1_no_printer_then_no_default(self):
        self.assertEqual(
            self.sheet("--print"),
            (1, "Nothing was printed: there is no printer."))
        self.cups.add_queue("Spare", "keep:/")
        self.assertEqual(
            self.sheet("--print"),
            (1, "Nothing was printed: no printer is chosen as the default."))
        self.assertEqual(self.cups.job_files(), [])

    def test_2_the_printer_gets_the_sheet(self):
        self.use("Keep", "keep:/")
        for options in ([], ["--grid-only"]):
            with self.subTest(options):
                self.assertEqual(self.sheet("--print", *options),
                                 (0, "Printing completed"))
                printed = os.path.join(self.folder.name, "printed.pdf")
                sent = self.cups.job_files()[-1]
                self.assertEqual(pathlib.Path(sent).read_bytes(),
                                 pathlib.Path(printed).read_bytes())
                text = pdf_text(sent)
                self.assertIn(TITLE, text)
                self.assertEqual("ACROSS" in text, not options)
                self.assertEqual(text.count("_" * 35), 0 if options else 4)

    @unittest.skipUnless(os.geteuid() == 0, "the backend runs as root only")
    def test_3_through_filters_to_a_pdf_printer(self):
        self.use("Pdf", "cups-pdf:/", "-P",
                 "/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd",
                 "-o", "media=A4")
        self.assertEqual(self.sheet("--print"), (0, "Printing completed"))
        made = files_made(TITLE.replace(" ", "_") + "*.pdf")
        try:
            self.assertEqual(len(made), 1)
            info = subprocess.run(["pdfinfo", made[0]], check=True,
                                  capture_output=True, text=True).stdout
            self.assertRegex(info, r"Pages: +1\n")
            self.assertIn("595 x 842 pts (A4)", info)
            # The filters keep no text, but all of the ink.
            sent = ink(self.cups.job_files()[-1])
            self.assertAlmostEqual(ink(made[0]) / sent, 1, delta=0.3)
        finally:
            for path in made:
                path.unlink()

    def test_4_the_paper_is_the_printers(self):
        self.use("Letter", "keep:/", "-P",
                 "/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd",
                 "-o", "media=Letter")
        self.sheet("--print")
        info = subprocess.run(["pdfinfo", self.cups.job_files()[-1]],
                              check=True, capture_output=True, text=True)
        self.assertIn("612 x 792 pts (letter)", info.stdout)

    def test_5_a_job_that_is_given_up(self):
        self.use("Abort", "fail:/", "-o", "printer-error-policy=abort-job")
        self.assertEqual(
            self.sheet("--print"),
            (1, "Nothing was printed: the printer Abort gave the job up: "
                "The paper is jammed"))

    def test_6_a_job_that_waits(self):
        self.use("Stop", "fail:/", "-o", "printer-error-policy=stop-printer")
        self.use("Paused", "keep:/")
        self.cups.run("cupsdisable", "-r", "no ink", "Paused")
        for name, why in (("Stop", "The paper is jammed"),
                          ("Paused", "no ink")):
            self.assertEqual(
                self.sheet("--print", LPDEST=name),
                (1, f"Not printed yet: the printer {name} stands still, the "
                    f"job waits in its queue: {why}"))

    def test_7_a_queue_that_refuses(self):
        self.use("Refuse", "keep:/")
        self.cups.run("cupsreject", "Refuse")
        jobs = len(self.cups.job_files())
        self.assertEqual(
            self.sheet("--print"),
            (1, "Nothing was printed: the printer Refuse takes no jobs."))
        self.assertEqual(len(self.cups.job_files()), jobs)

    def test_8_no_service(self):
        self.cups.stop()
        self.assertEqual(
            self.sheet("--print"),
            (1, "Nothing was printed: there is no printer."))


def files_made(pattern):
    """Files of the PDF printer, which may take a while."""
    deadline = time.monotonic() + 30
    while True:
        made = list(CUPS_PDF_OUT.glob(pattern))
        if made or time.monotonic() > deadline:
            return made
        time.sleep(0.1)


def ink(path):
    """How dark the first page is in all."""
    page = subprocess.run(["pdftoppm", "-gray", "-r", "200", "-l", "1", path],
                          check=True, capture_output=True).stdout
    pixels = page.split(b"\n", 3)[3]
    return sum(255 - pixel for pixel in pixels)


def pdf_text(path):
    return subprocess.run(["pdftotext", "-layout", path, "-"], check=True,
                          capture_output=True, text=True).stdout


if __name__ == "__main__":
    unittest.main()
