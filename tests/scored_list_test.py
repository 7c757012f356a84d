"""Checks the built-in scored list that was made beside the programs.

    scored_list_test.py BIN_DIR
"""

import pathlib
import sys
import unittest

BIN = pathlib.Path(sys.argv.pop(1))


def read_list():
    scores = {}
    for line in (BIN / "Kelda.dict").read_text(encoding="ascii").splitlines():
        word, score = line.split(";")
        assert word not in scores, word
        scores[word] = int(score)
    return scores


class ScoredList(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scores = read_list()

    def test_every_word_can_be_placed(self):
        for word, score in self.scores.items():
            self.assertTrue(word.isalpha() and word.isupper()
                            and 3 <= len(word) <= 21, word)
            self.assertTrue(0 <= score <= 100, word)

    def test_scores_go_by_how_well_a_word_is_known(self):
        for better, worse in [("HOUSE", "ORIEL"), ("ORIEL", "OUPHE"),
                              ("HOTDOG", "HOUDAH"), ("TIME", "EMMA"),
                              ("BATHINGTRUNKS", "CANISLUPUS")]:
            self.assertGreater(self.scores[better], self.scores[worse])
        self.assertGreater(
            sum(score >= 50 for score in self.scores.values()), 80_000)

    def test_what_is_sunk(self):
        for word in ["GENUSCANIS", "FELIDAE", "CANISLUPUS", "XVI", "CLVII"]:
            self.assertLessEqual(self.scores.get(word, 0), 5, word)
        for word in ["MIX", "FAMILY", "CIVIC"]:
            self.assertGreaterEqual(self.scores[word], 50, word)
        self.assertLessEqual(self.scores["EMMA"], 50)

    def test_the_breakfast_list_scores_nothing(self):
        for word in ["FUCKING", "CUNTS", "NAZI", "KRAUTHEAD"]:
            self.assertEqual(self.scores[word], 0, word)
        for word in ["SPICY", "TARDY", "TITTER", "TACO", "TOM"]:
            self.assertGreaterEqual(self.scores[word], 45, word)


if __name__ == "__main__":
    unittest.main()
