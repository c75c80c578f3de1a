// What a user's points come to.
#pragma once

#include <cstdint>

namespace vintoral {

/// Points behind a stay that earned `ganados`. A total that passes the most begins anew with the stay's own.
constexpr std::int64_t PuntosTras(std::int64_t antes, std::int64_t ganados) {
  constexpr std::int64_t kMost = 999'999;
  return antes + ganados > kMost ? ganados : antes + ganados;
}

}  // namespace vintoral
