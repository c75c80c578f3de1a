#include "station/form1/DetalleEstadia.h"

#include "common/Numbers.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

/// The fields that are printed, and a rule below them.
String Campos(const DatosEstadia& estadia) {
  const String lineBreak(kFinDeLinea);
  String lines;
  for (const CampoImpreso& campo : estadia.campos) {
    if (campo.imprimir) lines += LineaDeCampo(campo.etiqueta, campo.valor) + lineBreak;
  }
  return lines.Empty() ? lines : lines + ReglaGuiones() + lineBreak;
}

}  // namespace

String DetalleEstadia(const DatosEstadia& estadia) {
  const String lineBreak(kFinDeLinea);
  String detail = Campos(estadia);
  detail += "  ENTRADA : "_w + estadia.entrada + lineBreak;
  detail += "   SALIDA : "_w + estadia.salida + lineBreak;
  detail += String(1, kMarca);
  detail += "CATEGORIA : "_w + Left(Trim(estadia.categoria), kAnchoValor) + lineBreak;
  if (estadia.puntos) detail += "  *PUNTOS : "_w + Digits(*estadia.puntos) + lineBreak;
  return detail + "   TIEMPO : "_w + estadia.tiempo;
}

}  // namespace vintoral
