// The help window: one page with anchors, and buttons to go back and forward
// between them, as Alt+Left and Alt+Right do.  Links to other places open in
// the user's own browser.

#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;
class QUrl;

class HelpForm : public QWidget {
  Q_OBJECT

 public:
  explicit HelpForm(QWidget* parent = nullptr);

  // Shows a page, given as the path of its file.
  void ShowPage(const QString& path);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // `link` is as the page gives it: absolute, also for "#draw".
  void Follow(const QUrl& link);
  // Kept: only within the page, so nothing leads out of it.
  bool IsAtAnchor() const;

  QTextBrowser* page_;
};
