// Vintoral.DAT: the state of the screen, the panic contact and the station's marks, in 16 records.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "records/Register.h"
#include "records/RegistroMixto.h"
#include "station/form1/Archivos.h"

namespace vintoral::dat {

/// Record numbers; those of the panic contact stand in between.
inline constexpr std::int64_t kEstado = 1, kMarcas = 16;

/// Nothing where the file holds no such record, whole.
inline std::optional<RegistroMixto> Read(Disk& disk, std::int64_t number) {
  const Register<RegistroMixto> file(disk, archivo::kEstado, OpenMode::kRead);
  if (file.Missing() || file.Count().PassOver().value_or(0) < number) return std::nullopt;
  return file.Read(number).PassOver();
}

/// On disk when this returns; the file is made where it is missing.
inline void Write(Disk& disk, std::int64_t number, const RegistroMixto& record) {
  disk.ClearReadOnly(archivo::kEstado).PassOver();
  Register<RegistroMixto> file(disk, archivo::kEstado, OpenMode::kCreate);
  (file ? file.Write(number, record, true) : file.Opened()).PassOver();
}

/// The nearest number that a record holds.
inline std::int16_t Short(std::int64_t value) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::clamp(value, -kLargest, kLargest));
}

}  // namespace vintoral::dat
