#include "safety/Diario.h"

#include <algorithm>
#include <utility>

#include "records/RegistroMixto.h"

namespace vintoral {

Diario::Diario(std::string bytes, const RegistroFuncion& blanco) : bytes_(std::move(bytes)) {
  const std::size_t whole = std::min(bytes_.size() / RegistroFuncion::kSize, kRegistros);
  bytes_.resize(whole * RegistroFuncion::kSize);
  bytes_.resize(kLargo, '\0');
  for (std::size_t numero = whole + 1; numero <= kRegistros; ++numero)
    Poner(numero, blanco);
}

Diario::Lugar Diario::LugarDe(std::size_t numero) {
  return Lugar(bytes_.data() + (numero - 1) * RegistroFuncion::kSize, RegistroFuncion::kSize);
}

RegistroFuncion Diario::Leer(std::size_t numero) const {
  const char* const from = bytes_.data() + (numero - 1) * RegistroFuncion::kSize;
  return RegistroFuncion::Decode(std::span<const char, RegistroFuncion::kSize>(from, RegistroFuncion::kSize));
}

void Diario::Poner(std::size_t numero, const RegistroFuncion& registro) {
  registro.EncodeOver(LugarDe(numero));
}

void Diario::Bajar(std::size_t numero) {
  for (std::size_t to = kRegistros; to > numero; --to) {
    const Lugar from = LugarDe(to - 1);
    std::copy_n(from.begin(), RegistroMixto::Used(from), LugarDe(to).begin());
  }
}

}  // namespace vintoral
