// The review of the words in a grid (puzzle/review.h): their scores, and what
// they have in common.

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "puzzle/review_parts.h"

namespace {

using Severity = Finding::Severity;

constexpr int kRareScore = 40;
constexpr std::size_t kShortestBase = 2;

// The words that a word may be an inflection of, itself among them.
std::set<std::string> BasesOf(std::string_view word) {
  std::set<std::string> bases = {std::string(word)};
  const auto add = [&](std::string_view ending, std::string_view instead) {
    if (word.ends_with(ending) && word.size() >= ending.size() + kShortestBase)
      bases.insert(std::string(word.substr(0, word.size() - ending.size())) +
                   std::string(instead));
  };
  add("S", "");
  add("IES", "Y");
  add("IED", "Y");
  for (const char* ending : {"SES", "XES", "ZES", "CHES", "SHES", "OES"})
    add(ending, std::string_view(ending, std::string_view(ending).size() - 2));
  for (const char* ending : {"ED", "ING", "INGS"}) {
    add(ending, "");
    add(ending, "E");
    // RUNNING, of RUN.
    for (const char letter : std::string_view("BDGLMNPRT"))
      add(std::string(2, letter) + ending, std::string(1, letter));
  }
  return bases;
}

struct FullEntry {
  const Entry* entry;
  std::string answer;
  int score;
};

std::vector<FullEntry> FullEntries(const Subject& subject,
                                   const ScoreOf& scoreOf) {
  std::vector<FullEntry> full;
  for (const Entry& entry : subject.numbering.entries) {
    const bool isFull = std::ranges::none_of(entry.cells, [&](int cell) {
      return subject.document.cells[cell].solution.empty();
    });
    if (!isFull) continue;
    const std::string answer = AnswerOf(subject.document, entry);
    full.push_back({&entry, answer, scoreOf(answer)});
  }
  return full;
}

void CheckScores(Subject& subject, const std::vector<FullEntry>& full) {
  std::vector<const FullEntry*> low;
  for (const FullEntry& word : full) {
    if (word.score < 0)
      subject.FindEntry(Severity::Warning, "noList", *word.entry,
                        word.answer + " is in no list");
    else if (word.score < subject.rules.leastScore)
      low.push_back(&word);
  }
  if (static_cast<int>(low.size()) <= subject.rules.mayScoreLess) return;
  for (const FullEntry* word : low)
    subject.FindEntry(Severity::Broken, "leastScore", *word->entry,
                      word->answer + " scores " + std::to_string(word->score) +
                          ", less than " +
                          std::to_string(subject.rules.leastScore));
}

// Tells of two entries that have a part in common.
void FindPair(Subject& subject, const char* rule, const FullEntry& first,
              const FullEntry& second, const std::string& text) {
  std::vector<Pos> cells = subject.CellsOf(*first.entry);
  std::ranges::copy(subject.CellsOf(*second.entry), std::back_inserter(cells));
  subject.Find(
      Severity::Broken, rule,
      first.entry->Name() + " and " + second.entry->Name() + " " + text, cells,
      {first.entry->Name(), second.entry->Name()});
}

void CheckTwice(Subject& subject, const std::vector<FullEntry>& full) {
  if (!subject.rules.noWordTwice) return;
  std::map<std::string, const FullEntry*> seen;
  for (const FullEntry& word : full) {
    const auto [twin, isNew] = seen.try_emplace(word.answer, &word);
    if (!isNew)
      FindPair(subject, "noWordTwice", *twin->second, word,
               "are both " + word.answer);
  }
}

// The longest run of letters that two words share.
std::string SharedRun(const std::string& a, const std::string& b) {
  std::string longest;
  for (std::size_t i = 0; i < a.size(); ++i)
    while (i + longest.size() < a.size() &&
           b.find(a.substr(i, longest.size() + 1)) != b.npos)
      longest = a.substr(i, longest.size() + 1);
  return longest;
}

void CheckAlike(Subject& subject, const std::vector<FullEntry>& full) {
  const std::size_t mostRun = subject.rules.noSharedRun;
  if (mostRun == 0 && !subject.rules.noSharedStem) return;
  for (auto first = full.begin(); first != full.end(); ++first) {
    for (auto second = first + 1; second != full.end(); ++second) {
      if (first->answer == second->answer) continue;
      const std::string run =
          mostRun > 0 ? SharedRun(first->answer, second->answer) : "";
      if (mostRun > 0 && run.size() >= mostRun)
        FindPair(subject, "noSharedRun", *first, *second, "share " + run);
      if (subject.rules.noSharedStem && AreForms(first->answer, second->answer))
        FindPair(
            subject, "noSharedStem", *first, *second,
            "are forms of one word: " + first->answer + ", " + second->answer);
    }
  }
}

// Whether a clue says that its answer is short for something.
bool CallsShort(std::string clue) {
  std::ranges::transform(clue, clue.begin(),
                         [](unsigned char c) { return std::tolower(c); });
  for (const char* mark :
       {"abbr.", "(abbr", "for short", "in brief", "initials", "briefly"})
    if (clue.find(mark) != clue.npos) return true;
  return false;
}

void CheckAbbreviations(Subject& subject) {
  const int most = subject.rules.mostAbbreviation;
  if (most == 0) return;
  for (const Entry& entry : subject.numbering.entries) {
    const auto clue =
        subject.document.clues.find(KeyOf(subject.document, entry));
    if (clue == subject.document.clues.end() || entry.Length() <= most ||
        !CallsShort(clue->second.text))
      continue;
    subject.FindEntry(
        Severity::Broken, "mostAbbreviation", entry,
        "is an abbreviation of more than " + Plural(most, "letter"));
  }
}

void CheckLetters(Subject& subject) {
  std::string missing;
  for (const char letter : subject.rules.letters) {
    const bool occurs =
        std::ranges::any_of(subject.document.cells, [&](const Cell& cell) {
          return cell.solution.find(letter) != std::string::npos;
        });
    if (!occurs) missing += letter;
  }
  if (!missing.empty())
    subject.Find(Severity::Broken, "letters", missing + " does not occur");
}

void CheckBlindCrossings(Subject& subject, const std::vector<FullEntry>& full) {
  const auto rare = [&](int entry) -> const FullEntry* {
    for (const FullEntry& word : full)
      if (entry >= 0 && word.entry == &subject.numbering.entries[entry])
        return word.score < kRareScore ? &word : nullptr;
    return nullptr;
  };
  for (int i = 0; i < static_cast<int>(subject.document.cells.size()); ++i) {
    const FullEntry* const across = rare(subject.numbering.across[i]);
    const FullEntry* const down = rare(subject.numbering.down[i]);
    if (!across || !down) continue;
    const Pos cell = subject.document.PosOf(i);
    subject.Find(Severity::Warning, "blindCrossing",
                 across->entry->Name() + " " + across->answer + " crosses " +
                     down->entry->Name() + " " + down->answer + " at " +
                     CellName(cell) + ": both are rare",
                 {cell}, {across->entry->Name(), down->entry->Name()});
  }
}

}  // namespace

void ReviewWords(Subject& subject, const ScoreOf& scoreOf) {
  const std::vector<FullEntry> full = FullEntries(subject, scoreOf);
  CheckScores(subject, full);
  CheckTwice(subject, full);
  CheckAlike(subject, full);
  CheckAbbreviations(subject);
  CheckLetters(subject);
  CheckBlindCrossings(subject, full);
}

bool AreForms(std::string_view a, std::string_view b) {
  const std::set<std::string> bases = BasesOf(a);
  return std::ranges::any_of(BasesOf(b), [&](const std::string& base) {
    return bases.contains(base);
  });
}
