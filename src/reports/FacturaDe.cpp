#include "station/form1/Form1.h"

namespace vintoral {

DatosFactura Form1::FacturaDe(Money valor, const String& detalle, float porcentaje) {
  DatosFactura factura{.formato = FacturaActual,
                       .porteria = NumeroPorteria,
                       .moneda = Moneda,
                       .valor = valor,
                       .detalle = detalle,
                       .porcentaje = porcentaje,
                       .efectivo = {},
                       .ahora = platform_.clock.Now(),
                       .direccion = DireccionWeb()};
  if (LblCambio.Visible) factura.efectivo = Efectivo{TxtEfectivo.Text(), LblCambio.Caption};
  return factura;
}

}  // namespace vintoral
