// The way of a report to its file: in pieces, so that a report of years needs no more memory than one of a
// day.
#pragma once

#include <cerrno>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

#include "common/Outcome.h"
#include "common/String.h"

namespace vintoral {

/// Takes the next piece of a file. Nothing is given to it any more once it has failed.
using Destino = std::function<Outcome(std::string_view pieza)>;

/// What becomes of a report that the operator has ended: nobody needs to be told.
inline Outcome InformeInterrumpido() {
  return Outcome::Failed("go on with", "a report", ECANCELED);
}
inline bool EsInterrumpido(const Outcome& informe) {
  return informe.Error() == ECANCELED;
}

class Escritor {
 public:
  explicit Escritor(Destino destino)
      : destino_(std::move(destino)), pieza_(std::make_unique_for_overwrite<char[]>(kPieza)) {}

  void Escribir(std::string_view texto) {
    if (texto.size() > kPieza - usado_) return EscribirLargo(texto);
    usado_ += texto.copy(pieza_.get() + usado_, texto.size());
  }
  /// With its CR LF.
  void Linea(std::string_view texto = {});
  /// Text as it is to be seen on a page: what HTML takes for its own is written as its entity.
  void EscribirVisible(std::string_view texto);
  /// What is left; the first failure where there was one.
  Outcome Terminar();

  static constexpr std::size_t kPieza = std::size_t{64} << 10;

 private:
  void EscribirLargo(std::string_view texto);
  void EscribirTramo(std::string_view texto);
  void Entregar();

  static constexpr std::size_t kTramo = 1024;  ///< fits a piece with each character an entity
  Destino destino_;
  std::unique_ptr<char[]> pieza_;
  std::size_t usado_ = 0;
  Outcome hecho_ = Outcome::Done();
};

}  // namespace vintoral
