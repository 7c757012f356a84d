// The system's default printer.
//
// The pages go to the print service as the very PDF file that is saved
// elsewhere, and each of its answers is looked at: a job that is refused or
// given up, or left waiting by a printer that stands still, is told of in
// plain words.

#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "base/printer.h"
#include "draw/qt_pages.h"

class PrintQueue;

class DefaultPrinter : public Printer {
 public:
  DefaultPrinter();
  ~DefaultPrinter() override;

  Canvas& Begin(std::string_view title) override;
  void Send() override;
  bool Settled() override;

 private:
  using Clock = std::chrono::steady_clock;

  std::string title_;
  std::unique_ptr<PrintQueue> queue_;
  std::unique_ptr<PdfDocument> document_;
  Clock::time_point sent_;
};

// The paper of the default printer; without one, what is usual where the user
// lives.
Paper DefaultPaper();
