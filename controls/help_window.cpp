#include "controls/help_window.h"

#include <QBoxLayout>
#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>

#include "controls/paper_palette.h"
#include "controls/plain_text.h"

HelpForm::HelpForm(QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName("HelpForm");
  setWindowTitle(tr("Kelda Help"));
  setAccessibleName(tr("Kelda Help"));
  resize(760, 640);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 8, 4, 4);
  auto* buttons = new QHBoxLayout;
  layout->addLayout(buttons);
  page_ = new QTextBrowser;
  page_->setObjectName("WebBrowser1");
  page_->setAccessibleName(tr("Help page"));
  page_->setOpenLinks(false);
  page_->setPalette(PaperPalette());
  layout->addWidget(page_);
  const auto add = [&](const char* name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    buttons->addWidget(button);
    return button;
  };
  const auto addStep = [&](const char* name, const QString& caption,
                           const QString& toolTip, const QKeySequence& keys,
                           auto step) {
    auto* button = add(name, caption);
    button->setToolTip(Plain(toolTip + " (" + keys.toString() + ")"));
    const auto go = [this, step] {
      if (IsAtAnchor()) (page_->*step)();
    };
    connect(button, &QPushButton::clicked, this, go);
    connect(new QShortcut(keys, this), &QShortcut::activated, this, go);
  };
  addStep("Command1", tr("&Back"), tr("Where you were before"),
          QKeySequence("Alt+Left"), &QTextBrowser::backward);
  addStep("Command2", tr("&Forward"), tr("Where you came back from"),
          QKeySequence("Alt+Right"), &QTextBrowser::forward);
  buttons->addStretch();
  connect(add("Command3", tr("E&xit")), &QPushButton::clicked, this,
          &QWidget::close);
  connect(page_, &QTextBrowser::anchorClicked, this, &HelpForm::Follow);
}

void HelpForm::Follow(const QUrl& link) {
  if (link.scheme() == "http" || link.scheme() == "https")
    QDesktopServices::openUrl(link);
  else if (link.matches(page_->source(), QUrl::RemoveFragment))
    page_->setSource(link);
}

void HelpForm::ShowPage(const QString& path) {
  if (QFileInfo::exists(path)) {
    page_->setSource(QUrl::fromLocalFile(path));
    page_->clearHistory();
  } else {
    page_->setPlainText(tr("The help page is missing: %1").arg(path));
  }
  show();
  raise();
  activateWindow();
}

bool HelpForm::IsAtAnchor() const {
  return page_->source().toString().contains('#');
}

void HelpForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}
