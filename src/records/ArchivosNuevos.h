// The bytes of registers that are made when a station starts for the first time. CRD begins empty.
#pragma once

#include "common/String.h"

namespace vintoral {

/// ACT: 1000 blank slots that know their number, and the closing record. 188,188 bytes.
String ActNuevo();
/// HST: one blank record. 188 bytes.
String HstNuevo();
/// NSR: one blank record. 188 bytes.
String NsrNuevo();
/// CDB: 1000 blank records. 54,000 bytes.
String CdbNuevo();

}  // namespace vintoral
