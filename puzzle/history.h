// Undo and redo: the documents that a puzzle went through.
//
// The document of now is a shared value; a step holds only what the document
// beyond it has in other ways.  On a 51 x 51 grid 1,000 steps take 1 MB when
// each sets a pair of cells, and 34 MB when each fills the whole grid.
//
// A step that puts another puzzle in the place of the document (loading)
// changes the file that the document belongs to as well, so that undoing it
// never leaves a puzzle under the name of another one's file.

#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "puzzle/document.h"

class History {
 public:
  static constexpr std::size_t kMostSteps = 1000;  // the oldest go first

  explicit History(Document first = {});

  const std::shared_ptr<const Document>& Now() const { return now_; }
  const std::string& File() const { return file_; }  // "" for none

  // The document that a command left.  One that is as before is no step.
  // With `joins`, goes into the last step if nothing came between: the next
  // letter typed into a text box.
  void Take(std::string_view caption, const Document& after,
            bool joins = false);
  // Another puzzle, of a file or of none.
  void Replace(std::string_view caption, const Document& after,
               std::string file);

  // False when there is no such step.
  bool Undo();
  bool Redo();
  // What would be undone or redone, "Compile"; "" for nothing.
  std::string_view UndoCaption() const;
  std::string_view RedoCaption() const;

  // The document of now is what a file holds; from here on it belongs to it.
  // "" stands for what is in no file, and counts as saved all the same.
  void NoteSaved(std::string file);
  // Whether a document is the one that its file holds.
  bool IsSaved(const Document& document) const;

 private:
  // What a document has in other ways than its neighbour.
  struct Difference {
    std::optional<Document> rest;  // all but cells and clues; or a whole
                                   // document, of another size
    std::vector<std::pair<int, Cell>> cells;  // by place
    std::vector<std::pair<ClueKey, std::optional<Clue>>> clues;

    Difference(const Document& from, const Document& to);
    Document AppliedTo(const Document& from) const;
  };
  struct Step {
    std::string caption;
    Difference across;                // to the document on its other side
    std::optional<std::string> file;  // on its other side, if that is another
  };

  void Push(Step step, const Document& after);
  void Cross(Step& step);

  std::shared_ptr<const Document> now_;
  std::string file_;
  std::deque<Step> steps_;
  std::size_t done_ = 0;   // how many of the steps lie behind
  bool joinable_ = false;  // the last step can take more
  std::map<std::string, std::shared_ptr<const Document>> saved_;  // by file
};
