#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {

void Form1::WebCamConectar(int mask) {
  if (mask == keys::kControl) {
    const int next = CboDriver.ListIndex() + 1;
    const int rows = static_cast<int>(CboDriver.List().size());
    if (rows > 0) CboDriver.Select(next < rows ? next : 0);
    WebCamDesconectar();
    WebCamGuardarIndice();
    WebCamCargar();
  }
  dspPreview.StartCamera(CboDriver.Text());
  // Once more: the second start finds the device freshly listed.
  WebCamDesconectar();
  WebCamCargar();
  dspPreview.StartCamera(CboDriver.Text());
}

}  // namespace vintoral
