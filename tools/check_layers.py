"""Checks that sources keep to the layers: who may include whom, where Qt may
be used, how long lines and files may be.

    check_layers.py [SOURCE_DIR]
"""

import pathlib
import re
import sys

CORE = {"grid", "dictionary", "solver", "autofill", "layout", "files",
        "controls", "view", "cli", "app"}
MAY_INCLUDE = {
    "grid": {"grid"},
    "dictionary": {"grid", "dictionary"},
    "solver": {"grid", "dictionary", "solver"},
    "autofill": {"grid", "dictionary", "autofill"},
    "layout": {"grid", "dictionary", "solver", "layout"},
    "files": {"grid", "dictionary", "files"},
    "controls": {"controls"},
}
# The only header of a folder that another one may include.
ONLY_HEADER = {("layout", "solver"): "solver/slot_lengths.h"}
LONGEST_LINE = 80
LONGEST_FILE = 450

INCLUDE = re.compile(r'#include ([<"])([^">]+)[">]')


def qt_is_allowed(path):
    return path.parts[0] in {"controls", "app"} or (
        path.parts[0] in {"view", "bench", "tests"}
        and path.name.startswith("qt_"))


def faults_in_include(path, quote, name):
    folder = path.parts[0]
    if quote == "<":
        if re.match(r"Q[A-Za-z]", name) and not qt_is_allowed(path):
            yield f"Qt header <{name}>"
        if name in {"QtWidgets", "QtGui", "QtCore"}:
            yield f"all of <{name}> instead of single headers"
        return
    target = name.split("/")[0]
    if path.stem.endswith("_test") or folder in {"bench", "tests"}:
        return
    if target == "tests":
        yield f'test header "{name}"'
    if target not in CORE or folder not in MAY_INCLUDE:
        return
    if target not in MAY_INCLUDE[folder]:
        yield f'"{name}" is not for {folder}/'
    only = ONLY_HEADER.get((folder, target))
    if only and name != only:
        yield f'"{name}": {folder}/ may only include "{only}"'


def faults_in(root, path):
    lines = (root / path).read_text(encoding="utf-8").splitlines()
    if len(lines) > LONGEST_FILE:
        yield f"{path}: {len(lines)} lines"
    for number, line in enumerate(lines, 1):
        if len(line) > LONGEST_LINE:
            yield f"{path}:{number}: {len(line)} columns"
        match = INCLUDE.match(line)
        if match:
            for fault in faults_in_include(path, *match.groups()):
                yield f"{path}:{number}: {fault}"


def main(root):
    paths = sorted(path.relative_to(root)
                   for folder in CORE | {"bench", "tests"}
                   for path in (root / folder).rglob("*")
                   if path.suffix in {".h", ".cpp"})
    faults = [fault for path in paths for fault in faults_in(root, path)]
    print("\n".join(faults) if faults
          else f"{len(paths)} source files keep to the layers")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1] if sys.argv[1:] else ".")))
