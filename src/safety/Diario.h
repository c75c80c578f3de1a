// The log of functions as its file holds it: 1000 records. The first one is the running time of the present
// day; behind it stand, the newest first, what was done and the running times of the days before.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "records/RegistroFuncion.h"

namespace vintoral {

class Diario {
 public:
  static constexpr std::size_t kRegistros = 1000;
  static constexpr std::size_t kLargo = kRegistros * RegistroFuncion::kSize;

  /// `bytes`: what the file holds. Any are legal. Records that are missing from its end, a torn one too, are
  /// made up as `blanco`; what stands behind record 1000 is left out.
  Diario(std::string bytes, const RegistroFuncion& blanco);

  /// `numero`, as everywhere here, from 1 to kRegistros.
  RegistroFuncion Leer(std::size_t numero) const;
  void Poner(std::size_t numero, const RegistroFuncion& registro);
  /// Room at `numero`: the records from there on come down by one, and the oldest is lost.
  void Bajar(std::size_t numero);

  /// All records.
  std::string_view Bytes() const { return bytes_; }

 private:
  using Lugar = std::span<char, RegistroFuncion::kSize>;
  Lugar LugarDe(std::size_t numero);

  std::string bytes_;
};

}  // namespace vintoral
