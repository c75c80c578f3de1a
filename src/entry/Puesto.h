// The slot of Vintoral.ACT that the number on the screen names.
#pragma once

#include <cstdint>
#include <optional>

#include "records/RegistroFicha.h"

namespace vintoral {

class Form1;

/// The slot as it stands on disk; nothing, and the link watch looks at once, when it can't be read.
std::optional<RegistroFicha> LeerPuesto(Form1& form, std::int64_t numero);

}  // namespace vintoral
