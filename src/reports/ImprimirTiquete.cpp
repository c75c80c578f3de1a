#include "reports/Tiquete.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

DatosTiquete DatosEnPantalla(Form1& form) {
  DatosTiquete datos{
      .formato = form.TiqueteActual,
      .ficha = form.TxtCampo[0].Text(),
      .porteria = form.NumeroPorteria,
      .marca = form.MarcaTiquete,
      .campos = {},
      .categoria = form.CboTarifa[1].Text(),
      .foto = form.Picture2.Picture,
      .codigo = {},
      .validez = {form.TxtMaxEntrada.Text(), form.LstModEntrada.ListIndex, form.Devices().clock.Now()},
      .direccion = form.DireccionWeb()};
  for (std::size_t i = 0; i < datos.campos.size(); ++i)
    datos.campos[i] = {form.EtiquetasActuales.ImprimirCampo[i], form.TxtEtiqueta[i + 1].Text(),
                       form.TxtCampo[i + 1].Text()};
  if (form.TxtBarCode.Visible) datos.codigo = form.TxtBarCode.Text();
  return datos;
}

}  // namespace

PrintDocument Form1::TiqueteEnPantalla() {
  return TiqueteImpreso(DatosEnPantalla(*this));
}

void Form1::ImprimirTiquete(PrintDocument tiquete) {
  platform_.printer.EndDoc(std::move(tiquete));
}

}  // namespace vintoral
