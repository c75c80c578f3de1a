// The help document that a new station writes beside itself.
#pragma once

#include "common/String.h"

namespace vintoral {

/// The whole document, in Windows-1252 with CR LF line ends.
String TextoAyuda();

}  // namespace vintoral
