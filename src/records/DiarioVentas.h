// The journal of sales: which lines a list of sales lacks that a power cut has brought back.
//
// One entry behind another from the beginning of the file, each in sectors of its own, so that no write can
// tear one that is on the disk already. What is no whole entry ends the journal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "common/String.h"

namespace vintoral {

struct AnotacionVenta {
  std::uint64_t antes = 0;  ///< Digest of the list on top of which the lines were put
  String arranque;          ///< Disk::BootId of the machine that put them
  String lineas;            ///< whole records

  friend bool operator==(const AnotacionVenta&, const AnotacionVenta&) = default;
};

/// The room that the journal takes on the disk before the first entry, so that no later one waits for more
/// than its own sectors. In bytes.
inline constexpr std::size_t kLugarDiario = std::size_t{64} << 10;

/// Whole sectors.
String EnDiario(const AnotacionVenta& anotacion);

struct DiarioVentas {
  std::vector<AnotacionVenta> anotaciones;  ///< the oldest first
  std::size_t fin = 0;                      ///< where the next one goes
};
/// Any bytes are legal.
DiarioVentas LeerDiario(std::string_view bytes);

/// The list with the sales on top that it lacks. A machine that has not been started anew since has forgotten
/// nothing, so a sale that its list lacks was never made.
String ListaAlDia(String lista, const std::vector<AnotacionVenta>& anotaciones, std::string_view arranque);

}  // namespace vintoral
