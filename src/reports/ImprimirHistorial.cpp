#include "records/Register.h"
#include "reports/ArchivoInforme.h"
#include "reports/Avance.h"
#include "reports/InformeFichas.h"
#include "reports/Reunir.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

InformeHecho Historial(const Form1& form, const Register<RegistroFicha>& history, bool formatoTiquete,
                       bool detalle, Destino destino) {
  const Moment now = form.Devices().clock.Now();
  const bool shift = form.TurnoActivo;
  Avance way(form, EscribiendoInforme());
  DatosInforme data =
      ReunirInforme(form, shift ? CabezaDeTurno(form.MarcaTurno, StampOf(now)) : CabezaDeDia(StampOf(now)),
                    formatoTiquete, detalle);
  data.sigue = [&way](double done) { return way.Sigue(done); };
  if (const std::optional<Moment> began = MomentOfStamp(form.MarcaTurno); shift && began)
    data.periodo = {*began, now};
  return InformeHistorial(data, history, shift, std::move(destino));
}

}  // namespace

void Form1::ImprimirHistorial(bool formatoTiquete, bool detalle) {
  const Register<RegistroFicha> history(platform_.disk, RutaCompartida("Vintoral.HST"), OpenMode::kRead);
  if (history.Missing()) return;
  if (!history) return history.Opened().PassOver();
  ArchivoInforme page(*this, archivo::kPagina);
  if (!page.Abierto()) return MidiWav(sonido::kClic);
  MidiWav(sonido::kClic);
  EntregarInforme(*this, page, Historial(*this, history, formatoTiquete, detalle, page.Destino()));
}

}  // namespace vintoral
