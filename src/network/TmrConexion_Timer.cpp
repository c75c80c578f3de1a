// The watch of the shared folder: connecting and connected, at any time of the day.
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"
#include "station/forms/Keys.h"

namespace vintoral {
namespace {

void EstadoConexion(Form1& form, bool conectado) {
  for (Label& bar : form.LblConexion)
    bar.BackColor = conectado ? kLightGreen : kLightRed;
  form.LblIndicador[0].Visible = conectado;
  form.LblFechaEnt.Caption = conectado ? String() : "CONECTANDO... "_w;
  if (conectado && (form.FichaEnPantalla() || form.PctFicha.TagNumber() != 0))
    form.LblFechaEnt.Caption = form.FichaMostrada().MarcaEntrada.Trimmed();
}

/// Takes away what a process that was killed in the middle of a write has left at the end of the history.
void RecortarHistorial(const Form1& form) {
  Disk& disk = form.Devices().disk;
  const String path = form.RutaCompartida("Vintoral.HST");
  const Register<RegistroFicha> hst(disk, path, OpenMode::kRead);
  if (hst.Missing() || !hst.EndsInACutRow().PassOver().value_or(false)) return;
  Register<RegistroFicha>(disk, path, OpenMode::kReadWrite).DropCutRow().PassOver();
}

}  // namespace

void Form1::TmrConexion_Timer() {
  constexpr int kConnected = 10000;
  const Color bar = LblConexion[0].BackColor;
  if (platform_.disk.Exists(RutaCompartida("Vintoral.ACT"))) {
    // Not the interval alone: an operation that missed ACT meanwhile has shortened it.
    const bool connects = TmrConexion.Interval() == kConnectingInterval || bar == kLightRed;
    TmrConexion.SetInterval(kConnected);
    DevolverPuestos();
    if (connects) {
      TmrHoraFecha.SetEnabled(PctFicha.TagNumber() == 0);  // a pointer that rests on a cell keeps it stopped
      TmrMonitor.SetEnabled(true);
      if (!etiquetasLeidas_) CargarEtiquetas();
      RecortarHistorial(*this);
      Form_KeyDown('W', keys::kAlt);
    }
    BuscarCamara();
    if (bar == kLightRed) EstadoConexion(*this, true);
    return;
  }
  TmrConexion.SetInterval(kConnectingInterval);
  TmrHoraFecha.SetEnabled(false);
  TmrMonitor.SetEnabled(false);
  if (!CargarServidor()) return;
  if (bar == kLightGreen) EstadoConexion(*this, false);
  MidiWav(sonido::kConectando);
}

}  // namespace vintoral
