// Any bytes as a tariff file, priced by each of its own lines, and as the text of an edited table.
#include <algorithm>

#include "tariffs/Tablas.h"
#include "tariffs/TextoTabla.h"
#include "tariffs/Valor.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  std::vector<String> tabla;
  for (const String& record : DecodificarLineas({reinterpret_cast<const char*>(data), size}))
    tabla.push_back(LineaTarifa(record));
  const auto part = [&](std::size_t at) { return at < size ? std::int32_t{data[size - 1 - at]} : 0; };
  const Estadia estadia{part(0) << part(1) % 23, part(2) % 24, part(3) % 60};
  for (std::size_t i = 0; i < std::min<std::size_t>(tabla.size(), 64); ++i)
    if (!CalcularValorDe(tabla, tabla[i], estadia).encontrada) __builtin_trap();
  for (const String& linea : LineasDeTexto({reinterpret_cast<const char*>(data), size}))
    if (LineaExtraEditada(linea).Size() > kAnchoLinea) __builtin_trap();
  return 0;
}
