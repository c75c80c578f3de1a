// The search for a plate: the trimmed field is the typed text as a whole, case ignored, and the first match
// counts. Looks at the bytes of one field and decodes nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "records/Register.h"
#include "records/RegistroFicha.h"
#include "records/RegistroUsuario.h"

namespace vintoral {

/// Number of the first among the users `desde` to `hasta` with this plate, 0 when there is none. `hasta` is
/// the count of the register, or a torn last record would be a user. An empty plate finds nobody.
Result<std::int64_t> BuscarPlaca(const Register<RegistroUsuario>& usuarios, std::string_view placa,
                                 std::int64_t desde, std::int64_t hasta);
/// Number of the first slot among 1 to `ultimo` that is in use and holds this plate, else 0.
Result<std::int64_t> BuscarPlacaDentro(const Register<RegistroFicha>& fichas, std::string_view placa,
                                       std::int64_t ultimo);

}  // namespace vintoral
