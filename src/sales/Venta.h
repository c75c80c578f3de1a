// A sale of articles: what it comes to, what an invoice says of it, and its lines in the list of sales.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "common/Moment.h"
#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

/// One article of a sale.
struct Renglon {
  String articulo;
  std::int16_t cantidad = 0;
  Money precio;  ///< of one
};

/// What so many of an article cost; stops at the end of the range.
Money ImporteDe(Money precio, std::int64_t cantidad);
/// What they cost together; at the end of the range it is no amount any more, see EsImporte.
Money TotalDe(const std::vector<Renglon>& venta);
/// Whether a sum has not run over.
bool EsImporte(Money suma);

/// The rows of an invoice of 31 columns, CR LF between them.
String DetalleDeVenta(const std::vector<Renglon>& venta);

/// Its lines as the list of sales has them, one behind the other.
String LineasDeVenta(const std::vector<Renglon>& venta, Moment momento);

}  // namespace vintoral
