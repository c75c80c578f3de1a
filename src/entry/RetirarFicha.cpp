#include <cstdlib>

#include "common/Numbers.h"
#include "records/Registro.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::RetirarFicha() {
  if (!FichaEnPantalla() || !HayConexion()) return;
  FijarValor();
  const bool confirmada =
      Preguntar("Vintoral - Confirmar Ficha"_w, "¿Desea realmente retirar la ficha actual?"_w, Answer::kYes);
  if (!confirmada) {
    Form_KeyDown(27, 0);
    return;
  }
  if (!FichaEnPantalla()) return;  // it went back to idle by itself under the box
  if (ConfirmacionVencida()) {
    Form_KeyDown(27, 0);
    return MidiWav("Sonidos\\Vintoral-7.wav");
  }
  TmrHoraFecha.SetEnabled(false);
  SyncTogether onDisk(platform_.disk);
  if (LiberarPuesto(NumeroDeFicha())) {
    RegistrarHistorial();
    onDisk.Finish().PassOver();
    RefrescarVista();
    LimpiarCampos();
    MidiWav("Sonidos\\Vintoral-4.wav");
  }
  TmrHoraFecha.SetEnabled(true);
}

void Form1::FijarValor() {
  // Twice the same account: no minute turned over between the value shown and the value charged.
  const auto account = [this] {
    LblValor.Visible = false;
    TmrHoraFecha_Timer();
    return CuentaDeSalida();
  };
  String first = account();
  for (String second = account(); second != first; second = account())
    first = second;
}

String Form1::CuentaDeSalida() {
  return LblFechaEnt.Caption + "|"_w + LblFechaSal.Caption + "|"_w + TiempoEstadia + "|"_w +
         ValorEstadia.Full();
}

bool Form1::ConfirmacionVencida() const {
  constexpr std::int64_t kStillCounts = 60'000;
  const std::optional<Moment> shown = MomentOfStamp(LblFechaSal.Caption);
  const Moment now = platform_.clock.Now().WholeMinute();
  return !shown || std::abs(now.Milliseconds() - shown->Milliseconds()) > kStillCounts;
}

bool Form1::LiberarPuesto(std::int64_t numero) {
  Registro<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kReadWrite);
  const std::optional<RegistroFicha> puesto = act ? act.Read(numero) : std::nullopt;
  // Without the slot, or without room for the history row, the ficha stays inside and on display: to free it
  // now would lose the money that goes with it.
  if (!puesto || !ReservarHistorial()) {
    act.Opened().PassOver();
    TmrConexion.SetInterval(100);
    return false;
  }
  FichaActual = *puesto;
  if (!FichaActual.EnUso) return true;  // another gate retired it meanwhile; the row is written all the same
  TextoSalida = LblFechaSal.Caption;
  FichaActual.EnUso = false;
  FichaActual.NumeroFicha = Digits(numero, 4);
  FichaActual.MarcaSalida = TextoSalida;
  FichaActual.PorteriaSalida = NumeroPorteria;
  FichaActual.Posicion = static_cast<std::int32_t>(numero);
  act.Write(numero, FichaActual, true).PassOver();
  return true;
}

bool Form1::ReservarHistorial() {
  const String path = RutaCompartida("Vintoral.HST");
  if (!platform_.disk.Exists(path)) return true;  // told by RegistrarHistorial
  Registro<RegistroFicha> hst(platform_.disk, path, OpenMode::kReadWrite);
  const Outcome reserved = hst ? hst.ReserveRow() : hst.Opened();
  reserved.PassOver();
  return static_cast<bool>(reserved);
}

void Form1::RegistrarHistorial() {
  const String path = RutaCompartida("Vintoral.HST");
  if (!platform_.disk.Exists(path)) return TmrConexion.SetInterval(100);
  Registro<RegistroFicha> hst(platform_.disk, path, OpenMode::kReadWrite);
  if (!hst) return hst.Opened().PassOver();
  hst.Append([this](std::int64_t row) {
       FichaActual.EnUso = true;
       FichaActual.Posicion = static_cast<std::int32_t>(row);
       FichaActual.ValorCobrado = ValorEstadia;
       // The row holds the user's points, no longer the user's number.
       FichaActual.UsuarioPuntos = static_cast<std::int32_t>(LeerPuntosUsuario(FichaActual.UsuarioPuntos));
       return FichaActual;
     })
      .PassOver();
}

}  // namespace vintoral
