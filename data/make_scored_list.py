"""Makes the built-in scored list Kelda.dict: lines WORD;score.

    make_scored_list.py SCOWL_DIR WORDNET_DIR BREAKFAST_LIST OUT_FILE

Words of 3 to 21 letters A-Z from scowl, scored by the size of the list that
has them (the smaller the list, the better known the word), and from WordNet,
whose phrases become words (HOTDOG) and whose counts lift what people really
write.  The best source decides a word's score; then what no solver should
meet is sunk, and the breakfast list scores 0.
"""

import collections
import math
import pathlib
import re
import sys
import unicodedata

SHORTEST, LONGEST = 3, 21

SCORE_BY_SIZE = {10: 90, 20: 85, 35: 75, 40: 65, 50: 60, 55: 55, 60: 50,
                 70: 35, 80: 20, 95: 8}
# What a variety takes off: spellings of elsewhere, and rarer spellings.
LESS_BY_VARIETY = {"english": 0, "american": 0, "british": 10,
                   "british_z": 10, "canadian": 15, "australian": 15,
                   "variant_1": 20}
# How the words of a category score: at most this, and a share of the size's.
CATEGORIES = {"words": (100, 1.0), "contractions": (45, 0.7),
              "upper": (50, 0.8), "proper-names": (50, 0.75),
              "abbreviations": (30, 0.4)}

PHRASE_SCORES = [(3, 60), (1, 55), (0, 40)]  # by least count
NEW_WORD_SCORES = [(3, 55), (1, 45), (0, 30)]
CAPITAL_SCORES = [(3, 50), (1, 45), (0, 25)]
BEST_BY_COUNT = 90
SUNK = 5
# From here on a word has an innocent sense too: MICKEY, TACO.
WELL_KNOWN = 45

RANKS = {"genus", "family", "order", "class", "phylum", "kingdom", "division",
         "subfamily", "suborder", "subclass", "subphylum", "superfamily",
         "superorder", "superclass", "tribe", "subdivision", "subkingdom",
         "infraorder", "superphylum", "section"}
ROMAN = re.compile("M{0,3}(CM|CD|D?C{0,3})(XC|XL|L?X{0,3})(IX|IV|V?I{0,3})")
# WordNet's usage domains: disparagement, ethnic slur, obscenity.
COARSE_DOMAINS = {"06717170", "06718862", "07124340"}


def fold(text):
    """The letters of a text in upper case without accents, or None."""
    plain = "".join(c for c in unicodedata.normalize("NFKD", text)
                    if not unicodedata.combining(c) and c not in "-_'./ ")
    fits = SHORTEST <= len(plain) <= LONGEST
    return plain.upper() if fits and plain.isascii() and plain.isalpha() \
        else None


class Scores:
    """The best score of each word, and what is known to be a plain word."""

    def __init__(self):
        self.best = collections.defaultdict(int)
        self.plain = collections.defaultdict(int)  # as a lower-case word

    def add(self, word, score, plain=False):
        if word:
            self.best[word] = max(self.best[word], score)
            if plain:
                self.plain[word] = max(self.plain[word], score)


def by_count(table, count):
    return next(score for least, score in table if count >= least)


def lifted(score, count):
    """A plain word's score, raised by how often texts were seen to use it."""
    if count == 0:
        return score
    return max(score, min(BEST_BY_COUNT, round(52 + 6 * math.log2(count))))


def read_scowl(folder, scores, sunk):
    for path in sorted(folder.iterdir()):
        variety, _, category = path.stem.rpartition("-")
        if category == "names":
            variety, category = variety.removesuffix("-proper"), "proper-names"
        if variety not in LESS_BY_VARIETY or category not in CATEGORIES:
            continue
        most, share = CATEGORIES[category]
        score = SCORE_BY_SIZE[int(path.suffix[1:])]
        score = min(most, round(score * share))
        score = max(SUNK + 1, score - LESS_BY_VARIETY[variety])
        for line in path.read_text(encoding="latin-1").splitlines():
            line = line.strip()
            if "'" in line and category != "contractions":
                continue  # a possessive
            word = fold(line)
            if category == "abbreviations" and re.search("[A-Z.]s$", line):
                sunk.add(word)  # a plural: CDs
            else:
                scores.add(word, score, plain=category == "words")


def read_counts(folder):
    """How often each sense of a lemma was seen, added up by lemma."""
    counts = collections.Counter()
    for line in (folder / "cntlist.rev").read_text().splitlines():
        key, _, count = line.split()
        counts[key.partition("%")[0]] += int(count)
    return counts


def synsets(folder):
    """(lemmas as written, offsets of its domains) of every synset."""
    for part in ("noun", "verb", "adj", "adv"):
        for line in (folder / f"data.{part}").read_text(
                encoding="latin-1").splitlines():
            if line.startswith("  "):
                continue  # the licence
            fields = line.partition(" | ")[0].split()
            count = int(fields[3], 16)
            lemmas = [re.sub(r"\([a-z]+\)$", "", lemma)
                      for lemma in fields[4:4 + 2 * count:2]]
            pointers = fields[4 + 2 * count + 1:]
            domains = {pointers[i + 1] for i, field in enumerate(pointers)
                       if field == ";u"}
            yield fields[0], lemmas, domains


def first_senses(folder):
    """By lemma in lower case, its most frequent sense of each part."""
    firsts = collections.defaultdict(set)
    for part in ("noun", "verb", "adj", "adv"):
        for line in (folder / f"index.{part}").read_text().splitlines():
            if line.startswith("  "):
                continue
            fields = line.split()
            senses = fields[-int(fields[2]):]
            firsts[fields[0]].add(senses[0])
    return firsts


def read_wordnet(folder, scores, sunk, coarse):
    counts = read_counts(folder)
    firsts = first_senses(folder)
    everything = list(synsets(folder))
    taxa = {lemma.partition("_")[2] for _, lemmas, _ in everything
            for lemma in lemmas if lemma.partition("_")[0] in RANKS}
    for offset, lemmas, domains in everything:
        for lemma in lemmas:
            word, count = fold(lemma), counts[lemma.lower()]
            head = lemma.partition("_")[0]
            if domains & COARSE_DOMAINS and firsts[lemma.lower()] == {offset}:
                coarse.add(word)
            elif head in RANKS or (head in taxa and head[0].isupper()):
                # "genus_Canis", "Canis" and "Canis_lupus"
                scores.add(word, SUNK)
                sunk.add(word)
            else:
                add_lemma(scores, lemma, word, count)


def add_lemma(scores, lemma, word, count):
    if lemma != lemma.lower():
        scores.add(word, by_count(CAPITAL_SCORES, count))
    elif "_" in lemma or "-" in lemma:
        scores.add(word, by_count(PHRASE_SCORES, count), plain=True)
    else:
        scores.add(word, by_count(NEW_WORD_SCORES, count))
        if word in scores.plain:
            scores.add(word, lifted(scores.plain[word], count), plain=True)


def read_breakfast(path):
    """The words of lines like "FUCK S ED", with and without the endings."""
    words = set()
    for line in path.read_text().splitlines():
        if not line.startswith("#"):
            word, *endings = line.split()
            words |= {word + ending for ending in ["", *endings]}
    return words


def finish(scores, sunk, coarse, breakfast):
    """The words with their final scores."""
    result = {}
    for word, score in sorted(scores.best.items()):
        known = scores.plain.get(word, 0) >= SCORE_BY_SIZE[60]
        if word in breakfast or (word in coarse and score < WELL_KNOWN):
            score = 0
        elif not known and (word in sunk or ROMAN.fullmatch(word)
                            or len(set(word)) == 1):
            score = SUNK
        result[word] = score
    return result


def main(scowl, wordnet, breakfast, out):
    scores, sunk, coarse = Scores(), set(), set()
    read_scowl(scowl, scores, sunk)
    read_wordnet(wordnet, scores, sunk, coarse)
    words = finish(scores, sunk, coarse, read_breakfast(breakfast))
    out.write_text("".join(f"{word};{score}\n"
                           for word, score in words.items()),
                   encoding="ascii")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:5]))
