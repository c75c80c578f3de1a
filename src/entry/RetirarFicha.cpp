#include <cstdlib>

#include "common/Numbers.h"
#include "records/Register.h"
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
  const std::int64_t numero = NumeroDeFicha();
  if (const std::optional<RegistroFicha> puesto = LiberarPuesto(numero)) {
    if (RegistrarHistorial()) {
      RefrescarVista();
      LimpiarCampos();
      onDisk.Finish().PassOver();
      MidiWav("Sonidos\\Vintoral-4.wav");
    } else {
      DevolverPuesto(numero, *puesto);
    }
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

std::optional<RegistroFicha> Form1::LiberarPuesto(std::int64_t numero) {
  Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kReadWrite);
  const std::optional<RegistroFicha> puesto = act.Read(numero).PassOver();
  // Without the slot, or without room for the history row, the ficha stays inside and on display: to free it
  // now would lose the money that goes with it.
  if (!puesto || !ReservarHistorial()) {
    TmrConexion.SetInterval(100);
    return std::nullopt;
  }
  FichaActual = *puesto;
  if (!FichaActual.EnUso)
    return puesto;  // another gate retired it meanwhile; the row is written all the same
  TextoSalida = LblFechaSal.Caption;
  FichaActual.EnUso = false;
  FichaActual.NumeroFicha = Digits(numero, 4);
  FichaActual.MarcaSalida = TextoSalida;
  FichaActual.PorteriaSalida = NumeroPorteria;
  FichaActual.Posicion = static_cast<std::int32_t>(numero);
  act.Write(numero, FichaActual, true).PassOver();
  return puesto;
}

void Form1::DevolverPuesto(std::int64_t numero, const RegistroFicha& puesto) {
  TmrConexion.SetInterval(100);
  FichaActual = puesto;
  Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kReadWrite);
  const std::optional<RegistroFicha> ahora = act.Read(numero).PassOver();
  if (!ahora) return;
  // Nothing to give back where another gate freed the slot, or has filled it since.
  if (puesto.EnUso && !ahora->EnUso) act.Write(numero, puesto, true).PassOver();
}

bool Form1::ReservarHistorial() {
  const String path = RutaCompartida("Vintoral.HST");
  Register<RegistroFicha> hst(platform_.disk, path, OpenMode::kReadWrite);
  if (hst.Missing()) return true;  // told by RegistrarHistorial
  const Outcome reserved = hst ? hst.ReserveRow() : hst.Opened();
  reserved.PassOver();
  return static_cast<bool>(reserved);
}

bool Form1::RegistrarHistorial() {
  const String path = RutaCompartida("Vintoral.HST");
  Register<RegistroFicha> hst(platform_.disk, path, OpenMode::kReadWrite);
  if (hst.Missing()) {
    TmrConexion.SetInterval(100);
    return true;
  }
  const auto row = [this](std::int64_t number) {
    FichaActual.EnUso = true;
    FichaActual.Posicion = static_cast<std::int32_t>(number);
    FichaActual.ValorCobrado = ValorEstadia;
    // The row holds the user's points, no longer the user's number.
    FichaActual.UsuarioPuntos = static_cast<std::int32_t>(LeerPuntosUsuario(FichaActual.UsuarioPuntos));
    return FichaActual;
  };
  const Outcome written = hst ? hst.Append(row) : hst.Opened();
  written.PassOver();
  return static_cast<bool>(written);
}

}  // namespace vintoral
