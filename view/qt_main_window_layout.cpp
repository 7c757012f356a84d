// Building the main window: menus, layout, shortcuts, and what each widget
// does when the user works it.

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWheelEvent>

#include "controls/plain_text.h"
#include "view/qt_main_window.h"

namespace {

constexpr int kLeft = 1000 / kTwipsPerPixel, kTop = 700 / kTwipsPerPixel;
constexpr int kWidth = 11350 / kTwipsPerPixel;
constexpr int kHeight = 10500 / kTwipsPerPixel;

}  // namespace

MainWindow::MainWindow(App& app, WindowHost& host, QtPicture& picture,
                       WindowOptions options)
    : app_(app),
      host_(host),
      picture_(picture),
      options_(std::move(options)),
      binding_(this),
      recovery_(options_.recoveryFolder) {
  setObjectName("Form1");
  setAcceptDrops(true);
  BuildMenus();
  auto* centre = new QWidget;
  auto* layout = new QHBoxLayout(centre);
  // As narrow as lets 21 cells be seen without scrolling.
  layout->setContentsMargins(0, 2, 2, 4);
  layout->setSpacing(1);
  layout->addWidget(BuildGridSide(), 1);
  layout->addWidget(frames_ = new Frames4(binding_));
  layout->addWidget(debugPanel_ = new DebugPanel(app_, binding_));
  debugPanel_->hide();
  setCentralWidget(centre);
  gf1_ = new FNDialog(this);
  gf1_->setObjectName("gf1");
  gf1_->DefaultDir = QApplication::applicationDirPath();
  gf1_->hide();

  host_.window = this;
  host_.gf1 = gf1_;
  host_.showState = [this] { ShowState(); };
  host_.open = [this](Window what) { Open(what); };
  host_.quit = [this] { close(); };
  host_.keepWork = [this] { KeepWork(); };

  connect(&binding_, &CommandBinding::Run, this,
          [this](const Command& row) { Run(row); });
  ConnectEdits();
  ConnectPicture();
  AddShortcuts();
  setTabOrder(Text5_, Picture1_);
  setTabOrder(Picture1_, frames_->Text3);
  setGeometry(kLeft, kTop, kWidth, kHeight);
  Picture1_->setFocus();
}

MainWindow::~MainWindow() {
  host_.showState = [] {};
  host_.window = nullptr;
}

void MainWindow::BuildMenus() {
  QMenu* kdpx = menuBar()->addMenu("&Kelda");
  kdpx->setObjectName("kdpx");
  binding_.Item(kdpx, "loadx", 'L', "Ctrl+O");
  binding_.Item(kdpx, "Savey", 'U', "Ctrl+S");
  binding_.Item(kdpx, "savex", 'S', "Ctrl+Shift+S");
  binding_.Item(kdpx, "copx", 'C');
  binding_.Item(kdpx, "overviewx", 'O');
  binding_.Item(kdpx, "helpx", 'H', "Ctrl+H");
  binding_.Item(kdpx, "aboutx", 'A');
  kdpx->addSeparator()->setObjectName("dash1");
  binding_.Item(kdpx, "exitx", 'x', "Ctrl+Q");
  kdpx->addSeparator()->setObjectName("dash3");
  binding_.Item(kdpx, "importx", 'I', "Ctrl+I");
  binding_.Item(kdpx, "exportx", 'E', "Ctrl+E");
  binding_.Item(kdpx, "previewx", 'P', "Ctrl+Shift+P");
  binding_.Item(kdpx, "pdfx", 'D');
  binding_.Item(kdpx, "picturex", 't');
  connect(kdpx, &QMenu::aboutToShow, this, &MainWindow::ShowState);

  QMenu* edit = menuBar()->addMenu(tr("&Edit"));
  edit->setObjectName("editx");
  undox_ = binding_.Item(edit, "undox", 'U', "Ctrl+Z");
  redox_ = binding_.Item(edit, "redox", 'R', "Ctrl+Shift+Z");

  blacksx_ = new QMenu(this);
  blacksx_->setObjectName("blacksx");
  binding_.Item(blacksx_, "blackrand", 'R');
  binding_.Item(blacksx_, "black2x2", '2');
  blacksx_->addSeparator()->setObjectName("dash2");
  binding_.Item(blacksx_, "cancel1", 'C');

  Solutionx_ = new QMenu("Solution", this);
  Solutionx_->setObjectName("Solutionx");
  binding_.Item(Solutionx_, "solx(0)", 'R');
  binding_.Item(Solutionx_, "solx(1)", 'S');
  binding_.Item(Solutionx_, "solx(2)", 'e');
  Solutionx_->addSeparator()->setObjectName("solx(3)");
  binding_.Item(Solutionx_, "solx(4)", 'C');
}

QWidget* MainWindow::BuildGridSide() {
  auto* side = new QWidget;
  auto* layout = new QGridLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setHorizontalSpacing(0);
  layout->setVerticalSpacing(2);
  Text5_ = new QLineEdit;
  Text5_->setObjectName("Text5");
  Text5_->setAccessibleName(tr("Puzzle title"));
  Text5_->setToolTip(tr("Title of the puzzle"));
  QFont font = FixedPitchFont();
  font.setPointSizeF(10);
  Text5_->setFont(font);
  layout->addWidget(Text5_, 0, 0, 1, 2);

  whyNot_ = new QLabel;
  whyNot_->setObjectName("WhyNotClassic");
  whyNot_->setTextFormat(Qt::PlainText);
  whyNot_->setWordWrap(true);
  whyNot_->setMargin(4);
  layout->addWidget(whyNot_, 1, 0, 1, 2);

  Picture2_ = new QWidget;
  Picture2_->setObjectName("Picture2");
  Picture2_->setMinimumSize(200, 150);
  Picture1_ = new GridView(app_.state, picture_, Picture2_);
  layout->addWidget(Picture2_, 2, 0);
  VScroll1_ = new QScrollBar(Qt::Vertical);
  VScroll1_->setFixedWidth(12);
  VScroll1_->setObjectName("VScroll1");
  VScroll1_->setAccessibleName(tr("Scroll the grid up and down"));
  layout->addWidget(VScroll1_, 2, 1);
  HScroll1_ = new QScrollBar(Qt::Horizontal);
  HScroll1_->setFixedHeight(12);
  HScroll1_->setObjectName("HScroll1");
  HScroll1_->setAccessibleName(tr("Scroll the grid left and right"));
  layout->addWidget(HScroll1_, 3, 0);

  ProgBar_ = new ::ProgBar;
  ProgBar_->setObjectName("ProgBar");
  ProgBar_->setAccessibleName(tr("Progress"));
  layout->addWidget(ProgBar_, 4, 0, 1, 2);
  layout->setRowStretch(2, 1);
  layout->setColumnStretch(0, 1);
  return side;
}

void MainWindow::ConnectEdits() {
  const auto edit = [this](QLineEdit* box) {
    connect(box, &QLineEdit::textEdited, this,
            [this, box](const QString& text) {
              Run(CommandOf(box->objectName().toStdString()),
                  {.text = text.toStdString()});
            });
  };
  for (QLineEdit* box : {Text5_, frames_->Text2, frames_->Text3, frames_->Text4,
                         debugPanel_->Text1})
    edit(box);
  // Enter in a box does what the button beside it does.
  connect(frames_->Text3, &QLineEdit::returnPressed, this, [this] {
    Run(CommandOf("Text3(left)"));
    Run(CommandOf("Command2"));
  });
  connect(frames_->Text4, &QLineEdit::returnPressed, this,
          [this] { Run(CommandOf("Command6")); });
  for (QLineEdit* box : findChildren<QLineEdit*>())
    box->installEventFilter(this);
}

void MainWindow::ConnectPicture() {
  Picture2_->installEventFilter(this);
  connect(Picture1_, &GridView::Clicked, this, [this](const Click& click) {
    Run(CommandOf(ControlOfClick(click.shiftState)), {.click = click});
  });
  connect(Picture1_, &GridView::CursorMoved, this, [this](QRect box) {
    // Scrolls as little as shows the cell.
    const auto scroll = [](QScrollBar* bar, int from, int to, int view) {
      const int value = bar->value() / kTwipsPerPixel;
      if (from < value) bar->setValue((from - 2) * kTwipsPerPixel);
      if (to > value + view) bar->setValue((to + 2 - view) * kTwipsPerPixel);
    };
    scroll(HScroll1_, box.left(), box.right(), Picture2_->width());
    scroll(VScroll1_, box.top(), box.bottom(), Picture2_->height());
  });
  for (QScrollBar* bar : {HScroll1_, VScroll1_})
    connect(bar, &QScrollBar::valueChanged, this, [this, bar](int value) {
      Do(app_, bar->objectName().toStdString(), {.place = value});
      ShowScrollBars();
      Picture1_->setFocus();
    });
}

void MainWindow::AddShortcuts() {
  const auto on = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  const auto run = [&](const char* keys, const char* control) {
    if (FindCommand(control))
      on(QKeySequence(keys), [this, control] { Run(CommandOf(control)); });
  };
  run("Ctrl+O", "loadx");
  run("Ctrl+Shift+S", "savex");
  run("Ctrl+P", "Command18");
  run("Ctrl+Shift+P", "previewx");
  run("Ctrl+H", "helpx");
  run("Ctrl+Q", "exitx");
  run("Ctrl+I", "importx");
  run("Ctrl+E", "exportx");
  run("Ctrl+Z", "undox");
  run("Ctrl+Shift+Z", "redox");
  run("Ctrl+Y", "redox");
  run("F1", "F1");
  on(QKeySequence("Ctrl+S"), [this] {
    const bool named = !app_.state.PuzzleFileName.empty();
    Run(CommandOf(named ? "Savey" : "savex"));
  });
  on(QKeySequence(Qt::Key_Escape), [this] {
    if (app_.taskRuns) Run(CommandOf("Command8"));
  });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == frames_->Text3 && event->type() == QEvent::FocusOut) {
    Do(app_, "Text3(left)");
    ShowState();
  }
  // Undo in a text box is the program's: the box does not take the keys.
  if (event->type() == QEvent::ShortcutOverride &&
      qobject_cast<QLineEdit*>(watched)) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo))
      return true;
  }
  if (watched == Picture2_ && event->type() == QEvent::Resize) ShowScrollBars();
  if (watched == Picture2_ && event->type() == QEvent::Wheel) {
    const auto* wheel = static_cast<QWheelEvent*>(event);
    const bool sideways =
        wheel->modifiers() & Qt::ShiftModifier || wheel->angleDelta().y() == 0;
    QApplication::sendEvent(sideways ? HScroll1_ : VScroll1_, event);
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

// The first of the files, once the other program has its answer.
void MainWindow::dropEvent(QDropEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.isEmpty() || !urls.first().isLocalFile()) return;
  event->acceptProposedAction();
  const std::string path = urls.first().toLocalFile().toStdString();
  QTimer::singleShot(0, this,
                     [this, path] { Run(CommandOf("open"), {.text = path}); });
}
