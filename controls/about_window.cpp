#include "controls/about_window.h"

#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

#include "controls/plain_text.h"

AboutForm::AboutForm(const QString& contact, const QString& version,
                     QWidget* parent)
    : QDialog(parent) {
  setObjectName("AboutForm");
  setWindowTitle(tr("About Kelda"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 16, 24, 16);
  layout->setSpacing(12);
  auto* icon = new QLabel;
  icon->setPixmap(QIcon::fromTheme("kelda", windowIcon()).pixmap(64, 64));
  layout->addWidget(icon, 0, Qt::AlignHCenter);
  auto* text = new QLabel(
      Plain("\n\nPurpose of this program is to\nassist in making CrossWord "
            "Puzzles. \n" +
            contact));
  text->setObjectName("AboutKelda");
  text->setAlignment(Qt::AlignHCenter);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout->addWidget(text);
  auto* label = new QLabel(Plain(tr("Version %1").arg(version)));
  label->setObjectName("Label1");
  layout->addWidget(label, 0, Qt::AlignHCenter);
  auto* ok = new QPushButton(tr("OK"));
  ok->setObjectName("AboutOk");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::close);
  layout->addWidget(ok, 0, Qt::AlignHCenter);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}
