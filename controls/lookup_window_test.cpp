// The look-up window with services on this machine, kind and hostile ones.

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include "controls/lookup_window.h"
#include "controls/page_bounds.h"
#include "tests/watched_pipe.h"

namespace {

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

// Sends a byte now and then, for ever.
TEST(LookupWindow, TheWholeAnswerHasItsTime) {
  QTcpServer service;
  ASSERT_TRUE(service.listen(QHostAddress::LocalHost));
  QTimer drip;
  QObject::connect(&service, &QTcpServer::newConnection, [&] {
    QTcpSocket* socket = service.nextPendingConnection();
    socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n");
    QObject::connect(&drip, &QTimer::timeout, socket,
                     [socket] { socket->write("x"); });
    drip.start(20);
  });
  LookupForm form("dog",
                  "http://127.0.0.1:" + QString::number(service.serverPort()),
                  nullptr);
  form.timeoutMs = 300;
  QElapsedTimer timer;
  timer.start();
  form.Navigate();
  EXPECT_TRUE(PageOf(form, "No answer").contains("could not be looked up"));
  EXPECT_LT(timer.elapsed(), 3000);
}

TEST(LookupWindow, PagesOpenNoFiles) {
  const QTemporaryDir folder;
  const WatchedPipe pipe(folder.filePath("pipe").toStdString());
  const QString cases[] = {
      "<img src=\"%1\">",
      "<link rel=\"stylesheet\" href=\"%1\">",
      "<style>@import url(\"%1\");</style>",
      "<style>@import \"%1\";</style>",
      "<body background=\"%1\">",
      "<table background=\"%1\"><tr><td>x</td></tr></table>",
      "<p style=\"background-image: url(%1)\">x</p>",
      "<style>li { list-style-image: url(%1) }</style><ul><li>x</li></ul>",
  };
  for (const QString& page : cases) {
    for (const char* prefix : {"", "file://", "file:"}) {
      const QString path = prefix + QString::fromStdString(pipe.Path());
      LookupForm form("dog", "", [&](const QString&) {
        return page.arg(path) + "<p>shown</p>";
      });
      form.Navigate();
      form.show();
      EXPECT_TRUE(PageOf(form, "shown").contains("shown"));
      form.grab();
      // What gets past the page's own writing is not read either.
      auto* view = form.findChild<QTextBrowser*>("WbDictionary");
      view->setHtml(page.arg(path));
      form.grab();
      EXPECT_FALSE(pipe.WasOpened()) << page.arg(path).toStdString();
    }
  }
}

TEST(PageBounds, PagesAreWrittenAnew) {
  const struct {
    const char *page, *written, *text;
  } cases[] = {
      {"<p onclick=x>a <b>c</b> &lt; d", "<p>a <b>c</b> &lt; d", "a c < d"},
      {"<A HREF='/x?a=\"'>y</A>", "<a href=\"/x?a=&quot;\">y</a>", "y"},
      {"1 < 2<br/>3 > 2", "1 &lt; 2<br>3 &gt; 2", "1 < 2\n3 > 2"},
      {"a<!-- <p> -->b<script>if (1<p) c</script>d", "abd", "abd"},
      {"<ul><li>a<li>b</ul>c", "<ul><li>a</li><li>b</li></ul>c", "a\nb\nc"},
      {"</b><i>a<img src=x><foo>b</foo></i>", "<i>ab</i>", "ab"},
      {"<p a\"><i>b</i>", "<p><i>b</i>", "b"},
      {"<a title=\"</a><p>\">b", "<a>b", "b"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PageWithinBounds(c.page), QString(c.written)) << c.page;
    EXPECT_EQ(TextOfPage(c.page), c.text) << c.page;
  }
}

TEST(PageBounds, WhatWouldTakeLongIsPlainText) {
  const QString cell = "<td>x</td>";
  const struct {
    QString page;
    bool within;
  } cases[] = {
      {QString(65000, 'x'), true},
      {QString(66000, 'x'), false},
      {QString("<div>").repeated(50), true},
      {QString("<div>").repeated(51), false},
      {QString("<div></p><!-- </div> -->").repeated(51), false},
      {QString("<b><i title=\"</b>\">").repeated(26), false},
      {QString("<p>x").repeated(1000), true},
      {"<table><tr>" + cell.repeated(1000), true},
      {"<table><tr>" + cell.repeated(1001), false},
      {"<ol>" + QString("<li>x").repeated(1001), false},
      {QString("<table><tr><td>").repeated(5), true},
      {QString("<table><tr><td>").repeated(6), false},
      {"<table><tr><td colspan=10 rowspan='101'>x", false},
      {"<table><tr><td COLSPAN = \"9999999999\">x", false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(PageWithinBounds(c.page).has_value(), c.within)
        << c.page.left(80).toStdString();
  LookupForm form("dog", "", [&](const QString&) {
    return "<b>" + QString("<div>").repeated(20000) + "deep";
  });
  form.Navigate();
  EXPECT_EQ(PageOf(form, "deep"), "deep");
  EXPECT_EQ(BoundedText(QString(70000, 'x')).size(), 65536 + 4);
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
