"""Puts the playable page's script and style into its frame, with the hashes
that its content security policy names, and writes it as a C++ constant.

    embed_page.py PAGE_DIR OUT.cpp
"""

import base64
import hashlib
import pathlib
import sys


def hash_of(text):
    return base64.b64encode(hashlib.sha256(text.encode()).digest()).decode()


def page(folder):
    frame, style, script = ((folder / name).read_text(encoding="utf-8")
                            for name in ("page.html", "page.css", "page.js"))
    for name, text in [("STYLE", style), ("SCRIPT", script)]:
        frame = frame.replace(f"@{name}_HASH@", hash_of(text))
        frame = frame.replace(f"@{name}@", text)
    return frame


def main(folder, out):
    text = page(folder)
    assert ')page"' not in text
    pieces = "\n".join(f'R"page({text[i:i + 8000]})page"'
                       for i in range(0, len(text), 8000))
    out.write_text("extern const char kPlayablePage[];\n"
                   f"const char kPlayablePage[] =\n{pieces};\n",
                   encoding="utf-8")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:3]))
