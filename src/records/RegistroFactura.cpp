#include "records/RegistroFactura.h"

#include "records/Coding.h"

namespace vintoral {
namespace {

using R = RegistroFactura;
constexpr std::tuple kLayout{
    coding::Field{0, &R::Impresora},         coding::Field{100, &R::DimFuente},
    coding::Field{104, &R::Encabezado},      coding::Field{5104, &R::Prefijo},
    coding::Field{5130, &R::NumFactura},     coding::Field{5134, &R::Impuesto},
    coding::Field{5138, &R::ImpuestoExtras}, coding::Field{5142, &R::Copia},
    coding::Field{5144, &R::Puntos},         coding::Field{5146, &R::Pie},
};
static_assert(coding::IsGapless(kLayout, R::kSize));

}  // namespace

RegistroFactura RegistroFactura::Decode(std::span<const char, kSize> bytes) {
  RegistroFactura record;
  coding::Read(kLayout, bytes.data(), record);
  return record;
}

std::array<char, RegistroFactura::kSize> RegistroFactura::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayout, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
