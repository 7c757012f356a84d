#include "grid/choose_dictionary.h"

#include <gtest/gtest.h>

#include "base/text_file.h"
#include "dictionary/find_word.h"
#include "tests/fakes.h"

namespace {

struct DictionaryDesk : Desk {
  TestFolder folder;
  WordTable words;

  void Read(std::string_view content) {
    ReadDictionary(state, words, host, folder.Write("list.txt", content));
  }
};

}  // namespace

TEST(ReadDictionary, TakesWordsAndCountsLetters) {
  DictionaryDesk desk;
  desk.Read(
      "ARE\r\ncat\r\nDOG \r\nIt's\r\nAB\r\nABCDEFGHIJKLMNOPQRSTU\r\n"
      "HOUSE\r\nZEBRA");
  EXPECT_EQ(desk.words.WordCount(3), 2) << "a trailing blank is no letter";
  EXPECT_EQ(desk.words.WordAt(3, 2), "CAT");
  EXPECT_EQ(desk.words.WordCount(5), 2);
  EXPECT_EQ(desk.words.TotalWords, 4);
  EXPECT_EQ(desk.words.LetterCount['I' - 'A'], 1) << "of the refused IT'S";
  EXPECT_EQ(desk.words.LetterCount['D' - 'A'], 1) << "of the refused DOG";
  EXPECT_EQ(desk.words.LetterCount['B' - 'A'], 1)
      << "too short or too long lines do not count";
  // A 3, R 2, E 3
  EXPECT_EQ(desk.words.WordScore(3, 1), 8);
  EXPECT_EQ(desk.state.Label9, ",  4 Words");
  EXPECT_EQ(Texts(desk.state.List2.Read<LetterRow>()).back(), "000003E");
  EXPECT_EQ(Texts(desk.state.List3.Read<LengthRow>()).back(), "000002len=0005");
  EXPECT_EQ(desk.state.ProgBar.Caption, "");
}

TEST(ReadDictionary, ANewListReplacesTheOldOneAndAFailedOneDoesNot) {
  DictionaryDesk desk;
  desk.Read("ARE\nCAT\n");
  desk.Read("DOG\n");
  EXPECT_EQ(desk.words.WordCount(3), 1);
  EXPECT_THROW(ReadDictionary(desk.state, desk.words, desk.host,
                              desk.folder.Path("none.txt")),
               FileError);
  EXPECT_EQ(desk.words.WordAt(3, 1), "DOG");
}

TEST(ReadDictionary, TooManyWordsOfALengthEndTheProgram) {
  std::string list;
  for (int i = 0; i < WordsPerLengthLimit; ++i) {
    for (int digit = 26 * 26 * 26; digit >= 1; digit /= 26)
      list += static_cast<char>('A' + i / digit % 26);
    list += '\n';
  }
  DictionaryDesk desk;
  desk.Read(list);
  EXPECT_EQ(desk.words.WordCount(4), 32767);
  try {
    desk.Read(list + "ZZZZ\n");
    FAIL() << "the program goes on";
  } catch (const ProgramEnded& ended) {
    EXPECT_EQ(ended.why, " 4-letter words exceed the limit 32767");
  }
}

TEST(ReadDictionary, TheCountFillsItsPlacesFromTheRight) {
  EXPECT_EQ(WordCountText(45678), "45,678 Words");
  EXPECT_EQ(WordCountText(1234), "1,234 Words");
  EXPECT_EQ(WordCountText(812), ",812 Words");
  EXPECT_EQ(WordCountText(5), ",  5 Words");
  EXPECT_EQ(WordCountText(0), ",  0 Words");
}

TEST(ChooseDictionary, ACustomListIsAskedForAndMayBeCancelled) {
  DictionaryDesk desk;
  desk.Read("ARE\n");
  const std::string label = desk.state.Label9;
  desk.host.script = {{"Select a Dictionary file", ""}};
  ChooseDictionary(desk.state, desk.words, desk.host, 3);
  EXPECT_TRUE(desk.host.told.empty());
  EXPECT_EQ(desk.state.DictOpt, 3);
  EXPECT_EQ(desk.state.Label9, label);

  const std::string path = desk.folder.Write("custom.txt", "CAT\nDOG\n");
  desk.host.script = {{"Select a Dictionary file", path}};
  ChooseDictionary(desk.state, desk.words, desk.host, 3);
  EXPECT_EQ(desk.host.told.back(), path + " Read\r\n 2 words");
  EXPECT_EQ(desk.state.Label3, path);
}

TEST(FindWord, SearchesByHalves) {
  const WordTable words = Dictionary({"ARE", "CAT", "DOG"});
  EXPECT_EQ(FindWordMessage(words, "cat"),
            "CAT is word# 2 of  3 3-letter words");
  EXPECT_EQ(FindWordMessage(words, "Are"),
            "ARE is word# 1 of  3 3-letter words");
  EXPECT_EQ(FindWordMessage(words, "ant"), "ANT not found");
  EXPECT_EQ(FindWordMessage(words, ""), " is word# 0 of  0 0-letter words");
  const std::string longWord(21, 'A');
  EXPECT_EQ(FindWordMessage(words, longWord), longWord + " not found");
  // An unsorted list hides words.
  const WordTable unsorted = Dictionary({"DOG", "CAT", "ARE"});
  EXPECT_EQ(FindWordMessage(unsorted, "DOG"), "DOG not found");
  EXPECT_EQ(FindWordMessage(unsorted, "CAT"),
            "CAT is word# 2 of  3 3-letter words");
}
