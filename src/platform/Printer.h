// The printers of this machine.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "common/String.h"
#include "platform/PrintDocument.h"

namespace vintoral {

/// What stands ready to print, by device names.
struct PrinterList {
  std::vector<String> names;  ///< in the system's order
  String current;             ///< the system's default; empty where there is none
};

/// The printer that a document goes to: the first whose name is the wanted one (blanks at both ends and case
/// don't count), else the current one; empty where there is none either.
String ChoosePrinter(const PrinterList& printers, std::string_view wanted);

class Printer {
 public:
  virtual ~Printer() = default;
  /// The printers as far as they are known: a system that is slow to tell of them is not waited for longer
  /// than a tenth of a second.
  virtual PrinterList Printers() = 0;
  /// The document is through. It is handed over, and the station goes on: what becomes of it on its way to
  /// the paper is told on standard error alone. Documents come out in the order in which they were handed
  /// over. Without any printer it is lost, which is no error.
  virtual void EndDoc(PrintDocument document) = 0;
};

}  // namespace vintoral
