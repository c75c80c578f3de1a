// The lines of one invoice and what the log keeps of it, worked out while the operator's key is served.
#include <benchmark/benchmark.h>

#include "reports/Factura.h"

namespace vintoral {
namespace {

/// A stay with all its fields, tax, cash and change, by a format that its editor has saved.
DatosFactura AnInvoice() {
  DatosFactura datos;
  datos.formato.Impresora = "POS-80";
  datos.formato.DimFuente = 10.5F;
  datos.formato.Encabezado = "        V I N T o r a l\r\n    EXIJA SIEMPRE SU FACTURA\r\n";
  datos.formato.Prefijo = "No.FACTURA\x1B";
  datos.formato.NumFactura = 101;
  datos.formato.Pie = "\r\n    GRACIAS POR PREFERIRNOS\r\n      vintoral.example\r\n";
  datos.porteria = "01"_w;
  datos.moneda = "$"_w;
  datos.valor = Money::FromUnits(119);
  datos.detalle =
      "    PLACA : ABC123\r\n"
      "   NOMBRE : ANA\r\n"
      " APELLIDO : ALVAREZ\r\n"
      " TELEFONO : 300 123 4567\r\n"
      "OBSERVACI : MENSUAL\r\n"
      "-------------------------------\r\n"
      "  ENTRADA : 12:00  (20/11/2026)\r\n"
      "   SALIDA : 14:05  (20/11/2026)\r\n"
      "\x1B"
      "CATEGORIA : AUTOMOVIL\r\n"
      "  *PUNTOS : 18\r\n"
      "   TIEMPO : 2H 5M"_w;
  datos.porcentaje = 19;
  datos.efectivo = {"150"_w, "31"_w};
  datos.ahora = *Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14, .minute = 5});
  datos.direccion = "https://vintoral.example"_w;
  return datos;
}

void LinesOfAnInvoice(benchmark::State& state) {
  const DatosFactura datos = AnInvoice();
  for (auto _ : state)
    benchmark::DoNotOptimize(FacturaImpresa(datos));
}
BENCHMARK(LinesOfAnInvoice)->Unit(benchmark::kNanosecond);

void LogEntryOfAnInvoice(benchmark::State& state) {
  const DatosFactura datos = AnInvoice();
  for (auto _ : state)
    benchmark::DoNotOptimize(FacturaEnRegistro(datos));
}
BENCHMARK(LogEntryOfAnInvoice)->Unit(benchmark::kNanosecond);

}  // namespace
}  // namespace vintoral
