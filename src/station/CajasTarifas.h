// The boxes in which the operator edits the tables.
#pragma once

#include "station/forms/Controls.h"

namespace vintoral {

/// Has the operator changed the box since it was filled for him?
inline bool Cambiada(const TextBox& caja) {
  return caja.TagNumber() == 1;
}

}  // namespace vintoral
