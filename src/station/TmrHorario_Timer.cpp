#include <cstdlib>

#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// Somebody has set the clock, or the program stood still.
bool Jumped(Moment before, Moment now) {
  constexpr std::int64_t kLongestBetweenTicks = 20'000;
  return std::abs(now.Milliseconds() - before.Milliseconds()) > kLongestBetweenTicks;
}

void CountMinute(Form1& form, Moment now) {
  const Civil parts = now.Parts();
  if (parts.minute == form.MinutoBase) return;
  ++form.TiempoEjecucion;
  form.MinutoBase = parts.minute;
  form.RegistrarHoraTrabajo(funcion::kEnEjecucion);
  // The first entry of a day begins it, the second one is its own.
  if (parts.hour == 0 && parts.minute == 0) form.RegistrarHoraTrabajo(funcion::kEnEjecucion);
}

/// A ficha was called up for retiring, and nobody did.
bool IsForgotten(const Form1& form, Moment now) {
  constexpr std::int64_t kPatience = 120'000;
  if (!form.LblValor.Visible || !form.TmrHoraFecha.Enabled) return false;
  const std::optional<Moment> shown = MomentOfStamp(form.LblFechaSal.Caption);
  return shown && now.Milliseconds() - shown->Milliseconds() > kPatience;
}

}  // namespace

void Form1::TmrHorario_Timer() {
  const Moment now = platform_.clock.Now();
  if (Jumped(BaseReloj, now)) RegistrarHoraTrabajo(funcion::kCambiarHora);
  BaseReloj = now;  // the clock as the last tick saw it: a jump is what lies between two ticks
  CountMinute(*this, now);
  LimpiarFotosViejas();
  if (!IsForgotten(*this, now)) return;
  Cancelar();
  MidiWav(sonido::kOlvidada);
}

}  // namespace vintoral
