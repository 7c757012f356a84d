// The controls and small windows by themselves.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>

#include "controls/about_window.h"
#include "controls/file_dialog.h"
#include "controls/help_window.h"
#include "controls/progress_bar.h"
#include "tests/paths.h"

namespace {

TEST(ProgressBar, IsAsWideAsItsShare) {
  ProgBar bar;
  bar.resize(200, 20);
  bar.show();
  bar.SetMax(20000);
  bar.SetValue(10000);
  EXPECT_EQ(bar.BarWidth(), 100);
  bar.resize(300, 20);
  EXPECT_EQ(bar.BarWidth(), 150);
  bar.SetMax(0);
  bar.SetValue(5);
  EXPECT_EQ(bar.BarWidth(), 150);
  bar.SetMax(10);
  bar.SetValue(20);
  EXPECT_EQ(bar.BarWidth(), 600);
  bar.SetBarColor(Qt::red);
  EXPECT_EQ(bar.grab().toImage().pixelColor(298, 10), QColor(Qt::red));
}

TEST(FileDialog, SavesWithItsExtension) {
  const struct {
    const char *name, *types, *saved;
  } cases[] = {
      {"/a/grid", "*.bmp", "/a/grid.bmp"},
      {"/a/grid.BMP", "*.bmp", "/a/grid.bmp"},
      {"/a/grid.old.txt", "*.bmp", "/a/grid.old.bmp"},
      {"/a/grid.bmp", "*.bmp", "/a/grid.bmp"},
      {"/a/grid.kdpx", "*.kdp", "/a/grid.kdpx"},
      {"/a.b/grid", "*.kdp", "/a.b/grid.kdp"},
      {"/a/w", "*.txt;*.dic;*.dat", "/a/w.txt"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(FNDialog::WithExtension(c.name, c.types), c.saved) << c.name;
}

// Clicks the link to an address, where the page shows it.
void ClickLink(QTextBrowser* page, const QString& address) {
  const QRect view = page->viewport()->rect();
  for (int y = 0; y < view.height(); y += 4) {
    for (int x = 0; x < view.width(); x += 4) {
      if (page->anchorAt({x, y}) != address) continue;
      QTest::mouseMove(page->viewport(), {x, y});
      QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, {x, y});
      return;
    }
  }
  FAIL() << "no link to " << address.toStdString();
}

TEST(HelpWindow, LinksBackAndForwardStayOnThePage) {
  HelpForm form;
  form.ShowPage(QString::fromStdString(SourcePath("data/kdpuzzle.htm")));
  auto* page = form.findChild<QTextBrowser*>("WebBrowser1");
  const auto press = [&](const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(name), Qt::LeftButton);
  };
  const auto key = [&](int key) {
    QTest::keyClick(page, Qt::Key(key), Qt::AltModifier);
  };
  const auto isAt = [&](const char* place) {
    return page->source().toString().endsWith(place);
  };
  (void)QTest::qWaitForWindowActive(&form);
  press("Command1");
  key(Qt::Key_Left);
  EXPECT_TRUE(isAt("kdpuzzle.htm"));
  ClickLink(page, "#draw");
  EXPECT_TRUE(isAt("#draw"));
  EXPECT_GT(page->verticalScrollBar()->value(), 0);
  page->verticalScrollBar()->setValue(0);
  ClickLink(page, "#fill");
  press("Command1");
  EXPECT_TRUE(isAt("#draw"));
  press("Command2");
  EXPECT_TRUE(isAt("#fill"));
  key(Qt::Key_Left);
  EXPECT_TRUE(isAt("#draw"));
  key(Qt::Key_Right);
  EXPECT_TRUE(isAt("#fill"));
  emit page->anchorClicked(QUrl("file:///etc/hosts"));
  EXPECT_TRUE(isAt("#fill"));
  press("Command3");
  EXPECT_FALSE(form.isVisible());
}

TEST(HelpWindow, EveryLinkOfThePageLeadsSomewhere) {
  QFile file(QString::fromStdString(SourcePath("data/kdpuzzle.htm")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = file.readAll();
  const QRegularExpression link("href=\"#([^\"]+)\"");
  int links = 0;
  for (auto found = link.globalMatch(text); found.hasNext(); ++links) {
    const QString name = found.next().captured(1);
    EXPECT_TRUE(text.contains("<a name=\"" + name + "\""))
        << name.toStdString();
  }
  EXPECT_GT(links, 5);
  const QRegularExpression picture("src=\"([^\"]+)\"");
  for (auto found = picture.globalMatch(text); found.hasNext();) {
    const QString name = found.next().captured(1);
    EXPECT_TRUE(QFile::exists(QFileInfo(file).path() + "/" + name))
        << name.toStdString();
  }
}

TEST(AboutWindow, SaysWhatItIsForAndGoesWithEscape) {
  auto* form = new AboutForm("Write to us", "1.0");
  form->show();
  EXPECT_EQ(form->findChild<QLabel*>("AboutKelda")->text(),
            "\n\nPurpose of this program is to\nassist in making CrossWord "
            "Puzzles. \nWrite to us");
  EXPECT_EQ(form->findChild<QLabel*>("Label1")->text(), "Version 1.0");
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_FALSE(form->isVisible());
  delete form;
}

}  // namespace
