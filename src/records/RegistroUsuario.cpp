#include "records/RegistroUsuario.h"

#include "records/Coding.h"

namespace vintoral {
namespace {

using R = RegistroUsuario;
constexpr std::tuple kLayout{
    coding::Field{0, &R::Placa},     coding::Field{20, &R::Nombre},      coding::Field{40, &R::Apellido},
    coding::Field{60, &R::Telefono}, coding::Field{80, &R::Observacion}, coding::Field{100, &R::Categoria},
    coding::Field{120, &R::Puntos},
};
static_assert(coding::IsGapless(kLayout, R::kSize));

}  // namespace

RegistroUsuario RegistroUsuario::Decode(std::span<const char, kSize> bytes) {
  RegistroUsuario record;
  coding::Read(kLayout, bytes.data(), record);
  return record;
}

std::array<char, RegistroUsuario::kSize> RegistroUsuario::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayout, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
