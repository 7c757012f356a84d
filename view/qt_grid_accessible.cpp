#include "view/qt_grid_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <map>

#include "view/qt_grid_view.h"

namespace {

class GridCell : public QAccessibleInterface,
                 public QAccessibleTableCellInterface {
 public:
  GridCell(GridView* view, Pos cell) : view_(view), cell_(cell) {}

  bool isValid() const override {
    return view_ && std::max(cell_.row, cell_.col) <= view_->Cells();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override {
    return isValid() ? view_->window()->windowHandle() : nullptr;
  }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(view_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QAccessible::Role role() const override { return QAccessible::Cell; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? view_->Describe(cell_)
                                                  : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect box = view_->BoxOf(cell_);
    return {view_->mapToGlobal(box.topLeft()), box.size()};
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    state.disabled = !view_->isEnabled();
    state.focusable = state.selectable = true;
    state.selected = isSelected();
    state.focused = state.selected && view_->hasFocus();
    state.offscreen = !view_->visibleRegion().intersects(view_->BoxOf(cell_));
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::TableCellInterface) return nullptr;
    return static_cast<QAccessibleTableCellInterface*>(this);
  }

  bool isSelected() const override {
    return isValid() && view_->Cursor() == cell_;
  }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int rowIndex() const override { return cell_.row - 1; }
  int columnIndex() const override { return cell_.col - 1; }
  int rowExtent() const override { return 1; }
  int columnExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  QPointer<GridView> view_;
  const Pos cell_;
};

class GridTable : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit GridTable(GridView* view)
      : QAccessibleWidget(view, QAccessible::Table), view_(view) {}
  ~GridTable() override {
    for (const auto& [cell, id] : cells_)
      QAccessible::deleteAccessibleInterface(id);
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::TableInterface)
      return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleTableInterface*>(this);
  }
  int childCount() const override { return Size() * Size(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    return cellAt(index / Size(), index % Size());
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint at = view_->mapFromGlobal(QPoint(x, y));
    for (int index = 0; index < childCount(); ++index)
      if (view_->BoxOf({index / Size() + 1, index % Size() + 1}).contains(at))
        return child(index);
    return nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    return view_->hasFocus() ? At(view_->Cursor()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    auto* cell =
        child ? const_cast<QAccessibleInterface*>(child)->tableCellInterface()
              : nullptr;
    return cell ? cell->rowIndex() * Size() + cell->columnIndex() : -1;
  }

  QAccessibleInterface* cellAt(int row, int column) const override {
    return At({row + 1, column + 1});
  }
  int rowCount() const override { return Size(); }
  int columnCount() const override { return Size(); }
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QString rowDescription(int) const override { return {}; }
  QString columnDescription(int) const override { return {}; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

  // The cell under the keyboard cursor is the selected one.
  int selectedCellCount() const override { return 1; }
  QList<QAccessibleInterface*> selectedCells() const override {
    return {At(view_->Cursor())};
  }
  int selectedRowCount() const override { return 0; }
  int selectedColumnCount() const override { return 0; }
  QList<int> selectedRows() const override { return {}; }
  QList<int> selectedColumns() const override { return {}; }
  bool isRowSelected(int) const override { return false; }
  bool isColumnSelected(int) const override { return false; }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }

 private:
  int Size() const { return view_->Cells(); }
  QAccessibleInterface* At(Pos cell) const {
    if (std::min(cell.row, cell.col) < 1 ||
        std::max(cell.row, cell.col) > Size())
      return nullptr;
    const auto [place, isNew] = cells_.try_emplace(cell, 0);
    if (isNew) {
      place->second =
          QAccessible::registerAccessibleInterface(new GridCell(view_, cell));
    }
    return QAccessible::accessibleInterface(place->second);
  }

  GridView* view_;
  mutable std::map<Pos, QAccessible::Id> cells_;  // made when asked for
};

}  // namespace

QAccessibleInterface* MakeGridAccessible(const QString&, QObject* object) {
  auto* view = qobject_cast<GridView*>(object);
  return view ? new GridTable(view) : nullptr;
}
