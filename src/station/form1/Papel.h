// What all slips have in common: their columns, their rules, and the values of a format that a damaged file
// may have made senseless.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/String.h"
#include "records/RegistroFactura.h"

namespace vintoral {

/// The columns of every slip.
inline constexpr std::size_t kAnchoTiquete = 31;
/// The columns of a label and, behind " : ", of its value.
inline constexpr std::size_t kAnchoEtiqueta = 9, kAnchoValor = 19;
/// Ends the prefix of an invoice format; in the detail of a stay it stands ahead of the closing lines.
inline constexpr char kMarca = 27;
inline constexpr std::string_view kFinDeLinea = "\r\n";

/// Across the paper: 31 hyphens, 31 equals signs.
String ReglaGuiones();
String ReglaIguales();
/// The rule above the foot of a slip: hyphens, with the product's web address between them.
String LineaPie(std::string_view direccion);
/// The address as it stands on paper: without "https://", and without what follows the host.
String Dominio(std::string_view direccion);

/// Trimmed, cut to its column and put to the right of it.
String EtiquetaEnColumna(std::string_view etiqueta);
/// "    PLACA : ABC123": the value trimmed and cut to its column.
String LineaDeCampo(std::string_view etiqueta, std::string_view valor);

/// The size to print in, in points: 10.5 for none, for one that is no number, and for one outside 1 to 100,
/// which a torn or scrambled file gives.
double TamanoFuente(float guardado);
/// A tax of a format, in percent: 0 for none and for one that is no number, at most 100.
float Porcentaje(float guardado);
/// "#0.00" of the percent as it was typed.
String TextoPorcentaje(float porcentaje);
/// As it is typed and shown: the shortest text that is this number, with a comma.
String TextoTamano(double tamano);
/// The number at the start of a text; 0 if there is none.
double ValorNumerico(std::string_view texto);
/// The same as a format keeps it, a comma being a point.
float NumeroDecimal(std::string_view texto);

/// The invoice number behind `numero`: six digits, and then from 1 again.
std::int32_t NumeroSiguiente(std::int32_t numero);
/// The prefix without its end mark; blanks at its end count. Where a damaged record lacks the mark, blanks at
/// the end don't.
String PrefijoDe(const RegistroFactura& formato);

}  // namespace vintoral
