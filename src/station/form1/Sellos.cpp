#include "station/form1/Sellos.h"

namespace vintoral {
namespace {

struct Marca {
  String hora, fecha;
};

Marca Partes(const String& marca) {
  constexpr std::size_t kTime = 0, kTimeWidth = 5, kDate = 8, kDateWidth = 10;
  const std::string_view text = marca;
  const auto piece = [&](std::size_t from, std::size_t width) {
    return String(from < text.size() ? text.substr(from, width) : std::string_view());
  };
  return {piece(kTime, kTimeWidth), piece(kDate, kDateWidth)};
}

}  // namespace

String TextoSelloEntrada(const String& porteria, const String& marca) {
  const Marca partes = Partes(marca);
  return "PE"_w + porteria + " "_w + partes.hora + " "_w + partes.fecha;
}

String TextoSelloSalida(const String& letras, const String& porteria, const String& marca) {
  const Marca partes = Partes(marca);
  return letras + porteria + " "_w + partes.hora + " ("_w + partes.fecha + ")"_w;
}

}  // namespace vintoral
