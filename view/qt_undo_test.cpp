// Undo through the window.

#include <QMenu>

#include "tests/qt_window_desk.h"

namespace {

QString TextOf(WindowDesk& desk, const char* item) {
  return desk.Find<QAction>(item)->text().remove('&').section('\t', 0, 0);
}

void PressKeys(WindowDesk& desk, QWidget* widget, int key,
               Qt::KeyboardModifiers modifiers) {
  desk.window->activateWindow();
  (void)QTest::qWaitForWindowActive(desk.window.get());
  QTest::keyClick(widget, Qt::Key(key), modifiers);
}

}  // namespace

TEST(UndoInTheWindow, TheMenuNamesTheStepAndIsGreyWithoutOne) {
  WindowDesk desk;
  EXPECT_EQ(TextOf(desk, "undox"), "Undo");
  EXPECT_FALSE(desk.Find<QAction>("undox")->isEnabled());
  desk.Press("Command2");
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  EXPECT_EQ(TextOf(desk, "undox"), "Undo Black Squares");
  desk.Choose("undox");
  EXPECT_EQ(desk.PixelOf(1, 2), qRgb(255, 255, 255));
  EXPECT_EQ(desk.Find<QLineEdit>("Text2")->text(), " 0");
  EXPECT_FALSE(desk.window->isWindowModified());
  EXPECT_FALSE(desk.Find<QAction>("undox")->isEnabled());
  EXPECT_EQ(TextOf(desk, "redox"), "Redo Black Squares");
  desk.Choose("redox");
  EXPECT_EQ(desk.PixelOf(1, 2), qRgb(20, 20, 20));
  EXPECT_TRUE(desk.window->isWindowModified());
  // The required menu stands first, as it is.
  EXPECT_EQ(desk.Find<QMenu>("kdpx")->actions().first()->objectName(), "loadx");
  EXPECT_TRUE(desk.Find<QMenu>("editx")->title().contains("Edit"));
}

TEST(UndoInTheWindow, KeysInATextBoxUndoThePuzzle) {
  WindowDesk desk;
  desk.Press("Command2");
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  desk.Type("Text5", "Monday");
  auto* title = desk.Find<QLineEdit>("Text5");
  PressKeys(desk, title, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(title->text(), "New Puzzle") << "what was typed is one step";
  PressKeys(desk, title, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(desk.app.state.IsBlack({1, 2}));
  PressKeys(desk, title, Qt::Key_Y, Qt::ControlModifier);
  PressKeys(desk, title, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(title->text(), "Monday");
}
