#pragma once

#include <vector>

#include "station/form1/Form1.h"

namespace vintoral {

/// Makes these lines the tariffs, and their heads the categories to choose from.
void LlenarTarifas(Form1& form, const std::vector<String>& lineas);

}  // namespace vintoral
