#include "reports/Factura.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Papel.h"

namespace vintoral {

std::unique_ptr<Replacement> Form1::AbrirRegistroFacturas() {
  Disk& disk = platform_.disk;
  disk.ClearReadOnly(archivo::kFacturas).PassOver();
  return disk.BeginReplacement(archivo::kFacturas);
}

void Form1::RegistrarFactura(const DatosFactura& factura, Replacement& registro) {
  registro.PutAround(FacturaEnRegistro(factura), kFinDeLinea);
}

void Form1::ImprimirFactura(const DatosFactura& factura, Replacement& registro) {
  const PrintDocument copy = FacturaImpresa(factura);
  platform_.printer.EndDoc(copy);
  // Before any wait: neither the end of the program nor the next invoice comes between.
  registro.Commit().PassOver();
  constexpr std::int64_t kParaCortar = 5000;  // milliseconds, to tear the first one off
  if (factura.formato.Copia) copias_.push_back({copy, platform_.clock.Ticks() + kParaCortar});
}

}  // namespace vintoral
