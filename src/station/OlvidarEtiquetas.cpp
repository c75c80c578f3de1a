#include "station/form1/Form1.h"

namespace vintoral {

void Form1::OlvidarEtiquetas() {
  etiquetasLeidas_ = false;
  EtiquetasActuales = {};
  ImgIndicador[indicador::kMemoriaRostros].Visible = false;
  for (std::size_t i = CmdBarCode.Visible ? 1 : 0; i < TxtEtiqueta.size(); ++i)
    TxtEtiqueta[i].SetText(LabelsAsDesigned()[i]);
}

}  // namespace vintoral
