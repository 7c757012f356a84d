#!/usr/bin/env python3
"""Makes the manual page of a program, compressed as Debian wants it, from a
template: @OPTIONS@ and @COMMANDS@ become what the program's --help tells, so
that page and program never differ.

    make_manual.py PROGRAM VERSION TEMPLATE PAGE.1.gz
"""

import gzip
import os
import re
import subprocess
import sys
import time

# An item of a list, as in "  --size INT=15     Cells per row".
ITEM = re.compile(r"(?P<indent>  |    )(?P<name>\S.*?)(?: {2,}(?P<text>.*))?$")
# "-d,--dictionary TEXT=2", "KIND TEXT:{random,2x2} REQUIRED".
NAME = re.compile(r"(?P<name>-?[-\w]+(?:,-[-\w]+)*)(?: (?P<type>[A-Z]+)"
                  r"(?P<more>[^A-Z=]*\.\.\.)?(?::(?P<range>\{.*?\}|[A-Z]+ in "
                  r"\[.*?\]|[A-Z]+))?(?:=(?P<default>\S+))?)?"
                  r"(?: (?P<rest>.+))?$")
TEXT_COLUMN = 30  # where the texts of kelda-cli's lists begin
GROUP = re.compile(r"\[Option Group.*?\n  Options:\n", re.DOTALL)


def help_of(program, *command):
    done = subprocess.run([os.path.basename(program), *command, "--help"],
                          executable=program, check=True, text=True,
                          capture_output=True)
    return GROUP.sub("", done.stdout).splitlines()


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return re.sub(r"^(?=[.'])", r"\\&", text, flags=re.MULTILINE)


def items(lines):
    """Pairs of name and text in the lists of a help."""
    found = []
    for line, following in zip(lines, [*lines[1:], ""]):
        item = ITEM.match(line)
        column = TEXT_COLUMN + len(item["indent"]) - 2 if item else 0
        if (item and item["text"] is None and line[column - 1:column] == " "
                and not following.startswith("     ")):
            found.append((line[:column].strip(), line[column:]))
        elif item:
            found.append((item["name"], item["text"] or ""))
        elif found and line.startswith("     "):
            found[-1] = (found[-1][0], f"{found[-1][1]} {line.strip()}")
    return found


def tagged(name, text):
    """One item of a page."""
    parts = NAME.match(name)
    if not parts:
        return f".TP\n.B {roff(name)}\n{roff(text.strip())}"
    takes = parts["type"] if parts["name"].startswith("-") else ""
    head = ", ".join(rf"\fB{roff(one)}\fR" for one in parts["name"].split(","))
    if takes:
        head += rf" \fI{takes}\fR"
    if parts["more"]:
        head += " ..."
    limits = [parts["range"] if " in " in (parts["range"] or "") else "",
              "default " + parts["default"] if parts["default"] else "",
              (parts["rest"] or "").replace("REQUIRED", "").strip()]
    told = "; ".join(re.sub(r"[A-Z]+ in \[(.*) - (.*)\]", r"\1 to \2", limit)
                     for limit in limits if limit)
    return (f".TP\n{head}\n{roff(text.strip())}"
            + (f" ({roff(told)})" if told else ""))


def ending(lines):
    """The paragraphs behind the lists of a help."""
    last = max(i for i, line in enumerate(lines) if ITEM.match(line)
               and not ITEM.match(line)["name"].startswith(("kelda-cli", "[")))
    tail = [line for line in lines[last + 1:] if line[:5] != " " * 5]
    return "\n".join(f".br\n{roff(line.strip())}" if line else ".PP"
                     for line in tail)


def is_command(name):
    return re.fullmatch(r"[a-z][\w-]*", name)


def commands(program):
    for name, summary in items(help_of(program)):
        if not is_command(name):
            continue
        lines = help_of(program, name)
        usage = next(line for line in lines if line.startswith("Usage: "))
        yield f".SS {roff(name)}\n{roff(summary.strip())}"
        yield f".PP\n.B {roff(usage.removeprefix('Usage: '))}"
        yield from (tagged(*item) for item in items(lines)
                    if not item[0].startswith("-h,"))
        yield ending(lines)


def options(program):
    lines = help_of(program)
    yield ".SH OPTIONS"
    yield from (tagged(*item) for item in items(lines)
                if not is_command(item[0]) and item[0].startswith("-"))
    yield ending(lines)


def main(program, version, template, page):
    with open(template, encoding="utf-8") as file:
        text = file.read()
    today = time.gmtime(int(os.environ.get("SOURCE_DATE_EPOCH", time.time())))
    text = text.replace("@DATE@", time.strftime("%Y-%m-%d", today))
    text = text.replace("@VERSION@", version)
    for mark, part in ("@OPTIONS@", options), ("@COMMANDS@", commands):
        if mark in text:
            text = text.replace(mark, "\n".join(part(program)))
    with open(page, "wb") as file:
        file.write(gzip.compress(text.encode(), mtime=0))


main(*sys.argv[1:])
