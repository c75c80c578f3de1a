// The reports that are opened in another program: none outlives what it was made from.
#pragma once

#include "platform/Disk.h"

namespace vintoral {

/// The text and the page are gone, as far as they can be deleted.
void BorrarReportes(Disk& disk);

}  // namespace vintoral
