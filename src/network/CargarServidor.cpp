#include "common/TextoUtf8.h"
#include "records/LineaTexto.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::CargarServidor() {
  Disk& disk = platform_.disk;
  String ruta;
  if (disk.Exists(archivo::kServidor)) {
    const std::optional<String> text = disk.ReadAll(archivo::kServidor).PassOver();
    if (!text && !NumeroPorteria.Empty()) return true;  // unreadable for the moment: it stays what it is
    ruta = UTF8toANSI(Trim(PrimeraLinea(text.value_or(String()))));
  } else if (const Outcome written = disk.Replace(archivo::kServidor, "\r\n"); !written) {
    written.PassOver();
    Detener(ProtegidaContraEscritura());
    return false;
  }
  const bool principal = ruta.Empty();
  NumeroPorteria = principal ? "01"_w : "02"_w;
  EsCliente = principal ? 0 : -1;
  const String carpeta = principal ? disk.CurrentFolder() + "\\Multimedia"_w : ruta;
  if (carpeta != CarpetaCompartida) {
    OlvidarEtiquetas();
    UsuarioEnFormulario = 0;  // a number of the other folder's users
  }
  CarpetaCompartida = carpeta;
  if (TotalFichas > 0) MostrarPorteria();  // a path corrected while connecting makes it another gate
  return true;
}

}  // namespace vintoral
