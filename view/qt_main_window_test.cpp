// The main window through its widgets.

#include <QAccessible>
#include <QListView>
#include <QMenu>
#include <fstream>
#include <map>

#include "files/puzzle_file.h"
#include "grid/choose_dictionary.h"
#include "grid/drawing.h"
#include "grid/events.h"
#include "tests/qt_window_desk.h"

namespace {

// Draws a 5 x 5 grid whose middle cell is black.
void DrawSmall(WindowDesk& desk) {
  desk.Type("Text3", "5");
  desk.Press("Command2");
  desk.ClickCell(3, 3, Qt::ShiftModifier);
}

TEST(MainWindow, OpensAsItShould) {
  WindowDesk desk;
  EXPECT_EQ(desk.window->size(), QSize(756, 700));
  EXPECT_EQ(desk.window->windowTitle(), "Kelda[*]");
  EXPECT_EQ(desk.Find<QLineEdit>("Text5")->text(), "New Puzzle");
  EXPECT_EQ(desk.Find<QLineEdit>("Text3")->text(), "15");
  EXPECT_EQ(desk.Find<QLabel>("Label3")->text(), "L2Ascii.txt");
  EXPECT_EQ(desk.Find<QWidget>("Picture1")->width(), (15 * 420 + 100) / 15 + 1);
  EXPECT_FALSE(desk.Find<QWidget>("SolutionFrame")->isEnabled());
  EXPECT_FALSE(desk.Find<QWidget>("DedugFrames")->isVisible());
  desk.Press("Command2");
  EXPECT_TRUE(desk.Find<QWidget>("SolutionFrame")->isEnabled());
  EXPECT_TRUE(desk.boxes.empty());
}

TEST(MainWindow, EveryButtonAndItemHasItsRow) {
  WindowDesk desk;
  for (const Command& row : AllCommands()) {
    const QString name =
        QString::fromUtf8(row.control.data(), int(row.control.size()));
    if (name == "Command5(1)") continue;  // the right button of Command5
    QObject* control = desk.window->findChild<QObject*>(name);
    ASSERT_NE(control, nullptr) << row.control;
    const QString caption = control->property("text").toString().remove('&');
    EXPECT_EQ(caption.section('\t', 0, 0).toStdString(), row.caption);
    EXPECT_TRUE(row.toolTip.empty() ||
                control->property("toolTip").toString().toStdString() ==
                    row.toolTip);
  }
}

TEST(MainWindow, EveryControlCanBeReachedAndIsNamed) {
  WindowDesk desk;
  desk.Press("Command2");
  int reached = 0;
  QWidget* first = desk.Find<QWidget>("Text5");
  QWidget* widget = first;
  do {
    if (widget->isVisible() && widget->focusPolicy() & Qt::TabFocus &&
        !widget->objectName().startsWith("qt_")) {
      ++reached;
      EXPECT_FALSE(widget->accessibleName().isEmpty())
          << widget->objectName().toStdString();
    }
    widget = widget->nextInFocusChain();
  } while (widget != first);
  EXPECT_GE(reached, 16);
}

TEST(MainWindow, EachMnemonicWorksOneControl) {
  WindowDesk desk;
  std::map<QString, QString> owners;
  for (QWidget* widget : desk.window->findChildren<QWidget*>()) {
    const QString text = widget->property("text").toString();
    const auto at = text.indexOf('&');
    if (at < 0) continue;
    const QString letter = text.mid(at + 1, 1).toUpper();
    EXPECT_TRUE(owners.emplace(letter, text).second)
        << text.toStdString() << " and " << owners[letter].toStdString();
  }
  EXPECT_EQ(owners.count("K"), 0u) << "K opens the menu";
  EXPECT_GE(owners.size(), 16u);
}

TEST(MainWindow, SizeBoxMakesSizesOddAndDrawKeepsThemInRange) {
  WindowDesk desk;
  desk.Type("Text3", "12");
  EXPECT_EQ(desk.app.state.GridSize, 12);
  desk.Press("Command2");
  EXPECT_EQ(desk.Find<QLineEdit>("Text3")->text(), "13");
  EXPECT_EQ(desk.app.state.paint.width, 13);
  desk.Type("Text3", "53");
  desk.Press("Command2");
  EXPECT_EQ(desk.Find<QLineEdit>("Text3")->text(), "13");
}

TEST(MainWindow, EveryCellOfALargeGridCanBeScrolledTo) {
  WindowDesk desk;
  desk.Type("Text3", "51");
  desk.Press("Command2");
  auto* bar = desk.Find<QScrollBar>("VScroll1");
  auto* frame = desk.Find<QWidget>("Picture2");
  auto* grid = desk.Find<QWidget>("Picture1");
  bar->setValue(bar->maximum());
  EXPECT_LE(grid->y() + grid->height(), frame->height() + 1);
  EXPECT_EQ(desk.app.state.VScroll1.Value, bar->maximum());
  desk.Type("Text3", "21");
  desk.Press("Command2");
  EXPECT_EQ(bar->value(), 0);
  EXPECT_EQ(bar->maximum(), 0);
}

TEST(MainWindow, TwentyOneCellsAreSeenWithoutScrolling) {
  const struct {
    const char* size;
    int range;
  } cases[] = {{"21", 0}, {"23", 840}, {"25", 1680}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.size);
    WindowDesk desk;
    desk.Type("Text3", c.size);
    desk.Press("Command2");
    FitGridView(desk.app.state);
    desk.window->ShowState();
    for (const char* name : {"HScroll1", "VScroll1"}) {
      auto* bar = desk.Find<QScrollBar>(name);
      EXPECT_EQ(bar->maximum(), c.range) << name;
      EXPECT_EQ(bar->isEnabled(), c.range > 0) << name;
    }
  }
}

TEST(MainWindow, TabLandsOnTheMarkedDictionary) {
  WindowDesk desk;
  auto* button = desk.Find<QWidget>("Command7");
  const auto afterTab = [&] {
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Tab);
    return desk.window->focusWidget()->objectName();
  };
  desk.Press("Command2");
  EXPECT_EQ(afterTab(), "DictOpt(1)");
  desk.app.state.DictOpt = 2;
  desk.window->ShowState();
  EXPECT_EQ(afterTab(), "DictOpt(2)");
}

TEST(MainWindow, ShiftClickTogglesAPairAndShowsIt) {
  WindowDesk desk;
  desk.Press("Command2");
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  EXPECT_EQ(desk.PixelOf(1, 2), qRgb(20, 20, 20));
  EXPECT_EQ(desk.PixelOf(15, 14), qRgb(20, 20, 20));
  EXPECT_EQ(desk.Find<QLineEdit>("Text2")->text(), " 2");
  EXPECT_TRUE(desk.window->isWindowModified());
  desk.ClickCell(15, 14, Qt::ShiftModifier);
  EXPECT_EQ(desk.PixelOf(1, 2), qRgb(255, 255, 255));
  desk.ClickCell(1, 2, Qt::ShiftModifier | Qt::AltModifier);
  EXPECT_EQ(desk.Find<QLineEdit>("Text2")->text(), " 0");
}

TEST(MainWindow, NumbersDoNotShineThroughBlackCells) {
  WindowDesk desk;
  DrawSmall(desk);
  desk.Press("Command22");  // numbers the slots
  ASSERT_EQ((desk.app.state.paint[{1, 1}].number), 1);
  desk.ClickCell(1, 1, Qt::ShiftModifier);
  const QImage shown = desk.Find<QWidget>("Picture1")->grab().toImage();
  for (int y = 3; y < 29; ++y)
    for (int x = 3; x < 29; ++x)
      ASSERT_EQ(shown.pixel(x, y), qRgb(20, 20, 20)) << x << ", " << y;
}

TEST(MainWindow, WordsAreShownAndReplaced) {
  WindowDesk desk;
  DrawSmall(desk);
  desk.Press("Command22");  // numbers the slots
  for (int k = 1; k <= 5; ++k) desk.app.state.Grid[{1, k}] = "HOUSE"[k - 1];
  desk.ClickCell(1, 1);
  EXPECT_EQ(desk.Find<QLineEdit>("Text4")->text(), "HOUSE");
  desk.ClickCell(1, 1, {}, Qt::RightButton);
  EXPECT_EQ(desk.Find<QLineEdit>("Text4")->text(), "");
  desk.answers = {"=do", "=m0use", "=mouse"};
  desk.ClickCell(1, 1, Qt::ControlModifier);
  EXPECT_EQ(desk.boxes, (std::vector<std::string>(3, "Enter Word 1A")));
  EXPECT_EQ((desk.app.state.Grid[{1, 1}]), 'M');
  EXPECT_EQ((desk.app.state.paint[{1, 1}].text), "M");
}

TEST(MainWindow, GridCanBeEditedByKeyboard) {
  WindowDesk desk;
  desk.Press("Command2");
  auto* grid = desk.Find<QWidget>("Picture1");
  grid->setFocus(Qt::TabFocusReason);
  QTest::keyClick(grid, Qt::Key_Right);
  QTest::keyClick(grid, Qt::Key_Down);
  QTest::keyClick(grid, Qt::Key_Space);
  EXPECT_TRUE(desk.app.state.IsBlack({2, 2}));
  EXPECT_TRUE(desk.app.state.IsBlack({14, 14}));
  QTest::keyClick(grid, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(grid, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(desk.boxes.size(), 1u);  // the prompt, cancelled
  EXPECT_EQ(desk.app.state.CurrentRow, 15);
}

TEST(MainWindow, ATitleTakesEveryLetter) {
  WindowDesk desk;
  auto* title = desk.Find<QLineEdit>("Text5");
  title->selectAll();
  const auto type = [&](const QString& text) {
    for (const QChar c : text) {
      QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, c);
      QApplication::sendEvent(title, &key);
    }
  };
  type("Caf\u00e9");
  EXPECT_EQ(desk.app.state.Text5, "Caf\xe9") << "as older files have it";
  type(" \u201cx\u201d \u03a9");
  EXPECT_EQ(title->text(), "Caf\u00e9 \u201cx\u201d \u03a9");
  EXPECT_EQ(desk.app.state.Text5, "Caf\u00e9 \u201cx\u201d \u03a9");
  // What would read as other letters is UTF-8 as well.
  title->selectAll();
  type("\u00c3\u00a9");
  EXPECT_EQ(desk.app.state.Text5, "\u00c3\u00a9");
  EXPECT_EQ(title->text(), "\u00c3\u00a9");
}

TEST(MainWindow, RefusalsAndLookUpsAreTold) {
  WindowDesk desk;
  desk.Press("Command2");
  desk.Choose("solx(0)");
  desk.Type("Text4", "house");
  desk.Press("Command6");
  desk.Choose("Savey");
  ASSERT_EQ(desk.boxes.size(), 3u);
  EXPECT_EQ(desk.boxes[0], "Place black sqaures first");
  EXPECT_TRUE(desk.boxes[1].starts_with("HOUSE is word# "));
  EXPECT_EQ(desk.boxes[2], "No file name to save");
}

TEST(MainWindow, HaltStopsAFillAndNothingStartsTwice) {
  WindowDesk desk;
  desk.Type("Text3", "7");
  desk.Press("Command2");
  for (const Pos p : {Pos{2, 2}, {2, 4}, {2, 6}, {4, 2}, {4, 4}})
    desk.ClickCell(p.row, p.col, Qt::ShiftModifier);
  // Two words are too few for the eight slots, so the fill never ends.
  const std::string words = desk.Folder() + "/words.txt";
  std::ofstream(words) << "CHANCEL\nNOMADIC\n";
  ReadDictionary(desk.app.state, desk.app.words, desk.host, words);
  bool ran = false, refused = false;
  QTimer::singleShot(300, [&] {
    ran = desk.app.taskRuns;
    refused = !Do(desk.app, "Command2") &&
              !desk.Find<QAbstractButton>("Command20")->isEnabled();
    desk.Press("Command8");
  });
  auto* grid = desk.Find<QWidget>("Picture1");
  grid->setFocus();
  desk.answers = {"Ignore"};
  desk.Choose("solx(0)");
  EXPECT_TRUE(ran);
  EXPECT_TRUE(refused);
  EXPECT_FALSE(desk.app.taskRuns);
  EXPECT_TRUE(desk.Find<QWidget>("GridFrame")->isEnabled());
  EXPECT_EQ(desk.window->focusWidget(), grid);
}

// One cell of the grid as assistive technology sees it.
QString Told(QWidget* grid, int row, int col) {
  auto* table = QAccessible::queryAccessibleInterface(grid)->tableInterface();
  return table->cellAt(row - 1, col - 1)->text(QAccessible::Name);
}

TEST(MainWindow, ScreenReadersFindTheCellsOfTheGrid) {
  WindowDesk desk;
  DrawSmall(desk);
  desk.Press("Command22");  // numbers the slots
  auto* grid = desk.Find<GridView>("Picture1");
  auto* told = QAccessible::queryAccessibleInterface(grid);
  ASSERT_NE(told->tableInterface(), nullptr);
  EXPECT_EQ(told->childCount(), 25);
  EXPECT_EQ(Told(grid, 3, 3), "row 3, column 3: block");
  EXPECT_EQ(Told(grid, 1, 2), "row 1, column 2: empty, number 2");
  desk.app.state.Grid[{1, 2}] = 'Q';
  RedrawAllCells(desk.app.state);
  EXPECT_EQ(Told(grid, 1, 2), "row 1, column 2: Q, number 2");
  const QAccessibleInterface* block = told->child(12);
  EXPECT_EQ(told->indexOfChild(block), 12);
  EXPECT_EQ(
      told->childAt(block->rect().center().x(), block->rect().center().y()),
      block);
  grid->setFocus(Qt::TabFocusReason);
  QTest::keyClick(grid, Qt::Key_End, Qt::ControlModifier);
  const QAccessibleInterface* corner = told->child(24);
  EXPECT_EQ(told->focusChild(), corner);
  // The cells that a smaller grid has no more are gone, the cursor is not.
  desk.Type("Text3", "3");
  EXPECT_EQ(told->childCount(), 9);
  EXPECT_FALSE(corner->isValid());
  EXPECT_EQ(told->tableInterface()->cellAt(4, 4), nullptr);
  EXPECT_EQ(told->tableInterface()->selectedCells().value(0), told->child(8));
}

TEST(MainWindow, ClosingStopsTheTaskFirst) {
  WindowDesk desk;
  desk.Press("Command2");
  bool closedWhileRunning = true;
  // A task that only Halt ends.
  desk.answers = {"Discard"};
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  const Command waiting = {"waiting", "Wait", "", MayRun::WhenIdle,
                           [](App& app) {
                             while (!app.state.haltRequested)
                               AwaitHalt(app.state, app.host, "waiting");
                           }};
  QTimer::singleShot(20, desk.window.get(), [&] {
    desk.window->close();
    closedWhileRunning = !desk.window->isVisible();
  });
  Do(desk.app, waiting);
  EXPECT_FALSE(closedWhileRunning);
  desk.window->close();
  EXPECT_FALSE(desk.window->isVisible());
  ASSERT_EQ(desk.boxes.size(), 1u);
  EXPECT_EQ(desk.boxes[0],
            "Do you want to save the changes to \"New Puzzle\"?");
}

TEST(MainWindow, DebugPanelUnlocksOnceAndShowsLists) {
  WindowDesk desk;
  const auto f1 = [&] {
    desk.window->activateWindow();
    (void)QTest::qWaitForWindowActive(desk.window.get());
    QTest::keyClick(desk.window.get(), Qt::Key_F1);
  };
  desk.answers = {"=wrong", "=508tavel"};
  f1();
  EXPECT_FALSE(desk.app.state.DebugMode);
  f1();
  EXPECT_EQ(desk.boxes, (std::vector<std::string>(2, "enter code")));
  EXPECT_EQ(desk.window->width(), 1005);
  auto* list = desk.Find<QListView>("List2");
  EXPECT_EQ(list->model()->rowCount(), 26);
  EXPECT_EQ(list->model()->index(0, 0).data().toString().size(), 7);
  DrawSmall(desk);
  EXPECT_EQ(list->model()->index(0, 0).data().toString(), "02A 03,01=??");
  f1();
  f1();
  EXPECT_EQ(desk.boxes.size(), 2u);
  EXPECT_FALSE(desk.Find<QWidget>("DedugFrames")->isVisible());
  EXPECT_EQ(desk.window->width(), 756);
}

TEST(MainWindow, FillRunsToItsEnd) {
  WindowDesk desk;
  DrawSmall(desk);
  desk.answers = {"=99X"};
  desk.Choose("solx(1)");
  ASSERT_FALSE(desk.boxes.empty());
  EXPECT_TRUE(desk.boxes.back().starts_with("Words at cells highlighted"));
  EXPECT_EQ(desk.PixelOf(3, 1), qRgb(0, 0, 255));
}

}  // namespace
