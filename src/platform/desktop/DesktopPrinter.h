// Slips go to the spooler on a thread of their own: whatever becomes of it, no key waits for a printer.
#pragma once

#include <memory>

#include "platform/Printer.h"
#include "platform/desktop/PrintQueues.h"
#include "platform/desktop/SlipDrawing.h"

namespace vintoral {

class DesktopPrinter : public Printer {
 public:
  /// The tests bring queues of their own.
  explicit DesktopPrinter(SlipFiles files, MakePrintQueues makeQueues = LoadCupsQueues);
  DesktopPrinter(const DesktopPrinter&) = delete;
  DesktopPrinter& operator=(const DesktopPrinter&) = delete;
  /// What the spooler takes within a second or two is printed; the rest is lost, with one line for each slip.
  ~DesktopPrinter() override;

  PrinterList Printers() override;
  void EndDoc(PrintDocument document) override;

  /// Asks for the list of printers, so that it is known when somebody wants to see it. Until then nothing is
  /// loaded, so that a start is not slowed down.
  void Begin();

 private:
  class Worker;
  std::shared_ptr<Worker> worker_;
};

}  // namespace vintoral
