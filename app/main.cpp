// kelda: the desktop program.

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>

#include "base/user_folders.h"
#include "draw/qt_printer.h"
#include "view/qt_clipboard.h"
#include "view/qt_main_window.h"
#include "view/qt_publisher.h"

namespace {

constexpr char kUsage[] =
    "Usage: kelda [OPTIONS] [FILE]\n"
    "Makes, checks and fills crossword puzzles.  FILE is a puzzle of any\n"
    "format: .ipuz, .jpz, .puz, .xd, Across Lite text or .kdp.\n"
    "\n"
    "  --dictionary-service URL  ask this service for meanings instead of the\n"
    "                            built-in dictionary (or set\n"
    "                            KELDA_DICTIONARY_SERVICE)\n"
    "  --seed NUMBER             draw the same random numbers in every run\n"
    "  --help                    show this text\n"
    "  --version                 show the version\n"
    "\n"
    "For scripts there is kelda-cli.\n";

struct Options {
  std::string file;
  std::string service;
  std::optional<std::uint64_t> seed;
};

[[noreturn]] void FailUsage(const std::string& what) {
  std::cerr << "kelda: " << what << "; see kelda --help\n";
  std::exit(2);
}

std::uint64_t ReadSeed(const std::string& text) {
  std::uint64_t seed = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, seed);
  if (error != std::errc() || rest != end)
    FailUsage("--seed needs a whole number, not " + text);
  return seed;
}

Options ReadOptions(int argc, char** argv) {
  Options options;
  std::string seed;
  if (const char* service = std::getenv("KELDA_DICTIONARY_SERVICE"))
    options.service = service;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const auto value = [&](const std::string& name, std::string& into) {
      if (arg == name && i + 1 < argc) return into = argv[++i], true;
      if (arg == name) FailUsage(name + " needs a value");
      if (!arg.starts_with(name + "=")) return false;
      into = arg.substr(name.size() + 1);
      return true;
    };
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      std::exit(0);
    }
    if (arg == "--version") {
      std::cout << "Kelda " KELDA_VERSION "\n";
      std::exit(0);
    }
    if (value("--dictionary-service", options.service) || value("--seed", seed))
      continue;
    if (arg.starts_with("-")) FailUsage("there is no option " + arg);
    if (!options.file.empty()) FailUsage("only one file can be opened");
    options.file = arg;
  }
  if (!seed.empty()) options.seed = ReadSeed(seed);
  return options;
}

// Says in one sentence that there is no display, in place of the toolkit's
// own report.
void ReportNoDisplay(QtMsgType type, const QMessageLogContext&,
                     const QString&) {
  if (type != QtFatalMsg) return;
  std::cerr << "kelda: there is no display to show the window on; kelda-cli "
               "works without one\n";
  std::_Exit(1);
}

// Beside the program, in this installation's data folder, or in the one that
// the program was built for.
QString HelpPage() {
  const QString program = QApplication::applicationDirPath();
  for (const QString& folder : {program, program + "/../share/kelda"})
    if (QFileInfo::exists(folder + "/kdpuzzle.htm"))
      return folder + "/kdpuzzle.htm";
  return KELDA_DATA_DIR "/kdpuzzle.htm";
}

}  // namespace

int main(int argc, char** argv) {
  // A file that gets too large is a write that fails.
  std::signal(SIGXFSZ, SIG_IGN);
  const Options options = ReadOptions(argc, argv);
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") &&
      !std::getenv("QT_QPA_PLATFORM"))
    ReportNoDisplay(QtFatalMsg, {}, {});
  const auto before = qInstallMessageHandler(ReportNoDisplay);
  QApplication application(argc, argv);
  qInstallMessageHandler(before);
  QApplication::setApplicationName("Kelda");
  QApplication::setApplicationVersion(KELDA_VERSION);
  QApplication::setDesktopFileName("kelda");
  QApplication::setWindowIcon(
      QIcon::fromTheme("kelda", QIcon(":/kelda/kelda.png")));

  WindowHost host;
  App app{{}, {}, host};
  QtPicture picture(app.state.paint);
  if (options.seed) host.Seed(*options.seed);
  MainWindow window(
      app, host, picture,
      {QString::fromStdString(options.service), UserStateFolder(), HelpPage()});
  DefaultPrinter printer;
  QtBitmapClipboard clipboard(picture);
  QtPublisher publisher(&window);
  app.outlets = {&printer, &clipboard, &publisher};
  window.show();
  QApplication::processEvents();
  window.Start(options.file);
  return QApplication::exec();
}
