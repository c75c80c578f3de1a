// Any bytes as a log of functions: what comes of them has a thousand records, a move loses the oldest alone,
// and the report of it has no more rows than that.
#include <algorithm>
#include <string>

#include "safety/Diario.h"
#include "safety/Horario.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using vintoral::Diario;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Diario log(bytes, {});
  const vintoral::RegistroFuncion first = log.Leer(1), last = log.Leer(Diario::kRegistros - 1);
  log.Bajar(1);
  if (log.Bytes().size() != Diario::kLargo) __builtin_trap();
  if (log.Leer(2) != first || log.Leer(Diario::kRegistros) != last) __builtin_trap();
  log.Poner(1, {});
  if (log.Leer(2) != first) __builtin_trap();
  const vintoral::String held{bytes};
  const std::string text = vintoral::TextoHorario("01", &held).Bytes();
  if (!text.starts_with("\r\n Vintoral") || !text.ends_with("--\r\n\r\n\r\n\r\n")) __builtin_trap();
  return 0;
}
