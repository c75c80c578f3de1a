#include "station/form1/Form1.h"

namespace vintoral {

void Form1::WebCamDesconectar() {
  Picture1.Picture = {};
  Picture4.Picture = {};
  dspPreview.StopCamera();
}

}  // namespace vintoral
