#include "records/RegistroEtiquetas.h"

#include "records/Coding.h"

namespace vintoral {
namespace {

using R = RegistroEtiquetas;
constexpr std::tuple kLayout{
    coding::Field{0, &R::Etiqueta},
    coding::Field{120, &R::MemoriaRostros},
    coding::Field{122, &R::ImprimirCampo},
};
static_assert(coding::IsGapless(kLayout, R::kSize));

}  // namespace

RegistroEtiquetas RegistroEtiquetas::Decode(std::span<const char, kSize> bytes) {
  RegistroEtiquetas record;
  coding::Read(kLayout, bytes.data(), record);
  return record;
}

std::array<char, RegistroEtiquetas::kSize> RegistroEtiquetas::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayout, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
