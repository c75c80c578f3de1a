// The three line files of an installation: categories with their time rules (EMP), sale articles (XTR),
// prepaid card loads (RJE). Bytes to lines and back; opening and writing the files is the station's business.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "common/String.h"

namespace vintoral {

/// A file is nothing but records of this many characters, padded with blanks: no header, no line ends.
inline constexpr std::size_t kAnchoLinea = 100;
/// A tariff line counts this far: a longer category name is cut, and so are stars that stand behind.
inline constexpr std::size_t kAnchoTarifa = 20;

/// The lines of a new installation, as they are written to the file: each with one leading blank.
std::vector<String> TarifasPredeterminadas();
std::vector<String> ExtrasPredeterminados();
std::vector<String> PrepagoPredeterminado();

/// The bytes of a file that holds `lineas`, one record each, what is longer than a record cut off.
String CodificarLineas(const std::vector<String>& lineas);
/// The texts of all whole records, 100 characters each; a torn record at the end is passed over.
std::vector<String> DecodificarLineas(std::string_view bytes);

/// What the table of tariffs holds for a line: trimmed, then cut to 20 characters, in capitals.
String LineaTarifa(std::string_view linea);
/// What the table of extras holds for a line: trimmed, in capitals, at its full length.
String LineaExtra(std::string_view linea);

/// Whether a tariff line is the head of a category. Takes the line before its cut to 20 characters: a rule
/// whose "=" stands further right is still no category for the operator to choose.
bool EsCategoria(std::string_view linea);

}  // namespace vintoral
