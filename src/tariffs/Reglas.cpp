#include "tariffs/Reglas.h"

#include <algorithm>
#include <array>

#include "common/Numbers.h"
#include "common/String.h"

namespace vintoral {
namespace {

constexpr std::size_t kWidthOfKey = 4;
constexpr std::size_t kWidthOfValue = 9;
constexpr int kDecimals = 8;  // of kEscalaValor

bool HoldsLetter(std::string_view line, char capital) {
  return std::any_of(line.begin(), line.end(), [capital](char c) { return UpperByte(c) == capital; });
}

std::int64_t KeyIn(std::string_view line) {
  const std::int64_t key = LeadingInteger(TrimBlanks(line.substr(0, line.find('='))).substr(0, kWidthOfKey));
  return key < 0 ? -key : key;
}

std::string_view ValueText(std::string_view line) {
  return TrimBlanks(line.substr(line.find('=') + 1));
}

std::int64_t ValueIn(std::string_view line) {
  const std::string_view text = ValueText(line);
  const std::size_t width = std::min(text.size(), kWidthOfValue);
  std::array<char, kWidthOfValue> pointed{};
  for (std::size_t i = 0; i < width; ++i)
    pointed[i] = text[i] == ',' ? '.' : text[i];
  const Decimal number = LeadingDecimal({pointed.data(), width});
  auto value = static_cast<std::int64_t>(number.digits);
  for (int decimals = number.decimals; decimals < kDecimals; ++decimals)
    value *= 10;
  return value;
}

}  // namespace

bool EsRegla(std::string_view linea) {
  return linea.find('=') != std::string_view::npos;
}

ReglaTarifa LeerRegla(std::string_view linea) {
  return {.clave = KeyIn(linea),
          .valor = ValueIn(linea),
          .minutos = HoldsLetter(linea, 'M'),
          .horas = TieneHoras(linea),
          .dias = HoldsLetter(linea, 'D'),
          .estrella = linea.find('*') != std::string_view::npos,
          .dosEstrellas = linea.find("**") != std::string_view::npos};
}

bool MarcaPrimeraHora(const ReglaTarifa& regla) {
  return regla.minutos && regla.clave == 1 && regla.dosEstrellas;
}

bool ValorEsCeroDosEstrellas(std::string_view linea) {
  return ValueText(linea) == "0**";
}

bool TieneHoras(std::string_view linea) {
  return HoldsLetter(linea, 'H');
}

}  // namespace vintoral
