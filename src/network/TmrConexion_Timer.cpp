// The watch of the shared folder: connecting and connected, at any time of the day.
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

void EstadoConexion(Form1& form, bool conectado) {
  for (Label& bar : form.LblConexion)
    bar.BackColor = conectado ? kLightGreen : kLightRed;
  form.LblIndicador[0].Visible = conectado;
  form.LblFechaEnt.Caption = conectado ? String() : "CONECTANDO... "_w;
  if (conectado && form.FichaEnPantalla())
    form.LblFechaEnt.Caption = form.FichaMostrada().MarcaEntrada.Trimmed();
}

/// Takes away what a process that was killed in the middle of a write has left at the end of the history.
void RecortarHistorial(const Form1& form) {
  Disk& disk = form.Devices().disk;
  const String path = form.RutaCompartida("Vintoral.HST");
  if (!Register<RegistroFicha>(disk, path, OpenMode::kRead).EndsInACutRow()) return;
  Register<RegistroFicha>(disk, path, OpenMode::kReadWrite).DropCutRow().PassOver();
}

}  // namespace

void Form1::TmrConexion_Timer() {
  constexpr int kConnecting = 3000, kConnected = 10000;
  const Color bar = LblConexion[0].BackColor;
  if (platform_.disk.Exists(RutaCompartida("Vintoral.ACT"))) {
    // Not the interval alone: an operation that missed ACT meanwhile has shortened it.
    const bool connects = TmrConexion.Interval() == kConnecting || bar == kLightRed;
    TmrConexion.SetInterval(kConnected);
    if (connects) {
      TmrHoraFecha.SetEnabled(true);
      TmrMonitor.SetEnabled(true);
      if (!etiquetasLeidas_) CargarEtiquetas();
      RecortarHistorial(*this);
      Form_KeyDown('W', 4);
    }
    if (bar == kLightRed) EstadoConexion(*this, true);
    return;
  }
  TmrConexion.SetInterval(kConnecting);
  TmrHoraFecha.SetEnabled(false);
  TmrMonitor.SetEnabled(false);
  if (!CargarServidor()) return;
  if (bar == kLightGreen) EstadoConexion(*this, false);
  MidiWav("Sonidos\\Vintoral-1.wav");
}

}  // namespace vintoral
