#include "station/form1/Form1.h"

#include <algorithm>

namespace vintoral {

Form1::Form1(const Platform& platform) : platform_(platform) {
  for (Timer* timer : Timers())
    timer->UseClock(platform_.clock);
  ConectarEventos();
}

void Form1::ConectarEventos() {
  for (std::size_t i = 1; i < TxtCampo.size(); ++i) {
    TxtCampo[i].OnChange = [this, i] { TxtCampo[i].RaiseToCapitals(); };
  }
  for (TextBox& label : TxtEtiqueta) {
    label.OnChange = [&label] { label.RaiseToCapitals(); };
  }
  TxtBarCode.OnChange = [this] { TmrBarCode.Restart(); };
  TmrHoraFecha.OnTick = [this] { TmrHoraFecha_Timer(); };
  TmrHorario.OnTick = [this] { TmrHorario_Timer(); };
  TmrMonitor.OnTick = [this] { TmrMonitor_Timer(); };
  TmrConexion.OnTick = [this] { TmrConexion_Timer(); };
  TmrBarCode.OnTick = [this] { TmrBarCode_Timer(); };
  OnLostFocus = [this](Control& left) {
    for (std::size_t i = 0; i < TxtEtiqueta.size(); ++i) {
      if (&TxtEtiqueta[i] == &left) CerrarEtiqueta(i);
    }
  };
}

bool Form1::FichaEnPantalla() const {
  return std::all_of(TxtCampo.begin(), TxtCampo.end(), [](const TextBox& field) { return field.Locked; });
}

void Form1::FocoDondeSeEscribe() {
  if (TxtBarCode.TakesFocus()) return SetFocus(&TxtBarCode);
  if (TxtEfectivo.TakesFocus()) return SetFocus(&TxtEfectivo);
  FocoPrimerCampo();
}

void Form1::FocoPrimerCampo() {
  const auto open = std::find_if(TxtCampo.begin(), TxtCampo.end(),
                                 [](const TextBox& field) { return field.TakesFocus() && !field.Locked; });
  SetFocus(open == TxtCampo.end() ? nullptr : &*open);
}

void Form1::Terminar() {
  if (terminado_) return;  // a tick under the last box may have ended it already
  terminado_ = true;
  for (Timer* timer : Timers())
    timer->SetEnabled(false);
  platform_.system.End();
}

bool Form1::Preguntar(const String& titulo, const String& texto, Answer preselected) {
  const Box box{titulo, texto, Icon::kExclamation, {Answer::kYes, Answer::kNo}, preselected};
  return platform_.screen.Show(box) == Answer::kYes;
}

String Form1::ProtegidaContraEscritura() const {
  return "La carpeta '"_w + platform_.disk.CurrentFolder() + "' está protegida contra escritura."_w;
}

std::int64_t Form1::SiguienteTick() {
  std::int64_t next = -1;
  for (const Timer* timer : Timers()) {
    if (timer->Running() && (next < 0 || timer->Due() < next)) next = timer->Due();
  }
  return next;
}

void Form1::EjecutarTicks() {
  const std::int64_t now = platform_.clock.Ticks();
  while (!terminado_) {
    Timer* first = nullptr;
    for (Timer* timer : Timers()) {
      if (timer->Running() && timer->Due() <= now && (first == nullptr || timer->Due() < first->Due()))
        first = timer;
    }
    if (first == nullptr) return;
    first->Advance();
    first->OnTick();
  }
}

}  // namespace vintoral
