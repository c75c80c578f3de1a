// A slot that has to be given back.
#pragma once

#include <cstdint>
#include <optional>

#include "common/String.h"
#include "records/RegistroCodigo.h"
#include "records/RegistroFicha.h"

namespace vintoral {

/// Freed for an exit whose row could not be written, by a gate whose folder had gone by then.
struct PuestoPendiente {
  String carpeta;  ///< the data folder
  std::int64_t numero = 0;
  RegistroFicha ficha;                   ///< as it was inside
  std::optional<RegistroCodigo> codigo;  ///< nothing where codes can't be read, or aren't kept
};

}  // namespace vintoral
