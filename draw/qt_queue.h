// The queue of the system's default printer at the print service (CUPS).
//
// Each call asks the service anew and throws PrintError with what it answers,
// where it cannot do what it should.

#pragma once

#include <cups/cups.h>
#include "base/printer.h"

#include <memory>
#include <string>

#include "draw/qt_pages.h"

class PrintQueue {
 public:
  // Finds the default printer; throws PrintError where there is none, or it
  // takes no jobs.
  PrintQueue();

  // The paper in the printer, with margins of half an inch or more.
  Paper PaperSize() const;

  // Sends a PDF file as a job.
  void Send(const std::string& title, const std::string& pdf);

  enum class JobState { Waiting, Printing, Printed };
  // How the job that was sent stands; throws PrintError where it was given
  // up.
  JobState StateOfJob() const;
  bool PrinterIsStopped() const;
  // For a job that waits: returns if the printer prints other jobs meanwhile,
  // and throws PrintError if it stands still.
  void CheckPrinterRuns() const;

 private:
  struct Deleter {
    void operator()(cups_dest_t* dest) const { cupsFreeDests(1, dest); }
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
  };
  template <class T>
  using Owned = std::unique_ptr<T, Deleter>;

  std::string Option(const char* name) const;
  std::string Named(const std::string& rest) const;
  void SendDocument(const std::string& title, const std::string& pdf);
  Owned<ipp_t> Ask(ipp_op_t operation) const;

  Owned<cups_dest_t> dest_;
  Owned<cups_dinfo_t> info_;
  int job_ = 0;
};
