// The lock of functions on disk: the last record of the list of sales.
#pragma once

#include "platform/Disk.h"
#include "records/RegistroBloqueo.h"

namespace vintoral {

/// No function is locked, and there is no password: 18 zeros, though 17 functions can be locked.
RegistroBloqueo SinBloqueo();

/// Lays the file out where there is none yet or it has no length. A file that ends before the record, or in
/// it, gives what there is of it.
Result<RegistroBloqueo> LeerBloqueo(Disk& disk);
/// On disk when this returns; lays the file out where there is none yet. The failure of Open where it can't
/// be opened; of what goes wrong later, a line on standard error.
Outcome GuardarBloqueo(Disk& disk, const RegistroBloqueo& bloqueo);

}  // namespace vintoral
