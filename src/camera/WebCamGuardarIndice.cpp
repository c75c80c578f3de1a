#include "camera/IndiceCamara.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::WebCamGuardarIndice() {
  // A list that the system has not told of yet says nothing of which camera was chosen.
  if (dspPreview.Listed()) EscribirIndiceCamara(platform_.disk, CboDriver.ListIndex()).PassOver();
}

}  // namespace vintoral
