#include "reports/form2/Form2.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

Answer Preguntar(Screen& screen, const String& texto) {
  return screen.Show({"Vintoral - Imprimir Estado/Búsqueda/Ficha"_w,
                      texto,
                      Icon::kQuestion,
                      {Answer::kYes, Answer::kNo, Answer::kCancel},
                      Answer::kYes});
}

struct Papel {
  bool tira = false, detalle = false;
};

/// Nothing where the operator has thought better of it.
std::optional<Papel> PreguntarPapel(Screen& screen) {
  const Answer slip = Preguntar(screen, "¿Desea también imprimir los registros en formato tiquete?"_w);
  if (slip == Answer::kCancel) return std::nullopt;
  if (slip == Answer::kNo) return Papel{};
  const Answer summary = Preguntar(screen, "¿Desea imprimir sólo un resumen de los registros?"_w);
  if (summary == Answer::kCancel) return std::nullopt;
  return Papel{.tira = true, .detalle = summary == Answer::kNo};
}

}  // namespace

void Form1::ImprimirRegistros() {
  // A monitor is watched, and what was just found is to be seen: neither is held up by questions.
  const bool asks = !HayMonitor(*this) && (Form2 == nullptr || !Form2->Pedida());
  const std::optional<Papel> paper = asks ? PreguntarPapel(platform_.screen) : Papel{};
  if (!paper || Terminado()) return;
  ImprimirEstado(paper->tira, paper->detalle);
  MidiWav(sonido::kClic);
  SetFocus(&TxtCampo[0]);
  TmrConexion.Restart();
}

}  // namespace vintoral
