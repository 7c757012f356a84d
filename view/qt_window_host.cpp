#include "view/qt_window_host.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <chrono>
#include <cstdlib>

#include "controls/file_dialog.h"
#include "controls/message_box.h"
#include "controls/plain_text.h"
#include "view/qt_text.h"

namespace {

// How often events run while a task does.
constexpr qint64 kPollInterval = 20;  // ms
// A prompt that is wider wraps.
constexpr int kWidestPrompt = 600;

QString Lines(std::string_view text) {
  return FromBytes(text).remove('\r');
}

}  // namespace

int WindowHost::Box(std::string_view text, QMessageBox::StandardButtons buttons,
                    QMessageBox::StandardButton onEscape) {
  showState();
  MessageBox box(Lines(text), window);
  box.setStandardButtons(buttons);
  box.setEscapeButton(onEscape);
  // Each can be pressed with Alt and its first letter.
  for (QAbstractButton* button : box.buttons()) {
    const bool asked = box.standardButton(button) != QMessageBox::NoButton;
    if (asked && !button->text().contains('&'))
      button->setText(Plain('&' + button->text()));
  }
  if (buttons & QMessageBox::Save) box.setDefaultButton(QMessageBox::Save);
  const int answer = box.exec();
  sincePoll_.restart();
  return answer;
}

void WindowHost::Tell(std::string_view text) {
  Box(text, QMessageBox::Ok, QMessageBox::Ok);
}

bool WindowHost::AskYesNo(std::string_view text) {
  return Box(text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
         QMessageBox::Yes;
}

TriesAnswer WindowHost::AskTries(std::string_view text) {
  switch (Box(text,
              QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore,
              QMessageBox::Abort)) {
    case QMessageBox::Retry:
      return TriesAnswer::Retry;
    case QMessageBox::Ignore:
      return TriesAnswer::Ignore;
    default:
      return TriesAnswer::Abort;
  }
}

UnsavedAnswer WindowHost::AskUnsaved(std::string_view text) {
  switch (Box(text,
              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
              QMessageBox::Cancel)) {
    case QMessageBox::Save:
      return UnsavedAnswer::Save;
    case QMessageBox::Discard:
      return UnsavedAnswer::Discard;
    default:
      return UnsavedAnswer::Cancel;
  }
}

LossesAnswer WindowHost::AskLosses(std::string_view text, bool canWrite) {
  showState();
  MessageBox box(Lines(text), window);
  const QAbstractButton* write =
      canWrite ? box.addButton(QObject::tr("&Write Anyway"),
                               QMessageBox::DestructiveRole)
               : nullptr;
  auto* whole =
      box.addButton(QObject::tr("&Export as .ipuz"), QMessageBox::AcceptRole);
  box.setEscapeButton(box.addButton(QMessageBox::Cancel));
  box.setDefaultButton(whole);
  box.exec();
  sincePoll_.restart();
  if (box.clickedButton() == whole) return LossesAnswer::ExportWhole;
  return write && box.clickedButton() == write ? LossesAnswer::Write
                                               : LossesAnswer::Cancel;
}

std::string WindowHost::AskText(std::string_view prompt, std::string_view title,
                                std::string_view preset) {
  showState();
  QInputDialog dialog(window);
  dialog.setObjectName("InputBox");
  dialog.setWindowTitle(Plain(title.empty()
                                  ? QApplication::applicationDisplayName()
                                  : FromBytes(title)));
  dialog.setLabelText(PlainBrief(Lines(prompt)));
  for (QLabel* label : dialog.findChildren<QLabel*>())
    label->setWordWrap(label->sizeHint().width() > kWidestPrompt);
  dialog.setTextValue(FromBytes(preset));
  if (dialog.exec() != QDialog::Accepted) return "";
  return dialog.textValue().toStdString();
}

std::string WindowHost::AskFileName(const FileRequest& request) {
  showState();
  gf1->Title = FromBytes(request.Title);
  gf1->Kinds.clear();
  for (const FileChoice& kind : request.kinds)
    gf1->Kinds.append({FromBytes(kind.name), FromBytes(kind.pattern)});
  gf1->FileTypes = FromBytes(request.FileTypes);
  gf1->FileTypesName = FromBytes(request.FileTypesName);
  const bool save = request.mode == FileRequest::Mode::Save;
  return gf1->GetFileName(save ? "SAVE" : "OPEN").toStdString();
}

Events WindowHost::ShowLogLine(std::string_view line) {
  showState();
  MessageBox box(Lines(line), window);
  box.setObjectName("LogLine");
  auto* next = box.addButton(QMessageBox::Ok);
  auto* halt =
      box.addButton(QObject::tr("&Halt"), QMessageBox::DestructiveRole);
  box.setDefaultButton(next);
  box.setEscapeButton(next);
  box.exec();
  sincePoll_.restart();
  return {.halt = box.clickedButton() == halt};
}

// Halt is a command, which runs among the events.
Events WindowHost::Poll() {
  if (sincePoll_.isValid() && sincePoll_.elapsed() < kPollInterval) return {};
  showState();
  QApplication::processEvents();
  sincePoll_.start();
  return {};
}

Events WindowHost::AwaitHalt(std::string_view) {
  showState();
  QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return {};
}

void WindowHost::Pointer(PointerShape shape) {
  const bool hourglass = shape == PointerShape::Hourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass)
    QApplication::setOverrideCursor(Qt::BusyCursor);
  else
    QApplication::restoreOverrideCursor();
}

double WindowHost::Chance() {
  if (seeded_) return ChanceOf((*seeded_)());
  std::mt19937_64 fresh(static_cast<std::uint64_t>(
      std::chrono::steady_clock::now().time_since_epoch().count()));
  return ChanceOf(fresh());
}

void WindowHost::EndProgram(std::string_view why) {
  keepWork();
  Pointer(PointerShape::Normal);
  MessageBox box(Lines(why), window);
  box.setIcon(QMessageBox::Critical);
  box.setStandardButtons(QMessageBox::Ok);
  box.SetSecondLine(
      QObject::tr("Kelda has to close. A puzzle that was not saved is kept and "
                  "offered when Kelda starts again."));
  box.exec();
  std::_Exit(1);
}
