// The controls and small windows by themselves.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include "controls/about_window.h"
#include "controls/file_dialog.h"
#include "controls/help_window.h"
#include "controls/lookup_window.h"
#include "controls/progress_bar.h"

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

TEST(HelpWindow, BackAndForwardStayOnThePage) {
  HelpForm form;
  form.ShowPage(KELDA_HELP_PAGE);
  auto* page = form.findChild<QTextBrowser*>("WebBrowser1");
  const auto press = [&](const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(name), Qt::LeftButton);
  };
  press("Command1");
  EXPECT_TRUE(page->source().toString().endsWith("kdpuzzle.htm"));
  emit page->anchorClicked(QUrl("#draw"));
  EXPECT_TRUE(page->source().toString().endsWith("#draw"));
  emit page->anchorClicked(QUrl("#fill"));
  press("Command1");
  EXPECT_TRUE(page->source().toString().endsWith("#draw"));
  press("Command2");
  EXPECT_TRUE(page->source().toString().endsWith("#fill"));
  press("Command3");
  EXPECT_FALSE(form.isVisible());
}

TEST(HelpWindow, EveryLinkOfThePageLeadsSomewhere) {
  QFile file(KELDA_HELP_PAGE);
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

// A service on this machine that gives one answer and notes the request.
class Service : public QTcpServer {
 public:
  explicit Service(QByteArray answer) : answer_(std::move(answer)) {
    EXPECT_TRUE(listen(QHostAddress::LocalHost));
    connect(this, &QTcpServer::newConnection, [this] {
      QTcpSocket* socket = nextPendingConnection();
      connect(socket, &QTcpSocket::readyRead, [this, socket] {
        requests += socket->readAll();
        if (answer_.isEmpty()) return;  // never answers
        socket->write(answer_);
        socket->disconnectFromHost();
      });
    });
  }
  QString Address() const {
    return "http://127.0.0.1:" + QString::number(serverPort());
  }
  QByteArray requests;

 private:
  QByteArray answer_;
};

QString PageOf(LookupForm& form, const QString& until) {
  auto* page = form.findChild<QTextBrowser*>("WbDictionary");
  (void)QTest::qWaitFor([&] { return page->toPlainText().contains(until); },
                        5000);
  return page->toPlainText();
}

TEST(LookupWindow, AsksTheServiceByItsPath) {
  Service service(
      "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n"
      "<h1>dog</h1><script>alert(1)</script><img src=\"http://127.0.0.1:9/x\">"
      "<a href=\"http://192.0.2.1/\">out</a>");
  LookupForm form("dog", service.Address(), nullptr);
  form.Navigate();
  form.show();
  EXPECT_EQ(form.windowTitle(), "dog");
  EXPECT_FALSE(PageOf(form, "dog").contains("alert"));
  EXPECT_TRUE(service.requests.startsWith("GET /cgi-bin/dict.pl?term=dog "));
  // A link out of the service leads nowhere.
  emit form.findChild<QTextBrowser*>("WbDictionary")
      ->anchorClicked(QUrl("http://192.0.2.1/"));
  EXPECT_TRUE(PageOf(form, "out").contains("out"));
  EXPECT_NE(form.findChild<QPushButton*>("OpenInBrowser"), nullptr);
}

TEST(LookupWindow, SaysWhatFailed) {
  Service silent("");
  LookupForm slow("dog", silent.Address(), nullptr);
  slow.timeoutMs = 200;
  slow.Navigate();
  EXPECT_TRUE(PageOf(slow, "No answer").contains("could not be looked up"));
  LookupForm wrong("dog", "file:///etc/passwd?", nullptr);
  wrong.Navigate();
  EXPECT_TRUE(PageOf(wrong, "http://").contains("could not be looked up"));
}

TEST(LookupWindow, BuiltInServiceFollowsItsLinks) {
  LookupForm form("cat", "", [](const QString& term) {
    return "about " + term + " <a href=\"/cgi-bin/dict.pl?term=a%20b\">x</a>";
  });
  form.Navigate();
  EXPECT_TRUE(PageOf(form, "about cat").contains("about cat"));
  emit form.findChild<QTextBrowser*>("WbDictionary")
      ->anchorClicked(QUrl("/cgi-bin/dict.pl?term=a%20b"));
  EXPECT_TRUE(PageOf(form, "about a b").contains("about a b"));
}

}  // namespace
