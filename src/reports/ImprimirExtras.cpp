// The two reports of the extras sold.
#include "reports/ArchivoInforme.h"
#include "reports/InformeExtras.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// The lines of the list, the lock behind it left out; nothing where there is no file.
std::optional<std::vector<RegistroExtra>> LeerVentas(Disk& disk) {
  const Result<String> list = disk.ReadAll(archivo::kVentas);
  if (!list) {
    if (!list.Why().Missing()) list.Why().PassOver();
    return std::nullopt;
  }
  std::vector<RegistroExtra> sales;
  std::string_view left = *list;
  while (left.size() >= RegistroExtra::kSize && sales.size() < kRenglonesVenta) {
    sales.push_back(RegistroExtra::Decode(
        std::span<const char, RegistroExtra::kSize>(left.data(), RegistroExtra::kSize)));
    left.remove_prefix(RegistroExtra::kSize);
  }
  return sales;
}

/// The list as `escribir` puts it, in the editor.
void Imprimir(Form1& form, Outcome (*escribir)(const DatosExtras&, Destino)) {
  ArchivoInforme text(form, archivo::kHorario);
  if (!text.Abierto()) return;
  const Platform& devices = form.Devices();
  const DatosExtras data{.turnoActivo = form.TurnoActivo,
                         .marcaTurno = form.MarcaTurno,
                         .ahora = StampOf(devices.clock.Now()),
                         .porteria = form.NumeroPorteria,
                         .moneda = form.Moneda,
                         .articulos = ArticulosDe(form.TablaExtras),
                         .ventas = LeerVentas(devices.disk)};
  if (text.Publicar(escribir(data, text.Destino())))
    devices.system.Launch("Notepad.exe "_w + String(archivo::kHorario));
}

}  // namespace

void Form1::ImprimirValorExtra() {
  Imprimir(*this, EscribirValorExtra);
}

void Form1::ImprimirContadorExtra() {
  Imprimir(*this, EscribirContadorExtra);
}

}  // namespace vintoral
