// The debug panel: the working lists and the test buttons.
//
// A list box makes only the rows that can be seen into text; a hidden panel
// costs nothing.

#pragma once

#include <QAbstractListModel>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QWidget>
#include <vector>

#include "view/debug_panel.h"
#include "view/qt_binding.h"

class DebugListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  DebugListModel(DebugLists& lists, int list, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  // The list may have changed.
  void Refresh();

 private:
  DebugLists& lists_;
  const int list_;
  int rows_ = 0;
};

class DebugPanel : public QWidget {
  Q_OBJECT

 public:
  DebugPanel(App& app, CommandBinding& binding, QWidget* parent = nullptr);

  QLineEdit* Text1;

  // Shows the lists as they are now, if the panel is visible.
  void Refresh(bool taskRuns);

 private:
  void AddFrame(class QBoxLayout* layout, const QString& caption,
                std::initializer_list<int> lists);
  QWidget* NewList(int list);
  void AddTestButtons(class QBoxLayout* layout, CommandBinding& binding);

  DebugLists lists_;
  std::vector<DebugListModel*> models_;
  QElapsedTimer sinceRefresh_;
};
