#include "reports/ArchivoInforme.h"
#include "reports/Avance.h"
#include "reports/DocumentoID.h"
#include "reports/Reunir.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ImprimirDocumentoID(std::string_view archivo) {
  const Register<RegistroFicha> list(platform_.disk, RutaCompartida(archivo), OpenMode::kRead);
  if (list.Missing()) return;
  if (!list) return list.Opened().PassOver();
  ArchivoInforme page(*this, archivo::kPagina);
  if (!page.Abierto()) return MidiWav(sonido::kClic);
  Avance way(*this, EscribiendoInforme());
  const bool points = EqualNoCase(archivo, "Vintoral.CRD");
  const DatosDocumento data{.documento = points ? Documento::kPuntos : Documento::kNuevos,
                            .porteria = NumeroPorteria,
                            .ahora = StampOf(platform_.clock.Now()),
                            .etiquetas = EtiquetasDeDatos(*this),
                            .turnoActivo = TurnoActivo,
                            .limite = LimiteFilas,
                            .foto = FotoEnDisco(*this),
                            .sigue = [&way](double done) { return way.Sigue(done); }};
  if (page.Publicar(EscribirDocumentoID(data, list, page.Destino())))
    platform_.system.Launch("Explorer.exe "_w + String(archivo::kPagina));
}

}  // namespace vintoral
