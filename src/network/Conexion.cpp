// The link to the shared folder.
#include "common/TextoUtf8.h"
#include "records/LineaTexto.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::CargarServidor() {
  const std::string_view file = "Objetos\\Servidor.INI";
  Disk& disk = platform_.disk;
  String ruta;
  if (disk.Exists(file)) {
    const std::optional<String> text = disk.ReadAll(file).PassOver();
    if (!text && !NumeroPorteria.Empty()) return true;  // unreadable for the moment: it stays what it is
    ruta = UTF8toANSI(Trim(PrimeraLinea(text.value_or(String()))));
  } else if (const Outcome written = disk.Replace(file, "\r\n"); !written) {
    written.PassOver();
    TotalFichas = 0;
    for (Timer* timer : {&TmrConexion, &TmrHoraFecha, &TmrMonitor, &TmrHorario, &TmrBarCode})
      timer->SetEnabled(false);
    ImposibleContinuar(ProtegidaContraEscritura());
    Terminar();
    return false;
  }
  const bool principal = ruta.Empty();
  NumeroPorteria = principal ? "01"_w : "02"_w;
  EsCliente = principal ? 0 : -1;
  CarpetaCompartida = principal ? disk.CurrentFolder() + "\\Multimedia"_w : ruta;
  if (TotalFichas > 0) MostrarPorteria();  // a path corrected while connecting makes it another gate
  return true;
}

void Form1::MostrarPorteria() {
  constexpr std::int32_t kFirstOfMain = 1, kFirstOfConnected = 501;
  PrimerNumero = EsCliente != 0 ? kFirstOfConnected : kFirstOfMain;
  LblInfo[2].Caption = "P"_w + NumeroPorteria;
  const bool monitor = CboMinutos.TagNumber() != 0;
  if (!monitor) CboMinutos.SetText(String(11, ' ') + LblInfo[2].Caption + " MONITOR"_w);
}

void Form1::EstadoConexion(bool conectado) {
  for (Label& bar : LblConexion)
    bar.BackColor = conectado ? kLightGreen : kLightRed;
  LblIndicador[0].Visible = conectado;
  LblFechaEnt.Caption = conectado ? String() : "CONECTANDO... "_w;
  if (conectado && FichaEnPantalla()) LblFechaEnt.Caption = FichaMostrada().MarcaEntrada.Trimmed();
}

void Form1::RecortarHistorial() {
  const String path = RutaCompartida("Vintoral.HST");
  const Register<RegistroFicha> hst(platform_.disk, path, OpenMode::kRead);
  if (hst.Missing() || !hst.EndsInACutRow().PassOver().value_or(false)) return;
  Register<RegistroFicha>(platform_.disk, path, OpenMode::kReadWrite).DropCutRow().PassOver();
}

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
      RecortarHistorial();
      Form_KeyDown('W', 4);
    }
    if (bar == kLightRed) EstadoConexion(true);
    return;
  }
  TmrConexion.SetInterval(kConnecting);
  TmrHoraFecha.SetEnabled(false);
  TmrMonitor.SetEnabled(false);
  if (!CargarServidor()) return;
  if (bar == kLightGreen) EstadoConexion(false);
  MidiWav("Sonidos\\Vintoral-1.wav");
}

}  // namespace vintoral
