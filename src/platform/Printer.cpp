#include "platform/Printer.h"

#include <algorithm>

namespace vintoral {

String ChoosePrinter(const PrinterList& printers, std::string_view wanted) {
  const auto named = [&](const String& name) { return EqualNoCase(Trim(name), Trim(wanted)); };
  const auto found = std::find_if(printers.names.begin(), printers.names.end(), named);
  return found == printers.names.end() ? printers.current : *found;
}

}  // namespace vintoral
