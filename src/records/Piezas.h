// Vintoral.DAT keeps seven texts of up to 48 characters in its records 2 to 15, each in four pieces of 12:
// CampoA and CampoB of two records that follow each other.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "common/String.h"
#include "records/RegistroMixto.h"

namespace vintoral {

inline constexpr std::size_t kValoresEnPiezas = 7;
/// Records per value, and the first of them all in the file.
inline constexpr std::size_t kRegistrosPorValor = 2;
inline constexpr int kPrimerRegistroDePiezas = 2;

using RegistrosDePiezas = std::array<RegistroMixto, kValoresEnPiezas * kRegistrosPorValor>;

/// The seven values of records 2 to 15, in order.
std::array<String, kValoresEnPiezas> UnirPiezas(const RegistrosDePiezas& registros);
/// The records of the seven values; what is longer than 48 characters is cut. An unused piece is an empty
/// text.
RegistrosDePiezas CortarPiezas(const std::array<String, kValoresEnPiezas>& valores);

}  // namespace vintoral
