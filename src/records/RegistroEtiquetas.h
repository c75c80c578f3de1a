// The 132-byte record of Vintoral.LBL: the six labels, the face memory and five print flags.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "records/FixedText.h"

namespace vintoral {

struct RegistroEtiquetas {
  std::array<FixedText<20>, 6> Etiqueta;
  std::int16_t MemoriaRostros = 0;                                  ///< -1 when ImgIndicador(2) was shown
  std::array<bool, 5> ImprimirCampo{true, true, true, true, true};  ///< fields 1 to 5 on ticket and invoice

  static constexpr std::size_t kSize = 132;
  static RegistroEtiquetas Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroEtiquetas&, const RegistroEtiquetas&) = default;
};

}  // namespace vintoral
