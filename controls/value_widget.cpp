#include "controls/value_widget.h"

#include <QAccessibleWidget>

namespace {

class ValueAccessible : public QAccessibleWidget,
                        public QAccessibleValueInterface {
 public:
  explicit ValueAccessible(ValueWidget* shown)
      : QAccessibleWidget(shown, QAccessible::ProgressBar), shown_(shown) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ValueInterface)
      return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleValueInterface*>(this);
  }
  QVariant currentValue() const override { return shown_->Value(); }
  void setCurrentValue(const QVariant&) override {}
  QVariant maximumValue() const override { return shown_->Max(); }
  QVariant minimumValue() const override { return 0; }
  QVariant minimumStepSize() const override { return 1; }

 private:
  ValueWidget* shown_;
};

QAccessibleInterface* MakeValueAccessible(const QString&, QObject* object) {
  auto* shown = qobject_cast<ValueWidget*>(object);
  return shown ? new ValueAccessible(shown) : nullptr;
}

}  // namespace

ValueWidget::ValueWidget(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(MakeValueAccessible);
}

void ValueWidget::TellValue() {
  QAccessibleValueChangeEvent event(this, Value());
  QAccessible::updateAccessibility(&event);
}
