// The search for the code of a ticket: the trimmed field is the code as a whole, case ignored, and the first
// match counts. Looks at the bytes of one field and decodes nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "records/Register.h"
#include "records/RegistroCodigo.h"
#include "records/RegistroPase.h"

namespace vintoral {

/// Number of the first record among 1 to `ultimo` with this code, 0 when there is none. An empty code is
/// nobody's.
Result<std::int64_t> BuscarCodigo(const Register<RegistroCodigo>& codigos, std::string_view codigo,
                                  std::int64_t ultimo);
/// The same among all passes. A torn last record is no pass yet.
Result<std::int64_t> BuscarPase(const Register<RegistroPase>& pases, std::string_view codigo);
/// Where the next pass goes: the first record that is free, or else the number behind the last one. What a
/// station left of a code when it was killed while it wrote across two pages can be no ticket's, and counts
/// as free.
Result<std::int64_t> LugarParaPase(const Register<RegistroPase>& pases);
/// Whether that place is free still.
Result<bool> LugarLibre(const Register<RegistroPase>& pases, std::int64_t lugar);

/// The characters of the codes that stations draw.
inline constexpr std::size_t kLargoCodigo = 12;

}  // namespace vintoral
