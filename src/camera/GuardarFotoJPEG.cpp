#include "camera/SaveFile.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {

bool Form1::GuardarFotoJPEG(const String& ruta) {
  constexpr int kCalidad = 95;
  // First of all: whatever stands there is another ficha's, also where none takes its place.
  if (platform_.disk.Exists(ruta)) QuitarArchivo(platform_.disk, ruta);
  if (!TomarFotoFija()) return false;
  const std::shared_ptr<const cImage> foto = Picture2.Picture.Pixels();
  cJpeg jpeg;
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  jpeg.Quality(kCalidad);
  if (!jpeg.SampleHDC(foto->hDC(), foto->Width(), foto->Height())) return false;
  return SaveFile(jpeg, platform_.disk, ruta) == SaveResult::kSaved;
}

}  // namespace vintoral
