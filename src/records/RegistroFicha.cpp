#include "records/RegistroFicha.h"

#include "records/Coding.h"

namespace vintoral {
namespace {

using R = RegistroFicha;
constexpr std::tuple kLayout{
    coding::Field{0, &R::EnUso},
    coding::Field{2, &R::MarcaEntrada},
    coding::Field{22, &R::MarcaSalida},
    coding::Field{42, &R::NumeroFicha},
    coding::Field{46, &R::Placa},
    coding::Field{66, &R::Nombre},
    coding::Field{86, &R::Apellido},
    coding::Field{106, &R::Telefono},
    coding::Field{126, &R::Observacion},
    coding::Field{146, &R::Categoria},
    coding::Field{166, &R::PorteriaEntrada},
    coding::Field{168, &R::PorteriaSalida},
    coding::Field{170, &R::Posicion},
    coding::Field{174, &R::ValorCobrado},
    coding::Field{182, &R::InicioTurno},
    coding::Field{184, &R::UsuarioPuntos},
};
static_assert(coding::IsGapless(kLayout, R::kSize));

}  // namespace

RegistroFicha RegistroFicha::Decode(std::span<const char, kSize> bytes) {
  RegistroFicha record;
  coding::Read(kLayout, bytes.data(), record);
  return record;
}

std::array<char, RegistroFicha::kSize> RegistroFicha::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayout, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
