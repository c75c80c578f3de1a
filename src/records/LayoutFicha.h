// Where the fields of RegistroFicha stand on disk.
#pragma once

#include "records/Coding.h"
#include "records/RegistroFicha.h"

namespace vintoral {

inline constexpr std::tuple kLayoutFicha{
    coding::Field{0, &RegistroFicha::EnUso},
    coding::Field{2, &RegistroFicha::MarcaEntrada},
    coding::Field{22, &RegistroFicha::MarcaSalida},
    coding::Field{42, &RegistroFicha::NumeroFicha},
    coding::Field{46, &RegistroFicha::Placa},
    coding::Field{66, &RegistroFicha::Nombre},
    coding::Field{86, &RegistroFicha::Apellido},
    coding::Field{106, &RegistroFicha::Telefono},
    coding::Field{126, &RegistroFicha::Observacion},
    coding::Field{146, &RegistroFicha::Categoria},
    coding::Field{166, &RegistroFicha::PorteriaEntrada},
    coding::Field{168, &RegistroFicha::PorteriaSalida},
    coding::Field{170, &RegistroFicha::Posicion},
    coding::Field{174, &RegistroFicha::ValorCobrado},
    coding::Field{182, &RegistroFicha::InicioTurno},
    coding::Field{184, &RegistroFicha::UsuarioPuntos},
};
static_assert(coding::IsGapless(kLayoutFicha, RegistroFicha::kSize));

}  // namespace vintoral
