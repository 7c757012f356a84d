// Texts from outside in the window: nothing in them is taken for a page, and
// however long they are the boxes fit the screen.

#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>
#include <fstream>

#include "controls/message_box.h"
#include "controls/plain_text.h"
#include "files/puzzle_file.h"
#include "tests/qt_window_desk.h"
#include "tests/watched_pipe.h"

namespace {

// Shows a widget's tool tip; its text.
QString Hover(QWidget* widget) {
  const QPoint place = widget->mapToGlobal(QPoint(3, 3));
  QHelpEvent event(QEvent::ToolTip, QPoint(3, 3), place);
  QApplication::sendEvent(widget, &event);
  EXPECT_TRUE(QToolTip::isVisible());
  for (QWidget* shown : QApplication::topLevelWidgets())
    if (shown->inherits("QTipLabel")) shown->grab();
  return QToolTip::text();
}

TEST(Texts, PuzzlesAndPathsOpenNothing) {
  WindowDesk desk;
  const QString before = QDir::currentPath();
  QDir::setCurrent(QString::fromStdString(desk.Folder()));
  const WatchedPipe pipe("p");
  const std::string hostile = "<img src=p>";
  std::ofstream puzzle("a.kdp");
  // In a grid the space is one that is no empty cell.
  puzzle << hostile << "\n<img\xA0src=p>\n";
  puzzle.close();
  ASSERT_TRUE(OpenPuzzle(desk.app.state, desk.host, "a.kdp"));
  desk.ClickCell(1, 1);
  EXPECT_TRUE(Qt::mightBeRichText(desk.Find<QLineEdit>("Text4")->text()));
  EXPECT_TRUE(Hover(desk.Find<QWidget>("Text4")).startsWith('<'));
  desk.app.state.Label3 = hostile + "/words.txt";
  desk.app.state.Label9 = desk.app.state.Label1 = hostile;
  desk.app.state.ProgBar.Caption = hostile;
  desk.app.state.Caption = "Puzzle File: " + hostile;
  desk.window->ShowState();
  Hover(desk.Find<QWidget>("Label3"));
  desk.window->grab();
  desk.host.Tell(hostile);
  desk.answers = {"=" + hostile};
  desk.host.AskText(hostile, hostile, hostile);
  {
    Recovery ended(desk.Folder() + "/state");
    Document document(3, 3);
    document.title = hostile;
    ended.Write(document, "/" + hostile + "/a.kdp");
  }
  desk.answers = {"Discard"};
  desk.window->Start("");
  QTest::qWait(50);
  EXPECT_EQ(desk.boxes.size(), 3u);
  EXPECT_FALSE(pipe.WasOpened());
  QDir::setCurrent(before);
}

TEST(Texts, ArePlain) {
  for (const char* text :
       {"<img src=x>", "a <b>b</b>", "a &lt; b", " <?xml version=\"1.0\"?><p>",
        "<!DOCTYPE html>", "<IMG\nSRC=x>", "\n<p>"}) {
    EXPECT_TRUE(Qt::mightBeRichText(text)) << text;
    for (const QString& plain : {Plain(text), PlainTip(text), PlainBrief(text)})
      EXPECT_FALSE(Qt::mightBeRichText(plain)) << text;
    EXPECT_EQ(Plain(text).remove(kJoiner), text);
  }
  for (const char* text : {"a < b", "R&D", "", "/tmp/a.kdp", "a\n<b>"})
    EXPECT_EQ(Plain(text), text);
  EXPECT_EQ(PlainTip(QString(9000, 'x')).count('\n'), 19);
}

TEST(Texts, BoxesFitTheScreenHoweverLongTheirTexts) {
  WindowDesk desk;
  const QSize screen = desk.window->screen()->availableSize();
  const QString longest[] = {
      QString(60000, 'W'), QString("WIDE ").repeated(12000),
      QString("line\n").repeated(12000), QString("<b>").repeated(20000)};
  for (const QString& text : longest) {
    const std::string told = text.toStdString();
    desk.sizes.clear();
    desk.host.Tell(told);
    desk.host.AskYesNo(told);
    desk.host.AskTries(told);
    desk.host.AskUnsaved(told);
    desk.host.ShowLogLine(told);
    desk.host.AskText(told, told, told);
    ASSERT_EQ(desk.sizes.size(), 6u);
    for (const QSize& size : desk.sizes) {
      EXPECT_LT(size.width(), screen.width());
      EXPECT_LT(size.height(), screen.height());
    }
    const MessageBox box(text);
    EXPECT_EQ(box.detailedText(), text + '\n');
  }
  EXPECT_EQ(MessageBox("short").detailedText(), "");
  // All of it can be seen.
  MessageBox box(longest[0]);
  box.SetSecondLine(longest[1]);
  box.show();
  for (QAbstractButton* button : box.buttons())
    if (button->text().startsWith("Show")) button->click();
  EXPECT_LT(box.width(), screen.width());
  EXPECT_LT(box.height(), screen.height());
}

TEST(Texts, EveryWindowAndTheGaugeAreTold) {
  WindowDesk desk;
  desk.Choose("helpx");
  desk.Choose("overviewx");
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible() || window->inherits("QTipLabel")) continue;
    auto* told = QAccessible::queryAccessibleInterface(window);
    EXPECT_FALSE(told->text(QAccessible::Name).isEmpty())
        << window->objectName().toStdString();
  }
  auto* gauge =
      QAccessible::queryAccessibleInterface(desk.Find<QWidget>("Shape1"));
  ASSERT_NE(gauge->valueInterface(), nullptr);
  desk.app.state.GaugeWidth = 300;
  desk.window->ShowState();
  EXPECT_EQ(gauge->valueInterface()->currentValue(), 20);
  EXPECT_EQ(gauge->valueInterface()->maximumValue(), 90);
  EXPECT_EQ(gauge->text(QAccessible::Name), "Difficulty");
}

}  // namespace
