#include "view/qt_binding.h"

#include "controls/plain_text.h"
#include "view/qt_text.h"

namespace {

QString WithMnemonic(std::string_view caption, char mnemonic) {
  QString text = ToQt(caption);
  if (mnemonic == '\0') return text;
  const auto place = text.indexOf(QLatin1Char(mnemonic));
  if (place >= 0) text.insert(place, '&');
  return text;
}

}  // namespace

template <class Control>
void CommandBinding::Bind(Control* control, const Command& row) {
  control->setObjectName(ToQt(row.control));
  if (!row.toolTip.empty()) control->setToolTip(Plain(ToQt(row.toolTip)));
  control->setProperty("caption", ToQt(row.caption));
  bound_.push_back(
      {&row, [control, &row, told = QString()](const QString& whyNot) mutable {
         control->setEnabled(whyNot.isEmpty());
         if (told == whyNot) return;
         told = whyNot;
         const QString tip = told.isEmpty() ? ToQt(row.toolTip) : told;
         control->setToolTip(PlainTip(tip));
       }});
}

QPushButton* CommandBinding::Button(const char* control, char mnemonic) {
  const Command* row = FindCommand(control);
  if (!row) return nullptr;
  auto* button = new QPushButton(WithMnemonic(row->caption, mnemonic));
  button->setAccessibleName(Plain(ToQt(row->caption)));
  button->setAccessibleDescription(Plain(ToQt(row->toolTip)));
  QFont font = button->font();
  font.setFamilies({"Arial", "Liberation Sans", "DejaVu Sans", "sans-serif"});
  button->setFont(font);
  Bind(button, *row);
  connect(button, &QPushButton::clicked, this, [this, row] { emit Run(*row); });
  return button;
}

QRadioButton* CommandBinding::Option(const char* control, char mnemonic) {
  const Command& row = CommandOf(control);
  auto* option = new QRadioButton(WithMnemonic(row.caption, mnemonic));
  option->setAccessibleName(Plain(ToQt(row.caption)));
  Bind(option, row);
  connect(option, &QRadioButton::clicked, this,
          [this, &row] { emit Run(row); });
  return option;
}

QAction* CommandBinding::Item(QMenu* menu, const char* control, char mnemonic,
                              const QString& keys) {
  const Command* row = FindCommand(control);
  if (!row) return nullptr;
  QString text = WithMnemonic(row->caption, mnemonic);
  if (!keys.isEmpty()) text += '\t' + keys;
  QAction* item = menu->addAction(Plain(text));
  Bind(item, *row);
  connect(item, &QAction::triggered, this, [this, row] { emit Run(*row); });
  return item;
}

void CommandBinding::ShowWhatMayRun(const App& app) {
  for (const Bound& bound : bound_) bound.show(ToQt(WhyNot(app, *bound.row)));
}
