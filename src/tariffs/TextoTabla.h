// A table as its operator edits it: one text, its lines parted by CR LF.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "common/String.h"

namespace vintoral {

/// The name of an article counts this far, as the record of a sale holds it.
inline constexpr std::size_t kAnchoArticulo = 15;

/// The lines of a table without the blanks at their ends, CR LF between them and none behind the last.
String TextoDeTabla(const std::vector<String>& tabla);

/// The lines of an edited text, the blanks around the whole of it taken off first. None when it holds nothing
/// but blanks and line ends: a text that was emptied is no table.
std::vector<String> LineasDeTexto(std::string_view texto);

/// The name of an article as far as it counts: what stands before "=", a tab being a blank, trimmed, cut and
/// trimmed again.
String NombreDeArticulo(std::string_view texto);
/// Its price as far as it counts, as text: 9 characters of what stands behind "=", trimmed before.
std::string_view PrecioDeArticulo(std::string_view texto);

/// What the table of extras holds for an edited line: an article is written anew as name, " = " and price,
/// at most 15 and 9 characters, in capitals. A line without "=" is kept, trimmed.
String LineaExtraEditada(std::string_view linea);
/// What the table of prepaid loads holds for an edited line: as it stands, as far as a record goes.
String LineaPrepagoEditada(std::string_view linea);

}  // namespace vintoral
