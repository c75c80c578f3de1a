#include "camera/Sello.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::SellarFoto(LugarSello lugar, const String& texto) {
  constexpr int kTwipsPorPixel = 15;
  const std::shared_ptr<const cImage> foto = Picture2.Picture.Pixels();
  if (foto == nullptr) return;
  // Shared pixels don't change: a view may be painting them.
  auto sellada = std::make_shared<cImage>(*foto);
  Sellar(*sellada, lugar.x / kTwipsPorPixel, lugar.y / kTwipsPorPixel, texto);
  Picture2.Picture = Picture(std::move(sellada));
}

}  // namespace vintoral
