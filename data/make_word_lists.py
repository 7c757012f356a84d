"""Makes the level files L1Ascii.txt, L2Ascii.txt and L3Ascii.txt.

    make_word_lists.py SCOWL_DIR OUT_DIR

A level holds the English and American words of scowl up to a size: one
upper-case A-Z word of 3 to 20 letters a line, accents folded, sorted by
character code, each word once.  Words with other characters (apostrophes,
hyphens) are left out.
"""

import pathlib
import sys
import unicodedata

LARGEST_SIZE = {"L1Ascii.txt": 35, "L2Ascii.txt": 60, "L3Ascii.txt": 70}
SHORTEST, LONGEST = 3, 20
WORDS_PER_LENGTH_LIMIT = 32767


def fold(word):
    """The word in upper case without accents, or None if it can't be one."""
    plain = "".join(c for c in unicodedata.normalize("NFKD", word)
                    if not unicodedata.combining(c))
    fits = SHORTEST <= len(plain) <= LONGEST
    return plain.upper() if fits and plain.isascii() and plain.isalpha() \
        else None


def level(scowl, largest_size):
    lists = [path for variety in ("english", "american")
             for path in scowl.glob(f"{variety}-words.*")
             if int(path.suffix[1:]) <= largest_size]
    if not lists:
        sys.exit(f"no word lists in {scowl}: is the package scowl installed?")
    lines = (line.strip() for path in lists
             for line in path.read_text(encoding="latin-1").splitlines())
    return sorted({word for word in map(fold, lines) if word})


def main(scowl, out):
    for name, largest_size in LARGEST_SIZE.items():
        words = level(scowl, largest_size)
        for length in range(SHORTEST, LONGEST + 1):
            count = sum(len(word) == length for word in words)
            if count > WORDS_PER_LENGTH_LIMIT:
                sys.exit(f"{name}: {count} words of {length} letters")
        (out / name).write_text("\n".join(words) + "\n", encoding="ascii")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
