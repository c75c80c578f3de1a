#include "camera/Foto.h"

#include "camera/cImage/Resample.h"

namespace vintoral {

std::shared_ptr<cImage> FotoDe(const cImage& cuadro) {
  auto foto = std::make_shared<cImage>();
  const bool made = cuadro.Width() > 0 && foto->Create(kAnchoFoto, kAltoFoto, 24);
  return made && ResampleInto(foto->hDC(), cuadro.hDC()) ? foto : nullptr;
}

}  // namespace vintoral
