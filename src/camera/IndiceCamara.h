// Recursos\Vintoral.WCM: which of the cameras the gate uses, as its place in the list.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/Disk.h"

namespace vintoral {

/// From 0; nothing when the file is missing, cut or can't be read.
std::optional<std::int32_t> LeerIndiceCamara(Disk& disk);
Outcome EscribirIndiceCamara(Disk& disk, std::int32_t indice);

}  // namespace vintoral
