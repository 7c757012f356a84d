#include "view/qt_debug_panel.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QListView>

#include "controls/plain_text.h"
#include "draw/qt_picture.h"
#include "view/qt_text.h"

// DebugListModel

DebugListModel::DebugListModel(DebugLists& lists, int list, QObject* parent)
    : QAbstractListModel(parent), lists_(lists), list_(list) {}

int DebugListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QVariant DebugListModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  return FromBytes(lists_.Text(list_, index.row()));
}

void DebugListModel::Refresh() {
  const int rows = lists_.Count(list_);
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  if (rows_ > 0) emit dataChanged(index(0), index(rows_ - 1));
}

// DebugPanel

DebugPanel::DebugPanel(App& app, CommandBinding& binding, QWidget* parent)
    : QWidget(parent), lists_(app) {
  setObjectName("DedugFrames");
  setFixedWidth(245);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  AddFrame(layout, "Words Made", {1, 12});
  AddFrame(layout, "LIST2 List of Possible Words", {2});
  AddFrame(layout, "LIST3 Matching Words", {3, 4});
  AddFrame(layout, "LIST5 Count of Mask Matches", {5, 10});
  AddFrame(layout, "LIST6 Last Solution Words from List4", {6});
  auto* pair = new QHBoxLayout;
  layout->addLayout(pair, 1);
  AddFrame(pair, "LIST7 Masks Examined", {7});
  pair->addWidget(NewList(9), 1);
  AddFrame(layout, "LIST8 Solution Log", {8});
  AddTestButtons(layout, binding);
}

void DebugPanel::AddFrame(QBoxLayout* layout, const QString& caption,
                          std::initializer_list<int> lists) {
  auto* frame = new QGroupBox(Plain(caption));
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(3, 2, 3, 3);
  row->setSpacing(3);
  for (int list : lists) row->addWidget(NewList(list));
  layout->addWidget(frame, 1);
}

QWidget* DebugPanel::NewList(int list) {
  auto* view = new QListView;
  view->setObjectName("List" + QString::number(list));
  view->setAccessibleName(Plain(view->objectName()));
  QFont font = FixedPitchFont();
  font.setPointSizeF(8);
  view->setFont(font);
  view->setUniformItemSizes(true);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view->setMinimumSize(40, 30);
  view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  models_.push_back(new DebugListModel(lists_, list, this));
  view->setModel(models_.back());
  return view;
}

void DebugPanel::AddTestButtons(QBoxLayout* layout, CommandBinding& binding) {
  auto* frame = new QWidget;
  frame->setObjectName("Frame4");
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(0, 2, 0, 0);
  grid->setSpacing(3);
  constexpr const char* kButtons[] = {"Command10", "Command12", "Command15",
                                      "Command16", "Command5",  "Command23",
                                      "Command3",  "Command17"};
  int place = 0;
  for (const char* control : kButtons) {
    QPushButton* button = binding.Button(control);
    QFont font = button->font();
    font.setPointSizeF(8);
    button->setFont(font);
    button->setMinimumWidth(40);
    grid->addWidget(button, place / 2, place % 2);
    ++place;
    if (std::string_view(control) != "Command5") continue;
    // The right button asks for the Down slot.
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(button, &QWidget::customContextMenuRequested, &binding,
            [&binding] { emit binding.Run(CommandOf("Command5(1)")); });
  }
  Text1 = new QLineEdit;
  Text1->setObjectName("Text1");
  Text1->setAccessibleName(tr("Letter for Fill Current Cell"));
  Text1->setMaxLength(1);
  grid->addWidget(Text1, place / 2, 0, 1, 2);
  layout->addWidget(frame);
}

void DebugPanel::Refresh(bool taskRuns) {
  constexpr qint64 kInterval = 150;  // ms, while a task runs
  if (!isVisible()) return;
  if (taskRuns && sinceRefresh_.isValid() &&
      sinceRefresh_.elapsed() < kInterval)
    return;
  sinceRefresh_.start();
  for (DebugListModel* model : models_) model->Refresh();
}
