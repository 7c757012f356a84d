#include "autofill/problem.h"

#include <algorithm>

#include "dictionary/read_list.h"

namespace autofill {
namespace {

// What stands for a letter that isn't known yet.
bool IsEmpty(const std::string& solution) {
  return solution.empty() || solution == "?" || solution == " ";
}

// What an entry's cell holds that is not of letters A-Z, or "".
std::string FindOther(const Document& document, const Letters& letters,
                      const Entry& entry) {
  for (const int cell : entry.cells) {
    const std::string& solution = document.cells[cell].solution;
    if (letters[cell].empty() && !IsEmpty(solution)) return solution;
  }
  return "";
}

bool HasEmptyCell(const Document& document, const Entry& entry) {
  return std::ranges::any_of(entry.cells, [&](int cell) {
    return IsEmpty(document.cells[cell].solution);
  });
}

void AddEntry(const Document& document, const Entry& entry, Problem& problem) {
  const std::string other = FindOther(document, problem.letters, entry);
  const auto length = MaskOf(problem.letters, entry).size();
  std::string why;
  if (!other.empty())
    why = "it holds \"" + other + "\", which is no letter A-Z";
  else if (length > kLongestWord)
    why = "it has " + std::to_string(length) + " letters, more than " +
          std::to_string(kLongestWord);
  if (why.empty())
    problem.entries.push_back(entry);
  else if (HasEmptyCell(document, entry))
    problem.unfillable.push_back({entry.Name(), why});
}

}  // namespace

Problem ProblemOf(const Document& document) {
  Problem problem;
  for (const Cell& cell : document.cells) {
    std::string& letters = problem.letters.emplace_back();
    if (!FoldWord(cell.solution, letters)) letters.clear();
  }
  for (const Entry& entry : NumberEntries(document).entries)
    if (entry.Length() >= kShortestWord) AddEntry(document, entry, problem);
  for (const std::string& text : document.rejected) {
    std::string word;
    if (FoldWord(text, word)) problem.rejected.insert(word);
  }
  return problem;
}

void PutLetters(const Letters& letters, Document& document) {
  for (std::size_t i = 0; i < letters.size(); ++i) {
    std::string& solution = document.cells[i].solution;
    if (IsEmpty(solution) && !letters[i].empty()) solution = letters[i];
  }
}

std::string MaskOf(const Letters& letters, const Entry& entry) {
  std::string mask;
  for (const int cell : entry.cells)
    mask += letters[cell].empty() ? "?" : letters[cell];
  return mask;
}

bool IsComplete(const Letters& letters, const Entry& entry) {
  return std::ranges::none_of(entry.cells,
                              [&](int cell) { return letters[cell].empty(); });
}

}  // namespace autofill
