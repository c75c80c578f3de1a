// The entry ticket: what is printed of what was gathered.
#pragma once

#include "platform/PrintDocument.h"
#include "station/form1/Impresos.h"

namespace vintoral {

PrintDocument TiqueteImpreso(const DatosTiquete& datos);

}  // namespace vintoral
