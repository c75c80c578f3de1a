#include "records/Register.h"
#include "reports/ArchivoInforme.h"
#include "reports/Avance.h"
#include "reports/InformeFichas.h"
#include "reports/Reunir.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ImprimirHistorial(bool formatoTiquete, bool detalle) {
  const Register<RegistroFicha> history(platform_.disk, RutaCompartida("Vintoral.HST"), OpenMode::kRead);
  if (history.Missing()) return;
  if (!history) return history.Opened().PassOver();
  ArchivoInforme page(*this, archivo::kPagina);
  if (!page.Abierto()) return MidiWav(sonido::kClic);
  MidiWav(sonido::kClic);
  const String now = StampOf(platform_.clock.Now());
  Avance way(*this, EscribiendoInforme());
  DatosInforme data = ReunirInforme(*this, TurnoActivo ? CabezaDeTurno(MarcaTurno, now) : CabezaDeDia(now),
                                    formatoTiquete, detalle);
  data.sigue = [&way](double done) { return way.Sigue(done); };
  if (const std::optional<Moment> began = MomentOfStamp(MarcaTurno); TurnoActivo && began)
    data.periodo = {*began, platform_.clock.Now()};
  InformeHecho done = InformeHistorial(data, history, TurnoActivo, page.Destino());
  const bool published = page.Publicar(done.pagina);
  // The money of a shift is counted on paper, whatever has become of the page.
  if (done.tira) platform_.printer.EndDoc(std::move(*done.tira));
  if (published) platform_.system.Launch("Explorer.exe "_w + String(archivo::kPagina));
}

}  // namespace vintoral
