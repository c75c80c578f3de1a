// The 93-byte record of Vintoral.CFR: a ticket that is good for several entries or days.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "records/FixedText.h"

namespace vintoral {

struct RegistroPase {
  FixedText<50> CodigoPase;        ///< blank: the record is free
  FixedText<20> PlacaPase;         ///< the plate of the first use
  std::uint8_t ModoPase = 0;       ///< 0 counts entries, 1 counts days
  FixedText<20> FechaPase;         ///< of days: the entry stamp of the first use; else blank
  std::int16_t RestantesPase = 0;  ///< entries left behind the one in use; of days: those granted, less one

  static constexpr std::size_t kSize = 93;
  static RegistroPase Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroPase&, const RegistroPase&) = default;
};

}  // namespace vintoral
