"""Checks that every text that a widget could take for a page is made plain
first, by controls/plain_text.h or, in a message box, controls/message_box.h.

    check_plain_text.py [SOURCE_DIR]

A text passes when it consists of literals, of tr() of literals, or of what
Plain, PlainTip or PlainBrief give.  A line edit shows its text as it stands.
"""

import pathlib
import re
import sys

FOLDERS = ["controls", "view", "workbench", "app"]
# Calls that take a text, and which argument that is.
SETTERS = {
    "setToolTip": 0, "setStatusTip": 0, "setWhatsThis": 0, "setText": 0,
    "setInformativeText": 0, "setLabelText": 0, "setWindowTitle": 0,
    "setAccessibleName": 0, "setAccessibleDescription": 0, "setTitle": 0,
    "setPlaceholderText": 0, "addMenu": 0, "addAction": 0, "addItem": 0,
    "insertItem": 1, "setItemText": 1, "addTab": 1, "setTabText": 1,
    "setTabToolTip": 1, "showMessage": 0, "showText": 1,
}
MADE = "QLabel|QGroupBox|QAction|QMenu|Label|ElidedLabel"
# What reads a text as a page or shows it unbounded, and the files that may.
KEPT_APART = [
    (r"\b(?:new\s+QMessageBox|QMessageBox\s+\w+\s*[({;]|QMessageBox::"
     r"(?:information|question|warning|critical|about)\s*\(|QErrorMessage\b)",
     "a message box of its own", {"controls/message_box.cpp"}),
    (r"[.>](?:setHtml|setMarkdown|insertHtml|insertMarkdown)\s*\(",
     "a page", {"controls/lookup_window.cpp"}),
    (r"Qt::(?:RichText|MarkdownText)\b", "rich text", set()),
]
STRING = r'"(?:[^"\\\n]|\\.)*"'
CALL = re.compile(r"(?:(\w+)(?:\[[^\]]*\]|\(\))?\s*(?:->|\.|::)\s*|"
                  r"(?<=[;{})])\s*)(" + "|".join(SETTERS) + r")\s*\(")
MAKING = re.compile(rf"\b(?:new\s+(?:{MADE})|(?:{MADE})\s+\w+)\s*\(")
TIP_ROLE = re.compile(r"Qt::(?:ToolTip|StatusTip|WhatsThis|Accessible\w+)Role"
                      r"[^;]*?return([^;]*);")
LITERAL = re.compile(STRING + r"|'(?:[^'\\\n]|\\.)*'")
PLAIN = re.compile(r"\bPlain(?:Tip|Brief)?\s*\(")
HARMLESS = {"tr", "QObject", "QString", "QStringLiteral", "QLatin1String",
            "arg", "nullptr", "this", "number"}
TEXT_NAME = re.compile("text|name|title|caption|path|word|label|tip", re.I)
OPENS = {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}


def arguments(code, start):
    """The arguments of a call whose parenthesis is open before `start`, and
    where it closes."""
    found, depth, begin = [], 0, start
    for match in re.compile(STRING + r"|[][(){},]").finditer(code, start):
        depth += OPENS.get(match[0], 0)
        if depth < 0 or (match[0] == "," and depth == 0):
            found.append(code[begin:match.start()].strip())
            begin = match.end()
        if depth < 0:
            return found, begin
    return found + [code[begin:]], len(code)


def is_plain(text):
    while match := PLAIN.search(text):
        end = arguments(text, match.end())[1]
        text = text[:match.start()] + '""' + text[end:]
    text = LITERAL.sub("", text)
    return not set(re.findall(r"[A-Za-z_]\w*", text)) - HARMLESS


def line_edits(code):
    """The names that a file declares as line edits, and as nothing else."""
    edits = set(re.findall(r"(\w+) = new QLineEdit", code))
    for names in re.findall(r"\bQLineEdit\s*([*&][^;{)=]*)", code):
        edits |= set(re.findall(r"\w+", names))
    return edits - set(re.findall(r"\bQ(?:Label|Action|AbstractButton|"
                                  r"PushButton)\s*[*&]\s*(\w+)", code))


def is_fault(match, code, edits):
    name = match[2]
    given = arguments(code, match.end())[0]
    text = given[min(SETTERS[name], len(given) - 1)]
    if name == "setText" and match[1] in edits:
        return False
    is_object = re.fullmatch(r"[\w>.-]+", text) and not TEXT_NAME.search(text)
    if name in {"addAction", "addMenu"} and is_object:
        return False
    return not is_plain(text)


def faults_in(path, source, edits):
    code = re.sub(r"//[^\n]*", lambda m: " " * len(m[0]), source)
    edits = edits | line_edits(code)
    faults = [(match.start(2), match[2] + " without Plain")
              for match in CALL.finditer(code) if is_fault(match, code, edits)]
    faults += [(match.start(), "made without Plain")
               for match in MAKING.finditer(code)
               if not is_plain(arguments(code, match.end())[0][0])]
    faults += [(match.start(), "a tip of a model without Plain")
               for match in TIP_ROLE.finditer(code) if not is_plain(match[1])]
    for pattern, what, allowed in KEPT_APART:
        if path.as_posix() not in allowed:
            faults += [(m.start(), what) for m in re.finditer(pattern, code)]
    for place, what in sorted(faults):
        yield f"{path}:{code.count(chr(10), 0, place) + 1}: {what}"


def main(root):
    sources = {path.relative_to(root): path.read_text(encoding="utf-8")
               for folder in FOLDERS
               for path in sorted((root / folder).rglob("*"))
               if path.suffix in {".h", ".cpp"}
               and not path.stem.endswith("_test")}
    edits = set().union(*(line_edits(source) for path, source
                          in sources.items() if path.suffix == ".h"))
    faults = [fault for path, source in sources.items()
              for fault in faults_in(path, source, edits)]
    print("\n".join(faults) if faults
          else f"{len(sources)} source files show texts as they stand")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1] if sys.argv[1:] else ".")))
