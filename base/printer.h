// The system's default printer.

#pragma once

#include <stdexcept>
#include <string_view>

#include "base/canvas.h"

// Why nothing came out of the printer, in plain words for the user.
class PrintError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The system's default printer.  Each call throws PrintError where it fails.
class Printer {
 public:
  virtual ~Printer() = default;

  // Begins a document on the printer's paper.  The canvas holds until Send.
  virtual Canvas& Begin(std::string_view title) = 0;
  // Ends the document and sends it to the printer.
  virtual void Send() = 0;
  // Waits a moment for word of what was sent; true when it is printed, or
  // takes so long that there is no point in waiting for more.
  virtual bool Settled() = 0;
};
