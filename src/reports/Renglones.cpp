#include "reports/Renglones.h"

#include "common/Numbers.h"
#include "station/form1/Papel.h"

namespace vintoral {
String LineaTitulo(const String& titulo, const String& porteria) {
  constexpr std::size_t kAncho = 21;
  return "Vintoral"_w + AlignRight(titulo + " P"_w, kAncho) + porteria;
}

String LineaHoraFecha(const String& sello) {
  return "HORA/FECHA  "_w + sello;
}

String LineaInicio(const String& sello) {
  return "INICIO -->  "_w + sello;
}

String LineaFinal(const String& sello) {
  return " FINAL -->  "_w + sello;
}

String LineaRegistros(std::int64_t registros) {
  return Digits(registros) + " Registro(s)"_w;
}

String LineaSubtotal(const String& moneda, const Suma& suma) {
  return AlignRight(ConMoneda(moneda, suma), kAnchoTiquete);
}

String LineaTotal(const String& moneda, const Suma& suma) {
  return AlignRight("TOTAL "_w + ConMoneda(moneda, suma), kAnchoTiquete);
}

}  // namespace vintoral
