#include "station/form1/Form1.h"

namespace vintoral {

void Form1::TmrBarCode_Timer() {
  if (!TxtBarCodeOK.Visible) TxtBarCode.SetText({});
}

}  // namespace vintoral
