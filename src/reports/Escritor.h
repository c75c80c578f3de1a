// The way of a report to its file: in pieces, so that a report of years needs no more memory than one of a
// day.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "common/Outcome.h"
#include "common/String.h"

namespace vintoral {

/// Takes the next piece of a file. Nothing is given to it any more once it has failed.
using Destino = std::function<Outcome(std::string_view pieza)>;

class Escritor {
 public:
  explicit Escritor(Destino destino) : destino_(std::move(destino)) { pieza_.reserve(kPieza + kSobra); }

  void Escribir(std::string_view texto) {
    pieza_.append(texto);
    if (pieza_.size() >= kPieza) Entregar();
  }
  /// With its CR LF.
  void Linea(std::string_view texto = {});
  /// Text as it is to be seen on a page: what HTML takes for its own is written as its entity.
  void EscribirVisible(std::string_view texto);
  /// What is left; the first failure where there was one.
  Outcome Terminar();

  static constexpr std::size_t kPieza = std::size_t{64} << 10;

 private:
  void Entregar();

  static constexpr std::size_t kSobra = 1024;  ///< what nearly all texts stay below
  Destino destino_;
  std::string pieza_;
  Outcome hecho_ = Outcome::Done();
};

}  // namespace vintoral
