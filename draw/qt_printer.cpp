#include "draw/qt_printer.h"

#include <QLocale>
#include <thread>

#include "draw/qt_font.h"
#include "draw/qt_queue.h"

namespace {

using std::chrono::milliseconds;

constexpr auto kBetweenLooks = milliseconds(50);
// How long a job is watched.  One that is being printed by then is taken as
// printed.
constexpr auto kPatience = milliseconds(5000);

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
  const QString name = FromText(title).left(120).simplified();
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
  using JobState = PrintQueue::JobState;
  const JobState job = queue_->StateOfJob();
  const bool patient = Clock::now() - sent_ < kPatience;
  if (job == JobState::Waiting && (!patient || queue_->PrinterIsStopped()))
    queue_->CheckPrinterRuns();
  if (job == JobState::Printed || !patient) return true;
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
