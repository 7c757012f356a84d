#!/usr/bin/env python3
"""The check of texts finds each way to show one unplained, and nothing in
sources that are as they should be: those of the program among them.
"""

import pathlib
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).parent.parent
CHECK = SOURCE / "tools" / "check_plain_text.py"
GOOD = [
    'box->setToolTip("a, b");',
    'box->setToolTip(tr("a %1").arg("b"));',
    "box->setToolTip(PlainTip(FromBytes(text)));",
    'setWindowTitle("a" + Plain(tr("a") + name));',
    "QLineEdit* edit = Find(); edit->setText(text);",
    "auto* edit = new QLineEdit; edit->setText(text);",
    'auto* label = new QLabel("a");',
    "auto* label = new QLabel;",
    "menu->addAction(undo_);",
    "menu->addAction(Plain(caption));",
    "QToolTip::showText(place, PlainTip(text), this);",
    "// label->setText(text)",
    "void setText(QAccessible::Text, const QString&) override {}",
    "MessageBox box(text, this);",
    "if (role == Qt::ToolTipRole) return PlainTip(text);",
]
BAD = [
    "box->setToolTip(text);",
    "frames_->DictOpt[0]->setToolTip(text);",
    "{ setToolTip(text); }",
    'box.setInformativeText(tr("a %1").arg(path));',
    "box->setToolTip(Plain(a) + b);",
    "if (a != b) setWindowTitle(name);",
    "label->setText(text);",
    "QLabel* edit = Find(); edit->setText(text);",
    "button()->setText(text);",
    "dialog.setLabelText(\n    prompt);",
    "bar->setAccessibleName(FromBytes(name));",
    "auto* label = new QLabel(text);",
    "QLabel label(text);",
    "menu->addAction(caption);",
    "menu->addAction(FromBytes(row));",
    "list->addItem(word);",
    "tabs->setTabText(1, name);",
    "QToolTip::showText(place, text, this);",
    "QMessageBox box(this);",
    "auto* box = new QMessageBox(this);",
    "QMessageBox::warning(this, title, text);",
    'page_->setHtml("a");',
    "label->setTextFormat(Qt::RichText);",
    "if (role == Qt::ToolTipRole) return FromBytes(text);",
]


def check(folder):
    done = subprocess.run([sys.executable, CHECK, folder],
                          capture_output=True, text=True)
    return done.returncode, done.stdout + done.stderr


def main():
    with tempfile.TemporaryDirectory(prefix="kelda-plain-") as name:
        source = pathlib.Path(name) / "view" / "a.cpp"
        source.parent.mkdir()
        for code, expected in [(c, 0) for c in GOOD] + [(c, 1) for c in BAD]:
            source.write_text(f"void F() {{\n  {code}\n}}\n")
            status, told = check(name)
            assert status == expected, (code, told)
            assert not expected or told.startswith("view/a.cpp:2: "), told
    status, told = check(SOURCE)
    assert status == 0, told
    print(f"{len(GOOD) + len(BAD) + 1} passed, 0 failed")


main()
