#include "draw/qt_queue.h"

#include <algorithm>

namespace {

constexpr char kPdf[] = "application/pdf";
constexpr int kLeastMargin = 720;  // half an inch

int Twips(int hundredthsOfMillimetre) {
  return static_cast<int>(hundredthsOfMillimetre * 1440L / 2540);
}

[[noreturn]] void ThrowNoPrinter() {
  cups_dest_t* dests = nullptr;
  const int count = cupsGetDests(&dests);
  cupsFreeDests(count, dests);
  throw PrintError(count == 0
                       ? "Nothing was printed: there is no printer."
                       : "Nothing was printed: no printer is chosen as the "
                         "default.");
}

std::string TextOf(ipp_t* answer, const char* attribute) {
  ipp_attribute_t* found = ippFindAttribute(answer, attribute, IPP_TAG_ZERO);
  const char* text = found ? ippGetString(found, 0, nullptr) : nullptr;
  return text ? text : "";
}

int NumberOf(ipp_t* answer, const char* attribute) {
  ipp_attribute_t* found = ippFindAttribute(answer, attribute, IPP_TAG_ZERO);
  return found ? ippGetInteger(found, 0) : 0;
}

// The end of a sentence: ": why", or a full stop where nothing is known.
std::string Because(const std::string& why) {
  return why.empty() ? "." : ": " + why;
}

}  // namespace

PrintQueue::PrintQueue() {
  // A password is never asked for: there may be no terminal to ask at.
  cupsSetPasswordCB2([](const char*, http_t*, const char*, const char*,
                        void*) { return static_cast<const char*>(nullptr); },
                     nullptr);
  dest_.reset(cupsGetNamedDest(CUPS_HTTP_DEFAULT, nullptr, nullptr));
  if (!dest_) ThrowNoPrinter();
  if (Option("printer-is-accepting-jobs") == "false")
    throw PrintError("Nothing was printed: " + Named("takes no jobs."));
  info_.reset(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, dest_.get()));
  if (!info_)
    throw PrintError(
        "Nothing was printed: " +
        Named("cannot be reached" + Because(cupsLastErrorString())));
}

std::string PrintQueue::Option(const char* name) const {
  const char* value = cupsGetOption(name, dest_->num_options, dest_->options);
  return value ? value : "";
}

// "the printer Office " and the rest of a sentence.
std::string PrintQueue::Named(const std::string& rest) const {
  return std::string("the printer ") + dest_->name + " " + rest;
}

Paper PrintQueue::PaperSize() const {
  cups_size_t size;
  if (!cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, dest_.get(), info_.get(),
                               CUPS_MEDIA_FLAGS_DEFAULT, &size))
    return {};
  const auto margin = [](int hundredths) {
    return std::max(kLeastMargin, Twips(hundredths));
  };
  return {Twips(size.width), Twips(size.length), margin(size.left),
          margin(size.top),  margin(size.right), margin(size.bottom)};
}

void PrintQueue::SendDocument(const std::string& title,
                              const std::string& pdf) {
  const int options = dest_->num_options;
  cups_option_t* values = dest_->options;
  const auto check = [&](bool done) {
    if (!done)
      throw PrintError(
          "Nothing was printed: " +
          Named("refused the job" + Because(cupsLastErrorString())));
  };
  check(cupsCreateDestJob(CUPS_HTTP_DEFAULT, dest_.get(), info_.get(), &job_,
                          title.c_str(), options, values) == IPP_STATUS_OK);
  check(cupsStartDestDocument(CUPS_HTTP_DEFAULT, dest_.get(), info_.get(), job_,
                              title.c_str(), kPdf, options, values,
                              1) == HTTP_STATUS_CONTINUE);
  check(cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.data(), pdf.size()) ==
        HTTP_STATUS_CONTINUE);
  check(cupsFinishDestDocument(CUPS_HTTP_DEFAULT, dest_.get(), info_.get()) ==
        IPP_STATUS_OK);
}

void PrintQueue::Send(const std::string& title, const std::string& pdf) {
  try {
    SendDocument(title, pdf);
  } catch (const PrintError&) {
    if (job_ > 0) cupsCancelDestJob(CUPS_HTTP_DEFAULT, dest_.get(), job_);
    throw;
  }
}

// What the service knows of the job, or of the printer.
PrintQueue::Owned<ipp_t> PrintQueue::Ask(ipp_op_t operation) const {
  ipp_t* request = ippNewRequest(operation);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr,
               Option("printer-uri-supported").c_str());
  if (operation == IPP_OP_GET_JOB_ATTRIBUTES)
    ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job_);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name",
               nullptr, cupsUser());
  return Owned<ipp_t>(cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"));
}

PrintQueue::JobState PrintQueue::StateOfJob() const {
  const Owned<ipp_t> job = Ask(IPP_OP_GET_JOB_ATTRIBUTES);
  switch (NumberOf(job.get(), "job-state")) {
    case IPP_JSTATE_ABORTED:
    case IPP_JSTATE_CANCELED:
      throw PrintError(
          "Nothing was printed: " +
          Named("gave the job up" +
                Because(TextOf(job.get(), "job-printer-state-message"))));
    case IPP_JSTATE_PENDING:
    case IPP_JSTATE_HELD:
    case IPP_JSTATE_STOPPED:
      return JobState::Waiting;
    case IPP_JSTATE_PROCESSING:
      return JobState::Printing;
    default:  // also a job that is done and forgotten
      return JobState::Printed;
  }
}

bool PrintQueue::PrinterIsStopped() const {
  const Owned<ipp_t> printer = Ask(IPP_OP_GET_PRINTER_ATTRIBUTES);
  return NumberOf(printer.get(), "printer-state") == IPP_PSTATE_STOPPED;
}

void PrintQueue::CheckPrinterRuns() const {
  const Owned<ipp_t> printer = Ask(IPP_OP_GET_PRINTER_ATTRIBUTES);
  if (NumberOf(printer.get(), "printer-state") == IPP_PSTATE_PROCESSING) return;
  const std::string why = TextOf(printer.get(), "printer-state-message");
  throw PrintError(
      "Not printed yet: " +
      Named("stands still, the job waits in its queue" + Because(why)));
}
