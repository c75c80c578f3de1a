// Where the fields of RegistroCodigo stand on disk.
#pragma once

#include "records/Coding.h"
#include "records/RegistroCodigo.h"

namespace vintoral {

inline constexpr std::tuple kLayoutCodigo{
    coding::Field{0, &RegistroCodigo::CodigoBarras},
    coding::Field{50, &RegistroCodigo::FichaCodigo},
};
static_assert(coding::IsGapless(kLayoutCodigo, RegistroCodigo::kSize));

}  // namespace vintoral
