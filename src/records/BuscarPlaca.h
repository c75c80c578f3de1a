// The search for a plate: the trimmed field is the typed text as a whole, case ignored, and the first match
// counts. Looks at the bytes of one field and decodes nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "records/Register.h"
#include "records/RegistroFicha.h"
#include "records/RegistroUsuario.h"

namespace vintoral {

/// Number of the first user with this plate, 0 when there is none. A torn last record is no user yet. An
/// empty plate finds nobody.
Result<std::int64_t> BuscarPlaca(const Register<RegistroUsuario>& usuarios, std::string_view plate);
/// Number of the first slot among 1 to `last` that is in use and holds this plate, else 0.
Result<std::int64_t> BuscarPlacaDentro(const Register<RegistroFicha>& fichas, std::string_view plate,
                                       std::int64_t last);

}  // namespace vintoral
