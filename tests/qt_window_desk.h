// For window tests: the real window on the offscreen platform, and answers
// for the boxes that it shows.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <deque>
#include <string>
#include <vector>

#include "tests/paths.h"
#include "view/qt_main_window.h"

class WindowDesk {
 public:
  WindowDesk() : app{{}, {}, host} {
    host.Seed(7);
    window = std::make_unique<MainWindow>(
        app, host, picture,
        WindowOptions{"", Folder() + "/state",
                      QString::fromStdString(SourcePath("data/kdpuzzle.htm"))});
    answering_.setInterval(5);
    QObject::connect(&answering_, &QTimer::timeout, [this] { Answer(); });
    answering_.start();
    window->show();
    window->Start("");
    QApplication::processEvents();
  }

  std::string Folder() const { return folder_.path().toStdString(); }

  template <class Widget>
  Widget* Find(const char* name) {
    auto* widget = window->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Press(const char* button) {
    QTest::mouseClick(Find<QAbstractButton>(button), Qt::LeftButton);
    QApplication::processEvents();
  }
  void Choose(const char* item) { Find<QAction>(item)->trigger(); }
  void Type(const char* box, const QString& text) {
    auto* edit = Find<QLineEdit>(box);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
  }
  // Clicks a cell's middle.
  void ClickCell(int row, int col, Qt::KeyboardModifiers modifiers = {},
                 Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(Find<QWidget>("Picture1"), button, modifiers,
                      QPoint(col * 28 - 14, row * 28 - 14));
  }
  QRgb PixelOf(int row, int col) {
    const QImage shown = Find<QWidget>("Picture1")->grab().toImage();
    return shown.pixel(col * 28 - 3, row * 28 - 2);
  }

  QTemporaryDir folder_;
  WindowHost host;
  App app;
  QtPicture picture{app.state.paint};
  std::unique_ptr<MainWindow> window;
  // What the next boxes are answered with: a button's text or, for input
  // boxes, "=text"; "" cancels.  An empty list presses the default button.
  std::deque<std::string> answers;
  std::vector<std::string> boxes;  // the texts of the boxes shown
  std::vector<QSize> sizes;        // and how large they were

 private:
  void Answer() {
    auto* shown = QApplication::activeModalWidget();
    if (!shown) return;
    std::string answer = "default";
    if (!answers.empty()) {
      answer = answers.front();
      answers.pop_front();
    }
    sizes.push_back(shown->frameSize());
    if (auto* input = qobject_cast<QInputDialog*>(shown)) {
      boxes.push_back(input->labelText().toStdString());
      if (answer.starts_with("=")) {
        input->setTextValue(QString::fromStdString(answer.substr(1)));
        input->accept();
      } else {
        input->reject();
      }
    } else if (auto* box = qobject_cast<QMessageBox*>(shown)) {
      boxes.push_back(box->text().toStdString());
      QAbstractButton* chosen = nullptr;
      for (QAbstractButton* button : box->buttons())
        if (!chosen && box->buttonRole(button) != QMessageBox::ActionRole)
          chosen = button;
      for (QAbstractButton* button : box->buttons())
        if (button->text().remove('&').toStdString() == answer) chosen = button;
      chosen->click();
    } else if (auto* dialog = qobject_cast<QDialog*>(shown)) {
      boxes.push_back(dialog->windowTitle().toStdString());
      if (onDialog) onDialog(dialog);
      if (dialog->isVisible()) dialog->reject();
    }
  }

  QTimer answering_;

 public:
  std::function<void(QDialog*)> onDialog;
};
