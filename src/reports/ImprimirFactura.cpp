#include "reports/Factura.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Papel.h"

namespace vintoral {

void Form1::ImprimirFactura(const DatosFactura& factura) {
  const PrintDocument copy = FacturaImpresa(factura);
  platform_.printer.EndDoc(copy);
  // Before the wait: neither the end of the program nor the next invoice comes between.
  Disk& disk = platform_.disk;
  disk.ClearReadOnly(archivo::kFacturas).PassOver();
  disk.PutAround(archivo::kFacturas, FacturaEnRegistro(factura), kFinDeLinea).PassOver();
  if (!factura.formato.Copia) return;
  constexpr int kParaCortar = 5;  // seconds, to tear the first one off
  Esperar(kParaCortar);
  platform_.printer.EndDoc(copy);
}

}  // namespace vintoral
