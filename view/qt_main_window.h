// The main window (Form1): wiring between widgets, the command table and the
// state.  It decides nothing about puzzles.
//
// ShowState() copies the state into the widgets after each command and
// before events run inside a task.  Nothing here writes the state: every
// edit is a command.

#pragma once

#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QScrollBar>

#include "controls/about_window.h"
#include "controls/file_dialog.h"
#include "controls/help_window.h"
#include "controls/overview_window.h"
#include "controls/progress_bar.h"
#include "files/recovery.h"
#include "view/qt_debug_panel.h"
#include "view/qt_frames.h"
#include "view/qt_grid_view.h"
#include "view/qt_window_host.h"

// What the command line sets.
struct WindowOptions {
  QString dictionaryService;  // "" for the built-in one
  std::string recoveryFolder;
  QString helpPage;
};

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(App& app, WindowHost& host, QtPicture& picture,
             WindowOptions options);
  ~MainWindow() override;

  // Loads the dictionary, draws the first grid, offers what an earlier run
  // left, and opens a file if one is named.
  void Start(const std::string& file);

  void ShowState();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Building (qt_main_window_layout.cpp).
  void BuildMenus();
  QWidget* BuildGridSide();
  void ConnectEdits();
  void AddShortcuts();
  void ConnectPicture();

  // Does a command and shows what it left.
  void Run(const Command& command, const Argument& argument = {});
  void Open(Window what);
  void PopUp(QMenu* menu, QWidget* below);
  void ShowMeaning();
  void ShowFrames();
  void ShowScrollBars();
  void ShowTitleBar();
  void ShowUndo();
  void ShowWhyNot();
  void ShowDebugPanel();
  void KeepWork();
  void OfferRecovery();

  App& app_;
  WindowHost& host_;
  QtPicture& picture_;
  WindowOptions options_;
  CommandBinding binding_;
  Recovery recovery_;
  bool recoveryFailed_ = false;
  bool closeWhenIdle_ = false;
  bool ended_ = false;

  QLineEdit* Text5_ = nullptr;
  QLabel* whyNot_ = nullptr;     // of a puzzle that can only be looked at
  QWidget* Picture2_ = nullptr;  // the frame around the grid picture
  GridView* Picture1_ = nullptr;
  QScrollBar* HScroll1_ = nullptr;
  QScrollBar* VScroll1_ = nullptr;
  ::ProgBar* ProgBar_ = nullptr;
  Frames4* frames_ = nullptr;
  DebugPanel* debugPanel_ = nullptr;
  QMenu* blacksx_ = nullptr;
  QMenu* Solutionx_ = nullptr;
  QAction* undox_ = nullptr;
  QAction* redox_ = nullptr;
  FNDialog* gf1_ = nullptr;
  QPointer<HelpForm> helpForm_;
  QPointer<OverviewForm> form2_;
  QPointer<AboutForm> aboutForm_;
};
