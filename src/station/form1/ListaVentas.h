// The list of sales on the disk. Its file is replaced as a whole by each sale, and is not waited for where a
// journal beside it, one page, tells after a power cut what the list lacks.
#pragma once

#include <string_view>

#include "platform/Disk.h"

namespace vintoral {

/// `lineas`, whole records, on top of the list, in one step, whatever ends the station meanwhile: the list
/// has all of them or none, and has them after a power cut too once this has returned.
Outcome PonerEnListaVentas(Disk& disk, std::string_view lineas);
/// The list has all that was sold, is itself on the disk, and needs no journal. To be called before anything
/// is read from it after a start, and before it is changed in any other way than by a sale.
Outcome AsentarListaVentas(Disk& disk);

}  // namespace vintoral
