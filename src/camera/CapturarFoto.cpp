#include "camera/Foto.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CapturarFoto() {
  if (CboDriver.Text().Empty()) return;
  const std::shared_ptr<const cImage> cuadro = dspPreview.Snap();
  Picture4.Picture = cuadro;
  Picture2.Picture = cuadro == nullptr ? Picture() : Picture(FotoDe(*cuadro));
}

bool Form1::TomarFotoFija() {
  const Picture& fija = Picture2.Picture;
  if (fija.Pixels() != nullptr || fija.Empty()) return !fija.Empty();
  const DecodedPicture leida =
      platform_.pictures.Load(platform_.disk, fija.Path(), {kAnchoFoto, kAltoFoto, true});
  leida.reading.PassOver();
  std::shared_ptr<cImage> foto = leida.pixels == nullptr ? nullptr : FotoDe(*leida.pixels);
  if (foto == nullptr) return false;
  Picture2.Picture = Picture(std::move(foto));
  return true;
}

}  // namespace vintoral
