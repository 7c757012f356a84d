#include "dictionary/meanings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

std::string Forms(std::string_view word) {
  std::string forms;
  for (const Meaning& meaning : FindMeanings(MeaningsFolder(), word))
    forms += meaning.word + "/" + meaning.partOfSpeech + " ";
  return forms;
}

TEST(Meanings, FindsWordsAndTheirForms) {
  ASSERT_FALSE(MeaningsFolder().empty());
  EXPECT_EQ(Forms("HOUSE"), "house/noun house/verb ");
  EXPECT_EQ(Forms("Mice"), "mouse/noun ");
  EXPECT_EQ(Forms("running"), "running/noun run/verb running/adjective ");
  EXPECT_EQ(Forms("ice cream"), "ice cream/noun ");
  EXPECT_EQ(Forms("qwxyz"), "");
  EXPECT_EQ(Forms(""), "");
  // The first and the last lines of the indexes.
  EXPECT_EQ(Forms("zymosis").substr(0, 12), "zymosis/noun");
  EXPECT_EQ(Forms("'hood"), "'hood/noun ");
}

TEST(Meanings, SensesHaveExamplesAndSynonyms) {
  const auto meanings = FindMeanings(MeaningsFolder(), "house");
  ASSERT_EQ(meanings.size(), 2u);
  EXPECT_EQ(meanings[0].senses.size(), 12u);
  const Sense& sense = meanings[0].senses[0];
  EXPECT_TRUE(sense.gloss.starts_with("a dwelling")) << sense.gloss;
  ASSERT_EQ(sense.examples.size(), 2u);
  EXPECT_EQ(sense.examples[0], "he has a house on Cape Cod");
  const auto& synonyms = meanings[0].senses[1].synonyms;
  EXPECT_NE(std::ranges::find(synonyms, "firm"), synonyms.end());
}

TEST(Meanings, PagesAreSafeAndPlain) {
  const std::string page = MeaningPage(MeaningsFolder(), "<b>&x");
  EXPECT_NE(page.find("&lt;b&gt;&amp;x"), std::string::npos);
  EXPECT_NE(page.find("No meaning of this word"), std::string::npos);
  EXPECT_NE(MeaningPage("", "dog").find("not installed"), std::string::npos);
}

TEST(Meanings, DamagedFilesDoNoHarm) {
  const auto folder =
      std::filesystem::temp_directory_path() / "kelda-meanings-test";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "index.noun") << "ant n 1 0 1 0 99999999999999999999\n"
                                       << "bee n 9999999 0 1 0 5\n"
                                       << "cat n 2 0 1 0 00000000 00000007";
  std::ofstream(folder / "data.noun") << "00000000 05 n ff cat 0 | \"x\n";
  for (const char* word : {"ant", "bee", "dog", "cats"})
    (void)MeaningPage(folder.string(), word);
  const auto cat = FindMeanings(folder.string(), "cat");
  ASSERT_EQ(cat.size(), 1u);
  EXPECT_EQ(cat[0].senses.size(), 1u);
  std::filesystem::remove_all(folder);
}

}  // namespace
