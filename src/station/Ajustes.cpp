#include "records/Register.h"
#include "station/form1/Form1.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {

void Form1::CargarEtiquetas() {
  const String path = RutaCompartida("Vintoral.LBL");
  const bool stored = platform_.disk.Exists(path);
  etiquetasLeidas_ = stored || platform_.disk.Exists(RutaCompartida("Vintoral.ACT"));
  if (stored) {
    const Register<RegistroEtiquetas> lbl(platform_.disk, path, OpenMode::kRead);
    const std::optional<RegistroEtiquetas> record = lbl ? lbl.Read(1) : std::nullopt;
    lbl.Opened().PassOver();
    if (!record || lbl.Count() < 1) return;
    EtiquetasActuales = *record;
    for (std::size_t i = 0; i < TxtEtiqueta.size(); ++i) {
      TxtEtiqueta[i].SetText(EtiquetasActuales.Etiqueta[i].Trimmed() + " "_w);
    }
  } else {
    EtiquetasActuales.MemoriaRostros = 0;
    EtiquetasActuales.ImprimirCampo.fill(true);
  }
  ImgIndicador[indicador::kMemoriaRostros].Visible = EtiquetasActuales.MemoriaRostros == -1;
}

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
