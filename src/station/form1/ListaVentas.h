// The list of sales on the disk. Its file is replaced as a whole by each sale, and is not waited for where a
// journal beside it, of one length, tells after a power cut what the list lacks.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/Disk.h"
#include "records/RegistroExtra.h"

namespace vintoral {

/// `lineas`, whole records, on top of the list, in one step, whatever ends the station meanwhile: the list
/// has all of them or none, and has them after a power cut too once this has returned.
Outcome PonerEnListaVentas(Disk& disk, std::string_view lineas);
/// The list has all that was sold, is itself on the disk, and needs no journal. To be called before anything
/// is read from it after a start, and when the program closes.
Outcome AsentarListaVentas(Disk& disk);
/// The list, settled, to be changed in place.
Result<std::unique_ptr<DiskFile>> AbrirListaVentas(Disk& disk);

using BytesExtra = std::array<char, RegistroExtra::kSize>;
/// The newest line becomes what `cambio` makes of it, and is on the disk; a list of no length stays so.
Outcome CambiarUltimaVenta(Disk& disk, const std::function<BytesExtra(const BytesExtra&)>& cambio);

}  // namespace vintoral
