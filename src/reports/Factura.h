// The invoice: its tax, what is printed of what was gathered, and what the invoice log keeps of it.
#pragma once

#include "common/Money.h"
#include "platform/PrintDocument.h"
#include "station/form1/Impresos.h"

namespace vintoral {

/// An amount as what it is without its tax, and the tax: together the amount again, to the cent.
struct Desglose {
  Money base, impuesto;
};
/// `porcentaje` above 0. The base is a quotient in double precision, taken to ten-thousandths with halves to
/// the even one and then to cents with halves away from zero; the tax is what is left.
Desglose Desglosar(Money valor, float porcentaje);

/// One copy.
PrintDocument FacturaImpresa(const DatosFactura& datos);
/// The invoice as it stands at the top of the log: everything up to what the log held before.
String FacturaEnRegistro(const DatosFactura& datos);

}  // namespace vintoral
