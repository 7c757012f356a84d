#include "view/unsaved.h"

#include <gtest/gtest.h>

#include "files/puzzle_file.h"
#include "tests/fake_program.h"

namespace {

// A program whose puzzle was saved to a file.
struct SavedProgram : Program {
  TestFolder folder;
  std::string path = folder.Path("a.kdp");

  SavedProgram() {
    Press("Command2");
    host.script = {{"Select a file to save solution", path}};
    Press("savex");
    host.told.clear();
  }
};

}  // namespace

TEST(Unsaved, APuzzleWhoseFileVanishedIsUnsaved) {
  SavedProgram program;
  EXPECT_FALSE(HasUnsavedWork(program.app));
  std::filesystem::remove(program.path);
  EXPECT_TRUE(HasUnsavedWork(program.app));
  program.host.script = {{"Update ", "yes"},
                         {"Another program has removed ", "yes"}};
  program.Press("Savey");
  EXPECT_FALSE(HasUnsavedWork(program.app));
  EXPECT_TRUE(std::filesystem::exists(program.path));
}

TEST(Unsaved, AnotherProgramsChangeIsNotLostUnasked) {
  SavedProgram program;
  const std::string theirs = "Theirs\r\n...\r\n...\r\n...\r\n";
  program.folder.Write("a.kdp", theirs);
  const auto update = [&](const char* answer) {
    program.host.script = {{"Update ", "yes"},
                           {"Another program has changed ", answer}};
    program.Press("Savey");
    EXPECT_TRUE(program.host.script.empty());
    return program.folder.Read("a.kdp");
  };
  EXPECT_EQ(update("no"), theirs);
  EXPECT_EQ(update("yes"), PuzzleText(program.app.state));
  // What was saved now is known.
  program.host.script = {{"Update ", "yes"}};
  program.Press("Savey");
}

TEST(Unsaved, ASaveThatFailsIsToldAndThePuzzleStaysUnsaved) {
  SavedProgram program;
  program.app.state.Grid[{1, 1}] = 'A';
  const std::string nowhere = program.folder.Path("tpyo/a.kdp");
  program.host.script = {{"Select a file to save solution", nowhere}};
  program.Press("savex");
  EXPECT_EQ(program.host.told.back(),
            nowhere + ": cannot be written: there is no such folder");
  EXPECT_EQ(program.app.state.PuzzleFileName, program.path);
  EXPECT_TRUE(HasUnsavedWork(program.app));
  std::filesystem::remove(program.path);
  std::filesystem::create_directory(program.path);
  program.host.script = {{"Update ", "yes"},
                         {"Another program has changed ", "yes"}};
  program.Press("Savey");
  EXPECT_EQ(program.host.told.back(),
            program.path + ": cannot be written: Is a directory");
  EXPECT_TRUE(HasUnsavedWork(program.app));
}
