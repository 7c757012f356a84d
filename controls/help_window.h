// The help window: one page with anchors, and buttons to go back and forward
// between them.  Links to other places open in the user's own browser.

#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;

class HelpForm : public QWidget {
  Q_OBJECT

 public:
  explicit HelpForm(QWidget* parent = nullptr);

  // Shows a page, given as the path of its file.
  void ShowPage(const QString& path);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // Kept: only within the page, so nothing leads out of it.
  bool IsAtAnchor() const;

  QTextBrowser* page_;
};
