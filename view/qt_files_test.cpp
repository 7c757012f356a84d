// Files and recovery through the window.

#include <sys/stat.h>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <fstream>

#include "files/format.h"
#include "tests/qt_window_desk.h"

namespace {

std::string Saved(WindowDesk& desk, const char* name) {
  std::string path = desk.Folder() + "/" + name;
  desk.Press("Command2");
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  desk.app.state.PuzzleFileName = path;
  desk.answers = {"Yes"};
  desk.Choose("Savey");
  return path;
}

TEST(Files, UpdateSavesAndTheTitleBarTellsChanges) {
  WindowDesk desk;
  const std::string path = Saved(desk, "a.kdp");
  EXPECT_EQ(desk.boxes.back(), "Update " + path + " ?");
  EXPECT_EQ(QFileInfo(QString::fromStdString(path)).size(), 12 + 15 * 17);
  EXPECT_FALSE(desk.window->isWindowModified());
  desk.ClickCell(2, 2, Qt::ShiftModifier);
  EXPECT_TRUE(desk.window->isWindowModified());
  desk.ClickCell(2, 2, Qt::ShiftModifier);
  EXPECT_FALSE(desk.window->isWindowModified());
}

TEST(Files, OpensAFileNamedAtTheStart) {
  std::string path;
  QTemporaryDir folder;
  {
    WindowDesk desk;
    const auto saved = QString::fromStdString(Saved(desk, "a.kdp"));
    path = folder.filePath("b.kdp").toStdString();
    QFile::copy(saved, QString::fromStdString(path));
  }
  WindowDesk desk;
  desk.window->Start(path);
  EXPECT_TRUE(desk.app.state.IsBlack({1, 2}));
  EXPECT_EQ(desk.window->windowTitle().toStdString(),
            "Puzzle File: " + path + "[*]");
  EXPECT_FALSE(desk.window->isWindowModified());
}

// Drops files, or a text, on the window and waits until it is dealt with.
void Drop(WindowDesk& desk, const QList<QUrl>& urls) {
  QMimeData data;
  data.setText("text");
  if (!urls.isEmpty()) data.setUrls(urls);
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(desk.window.get(), &enter);
  EXPECT_EQ(enter.isAccepted(), !urls.isEmpty());
  QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(desk.window.get(), &drop);
  QTest::qWait(20);
}

TEST(Files, OpensTheFirstOfTheFilesThatAreDropped) {
  WindowDesk desk;
  Document document(5, 5);
  document.title = "Dropped";
  const QString path = QString::fromStdString(desk.Folder()) + "/a.ipuz";
  std::ofstream(path.toStdString()) << FindFormat("ipuz")->Write(document);
  const QString title = desk.Find<QLineEdit>("Text5")->text();
  Drop(desk, {});
  Drop(desk, {QUrl("http://example.invalid/a.ipuz")});
  EXPECT_EQ(desk.Find<QLineEdit>("Text5")->text(), title);
  Drop(desk, {QUrl::fromLocalFile(path), QUrl::fromLocalFile("/none")});
  EXPECT_EQ(desk.Find<QLineEdit>("Text5")->text(), "Dropped");
  EXPECT_TRUE(desk.boxes.empty());
}

// Each would be waited for for ever, or never end.
TEST(Files, WhatIsNoRegularFileIsRefusedAtOnce) {
  WindowDesk desk;
  const std::string pipe = desk.Folder() + "/pipe.kdp";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path :
       {pipe, desk.Folder(), std::string("/dev/zero")}) {
    desk.window->Start(path);
    EXPECT_TRUE(desk.boxes.back().starts_with("error loading: " + path));
    EXPECT_EQ(desk.window->windowTitle(), "Kelda[*]");
  }
}

TEST(Files, CancelKeepsThePuzzleWhenQuitting) {
  WindowDesk desk;
  desk.Press("Command2");
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  desk.answers = {"Cancel"};
  desk.Choose("exitx");
  EXPECT_TRUE(desk.window->isVisible());
  EXPECT_TRUE(desk.app.state.IsBlack({1, 2}));
}

// A puzzle with bars and clues, which the window cannot edit.
Document Barred() {
  Document document(5, 5);
  document.title = "Barred <b>";
  document.At({1, 2}).barRight = document.At({2, 2}).circled = true;
  document.clues[{Direction::Across, {1, 3}}] = {"Three cells", ""};
  return document;
}

std::vector<std::string> CopiesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const QString& name : QDir(QString::fromStdString(folder))
                                 .entryList({"*.ipuz", "*.kdp"}, QDir::Files))
    names.push_back(name.toStdString());
  return names;
}

// What a program left that was killed while it showed a puzzle.
void LeaveCopy(const WindowDesk& killed, const WindowDesk& next) {
  killed.host.keepWork();
  const std::string from = killed.Folder() + "/state";
  ASSERT_EQ(CopiesIn(from).size(), 1u);
  QDir().mkpath(QString::fromStdString(next.Folder() + "/state"));
  QFile::copy(QString::fromStdString(from + "/" + CopiesIn(from)[0]),
              QString::fromStdString(next.Folder() + "/state/1-2-0.ipuz"));
  EXPECT_TRUE(Recovery(from).FindAbandoned().empty()) << "it runs";
}

TEST(Files, APuzzleWithBarsAndCluesIsKeptAndRecovered) {
  Document barred = Barred();
  WindowDesk next;
  {
    WindowDesk killed;
    const std::string path = killed.Folder() + "/barred.ipuz";
    std::ofstream(path) << FindFormat("ipuz")->Write(barred);
    killed.window->Start(path);
    killed.host.keepWork();
    EXPECT_TRUE(CopiesIn(killed.Folder() + "/state").empty())
        << "all of it is in its file";
    killed.Type("Text5", "Changed");
    LeaveCopy(killed, next);
  }
  barred.title = "Changed";
  next.answers = {"Recover"};
  next.window->Start("");
  QTest::qWait(50);
  ASSERT_EQ(next.boxes.size(), 1u);
  EXPECT_NE(next.boxes[0].find("\"Changed\""), std::string::npos);
  EXPECT_TRUE(*next.app.history.Now() == barred);
  EXPECT_TRUE(next.Find<QLabel>("WhyNotClassic")
                  ->text()
                  .startsWith("This window cannot edit the grid: it has "));
  EXPECT_FALSE(next.Find<QWidget>("Command2")->isEnabled());
  EXPECT_TRUE(next.window->isWindowModified());
  // Its own copy is there now in place of the old one.
  const std::vector<std::string> copies = CopiesIn(next.Folder() + "/state");
  ASSERT_EQ(copies.size(), 1u);
  EXPECT_NE(copies[0], "1-2-0.ipuz");
  next.Choose("undox");
  EXPECT_EQ(next.app.state.Text5, "New Puzzle") << "a recovery is a step";
}

TEST(Files, ACopyBelongsToItsPuzzlesFile) {
  WindowDesk next;
  std::string path;
  {
    WindowDesk killed;
    path = Saved(killed, "a.kdp");
    killed.ClickCell(3, 4, Qt::ShiftModifier);
    killed.app.state.PuzzleFileName = "/b.kdp";  // as while that is loaded
    killed.host.keepWork();
    EXPECT_TRUE(CopiesIn(killed.Folder() + "/state").empty());
    killed.app.state.PuzzleFileName = path;
    LeaveCopy(killed, next);
  }
  next.answers = {"Recover"};
  next.window->Start("");
  QTest::qWait(50);
  EXPECT_EQ(next.app.history.File(), path);
  EXPECT_TRUE(next.app.state.IsBlack({1, 2}));
  EXPECT_TRUE(next.app.state.IsBlack({3, 4}));
  EXPECT_TRUE(next.app.history.Now()->extras.empty());
}

TEST(Files, ACopyOfAnOlderVersionIsOffered) {
  WindowDesk desk;
  QDir().mkpath(QString::fromStdString(desk.Folder() + "/state"));
  std::ofstream(desk.Folder() + "/state/1-2-0.kdp")
      << "Old\r\n#....\r\n.....\r\n.....\r\n.....\r\n....#\r\n";
  desk.answers = {"Recover"};
  desk.window->Start("");
  QTest::qWait(50);
  ASSERT_EQ(desk.boxes.size(), 1u);
  EXPECT_EQ(desk.app.state.Text5, "Old");
  EXPECT_TRUE(desk.app.state.IsBlack({5, 5}));
  EXPECT_TRUE(desk.window->isWindowModified());
  const std::vector<std::string> copies = CopiesIn(desk.Folder() + "/state");
  ASSERT_EQ(copies.size(), 1u);
  EXPECT_TRUE(copies[0].ends_with(".ipuz"));
}

}  // namespace
