// Ties widgets to rows of the command table: a widget has its row's control
// name, caption and tool tip, and does one thing, it runs its row.

#pragma once

#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <functional>
#include <vector>

#include "view/commands.h"

class CommandBinding : public QObject {
  Q_OBJECT

 public:
  explicit CommandBinding(QObject* parent) : QObject(parent) {}

  // A button for a row, or nullptr when the table has no such row.
  // `mnemonic` is the letter of the caption that Alt works.
  QPushButton* Button(const char* control, char mnemonic = '\0');
  QRadioButton* Option(const char* control, char mnemonic);
  // A menu item; `keys` is a shortcut that the window handles itself.
  QAction* Item(QMenu* menu, const char* control, char mnemonic,
                const QString& keys = "");

  // Greys out what may not run now.
  void ShowWhatMayRun(const App& app);

 signals:
  void Run(const Command& command);

 private:
  struct Bound {
    const Command* row;
    // Enables the control, or greys it out and tells why in its tool tip.
    std::function<void(const QString& whyNot)> show;
  };

  template <class Control>
  void Bind(Control* control, const Command& row);

  std::vector<Bound> bound_;
};
