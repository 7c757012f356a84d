"""Files that kelda-cli writes while something goes wrong: signals, full
disks, protected files, closed folders.  The old file or the new one is there,
whole, and nothing else.  Argument: the folder of the programs.
"""

import os
import pathlib
import resource
import signal
import subprocess
import sys
import tempfile
import time
import unittest

BIN = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else "build/dev/bin")
CLI = str(BIN.resolve() / "kelda-cli")
NOBODY = 65534
OLD = "Old\r\n" + "...\r\n" * 3
KILLS_OF_EACH_SIGNAL = 40


class WriteTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.folder.chmod(0o755)
        self.out = self.folder / "out.kdp"

    def layout(self, out, *arguments, status=0, **how):
        done = subprocess.run(
            [CLI, "layout", "2x2", "--size", "51", "--no-split", "-o",
             str(out), *arguments], capture_output=True, text=True,
            timeout=120, **how)
        self.assertEqual(done.returncode, status, done)
        return done.stderr

    def assert_layout(self, path):
        lines = path.read_bytes().split(b"\r\n")
        self.assertEqual([len(line) for line in lines[1:]], [51] * 51 + [0])

    def names(self, folder=None):
        return sorted(os.listdir(folder or self.folder))

    def test_a_signal_leaves_one_whole_file(self):
        began = time.monotonic()
        self.layout(self.out)
        usual = time.monotonic() - began
        self.out.write_text(OLD, newline="")
        ended = set()
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            for i in range(KILLS_OF_EACH_SIGNAL):
                process = subprocess.Popen(
                    [CLI, "layout", "2x2", "--size", "51", "--no-split",
                     "-o", self.out], stderr=subprocess.DEVNULL)
                time.sleep(1.2 * usual * i / KILLS_OF_EACH_SIGNAL)
                process.send_signal(number)
                ended.add(process.wait(timeout=60))
                self.assertEqual(self.names(), ["out.kdp"])
                if self.out.read_bytes() != OLD.encode():
                    self.assert_layout(self.out)
                    self.out.write_text(OLD, newline="")
        self.assertIn(-signal.SIGTERM, ended)

    def test_a_file_that_gets_too_large_is_told(self):
        self.out.write_text(OLD, newline="")

        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        for out, old in ((self.out, OLD), (self.folder / "new.kdp", None)):
            told = self.layout(out, status=3, preexec_fn=limit)
            self.assertIn(f"kelda-cli: {out}: cannot be written: "
                          "File too large\n", told)
        self.assertEqual(self.out.read_bytes().decode(), OLD)
        self.assertEqual(self.names(), ["out.kdp"])

    def test_a_write_protected_file_is_replaced_with_force_alone(self):
        self.out.write_text(OLD, newline="")
        self.out.chmod(0o444)
        told = self.layout(self.out, status=3)
        self.assertIn("out.kdp: the file is write-protected; --force "
                      "replaces it\n", told)
        self.assertEqual(self.out.read_bytes().decode(), OLD)
        picture = self.folder / "a.png"
        picture.touch(0o444)
        puzzle = self.folder / "a.kdp"
        puzzle.write_text(OLD, newline="")
        draw = [CLI, "picture", puzzle, "-o", picture]
        self.assertEqual(subprocess.run(draw, capture_output=True).returncode,
                         3)
        self.assertEqual(subprocess.run(draw + ["--force"]).returncode, 0)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))
        self.layout(self.out, "--force")
        self.assert_layout(self.out)

    def test_links_and_names(self):
        link = self.folder / "link.kdp"
        link.symlink_to("out.kdp")
        self.layout(link)
        self.assert_layout(self.out)
        self.assertTrue(link.is_symlink())
        longest = self.folder / ("n" * 251 + ".kdp")
        self.layout(longest)
        self.layout(longest)
        self.assert_layout(longest)
        self.assertEqual(len(self.names()), 3)

    def test_a_file_in_a_closed_folder_is_written_over(self):
        closed = self.folder / "closed"
        state = self.folder / "state"
        for folder in (closed, state):
            folder.mkdir()
            folder.chmod(0o777)
        out = closed / "out.kdp"
        out.write_text(OLD, newline="")
        out.chmod(0o666)
        closed.chmod(0o555)
        self.addCleanup(closed.chmod, 0o755)
        how = {"env": {**os.environ, "XDG_STATE_HOME": str(state)}}
        if os.geteuid() == 0:
            how.update(user=NOBODY, group=NOBODY, extra_groups=[])
        number = out.stat().st_ino
        self.layout(out, **how)
        self.assert_layout(out)
        self.assertEqual(out.stat().st_ino, number)
        self.assertEqual(self.names(state / "kelda"), [])
        told = self.layout(closed / "new.kdp", status=3, **how)
        self.assertIn("Permission denied", told)

    def test_a_pipe_is_written_as_it_is(self):
        pipe = self.folder / "pipe.kdp"
        os.mkfifo(pipe)
        reader = subprocess.Popen(["cat", pipe], stdout=subprocess.PIPE)
        self.layout(pipe)
        self.assertEqual(reader.communicate(timeout=60)[0].count(b"\n"), 52)
        self.assertEqual(self.names(), ["pipe.kdp"])


if __name__ == "__main__":
    unittest.main()
