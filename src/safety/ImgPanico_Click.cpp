#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"

namespace vintoral {

void Form1::ImgPanico_Click() {
  if (!ImgPanico.Visible || !ImgPanico.Enabled) return;
  RegistrarHoraTrabajo(funcion::kBotonPanico);
  ImgPanico.Enabled = false;
  LblInfo[3].Caption = "ENVIANDO E-MAIL"_w;
  EnviarAlerta();
  LblInfo[3].Caption = {};
  ImgPanico.Enabled = true;
}

}  // namespace vintoral
