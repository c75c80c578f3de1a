#include "safety/form5/Turno.h"

#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"
#include "station/form1/Monitor.h"
#include "station/form1/PreguntaPapel.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

void Imprimir(Form1& form, const std::optional<PapelInforme>& paper) {
  if (paper && !form.Terminado()) form.ImprimirHistorial(paper->tira, paper->detalle);
}

/// A gate that prints nothing is asked nothing.
std::optional<PapelInforme> PapelDeTurno(Form1& form) {
  if (!IsPressed(form.PctBoton[boton::kTiquetes]) && !IsPressed(form.PctBoton[boton::kFacturas]))
    return PapelInforme{};
  return PreguntarPapel(form.Devices().screen, "Vintoral - Terminar Turno"_w,
                        "¿Desea imprimir también el turno de trabajo en formato tiquete?"_w,
                        "¿Desea imprimir sólo un resumen del turno de trabajo?"_w);
}

}  // namespace

void PedirHistorial(Form1& form) {
  Imprimir(form, PreguntarPapel(form.Devices().screen, "Vintoral - Imprimir Historial"_w,
                                "¿Desea imprimir también el historial en formato tiquete?"_w,
                                "¿Desea imprimir sólo un resumen del historial?"_w));
}

void ComenzarTurno(Form1& form) {
  form.RegistrarHoraTrabajo(funcion::kComenzarTurno);
  form.IniciarTurno();
  form.ImgIndicador[indicador::kTurno].Visible = true;
  form.TurnoActivo = true;
  form.MidiWav(voz::kTurnoIniciado);
}

void TerminarTurno(Form1& form) {
  form.RegistrarHoraTrabajo(funcion::kTerminarTurno);
  Imprimir(form, PapelDeTurno(form));
  if (form.Terminado()) return;
  form.ImgIndicador[indicador::kTurno].Visible = false;
  form.TurnoActivo = false;
  form.MidiWav(voz::kTurnoTerminado);
}

}  // namespace vintoral
