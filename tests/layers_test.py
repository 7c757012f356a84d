#!/usr/bin/env python3
"""The check of the layers finds each kind of fault, and nothing in sources
that are as they should be.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

CHECK = pathlib.Path(__file__).parent.parent / "tools" / "check_layers.py"
LONG_BODY = "    Step();\n" * 49
CASES = [  # a file, its text, the fault behind "file:" or none
    ("base/a.h", '#include "base/b.h"\n#include <vector>\n', None),
    ("base/a.h", '#include "grid/state.h"\n', '1: "grid/state.h" is not for'),
    ("view/a.cpp", '#include "app/a.h"\n', '1: "app/a.h" is not for view/'),
    ("app/a.cpp", '#include "cli/a.h"\n', '1: "cli/a.h" is not for app/'),
    ("cli/a.cpp", '#include "view/qt_a.h"\n', "1: .* without a window"),
    ("grid/a_test.cpp", '#include "view/a.h"\n', None),
    ("files/a.cpp", "\n#include <QFile>\n", "2: Qt header <QFile>"),
    ("view/a.cpp", "#include <QFile>\n", "1: Qt header <QFile>"),
    ("view/qt_a.cpp", "#include <QFile>\n", None),
    ("view/qt_a.cpp", "#include <QtWidgets>\n", "1: all of <QtWidgets>"),
    ("view/qt_a.cpp", "#include <cups/cups.h>\n", "1: CUPS header"),
    ("draw/a.cpp", "#include <cups/cups.h>\n", None),
    ("files/a.cpp", "#include <sqlite3.h>\n", "1: SQLite header"),
    ("dictionary/a.cpp", "#include <sqlite3.h>\n", None),
    ("grid/a.cpp", "//" + "x" * 78 + "\n", None),
    ("grid/a.cpp", "//" + "x" * 79 + "\n", "1: 81 columns"),
    ("tests/a.py", "#" * 81 + "\n", "1: 81 columns"),
    ("grid/a.cpp", "\n" * 400, None),
    ("grid/a.cpp", "\n" * 401, " 401 lines"),
    ("tools/a.py", "\n" * 401, " 401 lines"),
    ("grid/a.cpp", "void F() {\n" + LONG_BODY[12:] + "}\n", None),
    ("grid/a.cpp", "void F() {\n" + LONG_BODY + "}\n", "1: a function of 51"),
    ("grid/a.cpp", "Class::Class(int x)\n    : x_(x) {\n" + LONG_BODY + "}\n",
     "1: a function of 52"),
    ("grid/a.cpp", "void F() {\n  if (G()) {\n" + LONG_BODY + "  }\n}\n",
     "1: a function of 53"),
    ("grid/a.h", "class A {\n  void F() {\n" + LONG_BODY + "  }\n};\n",
     "2: a function of 51"),
    ("grid/a.cpp", 'void F() {\n  G(R"(\n}\n#\nx)");\n' + LONG_BODY + "}\n",
     "1: a function of 55"),
    ("grid/a.cpp", "TEST(A, B) {\n" + LONG_BODY + "}\n",
     "1: a function of 51"),
    ("grid/a.cpp", "namespace {\n" + "int F() { return 1; }\n" * 60 + "}\n",
     None),
    ("grid/a.cpp", "const Row kRows[] = {\n" + "    {F(1)},\n" * 60 + "};\n",
     None),
    ("tests/a.py", "def f():\n" + "    f()\n" * 49, None),
    ("tests/a.py", "class A:\n    def f():\n" + "        f()\n" * 50,
     "2: a function of 51 lines"),
]


def check(name, text):
    with tempfile.TemporaryDirectory(prefix="kelda-layers-") as root:
        path = pathlib.Path(root, name)
        path.parent.mkdir()
        path.write_text(text, encoding="utf-8")
        return subprocess.run([sys.executable, CHECK, root],
                              capture_output=True, text=True)


def main():
    for name, text, fault in CASES:
        done = check(name, text)
        assert done.returncode == (fault is not None), (name, text, done)
        expected = f"{name}:{fault}" if fault else "1 source files keep"
        assert re.match(expected, done.stdout), (expected, done)
    print(f"{len(CASES)} passed, 0 failed")


main()
