#include "cli/autofill_lists.h"

#include <filesystem>
#include <iostream>

#include "base/text_file.h"
#include "dictionary/levels.h"
#include "dictionary/read_list.h"

namespace {

struct ListChoice {
  std::string name;
  int minimum = 0;
};

// "words.txt:60"; a file that has such a name goes first.
ListChoice ParseChoice(const std::string& text) {
  const size_t colon = text.rfind(':');
  std::error_code error;
  if (colon == text.npos || colon + 1 == text.size() ||
      text.size() - colon > 4 ||
      text.find_first_not_of("0123456789", colon + 1) != text.npos ||
      std::filesystem::exists(text, error))
    return {text, 0};
  return {text.substr(0, colon), std::stoi(text.substr(colon + 1))};
}

std::string CheckChoice(const std::string& text) {
  return ParseChoice(text).minimum <= kBestScore
             ? ""
             : "the least score of a list is from 0 to 100";
}

}  // namespace

void AddListOption(CLI::App& command, std::vector<std::string>& lists) {
  command
      .add_option("-w,--words", lists,
                  "Word list: a file, or 1, 2 or 3 for a level, and perhaps "
                  "the least score to take, as in words.txt:60.  Give it "
                  "again for more lists; a word's first list decides its "
                  "score.  Default: 2")
      ->allow_extra_args(false)
      ->check(CheckChoice);
}

WordList LoadLists(const std::vector<std::string>& lists) {
  WordListBuilder builder;
  int number = 0;
  for (const std::string& text :
       lists.empty() ? std::vector<std::string>{"2"} : lists) {
    const ListChoice list = ParseChoice(text);
    const LoadReport report =
        ReadList(ListPath(list.name), list.minimum, number++, builder);
    if (!IsLevel(list.name)) std::cerr << report.Text() << "\n";
  }
  WordList words = builder.Build();
  if (words.Count() == 0)
    throw FileError("the word lists hold no word of 3 to 51 letters");
  return words;
}
