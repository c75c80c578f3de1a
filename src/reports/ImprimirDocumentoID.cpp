#include "reports/ArchivoInforme.h"
#include "reports/Avance.h"
#include "reports/DocumentoID.h"
#include "reports/Reunir.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

Outcome Lista(const Form1& form, std::string_view archivo, const Register<RegistroFicha>& list,
              Destino destino) {
  Avance way(form, EscribiendoInforme());
  const bool points = EqualNoCase(archivo, "Vintoral.CRD");
  const DatosDocumento data{.documento = points ? Documento::kPuntos : Documento::kNuevos,
                            .porteria = form.NumeroPorteria,
                            .ahora = StampOf(form.Devices().clock.Now()),
                            .etiquetas = EtiquetasDeDatos(form),
                            .turnoActivo = form.TurnoActivo,
                            .limite = form.LimiteFilas,
                            .foto = FotoEnDisco(form),
                            .sigue = [&way](double done) { return way.Sigue(done); }};
  return EscribirDocumentoID(data, list, std::move(destino));
}

}  // namespace

void Form1::ImprimirDocumentoID(std::string_view archivo) {
  const Register<RegistroFicha> list(platform_.disk, RutaCompartida(archivo), OpenMode::kRead);
  if (list.Missing()) return;
  if (!list) return list.Opened().PassOver();
  ArchivoInforme page(*this, archivo::kPagina);
  if (!page.Abierto()) return MidiWav(sonido::kClic);
  EntregarInforme(*this, page, {Lista(*this, archivo, list, page.Destino()), std::nullopt});
}

}  // namespace vintoral
