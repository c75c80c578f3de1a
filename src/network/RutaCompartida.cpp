#include "station/form1/Form1.h"

namespace vintoral {

String Form1::RutaCompartida(std::string_view file) const {
  // The main gate uses the relative path: the absolute one may have letters that Windows-1252 lacks.
  const String folder = EsCliente != 0 ? CarpetaCompartida : "Multimedia"_w;
  return folder + "\\"_w + String(file);
}

String Form1::RutaMostrada(std::string_view file) const {
  if (CarpetaMostrada == CarpetaCompartida) return RutaCompartida(file);
  return CarpetaMostrada + "\\"_w + String(file);
}

}  // namespace vintoral
