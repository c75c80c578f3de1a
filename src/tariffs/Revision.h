// What the operator is told while writing a table: for each line that won't do what it seems to say, why.
//
// Nothing here refuses anything: the tables take every line as it stands. All functions take the lines of an
// edited text (LineasDeTexto) and give one short Spanish sentence for each, empty where there is nothing to
// say.
#pragma once

#include <vector>

#include "common/String.h"

namespace vintoral {

std::vector<String> RevisarTarifas(const std::vector<String>& lineas);
std::vector<String> RevisarExtras(const std::vector<String>& lineas);
std::vector<String> RevisarPrepago(const std::vector<String>& lineas);

}  // namespace vintoral
