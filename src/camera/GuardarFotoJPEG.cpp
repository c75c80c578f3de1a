#include <utility>

#include "camera/SaveFile.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

/// What stands there is another ficha's, also where none takes its place: it goes first of all. False when
/// there is no photo to take it.
bool Despejar(Form1& form, const String& ruta) {
  Disk& disk = form.Devices().disk;
  if (disk.Exists(ruta)) QuitarArchivo(disk, ruta);
  return form.TomarFotoFija();
}

bool Codificar(const cImage& foto, Disk& disk, const String& ruta) {
  constexpr int kCalidad = 95;
  cJpeg jpeg;
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  jpeg.Quality(kCalidad);
  if (!jpeg.SampleHDC(foto.hDC(), foto.Width(), foto.Height())) return false;
  return SaveFile(jpeg, disk, ruta) == SaveResult::kSaved;
}

}  // namespace

bool Form1::GuardarFotoJPEG(const String& ruta) {
  return Despejar(*this, ruta) && Codificar(*Picture2.Picture.Pixels(), platform_.disk, ruta);
}

bool Form1::GuardarFotoDetras(const String& ruta, std::vector<String> copias) {
  if (!Despejar(*this, ruta)) return false;
  std::vector<String> archivos = copias;
  archivos.push_back(ruta);
  platform_.disk.Behind(std::move(archivos),
                        [foto = Picture2.Picture.Pixels(), ruta, copias = std::move(copias)](Disk& disk) {
                          if (!Codificar(*foto, disk, ruta)) return;
                          for (const String& copia : copias)
                            disk.Copy(ruta, copia).PassOver();
                        });
  return true;
}

}  // namespace vintoral
