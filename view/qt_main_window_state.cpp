// Copying the state into the widgets of the main window.

#include <QSignalBlocker>

#include "controls/plain_text.h"
#include "grid/bridge.h"
#include "view/qt_main_window.h"
#include "view/qt_text.h"
#include "view/unsaved.h"

namespace {

constexpr int kWidth = 11350 / kTwipsPerPixel;
constexpr int kWidthWithPanel = 15075 / kTwipsPerPixel;

void Show(QLineEdit* box, const QString& text) {
  if (box->text() == text) return;
  // What the user is typing is in the state already; the cursor stays where
  // it is as far as it can.
  const int cursor = box->cursorPosition();
  box->setText(text);
  if (box->hasFocus()) box->setCursorPosition(cursor);
}

// Tab goes to the marked choice alone, whoever marked it.
void Mark(const std::array<QRadioButton*, 4>& choices, int marked) {
  choices[marked]->setChecked(true);
  for (QRadioButton* choice : choices)
    choice->setFocusPolicy(choice->isChecked() ? Qt::StrongFocus
                                               : Qt::ClickFocus);
}

void Show(QLabel* label, const std::string& text) {
  const QString shown = FromBytes(text);
  if (label->text() != Plain(shown)) label->setText(Plain(shown));
}

void Show(ProgBar* bar, const ProgressBar& state) {
  if (bar->Max() == state.Max && bar->Value() == state.Value &&
      bar->Caption() == FromBytes(state.Caption))
    return;
  bar->SetMax(state.Max);
  bar->SetCaption(FromBytes(state.Caption));
  bar->SetValue(state.Value);
}

void Enable(QWidget* widget, bool enabled) {
  if (widget->testAttribute(Qt::WA_ForceDisabled) == enabled)
    widget->setEnabled(enabled);
}

}  // namespace

void MainWindow::ShowState() {
  const State& state = app_.state;
  Show(Text5_, FromBytes(state.Text5));
  Show(frames_->Text2, FromBytes(state.Text2));
  Show(frames_->Text3, FromBytes(state.Text3));
  Show(frames_->Text4, FromBytes(state.Text4));
  frames_->Text4->setToolTip(PlainTip(FromBytes(state.Text4)));
  Show(frames_->Label1, state.Label1);
  Show(frames_->Label2, state.Label2);
  Show(frames_->Label3, state.Label3);
  frames_->Label3->setToolTip(PlainTip(FromBytes(state.Label3)));
  Show(frames_->Label9, state.Label9);
  Mark(frames_->DictOpt, state.DictOpt);
  frames_->gauge->SetWidth(state.GaugeWidth);
  Show(frames_->WordProg, state.WordProg);
  Show(ProgBar_, state.ProgBar);
  ShowFrames();
  Picture1_->ShowPicture();
  ShowScrollBars();
  if (form2_ && form2_->isVisible()) form2_->Refresh();
  ShowDebugPanel();
  debugPanel_->Refresh(app_.taskRuns);
  ShowUndo();
  ShowWhyNot();
  ShowTitleBar();
}

void MainWindow::ShowFrames() {
  const Frames& frames = app_.state.frames;
  binding_.ShowWhatMayRun(app_);
  Enable(frames_->GridFrame, frames.GridFrame);
  Enable(frames_->DictFrame, frames.DictFrame);
  Enable(frames_->Blacksframe, frames.Blacksframe);
  // Halt can be reached whatever runs.
  Enable(frames_->SolutionFrame, frames.SolutionFrame || app_.taskRuns);
  Enable(Picture2_, frames.Picture2);
  Enable(Picture1_, frames.Picture1);
}

void MainWindow::ShowScrollBars() {
  const auto show = [this](QScrollBar* bar, const ScrollBar& state, int view) {
    // At least what is set up for the grid, and more when not all of the
    // picture can be seen otherwise.
    const int beyond =
        std::max(0, app_.state.PictureSize - view * kTwipsPerPixel);
    const int maximum = std::max(state.Enabled ? state.Max : 0, beyond);
    const QSignalBlocker quiet(bar);
    bar->setRange(0, maximum);
    bar->setSingleStep(CellSize);
    bar->setPageStep(5 * CellSize);
    bar->setValue(state.Value);
    Enable(bar, maximum > 0);
  };
  show(HScroll1_, app_.state.HScroll1, Picture2_->width());
  show(VScroll1_, app_.state.VScroll1, Picture2_->height());
  const QPoint place(-HScroll1_->value() / kTwipsPerPixel,
                     -VScroll1_->value() / kTwipsPerPixel);
  if (Picture1_->pos() != place) Picture1_->move(place);
}

void MainWindow::ShowUndo() {
  const auto show = [](QAction* item, std::string_view caption) {
    // "Undo Compile", before the keys.
    const QString text = item->text();
    const QString what =
        '&' + item->property("caption").toString() + ' ' + ToQt(caption);
    const QString shown = what.trimmed() + text.mid(text.indexOf('\t'));
    if (text != shown) item->setText(Plain(shown));
  };
  show(undox_, app_.history.UndoCaption());
  show(redox_, app_.history.RedoCaption());
}

void MainWindow::ShowWhyNot() {
  const QString why = ToQt(WhyGridIsFixed(app_));
  if (whyNot_->text() != why) whyNot_->setText(Plain(why));
  whyNot_->setVisible(!why.isEmpty());
}

// The panel makes the window wider.
void MainWindow::ShowDebugPanel() {
  const bool shown = app_.state.debugPanelShown;
  if (shown == !debugPanel_->isHidden()) return;
  debugPanel_->setVisible(shown);
  if (!isMaximized() && !isFullScreen())
    resize(shown ? kWidthWithPanel : kWidth, height());
}

void MainWindow::ShowTitleBar() {
  const std::string& caption = app_.state.Caption;
  // A doubled "[*]" is one that belongs to the name.
  const QString name = caption.empty()
                           ? QString("Kelda")
                           : FromBytes(caption).replace("[*]", "[*][*]");
  const QString title = name + "[*]";
  if (windowTitle() != Plain(title)) setWindowTitle(Plain(title));
  setWindowModified(HasUnsavedWork(app_));
}
