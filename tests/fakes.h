// Fakes for tests: a host with scripted answers, and grids and dictionaries
// from text.

#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "dictionary/word_table.h"
#include "grid/new_grid.h"
#include "grid/slots.h"
#include "grid/state.h"

struct ProgramEnded {
  std::string why;
};

// Answers questions in the order of the script and fails the test on a
// question that is not the next one of it.  Presses Halt at a given poll.
class FakeHost : public Host {
 public:
  std::vector<std::string> told;  // the texts of message boxes
  struct Answer {
    std::string question;  // how it begins
    std::string answer;    // "yes", "no", "abort", a text, ...
  };
  std::deque<Answer> script;
  bool answersAny = false;  // cancels questions that are not in the script
  int haltAtPoll = -1;      // counted from 0; -1 never
  bool log = false;         // switch the solver's log on
  std::vector<std::string> logLines;
  int polls = 0;
  bool waitedForHalt = false;
  PointerShape pointer = PointerShape::Normal;
  std::mt19937 random{1};

  void Tell(std::string_view text) override { told.emplace_back(text); }
  bool AskYesNo(std::string_view text) override { return Next(text) == "yes"; }
  TriesAnswer AskTries(std::string_view text) override {
    const std::string answer = Next(text);
    if (answer == "retry") return TriesAnswer::Retry;
    if (answer == "ignore") return TriesAnswer::Ignore;
    return TriesAnswer::Abort;
  }
  LossesAnswer AskLosses(std::string_view text, bool) override {
    const std::string answer = Next(text);
    return answer == "write"    ? LossesAnswer::Write
           : answer == "export" ? LossesAnswer::ExportWhole
                                : LossesAnswer::Cancel;
  }
  std::string AskText(std::string_view prompt, std::string_view,
                      std::string_view) override {
    return Next(prompt);
  }
  std::string AskFileName(const FileRequest& request) override {
    return Next(request.Title);
  }
  Events ShowLogLine(std::string_view line) override {
    logLines.emplace_back(line);
    return {};
  }
  Events Poll() override { return {.halt = polls++ == haltAtPoll}; }
  Events RunEvents() override { return {.log = log}; }
  Events AwaitHalt(std::string_view) override {
    waitedForHalt = true;
    return {.halt = true};
  }
  void Pointer(PointerShape shape) override { pointer = shape; }
  double Chance() override { return random() / 4294967296.0; }
  [[noreturn]] void EndProgram(std::string_view why) override {
    throw ProgramEnded{std::string(why)};
  }

 private:
  std::string Next(std::string_view question) {
    if (script.empty() || !question.starts_with(script.front().question)) {
      if (answersAny) return "";
      ADD_FAILURE() << "unexpected question: " << question;
      return "";
    }
    const std::string answer = script.front().answer;
    script.pop_front();
    return answer;
  }
};

// The cells that are filled with a colour.
inline std::vector<Pos> CellsIn(const Paint& paint, Colour colour) {
  std::vector<Pos> cells;
  ForEachCell(MaxGridSize, [&](Pos p) {
    if (paint[p].fill == colour) cells.push_back(p);
  });
  return cells;
}

// A cell's number and letter as they are painted: "12A".
inline std::string TextsOf(const Paint& paint, Pos cell) {
  const int number = paint[cell].number;
  return (number ? std::to_string(number) : "") + paint[cell].text;
}

// A state with its host.
struct Desk {
  State state;
  FakeHost host;

  Desk() = default;
  // A grid as in a puzzle file: "#" black, "." empty.
  explicit Desk(const std::vector<std::string>& rows) { SetGrid(rows); }

  void SetGrid(const std::vector<std::string>& rows) {
    state.GridSize = static_cast<int>(rows.size());
    state.Text3 = std::to_string(rows.size());
    ForEachCell(state.GridSize, [&](Pos p) {
      const char c = rows[p.row - 1][p.col - 1];
      state.Grid[p] = c == '#' ? kBlackSquare : c == '.' ? kEmptyCell : c;
    });
    CountBlackSquares(state);
    BuildSlotList(state, host);
  }
};

// The grid as in a puzzle file.
inline std::vector<std::string> Rows(const State& state) {
  std::vector<std::string> rows(state.GridSize);
  ForEachCell(state.GridSize, [&](Pos p) {
    const char c = state.Grid[p];
    rows[p.row - 1] += c == kBlackSquare ? '#' : c == kEmptyCell ? '.' : c;
  });
  return rows;
}

// The texts of a list's rows.
template <class Row>
std::vector<std::string> Texts(const std::vector<Row>& rows) {
  std::vector<std::string> texts;
  for (const Row& row : rows) texts.push_back(row.Text());
  return texts;
}

// A dictionary of some words A-Z, scored and indexed.
inline WordTable Dictionary(const std::vector<std::string>& words) {
  WordTable table;
  for (const std::string& word : words) {
    for (char c : word) ++table.LetterCount[c - 'A'];
    EXPECT_TRUE(table.Add(word));
    ++table.TotalWords;
  }
  table.ScoreWords();
  table.BuildIndex();
  return table;
}

// A folder for files of a test, removed with it.
class TestFolder {
 public:
  TestFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "kelda-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() { std::filesystem::remove_all(path_); }

  std::string Path(const std::string& name) const {
    return (path_ / name).string();
  }
  std::string Write(const std::string& name, std::string_view content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
    return Path(name);
  }
  std::string Read(const std::string& name) const {
    std::ifstream in(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::filesystem::path path_;
};
