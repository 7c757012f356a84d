// What several tests of the engine need: lists, grids, and a plain fill by
// exhaustive search to compare with.

#pragma once

#include <fstream>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "autofill/autofill.h"
#include "autofill/store.h"
#include "dictionary/read_list.h"
#include "tests/paths.h"

namespace autofill {

inline WordList ListOf(const std::vector<std::string>& words) {
  WordListBuilder builder;
  for (const std::string& word : words) builder.Add(word, kPlainScore, 0);
  return builder.Build();
}

// False when an entry has no word left.
inline bool PropagateAll(Store& store) {
  for (int e; (e = store.TakeEntry()) >= 0;) {
    if (!store.Revise(e)) return false;
  }
  return true;
}

// The words of a level, and a grid of bench/grids.
inline WordList Level(int level) {
  WordListBuilder builder;
  ReadList(BuiltPath("L" + std::to_string(level) + "Ascii.txt"), 0, 0, builder);
  return builder.Build();
}

inline const WordList& Level2() {
  static const WordList list = Level(2);
  return list;
}

inline Rows ReadGrid(const std::string& name) {
  std::ifstream file(SourcePath("bench/grids/" + name));
  Rows rows;
  for (std::string row; std::getline(file, row);) rows.push_back(row);
  return rows;
}

// Random words of the first few letters, of 3 to 5 letters.
inline std::vector<std::string> RandomWords(std::mt19937& random, int count,
                                            int letters) {
  std::set<std::string> words;
  for (int i = 0; i < count; ++i) {
    std::string word(3 + random() % 3, 'A');
    for (char& c : word) c = static_cast<char>('A' + random() % letters);
    words.insert(word);
  }
  return {words.begin(), words.end()};
}

// A grid of up to 5 x 5 with some blocks and given letters.
inline Rows RandomGrid(std::mt19937& random, int letters) {
  Rows rows(3 + random() % 3);
  size_t width = 3 + random() % 3;
  for (std::string& row : rows) {
    for (size_t c = 0; c < width; ++c) {
      int kind = random() % 16;
      row += kind < 3    ? '#'
             : kind == 3 ? static_cast<char>('A' + random() % letters)
                         : '.';
    }
  }
  return rows;
}

// Entry by entry, word by word: how many fills there are, up to a limit.
class PlainFill {
 public:
  PlainFill(const Rows& rows, const std::vector<std::string>& words,
            int shared = 0)
      : board_(rows), words_(words), shared_(shared), rows_(rows) {}
  bool Exists() { return Count(1) == 1; }
  int Count(int limit) {
    count_ = 0;
    limit_ = limit;
    Try(0);
    return count_;
  }

 private:
  std::string Read(int e) const {
    const Entry& entry = board_.Entries()[e];
    std::string text;
    for (int k = 0; k < entry.length; ++k) {
      text += entry.across ? rows_[entry.row][entry.column + k]
                           : rows_[entry.row + k][entry.column];
    }
    return text;
  }
  void Write(int e, const std::string& text) {
    const Entry& entry = board_.Entries()[e];
    for (int k = 0; k < entry.length; ++k) {
      (entry.across ? rows_[entry.row][entry.column + k]
                    : rows_[entry.row + k][entry.column]) = text[k];
    }
  }
  bool Shares(const std::string& a, const std::string& b) const {
    for (size_t i = 0; shared_ && i + shared_ <= a.size(); ++i) {
      if (b.find(a.substr(i, shared_)) != b.npos) return true;
    }
    return a == b;
  }
  bool Clashes(int e, const std::string& word) const {
    for (int other = 0; other < board_.EntryCount(); ++other) {
      bool decided = other < e || board_.Entries()[other].given;
      if (other != e && decided && Shares(word, Read(other))) return true;
    }
    return false;
  }
  // Whether there are as many as the limit.
  bool Try(int e) {
    if (e == board_.EntryCount()) return ++count_ == limit_;
    if (board_.Entries()[e].given) {
      for (int other = 0; other < e; ++other) {
        if (board_.Entries()[other].given && Read(other) == Read(e)) {
          return false;
        }
      }
      return Try(e + 1);
    }
    std::string before = Read(e);
    for (const std::string& word : words_) {
      if (word.size() != before.size()) continue;
      bool fits = true;
      for (size_t k = 0; k < word.size(); ++k) {
        fits = fits && (before[k] == '.' || before[k] == word[k]);
      }
      if (!fits || Clashes(e, word)) continue;
      Write(e, word);
      if (Try(e + 1)) return true;
      Write(e, before);
    }
    return false;
  }

  Board board_;
  const std::vector<std::string>& words_;
  int shared_;
  Rows rows_;
  int count_ = 0, limit_ = 0;
};

}  // namespace autofill
