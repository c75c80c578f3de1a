#include "station/form1/Sellos.h"

#include "common/Moment.h"

namespace vintoral {

String TextoSelloEntrada(const String& porteria, const String& marca) {
  return "PE"_w + porteria + " "_w + StampTime(marca) + " "_w + StampDate(marca);
}

String TextoSelloSalida(const String& letras, const String& porteria, const String& marca) {
  return letras + porteria + " "_w + StampTime(marca) + " ("_w + StampDate(marca) + ")"_w;
}

}  // namespace vintoral
