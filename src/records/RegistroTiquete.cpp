#include "records/RegistroTiquete.h"

#include "records/Coding.h"

namespace vintoral {
namespace {

using R = RegistroTiquete;
constexpr std::tuple kLayout{
    coding::Field{0, &R::Impresora}, coding::Field{100, &R::DimFuente}, coding::Field{104, &R::Encabezado},
    coding::Field{5104, &R::Foto},   coding::Field{5106, &R::Pie},
};
static_assert(coding::IsGapless(kLayout, R::kSize));

}  // namespace

RegistroTiquete RegistroTiquete::Decode(std::span<const char, kSize> bytes) {
  RegistroTiquete record;
  coding::Read(kLayout, bytes.data(), record);
  return record;
}

std::array<char, RegistroTiquete::kSize> RegistroTiquete::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayout, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
