#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

void CountMinute(Form1& form, Moment now) {
  const int minute = now.Parts().minute;
  if (minute == form.MinutoBase) return;
  ++form.TiempoEjecucion;
  form.MinutoBase = minute;
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
  BaseReloj = now;  // the clock as the last tick saw it: a jump is what lies between two ticks
  CountMinute(*this, now);
  LimpiarFotosViejas();
  if (!IsForgotten(*this, now)) return;
  Cancelar();
  MidiWav(sonido::kOlvidada);
}

}  // namespace vintoral
