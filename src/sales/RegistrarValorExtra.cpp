#include <memory>
#include <string_view>

#include "sales/Venta.h"
#include "sales/form4/Form4.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// The list as it stands; empty where there is no file yet.
Result<String> LeerLista(Disk& disk) {
  Result<String> list = disk.ReadAll(archivo::kVentas);
  return list.Why().Missing() ? Result<String>(String()) : std::move(list);
}

/// In one step, whatever ends the station meanwhile: a sale is in the list with all its lines or not at all.
Outcome GuardarVenta(const Platform& devices, const std::vector<Renglon>& venta) {
  Disk& disk = devices.disk;
  disk.ClearReadOnly(archivo::kVentas).PassOver();
  const Result<String> list = LeerLista(disk);
  if (!list) return list.Why();
  return disk.Replace(archivo::kVentas, ListaConVenta(*list, venta, devices.clock.Now()));
}

}  // namespace

void Form1::RegistrarValorExtra() {
  if (Form4 == nullptr) return;
  const std::vector<Renglon> sale = Form4->Venta();
  if (sale.empty()) return;
  const std::unique_ptr<Replacement> log = Form4->ChkFactura.Value != 0 ? AbrirRegistroFacturas() : nullptr;
  GuardarVenta(platform_, sale).PassOver();
  if (!log) return;
  // The money was taken, so there is an invoice even where the sale could not be written.
  const Money total = MoneyFromText(Form4->TxtTotal[Form4::kTotal].Text()).RoundedToCents();
  CopiarFactura(false);
  const DatosFactura invoice = FacturaDe(total, DetalleDeVenta(sale), FacturaActual.ImpuestoExtras);
  RegistrarFactura(invoice, *log);
  ImprimirFactura(invoice, *log);
}

}  // namespace vintoral
