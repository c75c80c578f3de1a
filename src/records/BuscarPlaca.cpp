#include "records/BuscarPlaca.h"

#include <span>

#include "common/String.h"

namespace vintoral {
namespace {

constexpr std::size_t kPlateWidth = 20;
constexpr std::size_t kEnUsoOffset = 0;
constexpr std::size_t kFichaPlateOffset = 46;
constexpr std::size_t kUserPlateOffset = 0;

/// Compares fields with one plate. Nearly all fields differ in their first character, so that one decides
/// before anything else is looked at.
class PlateMatcher {
 public:
  explicit PlateMatcher(std::string_view plate) : plate_(TrimView(plate)) {
    if (plate_.empty()) return;
    upper_ = UpperByte(plate_.front());
    lower_ = std::string_view(Lower(plate_.substr(0, 1))).front();
  }

  bool Searches() const { return !plate_.empty(); }

  bool Matches(const char* field) const {
    const char first = *field;
    const bool begins = first == upper_ || first == lower_;
    const bool filler = first == ' ' || first == '\0';
    if (!begins && !filler) return false;
    return EqualNoCase(TrimView({field, kPlateWidth}), plate_);
  }

 private:
  std::string_view plate_;
  char upper_ = ' ';
  char lower_ = ' ';
};

}  // namespace

Result<std::int64_t> BuscarPlaca(const Register<RegistroUsuario>& usuarios, std::string_view plate) {
  const PlateMatcher matcher(plate);
  std::int64_t found = 0;
  if (!matcher.Searches()) return 0;
  const auto visit = [&](std::int64_t number, std::span<const char, RegistroUsuario::kSize> bytes) {
    if (matcher.Matches(bytes.data() + kUserPlateOffset)) found = number;
    return found == 0;
  };
  const Result<std::int64_t> count = usuarios.Count();
  if (!count) return count.Why();
  const Outcome walked = usuarios.WalkBytes(1, *count, visit);
  if (!walked) return walked;
  return found;
}

Result<std::int64_t> BuscarPlacaDentro(const Register<RegistroFicha>& fichas, std::string_view plate,
                                       std::int64_t last) {
  const PlateMatcher matcher(plate);
  std::int64_t found = 0;
  if (!matcher.Searches()) return 0;
  const auto visit = [&](std::int64_t number, std::span<const char, RegistroFicha::kSize> bytes) {
    const bool inUse = bytes[kEnUsoOffset] != 0 || bytes[kEnUsoOffset + 1] != 0;
    if (inUse && matcher.Matches(bytes.data() + kFichaPlateOffset)) found = number;
    return found == 0;
  };
  const Outcome walked = fichas.WalkBytes(1, last, visit);
  if (!walked) return walked;
  return found;
}

}  // namespace vintoral
