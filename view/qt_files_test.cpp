// Files and recovery through the window.

#include <sys/stat.h>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <fstream>

#include "files/format.h"
#include "tests/qt_window_desk.h"
#include "view/unsaved.h"

namespace {

std::string Saved(WindowDesk& desk, const char* name) {
  const std::string path = desk.Folder() + "/" + name;
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

TEST(Files, AnUnsavedPuzzleIsKeptAndOffered) {
  QTemporaryDir folder;
  const std::string kept = folder.filePath("state").toStdString();
  WindowDesk desk;
  desk.Press("Command2");
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  {
    Recovery ended(kept);
    ended.Write(WorkText(desk.app.state), "/tmp/x.kdp");
    // While it runs, its copy is its own.
    EXPECT_TRUE(Recovery(kept).FindAbandoned().empty());
  }
  std::vector<AbandonedCopy> found = Recovery(kept).FindAbandoned();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].puzzlePath, "/tmp/x.kdp");
  EXPECT_EQ(found[0].puzzle.cells[0], " .             ");
  // Nor do two programs that start take the same one.
  EXPECT_TRUE(Recovery(kept).FindAbandoned().empty());
}

TEST(Files, RecoveryIsOfferedInTheWindow) {
  WindowDesk desk;
  {
    Recovery ended(desk.Folder() + "/state");
    ended.Write("Old\r\n#....\r\n.....\r\n.....\r\n.....\r\n....#\r\n", "");
  }
  desk.answers = {"Recover"};
  desk.window->Start("");
  QTest::qWait(50);
  ASSERT_EQ(desk.boxes.size(), 1u);
  EXPECT_EQ(desk.app.state.Text5, "Old");
  EXPECT_TRUE(desk.window->isWindowModified());
  // Its own copy is there now in place of the old one.
  EXPECT_EQ(QDir(QString::fromStdString(desk.Folder() + "/state"))
                .entryList({"*.kdp"})
                .size(),
            1);
}

TEST(Files, ADamagedCopyPreventsNothing) {
  QTemporaryDir folder;
  QFile damaged(folder.filePath("1.kdp"));
  ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
  damaged.write(QByteArray(3, '\0'));
  damaged.close();
  const std::string path = folder.path().toStdString();
  EXPECT_TRUE(Recovery(path).FindAbandoned().empty());
  EXPECT_TRUE(QFile::exists(folder.filePath("1.kdp.damaged")));
  EXPECT_TRUE(Recovery("/nowhere/at/all").FindAbandoned().empty());
}

}  // namespace
