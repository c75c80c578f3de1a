#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::GuardarEtiquetas() {
  if (!etiquetasLeidas_) return;  // the folder was away all along: what stands here are not the site's labels
  const String path = RutaCompartida("Vintoral.LBL");
  platform_.disk.ClearReadOnly(path).PassOver();
  Register<RegistroEtiquetas> lbl(platform_.disk, path, OpenMode::kCreate);
  for (std::size_t i = 0; i < TxtEtiqueta.size(); ++i)
    EtiquetasActuales.Etiqueta[i] = Trim(TxtEtiqueta[i].Text());
  EtiquetasActuales.MemoriaRostros = ImgIndicador[indicador::kMemoriaRostros].Visible ? -1 : 0;
  (lbl ? lbl.Write(1, EtiquetasActuales, true) : lbl.Opened()).PassOver();
}

}  // namespace vintoral
