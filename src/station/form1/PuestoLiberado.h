// What a slot was before its ficha left.
#pragma once

#include <cstdint>
#include <optional>

#include "common/String.h"
#include "records/RegistroCodigo.h"
#include "records/RegistroFicha.h"

namespace vintoral {

/// Freed for an exit, and given back where the row of that exit can't be written.
struct PuestoLiberado {
  String carpeta;  ///< the data folder
  std::int64_t numero = 0;
  RegistroFicha ficha;                   ///< as it was inside
  std::optional<RegistroCodigo> codigo;  ///< nothing where codes can't be read, or aren't kept
};

}  // namespace vintoral
