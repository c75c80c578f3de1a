#include <memory>
#include <string_view>

#include "sales/Venta.h"
#include "sales/form4/Form4.h"
#include "station/form1/Form1.h"
#include "station/form1/ListaVentas.h"

namespace vintoral {

void Form1::RegistrarValorExtra() {
  if (Form4 == nullptr) return;
  const std::vector<Renglon> sale = Form4->Venta();
  if (sale.empty()) return;
  const std::unique_ptr<Replacement> log = Form4->ChkFactura.Value != 0 ? AbrirRegistroFacturas() : nullptr;
  PonerEnListaVentas(platform_.disk, LineasDeVenta(sale, platform_.clock.Now())).PassOver();
  if (!log) return;
  // The money was taken, so there is an invoice even where the sale could not be written.
  const Money total = MoneyFromText(Form4->TxtTotal[Form4::kTotal].Text()).RoundedToCents();
  CopiarFactura(false);
  const DatosFactura invoice = FacturaDe(total, DetalleDeVenta(sale), FacturaActual.ImpuestoExtras);
  RegistrarFactura(invoice, *log);
  ImprimirFactura(invoice, *log);
}

}  // namespace vintoral
