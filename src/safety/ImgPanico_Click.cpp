#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImgPanico_Click() {
  if (!ImgPanico.Visible || !ImgPanico.Enabled) return;
  ImgPanico.Enabled = false;
  LblInfo[3].Caption = "ENVIANDO E-MAIL"_w;
  EnviarAlerta();
  LblInfo[3].Caption = {};
  ImgPanico.Enabled = true;
}

}  // namespace vintoral
