"""Checks that sources keep to the layers: who may include whom, where Qt, CUPS
and SQLite may be used, how long lines, functions and files may be.

    check_layers.py [SOURCE_DIR]
"""

import ast
import pathlib
import re
import sys

HEADLESS = ["base", "puzzle", "dictionary", "autofill", "grid", "solver",
            "layout", "files"]
MAY_INCLUDE = {
    "base": {"base"},
    "puzzle": {"base", "puzzle"},
    "dictionary": {"base", "dictionary"},
    "autofill": {"base", "puzzle", "dictionary", "autofill"},
    "grid": {"base", "puzzle", "dictionary", "grid"},
    "solver": {"base", "puzzle", "dictionary", "grid", "solver"},
    "layout": {"base", "puzzle", "dictionary", "grid", "autofill", "layout"},
    "files": {"base", "puzzle", "dictionary", "grid", "files"},
    "draw": {*HEADLESS, "draw"},
    "controls": {"base", "controls"},
    "view": {*HEADLESS, "draw", "controls", "view"},
    "cli": {*HEADLESS, "draw", "view", "cli"},
    "app": {*HEADLESS, "draw", "controls", "view", "app"},
}
FOLDERS = [*MAY_INCLUDE, "bench", "data", "tests", "tools"]
LONGEST_LINE = 80
LONGEST_FUNCTION = 50
LONGEST_FILE = 400

INCLUDE = re.compile(r'#include ([<"])([^">]+)[">]')
RAW_STRING = re.compile(r'R"(\w*)\(.*?\)\1"', re.DOTALL)
NO_FUNCTION = re.compile(r"(namespace|class|struct|enum|union|if|for|while|"
                         r"switch)\b|[#/]")


def qt_is_allowed(path):
    return path.parts[0] in {"controls", "app"} or (
        path.parts[0] in {"draw", "view", "cli", "bench", "tests"}
        and path.name.startswith("qt_"))


def faults_in_system_include(path, name):
    if name in {"QtWidgets", "QtGui", "QtCore"}:
        yield f"all of <{name}> instead of single headers"
    elif re.match(r"Q[A-Za-z]", name) and not qt_is_allowed(path):
        yield f"Qt header <{name}>"
    elif name.startswith("cups/") and path.parts[0] != "draw":
        yield f"CUPS header <{name}>"
    elif name == "sqlite3.h" and path.parts[0] != "dictionary":
        yield f"SQLite header <{name}>"


def faults_in_include(path, quote, name):
    folder, target = path.parts[0], name.split("/")[0]
    if quote == "<":
        yield from faults_in_system_include(path, name)
    elif is_test(path):
        return
    elif target not in MAY_INCLUDE[folder]:
        yield f'"{name}" is not for {folder}/'
    elif folder == "cli" and name.startswith("view/qt_"):
        yield f'"{name}": cli/ draws without a window'


def is_test(path):
    return (path.stem.endswith(("_test", "testing"))
            or path.parts[0] in {"bench", "tests"})


def python_functions(text):
    """The first and last line of each function, from 1."""
    for node in ast.walk(ast.parse(text)):
        if isinstance(node, ast.FunctionDef):
            yield node.lineno, node.end_lineno


def cpp_functions(text):
    """The first and last line of each function, from 1.  Leans on the
    formatter: a body ends with a brace that is indented like the line where
    the function begins."""
    text = RAW_STRING.sub(
        lambda raw: "\n".join([" " * LONGEST_LINE] * len(raw[0].split("\n"))),
        text)
    begins = {}
    for number, line in enumerate(text.splitlines(), 1):
        indent = len(line) - len(line.lstrip())
        if re.match(r" *}", line):
            first, opening = begins.pop(indent, (number, ""))
            if "(" in opening and " = {" not in opening:
                yield first, number
        elif line.strip():
            opens = not NO_FUNCTION.match(line.strip())
            begins[indent] = number, line if opens else ""


def faults_in(root, path):
    text = (root / path).read_text(encoding="utf-8")
    lines = text.splitlines()
    if len(lines) > LONGEST_FILE:
        yield f"{path}: {len(lines)} lines"
    functions = python_functions if path.suffix == ".py" else cpp_functions
    for first, last in functions(text):
        if last - first >= LONGEST_FUNCTION:
            yield f"{path}:{first}: a function of {last - first + 1} lines"
    for number, line in enumerate(lines, 1):
        if len(line) > LONGEST_LINE:
            yield f"{path}:{number}: {len(line)} columns"
        match = INCLUDE.match(line)
        if match:
            for fault in faults_in_include(path, *match.groups()):
                yield f"{path}:{number}: {fault}"


def main(root):
    paths = sorted(path.relative_to(root) for folder in FOLDERS
                   for path in (root / folder).rglob("*")
                   if path.suffix in {".h", ".cpp", ".py"})
    faults = [fault for path in paths for fault in faults_in(root, path)]
    print("\n".join(faults) if faults
          else f"{len(paths)} source files keep to the layers")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1] if sys.argv[1:] else ".")))
