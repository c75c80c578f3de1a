// What the lines of all reports on paper have in common.
#pragma once

#include <cstdint>

#include "common/String.h"
#include "reports/Suma.h"

namespace vintoral {

/// "Vintoral             ESTADO P01": the number of the gate ends in the last column.
String LineaTitulo(const String& titulo, const String& porteria);
String LineaHoraFecha(const String& sello);
String LineaInicio(const String& sello);
String LineaFinal(const String& sello);
/// "3 Registro(s)".
String LineaRegistros(std::int64_t registros);
/// A day's, with nothing before the currency; the line ends in the last column.
String LineaSubtotal(const String& moneda, const Suma& suma);
/// The whole report's, with "TOTAL " before the currency; the same.
String LineaTotal(const String& moneda, const Suma& suma);

}  // namespace vintoral
