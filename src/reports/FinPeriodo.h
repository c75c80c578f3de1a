#pragma once

namespace vintoral {

/// Whether a record ends the report of a shift: `marca` is that of the record that stood first when one
/// began.
inline bool FinPeriodo(bool turnoActivo, bool marca) {
  return turnoActivo && marca;
}

}  // namespace vintoral
