#include "view/qt_draw_printer.h"

#include <QLocale>
#include <thread>

#include "view/qt_draw_font.h"
#include "view/qt_draw_queue.h"

namespace {

using std::chrono::milliseconds;

constexpr auto kBetweenLooks = milliseconds(50);
// How long a job is watched that is being printed, or that is not begun.
constexpr auto kPrintingPatience = milliseconds(5000);
constexpr auto kWaitingPatience = milliseconds(2000);

Paper UsualPaper() {
  return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem
             ? kLetter
             : kA4;
}

Paper PaperOf(const PrintQueue& queue) {
  const Paper paper = queue.PaperSize();
  const bool known = paper.width > paper.left + paper.right &&
                     paper.height > paper.top + paper.bottom;
  return known ? paper : UsualPaper();
}

// A name that the print service takes: UTF-8, at most 255 bytes.
std::string JobTitle(std::string_view title) {
  const QString name = FromText(title.substr(0, 120)).simplified();
  return name.isEmpty() ? "Crossword" : name.toStdString();
}

}  // namespace

DefaultPrinter::DefaultPrinter() = default;
DefaultPrinter::~DefaultPrinter() = default;

Canvas& DefaultPrinter::Begin(std::string_view title) {
  title_ = JobTitle(title);
  queue_ = std::make_unique<PrintQueue>();
  document_ = std::make_unique<PdfDocument>(PaperOf(*queue_), title);
  return document_->Pages();
}

void DefaultPrinter::Send() {
  queue_->Send(title_, document_->Finish());
  document_.reset();
  sent_ = Clock::now();
}

bool DefaultPrinter::Settled() {
  const PrintQueue::JobState state = queue_->StateOfJob();
  const auto passed = Clock::now() - sent_;
  if (state == PrintQueue::JobState::Printed ||
      (state == PrintQueue::JobState::Printing && passed > kPrintingPatience))
    return true;
  if (state == PrintQueue::JobState::Waiting && passed > kWaitingPatience) {
    queue_->CheckPrinterRuns();
    return true;
  }
  std::this_thread::sleep_for(kBetweenLooks);
  return false;
}

Paper DefaultPaper() {
  try {
    return PaperOf(PrintQueue());
  } catch (const PrintError&) {
    return UsualPaper();
  }
}
