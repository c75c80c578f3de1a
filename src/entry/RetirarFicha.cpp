#include <cstdlib>

#include "entry/Puesto.h"
#include "entry/Salida.h"
#include "station/form1/DetalleEstadia.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// Another gate has retired the ficha on display, and given its number to somebody else.
bool OtraFicha(Form1& form) {
  const std::optional<RegistroFicha> puesto = LeerPuesto(form, form.NumeroEscrito());
  if (!puesto || !puesto->EnUso) return false;
  return puesto->MarcaEntrada != form.FichaActual.MarcaEntrada || puesto->Placa != form.FichaActual.Placa;
}

String CuentaDeSalida(const Form1& form) {
  return form.LblFechaEnt.Caption + "|"_w + form.LblFechaSal.Caption + "|"_w + form.TiempoEstadia + "|"_w +
         form.ValorEstadia.Full();
}

void FijarValor(Form1& form) {
  // Priced until two results in a row agree: then no minute has turned over between the value shown and the
  // value charged.
  const auto account = [&form] {
    form.LblValor.Visible = false;
    form.TmrHoraFecha_Timer();
    return CuentaDeSalida(form);
  };
  String first = account();
  for (String second = account(); second != first; second = account())
    first = second;
}

/// Too late to charge what the question showed; of a ficha that went back to idle under it nothing is shown.
/// The path of the data folder may have been corrected meanwhile: the slot of that number is then somebody
/// else's.
bool ConfirmacionVencida(const Form1& form) {
  if (form.CarpetaMostrada != form.CarpetaCompartida) return true;
  constexpr std::int64_t kStillCounts = 60'000;
  const std::optional<Moment> shown = MomentOfStamp(form.LblFechaSal.Caption);
  const Moment now = form.Devices().clock.Now().WholeMinute();
  return !shown || std::abs(now.Milliseconds() - shown->Milliseconds()) > kStillCounts;
}

DatosEstadia EstadiaEnPantalla(const Form1& form) {
  DatosEstadia estadia{.campos = {},
                       .entrada = form.FichaActual.MarcaEntrada.Trimmed(),
                       .salida = form.TextoSalida,
                       .categoria = form.CboTarifa[0].Text(),
                       .puntos = {},
                       .tiempo = form.TiempoEstadia};
  for (std::size_t i = 0; i < estadia.campos.size(); ++i)
    estadia.campos[i] = {form.EtiquetasActuales.ImprimirCampo[i], form.TxtEtiqueta[i + 1].Text(),
                         form.LblCampo[i + 1].Caption};
  if (form.FacturaActual.Puntos) estadia.puntos = form.PuntosAcumulados + form.PuntosEstadia;
  return estadia;
}

bool PideFactura(const Form1& form) {
  return IsPressed(form.PctBoton[boton::kFacturas]) && form.ChkFactura.Value != 0;
}

/// The invoice, under its number.
DatosFactura Facturar(Form1& form) {
  if (form.LblCambio.Visible) form.LineaEfectivo();  // cash that was typed since the last tick
  form.CopiarFactura(false);
  return form.FacturaDe(form.ValorEstadia, DetalleEstadia(EstadiaEnPantalla(form)),
                        form.FacturaActual.Impuesto);
}

}  // namespace

void Form1::RetirarFicha() {
  if (!FichaEnPantalla() || !HayConexion()) return;
  FijarValor(*this);
  const bool confirmada =
      Preguntar("Vintoral - Confirmar Ficha"_w, "¿Desea realmente retirar la ficha actual?"_w, Answer::kYes);
  if (!confirmada) return Cancelar();
  if (ConfirmacionVencida(*this) || OtraFicha(*this)) {
    Cancelar();
    return MidiWav(sonido::kOlvidada);
  }
  // Now, while its file is there: the photo of the entrance goes with the slot.
  if (!ImgIndicador[indicador::kCamaraDesactivada].Visible) TomarFotoFija();
  TmrHoraFecha.SetEnabled(false);
  TextoSalida = LblFechaSal.Caption;
  SyncTogether onDisk(platform_.disk);
  const std::unique_ptr<Replacement> registro = PideFactura(*this) ? AbrirRegistroFacturas() : nullptr;
  const bool retirada = PasarAlHistorial(*this);
  std::optional<DatosFactura> factura;
  if (retirada) {
    if (registro) RegistrarFactura(factura.emplace(Facturar(*this)), *registro);
    CerrarFotosAdicionales();
    RefrescarVista();
    LimpiarCampos();
    onDisk.Finish().PassOver();
  }
  TmrHoraFecha.SetEnabled(true);
  if (!retirada) return platform_.screen.Beep();  // the ficha stays on display
  if (factura) ImprimirFactura(*factura, *registro);
  MidiWav(sonido::kHecho);
  EntregarCopias();
}

}  // namespace vintoral
