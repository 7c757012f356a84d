#include "dictionary/read_list.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <map>

#include "base/text_file.h"

namespace {

class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& content) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TemporaryFile() { std::remove(path_.c_str()); }
  const std::string& Path() const { return path_; }

 private:
  std::string path_ = testing::TempDir() + "kelda-list" +
                      std::to_string(getpid()) + "-" +
                      std::to_string(counter_++) + ".txt";
  inline static int counter_ = 0;
};

TEST(ParseLine, TakesTheUsualForms) {
  struct Case {
    std::string_view line, word;
    int score;
    bool folded;
  };
  const Case cases[] = {
      {"ZEPHYR", "ZEPHYR", 50, false},
      {"ZEPHYR;75", "ZEPHYR", 75, false},
      {"ZEPHYR\t75\r", "ZEPHYR", 75, false},
      {"ZEPHYR,75", "ZEPHYR", 75, false},
      {"ZEPHYR;75;a breeze, say", "ZEPHYR", 75, false},
      {"ZEPHYR;62.5", "ZEPHYR", 62, false},
      {"ice cream ; 0", "ICECREAM", 0, true},
      {"don't-know", "DONTKNOW", 50, true},
      {"Paris, France", "PARISFRANCE", 50, true},
      {"caf\xC3\xA9;100", "CAFE", 100, true},
      {"caf\xE9", "CAFE", 50, true},
      {"\xC6on", "AEON", 50, true},
  };
  ListLine line;
  for (const Case& c : cases) {
    ParseLine(c.line, line);
    EXPECT_EQ(line.kind, ListLine::Kind::Word) << c.line;
    EXPECT_EQ(line.word, c.word);
    EXPECT_EQ(line.score, c.score);
    EXPECT_EQ(line.folded, c.folded);
  }
}

TEST(ParseLine, RefusesWithAReason) {
  const std::pair<std::string, Refusal> cases[] = {
      {"AB;50", Refusal::TooShort},
      {"--", Refusal::TooShort},
      {"CAT;101", Refusal::BadScore},
      {"CAT;-1", Refusal::BadScore},
      {"CAT;x", Refusal::BadScore},
      {"CAT;", Refusal::BadScore},
      {"R2D2;50", Refusal::NoLetter},
      {"CA\x01T", Refusal::NoLetter},
      {"\xD0\x9A\xD0\xBE\xD1\x82", Refusal::NoLetter},
      {std::string(52, 'A'), Refusal::TooLong},
  };
  ListLine line;
  for (const auto& [text, refusal] : cases) {
    ParseLine(text, line);
    EXPECT_EQ(line.kind, ListLine::Kind::Refused) << text;
    EXPECT_EQ(line.refusal, refusal) << text;
  }
  for (const char* text : {"", "  \t", "# CAT"}) {
    ParseLine(text, line);
    EXPECT_EQ(line.kind, ListLine::Kind::Nothing);
  }
}

RC_GTEST_PROP(ParseLine, MakesAWordOrARefusalOfAnything,
              (const std::string& text)) {
  ListLine line;
  ParseLine(text, line);
  if (line.kind != ListLine::Kind::Word) return;
  RC_ASSERT(line.word.size() >= 3u && line.word.size() <= 51u);
  RC_ASSERT(line.score >= 0 && line.score <= 100);
  for (const char c : line.word) RC_ASSERT(c >= 'A' && c <= 'Z');
}

TEST(ReadList, Reports) {
  const TemporaryFile file(
      "\xEF\xBB\xBFSUN;90\n\n# two\nmoon\nSUN;95\nX1Y\nEH\n"
      "STAR;10\n");
  WordListBuilder builder;
  const LoadReport report = ReadList(file.Path(), 50, 0, builder);
  EXPECT_EQ(report.Text(),
            file.Path() +
                ": 2 words; 1 below the minimum score; 1 repeated; 1 folded; "
                "2 refused (1 shorter than 3 letters, from line 7; 1 not of "
                "letters A-Z, from line 6)");
  const WordList list = builder.Build();
  EXPECT_EQ(list.ScoreOf("SUN"), 95);
  EXPECT_EQ(list.ScoreOf("MOON"), 50);
  EXPECT_EQ(list.ScoreOf("STAR"), -1);
}

TEST(ReadList, TheListNamedFirstDecides) {
  const TemporaryFile first("SUN;90\nMOON;20\n"),
      second("SUN;10\nMOON;80\nSTAR\n");
  WordListBuilder builder;
  ReadList(first.Path(), 50, 0, builder);
  ReadList(second.Path(), 0, 1, builder);
  const WordList list = builder.Build();
  EXPECT_EQ(list.ScoreOf("SUN"), 90);
  EXPECT_EQ(list.ScoreOf("MOON"), -1);
  EXPECT_EQ(list.ScoreOf("STAR"), 50);
}

TEST(ReadList, HostileFilesAreErrorsOrReported) {
  WordListBuilder builder;
  const TemporaryFile empty(""), binary(std::string("CAT\0DOG\n", 8));
  const TemporaryFile wide(std::string(1 << 20, 'A') + "\nCAT\n");
  EXPECT_EQ(ReadList(empty.Path(), 0, 0, builder).taken, 0);
  EXPECT_EQ(ReadList(binary.Path(), 0, 0, builder).Refused(), 1);
  EXPECT_THROW(ReadList(wide.Path(), 0, 0, builder), FileError);
  EXPECT_THROW(ReadList("/no/such/file", 0, 0, builder), FileError);
  EXPECT_THROW(ReadList(testing::TempDir(), 0, 0, builder), FileError);
  const TemporaryFile latin("na\xEFve\n\xFF\xFE\n");
  const LoadReport report = ReadList(latin.Path(), 0, 0, builder);
  EXPECT_EQ(report.taken, 1);
  EXPECT_EQ(report.Refused(), 1);
}

TEST(ReadList, StreamsTenMillionLines) {
  const TemporaryFile file("");
  {
    std::ofstream out(file.Path(), std::ios::binary);
    std::string block;
    for (int i = 0; i < 10000; ++i) block += "CAT;50\nDOG\n";
    for (int i = 0; i < 500; ++i) out << block;
  }
  WordListBuilder builder;
  const LoadReport report = ReadList(file.Path(), 0, 0, builder);
  EXPECT_EQ(report.lines, 10'000'000);
  EXPECT_EQ(report.taken, 2);
}

TEST(ReadList, MoreThanTwoMillionWordsAreRefused) {
  const TemporaryFile file("");
  {
    std::ofstream out(file.Path(), std::ios::binary);
    for (int i = 0; i <= kMostWords; ++i) {
      std::string word = "AAAAA\n";
      for (int rest = i, p = 0; p < 5; rest /= 26, ++p)
        word[p] = static_cast<char>('A' + rest % 26);
      out << word;
    }
  }
  WordListBuilder builder;
  try {
    ReadList(file.Path(), 0, 0, builder);
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(error.what(), file.Path() +
                                ":2000001: the lists have more than "
                                "2,000,000 words");
  }
}

TEST(WordList, SaysWhatLeastScoreKeepsAWordFromBeingUsed) {
  WordListBuilder builder;
  builder.Add("CAT", 40, 60);
  builder.Add("COT", 30, 50, 1);
  builder.Add("CUT", 70, 60);
  const WordList list = builder.Build();
  EXPECT_EQ(list.LeastScoreAsked("C?T", 0), 50);
  EXPECT_EQ(list.LeastScoreAsked("CA?", 0), 60);
  EXPECT_EQ(list.LeastScoreAsked("CU?", 0), 0);
  EXPECT_EQ(list.LeastScoreAsked("CU?", 80), 80);
  EXPECT_EQ(list.LeastScoreAsked("DOG", 80), 0);
}

RC_GTEST_PROP(WordList, HoldsEachWordOnceBestScoreFirst,
              (const std::vector<std::pair<int, int>>& entries)) {
  WordListBuilder builder;
  std::map<std::string, int> expected;
  for (auto [number, score] : entries) {
    std::string word = "AAA";
    for (char& c : word) {
      c = static_cast<char>('A' + (number & 7));
      number >>= 3;
    }
    score = std::abs(score % 101);
    builder.Add(word, score, 0);
    auto [at, isNew] = expected.try_emplace(word, score);
    if (!isNew) at->second = std::max(at->second, score);
  }
  const WordList list = builder.Build();
  const LengthTable& table = list.OfLength(3);
  RC_ASSERT(table.count == static_cast<int>(expected.size()));
  for (int word = 0; word < table.count; ++word) {
    RC_ASSERT(table.scores[word] == expected.at(table.Text(word)));
    RC_ASSERT(table.Find(table.Text(word)) == word);
    if (word) RC_ASSERT(table.scores[word - 1] >= table.scores[word]);
  }
  RC_ASSERT(table.Find("ZZZ") == -1);
}

}  // namespace
