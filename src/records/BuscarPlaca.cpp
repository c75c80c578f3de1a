#include "records/BuscarPlaca.h"

#include <span>

#include "records/FieldMatcher.h"
#include "records/LayoutFicha.h"
#include "records/LayoutUsuario.h"

namespace vintoral {
namespace {

constexpr std::size_t kEnUsoOffset = coding::OffsetOf(kLayoutFicha, &RegistroFicha::EnUso);
constexpr std::size_t kFichaPlateOffset = coding::OffsetOf(kLayoutFicha, &RegistroFicha::Placa);
constexpr std::size_t kUserPlateOffset = coding::OffsetOf(kLayoutUsuario, &RegistroUsuario::Placa);
constexpr std::size_t kPlateWidth = decltype(RegistroFicha::Placa)::kWidth;
static_assert(kPlateWidth == decltype(RegistroUsuario::Placa)::kWidth);

using PlateMatcher = FieldMatcher<kPlateWidth>;

}  // namespace

Result<std::int64_t> BuscarPlaca(const Register<RegistroUsuario>& usuarios, std::string_view placa,
                                 std::int64_t desde, std::int64_t hasta) {
  const PlateMatcher matcher(placa);
  std::int64_t found = 0;
  if (!matcher.Searches()) return 0;
  const auto visit = [&](std::int64_t number, std::span<const char, RegistroUsuario::kSize> bytes) {
    if (matcher.Matches(bytes.data() + kUserPlateOffset)) found = number;
    return found == 0;
  };
  const Outcome walked = usuarios.WalkBytes(desde, hasta, visit);
  if (!walked) return walked;
  return found;
}

Result<std::int64_t> BuscarPlacaDentro(const Register<RegistroFicha>& fichas, std::string_view placa,
                                       std::int64_t ultimo) {
  const PlateMatcher matcher(placa);
  std::int64_t found = 0;
  if (!matcher.Searches()) return 0;
  const auto visit = [&](std::int64_t number, std::span<const char, RegistroFicha::kSize> bytes) {
    bool inUse = false;
    coding::Code<bool>::Read(bytes.data() + kEnUsoOffset, inUse);
    if (inUse && matcher.Matches(bytes.data() + kFichaPlateOffset)) found = number;
    return found == 0;
  };
  const Outcome walked = fichas.WalkBytes(1, ultimo, visit);
  if (!walked) return walked;
  return found;
}

}  // namespace vintoral
