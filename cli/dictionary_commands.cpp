// kelda-cli find, match, words and unpack: asking the dictionary.

#include <iostream>

#include "cli/commands.h"
#include "cli/session.h"
#include "dictionary/find_word.h"
#include "dictionary/packed.h"
#include "grid/choose_dictionary.h"
#include "solver/matcher.h"

namespace {

struct Query {
  std::string text;
  std::string list = "2";
};

void AddListOption(CLI::App* command, Query& query) {
  command
      ->add_option("-d,--dictionary", query.list,
                   "Word list: a file, or 1, 2 or 3 for a level")
      ->capture_default_str();
}

int RunFind(const Query& query) {
  CliSession session;
  session.LoadWords(query.list);
  std::cout << FindWordMessage(session.words, query.text) << "\n";
  return kDone;
}

std::string CheckMask(const std::string& mask) {
  const bool fits = !mask.empty() && mask.size() <= LongestWordLength &&
                    UpperCase(mask).find_first_not_of(
                        "ABCDEFGHIJKLMNOPQRSTUVWXYZ?") == std::string::npos;
  return fits ? "" : mask + ": a mask is 1 to 20 letters or ?";
}

int RunMatch(const Query& query) {
  CliSession session;
  session.LoadWords(query.list);
  std::vector<Candidate> matches;
  Matcher(session.state, session.words)
      .FindMatches(Mask(UpperCase(query.text)), matches);
  for (const Candidate& match : matches) std::cout << match.Text() << "\n";
  return kDone;
}

int RunWords(const std::string& list) {
  CliSession session;
  session.LoadWords(list);
  for (const LetterRow& row : session.state.List2.Read<LetterRow>())
    std::cout << row.Text() << "\n";
  for (const LengthRow& row : session.state.List3.Read<LengthRow>())
    std::cout << row.Text() << "\n";
  std::cout << session.state.Label9 << "\n";
  return kDone;
}

int RunUnpack(const std::string& file) {
  WordTable words;
  const std::vector<std::string> list = ReadPackedDictionary(words, file);
  std::cout << words.PackedHeaderValue << "\n";
  for (const std::string& word : list) std::cout << word << "\n";
  return kDone;
}

}  // namespace

void AddFindCommand(CLI::App& app, int& status) {
  auto query = std::make_shared<Query>();
  CLI::App* command =
      app.add_subcommand("find", "Find a word in the dictionary.");
  command->footer("Example: kelda-cli find house -d 1");
  command->add_option("WORD", query->text, "Word, in any case")->required();
  AddListOption(command, *query);
  command->callback([query, &status] { status = RunFind(*query); });
}

void AddMatchCommand(CLI::App& app, int& status) {
  auto query = std::make_shared<Query>();
  CLI::App* command =
      app.add_subcommand("match", "List the words that fit a mask.");
  command->footer(
      "Prints each word behind its score, in the order in which the fill\n"
      "tries them.\n"
      "Example: kelda-cli match H?U?E");
  command->add_option("MASK", query->text, "Letters, ? for an unknown one")
      ->required()
      ->check(CLI::Validator(CheckMask, ""));
  AddListOption(command, *query);
  command->callback([query, &status] { status = RunMatch(*query); });
}

void AddWordsCommand(CLI::App& app, int& status) {
  auto list = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("words", "Count the letters and words of a list.");
  command->footer("Example: kelda-cli words mywords.txt");
  command->add_option("LIST", *list, "A file, or 1, 2 or 3 for a level")
      ->required();
  command->callback([list, &status] { status = RunWords(*list); });
}

void AddUnpackCommand(CLI::App& app, int& status) {
  auto file = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("unpack", "Print the words of a packed list.");
  command->footer(
      "Prints the number of its header, then its words in file order.\n"
      "Example: kelda-cli unpack packed.dat");
  command->add_option("FILE", *file, "Packed list")->required();
  command->callback([file, &status] { status = RunUnpack(*file); });
}
