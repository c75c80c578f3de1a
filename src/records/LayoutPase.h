// Where the fields of RegistroPase stand on disk.
#pragma once

#include "records/Coding.h"
#include "records/RegistroPase.h"

namespace vintoral {

inline constexpr std::tuple kLayoutPase{
    coding::Field{0, &RegistroPase::CodigoPase},     coding::Field{50, &RegistroPase::PlacaPase},
    coding::Field{70, &RegistroPase::ModoPase},      coding::Field{71, &RegistroPase::FechaPase},
    coding::Field{91, &RegistroPase::RestantesPase},
};
static_assert(coding::IsGapless(kLayoutPase, RegistroPase::kSize));

}  // namespace vintoral
