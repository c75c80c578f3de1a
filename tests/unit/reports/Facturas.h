// Invoices that the tests of printing and of the log share.
#pragma once

#include "reports/Factura.h"

namespace vintoral::test {

/// 119.00 at 19 percent, the 20th of November 2026 at five past two, with nothing but what each invoice has.
inline DatosFactura Factura(String detalle) {
  DatosFactura datos;
  datos.formato.Impresora = "POS-80";
  datos.formato.DimFuente = 10.5F;
  datos.formato.Encabezado = "        V I N T o r a l\r\n    EXIJA SIEMPRE SU FACTURA";
  datos.formato.Prefijo = "No.FACTURA\x1B";
  datos.formato.NumFactura = 101;
  datos.formato.Pie = "    GRACIAS POR PREFERIRNOS\r\n";
  datos.porteria = "01"_w;
  datos.moneda = " $ "_w;
  datos.valor = Money::FromUnits(119);
  datos.detalle = std::move(detalle);
  datos.porcentaje = 19;
  datos.ahora = *Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14, .minute = 5, .second = 59});
  datos.direccion = "https://vintoral.example"_w;
  return datos;
}

inline DatosFactura Estadia() {
  return Factura(
      "    PLACA : ABC123\r\n"
      "   NOMBRE : Ñandú\r\n"
      "-------------------------------\r\n"
      "  ENTRADA : 12:00  (20/11/2026)\r\n"
      "   SALIDA : 14:05  (20/11/2026)\r\n"
      "\x1B"
      "CATEGORIA : AUTOMOVIL\r\n"
      "  *PUNTOS : 18\r\n"
      "   TIEMPO : 2H 5M"_w);
}

inline DatosFactura Venta() {
  return Factura(
      "AGUA              2        5.00\r\n"
      "LAVADO            1      114.00"_w);
}

}  // namespace vintoral::test
