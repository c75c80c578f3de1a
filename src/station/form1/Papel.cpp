#include "station/form1/Papel.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "common/Money.h"
#include "common/Numbers.h"

namespace vintoral {
namespace {

constexpr double kTamanoPredeterminado = 10.5;
constexpr float kTamanoMenor = 1, kTamanoMayor = 100;
constexpr float kPorcentajeMayor = 100;

/// The shortest decimal text that gives the same number when it is read.
String Shortest(float number) {
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  return String(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

}  // namespace

String ReglaGuiones() {
  return {kAnchoTiquete, '-'};
}

String ReglaIguales() {
  return {kAnchoTiquete, '='};
}

String LineaPie(std::string_view direccion) {
  const String domain = Left(Dominio(direccion), kAnchoTiquete - 4);
  const String right = " "_w + domain + " --"_w;
  return String(kAnchoTiquete - right.Size(), '-') + right;
}

String Dominio(std::string_view direccion) {
  const std::size_t scheme = direccion.find("://");
  if (scheme != std::string_view::npos) direccion.remove_prefix(scheme + 3);
  return String(direccion.substr(0, direccion.find('/')));
}

String EtiquetaEnColumna(std::string_view etiqueta) {
  return AlignRight(Left(Trim(etiqueta), kAnchoEtiqueta), kAnchoEtiqueta);
}

String LineaDeCampo(std::string_view etiqueta, std::string_view valor) {
  return EtiquetaEnColumna(etiqueta) + " : "_w + Left(Trim(valor), kAnchoValor);
}

double TamanoFuente(float guardado) {
  const bool readable = guardado >= kTamanoMenor && guardado <= kTamanoMayor;  // false of what is no number
  return readable ? static_cast<double>(guardado) : kTamanoPredeterminado;
}

float Porcentaje(float guardado) {
  return guardado > 0 ? std::min(guardado, kPorcentajeMayor) : 0;  // neither is true of what is no number
}

String TextoPorcentaje(float porcentaje) {
  // Rounded once: money has four decimals, a percent may have more.
  return DifferenceInCents(Shortest(porcentaje), Money()).Format();
}

String TextoTamano(double tamano) {
  return ReplaceAll(Shortest(static_cast<float>(tamano)), ".", ",");
}

double ValorNumerico(std::string_view texto) {
  const Decimal number = LeadingDecimal(texto);
  const double value = static_cast<double>(number.digits) / std::pow(10.0, number.decimals);
  return number.negative ? -value : value;
}

float NumeroDecimal(std::string_view texto) {
  return static_cast<float>(ValorNumerico(ReplaceAll(texto, ",", ".")));
}

std::int32_t NumeroSiguiente(std::int32_t numero) {
  constexpr std::int32_t kUltimo = 999'999;
  return numero < kUltimo ? numero + 1 : 1;
}

String PrefijoDe(const RegistroFactura& formato) {
  const std::string_view field = formato.Prefijo.View();
  const std::size_t end = field.find(kMarca);
  return end == std::string_view::npos ? TrimRight(field) : String(field.substr(0, end));
}

}  // namespace vintoral
