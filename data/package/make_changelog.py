#!/usr/bin/env python3
"""Makes the changelog of the Debian package, compressed as Debian wants it,
from CHANGELOG.md: a heading such as "## 1.0 (2026-11-22)" begins a version,
and each of its "- " lines is a change.

    make_changelog.py VERSION CONTACT CHANGELOG.md CHANGELOG.gz

VERSION stands for "## Unreleased", whose day is today.
"""

import calendar
import datetime
import email.utils
import gzip
import os
import re
import sys
import textwrap
import time

HEADING = re.compile(r"## (?P<version>\S+)(?: \((?P<day>\S+)\))?$")


def versions(text):
    """Triples of version, day and changes, the newest first."""
    found = []
    for line in text.splitlines():
        heading = HEADING.match(line)
        if heading:
            found.append((heading["version"], heading["day"], []))
        elif found and line.startswith("- "):
            found[-1][2].append(line[2:])
        elif found and line.startswith("  "):
            found[-1][2][-1] += " " + line.strip()
    return found


def entry(version, seconds, changes, contact):
    told = "\n".join(textwrap.fill(change.replace("`", ""), 78,
                                   initial_indent="  * ",
                                   subsequent_indent="    ")
                     for change in changes)
    day = email.utils.format_datetime(
        datetime.datetime.fromtimestamp(seconds, datetime.timezone.utc))
    return (f"kelda ({version}) unstable; urgency=medium\n\n{told}\n\n"
            f" -- {contact}  {day}\n")


def main(unreleased, contact, source, target):
    today = int(os.environ.get("SOURCE_DATE_EPOCH", time.time()))
    entries = []
    with open(source, encoding="utf-8") as file:
        for version, day, changes in versions(file.read()):
            if version == "Unreleased":
                version, seconds = unreleased, today
            else:
                seconds = calendar.timegm(time.strptime(day, "%Y-%m-%d"))
            entries.append(entry(version, seconds, changes, contact))
    with open(target, "wb") as file:
        file.write(gzip.compress("\n".join(entries).encode(), mtime=0))


main(*sys.argv[1:])
