#pragma once

#include "platform/Printer.h"

namespace vintoral {

/// A desktop without printers.
class DesktopPrinter : public Printer {
 public:
  PrinterList Printers() override { return {}; }
  void EndDoc(PrintDocument) override {}
};

}  // namespace vintoral
