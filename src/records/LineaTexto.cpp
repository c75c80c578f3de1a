#include "records/LineaTexto.h"

namespace vintoral {

String PrimeraLinea(std::string_view text) {
  return String(text.substr(0, text.find_first_of("\r\n")));
}

String ConFinDeLinea(std::string_view line) {
  return String(line) + "\r\n"_w;
}

}  // namespace vintoral
