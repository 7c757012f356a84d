#!/usr/bin/env python3
"""The Debian package: made, passed to lintian, unpacked into a folder, passed
to the validators that a desktop's own tools use, and its programs run from
there.
Argument: the folder of the programs in a build.
"""

import glob
import os
import re
import subprocess
import sys
import tempfile

from x_desktop import Program, desktop, keys, no_box, window

BUILD = os.path.dirname(os.path.abspath(sys.argv[1]))
NEEDED = ["wordnet-base", "fonts-liberation", "libqt6widgets6",
          "libqt6network6", "libqt6printsupport6", "libcups2", "libc6"]
SHIPPED = ["bin/kelda", "bin/kelda-cli", "share/applications/kelda.desktop",
           "share/doc/kelda/changelog.gz", "share/doc/kelda/copyright",
           "share/icons/hicolor/scalable/apps/kelda.svg",
           "share/kelda/L1Ascii.txt", "share/kelda/L2Ascii.txt",
           "share/kelda/L3Ascii.txt", "share/kelda/Kelda.dict",
           "share/kelda/kdpuzzle.htm",
           "share/man/man1/kelda.1.gz", "share/man/man1/kelda-cli.1.gz",
           "share/metainfo/org.kelda.Kelda.metainfo.xml"]


def output(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    assert done.returncode == 0, (command, done.stdout, done.stderr)
    return done.stdout


def make_package(folder):
    output("cpack", "-G", "DEB", "--config",
           os.path.join(BUILD, "CPackConfig.cmake"), "-B", folder)
    [package] = glob.glob(os.path.join(folder, "kelda_*.deb"))
    return package


def check_control_data(package):
    depends = re.split(r"[,|]\s*", output("dpkg-deb", "-f", package,
                                          "Depends"))
    names = {re.split(r"[ (]", item.strip())[0].removesuffix("t64")
             for item in depends}
    missing = set(NEEDED) - names
    assert not missing, (missing, names)
    listing = output("dpkg-deb", "-c", package)
    assert all("root/root" in line for line in listing.splitlines()), listing


def check_hardening(usr):
    for program in ["kelda", "kelda-cli"]:
        path = os.path.join(usr, "bin", program)
        told = output("readelf", "-hlds", "--wide", path)
        for sign in [r"Type: +DYN", "GNU_RELRO", "BIND_NOW",
                     "__stack_chk_fail@", "_chk@"]:
            assert re.search(sign, told), (program, sign)


def check_notices(usr):
    with open(os.path.join(usr, "share/doc/kelda/copyright")) as file:
        text = file.read()
    for notice in ["MIT License", "Kevin Atkinson", "Princeton University"]:
        assert notice in text, notice


def options_and_commands(told):
    """What begins a line of a help or a page: -o, --output, autofill ..."""
    heads = re.findall(r"^ {2,7}((?:-{1,2}\w[-\w]*,? ?)+|[a-z][-\w]+$|"
                       r"[a-z][-\w]+(?= {2}))", told, re.MULTILINE)
    return {name for head in heads for name in re.split(r"[, ]+", head)
            if name}


def check_manual(usr):
    """Each page tells all that its program's help tells, and no more."""
    for program in ["kelda", "kelda-cli"]:
        path = os.path.join(usr, "bin", program)
        page = os.path.join(usr, "share/man/man1", program + ".1.gz")
        shown = output("man", "--warnings", "-E", "ascii", "-l", page,
                       env={**os.environ, "MANWIDTH": "200"})
        helped = options_and_commands(output(path, "--help"))
        for command in [name for name in helped if name[0] != "-"]:
            helped |= options_and_commands(output(path, command, "--help"))
        assert len(helped) > 3, helped
        told = options_and_commands(shown)
        differing = (told ^ helped) - {"kelda", "kelda-cli"}
        assert not differing, (program, differing)


def check_desktop_files(usr):
    for name in SHIPPED:
        assert os.path.getsize(os.path.join(usr, name)) > 0, name
    output("desktop-file-validate",
           os.path.join(usr, "share/applications/kelda.desktop"))
    # Also holds against each other what the files say.
    output("appstreamcli", "validate-tree", "--no-net", os.path.dirname(usr))
    output("update-mime-database", os.path.join(usr, "share/mime"))
    with open(os.path.join(usr, "share/mime/globs2")) as globs:
        known = globs.read()
    for kind in ("application/x-kelda-puzzle:*.kdp", "application/x-jpz:*.jpz",
                 "application/x-ipuz:*.ipuz", "application/x-puz:*.puz",
                 "text/x-xd:*.xd"):
        assert f"50:{kind}\n" in known, (kind, known)


def check_pictures_of_help(usr):
    with open(os.path.join(usr, "share/kelda/kdpuzzle.htm")) as page:
        text = page.read()
    pictures = re.findall(r'src="([^"]+)"', text)
    assert pictures
    for picture in pictures:
        assert os.path.exists(os.path.join(usr, "share/kelda", picture))


def run_programs(usr):
    programs = os.path.join(usr, "bin")
    with desktop() as folder:
        # The dictionary is the one in the package: none is in this folder.
        found = output(os.path.join(programs, "kelda-cli"), "find", "house",
                       cwd=folder)
        assert "HOUSE is word#" in found, found
        program = Program(programs)
        keys("ctrl+h")
        window("^Kelda Help$")
        keys("Escape")
        no_box()
        program.quit()


def main():
    with tempfile.TemporaryDirectory(prefix="kelda-package-") as folder:
        package = make_package(folder)
        check_control_data(package)
        output("lintian", "--allow-root", "--fail-on", "error,warning",
               package)
        root = os.path.join(folder, "root")
        output("dpkg-deb", "-x", package, root)
        usr = os.path.join(root, "usr")
        check_desktop_files(usr)
        check_hardening(usr)
        check_notices(usr)
        check_manual(usr)
        check_pictures_of_help(usr)
        run_programs(usr)
    print("8 passed, 0 failed")


main()
