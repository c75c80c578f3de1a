// What the operator is told when the file of a report can't be made.
#pragma once

#include <string_view>

#include "platform/Platform.h"

namespace vintoral {

/// `ruta`: the file, one of archivo; its folder is told as the station's.
void AvisarImposibleImprimir(const Platform& devices, std::string_view ruta);

}  // namespace vintoral
