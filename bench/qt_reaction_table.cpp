// How soon the window answers while something runs, and how quick the debug
// panel is with long lists; prints a table.  On a platform without a screen
// unless QT_QPA_PLATFORM names another.
//
// A timer of 1 ms stands for the user: the longest time between two of its
// ticks is the longest that a key or a click waits.  Halt is pressed at ten
// moments of a task; the time until the task has ended is its answer.

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <optional>

#include "dictionary/levels.h"
#include "grid/choose_dictionary.h"
#include "view/qt_main_window.h"

namespace {

// Answers every question so that a task goes on.
class GoOn : public WindowHost {
 public:
  void Tell(std::string_view) override {}
  bool AskYesNo(std::string_view) override { return true; }
  TriesAnswer AskTries(std::string_view) override { return TriesAnswer::Retry; }
  Events ShowLogLine(std::string_view) override { return Poll(); }
};

struct Desk {
  Desk() : app{{}, {}, host} {
    host.Seed(1);
    window.emplace(
        app, host, picture,
        WindowOptions{"", folder.path().toStdString() + "/state", ""});
    window->show();
    window->Start("");
    ReadDictionary(app.state, app.words, host, LevelFilePath(kLevelFiles[2]));
  }

  void Run(const char* control) { Do(app, control); }
  void Settle() {
    window->ShowState();
    QApplication::processEvents();
  }

  QTemporaryDir folder;
  GoOn host;
  App app;
  QtPicture picture{app.state.paint};
  std::optional<MainWindow> window;
};

struct Times {
  std::vector<double> all;  // ms
  double Median() {
    std::ranges::sort(all);
    return all.empty() ? 0 : all[all.size() / 2];
  }
  double Longest() { return all.empty() ? 0 : std::ranges::max(all); }
};

double Ms(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Runs a task until Halt is pressed after `haltAfter` ms, or it ends.
// Returns how long Halt took, if it was pressed, and collects the waits.
std::optional<double> RunOnce(Desk& desk, const std::function<void()>& task,
                              int haltAfter, Times& waits) {
  QElapsedTimer sinceTick, sinceHalt;
  QTimer user, halting;
  QObject::connect(&user, &QTimer::timeout, [&] {
    waits.all.push_back(Ms(sinceTick));
    sinceTick.start();
  });
  halting.setSingleShot(true);
  QObject::connect(&halting, &QTimer::timeout, [&] {
    sinceHalt.start();
    desk.window->findChild<QPushButton*>("Command8")->click();
  });
  sinceTick.start();
  user.start(1);
  halting.start(haltAfter);
  task();
  waits.all.push_back(Ms(sinceTick));
  if (!sinceHalt.isValid()) return std::nullopt;
  return Ms(sinceHalt);
}

void Measure(const char* name, const std::function<void(Desk&)>& prepare,
             const std::function<void(Desk&)>& task, bool withPanel = false) {
  Times waits, halts;
  for (int moment = 1; moment <= 10; ++moment) {
    Desk desk;
    if (withPanel) {
      desk.app.state.DebugMode = true;
      desk.window->findChild<QWidget*>("DedugFrames")->show();
    }
    prepare(desk);
    desk.Settle();
    const auto halt = RunOnce(
        desk, [&] { task(desk); }, moment * moment * 30, waits);
    if (halt) halts.all.push_back(*halt);
  }
  std::printf("%-42s %9.1f %9.1f %9.1f %7zu\n", name, waits.Longest(),
              halts.Median(), halts.Longest(), halts.all.size());
  std::fflush(stdout);
}

void Draw51(Desk& desk) {
  desk.app.state.Text3 = "51";
  desk.app.state.GridSize = 51;
  desk.Run("Command2");
}

void Lattice51(Desk& desk) {
  Draw51(desk);
  desk.Run("black2x2");
}

// One of the densely crossed grids in bench/grids.
void Dense21(Desk& desk) {
  const std::string path = desk.folder.path().toStdString() + "/dense.kdp";
  std::ifstream grid(KELDA_BENCH_GRIDS "/am21-03.txt");
  std::ofstream(path) << "Dense\n" << grid.rdbuf();
  (void)OpenPuzzle(desk.app.state, desk.app.host, path);
}

void MeasureTasks() {
  std::printf("%-42s %9s %9s %9s %7s\n", "ms", "longest", "Halt,", "Halt,",
              "Halts");
  std::printf("%-42s %9s %9s %9s\n", "", "wait", "median", "longest");
  const auto run = [](const char* control) {
    return [control](Desk& desk) { desk.Run(control); };
  };
  Measure("Random, 51 x 51", Draw51, run("blackrand"));
  Measure("2x2 Pattern, 51 x 51", Draw51, run("black2x2"));
  Measure("Check, 51 x 51", Lattice51, run("Command19"));
  Measure("Compile, lattice 51 x 51", Lattice51, run("solx(0)"));
  Measure("Compile, lattice 51 x 51, debug panel", Lattice51, run("solx(0)"),
          true);
  Measure("Compile, dense 21 x 21", Dense21, run("solx(0)"));
  Measure("Compile, dense 21 x 21, debug panel", Dense21, run("solx(0)"), true);
}

// Every list that can be long holds 32,000 rows.
void FillLists(State& state) {
  constexpr int kRows = 32000;
  auto& candidates = state.List3.Refill<Candidate>();
  auto& table = state.List4.Refill<Candidate>();
  auto& used = state.List1.Refill<UsedWord>();
  for (int i = 0; i < kRows; ++i) {
    candidates.push_back({});
    table.push_back({});
    used.push_back({});
    state.List8.push_back("line " + std::to_string(i));
  }
}

void MeasureLists() {
  Desk desk;
  auto* panel = desk.window->findChild<QWidget*>("DedugFrames");
  QElapsedTimer timer;
  const auto report = [&](const char* what, const std::function<void()>& act) {
    Times times;
    for (int i = 0; i < 9; ++i) {
      timer.start();
      act();
      QApplication::processEvents();
      times.all.push_back(Ms(timer));
    }
    std::printf("%-42s %9.1f %9.1f\n", what, times.Median(), times.Longest());
  };
  std::printf("\n%-42s %9s %9s\n", "four lists of 32,000 rows, ms", "median",
              "longest");
  FillLists(desk.app.state);
  report("the panel is shown", [&] {
    panel->hide();
    panel->show();
    desk.window->ShowState();
  });
  report("the lists are read again", [&] { desk.window->ShowState(); });
  report("emptied and filled again", [&] {
    ClearLists(desk.app.state);
    desk.app.state.List8.clear();
    desk.Settle();
    FillLists(desk.app.state);
    desk.window->ShowState();
  });
  auto* log = desk.window->findChild<QAbstractItemView*>("List8");
  report("scrolled from end to end", [&] {
    log->scrollToBottom();
    QApplication::processEvents();
    log->scrollToTop();
  });
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  MeasureTasks();
  MeasureLists();
}
