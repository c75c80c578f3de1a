#include "reports/Tira.h"

#include <algorithm>

#include "station/form1/Papel.h"

namespace vintoral {

PrintDocument EmpezarTira(const String& impresora, float tamano) {
  PrintDocument tira(impresora);
  tira.FontSize = TamanoFuente(tamano);
  return tira;
}

void TerminarTira(PrintDocument& tira, const String& direccion, std::string_view pie) {
  tira.Print(LineaPie(direccion));
  // The dot is what makes the printer feed the paper that far.
  const String feed(kFinDeLinea);
  tira.Print(TrimRight(pie) + feed + feed + feed + "."_w);
}

String Blancos(std::size_t columnas, std::size_t ocupadas) {
  return {columnas - std::min(columnas, ocupadas), ' '};
}

void ImprimirNegrita(PrintDocument& tira, const String& text) {
  tira.FontBold = true;
  tira.Print(text);
  tira.FontBold = false;
}

}  // namespace vintoral
