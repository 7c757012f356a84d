// The look-up window: shows what a dictionary service says about a word.
//
// The service is asked for address + "/cgi-bin/dict.pl?term=" + word.  The
// built-in one is a function that makes the page; others are fetched over
// HTTP.  Pages run no scripts, links lead only to pages of the same service,
// and nothing else is loaded or opened.  A page that would take long to lay
// out is shown as plain text.

#pragma once

#include <QDialog>
#include <QString>
#include <QUrl>
#include <functional>

class QLabel;
class QNetworkAccessManager;
class QNetworkReply;
class QTextBrowser;

class LookupForm : public QDialog {
  Q_OBJECT

 public:
  // Makes the page for a term.
  using BuiltIn = std::function<QString(const QString& term)>;

  // `address` of an online service, or "" for the built-in one.
  LookupForm(const QString& word, const QString& address, BuiltIn builtIn,
             QWidget* parent = nullptr);
  ~LookupForm() override;

  // How long a service may take for its whole answer; tests make it shorter.
  int timeoutMs = 10000;
  // Looks the word up; the page comes when it is there.
  void Navigate();

 private:
  void Follow(const QUrl& link);
  void Ask(const QUrl& url);
  void ShowAnswer(QNetworkReply* reply);
  void ShowPage(const QString& html);
  void ShowFailure(const QString& why);
  bool IsOfService(const QUrl& url) const;

  QString address_;
  BuiltIn builtIn_;
  QUrl current_;
  QTextBrowser* page_;
  QNetworkAccessManager* network_ = nullptr;
  QNetworkReply* reply_ = nullptr;
};
