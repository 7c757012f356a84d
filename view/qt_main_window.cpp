#include "view/qt_main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QTimer>
#include <utility>

#include "base/file_error.h"
#include "controls/lookup_window.h"
#include "controls/message_box.h"
#include "dictionary/meanings.h"
#include "view/qt_text.h"
#include "view/unsaved.h"

namespace {

constexpr int kKeepWorkInterval = 2000;  // ms
constexpr char kContact[] = "Questions? See Help in the menu Kelda.";

void ShowInFront(QWidget* window) {
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace

void MainWindow::Start(const std::string& file) {
  Run(CommandOf("start"));
  if (!file.empty()) Run(CommandOf("open"), {.text = file});
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, &MainWindow::KeepWork);
  timer->start(kKeepWorkInterval);
  QTimer::singleShot(0, this, &MainWindow::OfferRecovery);
}

// Running commands

// A task disables what it was started from, which takes the focus away.
void MainWindow::Run(const Command& command, const Argument& argument) {
  const QPointer<QWidget> focus = focusWidget();
  Do(app_, command, argument);
  ShowState();
  if (focus && focus->isEnabled()) focus->setFocus();
  if (closeWhenIdle_ && !app_.taskRuns) {
    closeWhenIdle_ = false;
    close();
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (ended_) {
    event->accept();
    return;
  }
  if (app_.taskRuns) {
    // The task ends at its next look at the halt request, then the window
    // closes.
    closeWhenIdle_ = true;
    Do(app_, "Command8");
    return;
  }
  Do(app_, "leave");
  if (!app_.mayLeave) {
    ShowState();
    return;
  }
  ended_ = true;
  recovery_.Remove();
  if (helpForm_) helpForm_->close();
  if (form2_) form2_->close();
  event->accept();
  QApplication::quit();
}

// Windows

void MainWindow::Open(Window what) {
  switch (what) {
    case Window::BlacksMenu:
      return PopUp(blacksx_, frames_->Command1);
    case Window::SolutionMenu:
      return PopUp(Solutionx_, frames_->Command20);
    case Window::Meaning:
      return ShowMeaning();
    case Window::About:
      if (!aboutForm_) {
        aboutForm_ = new AboutForm(tr(kContact),
                                   QApplication::applicationVersion(), this);
      }
      return ShowInFront(aboutForm_);
    case Window::Help:
      if (!helpForm_) helpForm_ = new HelpForm(this);
      helpForm_->ShowPage(options_.helpPage);
      return;
    case Window::Overview:
      if (!form2_) {
        form2_ = new OverviewForm(
            [this](int side, double scale) -> const QImage& {
              return picture_.Overview(side, scale);
            },
            this);
      }
      return ShowInFront(form2_);
  }
}

void MainWindow::PopUp(QMenu* menu, QWidget* below) {
  // The command has ended by the time that the menu is up, so its items may
  // run.
  const QPoint place = below->underMouse()
                           ? QCursor::pos()
                           : below->mapToGlobal(below->rect().bottomLeft());
  QTimer::singleShot(0, this, [this, menu, place] {
    ShowState();
    menu->popup(place);
  });
}

void MainWindow::ShowMeaning() {
  LookupForm form(
      FromBytes(app_.state.Text4), options_.dictionaryService,
      [](const QString& term) {
        return FromBytes(MeaningPage(MeaningsFolder(), term.toStdString()));
      },
      this);
  form.Navigate();
  form.exec();
}

// Keeping work

void MainWindow::KeepWork() {
  // What has just been loaded or saved is in its file, but not yet known so.
  if (app_.state.PuzzleFileName != app_.history.File()) return;
  try {
    if (HasUnsavedWork(app_))
      recovery_.Write(LiveDocument(app_), app_.history.File());
    else
      recovery_.Remove();
  } catch (const FileError& error) {
    // Said once; the user can still save by hand.
    if (std::exchange(recoveryFailed_, true)) return;
    auto* box = new MessageBox(
        tr("No recovery copy of your puzzle can be kept, so save it often.") +
            "\n" + FromBytes(error.what()),
        this);
    box->setIcon(QMessageBox::Warning);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->show();
  }
}

void MainWindow::OfferRecovery() {
  for (const AbandonedCopy& copy : recovery_.FindAbandoned()) {
    MessageBox box(
        tr("Kelda did not end as it should, and kept the unsaved "
           "puzzle \"%1\" of %2.")
            .arg(ToQt(copy.document.title),
                 QLocale().toString(QDateTime::fromSecsSinceEpoch(copy.when),
                                    QLocale::ShortFormat)),
        this);
    box.setObjectName("RecoveryBox");
    box.SetSecondLine(
        copy.puzzlePath.empty()
            ? tr("It was in no file yet.")
            : tr("Its file is %1").arg(FromBytes(copy.puzzlePath)));
    auto* recover = box.addButton(tr("&Recover"), QMessageBox::AcceptRole);
    auto* discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    auto* later = box.addButton(tr("Keep for &Later"), QMessageBox::RejectRole);
    box.setDefaultButton(recover);
    box.setEscapeButton(later);
    box.exec();
    if (box.clickedButton() == discard) Recovery::Discard(copy);
    if (box.clickedButton() != recover) continue;
    Run(CommandOf("recover"), {.copy = &copy});
    if (*app_.history.Now() != copy.document) continue;  // was not let in
    // The old copy goes when this run's own copy is there, or all of it is in
    // its file.
    KeepWork();
    if (recovery_.HasCopy() || !HasUnsavedWork(app_)) Recovery::Discard(copy);
  }
}
