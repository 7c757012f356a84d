#include "puzzle/history.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

Document Titled(std::string title) {
  Document document(5, 5);
  document.title = std::move(title);
  return document;
}

// A document with something of each kind changed, now and then of another
// size.
Document Changed(Document document) {
  const auto draw = [](int end) { return *rc::gen::inRange(0, end); };
  if (draw(10) == 0) document = Document(3 + draw(3), 3 + draw(3));
  const Pos first{1 + draw(3), 1 + draw(3)};
  const ClueKey key{draw(2) ? Direction::Across : Direction::Down, first};
  switch (draw(6)) {
    case 0:
      document.title = std::to_string(draw(3));
      break;
    case 1:
      document.clues[key] = {std::to_string(draw(3)), "A"};
      break;
    case 2:
      document.clues.erase(key);
      break;
    case 3:
      document.pins.insert(key);
      break;
    case 4:
      document.At(first).solution = std::to_string(draw(3));
      break;
    default:
      document.At(first).barRight = !document.At(first).barRight;
  }
  return document;
}

}  // namespace

RC_GTEST_PROP(History, UndoAndRedoGoThroughTheSameDocuments, ()) {
  History history(Document(4, 4));
  std::vector<Document> all = {*history.Now()};
  std::size_t at = 0;
  for (int i = *rc::gen::inRange(1, 60); i > 0; --i) {
    switch (*rc::gen::inRange(0, 4)) {
      case 0:
        RC_ASSERT(history.Undo() == (at > 0));
        if (at > 0) --at;
        break;
      case 1:
        RC_ASSERT(history.Redo() == (at + 1 < all.size()));
        if (at + 1 < all.size()) ++at;
        break;
      default: {
        const Document after = Changed(*history.Now());
        history.Take("Step", after);
        if (after == all[at]) break;
        all.resize(++at);
        all.push_back(after);
      }
    }
    RC_ASSERT(*history.Now() == all[at]);
  }
}

TEST(History, NamesTheStepsAndDropsWhatWasUndone) {
  History history(Titled("a"));
  EXPECT_EQ(history.UndoCaption(), "");
  history.Take("Same", Titled("a"));
  EXPECT_EQ(history.UndoCaption(), "") << "nothing has changed";
  history.Take("One", Titled("b"));
  history.Take("Two", Titled("c"));
  EXPECT_EQ(history.UndoCaption(), "Two");
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(history.UndoCaption(), "One");
  EXPECT_EQ(history.RedoCaption(), "Two");
  history.Take("Three", Titled("d"));
  EXPECT_EQ(history.RedoCaption(), "");
  EXPECT_FALSE(history.Redo());
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(history.Now()->title, "b");
}

TEST(History, WhatIsTypedInOneGoIsOneStep) {
  History history(Titled(""));
  history.Take("Title", Titled("a"), true);
  history.Take("Title", Titled("ab"), true);
  history.Undo();
  EXPECT_EQ(history.Now()->title, "");
  history.Redo();
  history.Take("Title", Titled("abc"), true);
  history.Undo();
  EXPECT_EQ(history.Now()->title, "ab") << "a redo came between";
  history.Take("Title", Titled("abx"), true);
  history.NoteSaved("x.kdp");
  history.Take("Title", Titled("abxy"), true);
  history.Undo();
  EXPECT_EQ(history.Now()->title, "abx") << "saving came between";
  history.Take("Title", Titled("z"), true);
  history.Take("Title", Titled("abx"), true);
  EXPECT_EQ(history.UndoCaption(), "Title");
  history.Undo();
  EXPECT_EQ(history.Now()->title, "ab") << "typed and taken back is no step";
}

TEST(History, KnowsWhatIsSavedAndInWhichFile) {
  const auto saved = [](const History& history) {
    return history.IsSaved(*history.Now());
  };
  History history(Titled("new"));
  EXPECT_TRUE(saved(history));
  history.Take("Title", Titled("a"));
  EXPECT_FALSE(saved(history));
  history.NoteSaved("a.kdp");
  history.Take("Title", Titled("a2"));
  history.Replace("Load", Titled("b"), "b.kdp");
  history.NoteSaved("b.kdp");
  EXPECT_TRUE(saved(history));
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(history.File(), "a.kdp");
  EXPECT_FALSE(saved(history)) << "a2 was not saved";
  history.Undo();
  EXPECT_TRUE(saved(history));
  history.Undo();
  EXPECT_EQ(history.File(), "a.kdp") << "the same puzzle, before it was named";
  EXPECT_FALSE(saved(history));
  while (history.Redo()) continue;
  EXPECT_EQ(history.File(), "b.kdp");
  EXPECT_TRUE(saved(history));
}

TEST(History, HoldsAThousandSteps) {
  History history(Titled("0"));
  const int more = static_cast<int>(History::kMostSteps) + 5;
  for (int i = 1; i <= more; ++i)
    history.Take("Step", Titled(std::to_string(i)));
  std::size_t undone = 0;
  while (history.Undo()) ++undone;
  EXPECT_EQ(undone, History::kMostSteps);
  EXPECT_EQ(history.Now()->title, "5");
}
