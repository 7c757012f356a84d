// What several tests of the engine need: lists, grids, and a plain fill by
// exhaustive search to compare with.

#pragma once

#include <fstream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "autofill/autofill.h"
#include "dictionary/read_list.h"
#include "tests/document_text.h"
#include "tests/paths.h"

namespace autofill {

inline WordList ListOf(const std::vector<std::string>& words) {
  WordListBuilder builder;
  for (const std::string& word : words) builder.Add(word, kPlainScore, 0);
  return builder.Build();
}

// False when an entry has no word left.
inline bool PropagateAll(Store& store) {
  for (int e; (e = store.TakeEntry()) >= 0;)
    if (!store.Revise(e)) return false;
  return true;
}

// The words of a level.
inline WordList Level(int level) {
  WordListBuilder builder;
  ReadList(BuiltPath("L" + std::to_string(level) + "Ascii.txt"), 0, 0, builder);
  return builder.Build();
}

inline const WordList& Level2() {
  static const WordList list = Level(2);
  return list;
}

// Grids as text (tests/document_text.h).
using Rows = std::vector<std::string>;

inline Problem ProblemOf(const Rows& rows) {
  return ProblemOf(DocumentOf(rows));
}

// The letters of a grid of so many columns as text, "." where there is none.
inline Rows RowsOf(const Letters& letters, int width) {
  Rows rows;
  for (size_t i = 0; i < letters.size(); ++i) {
    if (i % width == 0) rows.emplace_back();
    rows.back() += letters[i].empty() ? "." : letters[i];
  }
  return rows;
}

// A grid of bench/grids.
inline Problem ReadGrid(const std::string& name) {
  std::ifstream file(SourcePath("bench/grids/" + name));
  Rows rows;
  for (std::string row; std::getline(file, row);) rows.push_back(row);
  return ProblemOf(rows);
}

// Random words of the first few letters, of 3 to 5 letters or 6.
inline std::vector<std::string> RandomWords(std::mt19937& random, int count,
                                            int letters, int lengths = 3) {
  std::set<std::string> words;
  for (int i = 0; i < count; ++i) {
    std::string word(3 + random() % lengths, 'A');
    for (char& c : word) c = static_cast<char>('A' + random() % letters);
    words.insert(word);
  }
  return {words.begin(), words.end()};
}

// A grid of up to 5 x 5 with some blocks and given letters.
inline Document RandomGrid(std::mt19937& random, int letters) {
  Rows rows(3 + random() % 3);
  const size_t width = 3 + random() % 3;
  for (std::string& row : rows) {
    for (size_t c = 0; c < width; ++c) {
      const int kind = random() % 16;
      row += kind < 3    ? '#'
             : kind == 3 ? static_cast<char>('A' + random() % letters)
                         : '.';
    }
  }
  return DocumentOf(rows);
}

// The same with some bars, holes and cells of several letters.
inline Document RandomShape(std::mt19937& random, int letters) {
  Document document = RandomGrid(random, letters);
  for (Cell& cell : document.cells) {
    cell.barRight = random() % 10 == 0;
    cell.barBelow = random() % 10 == 0;
    if (cell.kind == Cell::Kind::Block && random() % 2 == 0)
      cell.kind = Cell::Kind::Void;
    if (cell.kind == Cell::Kind::White && random() % 16 == 0)
      cell.solution = {static_cast<char>('A' + random() % letters),
                       static_cast<char>('A' + random() % letters)};
  }
  return document;
}

// Entry by entry, word by word: how many fills there are, up to a limit.
class PlainFill {
 public:
  PlainFill(const Problem& problem, const std::vector<std::string>& words,
            int shared = 0)
      : problem_(problem),
        words_(words),
        shared_(shared),
        letters_(problem.letters) {}
  bool Exists() { return Count(1) == 1; }
  int Count(int limit) {
    count_ = 0;
    limit_ = limit;
    Try(0);
    return count_;
  }

 private:
  const Entry& EntryAt(size_t e) const { return problem_.entries[e]; }
  bool IsGiven(size_t e) const {
    return IsComplete(problem_.letters, EntryAt(e));
  }
  std::string Read(size_t e) const { return MaskOf(letters_, EntryAt(e)); }
  void Write(size_t e, std::string_view word) {
    for (const int cell : EntryAt(e).cells) {
      if (letters_[cell].empty()) letters_[cell] = word.substr(0, 1);
      word.remove_prefix(letters_[cell].size());
    }
  }
  bool Shares(const std::string& a, const std::string& b) const {
    for (size_t i = 0; shared_ && i + shared_ <= a.size(); ++i)
      if (b.find(a.substr(i, shared_)) != b.npos) return true;
    return a == b;
  }
  bool Clashes(size_t e, const std::string& word) const {
    for (size_t other = 0; other < problem_.entries.size(); ++other) {
      const bool decided = other < e || IsGiven(other);
      if (other != e && decided && Shares(word, Read(other))) return true;
    }
    return false;
  }
  bool HasTwinBefore(size_t e) const {
    for (size_t other = 0; other < e; ++other)
      if (IsGiven(other) && Read(other) == Read(e)) return true;
    return false;
  }
  // Whether there are as many as the limit.
  bool Try(size_t e) {
    if (e == problem_.entries.size()) return ++count_ == limit_;
    if (IsGiven(e)) return !HasTwinBefore(e) && Try(e + 1);
    const Letters before = letters_;
    const std::string mask = Read(e);
    for (const std::string& word : words_) {
      if (!FitsMask(word, mask) || problem_.rejected.contains(word) ||
          Clashes(e, word))
        continue;
      Write(e, word);
      if (Try(e + 1)) return true;
      letters_ = before;
    }
    return false;
  }

  const Problem& problem_;
  const std::vector<std::string>& words_;
  int shared_;
  Letters letters_;
  int count_ = 0, limit_ = 0;
};

}  // namespace autofill
