// Where the fields of RegistroUsuario stand on disk.
#pragma once

#include "records/Coding.h"
#include "records/RegistroUsuario.h"

namespace vintoral {

inline constexpr std::tuple kLayoutUsuario{
    coding::Field{0, &RegistroUsuario::Placa},        coding::Field{20, &RegistroUsuario::Nombre},
    coding::Field{40, &RegistroUsuario::Apellido},    coding::Field{60, &RegistroUsuario::Telefono},
    coding::Field{80, &RegistroUsuario::Observacion}, coding::Field{100, &RegistroUsuario::Categoria},
    coding::Field{120, &RegistroUsuario::Puntos},
};
static_assert(coding::IsGapless(kLayoutUsuario, RegistroUsuario::kSize));

}  // namespace vintoral
