#include "view/exchange.h"

#include <gtest/gtest.h>

#include "grid/bridge.h"
#include "tests/fake_program.h"
#include "view/unsaved.h"

namespace {

const char* const kImport = "Select a puzzle to import";
const char* const kExport = "Select a file to export to";
const char* const kSave = "Select a file to save solution";

// A puzzle that only an .ipuz holds whole.
Document Rich() {
  Document document(5, 5);
  document.title = "Rich";
  document.author = "A. Setter";
  for (int k = 0; k < 5; ++k)
    document.At({1, k + 1}).solution = std::string(1, "HOUSE"[k]);
  document.At({3, 3}).kind = Cell::Kind::Block;
  document.At({1, 1}).circled = true;
  document.clues[{Direction::Across, {1, 1}}] = {"Home", "HOUSE"};
  return document;
}

struct Exchanging : Program {
  TestFolder folder;

  std::string Write(const std::string& name, const Document& document) {
    return folder.Write(name, FormatOfName(name)->Write(document));
  }
  void Import(const std::string& path) {
    host.script = {{kImport, path}};
    Press("importx");
  }
  Document ReadBack(const std::string& path) {
    return ReadDocument(path).reading.document;
  }
  const Document& Now() const { return *app.history.Now(); }
};

}  // namespace

TEST(Exchange, WhatWasImportedIsExportedWholeAlsoAfterClassicEdits) {
  Exchanging program;
  const Document rich = program.ReadBack(program.Write("a.ipuz", Rich()));
  program.Import(program.folder.Path("a.ipuz"));
  EXPECT_TRUE(program.Now() == rich);
  EXPECT_EQ(program.app.state.Text5, "Rich");
  EXPECT_EQ(program.app.state.PuzzleFileName, "");
  EXPECT_FALSE(HasUnsavedWork(program.app));

  program.Click({2, 2}, kShift);
  const std::string out = program.folder.Path("b.ipuz");
  program.host.script = {{kExport, out}};
  program.Press("exportx");
  EXPECT_EQ(program.host.told.back(), "Exported to: " + out);
  EXPECT_FALSE(HasUnsavedWork(program.app)) << "all of it is in a file";
  Document expected = rich;
  for (const Pos p : {Pos{2, 2}, {4, 4}})
    expected.At(p).kind = Cell::Kind::Block;
  EXPECT_TRUE(program.ReadBack(out) == expected);
  program.Press("undox");
  program.Press("undox");
  EXPECT_EQ(program.app.state.Text5, "New Puzzle") << "an import is a step";
}

TEST(Exchange, NothingIsDroppedUnasked) {
  Exchanging program;
  program.Import(program.Write("a.ipuz", Rich()));
  const std::string kdp = program.folder.Path("a.kdp");
  program.host.script = {{"A file of the kind", "cancel"}};
  program.Press("savex");
  EXPECT_TRUE(program.host.script.empty());
  EXPECT_FALSE(std::filesystem::exists(kdp));

  const std::string whole = program.folder.Path("whole.ipuz");
  program.host.script = {{"A file of the kind", "export"}, {kExport, whole}};
  program.Press("savex");
  EXPECT_TRUE(program.ReadBack(whole) == program.Now());

  program.host.script = {{"A file of the kind", "write"}, {kSave, kdp}};
  program.Press("savex");
  EXPECT_EQ(program.folder.Read("a.kdp"),
            "Rich\r\nHOUSE\r\n.....\r\n..#..\r\n.....\r\n.....\r\n");
  program.host.script = {{"A file of the kind", "cancel"}};
  program.Press("Savey");
  EXPECT_TRUE(program.host.script.empty()) << "Update asks as well";
}

TEST(Exchange, APuzzleThatDoesNotFitIsShownAndLeftAlone) {
  Exchanging program;
  Document wide(7, 5);
  wide.title = "Wide";
  wide.At({1, 1}).solution = "HEART";
  program.Import(program.Write("wide.ipuz", wide));
  const Document shown = program.Now();
  EXPECT_EQ(shown.width, 7);
  EXPECT_EQ(program.app.state.paint.width, 7);
  EXPECT_EQ((program.app.state.paint[{1, 1}].text), "HEART");
  for (const char* control :
       {"Command2", "Command22", "blackrand", "black2x2", "Command19",
        "solx(0)", "Command18", "Picture1(shift)", "Text3"})
    EXPECT_FALSE(program.Press(control)) << control;
  EXPECT_TRUE(program.Now() == shown);
  EXPECT_EQ(WhyNot(program.app, CommandOf("Command2")),
            "This window cannot edit the grid: it is 7 x 5 cells, no odd "
            "square.");
  // No .kdp holds it, so only the way out is offered.
  program.host.script = {{"A file of the kind", "cancel"}};
  program.Press("savex");
  program.Press("Text5", {.text = "Wider"});
  EXPECT_EQ(program.Now().title, "Wider");
  program.Press("undox");
  program.Press("undox");
  program.Press("Command2");
  EXPECT_EQ(program.Now().width, 15);
  EXPECT_TRUE(program.app.state.Text3 == " 15" ||
              program.app.state.Text3 == "15");
}

TEST(Exchange, FilesAreOpenedByTheirContent) {
  Exchanging program;
  const std::string ipuz =
      program.folder.Write("a.dat", FindFormat("ipuz")->Write(Rich()));
  program.Press("open", {.text = ipuz});
  EXPECT_EQ(program.app.state.Text5, "Rich");
  EXPECT_EQ(program.app.state.PuzzleFileName, "");
  const std::string kdp =
      program.folder.Write("b.kdp", "B\r\n...\r\n.#.\r\n...\r\n");
  program.Press("open", {.text = kdp});
  EXPECT_EQ(program.app.state.PuzzleFileName, kdp);
  EXPECT_TRUE(program.Now().clues.empty()) << "those of the puzzle before";
  program.Press("open", {.text = program.folder.Write("c.ipuz", "{")});
  EXPECT_EQ(program.app.state.Text5, "B") << "as it was";
  EXPECT_FALSE(program.host.told.empty());
}
