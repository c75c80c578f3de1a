#pragma once

#include "common/String.h"

namespace vintoral {

/// The classes of the cells of a page, a property a line, as a spreadsheet writes them.
String EstilosPagina();

}  // namespace vintoral
