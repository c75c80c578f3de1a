// Any text in the dialog of the tables: what is said of its lines, and the curve of a category in it.
#include "tariffs/Categoria.h"
#include "tariffs/Curva.h"
#include "tariffs/Revision.h"
#include "tariffs/TextoTabla.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  const std::vector<String> lineas = LineasDeTexto({reinterpret_cast<const char*>(data), size});
  for (const auto& reparos : {RevisarTarifas(lineas), RevisarExtras(lineas), RevisarPrepago(lineas)})
    if (reparos.size() != lineas.size()) __builtin_trap();
  const std::vector<Money> curve = CurvaDeTarifa(lineas, CategoriaEnLinea(lineas, lineas.size() / 2));
  if (!curve.empty() && curve.size() != kPuntosCurva) __builtin_trap();
  return 0;
}
