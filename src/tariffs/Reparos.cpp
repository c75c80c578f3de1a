#include "tariffs/Reparos.h"

#include <algorithm>

#include "common/Money.h"
#include "common/Numbers.h"
#include "tariffs/Reglas.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

constexpr std::size_t kWidthOfKey = 4;
constexpr std::size_t kWidthOfNumber = 9;

bool HoldsDigit(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos;
}

/// "12.500" for twelve thousand and a half: prices have two decimals, thousands have three digits.
bool LooksLikeThousands(const Decimal& number) {
  return number.decimals == 3 && number.digits >= 1000;
}

int Classes(const ReglaTarifa& regla) {
  return int{regla.minutos} + int{regla.horas} + int{regla.dias};
}

String ReparoDeClave(std::string_view clave) {
  const Decimal number = LeadingDecimal(clave.substr(0, kWidthOfKey));
  if (!HoldsDigit(clave.substr(0, number.length))) return "La clave se lee 0: no empieza por un número."_w;
  if (number.decimals == 0 && !HoldsDigit(clave.substr(number.length))) return {};
  const std::int64_t read = LeadingInteger(clave.substr(0, kWidthOfKey));
  return "La clave se lee "_w + Digits(read < 0 ? -read : read) +
         ": cuenta el entero del comienzo, de hasta 4 cifras."_w;
}

String ReparoDeUnidad(const ReglaTarifa& regla, const ReglaTarifa& valueAlone) {
  if (Classes(regla) == 0) return "Sin M, H ni D la regla nunca se aplica."_w;
  if (Classes(valueAlone) > 0) return "Una letra M, H o D del valor cuenta como unidad."_w;
  if (Classes(regla) > 1) return "Lleva más de una unidad y cuenta en cada una."_w;
  return {};
}

String ReparoDeEstrellas(std::string_view linea, const ReglaTarifa& regla) {
  const bool apart = !regla.dosEstrellas && std::count(linea.begin(), linea.end(), '*') > 1;
  return apart ? "Las dos estrellas van juntas: se lee una sola."_w : String();
}

}  // namespace

String ReparoDeNumero(std::string_view texto, std::string_view marks) {
  const String pointed = ReplaceAll(TrimBlanks(texto), ",", ".");
  const std::string_view text = pointed;
  const Decimal number = LeadingDecimal(text);
  const auto reads = [text](const String& why) {
    const Money money = MoneyFromText(text.substr(0, kWidthOfNumber));
    return "Se lee "_w + (money < Money() ? Money() - money : money).Plain() + ": "_w + why;
  };
  if (!HoldsDigit(text.substr(0, number.length))) return reads("falta el número después del signo =."_w);
  if (number.length > kWidthOfNumber) return reads("el número se corta en 9 caracteres."_w);
  if (number.negative) return reads("el signo menos no cuenta."_w);
  const std::string_view rest = text.substr(number.length);
  if (rest.find_first_not_of(marks) != std::string_view::npos)
    return reads("después del número sobra texto."_w);
  if (LooksLikeThousands(number)) return reads("el punto y la coma separan decimales."_w);
  return {};
}

String ReparoDeRegla(std::string_view linea) {
  const std::string_view typed = TrimBlanks(linea);
  const String kept = LineaTarifa(typed);
  if (!EsRegla(kept)) return "Se pierde el signo =: solo cuentan 20 caracteres."_w;
  const ReglaTarifa regla = LeerRegla(kept);
  if (regla != LeerRegla(typed)) return "Se pierde el final: solo cuentan 20 caracteres."_w;
  const std::size_t equals = kept.Bytes().find('=');
  const std::string_view right = std::string_view(kept).substr(equals);
  for (const String& reparo : {ReparoDeClave(TrimBlanks(std::string_view(kept).substr(0, equals))),
                               ReparoDeUnidad(regla, LeerRegla(right)), ReparoDeEstrellas(kept, regla)}) {
    if (!reparo.Empty()) return reparo;
  }
  return ReparoDeNumero(right.substr(1), " *");
}

}  // namespace vintoral
