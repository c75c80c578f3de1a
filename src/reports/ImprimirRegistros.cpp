#include "reports/form2/Form2.h"
#include "station/form1/Foco.h"
#include "station/form1/Monitor.h"
#include "station/form1/PreguntaPapel.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ImprimirRegistros() {
  // A monitor is watched, and what was just found is to be seen: neither is held up by questions.
  const bool asks = !HayMonitor(*this) && (Form2 == nullptr || !Form2->Pedida());
  const std::optional<PapelInforme> paper =
      asks ? PreguntarPapel(platform_.screen, "Vintoral - Imprimir Estado/Búsqueda/Ficha"_w,
                            "¿Desea también imprimir los registros en formato tiquete?"_w,
                            "¿Desea imprimir sólo un resumen de los registros?"_w)
           : PapelInforme{};
  if (!paper || Terminado()) return;
  ImprimirEstado(paper->tira, paper->detalle);
  MidiWav(sonido::kClic);
  FocoAlNumero(*this);
  TmrConexion.Restart();
}

}  // namespace vintoral
